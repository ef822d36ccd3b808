// The check of an office's data: what it finds in broken rows, in a clerk's words, and that it keeps nobody waiting.

#include "app/care/Check.h"
#include "app/care/SampleData.h"
#include "tests/support/Database.h"
#include "tests/support/Log.h"
#include "tests/support/Print.h"
#include <gtest/gtest.h>

using namespace ledgora;
using namespace ledgora::test;

namespace {

class Check : public testing::Test
{
protected:
    static void SetUpTestSuite() { s_data = std::make_unique<Database>(); }
    static void TearDownTestSuite() { s_data.reset(); }
    static Database &data() { return *s_data; }

    /// A company with four bills and two receipts without a fault: bills 1 to 3 in a series, 1 without one.
    void SetUp() override
    {
        data().empty();
        for (const char *sql :
             {"Insert Into GST_FirmMas (FirmSrNo,Nm) Values (1,'SHARMA\n & ASSOCIATES')",
              "Insert Into GST_OthCl (OthClSrNo,OthClCode,Nm) Values (1,'BILL~OTHCL-000001','ASHOK')",
              "Insert Into GST_Series Values (5,'B',2024,'##/24','P')",
              "Insert Into GST_BillM Values (1,1,2024,'BILL~OTHCL-000001',5,1,'2024-05-01','DELHI','INTRA',''),"
              "(2,1,2024,'BILL~OTHCL-000001',5,2,'2024-05-02','GOA','INTER',''),"
              "(3,1,2024,'BILL~OTHCL-000001',5,3,'2024-05-03','GOA','NO',''),"
              "(4,1,2024,'BILL~OTHCL-000001',0,1,'2024-05-04','GOA','NO','')",
              "Insert Into GST_BillD Values (1,1,'a','','',0,1000,100,900,'N',9,81,9,81,0,0,1062),"
              "(1,2,'b','','',0,100,100,0,'N',9,0,9,0,0,0,0),(2,1,'c','','',0,500,0,500,'Y',0,0,0,0,18,91,591),"
              "(3,1,'d','','',0,500,0,500,'N',0,0,0,0,0,0,500),(4,1,'e','','',0,7,0,7,'N',0,0,0,0,0,0,7)",
              "Insert Into GST_RecpM Values (1,1,2024,'BILL~OTHCL-000001',0,1,'2024-05-02',900,'4',71,'','','','',''),"
              "(2,1,2024,'BILL~OTHCL-000001',0,2,'2024-05-03',500,'0',0,'','','','','')",
              "Insert Into GST_RecpD Values (1,1,1,1000,20,90),(1,2,2,61,30,0),(2,1,2,500,0,0)"})
            data().run(QLatin1String(sql));
    }
    static QStringList found(int firmId = 0)
    {
        const app::CheckResult result = app::checkData(data().db(), "C", firmId, unwatched());
        EXPECT_EQ(result.fault, "");
        QStringList lines;
        for (const app::Finding &finding : result.findings)
            lines << app::findingText(finding);
        return lines;
    }

