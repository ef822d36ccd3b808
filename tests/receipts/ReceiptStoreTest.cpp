// Bills on offer, and a receipt whose clerk is killed in the middle of saving it.

#include "receipts/ReceiptStore.h"
#include "app/PrivateServer.h"
#include "app/SessionModes.h"
#include "app/care/Check.h"
#include "receipts/OpenBills.h"
#include "receipts/PaymentSplit.h"
#include "tests/support/Database.h"
#include "tests/support/Print.h"
#include "tests/support/StatementProxy.h"
#include <QTemporaryDir>
#include <csignal>
#include <gtest/gtest.h>
#include <mysql.h>
#include <sys/wait.h>
#include <unistd.h>

namespace ledgora::test {
namespace {

/// A server of the suite's own, with a company, a client and a bill of 1000 for each number from 1 to 3.
class ReceiptStore : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_server.start()) << m_server.error().toStdString();
        qputenv("LEDGORA_TEST_SOCKET", m_server.socketPath().toLocal8Bit());
        m_data = std::make_unique<Database>();
        data().run("Insert Into GST_FirmMas (FirmSrNo,Nm) Values (1,'SHARMA')");
        data().run("Insert Into GST_OthCl (OthClSrNo,OthClCode,Nm) Values (1,'BILL~OTHCL-000001','ASHOK')");
        for (int bill = 1; bill <= 3; ++bill)
            addBill(bill, 1, 2024, "BILL~OTHCL-000001", bill, "2024-05-01", 1000);
    }
    void TearDown() override
    {
        m_data.reset();
        qunsetenv("LEDGORA_TEST_SOCKET");
    }
    Database &data() { return *m_data; }
    QString proxyAddress() const { return m_folder.filePath("proxy.sock"); }
    QString serverAddress() const { return m_server.socketPath(); }
    void addBill(int id, int firm, int year, const char *party, int billNo, const char *date, double total)
    {
        data().run(QString("Insert Into GST_BillM Values (%1,%2,%3,'%4',0,%5,'%6','GOA','NO','')")
                       .arg(id)
                       .arg(firm)
                       .arg(year)
                       .arg(party)
                       .arg(billNo)
                       .arg(date));
        data().run(
            QString("Insert Into GST_BillD Values (%1,1,'w','','',0,%2,0,%2,'N',0,0,0,0,0,0,%2)").arg(id).arg(total));
    }
    static ReceiptDraft receiptOf(int number)
    {
        ReceiptDraft receipt;
        receipt.firmId = 1;
        receipt.year = 2024;
        receipt.code = "BILL~OTHCL-000001";
        receipt.number = QString::number(number);
        receipt.date = "15/06/2024";
        receipt.cash = 1000;
        receipt.rows[0] = {number, 1000, 0, 0};
        return receipt;
    }

private:
    QTemporaryDir m_folder;
    app::PrivateServer m_server{{.dataFolder = m_folder.path(), .lockWaitSeconds = 1}};
    std::unique_ptr<Database> m_data;
};

TEST_F(ReceiptStore, BillsOnOfferAreThePartysOfAllYearsUpToTheDate)
{
    addBill(11, 1, 2023, "X''1", 9, "2024-03-31", 1180.5);
    addBill(12, 1, 2024, "X''1", 10, "2024-06-15", 500);
    addBill(13, 1, 2024, "X''1", 2, "2024-06-15", 300);
    addBill(14, 1, 2024, "X''1", 3, "2024-06-16", 300);
    addBill(15, 2, 2024, "X''1", 4, "2024-06-01", 300);
    data().run("Insert Into GST_RecpD Values (1,1,11,100,50,40),(2,1,11,30,0,0),(3,1,12,500,0,0),(3,2,2,7,0,0)");
    Cells bills = emptyOpenBills();
    const auto pending = [&] {
        QStringList texts;
        for (int row = 1; row < bills.rows(); ++row)
            texts << bills.text(row, OpenBillSrNo) + ':' + bills.text(row, OpenBillPending)
                         + (bills.isHidden(row) ? "-" : "");
        return texts.join(' ');
    };
    LOADBILLLIST(data().db(), bills, 1, "X'1", "15/06/2024", 2);
    EXPECT_EQ(pending(), "11:1030 13:300 12:0") << "half to even; the receipt's own lines left out";
    ReceiptRows rows;
    rows[0] = {13, 200, 0, 0};
    rows[4] = {13, 50, 50, 50};
    rows[5] = {11, 1031, 0, 0};
    REFRESHBILLLIST(bills, rows);
    EXPECT_EQ(pending(), "11:0- 13:0- 12:0-") << "1030.5 less 1031 is even nothing";
    rows[5].amount = 1032;
    REFRESHBILLLIST(bills, rows);
    EXPECT_FALSE(VALIDBILLAMT(bills, rows[5]));
    EXPECT_TRUE(VALIDBILLAMT(bills, rows[4]) && VALIDBILLAMT(bills, ReceiptRow{}));
    EXPECT_EQ(openBillHint(bills, 1), "1180, 31/03/2024");
    LOADBILLLIST(data().db(), bills, 1, "X'1", "15/06/20__", 0);
    EXPECT_FALSE(bills.hasData());
}

