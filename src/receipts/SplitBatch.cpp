#include "receipts/SplitBatch.h"

#include "receipts/PaymentStore.h"
#include "receipts/UnpaidBill.h"
#include "store/Connection.h"
#include "store/Dates.h"
#include "store/ErrorLog.h"
#include "store/SqlText.h"
#include <QStringList>
#include <span>
#include <tuple>

namespace ledgora {

namespace {

using PaymentsByBill = QHash<int, std::vector<BillPayment>>;
using PlacesByBill = QHash<int, std::vector<size_t>>;

std::vector<SplitRow> storedRows(Connection &db, const QString &which)
{
    Recordset stored =
        db.Open("Select GST_RecpM.RecpSrNo,RecpDt,RecpNo,SrNo,BillId,Amount,Discount,TDS from GST_RecpM INNER Join "
                "GST_RecpD ON GST_RecpM.RecpSrNo=GST_RecpD.RecpId Where "
                + which + " Order by RecpDt,RecpNo,RecpSrNo,SrNo");
    std::vector<SplitRow> rows;
    rows.reserve(size_t(stored.recordCount()));
    while (stored.next())
        rows.push_back({.receiptId = int(stored.integer(0)),
                        .date = dateFromStore(stored.text(1)),
                        .number = int(stored.integer(2)),
                        .serial = int(stored.integer(3)),
                        .row = {int(stored.integer(4)), stored.number(5), stored.number(6)},
                        .tds = stored.number(7),
                        .split = {}});
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

PaymentsByBill paymentsByBill(Connection &db, const QString &billIds, const QString &lastDate)
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

std::vector<SplitRow> splitsWhere(Connection &db, const QString &which, const QString &lastDate)
{
    std::vector<SplitRow> rows = storedRows(db, which);
    const PlacesByBill places = placesByBill(rows);
    QStringList ids;
    ids.reserve(places.size());
    for (auto bill = places.cbegin(); bill != places.cend(); ++bill)
        ids << number(bill.key());
    const QString billIds = ids.join(u',');
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
    if (receiptIds.isEmpty())
        return {};
    QStringList ids;
    ids.reserve(receiptIds.size());
    for (const int id : receiptIds)
        ids << number(id);
    return splitsWhere(db, "GST_RecpM.RecpSrNo IN (" + ids.join(u',') + ')', {});
}

std::vector<SplitRow> splitsOfCompany(Connection &db, int firmId, const QString &upTo)
{
    const ErrorSite site("MODGST", "CALCRECPTAXGST");
    const QString lastDate = CONVERTTOSAVE(upTo);
    return splitsWhere(db,
                       "GST_RecpM.FirmId=" + number(firmId)
                           + (upTo.isEmpty() ? QString() : QString(" and RecpDt<=" + quoted(lastDate))),
                       lastDate);
}

} // namespace ledgora
