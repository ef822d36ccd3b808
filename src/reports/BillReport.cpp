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
    {"Date", Centre, 14},
    {"Bill No.", Left, 20},
    {"Party Name", Left, 50},
    {"Place of Supply", Left, 20},
    {"Value of Service", Right, 12},
    {"Discount", Right, 12},
    {"Net Amount\r\n(Tax Applicability Wise)", Right, 12, 36, "No Tax"},
    {"", Right, 12, 0, "Intra-State"},
    {"", Right, 12, 0, "Inter-State"},
    {"Tax under Intra-State", Right, 12, 24, "CGST"},
    {"", Right, 12, 0, "SGST"},
    {"Tax under Inter-State", Right, 12, -1, "IGST"},
    {"Total Amount", Right, 12},
};
constexpr size_t partyColumn = 2, firstAmount = 4, amountCount = 9;
using Amounts = std::array<double, amountCount>; ///< of the cells from `firstAmount` on

enum BillSum { Value, Discount, Taxable, Cgst, Sgst, Igst, Total, BillSumCount };
constexpr auto sums = "SUM(ServAmt) AS TotSA,SUM(DiscAmt) AS TotD,SUM(TaxServAmt) AS TotTSA,SUM(CGST) AS TotCGST,"
                      "SUM(SGST) AS TotSGST,SUM(IGST) AS TotIGST,SUM(TotalAmt) AS TotBillAmt";

/// The bill's net amount stands under its kind of tax, and only the taxes of that kind show.
Amounts amountsOf(const ReportDocument &bill, const std::array<double, BillSumCount> &sum)
{
    Amounts amounts{sum[Value], sum[Discount]};
    if (bill.taxType == QLatin1String("NO")) {
        amounts[2] = sum[Taxable];
    } else if (bill.taxType == QLatin1String("INTRA")) {
        amounts[3] = sum[Taxable];
        amounts[5] = sum[Cgst];
        amounts[6] = sum[Sgst];
    } else if (bill.taxType == QLatin1String("INTER")) {
        amounts[4] = sum[Taxable];
        amounts[7] = sum[Igst];
    }
    amounts[8] = sum[Total];
    return amounts;
}

} // namespace

void REPBILLS(Connection &db, const ReportRequest &request, ReportWriter &writer, const Progress &progress)
{
    const ErrorSite site(reportScreen, "REPBILLS");
    writeOpening(writer, request, periodTitle("Bill Details", request));
    writer.PrintText(QLatin1String(condensedPitch));
    ReportTable table(writer, columns);
    table.writeHeading();
    tellReading(progress);
    const DocumentNumbers numbers(db);
    const std::vector<ReportDocument> bills = readBills(db, billsOfPeriod(request));
    const auto sumsOfBills = sumsOf<BillSumCount>(db, billLines, sums, bills);
    PartyCells parties(request);
    Amounts totals{};
    RowProgress rows(progress, bills.size());
    for (const ReportDocument &bill : bills) {
        rows.next();
        ReportCells cells{reportDate(bill.date), numbers.of(bill), QString(), bill.placeOfSupply};
        const Amounts amounts = amountsOf(bill, sumsOfBills.value(bill.id));
        for (size_t i = 0; i < amountCount; ++i) {
            totals[i] += amounts[i];
            cells.emplace_back(amounts[i] == 0 ? QStringLiteral("-") : groupedAmount(amounts[i]));
        }
        table.writeRow(std::move(cells), partyColumn, parties.of(bill.code));
    }
    ReportCells total{QString(), QString(), QStringLiteral("Grand Total"), QString()};
    for (const double amount : totals)
        total.emplace_back(groupedAmount(amount));
    table.writeTotal(std::move(total));
}

} // namespace ledgora
