#include "store/Cells.h"

#include "tests/support/Print.h"
#include <QDate>
#include <algorithm>
#include <gtest/gtest.h>
#include <numeric>
#include <random>
#include <utility>

namespace ledgora {
namespace {

/// One heading row, then a row for each text, its place in the second column.
Cells tableOf(const QStringList &texts)
{
    Cells cells(2, 1);
    cells.setRow(0, {"Name", "Place"});
    for (qsizetype i = 0; i < texts.size(); ++i)
        cells.addRow({texts.at(i), QString::number(i + 1)});
    return cells;
}

QStringList column(const Cells &cells, int which)
{
    QStringList texts;
    for (int row = cells.fixedRows(); row < cells.rows(); ++row)
        texts << cells.text(row, which);
    return texts;
}

TEST(Cells, SearchMatchesAsAsked)
{
    const Cells cells = tableOf({"asha", "Asha Rao", "ASHA", "Rao", "Name", ""});
    using Match = Cells::Match;
    const struct
    {
        const char *rule, *text;
        int from;
        Match match;
        int row;
    } cases[] = {
        {"exact minds the case", "ASHA", 0, Match::Exact, 3},
        {"exact is the whole text", "Asha", 0, Match::Exact, -1},
        {"the row itself counts", "ASHA", 3, Match::Exact, 3},
        {"rows above do not", "ASHA", 4, Match::Exact, -1},
        {"any case", "aShA", 0, Match::ExactAnyCase, 1},
        {"any case, further down", "aShA", 2, Match::ExactAnyCase, 3},
        {"beginning", "asha r", 0, Match::BeginsAnyCase, 2},
        {"beginning is no middle", "ao", 0, Match::BeginsAnyCase, -1},
        {"nothing begins everything", "", 0, Match::BeginsAnyCase, 1},
        {"empty cell", "", 0, Match::Exact, 6},
        {"headings are never found", "Name", 0, Match::Exact, 5},
        {"from above the table", "asha", -7, Match::Exact, 1},
        {"from past the end", "asha", 99, Match::Exact, -1},
    };
    for (const auto &c : cases)
        EXPECT_EQ(cells.find(c.text, 0, c.from, c.match), c.row) << c.rule;
}

TEST(Cells, SearchPassesOverHiddenRowsOnlyWhenAsked)
{
    Cells cells = tableOf({"a", "b", "a"});
    cells.setHidden(1, true);
    EXPECT_EQ(cells.find("a", 0), 1);
    EXPECT_EQ(cells.find("a", 0, 0, Cells::Match::Exact, true), 3);
    cells.setHidden(3, true);
    EXPECT_EQ(cells.find("a", 0, 0, Cells::Match::Exact, true), -1);
}

TEST(Cells, MovingSearchGoesOnFromItsLastHitAndOnceFromTheTop)
{
    const Cells cells = tableOf({"A", "B", "B", "C", "A"});
    int start = 1;
    EXPECT_EQ(cells.findMoving("B", 0, start), 2);
    EXPECT_EQ(start, 2);
    EXPECT_EQ(cells.findMoving("B", 0, start), 2) << "one party can have many bills";
    EXPECT_EQ(cells.findMoving("C", 0, start), 4);
    EXPECT_EQ(cells.findMoving("B", 0, start), 2) << "found again from the top";
    EXPECT_EQ(cells.findMoving("gone", 0, start), -1);
    EXPECT_EQ(start, 2) << "a miss moves nothing";
    EXPECT_EQ(cells.findMoving("Name", 0, start), -1) << "the heading is no party";
}

struct SortCase
{
    const char *name;
    Cells::Sort kind;
    QStringList texts, sorted;
};

class CellsSort : public testing::TestWithParam<SortCase>
{
};

TEST_P(CellsSort, OrdersDataRowsOnly)
{
    Cells cells = tableOf(GetParam().texts);
    cells.sort(0, GetParam().kind);
    EXPECT_EQ(column(cells, 0), GetParam().sorted);
    EXPECT_EQ(cells.text(0, 0), "Name");
    EXPECT_EQ(cells.rows(), GetParam().texts.size() + 1);
}

INSTANTIATE_TEST_SUITE_P(Orders, CellsSort,
                         testing::Values(SortCase{"NumbersByValue",
                                                  Cells::Sort::Number,
                                                  {"10", "9", "-1", "", "2.5", "x"},
                                                  {"-1", "", "x", "2.5", "9", "10"}},
                                         SortCase{"DatesByTheDay",
                                                  Cells::Sort::Date,
                                                  {"01/02/2025", "31/12/2024", "", "15/01/2025", "junk", "01/01/2025"},
                                                  {"", "junk", "31/12/2024", "01/01/2025", "15/01/2025", "01/02/2025"}},
                                         SortCase{"TextsByCapitalsThenAsTheyStand",
                                                  Cells::Sort::Text,
                                                  {"beta", "Alpha", "BETA", "alpha", "Beta", "_x", "a", "10", "9"},
                                                  {"10", "9", "a", "Alpha", "alpha", "BETA", "Beta", "beta", "_x"}},
                                         SortCase{"CharactersBeyondTheBasicPlaneComeLast",
                                                  Cells::Sort::Text,
                                                  {"\U0001F600", "\uFF21", "\u0930", "z", "\U00020000"},
                                                  {"z", "\u0930", "\uFF21", "\U0001F600", "\U00020000"}}),
                         [](const auto &sort) { return std::string(sort.param.name); });

TEST(Cells, EachSortKeepsTheOrderOfTheOneBefore)
{
    Cells cells = tableOf({"b", "a", "b", "a"});
    cells.sort(0, Cells::Sort::Text);
    EXPECT_EQ(column(cells, 1), (QStringList{"2", "4", "1", "3"}));
}

TEST(Cells, HidingMovesWithItsRow)
{
    Cells cells = tableOf({"b", "a"});
    cells.setHidden(1, true);
    cells.sort(0, Cells::Sort::Text);
    EXPECT_FALSE(cells.isHidden(1));
    EXPECT_TRUE(cells.isHidden(2));
    cells.insertRow(1, {"c"});
    EXPECT_TRUE(cells.isHidden(3));
    cells.removeRow(3);
    EXPECT_EQ(column(cells, 0), (QStringList{"c", "a"}));
}

TEST(Cells, OutsideReadsNothingAndWritesNothing)
{
    Cells cells = tableOf({"a"});
    for (const auto &[row, col] : {std::pair(-1, 0), {2, 0}, {0, -1}, {1, 2}}) {
        EXPECT_EQ(cells.text(row, col), "");
        EXPECT_EQ(cells.value(row, col), 0);
        cells.setText(row, col, "lost");
    }
    cells.setRow(1, {"b", "2", "a third of two"});
    cells.setHidden(7, true);
    cells.removeRow(0);
    cells.removeRow(7);
    EXPECT_FALSE(cells.isHidden(7));
    EXPECT_EQ(cells.rows(), 2);
    EXPECT_EQ(cells.text(0, 0), "Name");
    EXPECT_EQ(cells.text(1, 1), "2");
}

TEST(Cells, FixedRowsAreNeverCutNorPushedDown)
{
    Cells cells = tableOf({"a", "b"});
    cells.insertRow(0, {"first"});
    EXPECT_EQ(cells.text(1, 0), "first");
    cells.setRows(0);
    EXPECT_EQ(cells.rows(), 1);
    EXPECT_EQ(cells.text(0, 0), "Name");
    EXPECT_FALSE(cells.hasData());
    cells.setRows(3);
    EXPECT_EQ(column(cells, 0), (QStringList{"", ""})) << "nothing of the former rows comes back";
}

TEST(Cells, ShapeTellsWhenRowsMoved)
{
    Cells cells = tableOf({"b", "a"});
    quint64 last = cells.shape();
    const auto moved = [&] { return std::exchange(last, cells.shape()) != last; };
    cells.setText(1, 0, "c");
    EXPECT_FALSE(moved());
    cells.setHidden(1, true);
    EXPECT_TRUE(moved());
    cells.sort(0, Cells::Sort::Text);
    EXPECT_TRUE(moved());
    cells.addRow();
    EXPECT_TRUE(moved());
    cells.removeRow(1);
    EXPECT_TRUE(moved());
    cells.clearData();
    EXPECT_TRUE(moved());
}

TEST(Cells, HundredThousandRowsComeIntoOrder)
{
    constexpr int count = 100000;
    std::vector<int> numbers(count);
    std::iota(numbers.begin(), numbers.end(), 1);
    std::ranges::shuffle(numbers, std::mt19937(5));
    Cells cells(3, 1);
    cells.setRows(count + 1);
    for (int i = 0; i < count; ++i) {
        const int number = numbers[size_t(i)];
        // Names sort as the numbers do, seven digits each; every date stands for a hundred of them.
        cells.setRow(i + 1, {QString::number(number), "p" + QString::number(number).rightJustified(7, u'0'),
                             QDate(2000, 1, 1).addDays(number / 100).toString("dd/MM/yyyy")});
    }
    const auto firstOff = [&] {
        for (int row = 1; row <= count; ++row) {
            if (cells.text(row, 0) != QString::number(row))
                return row;
        }
        return 0;
    };
    const Cells shuffled = cells;
    cells.sort(0, Cells::Sort::Number);
    EXPECT_EQ(firstOff(), 0);
    cells = shuffled;
    cells.sort(1, Cells::Sort::Text);
    EXPECT_EQ(firstOff(), 0);
    cells.sort(2, Cells::Sort::Date);
    EXPECT_EQ(firstOff(), 0) << "equal dates keep the order of the names";
}

} // namespace
} // namespace ledgora
