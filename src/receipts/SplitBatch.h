#pragma once

#include "receipts/PaymentSplit.h"
#include <QDate>
#include <QList>

namespace ledgora {

/// A stored row of a receipt, and the tax inside it.
struct SplitRow
{
    int receiptId = 0;
    QDate date;     ///< of the receipt
    int number = 0; ///< of the receipt
    int serial = 0;
    PaymentRow row;
    double tds = 0;
    PaymentSplit split;
};

// The split of many stored receipts at once, for reports and documents: each row's split is what `splitOfReceipt` gives
// for the receipt's id, date, number and rows. A handful of queries, however many receipts: their rows; the sums of the
// bills that these settle; all payments on those bills, also of receipts that were not asked for. The work grows with
// the rows read, not with the receipts of a bill times themselves. Rows come by date, number and id of the receipt,
// then by serial. A row without a bill, or on a bill that is gone, has an empty split.

/// Receipts by their ids; one that is not there gives no rows.
std::vector<SplitRow> splitsOfReceipts(Connection &db, const QList<int> &receiptIds);

/// All receipts of a company up to a day, DD/MM/YYYY; "" for all.
std::vector<SplitRow> splitsOfCompany(Connection &db, int firmId, const QString &upTo);

} // namespace ledgora
