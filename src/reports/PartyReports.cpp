#include "reports/PartyTable.h"
#include "reports/ReportFrame.h"
#include "reports/ReportParties.h"
#include "reports/ReportRun.h"
#include "reports/ReportStore.h"
#include "reports/Reports.h"
#include "store/ErrorLog.h"

namespace ledgora {

namespace {

using enum ReportAlign;

const ReportColumn discountColumns[] = {
    {"Party Name", Left, 50}, {"Amount (Bill)", Right, 14}, {"Amount (Receipt)", Right, 14}};
const ReportColumn tdsColumns[] = {{"Party Name", Left, 64}, {"Amount", Right, 14}};

} // namespace

void REPDISCOUNT(Connection &db, const ReportRequest &request, ReportWriter &writer, const Progress &progress)
{
    const ErrorSite site(reportScreen, "REPDISCOUNT");
    PartyCells parties(request);
    PartyTable table(db, "TempClDiscGST", {"Amt1", "Amt2"}, parties);
    tellReading(progress);
    const std::vector<ReportDocument> bills = readBills(db, billsOfPeriod(request));
    const auto onBills = sumsOf<1>(db, billLines, "Sum(DiscAmt) as TotD", bills);
    const auto onReceipts = sumsOf<1>(db, settledOfBills, "Sum(Discount) as TotD", bills);
    for (const ReportDocument &bill : bills) {
        const double amounts[] = {onBills.value(bill.id)[0], onReceipts.value(bill.id)[0]};
        if (amounts[0] != 0 || amounts[1] != 0)
            table.add(bill.code, amounts);
    }
    writeOpening(writer, request, periodTitle("Discount Details - Party Wise", request));
    writeParties(writer, discountColumns, table.summary(), parties, progress);
}

void REPTDS(Connection &db, const ReportRequest &request, ReportWriter &writer, const Progress &progress)
{
    const ErrorSite site(reportScreen, "REPTDS");
    PartyCells parties(request);
    PartyTable table(db, "TempClTdsGST", {"Amt"}, parties);
    tellReading(progress);
    const std::vector<ReportDocument> receipts = readReceipts(db, receiptsOfPeriod(request));
    const auto deducted = sumsOf<1>(db, receiptLines, "Sum(TDS) as TotD", receipts);
    for (const ReportDocument &receipt : receipts) {
        const std::array<double, 1> amount = deducted.value(receipt.id);
        if (amount[0] != 0)
            table.add(receipt.code, amount);
    }
    writeOpening(writer, request, periodTitle("TDS Details - Party Wise", request));
    writeParties(writer, tdsColumns, table.summary(), parties, progress);
}

} // namespace ledgora