    const Log m_log;

private:
    static inline std::unique_ptr<Database> s_data;
};

TEST_F(Check, NamesEachFaultAsTheClerkKnowsIt)
{
    struct Case
    {
        const char *name, *harm;
        QStringList found;
    };
    const QString firm = "SHARMA & ASSOCIATES: ";
    const QString first = firm + "Receipt 1 of 02/05/2024, ASHOK ";
    const QString second = firm + "Receipt 2 of 03/05/2024, ASHOK ";
    const QString third = firm + "Bill 3/24 of 03/05/2024, ASHOK ";
    const Case cases[] = {
        {"none", "Do 0", {}},
        {"header alone", "Delete From GST_BillD Where BillId=3", {third + "has no lines."}},
        {"first line lost",
         "Delete From GST_BillD Where BillId=1 And SrNo=1",
         {firm + "Bill 1/24 of 01/05/2024, ASHOK has lines numbered 2 instead of 1 to 1: some are missing or double.",
          firm + "Bill 1/24 of 01/05/2024, ASHOK comes to 0, but 1020 was received on it, discounts included."}},
        {"bill lines alone",
         "Delete From GST_BillM Where BillSrNo In (3,4)",
         {"1 line of together Rs. 500 without a bill (its internal number was 3).",
          "1 line of together Rs. 7 without a bill (its internal number was 4)."}},
        {"line of nothing",
         "Update GST_BillD Set BillId=Null Where BillId=3",
         {"1 line of together Rs. 500 without a bill (its internal number was 0).", third + "has no lines."}},
        {"net amount",
         "Update GST_BillD Set DiscAmt=1 Where BillId=3",
         {third + "line 1: net amount 500 is not amount 500 less discount 1."}},
        {"total",
         "Update GST_BillD Set TotalAmt=590 Where BillId=2",
         {firm + "Bill 2/24 of 02/05/2024, ASHOK line 1: total 590 is not net amount 500 with tax 91.",
          firm + "Bill 2/24 of 02/05/2024, ASHOK comes to 590, but 591 was received on it, discounts included."}},
        {"tax of the other kind",
         "Update GST_BillM Set AppTaxType='INTRA' Where BillSrNo=2",
         {firm + "Bill 2/24 of 02/05/2024, ASHOK line 1: bears IGST, though the bill is intra-state."}},
        {"rate without a tax",
         "Update GST_BillD Set RtSGST=9 Where BillId=3",
         {third + "line 1: bears tax, though the bill has none."}},
        {"tax type", "Update GST_BillM Set AppTaxType='' Where BillSrNo=3", {third + "has the unknown tax type \"\"."}},
        {"gap",
         "Update GST_BillM Set BillNo=6 Where BillSrNo=3",
         {firm + "Bill 3/24 and the numbers up to 5 are missing in 2024-25."}},
        {"first number",
         "Delete GST_BillM,GST_BillD From GST_BillM,GST_BillD Where BillSrNo In (1,4) And BillId=BillSrNo;"
         "Update GST_RecpD Set BillId=0 Where BillId=1",
         {firm + "Bill 1 is missing in 2024-25."}},
        {"gap that another series fills, numbered together", // 1 and 3 here, 2 there
         "Update GST_BillM Set BillSerId=If(BillSrNo=2,0,5),BillNo=If(BillSrNo=4,4,BillNo)",
         {}},
        {"double number",
         "Update GST_BillM Set BillNo=2 Where BillSrNo=3",
         {firm + "Bill 2/24 of 02/05/2024, ASHOK has a number that 2 bills bear."}},
        {"date before that of the lower number",
         "Update GST_BillM Set BillDt='2024-04-30' Where BillSrNo=3",
         {firm + "Bill 3/24 of 30/04/2024, ASHOK is dated before the lower number 2 of 02/05/2024."}},
        {"date of the next year",
         "Update GST_BillM Set BillDt='2025-04-01' Where BillSrNo=3",
         {firm + "Bill 3/24 of 01/04/2025, ASHOK is dated outside its financial year 2024-25."}},
        {"no date", "Update GST_BillM Set BillDt=Null Where BillSrNo=3", {firm + "Bill 3/24, ASHOK has no date."}},
        {"code in other letters",
         "Update GST_BillM Set Code_No='bill~othcl-000001' Where BillSrNo=3",
         {"The client codes \"BILL~OTHCL-000001\" and \"bill~othcl-000001\" differ only in case."}},
        {"client gone",
         "Delete From GST_OthCl",
         {firm
          + "Bill 1/24 of 01/05/2024, BILL~OTHCL-000001 is for a client that is no longer in the directory (4 "
            "bills and 2 receipts)."}},
        {"company gone",
         "Delete From GST_FirmMas",
         {"Company number 1 does not exist any more, but has 4 bills and 2 receipts."}},
        {"receipt alone", "Delete From GST_RecpD Where RecpId=2", {second + "has no lines."}},
        {"receipt lines alone",
         "Delete From GST_RecpM Where RecpSrNo=2",
         {"1 line of together Rs. 500 without a receipt (its internal number was 2)."}},
        {"receipt's first line lost",
         "Delete From GST_RecpD Where RecpId=1 And SrNo=1",
         {first + "has lines numbered 2 instead of 1 to 1: some are missing or double.",
          first + "received 971, which is not its amounts 61 less TDS 0."}},
        {"money of another sum",
         "Update GST_RecpD Set TDS=91 Where SrNo=1 And RecpId=1",
         {first + "received 971, which is not its amounts 1061 less TDS 91."}},
        {"settled bill deleted",
         "Update GST_RecpD Set BillId=77 Where RecpId=2",
         {second + "line 1: settles a bill that does not exist any more (its internal number was 77)."}},
        {"line without a bill is money", "Update GST_RecpD Set BillId=0 Where RecpId=2", {}},
        {"receipt before its bill",
         "Update GST_BillM Set BillDt='2024-05-03' Where BillSrNo=2",
         {first + "line 2: settles Bill 2/24 of 03/05/2024, a later day."}},
        {"two users received on one bill at once",
         "Update GST_RecpD Set Discount=31 Where RecpId=1 And BillId=2",
         {firm + "Bill 2/24 of 02/05/2024, ASHOK comes to 591, but 592 was received on it, discounts included."}},
        {"receipt numbers and dates",
         "Update GST_RecpM Set RecpNo=4,RecpDt='2024-05-01' Where RecpSrNo=2",
         {firm + "Receipt 4 of 01/05/2024, ASHOK line 1: settles Bill 2/24 of 02/05/2024, a later day.",
          firm + "Receipt 2 and the numbers up to 3 are missing in 2024-25.",
          firm + "Receipt 4 of 01/05/2024, ASHOK is dated before the lower number 1 of 02/05/2024."}},
        {"double receipt number",
         "Update GST_RecpM Set RecpNo=1",
         {firm + "Receipt 1 of 02/05/2024, ASHOK has a number that 2 receipts bear."}},
    };
    for (const Case &c : cases) {
        SetUp();
        for (const QString &sql : QString(c.harm).split(';'))
            data().run(sql);
        EXPECT_EQ(found(), c.found) << c.name;
    }
}

TEST_F(Check, OfOneCompanyPassesOverTheOthers)
{
    data().run("Insert Into GST_FirmMas (FirmSrNo,Nm) Values (2,'OTHER')");
    data().run("Update GST_BillM Set FirmId=2,BillDt=Null Where BillSrNo=2");
    EXPECT_EQ(found(1), QStringList{"SHARMA & ASSOCIATES: Bill 2/24 is missing in 2024-25."});
    EXPECT_EQ(app::checkData(data().db(), "C", 3, unwatched()).fault, "There is no company number 3.");
}

TEST_F(Check, FindsNothingInASampleAndKeepsNoSaveWaiting)
{
    data().empty();
    ASSERT_EQ(app::writeSample(data().db(), app::settledPlan({.bills = 5000, .from = 2020, .today = {}})).fault, "");
    const app::CheckResult cancelled =
        app::checkData(data().db(), "C", 0, [](qint64 done, qint64, const QString &) { return done == 0; });
    EXPECT_EQ(cancelled.fault, "It was cancelled.");
    int asked = 0;
    const app::CheckResult result = app::checkData(data().db(), "C", 0, [&](qint64, qint64, const QString &) {
        ++asked;
        Connection &clerk = data().other(); // waits one second at most
        EXPECT_TRUE(clerk.Execute("LOCK TABLE GST_BillM Write"));
        EXPECT_TRUE(clerk.Execute(QString("Insert Into GST_BillM (BillSrNo) Values (%1)").arg(10'000 + asked)));
        EXPECT_TRUE(clerk.Execute("UNLOCK TABLES"));
        EXPECT_TRUE(clerk.Execute("Flush Tables"));
        return true;
    });
    EXPECT_GE(asked, 2);
    EXPECT_EQ(result.fault, "");
    EXPECT_EQ(result.bills, 5000);
    EXPECT_GT(result.receipts, 3000);
    EXPECT_EQ(result.findings.size(), 0U);
}

} // namespace
