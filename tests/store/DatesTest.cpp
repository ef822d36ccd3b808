#include "store/Dates.h"

#include <gtest/gtest.h>

namespace ledgora {
namespace {

class Dates : public testing::Test
{
protected:
    void SetUp() override { setToday(QDate(2024, 8, 20)); }
    void TearDown() override { setToday(QDate()); }
};

TEST_F(Dates, TodayIsTheToldDayUntilItIsTakenBack)
{
    EXPECT_EQ(today(), QDate(2024, 8, 20));
    setToday(QDate());
    EXPECT_LE(qAbs(today().daysTo(QDate::currentDate())), 1);
}

TEST_F(Dates, StoredFormIsCutByPositionAlone)
{
    EXPECT_EQ(CONVERTTOSAVE("").toStdString(), "");
    EXPECT_EQ(CONVERTTOSAVE("01/06/2018").toStdString(), "2018-06-01 00:00:00");
    EXPECT_EQ(CONVERTTOSAVE("28-02-2019").toStdString(), "2019-02-28 00:00:00");
    EXPECT_EQ(CONVERTTOSAVE("01.12x2020").toStdString(), "2020-12-01 00:00:00");
}

struct TypedCase
{
    const char *typed, *year, *completed, *yearAfter;
};

TEST_F(Dates, TypedDateIsCompletedFromTheFinancialYear)
{
    const TypedCase cases[] = {
        {"1/6", "2018", "01/06/2017", "2017"},
        {"1/2", "2018", "01/02/2018", "2018"},
        {"1/6/18", "2018", "01/06/2018", "2017"},
        {"1.6.18", "2018", "01/06/2018", "2017"},
        {"1-6-2016", "2018", "01/06/2016", "2018"},
        {"31/3", "2018", "31/03/2018", "2018"},
        {"1/4", "2018", "01/04/2017", "2017"},
        {"1/6/8", "2018", "01/06/2018", "2017"},
        {"1/6/018", "2018", "01/06/2018", "2017"},
        {"1/2/29", "2018", "01/02/2029", "2018"},
        {"1/2/30", "2018", "01/02/1930", "2018"},
        {"1/6/99", "2018", "01/06/1999", "2017"},
        {"1/2", "", "01/02/2024", "2024"},
        {"1/6", "", "01/06/2023", "2023"},
        // 29 February is judged in the completed year, not in the present one.
        {"29/2", "2020", "29/02/2020", "2020"},
        {"29/2", "2019", "", "2019"},
        {"29/2/19", "2020", "", "2020"},
        {"29/02/2020", "2019", "29/02/2020", "2019"},
        {"29/02/2019", "2020", "", "2020"},
        // The blanks of an input mask.
        {"__/__/____", "2018", "", "2018"},
        {"1_/6_/____", "2018", "01/06/2017", "2017"},
        {"01/06/18__", "2018", "01/06/2018", "2017"},
        {" 1/ 6/2018", "2018", "01/06/2018", "2018"},
        // No dates: nothing is completed.
        {"", "2018", "", "2018"},
        {"31/02/2025", "2018", "", "2018"},
        {"31/4", "2018", "", "2018"},
        {"0/6", "2018", "", "2018"},
        {"1/13", "2018", "", "2018"},
        {"6/2018", "2018", "", "2018"},
        {"010618", "2018", "", "2018"},
        {"1/6/12018", "2018", "", "2018"},
        {"1/6/0018", "2018", "", "2018"},
        {"1/6/2018/1", "2018", "", "2018"},
        {"1//2018", "2018", "", "2018"},
        {"1/x/2018", "2018", "", "2018"},
        {"-1/6/2018", "2018", "", "2018"},
    };
    for (const auto &c : cases) {
        QString year = c.year;
        EXPECT_EQ(CONVERTDATE(c.typed, "DD/MM/YYYY", year).toStdString(), c.completed) << c.typed << " in " << c.year;
        EXPECT_EQ(year.toStdString(), c.yearAfter) << c.typed << " in " << c.year;
    }
}

TEST_F(Dates, EveryDayOfTheFinancialYearNeedsOnlyDayAndMonth)
{
    for (QDate day(2019, 4, 1); day <= QDate(2020, 3, 31); day = day.addDays(1)) {
        QString year = "2020";
        const QString typed = QString::number(day.day()) + '/' + QString::number(day.month());
        ASSERT_EQ(CONVERTDATE(typed, "DD/MM/YYYY", year).toStdString(), day.toString("dd/MM/yyyy").toStdString());
    }
}

TEST_F(Dates, SeparatorsAreThoseOfThePattern)
{
    QString year = "2018";
    EXPECT_EQ(CONVERTDATE("1/6/2017", "DD-MM-YYYY", year).toStdString(), "01-06-2017");
    EXPECT_EQ(CONVERTDATE("1-6-2017", "dd.MM.yy", year).toStdString(), "01.06.17");
    EXPECT_EQ(CONVERTDATE("1.6.2017").toStdString(), "01/06/2017");
}

TEST_F(Dates, GeneralTestTakesDayFirstDatesWithAnyOfThreeSeparators)
{
    const struct
    {
        const char *text;
        bool date;
    } cases[] = {{"31-12-2017", true}, {"31-13-2017", false}, {"12/31/2017", false}, {"01.06.17", true},
                 {"29-02-00", true},   {"29-02-17", false},   {"29-02-2017", false}, {"29/2", true},
                 {"30/2", false},      {"31-12-99", true},    {"", false},           {"12", false},
                 {"3112-2017", false}, {"31/12-2017", true},  {"ab-cd-2017", false}, {"00-00-0000", false}};
    for (const auto &c : cases)
        EXPECT_EQ(isDateText(c.text), c.date) << c.text;
}

struct PatternCase
{
    const char *pattern, *shown;
};

TEST_F(Dates, PatternsKnowEitherCase)
{
    const QDateTime moment(QDate(2019, 11, 3), QTime(15, 4, 5), Qt::UTC);
    const PatternCase cases[] = {{"DD/MM/YYYY", "03/11/2019"},
                                 {"dd/MM/yyyy", "03/11/2019"},
                                 {"d/m/yy", "3/11/19"},
                                 {"dd-MMM-yy", "03-Nov-19"},
                                 {"dd/MMM/yyyy", "03/Nov/2019"},
                                 {"MMMM yyyy", "November 2019"},
                                 {"dd-MMM-yyyy hh:nn:ss AM/PM", "03-Nov-2019 03:04:05 PM"},
                                 {"hh:nn:ss", "15:04:05"},
                                 {"h:n:s", "15:4:5"},
                                 {"yyyymmdd", "20191103"}};
    for (const auto &c : cases)
        EXPECT_EQ(formatDate(moment, c.pattern).toStdString(), c.shown);
    const QDateTime midnight(QDate(2019, 5, 1), QTime(0, 0), Qt::UTC);
    EXPECT_EQ(formatDate(midnight, "hh AM/PM").toStdString(), "12 AM");
    EXPECT_EQ(formatDate(midnight.addSecs(12 * 3600), "h AM/PM").toStdString(), "12 PM");
    EXPECT_EQ(formatDate(QDate(), "dd/MM/yyyy").toStdString(), "");
    EXPECT_EQ(FormatDateSafe(QDate(2019, 9, 3), "dd-MMM-yy").toStdString(), "03-Sep-19");
}

TEST_F(Dates, DayOrMonthPastItsEndRunsOver)
{
    const struct
    {
        const char *text;
        QDate day;
    } cases[] = {{"15/08/2018", QDate(2018, 8, 15)},
                 {"31/02/2025", QDate(2025, 3, 3)},
                 {"31/02/2024", QDate(2024, 3, 2)},
                 {"31/04/2018", QDate(2018, 5, 1)},
                 {"01/13/2018", QDate(2019, 1, 1)},
                 {"32/12/2018", QDate(2019, 1, 1)},
                 {"00/03/2019", QDate(2019, 2, 28)},
                 {"01-06-2018", QDate(2018, 6, 1)},
                 {"", QDate()},
                 {"__/__/____", QDate()},
                 {"1/6/2018", QDate()},
                 {"ab/06/2018", QDate()},
                 {"01/06/", QDate()}};
    for (const auto &c : cases)
        EXPECT_EQ(DateFromText(c.text), c.day) << c.text;
}

TEST_F(Dates, StoredDatesAndFinancialYears)
{
    EXPECT_EQ(dateFromStore("2018-06-01 00:00:00"), QDate(2018, 6, 1));
    EXPECT_FALSE(dateFromStore("").isValid());
    EXPECT_FALSE(dateFromStore("0000-00-00 00:00:00").isValid());
    EXPECT_EQ(financialYearOf(QDate(2018, 3, 31)), 2017);
    EXPECT_EQ(financialYearOf(QDate(2018, 4, 1)), 2018);
    EXPECT_EQ(financialYearText(2017).toStdString(), "2017-18");
    EXPECT_EQ(financialYearText(1999).toStdString(), "1999-00");
    EXPECT_EQ(financialYearText(2008).toStdString(), "2008-09");
}

} // namespace
} // namespace ledgora
