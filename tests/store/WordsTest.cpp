#include "store/Words.h"

#include "host/WorkingState.h"
#include <QFile>
#include <QHash>
#include <QStringList>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace ledgora {
namespace {

struct AmountCase
{
    const char *amount, *words;
};

TEST(AmountInWords, FollowsTheIndianForm)
{
    const AmountCase cases[] = {
        {"1", "One Rupee Only"},
        {"1.50", "One Rupee And Fifty Paisa Only"},
        {"1.05", "One Rupee And Five Paisa Only"},
        {"0.50", "Fifty Paisa"},
        {"0.05", "Five Paisa"},
        {".5", "Fifty Paisa"},
        {"0", "Nil"},
        {"", "Nil"},
        {"0.00", "Nil"},
        {"1250.75", "One Thousand Two Hundred Fifty And Seventy Five Paisa Only"},
        {"1.005", "One Rupee Only"},
        {"0.019", "One Paisa"},
        {"5.", "Five Only"},
        {" 19 ", "Nineteen Only"},
        {"2.1", "Two And Ten Paisa Only"},
        {"100", "One Hundred Only"},
        {"101", "One Hundred One Only"},
        {"110", "One Hundred Ten Only"},
        {"1000", "One Thousand Only"},
        {"100001", "One Lac One Only"},
        {"1000000", "Ten Lac Only"},
        {"10000000", "One Crore Only"},
        {"990000000", "Ninety Nine Crore Only"},
        {"12345678", "One Crore Twenty Three Lac Forty Five Thousand Six Hundred Seventy Eight Only"},
    };
    for (const auto &c : cases)
        EXPECT_EQ(CONVERTTOWORD(c.amount).toStdString(), c.words) << c.amount;
}

/// The number that the words name, read as a person would; -1 when a word is unknown.
qint64 readWords(const QString &words)
{
    static const QHash<QString, qint64> values = {
        {"One", 1},       {"Two", 2},       {"Three", 3},    {"Four", 4},     {"Five", 5},       {"Six", 6},
        {"Seven", 7},     {"Eight", 8},     {"Nine", 9},     {"Ten", 10},     {"Eleven", 11},    {"Twelve", 12},
        {"Thirteen", 13}, {"Fourteen", 14}, {"Fifteen", 15}, {"Sixteen", 16}, {"Seventeen", 17}, {"Eighteen", 18},
        {"Nineteen", 19}, {"Twenty", 20},   {"Thirty", 30},  {"Forty", 40},   {"Fifty", 50},     {"Sixty", 60},
        {"Seventy", 70},  {"Eighty", 80},   {"Ninety", 90}};
    static const QHash<QString, qint64> places = {{"Thousand", 1000}, {"Lac", 100000}, {"Crore", 10000000}};
    qint64 sum = 0;
    qint64 group = 0;
    for (const QString &word : words.split(u' ')) {
        if (values.contains(word)) {
            group += values[word];
        } else if (word == "Hundred") {
            group *= 100;
        } else if (places.contains(word)) {
            sum += group * places[word];
            group = 0;
        } else if (word != "Rupee" && word != "Only") {
            return -1;
        }
    }
    return sum + group;
}

TEST(AmountInWords, ReadsBackAsTheAmount)
{
    for (qint64 amount = 1; amount < 1000000000; amount += amount < 20000 ? 1 : amount / 997)
        ASSERT_EQ(readWords(CONVERTTOWORD(QString::number(amount))), amount);
}

TEST(AmountInWords, LosesAndLogsWhatStandsAboveTheCrores)
{
    const QTemporaryDir folder;
    gLogPath = folder.filePath("log");
    EXPECT_EQ(CONVERTTOWORD("9990000001").toStdString(), "Ninety Nine Crore One Only");
    EXPECT_EQ(CONVERTTOWORD("1000000000").toStdString(), "Nil");
    QFile log(gLogPath);
    ASSERT_TRUE(log.open(QIODevice::ReadOnly));
    const QByteArrayList lines = log.readAll().trimmed().split('\n');
    ASSERT_EQ(lines.size(), 2);
    EXPECT_TRUE(lines.front().endsWith("CONVERTTOWORD"));
    gLogPath.clear();
}

TEST(AmountInWords, PartsAreUsableAlone)
{
    EXPECT_EQ(CONVERTHUNDREDS("000").toStdString(), "");
    EXPECT_EQ(CONVERTHUNDREDS("7").toStdString(), "Seven");
    EXPECT_EQ(CONVERTHUNDREDS("512").toStdString(), "Five Hundred Twelve");
    EXPECT_EQ(CONVERTTENS("40").toStdString(), "Forty");
    EXPECT_EQ(CONVERTDIGIT("0").toStdString(), "");
    EXPECT_EQ(CONVERTDIGIT("x").toStdString(), "");
}

TEST(ProperCase, BeginsAWordAfterWhiteSpaceOnly)
{
    const AmountCase cases[] = {{"RAM KUMAR & SONS", "Ram Kumar & Sons"},
                                {"o'NEIL-smith (india) ltd.", "O'neil-smith (india) Ltd."},
                                {"  12,mg road\r\nNEW delhi\tINDIA", "  12,mg Road\r\nNew Delhi\tIndia"},
                                {"\u00c9COLE \u00e9t\u00e9", "\u00c9cole \u00c9t\u00e9"},
                                {"\u0930\u093e\u092e LTD", "\u0930\u093e\u092e Ltd"},
                                {"", ""}};
    for (const auto &c : cases)
        EXPECT_EQ(properCase(c.amount).toStdString(), c.words);
}

} // namespace
} // namespace ledgora
