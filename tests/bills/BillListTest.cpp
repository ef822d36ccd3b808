#include "bills/BillList.h"

#include "store/Connection.h"
#include "tests/support/Print.h"
#include "tests/support/StoreTest.h"
#include <gtest/gtest.h>

namespace ledgora {
namespace {

/// Ids of the listed bills from the top.
QString order(const Cells &bills)
{
    QStringList ids;
    for (int row = 1; row < bills.rows(); ++row)
        ids << bills.text(row, ListBillSrNo);
    return ids.join(' ');
}

QStringList rowOf(const Cells &bills, int id)
{
    QStringList texts;
    const int row = bills.find(QString::number(id), ListBillSrNo);
    for (int column = 0; column < BillListColumnCount; ++column)
        texts << bills.text(row, column);
    return texts;
}

class BillList : public test::StoreTest
{
protected:
    void SetUp() override
    {
        StoreTest::SetUp();
        parties = Cells(PartyColumnCount, 1);
        for (const auto &[code, name] :
             {std::pair("c1", "Zeta small"), {"C1", "Asha"}, {"D9", "Mohan"}, {"B7", "asha"}})
            parties.addRow({code, name});
        parties.sort(PartyName, Cells::Sort::Text);
        // id, company, year, party, series, number, date
        put(1, 1, 2024, "C1", 0, 10, "2024-05-01");
        put(2, 1, 2024, "D9", 0, 9, "2024-05-01");
        put(3, 1, 2024, "c1", 0, 1, "2024-12-01");
        put(4, 1, 2024, "gone", 0, 2, "2024-04-15");
        put(5, 2, 2024, "C1", 0, 1, "2024-05-01");
        put(6, 1, 2023, "C1", 0, 1, "2024-03-31");
        database->run(
            "Insert Into GST_BillD (BillId,SrNo,TotalAmt) Values (1,1,100),(1,2,18.5),(2,1,59),(5,1,7),(4,1,NULL)");
    }

    static void put(int id, int firm, int year, const char *party, int series, int billNo, const char *date)
    {
        database->run(
            QStringLiteral(
                "Insert Into GST_BillM Values (%1,%2,%3,'%4',%5,%6,'%7 00:00:00','GUJARAT','INTER','Narr %1')")
                .arg(id)
                .arg(firm)
                .arg(year)
                .arg(party)
                .arg(series)
                .arg(billNo)
                .arg(date));
    }
    void load(int id = 0, bool clientWise = false)
    {
        loadBillList(database->db(), bills, parties, 1, 2024, id, clientWise);
    }

