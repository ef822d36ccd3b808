// The home screen under a user's keys: companies with and without a password, other clients, and the gates before the
// screens that work for one company.

#include "HomeScreen.h"
#include <QRadioButton>
#include <QSet>

using namespace ledgora;
using namespace ledgora::test;

namespace {

TEST_F(HomeScreen, CommandsThatNeedACompanySaySo)
{
    open();
    EXPECT_EQ(find<Grid>("vsFirm")->row(), -1);
    for (const char command : {'B', 'A', 'D', 'T'}) {
        boxes.expect("Please Select a Company.").icon(QMessageBox::Information);
        alt(command);
        EXPECT_EQ(focus(), "vsFirm") << command;
        EXPECT_EQ(frame(), "famFirmMain");
    }
    EXPECT_FALSE(isBillScreenOpen());
}

TEST_F(HomeScreen, CompanyIsCreatedByKeys)
{
    open();
    alt('C');
    EXPECT_EQ(frame(), "famFirmEdit");
    EXPECT_EQ(focus(), "txtFirmName");
    type("d'souza & co");
    press(Qt::Key_Return);
    EXPECT_EQ(focus(), "txtFirmDesig") << "Enter moves on as Tab does";
    choose("cboFirmState", "GOA (30)");
    press(Qt::Key_Return);
    EXPECT_EQ(focus(), "txtFirmPhNoO1");
    retype("txtFirmEmail", "Office@dsouza.example");
    alt('S');
    EXPECT_EQ(frame(), "famFirmMain");
    EXPECT_EQ(focus(), "cmdFirmCreate");
    EXPECT_EQ(companies(), QStringList{"1|D'SOUZA & CO|GOA|"});
    EXPECT_EQ(data().rows("Select Email From GST_FirmMas"), QStringList{"Office@dsouza.example"});
    EXPECT_EQ(find<QLabel>("lblFirm")->text(), "D'SOUZA & CO");
}

TEST_F(HomeScreen, CompanyIsCheckedBeforeItIsStored)
{
    addCompany(1, "D'SOUZA & CO");
    open();
    alt('C');
    const auto refused = [&](const char *message, const char *field) {
        boxes.expect(message).icon(QMessageBox::Information);
        alt('S');
        EXPECT_TRUE(boxes.wait());
        EXPECT_EQ(focus(), field) << message;
        EXPECT_EQ(frame(), "famFirmEdit");
    };
    type("   ");
    refused("Please specify 'Name' !", "txtFirmName");
    retype("txtFirmName", "D'SOUZA & CO");
    refused("Please specify 'State' !", "cboFirmState");
    choose("cboFirmState", "GOA (30)");
    retype("txtFirmPAN", "AAAFS1234K");
    retype("txtFirmGSTIN", "07AAAFS1234K1Z5");
    refused("Invalid 'GSTIN' ! First 2-Digit shoule be State Code [30] for State [GOA (30)].", "txtFirmGSTIN");
    retype("txtFirmGSTIN", "30AAAFS1234L1Z5");
    refused("Invalid 'GSTIN' ! Should contain PAN [AAAFS1234K] from 3rd to 12th Character.", "txtFirmGSTIN");
    retype("txtFirmGSTIN", "30AAAFS1234K1Z5");
    refused("'Name' Already Exists.", "txtFirmName");
    EXPECT_EQ(companies().size(), 1);
    retype("txtFirmName", "D'SOUZA & SON");
    alt('S');
    EXPECT_EQ(companies().size(), 2);
}

struct IdentifierCase
{
    const char *name;
    const char *field;
    const char *typed;
    QStringList messages;
};

class RefusedIdentifier : public HomeScreen, public testing::WithParamInterface<IdentifierCase>
{
};

TEST_P(RefusedIdentifier, KeepsTheFocusUntilItIsRightOrCancelled)
{
    const IdentifierCase &c = GetParam();
    open();
    alt('C');
    retype(c.field, c.typed);
    for (const QString &message : c.messages)
        boxes.expect(message).icon(QMessageBox::Information);
    press(Qt::Key_Tab);
    EXPECT_TRUE(boxes.wait());
    EXPECT_EQ(focus(), c.field);
    alt('C');
    EXPECT_EQ(frame(), "famFirmMain");
}

INSTANTIATE_TEST_SUITE_P(Fields, RefusedIdentifier,
                         testing::Values(IdentifierCase{"Pan", "txtFirmPAN", "AAAFS12345", {"PAN No is not Valid."}},
                                         IdentifierCase{"FourthCharacter",
                                                        "txtFirmPAN",
                                                        "AAAXS1234K",
                                                        {"Fourth Character of PAN Should be [P,H,C,J,F,A,T,B,L,G].",
                                                         "PAN No is not Valid."}},
                                         IdentifierCase{
                                             "Gstin", "txtFirmGSTIN", "07AAAFS1234K1", {"Invalid 'GSTIN' !"}}),
                         [](const auto &row) { return row.param.name; });

TEST_F(HomeScreen, NewPasswordIsTypedTwice)
{
    open();
    alt('C');
    type("SECRETIVE & CO");
    choose("cboFirmState", "DELHI (07)");
    retype("txtFirmPass", "Open Sesame");
    expectPassword("Confirm Password", "open sesame"); // case counts
    boxes.expect("Invalid Password.");
    press(Qt::Key_Return);
    EXPECT_TRUE(boxes.wait());
    EXPECT_EQ(focus(), "txtFirmPass");
    expectPassword("Confirm Password", "");
    press(Qt::Key_Return);
    EXPECT_TRUE(boxes.wait());
    EXPECT_EQ(focus(), "txtFirmPass") << "a cancelled confirmation keeps the focus without a message";
    expectPassword("Confirm Password", "Open Sesame");
    alt('S');
    EXPECT_TRUE(boxes.wait());
    EXPECT_EQ(companies(), QStringList{"1|SECRETIVE & CO|DELHI|Open Sesame"});
}

TEST_F(HomeScreen, PasswordStandsBeforeAlterDeleteAndBills)
{
    addCompany(1, "SECRETIVE & CO", "DELHI", "Sesame");
    open();
    for (const char command : {'A', 'D', 'B'}) {
        SCOPED_TRACE(command);
        expectPassword("Validate Password", "sesame");
        boxes.expect("Invalid Password.").icon(QMessageBox::Information);
        alt(command);
        EXPECT_EQ(frame(), "famFirmMain");
        expectPassword("Validate Password", "");
        alt(command);
        EXPECT_EQ(frame(), "famFirmMain");
        EXPECT_FALSE(isBillScreenOpen());
    }
    expectPassword("Validate Password", "Sesame");
    alt('A');
    EXPECT_EQ(frame(), "famFirmEdit");
    EXPECT_EQ(text("txtFirmPass"), "Sesame");
    retype("txtFirmDesig", "ADVOCATES");
    click("txtFirmPass");
    alt('S'); // an unchanged password is not asked for again
    EXPECT_EQ(frame(), "famFirmMain");
    EXPECT_EQ(focus(), "cmdFirmAlter");
    EXPECT_EQ(data().rows("Select Nm,Desig,Pass From GST_FirmMas"), QStringList{"SECRETIVE & CO|ADVOCATES|Sesame"});
}

TEST_F(HomeScreen, PasswordCanBeTakenAway)
{
    addCompany(1, "SECRETIVE & CO", "DELHI", "Sesame");
    open();
    expectPassword("Validate Password", "Sesame");
    alt('A');
    retype("txtFirmPass", "");
    alt('S');
    EXPECT_EQ(companies(), QStringList{"1|SECRETIVE & CO|DELHI|"});
}

TEST_F(HomeScreen, DeletedCompanyTakesItsDocumentsAndTemplatesAlong)
{
    addCompany(1, "ALPHA");
    addCompany(2, "BETA");
    addClient(1, "ASHOK TRADERS", "DELHI");
    addBill(1, 1, QDate(2024, 5, 1), 1, 100);
    addBill(2, 1, QDate(2024, 5, 1), 1, 100);
    data().run("Update GST_BillM Set FirmId=2 Where BillSrNo=2");
    data().run("Insert Into GST_RecpM (RecpSrNo,FirmId) Values (1,1),(2,2)");
    addReceipt(1, 1, 10);
    addReceipt(2, 2, 10);
    for (const char *id : {"1", "2"})
        ASSERT_TRUE(QDir(folder()).mkpath(QStringLiteral("GST_Templates/%1/deep").arg(id)));
    open();
    const QString question =
        "All the bills and receipts of the selected 'Company' will be deleted. Do you really want to "
        "Delete the selected 'Company' ?";
    boxes.expect(question, QMessageBox::No).icon(QMessageBox::Critical).defaultButton(QMessageBox::No);
    alt('D');
    EXPECT_EQ(companies().size(), 2);
    boxes.expect(question, QMessageBox::Yes);
    alt('D');
    EXPECT_EQ(companies(), QStringList{"2|BETA|DELHI|"});
    EXPECT_EQ(data().rows("Select BillId From GST_BillD"), QStringList{"2"});
    EXPECT_EQ(data().rows("Select BillSrNo From GST_BillM"), QStringList{"2"});
    EXPECT_EQ(data().rows("Select RecpId From GST_RecpD"), QStringList{"2"});
    EXPECT_EQ(data().rows("Select RecpSrNo From GST_RecpM"), QStringList{"2"});
    EXPECT_FALSE(QDir(folder() + "/GST_Templates/1").exists());
    EXPECT_TRUE(QDir(folder() + "/GST_Templates/2/deep").exists());
    EXPECT_EQ(find<QLabel>("lblFirm")->text(), "BETA");
    boxes.expect(question, QMessageBox::Yes);
    alt('D');
    EXPECT_EQ(find<Grid>("vsFirm")->row(), -1) << "without a company none is selected";
}

TEST_F(HomeScreen, CompanyWithoutAStateIsMendedAtItsFirstUse)
{
    addCompany(1, "OLD & CO", "");
    open();
    boxes.expect("Please specify valid 'State' !").icon(QMessageBox::Information);
    alt('B');
    EXPECT_EQ(frame(), "famFirmEdit");
    EXPECT_EQ(focus(), "cboFirmState");
    EXPECT_EQ(text("txtFirmName"), "OLD & CO");
    EXPECT_FALSE(isBillScreenOpen());
}

TEST_F(HomeScreen, StateIsAskedForBeforeThePassword)
{
    addCompany(1, "OLD & CO", "", "Sesame");
    open();
    boxes.expect("Please specify valid 'State' !");
    expectPassword("Validate Password", ""); // Alter asks for it
    alt('B');
    EXPECT_EQ(frame(), "famFirmMain");
}

TEST_F(HomeScreen, OldSpellingOfAStatePassesTheGate)
{
    addCompany(1, "KALINGA & CO", "ORISSA");
    open();
    QWidget *home = screen();
    boxes.expect("Please specify 'Template' Type !");
    command("cmdReports", 'R');
    EXPECT_EQ(openScreens("frmReportsGST"), 1); // a report needs no templates
    show(home);
    command("cmdRecps", 'R');
    EXPECT_EQ(frame(), "famTmplSetup");
    EXPECT_EQ(gFirmStateCode, "21");
}

TEST_F(HomeScreen, BillsOpenOnceTemplatesAreChosen)
{
    addCompany(3, "ALPHA");
    open();
    QWidget *home = screen();
    boxes.expect("Please specify 'Template' Type !").icon(QMessageBox::Information);
    press(Qt::Key_Return); // on the list of companies
    EXPECT_EQ(frame(), "famTmplSetup");
    choose("cboCopyTmpl_0", "Single Copy");
    choose("cboCopyTmpl_1", "Single Copy");
    alt('B');
    EXPECT_EQ(frame(), "famFirmMain");
    EXPECT_EQ(focus(), "cmdTemplateSetup");
    EXPECT_FALSE(isBillScreenOpen());
    alt('B');
    EXPECT_TRUE(isBillScreenOpen());
    EXPECT_EQ(gFirmId, 3);
    EXPECT_EQ(gFirmName, "ALPHA");
    EXPECT_EQ(gFirmStateCode, "07");
    for (int time = 0; time < 2; ++time) {
        show(home);
        command("cmdRecps", 'R');
        EXPECT_EQ(openScreens("frmRecpGST"), 1);
        show(home);
        command("cmdReports", 'R');
        EXPECT_EQ(openScreens("frmReportsGST"), 1);
    }
}

TEST_F(HomeScreen, BillsOfEachCompanyStayItsOwn)
{
    addCompany(1, "ALPHA");
    addCompany(2, "BETA", "GOA");
    chooseCommonTemplates();
    addClient(1, "ASHOK TRADERS", "DELHI");
    open();
    QWidget *home = screen();
    alt('B');
    QPointer<QWidget> billsOfAlpha = QApplication::activeWindow();
    ASSERT_TRUE(billsOfAlpha && billsOfAlpha->objectName() == "frmBillGST");
    show(home);
    find<QWidget>("vsFirm")->setFocus();
    press(Qt::Key_Down);
    alt('T');
    EXPECT_EQ(gFirmId, 2);
    show(billsOfAlpha);
    alt('A');
    type("ASHOK");
    press(Qt::Key_Return, Qt::NoModifier, 6);
    type("Audit");
    press(Qt::Key_Tab, Qt::NoModifier, 4);
    type("1000");
    alt('U');
    EXPECT_EQ(data().rows("Select FirmId,AppTaxType From GST_BillM"), QStringList{"1|INTRA"});
    EXPECT_EQ(gFirmId, 2) << "the home screen's choice is back";
    delete home;
}

TEST_F(HomeScreen, OtherClientsAreAddedModifiedAndDeleted)
{
    open();
    alt('O');
    EXPECT_EQ(frame(), "famOthClMain");
    for (const char command : {'M', 'D'}) {
        boxes.expect("Please Select a Client.").icon(QMessageBox::Information);
        alt(command);
        EXPECT_EQ(frame(), "famOthClMain");
    }
    alt('A');
    EXPECT_EQ(frame(), "famOthClEdit");
    EXPECT_EQ(focus(), "txtOthClName");
    boxes.expect("Please Specify 'Name' !");
    alt('S');
    EXPECT_EQ(focus(), "txtOthClName");
    type("ashok traders");
    boxes.expect("Please specify 'State' !");
    alt('S');
    EXPECT_EQ(focus(), "cboOthClState");
    choose("cboOthClState", "DELHI (07)");
    retype("txtOthClGSTIN", "30AAAFS1234K1Z5");
    boxes.expect("Invalid 'GSTIN' ! First 2-Digit shoule be State Code [07] for State [DELHI (07)].");
    alt('S');
    EXPECT_EQ(focus(), "txtOthClGSTIN");
    retype("txtOthClGSTIN", "07AAAFS1234K1Z5");
    alt('S');
    EXPECT_EQ(frame(), "famOthClMain");
    EXPECT_EQ(focus(), "cmdOthClAdd");
    const QString rows = "Select OthClSrNo,OthClCode,Nm,city,StateNm,GSTIN From GST_OthCl Order by OthClSrNo";
    EXPECT_EQ(data().rows(rows), QStringList{"1|BILL~OTHCL-000001|ASHOK TRADERS||DELHI|07AAAFS1234K1Z5"});

    alt('A');
    type("ashok traders"); // two clients can have the same name
    choose("cboOthClState", "GOA (30)");
    alt('S');
    alt('M');
    EXPECT_EQ(choice("cboOthClState"), "GOA (30)");
    EXPECT_EQ(text("txtOthClGSTIN"), "");
    retype("txtOthClCity", "panaji");
    alt('S');
    EXPECT_EQ(focus(), "cmdOthClModify");
    EXPECT_EQ(data().rows(rows).value(1), "2|BILL~OTHCL-000002|ASHOK TRADERS|PANAJI|GOA|");

    const QString question =
        "All the bills and receipts of the selected 'Other Client' will be deleted. Do you really want "
        "to delete the selected 'Other Client' ?";
    addBill(1, 1, QDate(2024, 5, 1), 1, 100);
    addBill(2, 2, QDate(2024, 5, 1), 2, 100);
    boxes.expect(question, QMessageBox::No).icon(QMessageBox::Critical).defaultButton(QMessageBox::No);
    alt('D');
    boxes.expect(question, QMessageBox::Yes);
    alt('D');
    EXPECT_EQ(data().rows(rows).size(), 1);
    EXPECT_EQ(data().rows("Select BillSrNo,BillId From GST_BillM,GST_BillD"), QStringList{"1|1"});
}

TEST_F(HomeScreen, EscapeBacksOutFrameByFrame)
{
    addCompany(1, "ALPHA");
    addClient(1, "ASHOK TRADERS", "DELHI");
    open();
    const QPointer<QWidget> home = screen();
    alt('O');
    alt('M');
    EXPECT_EQ(frame(), "famOthClEdit");
    press(Qt::Key_Escape);
    EXPECT_EQ(frame(), "famOthClMain");
    press(Qt::Key_Escape);
    EXPECT_EQ(frame(), "famFirmMain");
    EXPECT_EQ(focus(), "cmdOthClMas");
    alt('A');
    EXPECT_EQ(frame(), "famFirmEdit");
    retype("txtFirmPAN", "WRONG");
    press(Qt::Key_Escape); // checks nothing
    EXPECT_EQ(frame(), "famFirmMain");
    EXPECT_EQ(focus(), "cmdFirmAlter");
    press(Qt::Key_Escape);
    QTest::qWait(0);
    EXPECT_TRUE(home.isNull()) << "on the bare list the screen closes";
}

TEST_F(HomeScreen, EveryFrameIsWalkedByKeysAlone)
{
    struct Frame
    {
        const char *way; ///< access keys from the list of companies
        const char *name, *backOn;
    };
    addCompany(1, "ALPHA");
    addClient(1, "ASHOK TRADERS", "DELHI");
    data().run("Insert Into Comp_Master (CompSrNo,Code,Nm) Values (1,'A','ALPHA LTD'),(2,'B','BETA LTD')");
    chooseCommonTemplates();
    open();
    for (const Frame &step : std::initializer_list<Frame>{{"", "famFirmMain", "vsFirm"},
                                                          {"C", "famFirmEdit", "cmdFirmCreate"},
                                                          {"O", "famOthClMain", "cmdOthClMas"},
                                                          {"OA", "famOthClEdit", "cmdOthClMas"},
                                                          {"S", "famSeriesMain", "cmdSeriesMas"},
                                                          {"SA", "famSeriesMain", "cmdSeriesMas"},
                                                          {"I", "famsett", "cmdSettings"},
                                                          {"U", "famUpdClGSTIN", "cmdUpdClGSTIN"},
                                                          {"T", "famTmplSetup", "cmdTemplateSetup"}}) {
        for (const char *key = step.way; *key; ++key)
            alt(*key);
        ASSERT_EQ(frame(), step.name);
        QSet<QString> open;
        for (const QWidget *control : find<QWidget>(step.name)->findChildren<QWidget *>()) {
            const auto *option = qobject_cast<const QRadioButton *>(control);
            const bool chosen = !option || option->isChecked(); // arrow keys choose the others
            if (control->isVisible() && control->isEnabled() && (control->focusPolicy() & Qt::TabFocus) && chosen)
                open << control->objectName();
        }
        open.remove({}); // an open cell is its grid's
        QSet<QString> walked{focus()};
        for (int i = 0; i < 60 && walked != open; ++i) {
            press(Qt::Key_Tab);
            walked << focus();
        }
        EXPECT_EQ(walked, open) << step.name << step.way;
        for (int i = 0; i < 2 && frame() != "famFirmMain"; ++i)
            press(Qt::Key_Escape);
        EXPECT_TRUE(frame() == "famFirmMain" && (!*step.way || focus() == step.backOn)) << step.name;
    }
}

TEST_F(HomeScreen, CompanyThatCouldNotBeStoredKeepsItsEntry)
{
    failuresAreExpected();
    open();
    alt('C');
    type("ALPHA");
    choose("cboFirmState", "DELHI (07)");
    ASSERT_TRUE(data().other().Execute("LOCK TABLE GST_FirmMas WRITE"));
    boxes.expect("Invalid ID generated for the new Record. Can't Save !").icon(QMessageBox::Critical);
    alt('S');
    ASSERT_TRUE(data().other().Execute("UNLOCK TABLES"));
    EXPECT_EQ(frame(), "famFirmEdit");
    EXPECT_EQ(text("txtFirmName"), "ALPHA");
    alt('S');
    EXPECT_EQ(companies(), QStringList{"1|ALPHA|DELHI|"});
}

} // namespace
