#include "receipts/OpenBills.h"

#include "bills/BillStore.h"
#include "bills/DocumentList.h"
#include "bills/EntryRules.h"
#include "receipts/ReceiptStore.h"
#include "store/NumberFormat.h"
#include <QHash>
#include <QStringList>

namespace ledgora {

namespace {

constexpr DocumentListColumns totalColumns{
    .number = OpenBillNo, .date = OpenBillDate, .name = OpenBillSrNo, .amount = OpenBillTotal};
constexpr DocumentListColumns receivedColumns{
    .number = OpenBillNo, .date = OpenBillDate, .name = OpenBillSrNo, .amount = OpenBillReceived};

QString addBills(Cells &bills, Recordset &stored)
{
    const int id = stored.column(QStringLiteral("BillSrNo"));
    const int billNumber = stored.column(QStringLiteral("BillNo"));
    const int date = stored.column(QStringLiteral("BillDt"));
    const int series = stored.column(QStringLiteral("BillSerId"));
    const QString none = QStringLiteral("0");
    QStringList ids;
    while (stored.next()) {
        ids << stored.text(id);
        bills.addRow({stored.text(id), stored.text(billNumber), listedDate(stored.text(date)), stored.text(series),
                      none, none, none, none});
    }
    return ids.join(u',');
}

void workOutPending(Cells &bills, int row)
{
    const double pending = roundHalfEven(bills.value(row, OpenBillTotal) - bills.value(row, OpenBillReceived)
                                         - bills.value(row, OpenBillReceivedHere));
    bills.setText(row, OpenBillPending, plainNumber(pending));
}

} // namespace

Cells emptyOpenBills()
{
    Cells bills(OpenBillColumnCount, 1);
    bills.setRow(0, {QStringLiteral("BillSrNo"), QStringLiteral("Bill No."), QStringLiteral("Bill Date"),
                     QStringLiteral("BillSerId"), QStringLiteral("Bill Amt"), QStringLiteral("Receipt"),
                     QStringLiteral("Receipt1"), QStringLiteral("Amount")});
    return bills;
}

void LOADBILLLIST(Connection &db, Cells &bills, int firmId, const QString &code, const QString &date, int receiptId)
{
    bills.clearData();
    if (code.isEmpty() || !isWholeDate(date))
        return;
    Recordset stored = billsUpTo(db, firmId, code, date);
    const QString ids = addBills(bills, stored);
    if (ids.isEmpty())
        return;
    Recordset totals = billTotals(db, ids).answer();
    fillAmounts(bills, totalColumns, totals);
    Recordset received = receivedOnBills(db, ids, receiptId);
    fillAmounts(bills, receivedColumns, received);
    for (int row = bills.fixedRows(); row < bills.rows(); ++row)
        workOutPending(bills, row);
    bills.sort(OpenBillNo, Cells::Sort::Number);
    bills.sort(OpenBillDate, Cells::Sort::Date);
}

void REFRESHBILLLIST(Cells &bills, const ReceiptRows &rows)
{
    QHash<int, double> here;
    for (const ReceiptRow &row : rows) {
        if (row.billId != 0)
            here[row.billId] += row.amount + row.discount;
    }
    for (int row = bills.fixedRows(); row < bills.rows(); ++row) {
        const auto paid = here.constFind(int(bills.value(row, OpenBillSrNo)));
        bills.setText(row, OpenBillReceivedHere, paid == here.cend() ? QString() : plainNumber(*paid));
        workOutPending(bills, row);
        bills.setHidden(row, bills.value(row, OpenBillPending) == 0);
    }
}

int openBillRow(const Cells &bills, int billId)
{
    return billId == 0 ? -1 : bills.find(QString::number(billId), OpenBillSrNo);
}

bool VALIDBILLAMT(const Cells &bills, const ReceiptRow &row)
{
    return bills.value(openBillRow(bills, row.billId), OpenBillPending) >= 0;
}

QString openBillHint(const Cells &bills, int listRow)
{
    if (!bills.isData(listRow))
        return {};
    return plainNumber(roundHalfEven(bills.value(listRow, OpenBillTotal))) + QStringLiteral(", ")
           + bills.text(listRow, OpenBillDate);
}

} // namespace ledgora
