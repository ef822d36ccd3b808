// The selection screen of the reports under a clerk's keys.

#include "reports/frmReportsGST.h"
#include "ReportOffice.h"
#include "controls/ChoiceBox.h"
#include "controls/LineField.h"
#include "host/WorkingState.h"
#include "store/Dates.h"
#include "store/Schema.h"
#include "tests/support/Screens.h"
#include <QCheckBox>
#include <QHeaderView>
#include <QLabel>
#include <QRadioButton>
#include <QTest>

namespace ledgora::test {
namespace {

class ReportsScreen : public ScreenTest
{
protected:
    void SetUp() override
    {
        ScreenTest::SetUp();
        addCompany(1, "SHARMA & ASSOCIATES");
        addClient(1, "ASHOK TRADERS", "DELHI");
        addClient(2, "BHARAT MILLS", "GOA");
        addClient(3, "BHIM", "GOA");
        addBill(1, 1, QDate(2024, 5, 1), 1, 1180);
        addBill(2, 2, QDate(2024, 5, 2), 2, 500);
        data().run("Insert Into GST_RecpM (RecpSrNo,FirmId,FYr,Code_No,RecpSerId,RecpNo,RecpDt) Values (1,1,2024,'"
                   + clientCode(1) + "',0,1,'2024-05-20')");
        addReceipt(1, 1, 180);
        chooseCompany();
    }
    void open() { show(new frmReportsGST); }
    /// To the button of the report by the keys of a clerk: the first one has them when the screen opens.
    void choose(int report)
    {
        find<QRadioButton>("OptReports_0")->setFocus();
        find<QRadioButton>("OptReports_0")->setChecked(true);
        press(Qt::Key_Down, Qt::NoModifier, report);
    }
    void openParties(int report = 0)
    {
        open();
        choose(report);
        alt('P');
    }
    QString period() const { return text("txtdt_0") + " - " + text("txtdt_1"); }
    /// Ticked parties, by name.
    QStringList ticked() const
    {
        const Cells &parties = find<Grid>("vsfc")->cells();
        QStringList names;
        for (const int row : tickedRows(parties))
            names << parties.text(row, ListedName);
        return names;
    }
    QString current() const { return find<Grid>("vsfc")->cells().text(find<Grid>("vsfc")->row(), ListedName); }
    static QStringList shown() { return linesOf(NotingReporter::rows()); }
};

TEST_F(ReportsScreen, OpensOnTheYearThatTodayLiesIn)
{
    const std::tuple<QDate, int, QString, QString> cases[] = {
        {{2024, 6, 15}, 2024, "2024-25", "01/04/2024 - 31/03/2025"},
        {{2024, 3, 31}, 2024, "2023-24", "01/04/2023 - 31/03/2024"},
        {{2017, 9, 1}, 2017, "2017-18", "01/07/2017 - 31/03/2018"},
        {{2018, 3, 1}, 2018, "2017-18", "01/07/2017 - 31/03/2018"},
    };
    for (const auto &[day, lastYear, year, dates] : cases) {
        setToday(day);
        gRegYr = qint16(lastYear);
        open();
        EXPECT_EQ(choice("cbofyr"), year);
        EXPECT_EQ(period(), dates);
        EXPECT_EQ(text("txtdt_2"), day.toString("dd/MM/yyyy"));
        EXPECT_FALSE(find<QWidget>("txtdt_3")->isEnabled());
        delete screen();
    }
    setToday(QDate(2024, 6, 15));
}

TEST_F(ReportsScreen, ShowsWhatTheReportAsksFor)
{
    const QStringList panels[] = {{"famPrd"}, {"famPrd"}, {"famPrd"},           {"famOutAmt"},
                                  {"famPrd"}, {"famPrd"}, {"famPrd", "famSAC"}, {"famPrd"}};
    open();
    EXPECT_EQ(focus(), "OptReports_0");
    EXPECT_FALSE(find<QWidget>("vsfg")->isEnabled());
    for (int report = 0; report < 8; ++report) {
        choose(report);
        QStringList seen;
        for (const char *name : {"famPrd", "famOutAmt", "famSAC"}) {
            if (isShown(name))
                seen << name;
        }
        EXPECT_EQ(seen, panels[report]) << report;
        EXPECT_TRUE(isShown("famPrnOpts"));
        alt('P');
        EXPECT_EQ(focus(), "vsfc");
        EXPECT_EQ(isShown("chkBillNo"), report == 7);
        press(Qt::Key_Escape);
        EXPECT_EQ(focus(), "cmdProceedM");
    }
    EXPECT_EQ(find<ChoiceBox>("cboSAC")->itemText(8), "998240 - Insolvency and receivership services");
    EXPECT_EQ(find<ChoiceBox>("cboOutAmt_1")->itemText(6), "!= (Not Equal To)");
    press(Qt::Key_Escape);
    EXPECT_EQ(screen(), nullptr);
}

TEST_F(ReportsScreen, ChecksPeriodsAndDatesInOrder)
{
    struct Case
    {
        const char *name;
        int report, year; ///< entry of the list of years
        std::vector<std::pair<const char *, QString>> typed;
        QString message;
        const char *field;
    };
    const QString vaid = "Please Specify a Vaid Date.";
    const QString inYear = "Please Specify a Valid Date between 01/04/2017 and 31/03/2018.";
    const Case cases[] = {
        {"no end", 0, 8, {{"txtdt_1", ""}}, vaid, "txtdt_1"},
        {"no begin comes first", 0, 8, {{"txtdt_0", ""}, {"txtdt_1", ""}}, vaid, "txtdt_0"},
        {"the first year's July", 0, 1, {{"txtdt_1", "01042018"}}, inYear, "txtdt_1"},
        {"begin outside the year", 0, 1, {{"txtdt_0", "31032017"}}, inYear, "txtdt_0"},
        {"before the first July passes", 1, 1, {{"txtdt_0", "01042017"}}, "", "vsfc"},
        {"back to front",
         2,
         8,
         {{"txtdt_0", "02052024"}, {"txtdt_1", "01052024"}},
         "Starting Date cannot be Greater than Ending Date.",
         "txtdt_0"},
        {"any days without a year", 2, 0, {{"txtdt_0", "02051999"}, {"txtdt_1", "01052030"}}, "", "vsfc"},
        {"no day", 3, 8, {{"txtdt_2", ""}}, vaid, "txtdt_2"},
        {"no limit day", 3, 8, {{"txtdt_2", "01062024"}, {"txtdt_3", ""}}, vaid, "txtdt_3"},
        {"limit behind the day",
         3,
         8,
         {{"txtdt_2", "01062024"}, {"txtdt_3", "02062024"}},
         "Please Specify a Valid Date on or before 'As on Date: 01/06/2024'.",
         "txtdt_3"},
        {"limit on the day", 3, 8, {{"txtdt_2", "01062024"}, {"txtdt_3", "01062024"}}, "", "vsfc"},
    };
    for (const Case &c : cases) {
        open();
        choose(c.report);
        find<ChoiceBox>("cbofyr")->choose(c.year);
        for (const auto &[field, digits] : c.typed) {
            if (QString(field) == "txtdt_3")
                find<QCheckBox>("chkDt3")->click();
            click(field);
            press(Qt::Key_A, Qt::ControlModifier);
            press(Qt::Key_Delete);
            type(digits);
        }
        if (!c.message.isEmpty())
            boxes.expect(c.message).icon(QMessageBox::Information);
        alt('P');
        EXPECT_EQ(focus(), c.field) << c.name;
        delete screen();
    }
    open();
    click("txtdt_0");
    press(Qt::Key_Home);
    type("31022024");
    boxes.expect("Please Specify a Valid Date.");
    press(Qt::Key_Return);
    EXPECT_EQ(focus(), "txtdt_0");
}

TEST_F(ReportsScreen, TicksByKeysAndMouse)
{
    openParties();
    EXPECT_EQ(current(), "ASHOK TRADERS");
    press(Qt::Key_Space);
    press(Qt::Key_Down);
    press(Qt::Key_Space);
    EXPECT_EQ(ticked(), (QStringList{"ASHOK TRADERS", "BHARAT MILLS"}));
    EXPECT_EQ(find<QLabel>("lblTicked")->text(),
              "2 of 3 clients ticked. Space ticks, Ctrl+A ticks all, letters find a client.");
    press(Qt::Key_Space);
    EXPECT_EQ(ticked(), QStringList{"ASHOK TRADERS"});
    press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(ticked().size(), 3);
    press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(ticked(), QStringList());
    type("bhi");
    EXPECT_EQ(focus(), "txtFind");
    EXPECT_EQ(current(), "BHIM");
    press(Qt::Key_Return);
    press(Qt::Key_Space);
    EXPECT_EQ(ticked(), QStringList{"BHIM"});
    clickCell("vsfc", 2, ListedTick);
    EXPECT_EQ(ticked(), (QStringList{"BHARAT MILLS", "BHIM"}));
    QHeaderView *heading = find<Grid>("vsfc")->horizontalHeader();
    const auto clickHeading = [heading](int column) {
        QTest::mouseClick(heading->viewport(), Qt::LeftButton, {},
                          {heading->sectionViewportPosition(column) + heading->sectionSize(column) / 2, 5});
    };
    clickHeading(ListedName);
    EXPECT_EQ(ticked().size(), 2);
    clickHeading(ListedTick); // as the first row is not
    EXPECT_EQ(ticked().size(), 3);
    clickHeading(ListedTick);
    EXPECT_EQ(ticked(), QStringList());
    press(Qt::Key_Return);
    boxes.expect("No Client Selection !").icon(QMessageBox::Information);
    press(Qt::Key_Return);
    EXPECT_EQ(focus(), "vsfc");
    EXPECT_EQ(NotingReporter::asked(), QStringList());
}

TEST_F(ReportsScreen, ShowsTheReportAndKeepsAllChoices)
{
    openParties();
    press(Qt::Key_Space);
    alt('P');
    EXPECT_EQ(NotingReporter::asked(),
              (QStringList{"SetCol130 True", "WinModeReport True", "NewReport", "ShowReport"}));
    EXPECT_EQ(shown().at(8), "01/05/2024|1|Ashok Traders|DELHI|1,180|-|1,180|-|-|-|-|-|1,180");
    EXPECT_EQ(shown().size(), 10); // the unticked ones are not in it
    alt('B');
    EXPECT_EQ(focus(), "cmdProceedM");
    choose(3);
    find<QCheckBox>("chkPAN")->click();
    find<ChoiceBox>("cboOutAmt_1")->choose(1);
    retype("txtOutAmt_1", "999 rupees");
    data().run("Update GST_OthCl Set PAN='AAAPA1234B' Where OthClSrNo=1");
    alt('P');
    EXPECT_EQ(ticked(), QStringList{"ASHOK TRADERS"});
    NotingReporter::asked().clear();
    alt('P');
    EXPECT_EQ(NotingReporter::asked(), (QStringList{"WinModeReport True", "NewReport", "ShowReport"}));
    EXPECT_EQ(shown().mid(2), (QStringList{"Outstanding Details As on Date 15/06/2024", "table 6",
                                           "Party Name|Amount|CGST|SGST|IGST|Total", "Ashok Traders|1,000|-|-|-|1,000",
                                           "^ETotal|1,000||||1,000^F"})); // details come from the list as it was loaded
    press(Qt::Key_Escape);
    choose(7);
    alt('P');
    EXPECT_TRUE(isShown("chkBillNo"));
    press(Qt::Key_Return);
    EXPECT_EQ(focus(), "chkBillNo");
    press(Qt::Key_Space);
    alt('P');
    EXPECT_TRUE(shown().contains("01-May-24|B|1|1,180||1,180|||||")) << shown().join('\n').toStdString();
    EXPECT_EQ(shown().filter(" (1)|").size(), 1);
    EXPECT_EQ(shown().at(1), "Client Accounts for the Period From 01/04/2024 to 31/03/2025");
}

TEST_F(ReportsScreen, ShowsWhatCouldNotBeReadWholeAsIncomplete)
{
    failuresAreExpected();
    const QString said = "This report is incomplete. The database failed: ";
    data().run("Rename Table GST_RecpD To Away");
    openParties(3);
    press(Qt::Key_A, Qt::ControlModifier);
    alt('P');
    EXPECT_TRUE(NotingReporter::asked().contains("ShowReport"));
    EXPECT_TRUE(NotingReporter::rows().notice().startsWith(said));
    data().run("Rename Table Away To GST_RecpD");
    alt('P');
    EXPECT_EQ(NotingReporter::rows().notice(), "");
    data().run("Rename Table GST_ClRegNo To Away"); // of the client list
    openParties(3);
    EXPECT_TRUE(find<QLabel>("lblTicked")->text().startsWith("Clients may be missing here"));
    data().run("Rename Table Away To GST_ClRegNo");
    press(Qt::Key_A, Qt::ControlModifier);
    alt('P');
    EXPECT_TRUE(NotingReporter::rows().notice().startsWith(said));
}

TEST_F(ReportsScreen, ShowsTheClientsOfAGroupAlone)
{
    ASSERT_TRUE(createSchema(data().db(), "G"));
    data().run("Insert Into Main_Info1 (Code_No,Nm) Values ('M1','MOHAN & CO')");
    data().run("Insert Into Grp_M Values ('7','FAMILY'),('8','NOBODY')");
    data().run("Insert Into Grp_Trans Values ('7','BILL~OTHCL-000002'),('7','M1')");
    gHostCode = "G";
    openParties();
    press(Qt::Key_Space);
    press(Qt::Key_Escape);
    const auto pick = [this](const char *group) {
        find<Grid>("vsfg")->change([group](Cells &cells) { cells.setText(1, 0, group); });
        alt('P');
    };
    boxes.expect("No Client in Group 'NOBODY' !").icon(QMessageBox::Information);
    pick("8");
    EXPECT_EQ(focus(), "vsfg");
    pick("7");
    EXPECT_EQ(current(), "BHARAT MILLS");
    press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(ticked(), (QStringList{"BHARAT MILLS", "MOHAN & CO"}));
    type("ASH"); // not of the group
    EXPECT_EQ(current(), "BHARAT MILLS");
    alt('P');
    EXPECT_EQ(shown().at(2), "Bill Details for the Period From 01/04/2024 to 31/03/2025 (Group : FAMILY)");
    EXPECT_EQ(shown().size(), 10);
    press(Qt::Key_Escape);
    pick("$#$OTH$#$");
    EXPECT_EQ(ticked(), (QStringList{"ASHOK TRADERS", "BHARAT MILLS"}));
    data().run("Drop Table Owner1,Main_Info1,Grp_M,Grp_Trans,off_info,new_Tab");
}

} // namespace
} // namespace ledgora::test
