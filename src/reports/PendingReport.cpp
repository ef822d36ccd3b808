#include "reports/ReportFrame.h"
#include "reports/ReportParties.h"
#include "reports/ReportRun.h"
#include "reports/ReportStore.h"
#include "reports/Reports.h"
#include "store/ErrorLog.h"

namespace ledgora {

namespace {

using enum ReportAlign;

const ReportColumn columns[] = {
    {"Date", Centre, 14},    {"Bill No.", Left, 24}, {"Party Name", Left, 42},      {"Bill Amount", Right, 14},
    {"Discount", Right, 14}, {"TDS", Right, 14},     {"Receipt Amount", Right, 14}, {"Pending Amount", Right, 14},
};
constexpr size_t partyColumn = 2, amountCount = 5;

enum SettledSum { Amount, Discount, Tds, SettledSumCount };

} // namespace

void REPPENDINGBILLS(Connection &db, const ReportRequest &request, ReportWriter &writer, const Progress &progress)
{
    const ErrorSite site(reportScreen, "REPPENDINGBILLS");
    writeOpening(writer, request, periodTitle("Pending Bill Details", request));
    writer.PrintText(QLatin1String(condensedPitch));
    ReportTable table(writer, columns);
    table.writeHeading();
    tellReading(progress);
    const std::vector<ReportDocument> bills = readBills(db, billsOfPeriod(request));
    const auto totalsOfBills = sumsOf<1>(db, billLines, "SUM(TotalAmt) AS TotBillAmt", bills);
    const auto settled = sumsOf<SettledSumCount>(db, settledOfBills,
                                                 "Sum(Amount) AS TotA,Sum(Discount) AS TotD,Sum(TDS) AS TotT", bills);
    const DocumentNumbers numbers(db);
    PartyCells parties(request);
    std::array<double, amountCount> totals{};
    RowProgress rows(progress, bills.size());
    for (const ReportDocument &bill : bills) {
        rows.next();
        const double billed = totalsOfBills.value(bill.id)[0];
        const auto paid = settled.value(bill.id);
        const double pending = billed - paid[Amount] - paid[Discount];
        if (!(pending > 0))
            continue;
        ReportCells cells{reportDate(bill.date), numbers.of(bill), QString()};
        size_t column = 0;
        for (const double amount : {billed, paid[Discount], paid[Tds], paid[Amount] - paid[Tds], pending}) {
            totals[column++] += amount;
            cells.emplace_back(amount == 0 ? QStringLiteral("-") : groupedAmount(amount));
        }
        table.writeRow(std::move(cells), partyColumn, parties.of(bill.code));
    }
    ReportCells total{QString(), QString(), QStringLiteral("Grand Total")};
    for (const double amount : totals)
        total.emplace_back(groupedAmount(amount));
    table.writeTotal(std::move(total));
}

} // namespace ledgora
