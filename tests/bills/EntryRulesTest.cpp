#include "bills/EntryRules.h"

#include "tests/support/Print.h"
#include <gtest/gtest.h>

namespace ledgora {
namespace {

TEST(DocumentNumber, IsDigitsNotLeadingWithZero)
{
    constexpr auto missing = "Please Specify 'Bill No.'";
    constexpr auto zero = "Please Specify a Valid 'Bill No.' (Numeric Only)";
    constexpr auto shape = "Please Specify a Valid 'Bill No.' (Numeric Only not leading with Zero)";
    const struct
    {
        const char *text, *message;
    } cases[] = {{"1", ""},       {"999999999", ""}, {"100", ""},       {"", missing},   {"0", zero},
                 {"000", zero},   {"abc", zero},     {" ", zero},       {"0123", shape}, {"12a", shape},
                 {"1.5", shape},  {" 12", shape},    {"12 ", shape},    {"-5", shape},   {"+5", shape},
                 {"1/24", shape}, {"\u0967", zero},  {"1\u0968", shape}};
    for (const auto &c : cases)
        EXPECT_EQ(documentNumberFault(c.text, "Bill"), c.message) << c.text;
    EXPECT_EQ(documentNumberFault("", "Receipt"), "Please Specify 'Receipt No.'");
    EXPECT_EQ(documentNumberFault("0", "Receipt"), "Please Specify a Valid Receipt No. (Numeric Only)");
}

TEST(DocumentDate, LiesInItsFinancialYear)
{
    constexpr auto none = "Please Specify a Valid 'Bill Date'.";
    constexpr auto of2024 = "Please Specify a Valid 'Bill Date' between 01/04/2024 and 31/03/2025.";
    constexpr auto of2017 = "Please Specify a Valid 'Bill Date' between 01/07/2017 and 31/03/2018.";
    const struct
    {
        const char *text;
        int year;
        const char *message;
    } cases[] = {
        {"01/04/2024", 2024, ""},     {"31/03/2025", 2024, ""},   {"31/03/2024", 2024, of2024},
        {"01/04/2025", 2024, of2024}, {"01/07/2017", 2017, ""},   {"30/06/2017", 2017, of2017},
        {"01/04/2017", 2017, of2017}, {"31/03/2018", 2017, ""},   {"01/04/2018", 2018, ""},
        {"31/02/2025", 2024, ""},                               // the 3rd of March
        {"32/03/2025", 2024, of2024},                           // the 1st of April
        {"31/03/2024", 2023, ""},     {"01/15/2024", 2024, ""}, // January 2025
        {"00/04/2024", 2024, of2024},                           // the day before the year begins
        {"00/05/2024", 2024, ""},     {"__/__/____", 2024, none}, {"", 2024, none},
        {"1/6", 2024, none}, // not completed
        {"01/06/24__", 2024, none},
    };
    for (const auto &c : cases)
        EXPECT_EQ(documentDateFault(c.text, c.year, "Bill"), c.message) << c.text << " in " << c.year;
    EXPECT_EQ(documentDateFault("", 2024, "Receipt"), "Please Specify a Valid 'Receipt Date'.");
}

TEST(ShortDate, IsCompletedInTheChosenYear)
{
    const struct
    {
        const char *typed;
        int year;
        const char *completed;
    } cases[] = {
        {"1/6", 2024, "01/06/2024"},
        {"1_/6_/____", 2024, "01/06/2024"},
        {"1/2", 2024, "01/02/2025"},
        {"31/03/____", 2024, "31/03/2025"},
        {"01/04/____", 2024, "01/04/2024"},
        {"01/06/24__", 2024, "01/06/2024"},
        {"29/02/____", 2023, "29/02/2024"},
        {"1.6", 2017, "01/06/2017"},
        {"01/06/2019", 2024, "01/06/2019"},
        {"31/02/2025", 2024, "31/02/2025"},
        // What is no date stays as it was typed, so that it is refused and not lost.
        {"29/02/____", 2024, "29/02/____"},
        {"31/04/____", 2024, "31/04/____"},
        {"__/__/____", 2024, "__/__/____"},
        {"99/99/____", 2024, "99/99/____"},
        {"abc", 2024, "abc"},
    };
    for (const auto &c : cases)
        EXPECT_EQ(completedDate(c.typed, c.year), c.completed) << c.typed;
}

TEST(SettledDate, IsTheDayThatIsMeant)
{
    EXPECT_EQ(settledDate("31/02/2025"), "03/03/2025");
    EXPECT_EQ(settledDate("30/02/2024"), "01/03/2024");
    EXPECT_EQ(settledDate("15/05/2024"), "15/05/2024");
    EXPECT_EQ(settledDate("__/__/____"), "__/__/____");
}

TEST(FinancialYears, BeginWith2017)
{
    EXPECT_EQ(financialYears(2017), QStringList{"2017-18"});
    EXPECT_EQ(financialYears(2019), (QStringList{"2017-18", "2018-19", "2019-20"}));
    EXPECT_TRUE(financialYears(2016).isEmpty());
    EXPECT_EQ(financialYears(2099).constLast(), "2099-00");
}

TEST(OpeningYear, IsTheOneOfTheDayAsFarAsTheListReaches)
{
    const struct
    {
        QDate day;
        int lastYear;
        int index;
    } cases[] = {
        {{2024, 6, 15}, 2024, 7}, {{2025, 3, 31}, 2024, 7}, {{2025, 4, 1}, 2024, 7}, // the list has no later one
        {{2024, 4, 1}, 2024, 7},  {{2024, 3, 31}, 2024, 6}, {{2024, 2, 1}, 2024, 6}, // the next year is offered early
        {{2017, 8, 1}, 2017, 0},  {{2017, 2, 1}, 2017, 0},  {{2024, 6, 15}, 2016, -1}, {{2010, 1, 1}, 2016, -1},
    };
    for (const auto &c : cases)
        EXPECT_EQ(openingYearIndex(c.lastYear, c.day), c.index) << c.lastYear << ' ' << c.day.toString().toStdString();
}

TEST(ProposedDate, IsTodayInsideTheYear)
{
    EXPECT_EQ(proposedDate(2024, QDate(2024, 4, 1)), "01/04/2024");
    EXPECT_EQ(proposedDate(2024, QDate(2025, 3, 31)), "31/03/2025");
    EXPECT_EQ(proposedDate(2024, QDate(2025, 4, 1)), "");
    EXPECT_EQ(proposedDate(2024, QDate(2024, 3, 31)), "");
}

TEST(OutOfOrder, QuestionNamesBothDocuments)
{
    EXPECT_EQ(outOfOrderQuestion("Bill", true, "4", "02/05/2024", "5", "01/05/2024"),
              "Invalid Entry. Bill No. 4 (Which is lesser than 5) Dated 02/05/2024 (Which is greater than 01/05/2024) "
              "already exists. Do you want to Save anyway?");
    EXPECT_EQ(outOfOrderQuestion("Bill", false, "6", "30/04/2024", "5", "01/05/2024"),
              "Invalid Entry. Bill No. 6 (Which is greater than 5) Dated 30/04/2024 (Which is lesser than 01/05/2024) "
              "already exists. Do you want to Save anyway?");
    EXPECT_TRUE(
        outOfOrderQuestion("Receipt", true, "%2", "%1", "%3", "%4").startsWith("Invalid Entry. Receipt No. %2 (Which"))
        << "a text that looks like a place is none";
}

} // namespace
} // namespace ledgora
