// The line grid of the bill screen, by keys.

#include "BillScreen.h"
#include "controls/ChoiceBox.h"
#include <QAbstractButton>
#include <QApplication>
#include <QTest>

using namespace ledgora;
using namespace ledgora::test;

namespace {

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
    enterBill("ASHOK", "Audit", "99.5");
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
    enterBill("ASHOK", "Audit", "1000");
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
    enterBill("ASHOK", "Audit", "1000");
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

TEST_F(BillScreen, EscapeInAChangedCellGivesItsFormerTextBackFirst)
{
    enterBill("ASHOK", "Audit", "1000");
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
    enterBill("ASHOK", "Audit", "1000");
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
    enterBill("ASHOK", "Audit", "1000");
    press(Qt::Key_Return);
    clickCell("vsB", firstLine, SacColumn);
    type("9982");
    QApplication::setKeyboardInputInterval(0); // the rest comes long after
    type("31");
    press(Qt::Key_Return);
    EXPECT_EQ(cell(firstLine, SacColumn), "998231");
}

} // namespace
