#include "documents/StoredReceipt.h"

#include "bills/BillStore.h"
#include "bills/DocumentList.h"
#include "documents/StoredIds.h"
#include "receipts/SplitBatch.h"
#include "store/Dates.h"
#include "store/DocumentNumber.h"
#include "store/NumberFormat.h"

namespace ledgora {

namespace {

/// Modes without a bank keep their description in its column.
ReceivedMoney storedMoney(const Recordset &stored)
{
    ReceivedMoney money;
    money.cash = stored.text("Cash");
    money.mode = payModeOfText(stored.text("PayMode"));
    money.otherAmount = stored.text("OthAmt");
    money.paperNumber = stored.text("ChqNo");
    money.paperDate = stored.text("ChqDt");
    money.bankName = money.description = stored.text("BankNm");
    money.bankBranch = stored.text("BankBr");
    return money;
}

StoredReceipt storedHeader(const Recordset &stored, const SeriesNumbers &series, DocumentParties &parties)
{
    StoredReceipt receipt;
    receipt.id = int(stored.integer("RecpSrNo"));
    receipt.date = dateFromStore(stored.text("RecpDt"));
    ReceiptDocument &document = receipt.document;
    receipt.hasParty = parties.fill(document, stored.text("Code_No"), int(stored.integer("FYr")));
    document.receiptDate = CONVERTDATE(listedDate(stored.text("RecpDt")));
    document.receiptNumber = series.printed(int(stored.integer("RecpSerId")), stored.text("RecpNo"));
    document.money = storedMoney(stored);
    const double other = document.money.mode == PayMode::None ? 0 : stored.number("OthAmt");
    document.amountReceived = plainNumber(stored.number("Cash") + other);
    document.narration = stored.text("Narr");
    return receipt;
}

/// Number, date and amount of the bills that rows settle; one that is gone is not among them.
QHash<int, SettledBill> billsOf(Connection &db, const std::vector<SplitRow> &rows, const SeriesNumbers &series)
{
    QList<int> ids;
    for (const SplitRow &row : rows) {
        if (row.row.billId != 0)
            ids << row.row.billId;
    }
    QHash<int, SettledBill> bills;
    if (ids.isEmpty())
        return bills;
    Recordset headers = db.Open("SELECT * FROM GST_BillM WHERE BillSrNo IN (" + idList(ids) + ')');
    while (headers.next())
        bills.insert(int(headers.integer("BillSrNo")),
                     {series.printed(int(headers.integer("BillSerId")), headers.text("BillNo")),
                      CONVERTDATE(listedDate(headers.text("BillDt")))});
    Recordset totals = billTotals(db, idList(ids)).answer();
    while (totals.next()) {
        const auto bill = bills.find(int(totals.integer(0)));
        if (bill != bills.end())
            bill->billAmount = totals.number(1);
    }
    return bills;
}

void addRow(ReceiptDocument &document, const SplitRow &row, const QHash<int, SettledBill> &bills)
{
    const TaxShare &inside = row.split.amount;
    document.sums.amount += row.row.amount;
    document.sums.cgst += inside.cgst.value_or(0);
    document.sums.sgst += inside.sgst.value_or(0);
    document.sums.igst += inside.igst.value_or(0);
    document.sums.tds += row.tds;
    const auto bill = bills.constFind(row.row.billId);
    if (bill == bills.cend() || (row.row.amount == 0 && row.row.discount == 0 && row.tds == 0))
        return;
    document.bills.push_back(*bill);
    document.bills.back().amount = row.row.amount;
}

} // namespace

std::vector<StoredReceipt> storedReceipts(Connection &db, const QList<int> &ids, DocumentParties &parties)
{
    if (ids.isEmpty())
        return {};
    const SeriesNumbers series(db);
    InOrderOfIds<StoredReceipt> receipts(ids);
    Recordset headers = db.Open("Select * from GST_RecpM Where RecpSrNo IN (" + idList(ids) + ')');
    while (headers.next())
        receipts.put(storedHeader(headers, series, parties));
    const std::vector<SplitRow> rows = splitsOfReceipts(db, ids);
    const QHash<int, SettledBill> bills = billsOf(db, rows, series);
    for (const SplitRow &row : rows) {
        if (StoredReceipt *receipt = receipts.find(row.receiptId))
            addRow(receipt->document, row, bills);
    }
    return receipts.take();
}

} // namespace ledgora
