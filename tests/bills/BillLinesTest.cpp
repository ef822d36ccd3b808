#include "bills/BillLines.h"

#include "tests/support/Print.h"
#include <gtest/gtest.h>
#include <random>

namespace ledgora {
namespace {

constexpr int firstLine = billFixedRows;
constexpr auto noChoice = std::nullopt;

/// The grid as Add opens it, with these cells typed into its first line.
Cells linesWith(const std::vector<std::pair<int, QString>> &typed = {})
{
    Cells lines = emptyBillLines();
    ADDDEFROWSB(lines);
    for (const auto &[column, text] : typed)
        lines.setText(firstLine, column, text);
    return lines;
}

/// Net, CGST, SGST, IGST and total of a row, joined with blanks; "-" for an empty cell.
QString amountsOf(const Cells &lines, int row)
{
    QStringList amounts;
    for (const int column : {NetColumn, CgstColumn, SgstColumn, IgstColumn, TotalColumn})
        amounts << (lines.text(row, column).isEmpty() ? QString("-") : lines.text(row, column));
    return amounts.join(' ');
}

struct TaxCase
{
    const char *name;
    std::vector<std::pair<int, QString>> typed;
    std::optional<TaxType> type;
    const char *amounts; ///< net, CGST, SGST, IGST, total
};

class LineTax : public testing::TestWithParam<TaxCase>
{
};

TEST_P(LineTax, IsInWholeRupees)
{
    Cells lines = linesWith(GetParam().typed);
    GETTOTSBILL(lines, GetParam().type);
    EXPECT_EQ(amountsOf(lines, firstLine), GetParam().amounts);
}

INSTANTIATE_TEST_SUITE_P(
    Lines, LineTax,
    testing::Values(
        TaxCase{"RatesOfNineEach", {{AmountColumn, "1000"}}, TaxType::Intra, "1000 90 90 180 1180"},
        TaxCase{"EachTaxIsRoundedAlone", {{AmountColumn, "150"}}, TaxType::Intra, "150 14 14 27 178"},
        TaxCase{"DiscountIsTakenOffFirst",
                {{AmountColumn, "1000"}, {DiscountColumn, "100"}},
                TaxType::Intra,
                "900 81 81 162 1062"},
        TaxCase{
            "DiscountAboveTheAmount", {{AmountColumn, "1000"}, {DiscountColumn, "1200"}}, TaxType::Intra, "0 0 0 0 0"},
        TaxCase{"DiscountAlone", {{DiscountColumn, "5"}}, TaxType::Intra, "0 0 0 0 0"},
        TaxCase{"InterStateHasIgstAlone", {{AmountColumn, "1000"}}, TaxType::Inter, "1000 90 90 180 1180"},
        TaxCase{"ExemptHasTheNet", {{AmountColumn, "1000"}}, TaxType::None, "1000 90 90 180 1000"},
        TaxCase{"NoChoiceHasTheNet", {{AmountColumn, "1000"}}, noChoice, "1000 90 90 180 1000"},
        TaxCase{"HalfThatTheDoubleMisses",
                {{AmountColumn, "100"}, {CgstRateColumn, "14.5"}, {SgstRateColumn, "14.5"}},
                TaxType::Intra,
                "100 15 15 18 130"},
        TaxCase{"JustBelowTheHalf",
                {{AmountColumn, "100"}, {CgstRateColumn, "14.4999"}, {SgstRateColumn, "0.0001"}},
                TaxType::Intra,
                "100 14 0 18 114"},
        TaxCase{
            "EmptiedRateIsNoTax", {{AmountColumn, "1000"}, {CgstRateColumn, ""}}, TaxType::Intra, "1000 0 90 180 1090"},
        TaxCase{"HandMadeTaxStays",
                {{AmountColumn, "1000"}, {EditTaxColumn, "Y"}, {CgstColumn, "88"}, {SgstColumn, "89"}},
                TaxType::Intra,
                "1000 88 89 - 1177"},
        TaxCase{"HandMadeIgst",
                {{AmountColumn, "1000"}, {EditTaxColumn, "Y"}, {CgstColumn, "88"}, {IgstColumn, "7"}},
                TaxType::Inter,
                "1000 88 - 7 1007"},
        TaxCase{"NoAmountShowsNothing", {{ParticularsColumn, "Audit"}}, TaxType::Intra, "- - - - -"},
        TaxCase{"LargestAmount",
                {{AmountColumn, "999999999999"}},
                TaxType::Intra,
                "999999999999 90000000000 90000000000 180000000000 1179999999999"}),
    [](const auto &tax) { return std::string(tax.param.name); });

// An amount of rupees times a rate in ten-thousandths of a percent is a whole number of millionths of a rupee.
TEST(LineTaxExactly, AgreesWithWholeNumbersForAnyAmountAndRate)
{
    std::mt19937 random(11);
    std::uniform_int_distribution<qint64> rupees(0, 99999999);
    std::uniform_int_distribution<qint64> tenThousandths(0, 400000);
    for (int i = 0; i < 20000; ++i) {
        // Every other amount makes an exact half with its rate more likely.
        const qint64 amount = i % 2 ? rupees(random) : rupees(random) / 50 * 50;
        const qint64 rate = i % 2 ? tenThousandths(random) : tenThousandths(random) / 5000 * 5000;
        const qint64 millionths = amount * rate;
        const qint64 exact = millionths / 1000000 + (millionths % 1000000 >= 500000 ? 1 : 0);
        ASSERT_EQ(lineTax(double(amount), double(rate) / 10000), double(exact)) << amount << " at " << rate;
    }
}

TEST(BillTotals, AddUpEveryLine)
{
    Cells lines = linesWith({{AmountColumn, "1000"}, {DiscountColumn, "100"}});
    lines.setText(firstLine + 4, AmountColumn, "150");
    GETTOTSBILL(lines, TaxType::Intra);
    EXPECT_EQ(lines.text(billTotalRow, ParticularsColumn), "Total");
    EXPECT_EQ(lines.text(billTotalRow, AmountColumn), "1150");
    EXPECT_EQ(lines.text(billTotalRow, DiscountColumn), "100");
    EXPECT_EQ(amountsOf(lines, billTotalRow), "1050 95 95 189 1240");
    GETTOTSBILL(lines, TaxType::Inter);
    EXPECT_EQ(amountsOf(lines, billTotalRow), "1050 95 95 189 1239") << "nothing is added twice";
    lines.setText(firstLine, AmountColumn, {});
    lines.setText(firstLine, DiscountColumn, {});
    lines.setText(firstLine + 4, AmountColumn, {});
    GETTOTSBILL(lines, TaxType::Intra);
    EXPECT_EQ(amountsOf(lines, billTotalRow), "0 0 0 0 0") << "the total row shows its zeros";
    EXPECT_EQ(amountsOf(lines, firstLine), "- - - - -");
}

TEST(BillTaxType, SwitchingLosesNothing)
{
    Cells lines = linesWith({{AmountColumn, "1000"},
                             {EditTaxColumn, "Y"},
                             {CgstRateColumn, "6"},
                             {CgstColumn, "61"},
                             {SgstRateColumn, ""},
                             {SgstColumn, "62"},
                             {IgstColumn, "121"}});
    const auto switchTo = [&lines](std::optional<TaxType> type) {
        SETDEFRATES(lines, type);
        GETTOTSBILL(lines, type);
        return lines.text(firstLine, TotalColumn);
    };
    EXPECT_EQ(switchTo(TaxType::Inter), "1121");
    EXPECT_EQ(lines.text(firstLine, SgstRateColumn), "") << "a default comes back only in the columns of the type";
    EXPECT_EQ(switchTo(TaxType::None), "1000");
    EXPECT_EQ(switchTo(TaxType::Intra), "1123");
    EXPECT_EQ(lines.text(firstLine, CgstRateColumn), "6") << "a rate that the user set stays";
    EXPECT_EQ(lines.text(firstLine, SgstRateColumn), "9");
    EXPECT_EQ(lines.text(firstLine, IgstColumn), "121");
    lines.setText(firstLine, IgstRateColumn, {});
    switchTo(noChoice);
    EXPECT_EQ(lines.text(firstLine, IgstRateColumn), "");
    switchTo(TaxType::Inter);
    EXPECT_EQ(lines.text(firstLine, IgstRateColumn), "18");
}

TEST(BillLines, AreFilledUpToTen)
{
    Cells lines = emptyBillLines();
    EXPECT_EQ(lines.rows(), 3);
    lines.addRow({"1", "Stored"});
    for (int again = 0; again < 2; ++again) {
        ADDDEFROWSB(lines);
        ASSERT_EQ(lines.rows(), 13);
    }
    EXPECT_EQ(lines.text(3, ParticularsColumn), "Stored");
    EXPECT_EQ(lines.text(3, CgstRateColumn), "") << "a stored line keeps its own rates";
    const QStringList fresh{"10", "", "", "", "", "", "", "", "N", "9", "", "9", "", "18", "", ""};
    for (int column = 0; column < BillColumnCount; ++column)
        EXPECT_EQ(lines.text(12, column), fresh.at(column)) << column;
}

TEST(BillColumns, AreShownByTaxType)
{
    const struct
    {
        std::optional<TaxType> type;
        std::vector<int> hidden;
    } cases[] = {{TaxType::Intra, {13, 14}},
                 {TaxType::Inter, {9, 10, 11, 12}},
                 {TaxType::None, {8, 9, 10, 11, 12, 13, 14, 15}},
                 {noChoice, {8, 9, 10, 11, 12, 13, 14, 15}}};
    for (const auto &c : cases) {
        std::vector<int> hidden;
        for (int column = 0; column < BillColumnCount; ++column) {
            if (isBillColumnHidden(column, c.type))
                hidden.push_back(column);
        }
        EXPECT_EQ(hidden, c.hidden);
    }
}

constexpr auto notNumeric = "Please Specify Valid Amount. Numeric Only.";

TEST(BillCell, IsNormalisedWhenItIsLeft)
{
    const struct
    {
        int column;
        const char *typed, *left;
        const char *message = nullptr;
    } cases[] = {
        {CgstRateColumn, "18%", "18"},
        {CgstRateColumn, "%2.50%", "2.5"},
        {SgstRateColumn, "12.34567", "12.3457"},
        {IgstRateColumn, "0.12345", "0.1235"},
        {IgstRateColumn, "18.0000", "18"},
        {IgstRateColumn, "0.00004", ""},
        {IgstRateColumn, "0", ""},
        {IgstRateColumn, "-5", ""},
        {CgstRateColumn, "abc", "", notNumeric},
        {CgstRateColumn, "%", ""},
        {AmountColumn, "99.5", "100"},
        {AmountColumn, "99.4", "99"},
        {AmountColumn, " 12 ", "12"},
        {AmountColumn, "007", "7"},
        {AmountColumn, "0.4", ""},
        {AmountColumn, "-100", ""},
        {AmountColumn, "", ""},
        {AmountColumn, "1,000", "", notNumeric},
        {AmountColumn, "1e3", "", notNumeric},
        {AmountColumn, "12 50", "", notNumeric},
        {AmountColumn, "\u0967\u0968", "", notNumeric},
        {DiscountColumn, "10%", "10"},
        {DiscountColumn, "'; Drop Table", "", notNumeric},
        {CgstColumn, "13.5", "14"},
        {IgstColumn, "x", "", notNumeric},
        {ParticularsColumn, "50% of abc", "50% of abc"},
        {SacColumn, "998221", "998221"},
        {EditTaxColumn, "Y", "Y"},
    };
    for (const auto &c : cases) {
        Cells lines = linesWith({{c.column, c.typed}});
        EXPECT_EQ(normaliseBillCell(lines, firstLine, c.column).value_or(""), QString(c.message)) << c.typed;
        EXPECT_EQ(lines.text(firstLine, c.column), c.left) << c.typed;
    }
}

TEST(BillCell, BlankPeriodHasNoYear)
{
    for (const auto &[period, year] : {std::pair("FY", "2024"), {"AY", "2024"}, {"", ""}, {"fy", ""}}) {
        Cells lines = linesWith({{PeriodColumn, period}, {YearColumn, "2024"}});
        EXPECT_EQ(normaliseBillCell(lines, firstLine, PeriodColumn), std::nullopt);
        EXPECT_EQ(lines.text(firstLine, YearColumn), year) << period;
    }
}

TEST(BillCell, ChangesTheTotalsInTheColumnsOfMoney)
{
    std::vector<int> changing;
    for (int column = 0; column < BillColumnCount; ++column) {
        if (changesBillTotals(column))
            changing.push_back(column);
    }
    EXPECT_EQ(changing, (std::vector{5, 6, 8, 9, 10, 11, 12, 13, 14}));
}

TEST(BillCell, CanBeEditedAsItsRowAllows)
{
    const struct
    {
        const char *rule;
        QString period, editTax;
        std::vector<int> editable, onEntry;
    } cases[] = {
        {"plain", "", "N", {1, 2, 3, 5, 6, 8, 9, 11, 13}, {1, 5, 6, 9, 11, 13}},
        {"with a period", "AY", "N", {1, 2, 3, 4, 5, 6, 8, 9, 11, 13}, {1, 5, 6, 9, 11, 13}},
        {"tax by hand", "", "Y", {1, 2, 3, 5, 6, 8, 9, 10, 11, 12, 13, 14}, {1, 5, 6, 9, 10, 11, 12, 13, 14}},
    };
    for (const auto &c : cases) {
        const Cells lines = linesWith({{PeriodColumn, c.period}, {EditTaxColumn, c.editTax}});
        std::vector<int> editable;
        std::vector<int> onEntry;
        for (int column = -1; column <= BillColumnCount; ++column) {
            if (isBillCellEditable(lines, firstLine, column))
                editable.push_back(column);
            if (isBillCellEditedOnEntry(lines, firstLine, column))
                onEntry.push_back(column);
            EXPECT_FALSE(isBillCellEditable(lines, billTotalRow, column));
            EXPECT_FALSE(isBillCellEditedOnEntry(lines, billTotalRow, column));
            EXPECT_FALSE(isBillCellEditable(lines, billLastRow + 1, column));
        }
        EXPECT_EQ(editable, c.editable) << c.rule;
        EXPECT_EQ(onEntry, c.onEntry) << c.rule;
    }
}

TEST(BillEnter, LeadsToTheNextVisibleCellAndOutAtTheEnd)
{
    Cells lines = linesWith({{AmountColumn, "10"}});
    lines.setText(firstLine + 2, AmountColumn, "20");
    enum Lead { Cell, Narration, Nowhere };
    const struct
    {
        const char *rule;
        int row, column;
        std::optional<TaxType> type;
        Lead lead;
        int toRow = -1, toColumn = -1;
    } cases[] = {
        {"from the particulars to the SAC", 3, 1, TaxType::Intra, Cell, 3, 2},
        {"from an amount to the discount", 3, 5, TaxType::Intra, Cell, 3, 6},
        {"an empty amount with more below", 4, 5, TaxType::Intra, Cell, 4, 6},
        {"the first empty amount below the last one", 6, 5, TaxType::Intra, Narration},
        {"the last amount itself", 5, 5, TaxType::Intra, Cell, 5, 6},
        {"CGST of the other type is passed over", 3, 8, TaxType::Inter, Cell, 3, 13},
        {"IGST of the other type is passed over", 3, 12, TaxType::Intra, Cell, 3, 15},
        {"the end of a row", 3, 15, TaxType::Intra, Cell, 4, 1},
        {"the end of the last row", 12, 15, TaxType::Intra, Narration},
        {"an exempt bill ends at the net amount", 3, 7, TaxType::None, Nowhere},
        {"no choice ends there too", 3, 7, noChoice, Nowhere},
    };
    for (const auto &c : cases) {
        const EnterTarget target = billEnterTarget(lines, c.row, c.column, c.type);
        EXPECT_EQ(target.toNarration, c.lead == Narration) << c.rule;
        EXPECT_EQ(target.row, c.toRow) << c.rule;
        EXPECT_EQ(target.column, c.toColumn) << c.rule;
    }
}

TEST(BillLine, IsInUseWithAnyTextOrAmount)
{
    const struct
    {
        const char *text;
        int column;
        bool inUse;
    } cases[] = {{"Audit", ParticularsColumn, true},
                 {"  \t", ParticularsColumn, false},
                 {"998221", SacColumn, true},
                 {"FY", PeriodColumn, true},
                 {"2024", YearColumn, false},
                 {"1", AmountColumn, true},
                 {"-1", AmountColumn, true},
                 {"0", AmountColumn, false},
                 {"1", DiscountColumn, true},
                 {"5", NetColumn, false},
                 {"1", CgstColumn, true},
                 {"1", SgstColumn, true},
                 {"1", IgstColumn, true},
                 {"5", TotalColumn, false},
                 {"Y", EditTaxColumn, false},
                 {"28", IgstRateColumn, false}};
    for (const auto &c : cases)
        EXPECT_EQ(isBillLineInUse(linesWith({{c.column, c.text}}), firstLine), c.inUse) << c.column << c.text;
}

TEST(BillPicks, OfferCodesPeriodsAndYears)
{
    const std::vector<Pick> &sac = sacPicks();
    ASSERT_EQ(sac.size(), 8U);
    EXPECT_EQ(sac.front().key, "");
    EXPECT_EQ(sac.front().entry, "");
    EXPECT_EQ(sac.at(4).key, "998224");
    EXPECT_TRUE(sac.at(4).entry.endsWith("Other similar services n.e.c"));
    EXPECT_EQ(sac.back().key, "998240");
    EXPECT_TRUE(sac.back().entry.endsWith("Insolvency and receivership services"));
    ASSERT_EQ(periodPicks().size(), 3U);
    EXPECT_EQ(periodPicks().at(0).key, "");
    EXPECT_EQ(periodPicks().at(2).key, "AY");
    const std::vector<Pick> years = yearPicks(2024);
    ASSERT_EQ(years.size(), 25U);
    EXPECT_EQ(years.front().key, "2024");
    EXPECT_EQ(years.front().entry, "2024-25");
    EXPECT_EQ(years.back().key, "2000");
    EXPECT_EQ(years.back().entry, "2000-01");
}

} // namespace
} // namespace ledgora
