#include "receipts/PaymentStore.h"

#include "store/Connection.h"
#include "store/Dates.h"
#include "store/SqlText.h"
#include <QSet>
#include <algorithm>
#include <iterator>

namespace ledgora {

namespace {

QString upTo(const QString &lastDate)
{
    return lastDate.isEmpty() ? QString() : " and RecpDt<=" + quoted(lastDate);
}

void readHeads(Connection &db, const QString &where, std::vector<ReceiptHead> &heads)
{
    Recordset rows = db.Open("Select RecpSrNo,RecpDt,RecpNo from GST_RecpM Where " + where);
    while (rows.next())
        heads.push_back({int(rows.integer(0)), rows.text(1), int(rows.integer(2))});
}

/// A payment, and where it stands.
struct PlacedPayment
{
    ReceiptHead receipt;
    int serial = 0; ///< first line of the receipt that the bill stands in
    BillPayment payment;
};

} // namespace

std::vector<ReceiptHead> receiptHeads(Connection &db, const QList<int> &ids, const QString &lastDate)
{
    std::vector<ReceiptHead> heads;
    for (const QString &condition : amongIds(QStringLiteral("RecpSrNo"), ids))
        readHeads(db, condition + upTo(lastDate), heads);
    const QSet<int> wanted(ids.begin(), ids.end());
    std::erase_if(heads, [&](const ReceiptHead &head) { return !wanted.contains(head.id); });
    return heads;
}

std::vector<ReceiptHead> receiptHeadsOf(Connection &db, int firmId, const QString &lastDate)
{
    std::vector<ReceiptHead> heads;
    readHeads(db, "FirmId=" + number(firmId) + upTo(lastDate), heads);
    return heads;
}

QList<int> distinctIds(const std::vector<PaymentRow> &rows)
{
    QSet<int> ids;
    for (const PaymentRow &row : rows) {
        if (row.billId != 0 && (row.amount != 0 || row.discount != 0))
            ids.insert(row.billId);
    }
    return ids.values();
}

QHash<int, BillSums> billSums(Connection &db, const QList<int> &billIds)
{
    QHash<int, BillSums> sums;
    for (const QString &condition : amongIds(QStringLiteral("BillId"), billIds)) {
        Recordset rows = db.Open("Select BillId,SUM(TaxServAmt) AS TotTSA,SUM(CGST) AS TotCGST,SUM(SGST) AS TotSGST,"
                                 "SUM(IGST) AS TotIGST from GST_BillD Where "
                                 + condition + " GROUP BY BillId");
        while (rows.next())
            sums.insert(int(rows.integer(0)), {rows.number(1), rows.number(2), rows.number(3), rows.number(4)});
    }
    return sums;
}

std::vector<BillPayment> paymentsOn(Connection &db, const QList<int> &billIds, const QString &lastDate)
{
    const QSet<int> wanted(billIds.begin(), billIds.end());
    std::vector<PlacedPayment> placed;
    QSet<int> receiptIds;
    for (const QString &condition : amongIds(QStringLiteral("BillId"), billIds)) {
        Recordset rows = db.Open("Select BillId,RecpId,Min(SrNo),Sum(Amount) as TotA,Sum(Discount) as TotD from "
                                 "GST_RecpD Where "
                                 + condition + " Group by RecpId,BillId");
        while (rows.next()) {
            const int bill = int(rows.integer(0));
            const int receipt = int(rows.integer(1));
            if (!wanted.contains(bill))
                continue;
            receiptIds.insert(receipt);
            placed.push_back({.receipt = {.id = receipt, .day = {}},
                              .serial = int(rows.integer(2)),
                              .payment = {.billId = bill,
                                          .receiptId = receipt,
                                          .date = {},
                                          .settled = {.amount = rows.number(3), .discount = rows.number(4)}}});
        }
    }
    QHash<int, ReceiptHead> heads;
    for (const ReceiptHead &head : receiptHeads(db, receiptIds.values(), lastDate))
        heads.insert(head.id, head);
    std::erase_if(placed, [&](const PlacedPayment &each) { return !heads.contains(each.receipt.id); });
    for (PlacedPayment &each : placed) {
        each.receipt = heads.value(each.receipt.id);
        each.payment.date = dateFromStore(each.receipt.day);
        each.payment.number = each.receipt.number;
    }
    std::ranges::sort(placed, {}, [](const PlacedPayment &each) {
        return std::tie(each.receipt.day, each.receipt.number, each.serial, each.receipt.id);
    });
    std::vector<BillPayment> payments;
    payments.reserve(placed.size());
    std::ranges::transform(placed, std::back_inserter(payments), &PlacedPayment::payment);
    return payments;
}

} // namespace ledgora
