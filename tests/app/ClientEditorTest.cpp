// The client editor under a user's keys.

#include "app/ClientEditor.h"

#include "app/MainWindow.h"
#include "app/Office.h"
#include "controls/ChoiceBox.h"
#include "support/Screens.h"
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QTest>

namespace ledgora::test {
namespace {

class ClientEditorTest : public ScreenTest
{
protected:
    void open() { show(new app::ClientEditor); }

    static void addHostCompany(int id, const QString &code, const QString &name)
    {
        data().run(QStringLiteral("Insert Into Comp_Master Values (%1,'%2','%3','AABCC1234D','14','RED HOUSE','MALL',"
                                  "'FORT','MUMBAI','MAHARASHTRA','400001','','','','')")
                       .arg(id)
                       .arg(code, name));
    }
    static void addPartnership(const QString &code, const QString &name)
    {
        data().run(QStringLiteral("Insert Into LLP_Master Values ('%1','%2','','7/2','CAMP','PUNE','MAHARASHTRA',"
                                  "'411004','','','','')")
                       .arg(code, name));
    }
    QString chosen() const
    {
        const auto *list = find<Grid>("vsClients");
        return list->cells().text(list->row(), app::ClientCode);
    }
    void enter(std::initializer_list<const char *> texts)
    {
        for (const char *text : texts) {
            type(text);
            press(Qt::Key_Return);
        }
    }
    bool isListShown() const { return isShown("famClientMain"); }
};

TEST_F(ClientEditorTest, FirstStartSaysWhatToDo)
{
    open();
    EXPECT_EQ(find<QLabel>("lblClientsHint")->text(), "There is no client yet. Press Alt+A to add the first one.");
    for (const char letter : {'M', 'D'}) {
        boxes.expect("Please Select a Client.");
        alt(letter);
    }
    EXPECT_EQ(focus(), "txtClientSearch");
}

TEST_F(ClientEditorTest, CompanyIsAddedWithKeysOnly)
{
    open();
    alt('A');
    EXPECT_EQ(focus(), "cboClientKind");
    EXPECT_FALSE(isShown("txtClientChangedFrom"));
    press(Qt::Key_Return);
    enter({"acme", "acme ltd.", "AABCC1234D", "14", "RED HOUSE", "MALL", "FORT", "MUMBAI", "400001"});
    type("MAH");
    press(Qt::Key_Return);
    enter({"22334455", "", "9820012345", "office@acme.example"});
    EXPECT_EQ(focus(), "cmdClientSave");
    press(Qt::Key_Return);
    EXPECT_TRUE(isListShown());
    EXPECT_EQ(chosen(), "ACME");
    EXPECT_EQ(data().rows("Select * From Comp_Master"),
              QStringList{"1|ACME|ACME LTD.|AABCC1234D|14|RED HOUSE|MALL|FORT|MUMBAI|MAHARASHTRA|400001|22334455||"
                          "9820012345|office@acme.example"});
    EXPECT_TRUE(data().rows("Select * From ChangeName Union Select 1,1,1,1 From ChangeAddr").isEmpty());
}

TEST_F(ClientEditorTest, PartnershipHasTwoAddressLines)
{
    open();
    alt('A');
    type("L");
    EXPECT_FALSE(isShown("txtClientStreet"));
    press(Qt::Key_Return);
    enter({"river", "river llp", "", "7/2", "CAMP", "PUNE", "411004"});
    type("MAH");
    alt('S');
    EXPECT_TRUE(isListShown());
    EXPECT_EQ(data().rows("Select * From LLP_Master"),
              QStringList{"RIVER|RIVER LLP||7/2|CAMP|PUNE|MAHARASHTRA|411004||||"});
    EXPECT_TRUE(data().rows("Select * From Comp_Master").isEmpty());
}

TEST_F(ClientEditorTest, ListIsSearchedByNameThenCode)
{
    addHostCompany(1, "Z9", "ACME LTD.");
    addHostCompany(2, "B2", "BETA LTD.");
    addPartnership("RIVER", "GAMMA LLP");
    open();
    EXPECT_EQ(focus(), "txtClientSearch");
    const struct
    {
        const char *typed, *code;
    } cases[] = {{"be", "B2"}, {"g", "RIVER"}, {"z9", "Z9"}, {"RI", "RIVER"}, {"RIX", "RIVER"}};
    for (const auto &c : cases) {
        retype("txtClientSearch", c.typed);
        EXPECT_EQ(chosen(), c.code) << c.typed;
    }
    press(Qt::Key_Up);
    EXPECT_EQ(chosen(), "B2");
    press(Qt::Key_Return);
    EXPECT_EQ(text("txtClientName"), "BETA LTD.");
    EXPECT_EQ(focus(), "txtClientName");
    EXPECT_FALSE(find<QWidget>("txtClientCode")->isEnabled());
    press(Qt::Key_Escape);
    EXPECT_TRUE(isListShown());
}

TEST_F(ClientEditorTest, FaultsKeepTheEntryAndPointAtTheField)
{
    addHostCompany(1, "ACME", "ACME LTD.");
    open();
    alt('A');
    const auto refused = [&](const char *message, const char *field) {
        boxes.expect(message);
        alt('S');
        EXPECT_EQ(focus(), field) << message;
    };
    refused("Please Specify Code No.", "txtClientCode");
    retype("txtClientCode", "acme");
    refused("Code No. [ACME] has already been allotted.", "txtClientCode");
    retype("txtClientCode", "A_B");
    refused("Only Numbers '0 to 9' , Characters 'A to Z' , '-' are allowed in Code No.", "txtClientCode");
    retype("txtClientCode", "AB");
    refused("Please specify 'Name' !", "txtClientName");
    retype("txtClientName", "AB LTD.");
    refused("Please specify 'State' !", "cboClientState");
    type("GOA");
    retype("txtClientEmail", "ab.example");
    refused("Insert a valid E-mail address.", "txtClientEmail");
    retype("txtClientEmail", "");
    retype("txtClientPAN", "ABCXE1234F");
    boxes.expect("Fourth Character of PAN Should be [P,H,C,J,F,A,T,B,L,G].");
    refused("PAN No is not Valid.", "txtClientPAN");
    EXPECT_EQ(data().rows("Select count(*) From Comp_Master"), QStringList{"1"});
    retype("txtClientPAN", "");
    alt('S');
    EXPECT_TRUE(isListShown());
    EXPECT_EQ(data().rows("Select count(*) From Comp_Master"), QStringList{"2"});
}

TEST_F(ClientEditorTest, NewNameFromADayKeepsTheFormerForEarlierYears)
{
    addHostCompany(1, "ACME", "ACME LTD.");
    open();
    press(Qt::Key_Return);
    retype("txtClientName", "ACME INDIA LTD.");
    retype("txtClientChangedFrom", "16062024");
    boxes.expect("The day of the change can not lie in the future.");
    alt('S');
    EXPECT_EQ(focus(), "txtClientChangedFrom");
    retype("txtClientChangedFrom", "01042023");
    alt('S');
    EXPECT_TRUE(isListShown());
    EXPECT_EQ(data().rows("Select Nm From Comp_Master"), QStringList{"ACME INDIA LTD."});
    EXPECT_EQ(data().rows("Select session,NewName From ChangeName Order By ChDate"),
              (QStringList{"1900-01|ACME LTD.", "2023-24|ACME INDIA LTD."}));
    press(Qt::Key_Return);
    EXPECT_TRUE(find<QLabel>("lblClientEditHint")->text().contains("The latest change holds from 01/04/2023."));
}

TEST_F(ClientEditorTest, OldSpellingOfAStateIsChosenAnew)
{
    addHostCompany(1, "ACME", "ACME LTD.");
    data().run("Update Comp_Master Set State='ORISSA'");
    open();
    press(Qt::Key_Return);
    EXPECT_EQ(choice("cboClientState"), "");
    boxes.expect("Please specify 'State' !");
    alt('S');
}

TEST_F(ClientEditorTest, ClientWithDocumentsStays)
{
    addPartnership("RIVER", "RIVER LLP");
    data().run("Insert Into GST_BillM (BillSrNo,Code_No) Values (1,'LLP!~!RIVER'),(2,'LLP!~!RIVER')");
    data().run("Insert Into GST_RecpM (RecpSrNo,Code_No) Values (1,'LLP!~!RIVER')");
    open();
    boxes.expect("[RIVER LLP] has 2 bills and 1 receipt. A client with bills or receipts can not be deleted.");
    alt('D');
    EXPECT_EQ(chosen(), "RIVER");
}

TEST_F(ClientEditorTest, DeletingIsAskedForWithNoAsDefault)
{
    addHostCompany(1, "ACME", "ACME LTD.");
    open();
    const char *question = "Do you really want to delete the client [ACME LTD.] ?";
    boxes.expect(question, QMessageBox::No).icon(QMessageBox::Critical).defaultButton(QMessageBox::No);
    alt('D');
    EXPECT_EQ(chosen(), "ACME");
    boxes.expect(question, QMessageBox::Yes);
    alt('D');
    EXPECT_EQ(chosen(), "");
    EXPECT_TRUE(data().rows("Select * From Comp_Master").isEmpty());
}

TEST_F(ClientEditorTest, ClientDeletedByAnotherUserLosesNothingTyped)
{
    addHostCompany(1, "ACME", "ACME LTD.");
    open();
    press(Qt::Key_Return);
    retype("txtClientName", "ACME INDIA LTD.");
    data().run("Delete From Comp_Master");
    boxes.expect("The database did not take the entry. What was typed is still here; press Save to try again.")
        .icon(QMessageBox::Critical);
    alt('S');
    EXPECT_EQ(text("txtClientName"), "ACME INDIA LTD.");
    EXPECT_TRUE(data().rows("Select * From ChangeName").isEmpty());
    press(Qt::Key_Escape);
    boxes.expect("This client could not be read; another user may have deleted it.");
    alt('M');
    EXPECT_EQ(chosen(), "");
}

TEST_F(ClientEditorTest, SaveThatMeetsALockCanBePressedAgain)
{
    failuresAreExpected();
    open();
    alt('A');
    press(Qt::Key_Return);
    enter({"ACME", "ACME LTD."});
    click("cboClientState");
    type("GOA");
    press(Qt::Key_Return);
    ASSERT_TRUE(data().other().Execute("LOCK TABLES Comp_Master Read"));
    boxes.expect("Invalid ID generated for the new Record. Can't Save !").icon(QMessageBox::Critical);
    alt('S');
    EXPECT_EQ(text("txtClientName"), "ACME LTD.");
    ASSERT_TRUE(data().other().Execute("UNLOCK TABLES"));
    alt('S');
    EXPECT_TRUE(isListShown());
    EXPECT_EQ(data().rows("Select CompSrNo,Code,State From Comp_Master"), QStringList{"1|ACME|GOA"});
}

/// The client itself is in; its history is owed and written with the next press.
TEST_F(ClientEditorTest, HistoryThatFailedIsWrittenByTheNextSave)
{
    failuresAreExpected();
    addHostCompany(1, "ACME", "ACME LTD.");
    open();
    press(Qt::Key_Return);
    retype("txtClientName", "ACME INDIA LTD.");
    retype("txtClientChangedFrom", "01042023");
    ASSERT_TRUE(data().other().Execute("LOCK TABLES ChangeName Read"));
    boxes.expect("The client is saved, but the database did not take the change into its history of names and "
                 "addresses. Press Save to try again.");
    alt('S');
    ASSERT_TRUE(data().other().Execute("UNLOCK TABLES"));
    alt('S');
    EXPECT_TRUE(isListShown());
    EXPECT_EQ(data().rows("Select NewName From ChangeName Order By ChDate"),
              (QStringList{"ACME LTD.", "ACME INDIA LTD."}));
}

TEST(ClientMenu, ShowsOneEditorHoweverOften)
{
    const QTemporaryDir folder;
    app::Office office(folder.path());
    ASSERT_TRUE(office.open()) << office.error().toStdString();
    app::MainWindow window(office);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    const auto *screens = window.findChild<QMdiArea *>("screens");
    for (int i = 0; i < 2; ++i) {
        QTest::keyClick(&window, Qt::Key_L, Qt::ControlModifier);
        ASSERT_EQ(screens->subWindowList().size(), 1);
        EXPECT_TRUE(qobject_cast<app::ClientEditor *>(screens->activeSubWindow()->widget()));
    }
}

} // namespace
} // namespace ledgora::test