TEST_F(ReceiptStore, ClerkKilledBetweenHeaderAndLinesLeavesWhatTheCheckCanName)
{
    ASSERT_TRUE(saveReceipt(data().db(), receiptOf(1)).whole());
    StatementProxy road(proxyAddress(), serverAddress());
    road.stopAt(StatementProxy::Stop::KillClient, "Delete From GST_RecpD");
    const pid_t victim = fork();
    if (victim == 0) {
        MYSQL *handle = app::newHandle(1);
        mysql_real_connect(handle, nullptr, "root", nullptr, data().name().toUtf8().constData(), 0,
                           road.address().toLocal8Bit().constData(), app::connectFlags());
        Connection db(handle);
        saveReceipt(db, receiptOf(2));
        _exit(0);
    }
    ASSERT_TRUE(road.waitForStop());
    int status = 0;
    ASSERT_EQ(waitpid(victim, &status, 0), victim);
    EXPECT_TRUE(WIFSIGNALED(status));
    EXPECT_TRUE(saveReceipt(data().db(), receiptOf(3)).whole());
    EXPECT_EQ(data().rows("Select RecpSrNo,RecpNo,BillId,Amount From GST_RecpM Left Join GST_RecpD On "
                          "RecpId=RecpSrNo Order By RecpSrNo"),
              (QStringList{"1|1|1|1000", "2|2|NULL|NULL", "3|3|3|1000"}));
    QStringList found;
    for (const app::Finding &finding : app::checkData(data().db(), "C", 0, unwatched()).findings)
        found << app::findingText(finding);
    EXPECT_TRUE(found.contains("SHARMA: Receipt 2 of 15/06/2024, ASHOK has no lines."))
        << found.join('\n').toStdString();
}

TEST_F(ReceiptStore, LockHeldPastTheTimeOutStoresNothingAndTouchesNoOtherReceipt)
{
    ASSERT_TRUE(saveReceipt(data().db(), receiptOf(1)).whole()); // id 1: what an id read in vain would name
    data().other().Execute("LOCK TABLE GST_RecpM Write");
    const SaveResult held = saveReceipt(data().db(), receiptOf(2));
    data().other().Execute("UNLOCK TABLES");
    EXPECT_EQ(held.id, 0);
    EXPECT_FALSE(held.headerIn);
    EXPECT_EQ(data().rows("Select RecpId,SrNo,BillId From GST_RecpD"), QStringList{"1|1|1"});
    const SaveResult again = saveReceipt(data().db(), receiptOf(2));
    EXPECT_TRUE(again.whole());
    EXPECT_EQ(again.id, 2);
}

TEST_F(ReceiptStore, MoneyOfTwoUsersOnOneBillIsStoredAsTypedTaxedInOrderAndFoundByTheCheck)
{
    data().run("Update GST_BillD Set CGST=90,SGST=90,RtCGST=9,RtSGST=9,TotalAmt=1180 Where BillId=1");
    data().run("Update GST_BillM Set AppTaxType='INTRA' Where BillSrNo=1");
    ReceiptDraft first = receiptOf(1);
    ReceiptDraft second = receiptOf(2);
    second.rows[0] = {1, 1000, 0, 0}; // both saw the whole bill unpaid
    ASSERT_TRUE(saveReceipt(data().db(), first).whole());
    ASSERT_TRUE(saveReceipt(data().other(), second).whole());
    const auto taxes = [this](int receipt) {
        const PaymentSplit split = splitOfReceipt(data().db(), receipt, "15/06/2024", receipt, {{1, 1000, 0}}).front();
        return QString("%1 of it: %2").arg(split.amount.applied.value_or(-1)).arg(split.amount.cgst.value_or(-1));
    };
    EXPECT_EQ(taxes(1), "1000 of it: 76");
    EXPECT_EQ(taxes(2), "180 of it: 14") << "the later one settles what the earlier left";
    QStringList found;
    for (const app::Finding &finding : app::checkData(data().db(), "C", 0, unwatched()).findings)
        found << app::findingText(finding);
    ASSERT_EQ(found.size(), 1) << found.join('\n').toStdString();
    EXPECT_TRUE(found.first().startsWith("SHARMA: Bill 1 of 01/05/2024, ASHOK")) << found.first().toStdString();
}

} // namespace
} // namespace ledgora::test
