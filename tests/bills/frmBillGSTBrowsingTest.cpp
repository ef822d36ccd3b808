// Browsing the bills of a year: modes, proposals of Add, list, order.

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

} // namespace
