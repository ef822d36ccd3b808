// The tax inside payments: at a keystroke of the receipt screen, and of many receipts at once for a report.

#include "Filler.h"
#include "Office.h"
#include "Ratios.h"
#include "receipts/SplitBatch.h"
#include "store/Connection.h"
#include <mysql.h>
#include <string>

namespace ledgora::bench {

namespace {

constexpr int firm = 900; // of its own, beside those of other benchmarks
constexpr int openBills = 5'000;
constexpr int receipts = 100'000;
constexpr int rows = 10;
constexpr auto keystrokeName = "split of ten rows, Ledgora";
constexpr auto bareKeystrokeName = "split of ten rows, bare queries";
constexpr auto batchName = "split of 100,000 receipts, Ledgora";
constexpr auto bareBatchName = "split of 100,000 receipts, bare queries";

/// The first of a party's open bills, on which all receipts were given; made when first asked for.
int firstBill()
{
    static const int first = [] {
        Connection db(Office::instance().handle());
        fillBills(db, firm, 2024, openBills, 1);
        const int lowestId = [&] {
            Recordset lowest = db.Open(QStringLiteral("Select Min(BillSrNo) From GST_BillM Where FirmId=%1").arg(firm));
            return lowest.next() ? int(lowest.integer(0)) : 0;
        }();
        fillReceipts(db, firm, 2024, receipts, lowestId, openBills);
        return lowestId;
    }();
    return first;
}

std::vector<PaymentRow> typedRows()
{
    std::vector<PaymentRow> typed;
    typed.reserve(rows);
    for (int row = 0; row < rows; ++row)
        typed.push_back({firstBill() + row * 400, 1000, 50});
    return typed;
}

/// Sends a query and takes its whole answer.
bool fetch(const std::string &sql)
{
    MYSQL *handle = Office::instance().handle();
    if (mysql_real_query(handle, sql.data(), static_cast<unsigned long>(sql.size())) != 0)
        return false;
    MYSQL_RES *result = mysql_store_result(handle);
    while (result && mysql_fetch_row(result)) {
    }
    mysql_free_result(result);
    return true;
}

bool fetchSums(const std::string &bills)
{
    return fetch("Select BillId,SUM(TaxServAmt),SUM(CGST),SUM(SGST),SUM(IGST) from GST_BillD Where BillId IN (" + bills
                 + ") GROUP BY BillId")
           && fetch("Select BillId,RecpSrNo,RecpDt,RecpNo,Sum(Amount),Sum(Discount) from GST_RecpM Join GST_RecpD ON "
                    "RecpSrNo=RecpId Where BillId IN ("
                    + bills + ") Group by RecpId,BillId Order by RecpDt,RecpNo,Min(SrNo),RecpSrNo");
}

std::string billIds(int count, int step)
{
    std::string ids = std::to_string(firstBill());
    for (int bill = 1; bill < count; ++bill)
        ids += ',' + std::to_string(firstBill() + bill * step);
    return ids;
}

void keystroke(benchmark::State &state)
{
    const std::vector<PaymentRow> typed = typedRows();
    Connection db(Office::instance().handle());
    for ([[maybe_unused]] const auto round : state)
        benchmark::DoNotOptimize(splitOfReceipt(db, 0, QStringLiteral("31/03/2025"), receipts + 1, typed));
}

void bareKeystroke(benchmark::State &state)
{
    const std::string bills = billIds(rows, 400);
    for ([[maybe_unused]] const auto round : state)
        if (!fetchSums(bills))
            return state.SkipWithError("a query failed");
}

void batch(benchmark::State &state)
{
    firstBill();
    Connection db(Office::instance().handle());
    for ([[maybe_unused]] const auto round : state)
        if (splitsOfCompany(db, firm, {}).size() < receipts)
            return state.SkipWithError("receipts are missing");
}

void bareBatch(benchmark::State &state)
{
    const std::string bills = billIds(openBills, 1);
    for ([[maybe_unused]] const auto round : state)
        if (!fetch("Select RecpSrNo,RecpDt,RecpNo,SrNo,BillId,Amount,Discount,TDS from GST_RecpM Join GST_RecpD ON "
                   "RecpSrNo=RecpId Where FirmId="
                   + std::to_string(firm) + " Order by RecpDt,RecpNo,RecpSrNo,SrNo")
            || !fetchSums(bills))
            return state.SkipWithError("a query failed");
}

const int registered = [] {
    benchmark::RegisterBenchmark(keystrokeName, keystroke)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark(bareKeystrokeName, bareKeystroke)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark(batchName, batch)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark(bareBatchName, bareBatch)->Unit(benchmark::kMillisecond);
    compare("split of a receipt among 5,000 open bills", keystrokeName, bareKeystrokeName, 1.5);
    compare("split of 100,000 receipts at once", batchName, bareBatchName, 2);
    return 0;
}();

} // namespace

} // namespace ledgora::bench
