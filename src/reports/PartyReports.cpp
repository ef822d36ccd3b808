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
    const QString where = billsOfPeriod(request);
    const auto onBills = sumsOf<1>(db, billLines, "Sum(DiscAmt) as TotD", where);
    const auto onReceipts = sumsOf<1>(db, settledOfBills, "Sum(Discount) as TotD", where);
    for (const ReportDocument &bill : readBills(db, where)) {
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
    const QString where = receiptsOfPeriod(request);
    const auto deducted = sumsOf<1>(db, receiptLines, "Sum(TDS) as TotD", where);
    for (const ReportDocument &receipt : readReceipts(db, where)) {
        const std::array<double, 1> amount = deducted.value(receipt.id);
        if (amount[0] != 0)
            table.add(receipt.code, amount);
    }
    writeOpening(writer, request, periodTitle("TDS Details - Party Wise", request));
    writeParties(writer, tdsColumns, table.summary(), parties, progress);
}

} // namespace ledgora