    Cells parties;
    Cells bills = emptyBillList();
};

TEST_F(BillList, IsByDateThenNumberOrByNameFirst)
{
    load();
    EXPECT_EQ(order(bills), "4 2 1 3") << "number 9 before 10, by value";
    load(0, true);
    EXPECT_EQ(order(bills), "4 1 2 3");
    EXPECT_EQ(parties.text(1, PartyName), "Asha") << "the directory is by name again";
    EXPECT_EQ(parties.text(4, PartyName), "Zeta small");
    EXPECT_TRUE(log.isEmpty());
}

TEST_F(BillList, RowShowsTheBillItsPartyAndItsSum)
{
    load();
    EXPECT_EQ(rowOf(bills, 1),
              (QStringList{"1", "C1", "0", "10", "01/05/2024", "", "GUJARAT", "INTER", "Narr 1", "Asha", "118.5"}));
    EXPECT_EQ(rowOf(bills, 3).at(ListReceiverName), "Zeta small") << "codes mind their case";
    EXPECT_EQ(rowOf(bills, 3).at(ListBillAmount), "0") << "no lines";
    EXPECT_EQ(rowOf(bills, 4).at(ListReceiverName), "") << "the party left the directory";
    EXPECT_EQ(rowOf(bills, 4).at(ListBillAmount), "0");
}

TEST_F(BillList, HeadingsAreTheColumnsTold)
{
    QStringList headings;
    for (int column = 0; column < bills.columns(); ++column)
        headings << bills.text(0, column);
    EXPECT_EQ(headings.join('|'),
              "BillSrNo|PartyCode|BillSerId|Bill No.|Bill Date|GSTIN|POS|AppTaxType|Narr|Receiver Name|Bill Amount");
}

TEST_F(BillList, RefreshTouchesOneBillAlone)
{
    load();
    database->run("Update GST_BillM Set Code_No='D9', BillNo=3, BillDt='2025-01-01 00:00:00' Where BillSrNo=2");
    database->run("Update GST_BillD Set TotalAmt=60 Where BillId=2");
    database->run("Update GST_BillM Set BillNo=55 Where BillSrNo=1");
    load(2);
    EXPECT_EQ(order(bills), "4 1 3 2");
    EXPECT_EQ(rowOf(bills, 2).at(ListBillAmount), "60");
    EXPECT_EQ(rowOf(bills, 2).at(ListReceiverName), "Mohan");
    EXPECT_EQ(rowOf(bills, 1).at(ListBillNo), "10") << "as it was read before";
    put(9, 1, 2024, "B7", 0, 20, "2024-05-02");
    load(9, true);
    EXPECT_EQ(order(bills), "4 1 9 2 3") << "Asha before asha";
    database->run("Delete From GST_BillM Where BillSrNo=1");
    load(1);
    EXPECT_EQ(order(bills), "4 9 3 2");
}

TEST_F(BillList, BillThatMovedToAnotherYearLeavesTheList)
{
    load();
    database->run("Update GST_BillM Set FYr=2023 Where BillSrNo=4");
    load(4);
    EXPECT_EQ(order(bills), "2 1 3");
}

TEST_F(BillList, EqualDateAndNumberStayByIdWhateverTheOrderBefore)
{
    put(7, 1, 2024, "D9", 3, 10, "2024-05-01");
    put(8, 1, 2024, "B7", 4, 10, "2024-05-01");
    load();
    EXPECT_EQ(order(bills), "4 2 1 7 8 3");
    load(0, true);
    EXPECT_EQ(order(bills), "4 1 8 2 7 3");
    sortDocuments(bills, billListColumns, false); // the box unchecked, without a query
    EXPECT_EQ(order(bills), "4 2 1 7 8 3");
}

TEST_F(BillList, FailedQueryEmptiesTheListAndIsLogged)
{
    load();
    database->run("Rename Table GST_BillM To Away");
    load();
    database->run("Rename Table Away To GST_BillM");
    EXPECT_FALSE(bills.hasData());
    EXPECT_EQ(log.lines().size(), 1U);
    load();
    EXPECT_EQ(order(bills), "4 2 1 3");
}

TEST_F(BillList, ThousandsOfBillsFindTheirNamesAndSums)
{
    constexpr int count = 3000;
    database->empty();
    QStringList headers;
    QStringList lines;
    parties.clearData();
    for (int i = 1; i <= count; ++i) {
        // Party numbers run against the ids, so that nothing fits by chance.
        headers << QStringLiteral("(%1,1,2024,'P%2',0,%1,'2024-05-01','','NO','')").arg(i).arg(count - i);
        lines << QStringLiteral("(%1,1,%2)").arg(i).arg(i * 2);
        parties.addRow({"P" + QString::number(i - 1), "Name " + QString::number(i - 1)});
    }
    database->run("Insert Into GST_BillM Values " + headers.join(','));
    database->run("Insert Into GST_BillD (BillId,SrNo,TotalAmt) Values " + lines.join(','));
    load();
    ASSERT_EQ(bills.rows(), count + 1);
    for (int row = 1; row <= count; ++row) {
        ASSERT_EQ(bills.text(row, ListBillSrNo), QString::number(row));
        ASSERT_EQ(bills.text(row, ListReceiverName), "Name " + QString::number(count - row));
        ASSERT_EQ(bills.text(row, ListBillAmount), QString::number(row * 2));
    }
}

TEST(SelectedBill, IsTheRefreshedOneElseTheRowWhereItWas)
{
    Cells bills(1, 1);
    for (const char *id : {"11", "12", "13"})
        bills.addRow({id});
    const struct
    {
        const char *rule;
        int id, remembered, row;
    } cases[] = {{"the saved bill", 13, 1, 3},
                 {"a deleted bill: the neighbour that moved up", 99, 2, 2},
                 {"a deleted last bill: the new last", 99, 4, 3},
                 {"nothing remembered", 99, -1, 1},
                 {"the heading was remembered", 99, 0, 1},
                 {"a reload", 0, 2, 2}};
    for (const auto &c : cases)
        EXPECT_EQ(rowAfterRefresh(bills, 0, c.id, c.remembered), c.row) << c.rule;
    bills.clearData();
    EXPECT_EQ(rowAfterRefresh(bills, 0, 99, 1), -1);
}

TEST(RemovedBill, LeavesInEveryRow)
{
    Cells bills(1, 1);
    for (const char *id : {"1", "11", "1", "1", "2"})
        bills.addRow({id});
    removeDocument(bills, 0, 1);
    ASSERT_EQ(bills.rows(), 3);
    EXPECT_EQ(bills.text(1, 0), "11");
    EXPECT_EQ(bills.text(2, 0), "2");
}

} // namespace
} // namespace ledgora
