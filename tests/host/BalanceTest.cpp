#include "host/Balance.h"

#include "store/Connection.h"
#include "tests/support/Database.h"
#include "tests/support/Log.h"
#include <gtest/gtest.h>
#include <map>

namespace ledgora {
namespace {

TEST(Balance, IsBillsLessReceiptsAndDiscountsOfAllYears)
{
    test::Database database;
    const test::Log log;
    database.run(
        "Insert Into GST_BillM (BillSrNo,FirmId,FYr,Code_No) Values (1,1,2023,'A'),(2,1,2024,'A'),(3,2,2024,'A'),"
        "(4,1,2024,'B'),(5,1,2024,'O''N\\\\1'),(6,1,2024,'E'),(7,1,2024,'m')");
    database.run(
        "Insert Into GST_BillD (BillId,SrNo,TotalAmt) Values (1,1,1000),(1,2,180),(2,1,59.5),(3,1,7),(4,1,11),(5,1,13),"
        "(6,1,NULL),(7,1,5)");
    database.run(
        "Insert Into GST_RecpM (RecpSrNo,FirmId,FYr,Code_No) Values (1,1,2024,'A'),(2,2,2024,'A'),(3,1,2024,'R'),"
        "(4,1,2024,'M')");
    // TDS is tax paid for the office: it settles nothing here. A line whose bill is gone is still money.
    database.run("Insert Into GST_RecpD Values "
                 "(1,1,1,500,100,40),(1,2,99,39.5,0,0),(2,1,3,1,0,0),(3,1,1,20,5,0),(3,2,1,NULL,5,0),(4,1,7,2,0,0)");
    const struct
    {
        const char *rule;
        int firm;
        const char *code;
        double balance;
    } cases[] = {
        {"bills of two years less receipts", 1, "A", 600},
        {"another company", 2, "A", 6},
        {"no receipts", 1, "B", 11},
        {"receipts without bills", 1, "R", -25},
        {"neither", 1, "nobody", 0},
        {"no company", 9, "A", 0},
        {"codes are blind to case", 1, "m", 3},
        {"a code of quotes and back-slashes", 1, "O'N\\1", 13},
        {"a code is a value", 1, "' or '1'='1", 0},
        {"a bill without amounts", 1, "E", 0},
    };
    for (const auto &c : cases)
        EXPECT_EQ(balanceOf(database.db(), c.firm, c.code), c.balance) << c.rule;
    std::map<std::pair<int, std::string>, double> all;
    const auto balances = allBalances(database.db(), 0).value_or(std::vector<PartyBalance>());
    for (const PartyBalance &party : balances)
        all[{party.firmId, party.code.toUpper().toStdString()}] = party.amount;
    EXPECT_EQ(all.size(), 7U) << "each client of each company once";
    for (const auto &[party, amount] : all)
        EXPECT_EQ(amount, balanceOf(database.db(), party.first, QString::fromStdString(party.second))) << party.second;
    const auto ofOne = allBalances(database.db(), 2);
    EXPECT_EQ(ofOne ? ofOne->size() : 0, 1U);
    EXPECT_TRUE(log.isEmpty());
}

TEST(Balance, OfAClientWithoutDocumentsAsksForIdsAlone)
{
    test::Database database;
    const test::Log log;
    database.run("Drop Table GST_BillD, GST_RecpD");
    EXPECT_EQ(balanceOf(database.db(), 1, "A"), 0);
    EXPECT_TRUE(log.isEmpty());
    database.run("Insert Into GST_BillM (BillSrNo,FirmId,Code_No) Values (1,1,'A')");
    EXPECT_EQ(balanceOf(database.db(), 1, "A"), 0) << "what can not be read counts as nothing, and is logged";
    EXPECT_EQ(log.lines().size(), 1U);
    EXPECT_FALSE(allBalances(database.db(), 0)) << "no list is better than a wrong one";
}

} // namespace
} // namespace ledgora
