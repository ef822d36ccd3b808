#include "receipts/PaymentSplit.h"

#include "receipts/PaymentStore.h"
#include "receipts/UnpaidBill.h"
#include "store/Connection.h"
#include "store/Dates.h"
#include "store/ErrorLog.h"

namespace ledgora {

namespace {

using PaymentsByBill = QHash<int, std::vector<EarlierPayment>>;

/// What counts before a receipt, bill by bill in order. Of its own day only lower numbers do; without a number all.
PaymentsByBill earlierPayments(Connection &db, const QList<int> &billIds, int receiptId, const QString &date,
                               int number)
{
    const QString lastDate = CONVERTTOSAVE(date);
    const QDate day = dateFromStore(lastDate);
    PaymentsByBill earlier;
    for (const BillPayment &payment : paymentsOn(db, billIds, lastDate)) {
        const bool itself = receiptId != 0 && payment.receiptId == receiptId;
        const bool later = day.isValid() && number != 0 && payment.date == day && payment.number >= number;
        if (!itself && !later)
            earlier[payment.billId].push_back(payment.settled);
    }
    return earlier;
}

/// The rows of each bill, by their places among all rows.
QHash<int, std::vector<size_t>> placesByBill(const std::vector<PaymentRow> &rows)
{
    QHash<int, std::vector<size_t>> places;
    for (size_t place = 0; place < rows.size(); ++place) {
        if (rows[place].billId != 0)
            places[rows[place].billId].push_back(place);
    }
    return places;
}

} // namespace

std::vector<PaymentSplit> splitOnBill(const BillSums &bill, const std::vector<EarlierPayment> &earlier,
                                      const std::vector<PaymentRow> &rows)
{
    UnpaidBill unpaid(bill);
    for (const EarlierPayment &receipt : earlier)
        unpaid.settle(receipt);
    std::vector<PaymentSplit> splits;
    splits.reserve(rows.size());
    for (const PaymentRow &row : rows)
        splits.push_back(unpaid.settle(row));
    return splits;
}

std::vector<PaymentSplit> splitOfReceipt(Connection &db, int receiptId, const QString &date, int number,
                                         const std::vector<PaymentRow> &rows)
{
    const ErrorSite site("MODGST", "CALCRECPTAXGST");
    std::vector<PaymentSplit> splits(rows.size());
    const QList<int> billIds = distinctIds(rows);
    const QHash<int, BillSums> sums = billSums(db, billIds);
    const PaymentsByBill earlier = earlierPayments(db, billIds, receiptId, date, number);
    const QHash<int, std::vector<size_t>> places = placesByBill(rows);
    for (auto bill = places.cbegin(); bill != places.cend(); ++bill) {
        std::vector<PaymentRow> ofBill;
        for (const size_t place : *bill)
            ofBill.push_back(rows[place]);
        const auto split = splitOnBill(sums.value(bill.key()), earlier.value(bill.key()), ofBill);
        for (size_t i = 0; i < split.size(); ++i)
            splits[(*bill)[i]] = split[i];
    }
    return splits;
}

} // namespace ledgora
