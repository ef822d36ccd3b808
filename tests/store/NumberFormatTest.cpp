#include "store/NumberFormat.h"

#include <QLocale>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace ledgora {
namespace {

struct FormatCase
{
    double value;
    const char *pattern;
    const char *shown;
};

TEST(FormatNumber, AppliesPatternsAndRoundsHalfAwayFromZero)
{
    const FormatCase cases[] = {
        {13.5, "###0", "14"},
        {-13.5, "###0", "-14"},
        {0.5, "###0", "1"},
        {-0.4, "###0", "0"},
        {99.4, "###0", "99"},
        {999.5, "###0", "1000"},
        {0.05, "0.0", "0.1"},
        {0.04, "0.0", "0.0"},
        {100 * (14.5 / 100), "###0", "15"},
        {1.005, "0.00", "1.01"},
        {5, "0.00", "5.00"},
        {0.5, "0.00", "0.50"},
        {7, "000000", "000007"},
        {1234567, "000000", "1234567"},
        {12.34567, "###0.0000", "12.3457"},
        {1234567.5, "#,##0.00", "1,234,567.50"},
        {100, "#,##0", "100"},
        {0, "#,##0", "0"},
        {-1234, "#,##0", "-1,234"},
        {-1234, "#,##0;(#,##0)", "(1,234)"},
        {1234, "#,##0;(#,##0)", "1,234"},
        {-0.3, "#,##0;(#,##0)", "0"},
        {-0.5, "#,##0;(#,##0)", "(1)"},
        {0.2, "0;-0;nil", "nil"},
        {-5, "0;;nil", "-5"},
        {1e15, "###0", "1000000000000000"},
        {123456789012345678.0, "###0", "123456789012346000"},
        {1e-300, "0.00", "0.00"},
        {std::numeric_limits<double>::quiet_NaN(), "0.00", "0.00"},
    };
    for (const auto &c : cases)
        EXPECT_EQ(formatNumber(c.value, c.pattern).toStdString(), c.shown) << c.value << " as " << c.pattern;
}

// Amount and rate as whole numbers give the tax exactly, halves included.
TEST(WholeRupees, AgreesWithExactArithmeticForEveryAmountAndUsualRate)
{
    for (const qint64 tenThousandths : {145000, 25000, 90000, 180000, 123600, 1235})
        for (qint64 amount = 0; amount <= 300000; ++amount) {
            const double tax = double(amount) * (double(tenThousandths) / 10000 / 100);
            const qint64 exact = (amount * tenThousandths * 2 + 1000000) / 2000000;
            ASSERT_EQ(wholeRupees(tax), double(exact)) << amount << " at " << double(tenThousandths) / 10000;
            ASSERT_EQ(wholeRupees(-tax), -double(exact)) << -amount;
        }
    EXPECT_EQ(formatNumber(150 * (9.0 / 100), "###0").toStdString(), "14");
    EXPECT_FALSE(std::signbit(wholeRupees(-0.4)));
}

TEST(RoundHalfEven, AgreesWithExactFractions)
{
    for (const qint64 divisor : {3, 7, 9, 11, 2951})
        for (qint64 n = 0; n <= 60000; ++n) { // an odd divisor never gives a half
            const qint64 exact = (2 * n + divisor) / (2 * divisor);
            ASSERT_EQ(roundHalfEven(double(n) / double(divisor)), double(exact)) << n << '/' << divisor;
        }
}

TEST(RoundHalfEven, TakesHalvesToTheEvenNumberOnTheDoubleAsItIs)
{
    const struct
    {
        double value, rounded;
    } cases[] = {{0.5, 0},
                 {1.5, 2},
                 {2.5, 2},
                 {112.5, 112},
                 {113.5, 114},
                 {-0.5, 0},
                 {-1.5, -2},
                 {-2.5, -2},
                 {2.5001, 3},
                 {1e15, 1e15},
                 {1475.0 * (225.0 / 2950.0), 113}};
    for (const auto &c : cases) {
        EXPECT_EQ(roundHalfEven(c.value), c.rounded) << c.value;
        EXPECT_EQ(std::signbit(roundHalfEven(c.value)), c.rounded < 0) << "negative zero from " << c.value;
    }
}

TEST(PlainNumber, HasNoExponentNoGroupingAndNoTrailingZeros)
{
    const QLocale former;
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    const struct
    {
        double value;
        const char *text;
    } cases[] = {{1180, "1180"},
                 {1180.5, "1180.5"},
                 {0, "0"},
                 {-0.0, "0"},
                 {-2.5, "-2.5"},
                 {0.1 + 0.2, "0.3"},
                 {0.1235, "0.1235"},
                 {1e-7, "0.0000001"},
                 {1e20, "100000000000000000000"},
                 {1.0 / 3, "0.333333333333333"},
                 {123456789.25, "123456789.25"}};
    for (const auto &c : cases)
        EXPECT_EQ(plainNumber(c.value).toStdString(), c.text);
    QLocale::setDefault(former);
}

struct TextCase
{
    const char *text;
    double value;
    bool numeric;
};

TEST(NumericText, IsBlanksOneSignDigitsAndOnePoint)
{
    const TextCase cases[] = {
        {"", 0, false},
        {"   ", 0, false},
        {"12", 12, true},
        {"  12", 12, true},
        {"12 ", 12, true},
        {"-12.50", -12.5, true},
        {"+.5", 0.5, true},
        {"5.", 5, true},
        {".", 0, false},
        {"-", 0, false},
        {"--5", 0, false},
        {"- 5", 0, false},
        {"12abc", 12, false},
        {"abc", 0, false},
        {"1,000", 1, false},
        {"1.2.3", 1.2, false},
        {"1e5", 1, false},
        {"0x10", 0, false},
        {"inf", 0, false},
        {"123456789012345", 123456789012345, true},
        {"1234567890123456", 123456789012345, false},
        {"\u0967\u0968", 0, false}, // Devanagari digits
        {"-0", 0, true},
    };
    for (const auto &c : cases) {
        EXPECT_EQ(Val(c.text), c.value) << '"' << c.text << '"';
        EXPECT_EQ(isNumeric(c.text), c.numeric) << '"' << c.text << '"';
    }
}

TEST(Formetgen, GroupsOnlyWhereTheFormatAsksForIt)
{
    const struct
    {
        const char *value, *format, *shown;
    } cases[] = {{"100000", "0.00", "100000.00"},
                 {"100000", "#,##0.00", "1,00,000.00"},
                 {"1234567", "#,##0.00", "12,34,567.00"},
                 {"", "#,##0", "0"},
                 {"", "0.00", "0.00"},
                 {"999.5", "#,##0", "1,000"},
                 {"-100", "#,##0", "-100"},
                 {"-1234567", "#,##0", "-12,34,567"},
                 {"-100", "#,##0;(#,##0)", "(100)"},
                 {"-123456", "#,##0;(#,##0)", "(1,23,456)"},
                 {"-0.4", "#,##0;(#,##0)", "0"}};
    for (const auto &c : cases)
        EXPECT_EQ(FORMETGEN(c.value, c.format).toStdString(), c.shown) << c.value << " as " << c.format;
}

/// Indian grouping by division: thousands first, then hundreds.
std::string groupedByDivision(qint64 value)
{
    if (value < 1000)
        return std::to_string(value);
    const auto padded = [](qint64 part, std::size_t width) {
        const std::string digits = std::to_string(part);
        return std::string(width - digits.size(), '0') + digits;
    };
    std::string text = ',' + padded(value % 1000, 3);
    for (value /= 1000; value >= 100; value /= 100)
        text.insert(0, ',' + padded(value % 100, 2));
    return std::to_string(value) + text;
}

TEST(Formetgen, GroupsByThreeThenTwosAtEveryLength)
{
    for (qint64 value = 1; value < 1000000000000; value = value * 3 + 7) {
        const QString text = QString::number(value);
        EXPECT_EQ(FORMETGEN(text, "#,##0").toStdString(), groupedByDivision(value));
        EXPECT_EQ(FORMETGEN('-' + text, "#,##0.00").toStdString(), '-' + groupedByDivision(value) + ".00");
        EXPECT_EQ(groupedRupees(-double(value)).toStdString(), '-' + groupedByDivision(value));
    }
    for (const auto &[amount, shown] : {std::pair{-0.4, "0"}, {1000.5, "1,001"}, {-99999.5, "-1,00,000"}, {0.0, "0"}})
        EXPECT_EQ(groupedRupees(amount).toStdString(), shown);
}

} // namespace
} // namespace ledgora
