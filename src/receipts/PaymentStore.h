#pragma once

#include "receipts/PaymentSplit.h"
#include <QDate>
#include <QHash>
#include <QString>
#include <vector>

namespace ledgora {

// What the split of payments reads: for any number of bills one query of their sums, and one of their payments.

/// What one receipt settled of one bill, all its rows on it together.
struct BillPayment
{
    int billId = 0;
    int receiptId = 0;
    QDate date; ///< of the receipt, invalid when there is none
    int number = 0;
    EarlierPayment settled;
};

/// Ids of the bills that rows settle anything of, each once, joined with ",".
QString distinctIds(const std::vector<PaymentRow> &rows);

/// Taxable value and taxes of bills by id. A bill without lines is not among them.
QHash<int, BillSums> billSums(Connection &db, const QString &billIds);

/// The payments on bills in the order in which they count: by date, then number; receipts alike in both by the line
/// that the bill stands in, then by id. `lastDate`, as stored, leaves out what is dated later; "" nothing.
std::vector<BillPayment> paymentsOn(Connection &db, const QString &billIds, const QString &lastDate);

} // namespace ledgora
