#include "reports/ReceiptLines.h"

#include "receipts/SplitBatch.h"
#include "reports/ReportRun.h"
#include <QSet>

namespace ledgora {

namespace {

TaxedSum taxedSum(const TaxShare &share)
{
    const double cgst = share.cgst.value_or(0);
    const double sgst = share.sgst.value_or(0);
    const double igst = share.igst.value_or(0);
    return {share.applied.value_or(0) - cgst - sgst - igst, cgst, sgst, igst};
}

ReceiptLine storedLine(const SplitRow &row)
{
    return {.billId = row.row.billId,
            .amount = row.row.amount,
            .discount = row.row.discount,
            .tds = row.tds,
            .paid = {},
            .allowed = {}};
}

ReceiptLine taxedLine(const SplitRow &row)
{
    ReceiptLine line = storedLine(row);
    line.applied = row.split.amount.applied.value_or(0);
    line.appliedDiscount = row.split.discount.applied.value_or(0);
    line.paid = taxedSum(row.split.amount);
    line.allowed = taxedSum(row.split.discount);
    return line;
}

ReceiptLine untaxedLine(const SplitRow &row)
{
    ReceiptLine line = storedLine(row);
    line.applied = line.paid.net = line.amount;
    line.appliedDiscount = line.allowed.net = line.discount;
    return line;
}

bool settledNothing(const SplitRow &row)
{
    return !row.split.amount.applied && !row.split.discount.applied;
}

/// The bills of lines that settled nothing: paid before, or gone.
QHash<int, ReportDocument> billsInDoubt(Connection &db, const std::vector<SplitRow> &rows)
{
    QSet<int> ids;
    for (const SplitRow &row : rows) {
        if (settledNothing(row) && row.row.billId != 0)
            ids.insert(row.row.billId);
    }
    return readBillsById(db, ids.values());
}

} // namespace

TaxedSum &TaxedSum::operator+=(const TaxedSum &other)
{
    net += other.net;
    cgst += other.cgst;
    sgst += other.sgst;
    igst += other.igst;
    return *this;
}

TaxedSum &TaxedSum::operator-=(const TaxedSum &other)
{
    net -= other.net;
    cgst -= other.cgst;
    sgst -= other.sgst;
    igst -= other.igst;
    return *this;
}

QHash<int, std::vector<ReceiptLine>> linesOfReceipts(Connection &db, const std::vector<ReportDocument> &receipts)
{
    QList<int> ids;
    ids.reserve(qsizetype(receipts.size()));
    for (const ReportDocument &receipt : receipts)
        ids << receipt.id;
    const std::vector<SplitRow> rows = splitsOfReceipts(db, ids);
    checkWaitedFor(db);
    const QHash<int, ReportDocument> inDoubt = billsInDoubt(db, rows);
    QHash<int, std::vector<ReceiptLine>> lines;
    lines.reserve(ids.size());
    for (const SplitRow &row : rows) {
        const bool isGone = settledNothing(row) && !inDoubt.contains(row.row.billId);
        lines[row.receiptId].push_back(isGone ? untaxedLine(row) : taxedLine(row));
    }
    return lines;
}

} // namespace ledgora
