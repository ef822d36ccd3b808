// The bill screen under a user's keys: its modes, lists and fields, and what they do to one another.

#include "BillScreen.h"
#include "controls/ChoiceBox.h"
#include <QAbstractButton>
#include <QApplication>
#include <QTest>

using namespace ledgora;
using namespace ledgora::test;

namespace {

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

TEST_F(BillScreen, UpdateByTheMouseLeavesTheFieldFirst)
{
    enterBill("ASHOK", "Audit", "1000");
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
