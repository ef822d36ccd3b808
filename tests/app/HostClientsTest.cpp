// The program as hosts "G" and "T": its client editor, groups, folders and host objects.

#include "app/ClientDetails.h"
#include "app/ClientEditor.h"
#include "app/GroupEditor.h"
#include "app/MainWindow.h"
#include "app/Office.h"
#include "bills/DocumentList.h"
#include "host/WorkingState.h"
#include "masters/PartyDirectory.h"
#include "store/Schema.h"
#include "store/Settings.h"
#include "support/Screens.h"
#include <QFileInfo>
#include <QTest>

namespace ledgora::test {
namespace {

/// The editor's own tables of host "G" beside those of the suite's database.
class HostClients : public ScreenTest
{
protected:
    static void SetUpTestSuite()
    {
        ScreenTest::SetUpTestSuite();
        for (const char *host : {"G", "T"}) {
            if (!createSchema(data().db(), host))
                throw std::runtime_error("no tables of the host");
        }
    }
    void SetUp() override
    {
        ScreenTest::SetUp();
        gHostCode = QStringLiteral("G");
    }
    void enter(std::initializer_list<const char *> texts)
    {
        for (const char *text : texts) {
            type(text);
            press(Qt::Key_Return);
        }
    }
    static QString directory(const char *host, const char *addrOpt)
    {
        SAVESETTININI("Settings", "AddrOpt", addrOpt);
        Cells parties = emptyPartyDirectory();
        LOADCLLIST(data().db(), host, parties);
        QStringList lines;
        for (int row = 1; row < parties.rows(); ++row)
            lines << parties.text(row, PartyCode) + '|' + parties.text(row, PartyName) + '|'
                         + parties.text(row, PartyState) + '|' + parties.text(row, PartyAddress);
        return lines.join('\n');
    }
};

TEST_F(HostClients, IndividualIsAddedWithOfficeLettersAndGroup)
{
    data().run("Insert Into Grp_M Values ('F','FAMILY')");
    show(new app::ClientEditor);
    alt('A');
    press(Qt::Key_Return);
    enter({"K1", "ram", "", "d'souza", "", "5", "ROSE", "", "FORT", "PUNE", "411001"});
    type("MAH");
    press(Qt::Key_Return);
    enter({"", "", "", "r@d.in"});
    type("F");
    press(Qt::Key_Return);
    enter({"SOUZA & CO", "9", "", "MALL", "", "PANAJI", "403001"});
    type("GOA");
    press(Qt::Key_Return);
    EXPECT_EQ(choice("cboLettersYear"), "2025-26");
    press(Qt::Key_Return);
    type("O");
    alt('S');
    EXPECT_TRUE(isShown("famClientMain"));
    EXPECT_EQ(data().rows("Select * From new_Tab"), QStringList{"K1|2025-26|1"});
    EXPECT_EQ(data().rows("Select * From Grp_Trans"), QStringList{"F|K1"});
    const QString home = "K1|RAM D'SOUZA|MAHARASHTRA|5, ROSE, FORT, PUNE, MAHARASHTRA-411001";
    const QString office = "K1|RAM D'SOUZA|GOA|SOUZA & CO, 9, MALL, PANAJI, GOA-403001";
    EXPECT_EQ(directory("G", "0"), home);
    EXPECT_EQ(directory("G", "4"), office);

    alt('M');
    EXPECT_EQ(focus(), "txtClientFirst");
    EXPECT_EQ(text("txtOfficeCity"), "PANAJI");
    EXPECT_EQ(choice("cboLettersTo"), "Office");
    click("cboLettersTo");
    press(Qt::Key_Up);
    press(Qt::Key_Return);
    EXPECT_EQ(choice("cboLettersTo"), "Residence");
    alt('S');
    EXPECT_EQ(data().rows("Select * From new_Tab"), QStringList{"K1|2025-26|0"});
    EXPECT_EQ(directory("G", "4"), home);
    EXPECT_EQ(data().rows("Select * From Grp_Trans"), QStringList{"F|K1"});
}

TEST_F(HostClients, CodeIsGivenOnceAndDetailsGoWithTheClient)
{
    data().run("Insert Into Owner1 (Code,F_nm,State) Values ('K1','RAM','GOA')");
    data().run("Insert Into Main_Info1 (Code_No,Nm) Values ('K2','FIRM')");
    for (const char *kept : {"K1", "K2"}) {
        data().run(QStringLiteral("Insert Into off_info (code_no,Nm) Values ('%1','X')").arg(kept));
        data().run(QStringLiteral("Insert Into new_Tab Values ('%1','2024-25',1)").arg(kept));
        data().run(QStringLiteral("Insert Into Grp_Trans Values ('F','%1')").arg(kept));
    }
    const MasterRow twin{{"Code", "K2"}, {"F_nm", "TWIN"}, {"State", "GOA"}};
    EXPECT_FALSE(app::insertClient(data().db(), app::ClientKind::Individual, twin).inserted)
        << "another user gave the code to a firm meanwhile";
    data().run("Insert Into GST_BillM (BillSrNo,Code_No) Values (1,'K2')");
    show(new app::ClientEditor);
    boxes.expect("[FIRM] has 1 bill and 0 receipts. A client with bills or receipts can not be deleted.");
    alt('D');
    press(Qt::Key_Tab);
    retype("txtClientSearch", "K1");
    boxes.expect("Do you really want to delete the client [RAM] ?", QMessageBox::Yes);
    alt('D');
    EXPECT_EQ(data().rows("Select Code From Owner1 Union All Select code_no From off_info Union All "
                          "Select code_no From new_Tab Union All Select C_code From Grp_Trans"),
              (QStringList{"K2", "K2", "K2"}));
}

TEST_F(HostClients, DetailsThatFailedAreWrittenByTheNextSave)
{
    failuresAreExpected();
    show(new app::ClientEditor);
    alt('A');
    press(Qt::Key_Return);
    enter({"K1", "ram"});
    click("cboClientState");
    type("GOA");
    press(Qt::Key_Return);
    retype("txtOfficeName", "FIRM");
    ASSERT_TRUE(data().other().Execute("LOCK TABLES off_info Read"));
    boxes.expect("The client is saved, but the database did not take its office or group. Press Save to try again.");
    alt('S');
    ASSERT_TRUE(data().other().Execute("UNLOCK TABLES"));
    alt('S');
    EXPECT_TRUE(isShown("famClientMain"));
    EXPECT_EQ(data().rows("Select Code,F_nm From Owner1"), QStringList{"K1|RAM"});
    EXPECT_EQ(data().rows("Select code_no,Nm From off_info"), QStringList{"K1|FIRM"});
}

TEST_F(HostClients, OfHostTHaveOneKind)
{
    gHostCode = QStringLiteral("T");
    show(new app::ClientEditor);
    alt('A');
    EXPECT_EQ(focus(), "txtClientCode");
    enter({"T1", "zeta ltd.", "AABCC1234D", "4", "", "", "", "SURAT", "395001"});
    type("GUJ");
    alt('S');
    EXPECT_TRUE(isShown("famClientMain"));
    EXPECT_EQ(directory("T", "0"), "T1|ZETA LTD.|GUJARAT|4, SURAT, GUJARAT-395001");
    EXPECT_EQ(data().rows("Select PANNo From Main_Info"), QStringList{"AABCC1234D"});
}

TEST_F(HostClients, GroupsAreAddedRenamedAndDeletedWhileEmpty)
{
    data().run("Insert Into Owner1 (Code,F_nm,l_nm) Values ('K1','RAM','DAS')");
    data().run("Insert Into Grp_M Values ('A','O''HARA')");
    data().run("Insert Into Grp_Trans Values ('A','K1')");
    show(new app::GroupEditor);
    EXPECT_EQ(find<Grid>("vsMembers")->cells().text(1, app::MemberName), "RAM DAS");
    boxes.expect("[O'HARA] has clients. A group with clients can not be deleted.");
    alt('D');
    boxes.expect("Code No. [A] has already been allotted.");
    alt('A');
    retype("txtGroupCode", "b\\");
    retype("txtGroupName", "");
    boxes.expect("Please specify 'Name' !");
    alt('A');
    EXPECT_EQ(focus(), "txtGroupName");
    type("beta");
    alt('A');
    EXPECT_EQ(data().rows("Select * From Grp_M"), (QStringList{"A|O'HARA", "B\\|BETA"}));
    retype("txtGroupName", "gamma");
    alt('R');
    EXPECT_EQ(data().rows("Select Nm From Grp_M Where Code_No='B\\\\'"), QStringList{"GAMMA"});
    boxes.expect("Do you really want to delete the group [GAMMA] ?", QMessageBox::Yes);
    alt('D');
    EXPECT_EQ(data().rows("Select Code_No From Grp_M"), QStringList{"A"});
}

TEST(ProgramAsHost, OpensWithTheFoldersAndYearOfEach)
{
    const QTemporaryDir folder;
    const struct
    {
        const char *host, *templates, *log, *table;
        bool hasGroups;
    } cases[] = {{"G", "GST_Templates", "VeltrixLog.log", "Owner1", true},
                 {"T", "MiscSoftData/GST_Templates", "NestrelLogger.log", "Main_Info", false},
                 {"C", "GST_Templates", "BrindleLogger.log", "Comp_Master", false}};
    for (const auto &c : cases) {
        const QString own = folder.filePath(c.host);
        app::Office office(own, c.host);
        ASSERT_TRUE(office.open()) << office.error().toStdString();
        app::MainWindow window(office);
        ASSERT_TRUE(window.isBillingOpen()) << c.host;
        EXPECT_EQ(gHostCode, c.host);
        EXPECT_EQ(gRegYr, 2024) << "all hosts count the same financial year in the end";
        EXPECT_EQ(gTmplPath, own + '/' + c.templates);
        EXPECT_TRUE(QFileInfo::exists(own + '/' + c.templates + "/GST_Intra_Bill.doc"));
        EXPECT_EQ(QFileInfo(gLogPath).fileName(), c.log);
        EXPECT_EQ(int(QFile::permissions(gLogPath) & (QFile::ReadGroup | QFile::ReadOther)), 0);
        EXPECT_FALSE(office.connection().Open(QStringLiteral("Select * from ") + c.table).failed());
        EXPECT_EQ(window.findChild<QAction *>("actGroups") != nullptr, c.hasGroups);
        EXPECT_EQ(gMdi, &window);
    }
}

} // namespace
} // namespace ledgora::test
