#include "store/SqlText.h"

#include "store/DocumentNumber.h"
#include <cstring>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace ledgora {
namespace {

TEST(SqlText, DoublesQuotesAndBackSlashes)
{
    const struct
    {
        const char *text, *safe;
    } cases[] = {{"", ""},
                 {"O'Neil", "O''Neil"},
                 {"\\", "\\\\"},
                 {"\\'", "\\\\''"},
                 {"'; Drop Table GST_BillM; -- ", "''; Drop Table GST_BillM; -- "},
                 {"a\\' or 1=1", "a\\\\'' or 1=1"}};
    for (const auto &c : cases) {
        EXPECT_EQ(SqlText(c.text).toStdString(), c.safe);
        EXPECT_EQ(quoted(c.text).toStdString(), std::string("'") + c.safe + "'");
    }
}

TEST(SqlNumber, HasNoExponentAndReadsBackAsTheSameDouble)
{
    EXPECT_EQ(number(1180.5).toStdString(), "1180.5");
    EXPECT_EQ(number(0.1).toStdString(), "0.1");
    EXPECT_EQ(number(-0.0).toStdString(), "0");
    EXPECT_EQ(number(1e21).toStdString(), "1000000000000000000000");
    EXPECT_EQ(number(std::numeric_limits<double>::infinity()).toStdString(), "0");
    EXPECT_EQ(number(qint64(-9223372036854775807)).toStdString(), "-9223372036854775807");
    std::mt19937_64 random(7);
    for (int i = 0; i < 20000; ++i) {
        const quint64 bits = random();
        double value = 0;
        std::memcpy(&value, &bits, sizeof value);
        if (!std::isfinite(value))
            continue;
        const QString text = number(value);
        ASSERT_FALSE(text.contains(u'e')) << text.toStdString();
        ASSERT_EQ(text.toDouble(), value) << text.toStdString();
    }
}

TEST(DocumentNumber, TakesThePlaceOrTheSideThatTheSeriesSays)
{
    const struct
    {
        const char *series, *position, *joined;
    } cases[] = {{"", "", "12"},          {"A/", "P", "A/12"}, {"/17-18", "S", "12/17-18"}, {"A/##/17", "S", "A/12/17"},
                 {"##-##", "P", "12-12"}, {"###", "P", "12#"}, {"#A", "P", "#A12"},         {"A", "", "A12"}};
    for (const auto &c : cases)
        EXPECT_EQ(joinSeries(c.series, c.position, "12").toStdString(), c.joined) << c.series;
}

TEST(AmongIds, FindsAllInFewConditionsOfOneTable)
{
    QList<int> dense;
    QList<int> sparse;
    for (int i = 1; i <= 1000; ++i) {
        dense.prepend(i);
        sparse << i * 20;
    }
    EXPECT_EQ(amongIds("Id", {}), QStringList());
    EXPECT_EQ(amongIds("Id", {7, 3}), QStringList{"Id In (3,7)"});
    EXPECT_EQ(amongIds("Id", dense), QStringList{"Id Between 1 And 1000"});
    const QStringList parts = amongIds("Id", sparse);
    ASSERT_EQ(parts.size(), 2);
    EXPECT_TRUE(parts[0].endsWith(",18000)") && parts[1].startsWith("Id In (18020,"));
}

} // namespace
} // namespace ledgora
