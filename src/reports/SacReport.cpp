#include "reports/ReportFrame.h"
#include "reports/ReportParties.h"
#include "reports/ReportRun.h"
#include "reports/ReportStore.h"
#include "reports/Reports.h"
#include "store/ErrorLog.h"
#include "store/SqlText.h"

namespace ledgora {

namespace {

using enum ReportAlign;

const ReportColumn columns[] = {
    {"Date", Centre, 12}, {"Bill No.", Left, 20}, {"Party Name", Left, 50}, {"Amount", Right, 12},
    {"CGST", Right, 12},  {"SGST", Right, 12},    {"IGST", Right, 12},      {"Total", Right, 12},
};
constexpr size_t partyColumn = 2, sumCount = 4;
using SacSums = std::array<double, sumCount>;

/// The code of an entry of `sacEntries`, "" for lines without one.
QString sacOf(int entry)
{
    constexpr int blankEntry = 1;
    const QString text = QLatin1String(sacEntries[entry]);
    return entry == blankEntry ? QString() : text.left(text.indexOf(QLatin1String(" - ")));
}

/// In a total row, where a zero is empty, the sum of all too.
void addAmounts(ReportCells &cells, const SacSums &sums, const char *zero)
{
    double total = 0;
    for (const double sum : sums) {
        total += sum;
        cells.push_back(plainAmount(sum, zero));
    }
    cells.push_back(*zero ? PlaceholderValue(total) : plainAmount(total, zero));
}

/// What the sections read alike.
struct SacBills
{
    const std::vector<ReportDocument> bills;
    const DocumentNumbers numbers;
    PartyCells parties;
};

void writeSection(ReportWriter &writer, const QString &title, SacBills &shared, const Sums<sumCount> &sumsOfBills,
                  const Progress &progress)
{
    writer.PrintText(QLatin1String(normalPitch));
    writeFreeLine(writer, title);
    writer.PrintText(QLatin1String(condensedPitch));
    ReportTable table(writer, columns);
    table.writeHeading();
    SacSums totals{};
    RowProgress rows(progress, shared.bills.size());
    for (const ReportDocument &bill : shared.bills) {
        rows.next();
        const SacSums sums = sumsOfBills.value(bill.id);
        if (sums == SacSums{})
            continue;
        for (size_t i = 0; i < sumCount; ++i)
            totals[i] += sums[i];
        ReportCells cells{reportDate(bill.date), shared.numbers.of(bill), QString()};
        addAmounts(cells, sums, "-");
        table.writeRow(std::move(cells), partyColumn, shared.parties.of(bill.code));
    }
    ReportCells total{QString(), QString(), QStringLiteral("Total")};
    addAmounts(total, totals, "");
    table.writeTotal(std::move(total));
}

} // namespace

void REPSAC(Connection &db, const ReportRequest &request, ReportWriter &writer, const Progress &progress)
{
    const ErrorSite site(reportScreen, "REPSAC");
    writeOpening(writer, request, periodTitle("SAC Wise Bill Details", request));
    tellReading(progress);
    SacBills shared{readBills(db, billsOfPeriod(request)), DocumentNumbers(db), PartyCells(request)};
    for (int entry = 1; entry < int(std::size(sacEntries)); ++entry) {
        if (request.sac != 0 && request.sac != entry)
            continue;
        const auto sums = sumsOf<sumCount>(
            db, billLines, "SUM(TaxServAmt) AS TotTSA,SUM(CGST) AS TotCGST,SUM(SGST) AS TotSGST,SUM(IGST) AS TotIGST",
            shared.bills, "SAC=" + quoted(sacOf(entry)));
        if (!sums.isEmpty())
            writeSection(writer, QLatin1String(sacEntries[entry]), shared, sums, progress);
    }
}

} // namespace ledgora
