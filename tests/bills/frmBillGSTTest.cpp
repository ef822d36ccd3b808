// The bill screen under a user's keys: its modes, lists and fields, and what they do to one another.

#include "BillScreen.h"
#include "controls/ChoiceBox.h"
#include <QAbstractButton>
#include <QApplication>
#include <QTest>

using namespace ledgora;
using namespace ledgora::test;

namespace {

TEST_F(BillScreen, EmptyYearAllowsAddAndNothingElse)
{
    open();
    EXPECT_FALSE(isEditing());
    EXPECT_FALSE(find<QWidget>("cmdprev")->isEnabled());
    EXPECT_FALSE(find<QWidget>("cmdnext")->isEnabled());
    EXPECT_EQ(choice("cbofyr"), "2024-25");
    EXPECT_EQ(find<ChoiceBox>("cbosr")->count(), 1);
    EXPECT_EQ(choice("cbosr"), "(None)");
    alt('M'); // Modify and Delete do nothing at all, with no message
    alt('D');
    EXPECT_FALSE(isEditing());
}

TEST_F(BillScreen, CommandsOfEachMode)
{
    addBill(1, 1, QDate(2024, 5, 1), Ashok, 100);
    addBill(2, 2, QDate(2024, 5, 2), Ashok, 100);
    open();
    alt('T');
    alt('V');
    const auto enabled = [this](std::initializer_list<const char *> names) {
        QStringList on;
        for (const char *name : names) {
            if (find<QWidget>(name)->isEnabled())
                on << name;
        }
        return on;
    };
    const auto browsing = {"cbofyr",    "cmdAdd",        "cmdmodify",  "cmddelete",
                           "cmdshlist", "chkClientWise", "cmdPreview", "cmdback"};
    const auto editing = {"famedit", "cmdupdate", "cmdCancel"};
    EXPECT_EQ(enabled(browsing).size(), 8);
    EXPECT_EQ(enabled(editing), QStringList());
    EXPECT_FALSE(isShown("lblKeys"));
    alt('M');
    EXPECT_EQ(enabled(browsing), QStringList());
    EXPECT_EQ(enabled({"cmdnext", "cmdprev"}), QStringList());
    EXPECT_EQ(enabled(editing).size(), 3);
    EXPECT_TRUE(isShown("lblKeys"));
    EXPECT_EQ(find<QWidget>("lblKeys")->property("text").toString(), "Press 'F12' for List of Particulars/Narrations");
    alt('C');
    EXPECT_EQ(enabled(browsing).size(), 8);
    EXPECT_EQ(focus(), "cmdmodify");
}

TEST_F(BillScreen, AddProposesNextNumberOverAllSeriesAndToday)
{
    data().run("Insert Into GST_Series Values (4,'B',2024,'AB','P')");
    addBill(1, 7, QDate(2024, 5, 1), Ashok, 100, 4);
    addBill(2, 3, QDate(2024, 5, 2), Ashok, 100);
    open();
    alt('A');
    EXPECT_EQ(text("txtbillno"), "8");
    EXPECT_EQ(text("txtbilldt"), "15/06/2024");
    EXPECT_EQ(choice("cbosr"), "(None)");
    EXPECT_EQ(focus(), "txtpartynm");
    EXPECT_TRUE(isShown("vsListC"));
    EXPECT_EQ(lines().rows(), firstLine + 10);
}

TEST_F(BillScreen, AddInAnotherYearLeavesTheDateToTheUser)
{
    open();
    click("cbofyr");
    press(Qt::Key_Escape); // the opened list
    find<QWidget>("cbofyr")->setFocus();
    press(Qt::Key_Up);
    EXPECT_EQ(choice("cbofyr"), "2023-24");
    alt('A');
    EXPECT_EQ(text("txtbilldt"), "//");
}

TEST_F(BillScreen, TypeAheadFollowsTypingAndArrowsWrap)
{
    open();
    alt('A');
    const auto row = [this] { return find<Grid>("vsListC")->row(); };
    EXPECT_EQ(row(), -1);
    struct Step
    {
        Qt::Key key;
        int row;
    };
    for (const Step &step : {Step{Qt::Key_Down, 1},
                             {Qt::Key_Down, 2},
                             {Qt::Key_Down, 3},
                             {Qt::Key_Down, 1},
                             {Qt::Key_Up, 3},
                             {Qt::Key_Up, 2}}) {
        press(step.key);
        EXPECT_EQ(row(), step.row);
    }
    type("ch");
    EXPECT_EQ(text("txtpartynm"), "CH");
    EXPECT_EQ(row(), 3);
    type("x");
    EXPECT_EQ(row(), -1) << "no name begins so";
    press(Qt::Key_Up);
    EXPECT_EQ(row(), 3) << "from none to the last";
}

TEST_F(BillScreen, TypeAheadPageKeysGoByWhatIsVisible)
{
    for (int id = 10; id < 90; ++id)
        addClient(id, QStringLiteral("PARTY %1").arg(id), "DELHI");
    open();
    alt('A');
    const auto *parties = find<Grid>("vsListC");
    const int lastVisible = parties->lastVisibleRow();
    ASSERT_EQ(lastVisible, 12);
    press(Qt::Key_Down, Qt::NoModifier, lastVisible - 2);
    press(Qt::Key_PageUp);
    EXPECT_EQ(parties->row(), lastVisible - 4) << "up by the distance to the last visible row";
    press(Qt::Key_PageUp);
    EXPECT_EQ(parties->row(), lastVisible - 8);
    press(Qt::Key_PageUp);
    EXPECT_EQ(parties->row(), 1);
    press(Qt::Key_PageDown);
    EXPECT_EQ(parties->row(), lastVisible);
    press(Qt::Key_PageDown, Qt::NoModifier, 20);
    EXPECT_EQ(parties->row(), parties->cells().rows() - 1);
}

TEST_F(BillScreen, PageDownWithoutASelectionGoesToTheLastVisibleRowToo)
{
    open();
    alt('A');
    ASSERT_EQ(find<Grid>("vsListC")->row(), -1);
    press(Qt::Key_PageDown);
    EXPECT_EQ(find<Grid>("vsListC")->row(), 3);
}

TEST_F(BillScreen, PartyIsTakenOnLeavingTheFieldAndSetsPlaceAndTaxType)
{
    open();
    alt('A');
    type("bh");
    press(Qt::Key_Return);
    EXPECT_EQ(focus(), "cbosr");
    EXPECT_FALSE(isShown("vsListC"));
    EXPECT_EQ(text("txtpartynm"), "BHARAT MILLS");
    EXPECT_EQ(choice("cboPOS"), "MAHARASHTRA (27)");
    EXPECT_EQ(choice("cboTaxType"), "Inter-State (IGST)");

    retype("txtpartynm", "ASHOK");
    press(Qt::Key_Tab);
    EXPECT_EQ(text("txtpartynm"), "ASHOK TRADERS");
    EXPECT_EQ(choice("cboTaxType"), "Intra-State (CGST/SGST)");

    retype("txtpartynm", "NOBODY");
    press(Qt::Key_Tab);
    EXPECT_EQ(text("txtpartynm"), "") << "a name that is not in the list does not stay";
}

TEST_F(BillScreen, ExemptBillStaysExemptWhateverThePlaceOfSupply)
{
    open();
    keyHead("ASHOK");
    find<QWidget>("cboTaxType")->setFocus();
    press(Qt::Key_End);
    EXPECT_EQ(choice("cboTaxType"), "No Tax (Exempted)");
    find<QWidget>("cboPOS")->setFocus();
    press(Qt::Key_Down);
    EXPECT_NE(choice("cboPOS"), "DELHI (07)");
    EXPECT_EQ(choice("cboTaxType"), "No Tax (Exempted)");
    find<QWidget>("cboTaxType")->setFocus();
    press(Qt::Key_Home);
    find<QWidget>("cboPOS")->setFocus();
    press(Qt::Key_Down);
    EXPECT_EQ(choice("cboTaxType"), "Inter-State (IGST)");
}

TEST_F(BillScreen, NumberFieldTakesDigitsOnly)
{
    open();
    alt('A');
    retype("txtbillno", "12");
    boxes.expect("Enter Numeric Value.").icon(QMessageBox::Information);
    type("x");
    boxes.expect("Enter Numeric Value.");
    type("-");
    type("3");
    EXPECT_EQ(text("txtbillno"), "123");
    press(Qt::Key_Backspace);
    EXPECT_EQ(text("txtbillno"), "12");
    type("34567890123");
    EXPECT_EQ(text("txtbillno"), "123456789") << "nine digits at the most";
    press(Qt::Key_Return);
    EXPECT_EQ(focus(), "txtbilldt");
}

struct FieldCase
{
    const char *name;
    const char *field;
    const char *typed;
    const char *message;
};

class RefusedField : public BillScreen, public testing::WithParamInterface<FieldCase>
{
};

TEST_P(RefusedField, KeepsTheFocusAndCancelSkipsTheCheck)
{
    const FieldCase &c = GetParam();
    open();
    alt('A');
    retype(c.field, c.typed);
    boxes.expect(c.message).icon(QMessageBox::Information);
    press(Qt::Key_Tab);
    EXPECT_TRUE(boxes.wait());
    EXPECT_EQ(focus(), c.field);
    boxes.expect(c.message);
    alt('U');
    EXPECT_TRUE(boxes.wait());
    EXPECT_EQ(focus(), c.field);
    EXPECT_TRUE(isEditing());
    alt('C');
    EXPECT_FALSE(isEditing());
    EXPECT_EQ(focus(), "cmdAdd");
}

INSTANTIATE_TEST_SUITE_P(
    Fields, RefusedField,
    testing::Values(FieldCase{"ZeroNumber", "txtbillno", "0", "Please Specify a Valid 'Bill No.' (Numeric Only)"},
                    FieldCase{"LeadingZero", "txtbillno", "0123",
                              "Please Specify a Valid 'Bill No.' (Numeric Only not leading with Zero)"},
                    FieldCase{"DayBeforeTheYear", "txtbilldt", "31032024",
                              "Please Specify a Valid 'Bill Date' between 01/04/2024 and 31/03/2025."},
                    FieldCase{"DayAfterTheYear", "txtbilldt", "01042025",
                              "Please Specify a Valid 'Bill Date' between 01/04/2024 and 31/03/2025."},
                    FieldCase{"HalfADate", "txtbilldt", "1", "Please Specify a Valid 'Bill Date'."}),
    [](const auto &row) { return row.param.name; });

TEST_F(BillScreen, DayPastItsMonthIsTheDayItRunsOverTo)
{
    open();
    alt('A');
    retype("txtbilldt", "31022025");
    press(Qt::Key_Return);
    EXPECT_EQ(text("txtbilldt"), "03/03/2025");
}

TEST_F(BillScreen, FirstYearBeginsInJuly)
{
    open();
    find<QWidget>("cbofyr")->setFocus();
    press(Qt::Key_Home);
    ASSERT_EQ(choice("cbofyr"), "2017-18");
    alt('A');
    retype("txtbilldt", "30062017");
    boxes.expect("Please Specify a Valid 'Bill Date' between 01/07/2017 and 31/03/2018.");
    press(Qt::Key_Tab);
    EXPECT_TRUE(boxes.wait());
    alt('C');
}

TEST_F(BillScreen, EscapeClosesWhatStandsInFrontOneByOne)
{
    addBill(1, 1, QDate(2024, 5, 1), Ashok, 100);
    open();
    const QPointer<QWidget> bills = screen();
    alt('M');
    press(Qt::Key_F12);
    ASSERT_TRUE(isShown("vsListP"));
    press(Qt::Key_Escape);
    EXPECT_FALSE(isShown("vsListP"));
    EXPECT_EQ(focus(), "vsB");

    click("txtNarr");
    press(Qt::Key_F12);
    ASSERT_TRUE(isShown("vsListN"));
    press(Qt::Key_Escape);
    EXPECT_FALSE(isShown("vsListN"));
    EXPECT_EQ(focus(), "txtNarr");

    click("txtpartynm");
    ASSERT_TRUE(isShown("vsListC"));
    press(Qt::Key_Escape);
    EXPECT_FALSE(isShown("vsListC"));
    EXPECT_EQ(text("txtpartynm"), "") << "the party is empty, though one was chosen before";

    boxes.expect("Do you want to Cancel Entry?", QMessageBox::No);
    press(Qt::Key_Escape);
    EXPECT_TRUE(isEditing());
    boxes.expect("Do you want to Cancel Entry?", QMessageBox::Yes);
    press(Qt::Key_Escape);
    EXPECT_FALSE(isEditing());
    EXPECT_EQ(text("txtpartynm"), "ASHOK TRADERS");
    EXPECT_EQ(focus(), "cmdmodify");

    alt('H');
    ASSERT_TRUE(isShown("vsListB"));
    press(Qt::Key_Escape);
    EXPECT_FALSE(isShown("vsListB"));
    press(Qt::Key_Escape);
    QTest::qWait(0);
    EXPECT_TRUE(bills.isNull()) << "the screen closes";
}

TEST_F(BillScreen, EarlierTextsAreTakenByEnter)
{
    addBill(1, 1, QDate(2024, 5, 1), Ashok, 100);
    addBill(2, 2, QDate(2024, 5, 2), Ashok, 100);
    open();
    keyHead("CHE");
    type("work 2");
    press(Qt::Key_F12);
    ASSERT_EQ(find<QListWidget>("vsListP")->currentItem()->text(), "Work 2")
        << "the row that equals the text, whatever its case";
    press(Qt::Key_Return);
    EXPECT_FALSE(isShown("vsListP"));
    EXPECT_EQ(focus(), "vsB");
    EXPECT_EQ(cell(firstLine, ParticularsColumn), "Work 2");
    click("txtNarr");
    press(Qt::Key_F12);
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_EQ(text("txtNarr"), "Narration 2");
    EXPECT_EQ(focus(), "txtNarr");
}

TEST_F(BillScreen, BillsAreBrowsedByDateAndByClient)
{
    addBill(1, 1, QDate(2024, 5, 3), Ashok, 100);
    addBill(2, 2, QDate(2024, 5, 1), Chetak, 200);
    addBill(3, 3, QDate(2024, 5, 2), Bharat, 300);
    addBill(4, 9, QDate(2023, 5, 2), Bharat, 300);
    open();
    EXPECT_EQ(text("txtbillno"), "2");
    EXPECT_FALSE(find<QWidget>("cmdprev")->isEnabled());
    alt('T');
    EXPECT_EQ(text("txtbillno"), "3");
    alt('T');
    EXPECT_EQ(text("txtbillno"), "1");
    EXPECT_FALSE(find<QWidget>("cmdnext")->isEnabled());
    alt('V');
    EXPECT_EQ(text("txtbillno"), "3");
    EXPECT_EQ(text("txtpartynm"), "BHARAT MILLS");
    EXPECT_EQ(cell(2, TotalColumn), "300");
    EXPECT_EQ(lines().rows(), firstLine + 1) << "while browsing only stored lines show";

    find<QWidget>("chkClientWise")->setFocus();
    press(Qt::Key_Space);
    EXPECT_EQ(text("txtbillno"), "3") << "another order, the same bill";
    alt('V');
    EXPECT_EQ(text("txtbillno"), "1");
    EXPECT_FALSE(find<QWidget>("cmdprev")->isEnabled());
}

TEST_F(BillScreen, ListShowsTheBillOnShowAndEnterTakesAnother)
{
    addBill(1, 1, QDate(2024, 5, 1), Ashok, 100);
    addBill(2, 2, QDate(2024, 5, 2), Chetak, 200);
    open();
    alt('H');
    const auto *list = find<Grid>("vsListB");
    EXPECT_EQ(find<QAbstractButton>("cmdshlist")->text(), "&Hide List");
    EXPECT_EQ(list->row(), 1);
    EXPECT_EQ(list->cells().text(2, 10), "200");
    press(Qt::Key_Down);
    EXPECT_EQ(text("txtbillno"), "1");
    press(Qt::Key_Return);
    EXPECT_FALSE(isShown("vsListB"));
    EXPECT_EQ(text("txtbillno"), "2");
    EXPECT_EQ(find<QAbstractButton>("cmdshlist")->text(), "S&how List");
    // Moving in the list without choosing leaves the bill on show.
    alt('H');
    press(Qt::Key_Up);
    press(Qt::Key_Escape);
    EXPECT_EQ(list->row(), 2);
    EXPECT_EQ(text("txtbillno"), "2");
}

TEST_F(BillScreen, SameYearChosenAgainReloadsNothing)
{
    addBill(1, 1, QDate(2024, 5, 1), Ashok, 100);
    open();
    data().run("Delete From GST_BillM");
    auto *years = find<ChoiceBox>("cbofyr");
    years->choose(years->currentIndex());
    EXPECT_EQ(text("txtbillno"), "1");
}

TEST_F(BillScreen, CompanyBearsItsNameOfTheChosenYear)
{
    data().run("Insert Into Comp_Master (CompSrNo,Code,Nm,State) Values (1,'K1','NEW LTD.','DELHI')");
    data().run("Insert Into ChangeName Values (1,'1900-01','1900-04-01','OLD LTD.'),"
               "(1,'2024-25','2024-04-01','NEW LTD.')");
    data().run("Insert Into GST_BillM (BillSrNo,FirmId,FYr,Code_No,BillNo,BillDt,AppTaxType) Values "
               "(1,1,2023,'K1',1,'2023-06-01','NO'),(2,1,2024,'K1',1,'2024-06-01','NO')");
    open();
    EXPECT_EQ(text("txtpartynm"), "NEW LTD.");
    auto *years = find<ChoiceBox>("cbofyr");
    for (const auto &[year, name] : {std::pair("2023-24", "OLD LTD."), {"2024-25", "NEW LTD."}}) {
        years->chooseText(year);
        EXPECT_EQ(text("txtpartynm"), name) << year;
    }
}

TEST_F(BillScreen, EnterWalksTheLineAndAnEmptyAmountEndsTheLines)
{
    open();
    keyHead("ASHOK");
    const auto *grid = find<Grid>("vsB");
    EXPECT_EQ(focus(), "vsB");
    EXPECT_TRUE(grid->isEditing()) << "particulars take keys at once";
    type("Audit");
    press(Qt::Key_Tab, Qt::NoModifier, 4);
    ASSERT_EQ(grid->col(), AmountColumn);
    type("1000");
    for (const int column : {int(DiscountColumn), int(NetColumn), int(EditTaxColumn), int(CgstRateColumn),
                             int(CgstColumn), int(SgstRateColumn), int(SgstColumn), int(TotalColumn)}) {
        press(Qt::Key_Return);
        EXPECT_EQ(grid->col(), column);
        EXPECT_EQ(grid->row(), firstLine);
        const bool typedAtOnce = column == DiscountColumn || column == CgstRateColumn || column == SgstRateColumn;
        EXPECT_EQ(grid->isEditing(), typedAtOnce) << "column " << column;
    }
    press(Qt::Key_Return);
    EXPECT_EQ(grid->row(), firstLine + 1);
    EXPECT_EQ(grid->col(), ParticularsColumn);
    press(Qt::Key_Tab, Qt::NoModifier, 4);
    press(Qt::Key_Return);
    EXPECT_EQ(focus(), "txtNarr");
    EXPECT_EQ(cell(firstLine, CgstColumn), "90");
    EXPECT_EQ(cell(2, TotalColumn), "1180");
}

TEST_F(BillScreen, TypedAmountsAndRatesAreNormalised)
{
    open();
    keyHead("ASHOK");
    keyLine("Audit", "99.5");
    press(Qt::Key_Return);
    EXPECT_EQ(cell(firstLine, AmountColumn), "100");
    clickCell("vsB", firstLine, CgstRateColumn);
    type("12.34567%");
    press(Qt::Key_Return);
    EXPECT_EQ(cell(firstLine, CgstRateColumn), "12.3457");
    EXPECT_EQ(cell(firstLine, CgstColumn), "12");
    boxes.expect("Please Specify Valid Amount. Numeric Only.").icon(QMessageBox::Information);
    clickCell("vsB", firstLine, SgstRateColumn);
    type("abc");
    press(Qt::Key_Return);
    EXPECT_TRUE(boxes.wait());
    EXPECT_EQ(cell(firstLine, SgstRateColumn), "");
    EXPECT_EQ(cell(firstLine, TotalColumn), "112");
    clickCell("vsB", firstLine, DiscountColumn);
    type("-5");
    press(Qt::Key_Return);
    EXPECT_EQ(cell(firstLine, DiscountColumn), "") << "a negative entry is dropped without a word";
}

TEST_F(BillScreen, HandMadeTaxStaysAndTheTotalFollows)
{
    open();
    keyHead("ASHOK");
    keyLine("Audit", "1000");
    press(Qt::Key_Return);
    clickCell("vsB", firstLine, CgstColumn);
    EXPECT_FALSE(find<Grid>("vsB")->isEditing()) << "computed tax takes no keys";
    clickCell("vsB", firstLine, EditTaxColumn);
    ASSERT_EQ(cell(firstLine, EditTaxColumn), "Y");
    clickCell("vsB", firstLine, CgstColumn);
    type("85");
    press(Qt::Key_Return);
    EXPECT_EQ(cell(firstLine, TotalColumn), "1175");
    clickCell("vsB", firstLine, AmountColumn);
    type("2000");
    press(Qt::Key_Return);
    EXPECT_EQ(cell(firstLine, CgstColumn), "85");
    EXPECT_EQ(cell(firstLine, SgstColumn), "90");
    EXPECT_EQ(cell(firstLine, TotalColumn), "2175");
}

TEST_F(BillScreen, SwitchingTheTaxTypeLosesNothing)
{
    open();
    keyHead("ASHOK");
    keyLine("Audit", "1000");
    press(Qt::Key_Return);
    clickCell("vsB", firstLine, CgstRateColumn);
    type("6");
    press(Qt::Key_Return);
    const auto *grid = find<Grid>("vsB");
    struct Type
    {
        Qt::Key key;
        const char *total;
        bool cgst, igst, editTax;
    };
    for (const Type &t : {Type{Qt::Key_Down, "1180", false, true, true},
                          {Qt::Key_Down, "1000", false, false, false},
                          {Qt::Key_Home, "1150", true, false, true}}) {
        find<QWidget>("cboTaxType")->setFocus();
        press(t.key);
        EXPECT_EQ(cell(firstLine, TotalColumn), t.total) << choice("cboTaxType").toStdString();
        EXPECT_EQ(grid->isColumnHidden(CgstRateColumn), !t.cgst);
        EXPECT_EQ(grid->isColumnHidden(IgstRateColumn), !t.igst);
        EXPECT_EQ(grid->isColumnHidden(EditTaxColumn), !t.editTax);
        EXPECT_EQ(cell(firstLine, CgstRateColumn), "6");
    }
}

TEST_F(BillScreen, BlankPeriodTakesNoYear)
{
    open();
    keyHead("ASHOK");
    const auto *grid = find<Grid>("vsB");
    clickCell("vsB", firstLine, YearColumn);
    press(Qt::Key_Return);
    EXPECT_FALSE(grid->isEditing() && grid->col() == YearColumn);
    clickCell("vsB", firstLine, PeriodColumn);
    press(Qt::Key_Return); // opens the list
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_EQ(cell(firstLine, PeriodColumn), "FY");
    clickCell("vsB", firstLine, YearColumn);
    press(Qt::Key_Return);
    press(Qt::Key_Home);
    press(Qt::Key_Return);
    EXPECT_EQ(cell(firstLine, YearColumn), "2024");
    clickCell("vsB", firstLine, PeriodColumn);
    press(Qt::Key_Return);
    press(Qt::Key_Home);
    press(Qt::Key_Return);
    EXPECT_EQ(cell(firstLine, PeriodColumn), "");
    EXPECT_EQ(cell(firstLine, YearColumn), "");
}

TEST_F(BillScreen, PreviewHandsTheEngineWhatStandsOnTheScreen)
{
    data().run("Insert Into GST_Series Values (4,'B',2024,'AB/','P')");
    data().run("Update GST_FirmMas Set Desig='CHARTERED ACCOUNTANTS', GSTIN='07AAAFS1234K1Z5', PAN='AAAFS1234K'");
    addBill(1, 7, QDate(2024, 5, 1), Ashok, 100, 4);
    open();
    alt('M');
    find<QWidget>("cboTaxType")->setFocus();
    press(Qt::Key_Home);
    alt('U');
    ASSERT_FALSE(isEditing());
    boxes.expect("Missing Template File [" + folder() + "/GST_Templates/GST_Intra_Bill.doc]");
    alt('P');
    EXPECT_EQ(NotingReporter::asked(), QStringList());

    QFile file(folder() + "/GST_Templates/GST_Intra_Bill.doc");
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    alt('P');
    const QStringList asked = NotingReporter::asked();
    EXPECT_EQ(asked.mid(0, 25), (QStringList{"newreportnew GST_Intra_Bill.doc",
                                             "#FIRM_NAME#=Sharma & Associates",
                                             "#FIRM_DESIG#=CHARTERED ACCOUNTANTS",
                                             "#FIRM_GSTIN#=07AAAFS1234K1Z5",
                                             "#FIRM_PAN#=AAAFS1234K",
                                             "#PARTY_NAME#=Ashok Traders",
                                             "#PARTY_GSTIN#=",
                                             "#PARTY_PAN#=",
                                             "#PARTY_ADDRESS#=Delhi",
                                             "#PLACE_OF_SUPPLY#=DELHI (07)",
                                             "#BILL_DT#=01/05/2024",
                                             "#BILL_NO#=AB/7",
                                             "#SN_1#=1.",
                                             "#PARTICULARS_1#=Work 1",
                                             "#SAC_1#=",
                                             "#PARTICULARS_SAC_1#=Work 1",
                                             "#YR_1#=",
                                             "#AMT_1#=100",
                                             "#DISC_1#=0",
                                             "#NAMT_1#=100",
                                             "#CRT_1#=9%",
                                             "#CAMT_1#=9",
                                             "#SRT_1#=9%",
                                             "#SAMT_1#=9",
                                             "#TAMT_1#=118"}));
    EXPECT_TRUE(asked.contains("#SN_2#="));
    EXPECT_TRUE(asked.contains("#SN_10#="));
    EXPECT_TRUE(asked.contains("#GTTAMT#=118"));
    EXPECT_TRUE(asked.contains("#TOTWORDS#=Rupees One Hundred Eighteen Only"));
    EXPECT_TRUE(asked.contains("#NOTE#=Narration 7"));
    EXPECT_EQ(asked.last(), "ShowReport");
}

TEST_F(BillScreen, PartyJustTypedIsTakenByTheCommand)
{
    open();
    alt('A');
    type("BHARAT");
    boxes.expect("Please specify atleast one 'Particular'.");
    alt('U');
    EXPECT_EQ(text("txtpartynm"), "BHARAT MILLS");
    EXPECT_EQ(choice("cboTaxType"), "Inter-State (IGST)");
    EXPECT_FALSE(isShown("vsListC"));
}

TEST_F(BillScreen, PartyIsTakenFromTheListByTheMouse)
{
    open();
    alt('A');
    auto *parties = find<Grid>("vsListC");
    const QPoint row = parties->visualRect(parties->model()->index(3, 1)).center();
    QTest::mouseClick(parties->viewport(), Qt::LeftButton, {}, row);
    EXPECT_TRUE(parties->isVisible());
    EXPECT_EQ(focus(), "txtpartynm");
    QTest::mouseDClick(parties->viewport(), Qt::LeftButton, {}, row);
    QCoreApplication::processEvents();
    EXPECT_EQ(focus(), "cbosr");
    EXPECT_EQ(text("txtpartynm"), "CHETAK STORES");
    EXPECT_FALSE(isShown("vsListC"));
}

TEST_F(BillScreen, UpdateByTheMouseLeavesTheFieldFirst)
{
    open();
    keyHead("ASHOK");
    keyLine("Audit", "1000");
    retype("txtbilldt", "31032024");
    boxes.expect("Please Specify a Valid 'Bill Date' between 01/04/2024 and 31/03/2025.");
    click("cmdupdate");
    EXPECT_EQ(focus(), "txtbilldt");
    EXPECT_TRUE(isEditing());
    type("01042024");
    clickCell("vsB", firstLine, AmountColumn);
    type("2000");
    click("cmdupdate");
    EXPECT_FALSE(isEditing());
    EXPECT_EQ(data().rows("Select date(BillDt),ServAmt From GST_BillM,GST_BillD"), QStringList{"2024-04-01|2000"});
}

TEST_F(BillScreen, EscapeInAChangedCellGivesItsFormerTextBackFirst)
{
    open();
    keyHead("ASHOK");
    keyLine("Audit", "1000");
    press(Qt::Key_Return);
    clickCell("vsB", firstLine, ParticularsColumn);
    type("Other");
    press(Qt::Key_Escape);
    EXPECT_EQ(cell(firstLine, ParticularsColumn), "Audit");
    boxes.expect("Do you want to Cancel Entry?", QMessageBox::No);
    press(Qt::Key_Escape);
    EXPECT_TRUE(isEditing());
}

TEST_F(BillScreen, TenthLineIsTheLast)
{
    open();
    keyHead("ASHOK");
    for (int line = 0; line < 10; ++line) {
        clickCell("vsB", firstLine + line, ParticularsColumn);
        keyLine(QStringLiteral("Line %1").arg(line + 1), "100");
    }
    press(Qt::Key_Return, Qt::NoModifier, 9);
    EXPECT_EQ(focus(), "txtNarr");
    EXPECT_EQ(lines().rows(), firstLine + 10);
    EXPECT_EQ(cell(2, TotalColumn), "1180");
}

TEST_F(BillScreen, UpdateTakesTheEntryThatAnOpenListStandsOn)
{
    open();
    keyHead("ASHOK");
    keyLine("Audit", "1000");
    press(Qt::Key_Return);
    clickCell("vsB", firstLine, SacColumn);
    press(Qt::Key_Return); // opens the list
    press(Qt::Key_Home);
    press(Qt::Key_Down, Qt::NoModifier, 5);
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    alt('U');
    EXPECT_FALSE(isEditing());
    EXPECT_EQ(data().rows("Select SAC From GST_BillD"), QStringList{"998231"});
}

TEST_F(BillScreen, PickListIsSearchedFromTheFirstKeyOn)
{
    open();
    keyHead("ASHOK");
    keyLine("Audit", "1000");
    press(Qt::Key_Return);
    clickCell("vsB", firstLine, SacColumn);
    type("998231");
    press(Qt::Key_Return);
    EXPECT_EQ(cell(firstLine, SacColumn), "998231");
}

TEST_F(BillScreen, QuotesAndBackslashesInNamesAndTextsComeBackAsTyped)
{
    data().run("Insert Into GST_OthCl (OthClSrNo,OthClCode,Nm,StateNm) Values (9,'BILL~OTHCL-000009','D''SOUZA \\\\ "
               "SONS','DELHI')");
    open();
    keyHead("D'S");
    EXPECT_EQ(text("txtpartynm"), "D'SOUZA \\ SONS");
    const QString hostile = "'); Drop Table GST_BillD; -- \\\" {\\rtf #SN_1# %1";
    keyLine(hostile, "1000");
    retype("txtNarr", hostile);
    alt('U');
    EXPECT_FALSE(isEditing());
    EXPECT_EQ(data().rows("Select part From GST_BillD"), QStringList{hostile});
    EXPECT_EQ(text("txtNarr"), hostile);
    EXPECT_EQ(cell(firstLine, ParticularsColumn), hostile);
}

TEST_F(BillScreen, ShortDateIsCompletedInTheYear)
{
    open();
    alt('A');
    retype("txtbilldt", "0107");
    press(Qt::Key_Return);
    EXPECT_EQ(text("txtbilldt"), "01/07/2024");
    retype("txtbilldt", "0102");
    press(Qt::Key_Return);
    EXPECT_EQ(text("txtbilldt"), "01/02/2025");
}

} // namespace
