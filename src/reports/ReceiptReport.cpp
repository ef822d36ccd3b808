#include "reports/ReceiptLines.h"
#include "reports/ReportFrame.h"
#include "reports/ReportParties.h"
#include "reports/ReportRun.h"
#include "reports/ReportStore.h"
#include "reports/Reports.h"
#include "store/ErrorLog.h"
#include "store/NumberFormat.h"
#include <QSet>

namespace ledgora {

namespace {

using enum ReportAlign;

const ReportColumn columns[] = {
    {"Date", Centre, 12},  {"Receipt No.", Left, 20},   {"Party Name", Left, 28},
    {"Amount", Right, 10}, {"CGST", Right, 10},         {"SGST", Right, 10},
    {"IGST", Right, 10},   {"Total Amount", Right, 10}, {"Bill Nos.", Left, 20},
};
constexpr size_t partyColumn = 2;

using Lines = std::vector<ReceiptLine>;

QHash<int, ReportDocument> billsOf(Connection &db, const QHash<int, Lines> &linesByReceipt)
{
    QSet<int> ids;
    for (const Lines &lines : linesByReceipt) {
        for (const ReceiptLine &line : lines) {
            if (line.billId > 0)
                ids.insert(line.billId);
        }
    }
    return readBillsById(db, ids.values());
}

/// A line for each bill that is still there: its number, its day, what was paid on it.
QString billNumbers(const Lines &lines, const QHash<int, ReportDocument> &bills, const DocumentNumbers &numbers)
{
    QString text;
    for (const ReceiptLine &line : lines) {
        const auto bill = bills.constFind(line.billId);
        if (bill == bills.cend())
            continue;
        if (!text.isEmpty())
            text += QLatin1String(lineBreak);
        text += numbers.of(*bill) + " dated " + reportDate(bill->date) + " - Rs. " + plainNumber(line.amount);
    }
    return text;
}

/// A sum of receipts: what of it is net value and tax, and the whole.
struct Received
{
    TaxedSum sum;
    double total = 0;
};

void addAmounts(ReportCells &cells, const Received &received, const char *zero)
{
    const TaxedSum &sum = received.sum;
    for (const double amount : {sum.net, sum.cgst, sum.sgst, sum.igst, received.total})
        cells.push_back(plainAmount(amount, zero));
}

} // namespace

void REPRECEIPTS(Connection &db, const ReportRequest &request, ReportWriter &writer, const Progress &progress)
{
    const ErrorSite site(reportScreen, "REPRECEIPTS");
    writeOpening(writer, request, periodTitle("Receipt Details", request));
    writer.PrintText(QLatin1String(condensedPitch));
    ReportTable table(writer, columns);
    table.writeHeading();
    tellReading(progress);
    const std::vector<ReportDocument> receipts = readReceipts(db, receiptsOfPeriod(request));
    const QHash<int, Lines> linesByReceipt = linesOfReceipts(db, receipts);
    const QHash<int, ReportDocument> bills = billsOf(db, linesByReceipt);
    const DocumentNumbers numbers(db);
    PartyCells parties(request);
    Received totals;
    RowProgress rows(progress, receipts.size());
    for (const ReportDocument &receipt : receipts) {
        rows.next();
        const Lines lines = linesByReceipt.value(receipt.id);
        Received sum;
        for (const ReceiptLine &line : lines) {
            sum.sum += line.paid;
            sum.total += line.applied;
        }
        totals.sum += sum.sum;
        totals.total += sum.total;
        ReportCells cells{reportDate(receipt.date), numbers.of(receipt), QString()};
        addAmounts(cells, sum, "-");
        cells.emplace_back(billNumbers(lines, bills, numbers));
        table.writeRow(std::move(cells), partyColumn, parties.of(receipt.code));
    }
    ReportCells total{QString(), QString(), QStringLiteral("Total")};
    addAmounts(total, totals, "");
    total.emplace_back(QString());
    table.writeTotal(std::move(total));
}

} // namespace ledgora
