// Update and Delete on the bill screen: what reaches the database, what is refused, and what is kept when the
// database refuses.

#include "BillScreen.h"
#include "controls/ChoiceBox.h"
#include <QLabel>

using namespace ledgora;
using namespace ledgora::test;

namespace {

TEST_F(BillScreen, AddedBillIsStoredAndShownAsTheDatabaseHasIt)
{
    enterBill("ASHOK", "Statutory audit", "25000");
    press(Qt::Key_Return);
    type("500");
    clickCell("vsB", firstLine + 2, ParticularsColumn); // a row between stays empty
    keyLine("Client's \"return\" \\ 1", "150");
    press(Qt::Key_Return);
    click("txtNarr");
    type("Due in 15 days; don't delay");
    alt('U');
    EXPECT_FALSE(isEditing());
    EXPECT_EQ(focus(), "cmdAdd");
    EXPECT_EQ(storedBills(), QStringList{"1|2024-06-15|BILL~OTHCL-000001|DELHI|INTRA|Due in 15 days; don't delay"});
    EXPECT_EQ(
        data().rows("Select SrNo,part,SAC,YrType,Yr,ServAmt,DiscAmt,TaxServAmt,FlagEdit,RtCGST,CGST,RtSGST,SGST,RtIGST,"
                    "IGST,TotalAmt From GST_BillD Order by SrNo"),
        (QStringList{"1|Statutory audit|||0|25000|500|24500|N|9|2205|9|2205|0|0|28910",
                     "2|Client's \"return\" \\ 1|||0|150|0|150|N|9|14|9|14|0|0|178"}));
    EXPECT_EQ(list().rows(), 2);
    EXPECT_EQ(list().text(1, 9), "ASHOK TRADERS");
    EXPECT_EQ(list().text(1, 10), "29088");
    EXPECT_EQ(lines().rows(), firstLine + 2);
    EXPECT_EQ(cell(2, TotalColumn), "29088");
    EXPECT_EQ(gst().GetAmt(1, clientCode(Ashok)), 29088);
}

TEST_F(BillScreen, InterStateBillStoresNoTaxOfTheOtherKind)
{
    enterBill("BHARAT", "Returns", "12345");
    alt('U');
    EXPECT_EQ(data().rows("Select RtCGST,CGST,RtSGST,SGST,RtIGST,IGST,TotalAmt From GST_BillD"),
              QStringList{"0|0|0|0|18|2222|14567"});
}

TEST_F(BillScreen, ChangeByAnotherUserIsToldAndTheLastWriterWins)
{
    addBill(1, 1, QDate(2024, 6, 1), Ashok, 100);
    addBill(2, 2, QDate(2024, 6, 2), Ashok, 200);
    open();
    const auto status = [this] { return find<QLabel>("lblStatus")->text(); };
    EXPECT_EQ(status(), "");
    data().run("Update GST_BillM Set Narr='his' Where BillSrNo=1");
    alt('M');
    EXPECT_EQ(status(), "Another user has changed this bill since it was shown here. Update replaces his entry.");
    data().run("Update GST_BillD Set part='his' Where BillId=1");
    alt('U');
    EXPECT_EQ(status(),
              "Bill No. 1 saved, Rs. 100. Another user had changed it meanwhile; your entry has replaced his.");
    EXPECT_EQ(data().rows("Select Count(*) From GST_BillM,GST_BillD Where 'his' in (Narr,part)"), QStringList{"0"});

    data().run("Update GST_BillM Set BillDt='2024-06-03' Where BillSrNo=2");
    alt('T');
    EXPECT_EQ(status(), "Another user has changed this bill since the list was read; choose the year again to see it "
                        "as it is.");
    data().run("Delete From GST_BillM Where BillSrNo=1");
    alt('V');
    EXPECT_EQ(status(), "Another user has deleted this bill.");
}

class UpdateWhileTyping : public BillScreen, public testing::WithParamInterface<int>
{
public:
    void typeInto(int place)
    {
        switch (place) {
        case 0:
            clickCell("vsB", firstLine, ParticularsColumn);
            type("Opinion");
            break;
        case 1:
            clickCell("vsB", firstLine, AmountColumn);
            type("750");
            break;
        case 2:
            retype("txtbilldt", "01052024");
            break;
        default:
            retype("txtNarr", "Typed last");
        }
    }
};

TEST_P(UpdateWhileTyping, SavesWhatWasTyped)
{
    enterBill("ASHOK", "Audit", "1000");
    typeInto(GetParam());
    alt('U');
    ASSERT_FALSE(isEditing());
    const QStringList stored = data().rows("Select part,ServAmt,date(BillDt),Narr From GST_BillM,GST_BillD");
    const QStringList expected{"Opinion|1000|2024-06-15|", "Audit|750|2024-06-15|", "Audit|1000|2024-05-01|",
                               "Audit|1000|2024-06-15|Typed last"};
    EXPECT_EQ(stored, QStringList{expected.at(GetParam())});
}

INSTANTIATE_TEST_SUITE_P(Places, UpdateWhileTyping, testing::Range(0, 4));

TEST_F(BillScreen, UpdateWhileAPickListCellIsEditedSavesTheChoice)
{
    enterBill("ASHOK", "Audit", "1000");
    press(Qt::Key_Return);
    clickCell("vsB", firstLine, SacColumn);
    press(Qt::Key_Return); // opens the list
    press(Qt::Key_Down, Qt::NoModifier, 2);
    press(Qt::Key_Escape); // its pop-up; the choice is not taken
    alt('U');
    ASSERT_FALSE(isEditing());
    EXPECT_EQ(data().rows("Select SAC,ServAmt From GST_BillD"), QStringList{"|1000"});
    alt('M');
    clickCell("vsB", firstLine, SacColumn);
    press(Qt::Key_Return);
    press(Qt::Key_Home);
    press(Qt::Key_Down, Qt::NoModifier, 2);
    press(Qt::Key_Return);
    alt('U');
    EXPECT_EQ(data().rows("Select SAC,ServAmt From GST_BillD"), QStringList{"998222|1000"});
}

TEST_F(BillScreen, HeadIsCheckedInTheOrderOfTheFields)
{
    open();
    alt('A');
    const auto refused = [&](const char *message, const char *field) {
        boxes.expect(message).icon(QMessageBox::Information);
        alt('U');
        EXPECT_TRUE(boxes.wait());
        EXPECT_EQ(focus(), field) << message;
        EXPECT_TRUE(isEditing());
    };
    retype("txtbillno", "");
    retype("txtbilldt", "");
    refused("Please Select a 'Receiver'.", "txtpartynm");
    type("ASHOK");
    press(Qt::Key_Return);
    find<QWidget>("cboPOS")->setFocus();
    press(Qt::Key_Home);
    refused("Please Specify 'Bill No.'", "txtbillno");
    type("5");
    refused("Please Specify a Valid 'Bill Date'.", "txtbilldt");
    retype("txtbilldt", "01062024");
    refused("Please specify 'Place of Supply' !", "cboPOS");
    press(Qt::Key_Down);
    refused("Please specify atleast one 'Particular'.", "vsB");
    EXPECT_EQ(find<Grid>("vsB")->row(), firstLine);
    EXPECT_EQ(find<Grid>("vsB")->col(), ParticularsColumn);
    EXPECT_EQ(storedBills(), QStringList());
    type("Audit");
    refused("Please specify Valid 'Amount' !", "vsB");
    type("1000");
    alt('U');
    EXPECT_EQ(storedBills(), QStringList{"5|2024-06-01|BILL~OTHCL-000001|"
                                         + data().rows("Select PlaceOfServ From GST_BillM").value(0) + "|INTER|"});
}

TEST_F(BillScreen, SecondLineIsRefusedAtItsFault)
{
    struct Cell
    {
        int column;
        const char *typed;
    };
    struct Case
    {
        const char *what;
        std::vector<Cell> typed;
        const char *message;
        int column;
    };
    const Case cases[] = {
        {"amount alone", {{AmountColumn, "10"}}, "Please specify 'Particulars' !", ParticularsColumn},
        {"discount alone", {{DiscountColumn, "10"}}, "Please specify 'Particulars' !", ParticularsColumn},
        {"blanks",
         {{ParticularsColumn, "  "}, {AmountColumn, "10"}},
         "Please specify 'Particulars' !",
         ParticularsColumn},
        {"particulars alone", {{ParticularsColumn, "Fee"}}, "Please specify Valid 'Amount' !", AmountColumn},
        {"discount above",
         {{ParticularsColumn, "Fee"}, {AmountColumn, "10"}, {DiscountColumn, "11"}},
         "'Discount Amount' can not be more than 'Amount'.",
         DiscountColumn},
    };
    open();
    for (const Case &c : cases) {
        SCOPED_TRACE(c.what);
        keyHead("ASHOK");
        keyLine("Audit", "1000");
        press(Qt::Key_Return);
        for (const Cell &typed : c.typed) {
            clickCell("vsB", firstLine + 1, typed.column);
            type(typed.typed);
        }
        boxes.expect(c.message).icon(QMessageBox::Information);
        alt('U');
        EXPECT_EQ(focus(), "vsB");
        EXPECT_EQ(find<Grid>("vsB")->row(), firstLine + 1);
        EXPECT_EQ(find<Grid>("vsB")->col(), c.column);
        alt('C');
        EXPECT_EQ(storedBills(), QStringList());
    }
}

TEST_F(BillScreen, PaidBillKeepsPartyDateAndWhatWasReceived)
{
    addBill(1, 1, QDate(2024, 5, 1), Ashok, 1000);
    addReceipt(1, 1, 800, 200);
    open();
    alt('M');
    EXPECT_FALSE(find<QWidget>("txtpartynm")->isEnabled());
    EXPECT_FALSE(find<QWidget>("txtbilldt")->isEnabled());
    for (const char *open : {"cbosr", "txtbillno", "cboPOS", "cboTaxType", "vsB", "txtNarr"})
        EXPECT_TRUE(find<QWidget>(open)->isEnabled()) << open;
    clickCell("vsB", firstLine, AmountColumn);
    type("999");
    boxes.expect("Bill amount is less than Total Amount of Receipt Issued against this Bill.");
    alt('U');
    EXPECT_TRUE(isEditing());
    clickCell("vsB", firstLine, AmountColumn);
    press(Qt::Key_A, Qt::ControlModifier);
    type("1000");
    retype("txtNarr", "Changed");
    alt('U');
    EXPECT_FALSE(isEditing());
    EXPECT_EQ(focus(), "cmdmodify");
    EXPECT_EQ(storedBills(), QStringList{"1|2024-05-01|BILL~OTHCL-000001|DELHI|NO|Changed"});
    alt('A');
    EXPECT_TRUE(find<QWidget>("txtpartynm")->isEnabled());
    EXPECT_TRUE(find<QWidget>("txtbilldt")->isEnabled());
}

TEST_F(BillScreen, DeleteAsksAndSparesPaidBills)
{
    addBill(1, 1, QDate(2024, 5, 1), Ashok, 1000);
    addBill(2, 2, QDate(2024, 5, 2), Ashok, 1000);
    addBill(3, 3, QDate(2024, 5, 3), Ashok, 1000);
    addReceipt(1, 1, 10);
    open();
    boxes.expect("Do you want to Delete the Selected Bill No. 1?", QMessageBox::Yes)
        .icon(QMessageBox::Question)
        .defaultButton(QMessageBox::No);
    boxes.expect("This bill can not be deleted as some Receipts have been Issued against this Bill.");
    alt('D');
    alt('T');
    boxes.expect("Do you want to Delete the Selected Bill No. 2?", QMessageBox::No);
    alt('D');
    EXPECT_EQ(storedLines().size(), 3);
    alt('T');
    boxes.expect("Do you want to Delete the Selected Bill No. 3?", QMessageBox::Yes);
    alt('D');
    EXPECT_EQ(storedLines(), (QStringList{"1|1|Work 1|1000|1000", "2|1|Work 2|1000|1000"}));
    EXPECT_EQ(storedBills().size(), 2);
    EXPECT_EQ(text("txtbillno"), "2") << "the new last one";
    boxes.expect("Do you want to Delete the Selected Bill No. 2?", QMessageBox::Yes);
    alt('D');
    EXPECT_EQ(text("txtbillno"), "1");
    data().run("Delete From GST_RecpD");
    boxes.expect("Do you want to Delete the Selected Bill No. 1?", QMessageBox::Yes);
    alt('D');
    EXPECT_EQ(text("txtbillno"), "");
    EXPECT_EQ(text("txtpartynm"), "");
    EXPECT_EQ(lines().rows(), firstLine);
    EXPECT_FALSE(find<QWidget>("cmdprev")->isEnabled());
}

TEST_F(BillScreen, NumberIsTakenOnceASeries)
{
    data().run("Insert Into GST_Series Values (4,'B',2024,'AB/','P')");
    addBill(1, 1, QDate(2024, 6, 15), Ashok, 1000);
    enterBill("ASHOK", "Audit", "1000");
    retype("txtbillno", "1");
    boxes.expect("Duplicate Bill No.").icon(QMessageBox::Information);
    alt('U');
    EXPECT_EQ(focus(), "txtbillno");
    EXPECT_EQ(storedBills().size(), 1);
    find<QWidget>("cbosr")->setFocus();
    press(Qt::Key_Down);
    alt('U');
    EXPECT_FALSE(isEditing());
    EXPECT_EQ(data().rows("Select BillNo,BillSerId From GST_BillM Order by BillSrNo"), (QStringList{"1|0", "1|4"}));
    alt('M');
    alt('U');
    EXPECT_FALSE(isEditing()) << "a bill does not collide with itself";
}

TEST_F(BillScreen, NumbersOutOfTheOrderOfDatesAreAskedFor)
{
    addBill(1, 4, QDate(2024, 6, 10), Ashok, 100);
    addBill(2, 6, QDate(2024, 6, 1), Ashok, 100);
    enterBill("ASHOK", "Audit", "1000");
    retype("txtbillno", "5");
    retype("txtbilldt", "05062024");
    const QString lower =
        "Invalid Entry. Bill No. 4 (Which is lesser than 5) Dated 10/06/2024 (Which is greater than 05/06/2024) "
        "already exists. Do you want to Save anyway?";
    const QString higher = "Invalid Entry. Bill No. 6 (Which is greater than 5) Dated 01/06/2024 (Which is lesser than "
                           "05/06/2024) already exists. Do you want to Save anyway?";
    boxes.expect(lower, QMessageBox::No).icon(QMessageBox::Question);
    alt('U');
    EXPECT_TRUE(isEditing());
    boxes.expect(lower, QMessageBox::Yes);
    boxes.expect(higher, QMessageBox::No);
    alt('U');
    EXPECT_TRUE(isEditing());
    EXPECT_EQ(storedBills().size(), 2);
    boxes.expect(lower, QMessageBox::Yes);
    boxes.expect(higher, QMessageBox::Yes);
    alt('U');
    EXPECT_FALSE(isEditing());
    EXPECT_EQ(storedBills().size(), 3);
}

TEST_F(BillScreen, TableHeldByAnotherUserRefusesTheSaveAndKeepsTheEntry)
{
    failuresAreExpected();
    enterBill("ASHOK", "Audit", "1000");
    retype("txtNarr", "Kept");
    ASSERT_TRUE(data().other().Execute("LOCK TABLE GST_BillM WRITE"));
    boxes.expect("Invalid ID generated for the new Record. Can't Save !").icon(QMessageBox::Critical);
    alt('U');
    ASSERT_TRUE(data().other().Execute("UNLOCK TABLES"));
    EXPECT_TRUE(isEditing());
    EXPECT_EQ(text("txtpartynm"), "ASHOK TRADERS");
    EXPECT_EQ(text("txtNarr"), "Kept");
    EXPECT_EQ(cell(firstLine, ParticularsColumn), "Audit");
    EXPECT_EQ(cell(firstLine, AmountColumn), "1000");
    EXPECT_EQ(storedBills(), QStringList());
    EXPECT_EQ(storedLines(), QStringList());
    EXPECT_TRUE(errorLog().contains("frmBillGST\tCMDUPDATE_CLICK")) << errorLog().toStdString();
    alt('U');
    EXPECT_FALSE(isEditing());
    EXPECT_EQ(storedLines(), QStringList{"1|1|Audit|1000|1180"});
}

TEST_F(BillScreen, BillWhoseLinesFailedIsCompletedByTheNextUpdate)
{
    failuresAreExpected();
    enterBill("ASHOK", "Audit", "1000");
    retype("txtNarr", "Kept");
    data().run("Rename Table GST_BillD To GST_BillD_Away");
    boxes
        .expect("The database did not take everything. Not saved: removal of the earlier lines, line 1.\n\nWhat "
                "was typed is "
                "still here; press Update to try again.")
        .icon(QMessageBox::Critical);
    alt('U');
    data().run("Rename Table GST_BillD_Away To GST_BillD");
    EXPECT_TRUE(isEditing());
    EXPECT_EQ(text("txtNarr"), "Kept");
    EXPECT_EQ(cell(firstLine, AmountColumn), "1000");
    EXPECT_EQ(storedBills().size(), 1);
    alt('U');
    EXPECT_FALSE(isEditing());
    EXPECT_EQ(storedBills().size(), 1) << "the same bill, not a second one";
    EXPECT_EQ(storedLines(), QStringList{"1|1|Audit|1000|1180"});
    EXPECT_EQ(text("txtbillno"), "1");
}

TEST_F(BillScreen, BillDeletedByAnotherUserIsNotSavedAsChanged)
{
    addBill(1, 1, QDate(2024, 5, 1), Ashok, 100);
    open();
    alt('M');
    retype("txtNarr", "Changed");
    data().run("Delete From GST_BillM");
    data().run("Delete From GST_BillD");
    failuresAreExpected();
    boxes.expect("The database did not take everything. Not saved: the bill.\n\nWhat was typed is still here; "
                 "press Update to "
                 "try again.");
    alt('U');
    EXPECT_TRUE(isEditing());
    EXPECT_EQ(text("txtNarr"), "Changed");
    EXPECT_EQ(storedLines(), QStringList()) << "no lines without a header";
}

} // namespace
