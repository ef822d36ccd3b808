// What nobody should paste into the frames of companies and other clients: kept whole or cut at the told length, no
// other row touched, nothing in the error log.

#include "HomeScreen.h"
#include "controls/VTxt.h"
#include "tests/support/HostileTexts.h"

using namespace ledgora;
using namespace ledgora::test;

namespace {

struct TextField
{
    const char *field;
    const char *column;
    int limit; ///< told length; 0 for a plain text box, which keeps small letters
};

struct Master
{
    const char *name;
    const char *table;
    const char *open, *add, *change; ///< access keys on the home screen, and in the list
    const char *stateField;
    std::vector<TextField> fields;
    std::vector<const char *> digitFields;
    std::vector<std::pair<const char *, const char *>> identifiers; ///< field and what is said of a wrong one
};

const std::vector<Master> &masters()
{
    static const std::vector<Master> all{
        {"Company",
         "GST_FirmMas",
         "",
         "C",
         "A",
         "cboFirmState",
         {{"txtFirmName", "Nm", 255},
          {"txtFirmDesig", "Desig", 100},
          {"txtFirmAddr1", "Addr1", 150},
          {"txtFirmAddr2", "Addr2", 150},
          {"txtFirmCity", "City", 100},
          {"txtFirmEmail", "Email", 0},
          {"txtFirmWebURL", "WebURL", 0},
          {"txtFirmBankAcName", "BankAcName", 255},
          {"txtFirmBankNm", "BankName", 255},
          {"txtFirmBankBr", "BankBrAdd", 255},
          {"txtFirmBankAcNo", "BankAcNo", 50},
          {"txtFirmPayComments", "PayComments", 255},
          {"txtFirmSignName", "SignName", 100},
          {"txtFirmSignDesig", "SignDesig", 50}},
         {"txtFirmPIN", "txtFirmPhNoO1", "txtFirmPhNoO2", "txtFirmPhNoR1", "txtFirmPhNoR2", "txtFirmFaxNo",
          "txtFirmMobNo"},
         {{"txtFirmPAN", "PAN No is not Valid."},
          {"txtFirmGSTIN", "Invalid 'GSTIN' !"},
          {"txtFirmBankIFSC",
           "Invalid IFS Code !\nShould be exactly 11 in Length and Format should be First 4 Alphabets [A-Z], Fifth "
           "[0], Next 6 AlphaNumerics [A-Z] or [0-9]."}}},
        {"OtherClient",
         "GST_OthCl",
         "O",
         "A",
         "M",
         "cboOthClState",
         {{"txtOthClName", "Nm", 100},
          {"txtOthClHNo", "h_no", 50},
          {"txtOthClHNm", "h_nm", 50},
          {"txtOthClStreet", "street", 50},
          {"txtOthClArea", "area", 50},
          {"txtOthClCity", "city", 50},
          {"txtOthClEmail", "email", 0}},
         {"txtOthClPIN", "txtOthClPhNo1", "txtOthClPhNo2", "txtOthClFaxNo", "txtOthClMobNo"},
         {{"txtOthClPAN", "PAN No is not Valid."}, {"txtOthClGSTIN", "Invalid 'GSTIN' !"}}},
    };
    return all;
}

class BadMasterInput : public HomeScreen
{
protected:
    void closeScreen()
    {
        screen()->close();
        QCoreApplication::sendPostedEvents(screen(), QEvent::DeferredDelete);
    }
    void SetUp() override
    {
        HomeScreen::SetUp();
        addCompany(1, "ZETA & CO");
        addClient(1, "ZETA TRADERS", "DELHI");
    }
    void openFrame(const Master &master)
    {
        open();
        if (*master.open)
            alt(*master.open);
        alt(*master.add);
    }
    void storedIsKept(const Master &master, const HostileText &text) const
    {
        const QString id = QLatin1String(master.name) == "Company" ? "FirmSrNo" : "OthClSrNo";
        for (const TextField &field : master.fields) {
            const QString stored = data()
                                       .rows(QStringLiteral("Select %1 From %2 Where %3=2")
                                                 .arg(QLatin1String(field.column), QLatin1String(master.table), id))
                                       .value(0);
            EXPECT_EQ(stored, expected(text.kept, field.limit)) << field.field;
            EXPECT_EQ(this->text(field.field), stored) << field.field;
        }
        EXPECT_EQ(data().rows(QStringLiteral("Select * From %1 Where %2=1").arg(QLatin1String(master.table), id)),
                  m_others.value(master.name));
    }
    void noteOthers()
    {
        m_others["Company"] = data().rows("Select * From GST_FirmMas");
        m_others["OtherClient"] = data().rows("Select * From GST_OthCl");
    }

private:
    /// Small letters become capitals, and typing ends at one character more than is told.
    static QString expected(const QString &kept, int limit)
    {
        if (limit == 0)
            return kept.left(400);
        QString capitals = kept;
        for (QChar &c : capitals)
            c = c >= u'a' && c <= u'z' ? QChar(c.unicode() - 32) : c;
        const bool amidCharacter = limit + 1 < capitals.size() && capitals.at(limit + 1).isLowSurrogate();
        return capitals.left(limit + (amidCharacter ? 2 : 1));
    }
    QMap<QString, QStringList> m_others;
};

class BadMasterText : public BadMasterInput, public testing::WithParamInterface<HostileText>
{
};

TEST_P(BadMasterText, PastedIntoEveryFieldIsStoredAndShownAgain)
{
    noteOthers();
    for (const Master &master : masters()) {
        SCOPED_TRACE(master.name);
        openFrame(master);
        for (const TextField &field : master.fields)
            repaste(field.field, GetParam().pasted);
        choose(master.stateField, "GOA (30)");
        alt('S');
        alt(*master.change);
        storedIsKept(master, GetParam());
        alt('S');
        alt(*master.change);
        storedIsKept(master, GetParam()); // unchanged by the second save
        press(Qt::Key_Escape, Qt::NoModifier, *master.open ? 2 : 1);
        closeScreen();
    }
}

INSTANTIATE_TEST_SUITE_P(Texts, BadMasterText, testing::ValuesIn(hostileTexts()),
                         [](const auto &row) { return row.param.name; });

TEST_F(BadMasterInput, FieldsOfDigitsKeepTheDigitsOfAPastedText)
{
    for (const Master &master : masters()) {
        openFrame(master);
        for (const char *field : master.digitFields) {
            SCOPED_TRACE(field);
            boxes.expect("Enter Numeric value");
            repaste(field, "'; 11 00٣\t66😀");
            EXPECT_TRUE(boxes.wait());
            EXPECT_EQ(text(field), "110066");
            for (const char *key : {"٣", "😀", "x"}) {
                SCOPED_TRACE(key);
                boxes.expect("Enter Numeric value");
                pressLetter(key);
                EXPECT_TRUE(boxes.wait());
            }
            EXPECT_EQ(text(field), "110066");
        }
        closeScreen();
    }
}

TEST_F(BadMasterInput, WrongIdentifiersAreRefusedWhateverWasPasted)
{
    for (const Master &master : masters()) {
        openFrame(master);
        for (const auto &[field, message] : master.identifiers) {
            for (const HostileText &text : hostileTexts()) {
                SCOPED_TRACE(std::string(field) + ' ' + text.name);
                repaste(field, text.pasted);
                boxes.expect(message).icon(QMessageBox::Information);
                press(Qt::Key_Tab);
                EXPECT_TRUE(boxes.wait());
                EXPECT_EQ(focus(), field);
            }
            retype(field, "");
            EXPECT_EQ(text(field), "");
        }
        closeScreen();
    }
}

TEST_F(BadMasterInput, CompanyNameIsFoundInUseHoweverItIsWritten)
{
    open();
    for (const char *name : {"D'SOUZA \\ SONS", "शर्मा '\\'", "A😀B"}) {
        SCOPED_TRACE(name);
        alt('C');
        repaste("txtFirmName", name);
        choose("cboFirmState", "GOA (30)");
        alt('S');
        alt('C');
        repaste("txtFirmName", name);
        choose("cboFirmState", "GOA (30)");
        boxes.expect("'Name' Already Exists.");
        alt('S');
        alt('C');
    }
    alt('C');
    repaste("txtFirmName", "A😁B"); // another name
    choose("cboFirmState", "GOA (30)");
    alt('S');
    EXPECT_EQ(companies().size(), 5);
}

TEST_F(BadMasterInput, PasswordOfAnyCharactersOpensItsCompany)
{
    for (const HostileText &text : hostileTexts()) {
        SCOPED_TRACE(text.name);
        open();
        find<Grid>("vsFirm")->setFocus();
        alt('A');
        repaste("txtFirmPass", text.pasted);
        const QString password = this->text("txtFirmPass");
        ASSERT_FALSE(password.isEmpty());
        const auto pasteInto = [password](QWidget &dialog) {
            dialog.findChild<QLineEdit *>("tpassword")->setText(password);
            QTest::keyClick(&dialog, Qt::Key_Return);
        };
        boxes.expectDialog(pasteInto);
        alt('S');
        boxes.expectDialog(pasteInto);
        alt('A');
        EXPECT_EQ(frame(), "famFirmEdit");
        EXPECT_EQ(data().rows("Select Pass From GST_FirmMas"), QStringList{password});
        closeScreen();
        data().run("Update GST_FirmMas Set Pass=''");
    }
}

} // namespace
