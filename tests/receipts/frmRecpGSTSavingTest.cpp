// Update, Modify and Delete on the receipt screen, other users' work, and what the bill screen makes of receipts.

#include "ReceiptScreen.h"
#include "bills/frmBillGST.h"

using namespace ledgora;
using namespace ledgora::test;

namespace {

TEST_F(ReceiptScreen, RowsOneAndThreeAreStoredAndShownAsOneAndTwo)
{
    open();
    keyHead();
    keyRow("1", "1000", "80", "100");
    click("txtBillSN_2");
    keyRow("2", "", "500");
    keyCash("1000");
    retype("txtNarr", "Client's \"part\" \\ 1");
    CompanyState().apply(); // the home screen moved on to another company
    boxes.expect("Total Amount Received Should be Equal to Total Amount - Total TDS i.e. Rs. 900");
    alt('U');
    EXPECT_EQ(focus(), "txtCash");
    keyCash("900");
    alt('U');
    EXPECT_EQ(status(), "Receipt No. 1 saved, Rs. 1,000.");
    EXPECT_EQ(focus(), "cmdAdd");
    EXPECT_EQ(storedReceipts(),
              QStringList{"1|1|2024|BILL~OTHCL-000001|0|1|2024-06-15|900|0|0|||||Client's \"part\" \\ 1"});
    EXPECT_EQ(storedLines(), (QStringList{"1|1|1|1000|80|100", "1|2|2|0|500|0"}));
    EXPECT_EQ(row(0), "1|1000|80|100|76|76|");
    EXPECT_EQ(row(1), "2||500||||");
    EXPECT_EQ(row(2), "||||||");
    EXPECT_EQ(row(10), "|1000|580|100|76|76|");
    const Cells &list = find<Grid>("vsListR")->cells();
    EXPECT_EQ(list.text(1, 13) + ' ' + list.text(1, 14), "ASHOK TRADERS 1000") << "with TDS, without discount";
    EXPECT_EQ(gst().GetAmt(1, clientCode(Ashok)), 400);
}

TEST_F(ReceiptScreen, ModifyLeavesTheReceiptItselfOutOfWhatWasPaidEarlier)
{
    open();
    for (const char *amount : {"100", "1080"}) {
        keyHead();
        keyRow("1", amount);
        keyCash(amount);
        alt('U');
    }
    EXPECT_EQ(row(0), "1|1080|||82|82|") << "8 and 8 went with the first";
    alt('M');
    EXPECT_EQ(focus(), "txtAMT_0");
    boxes.expect("Total Receipt Amount can not be Greater than Bill Amount.");
    type("1081");
    press(Qt::Key_Return);
    type("1000");
    keyCash("1000");
    alt('U');
    EXPECT_EQ(storedLines(), (QStringList{"1|1|1|100|0|0", "2|1|1|1000|0|0"}));
    EXPECT_EQ(row(0), "1|1000|||76|76|");
    boxes.expect("Do you want to Delete the Selected Receipt No. 2?", QMessageBox::Yes);
    alt('D');
    EXPECT_EQ(storedLines(), QStringList{"1|1|1|100|0|0"});
    EXPECT_EQ(text("txtrecpno"), "1");
}

TEST_F(ReceiptScreen, ChecksThatTheDatabaseMakesLookAtTheSeriesAlone)
{
    data().run("Insert Into GST_Series Values (5,'R',2024,'R/##','P')");
    const auto earlier = [](int id, int series, int number, const char *date) {
        data().run(QString("Insert Into GST_RecpM Values (%1,1,2024,'x',%2,%3,'%4',0,'0',0,'','','','','')")
                       .arg(id)
                       .arg(series)
                       .arg(number)
                       .arg(date));
    };
    earlier(1, 0, 4, "2024-06-20");
    earlier(2, 0, 6, "2024-06-10");
    earlier(3, 5, 5, "2024-06-10");
    open();
    keyHead();
    EXPECT_EQ(text("txtrecpno"), "7") << "over all series";
    keyRow("2", "500");
    keyCash("500");
    retype("txtrecpno", "6");
    boxes.expect("Duplicate Receipt No.");
    alt('U');
    EXPECT_EQ(focus(), "txtrecpno");
    type("5");
    boxes.expect("Invalid Entry. Receipt No. 4 (Which is lesser than 5) Dated 20/06/2024 (Which is greater than "
                 "15/06/2024) already exists. Do you want to Save anyway?",
                 QMessageBox::Yes);
    boxes.expect("Invalid Entry. Receipt No. 6 (Which is greater than 5) Dated 10/06/2024 (Which is lesser than "
                 "15/06/2024) already exists. Do you want to Save anyway?",
                 QMessageBox::No);
    alt('U');
    EXPECT_TRUE(isEditing());
    EXPECT_EQ(storedLines(), QStringList());
}

TEST_F(ReceiptScreen, SaveThatDidNotGoInWholeKeepsTheEntryAndBecomesAModify)
{
    failuresAreExpected();
    open();
    keyHead();
    keyRow("2", "400");
    keyRow("3", "300");
    keyCash("700");
    data().run("Rename Table GST_RecpD To Away");
    boxes
        .expect(
            "The database did not take everything. Not saved: removal of the earlier lines, line 1, line 2.\n\nWhat "
            "was typed is still here; press Update to try again.")
        .icon(QMessageBox::Critical);
    alt('U');
    data().run("Rename Table Away To GST_RecpD");
    EXPECT_TRUE(isEditing());
    EXPECT_EQ(row(1), "3|300|||||");
    alt('U');
    EXPECT_EQ(storedReceipts().size(), 1) << "the same receipt, not a second one";
    EXPECT_EQ(storedLines(), (QStringList{"1|1|2|400|0|0", "1|2|3|300|0|0"}));
    EXPECT_EQ(status(), "Receipt No. 1 saved, Rs. 700.") << "nobody else changed it";
}

TEST_F(ReceiptScreen, WorkOfOtherUsersIsToldAndLosesNothing)
{
    open();
    keyHead();
    keyRow("1", "590");
    keyRow("2", "500");
    keyCash("1090");
    data().run("Delete From GST_BillM Where BillSrNo=2");
    data().run("Delete From GST_BillD Where BillId=2");
    alt('U');
    EXPECT_EQ(storedLines(), (QStringList{"1|1|1|590|0|0", "1|2|2|500|0|0"}));
    EXPECT_EQ(row(1), "|500|||||") << "its bill is gone, the money is not";
    EXPECT_EQ(hidden("txtBillSN_1"), "2");
    data().run("Update GST_RecpD Set TDS=1 Where BillId=1");
    alt('M');
    EXPECT_EQ(status(), "Another user has changed this receipt since it was shown here. Update replaces his entry.");
    data().run("Update GST_RecpM Set Narr='his'");
    press(Qt::Key_Return, Qt::NoModifier, 2);
    type("90");
    keyCash("1000");
    alt('U');
    EXPECT_EQ(status(),
              "Receipt No. 1 saved, Rs. 1,090. Another user had changed it meanwhile; your entry has replaced his.");
    EXPECT_EQ(storedLines(), (QStringList{"1|1|1|590|0|90", "1|2|2|500|0|0"}));
    data().run("Delete From GST_RecpM");
    alt('M');
    boxes.expect("The database did not take everything. Not saved: the receipt.\n\nWhat was typed is still here; press "
                 "Update to try again.");
    alt('U');
    EXPECT_TRUE(isEditing());
}

TEST_F(ReceiptScreen, BillThatWasPaidIsGuardedOnTheBillScreen)
{
    open();
    keyHead();
    keyRow("2", "400", "50", "40");
    keyCash("360");
    alt('U');
    delete screen();
    show(new frmBillGST);
    alt('T');
    EXPECT_EQ(text("txtbillno"), "2");
    boxes.expect("Do you want to Delete the Selected Bill No. 2?", QMessageBox::Yes);
    boxes.expect("This bill can not be deleted as some Receipts have been Issued against this Bill.");
    alt('D');
    alt('M');
    EXPECT_FALSE(find<QWidget>("txtpartynm")->isEnabled() || find<QWidget>("txtbilldt")->isEnabled());
    for (const char *amount : {"449", "450"}) {
        clickCell("vsB", 3, 5);
        type(amount);
        press(Qt::Key_Return);
        if (*amount == '4' && amount[2] == '9')
            boxes.expect("Bill amount is less than Total Amount of Receipt Issued against this Bill.");
        alt('U');
    }
    EXPECT_EQ(data().rows("Select TotalAmt From GST_BillD Where BillId=2"), QStringList{"450"});
}

} // namespace
