#include "receipts/SplitBatch.h"

#include "receipts/PaymentStore.h"
#include "receipts/UnpaidBill.h"
#include "store/Connection.h"
#include "store/Dates.h"
#include "store/ErrorLog.h"
#include "store/SqlText.h"
#include <algorithm>
#include <span>
#include <tuple>

namespace ledgora {

namespace {

using PaymentsByBill = QHash<int, std::vector<BillPayment>>;
using PlacesByBill = QHash<int, std::vector<size_t>>;

/// The rows of the receipts, by receipt and serial.
std::vector<SplitRow> storedRows(Connection &db, std::vector<ReceiptHead> receipts)
{
    std::ranges::sort(receipts);
    QHash<int, size_t> places;
    places.reserve(qsizetype(receipts.size()));
    for (size_t place = 0; place < receipts.size(); ++place)
        places.insert(receipts[place].id, place);
    std::vector<SplitRow> rows;
    for (const QString &condition : amongIds(QStringLiteral("RecpId"), places.keys())) {
        Recordset stored = db.Open("Select RecpId,SrNo,BillId,Amount,Discount,TDS from GST_RecpD Where " + condition);
        while (stored.next()) {
            const int id = int(stored.integer(0));
            if (const auto place = places.constFind(id); place != places.cend())
                rows.push_back({.receiptId = id,
                                .date = dateFromStore(receipts[*place].day),
                                .number = receipts[*place].number,
                                .serial = int(stored.integer(1)),
                                .row = {int(stored.integer(2)), stored.number(3), stored.number(4)},
                                .tds = stored.number(5),
                                .split = {}});
        }
    }
    std::ranges::sort(rows, {},
                      [&](const SplitRow &row) { return std::pair(places.value(row.receiptId), row.serial); });
    return rows;
}

PlacesByBill placesByBill(const std::vector<SplitRow> &rows)
{
    PlacesByBill places;
    for (size_t place = 0; place < rows.size(); ++place)
        places[rows[place].row.billId].push_back(place);
    places.remove(0);
    return places;
}

PaymentsByBill paymentsByBill(Connection &db, const QList<int> &billIds, const QString &lastDate)
{
    PaymentsByBill byBill;
    for (const BillPayment &payment : paymentsOn(db, billIds, lastDate))
        byBill[payment.billId].push_back(payment);
    return byBill;
}

/// A bill's payments in their order, gone through once: most receipts come after those before them.
class BillHistory
{
public:
    BillHistory(const BillSums &bill, std::span<const BillPayment> payments)
        : m_fresh(bill)
        , m_before(bill)
        , m_payments(payments)
    {
    }

    /// The bill as the receipt meets it. Receipts are to be asked for by date and number.
    UnpaidBill metBy(const SplitRow &receipt)
    {
        if (!receipt.date.isValid() || receipt.number == 0)
            return metWithoutPlace(receipt);
        const auto place = std::tuple(receipt.date, receipt.number);
        for (; !m_payments.empty(); m_payments = m_payments.subspan(1)) {
            const BillPayment &next = m_payments.front();
            if (std::tuple(next.date, next.number) >= place)
                break;
            if (next.date.isValid()) // a receipt without a date is before none that has one
                m_before.settle(next.settled);
        }
        return m_before;
    }

private:
    /// Without a number all of the receipt's day counts, without a date all there is; only old or foreign rows are so.
    UnpaidBill metWithoutPlace(const SplitRow &receipt)
    {
        UnpaidBill bill = m_fresh;
        for (const BillPayment &payment : m_all) {
            const bool later = receipt.date.isValid() && (!payment.date.isValid() || payment.date > receipt.date);
            if (!later && payment.receiptId != receipt.receiptId)
                bill.settle(payment.settled);
        }
        return bill;
    }

    const UnpaidBill m_fresh;
    UnpaidBill m_before;
    std::span<const BillPayment> m_payments; ///< not yet in `m_before`
    const std::span<const BillPayment> m_all = m_payments;
};

void splitOnBill(BillHistory history, std::span<const size_t> places, std::vector<SplitRow> &rows)
{
    for (size_t at = 0; at < places.size();) {
        const int receipt = rows[places[at]].receiptId;
        UnpaidBill unpaid = history.metBy(rows[places[at]]);
        for (; at < places.size() && rows[places[at]].receiptId == receipt; ++at) {
            SplitRow &row = rows[places[at]];
            row.split = unpaid.settle(row.row);
        }
    }
}

/// `lastDate`, as stored, leaves out payments that are dated later; "" none.
std::vector<SplitRow> splitsOf(Connection &db, std::vector<ReceiptHead> receipts, const QString &lastDate)
{
    std::vector<SplitRow> rows = storedRows(db, std::move(receipts));
    const PlacesByBill places = placesByBill(rows);
    const QList<int> billIds = places.keys();
    const QHash<int, BillSums> sums = billSums(db, billIds);
    const PaymentsByBill payments = paymentsByBill(db, billIds, lastDate);
    for (auto bill = places.cbegin(); bill != places.cend(); ++bill) {
        const std::vector<BillPayment> ofBill = payments.value(bill.key());
        splitOnBill(BillHistory(sums.value(bill.key()), ofBill), *bill, rows);
    }
    return rows;
}

} // namespace

std::vector<SplitRow> splitsOfReceipts(Connection &db, const QList<int> &receiptIds)
{
    const ErrorSite site("MODGST", "CALCRECPTAXGST");
    return splitsOf(db, receiptHeads(db, receiptIds, {}), {});
}

std::vector<SplitRow> splitsOfCompany(Connection &db, int firmId, const QString &upTo)
{
    const ErrorSite site("MODGST", "CALCRECPTAXGST");
    const QString lastDate = upTo.isEmpty() ? QString() : CONVERTTOSAVE(upTo);
    return splitsOf(db, receiptHeadsOf(db, firmId, lastDate), lastDate);
}

} // namespace ledgora
