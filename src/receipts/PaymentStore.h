#pragma once

#include "receipts/PaymentSplit.h"
#include <QDate>
#include <QHash>
#include <QString>
#include <compare>
#include <tuple>
#include <vector>

namespace ledgora {

// What the split of payments reads, for any number of receipts or bills at once. Each query is of one table and they
// are joined here: a server that misjudges the tables, after a bulk fill, took a minute for the join.

/// A receipt's place among all others.
struct ReceiptHead
{
    int id = 0;
    QString day; ///< its date as stored, "" for none
    int number = 0;

    auto operator<=>(const ReceiptHead &other) const
    {
        return std::tie(day, number, id) <=> std::tie(other.day, other.number, other.id);
    }
    bool operator==(const ReceiptHead &) const = default;
};

/// Receipts by their ids, without those dated after `lastDate`, as stored ("" for all).
std::vector<ReceiptHead> receiptHeads(Connection &db, const QList<int> &ids, const QString &lastDate);
/// All receipts of a company.
std::vector<ReceiptHead> receiptHeadsOf(Connection &db, int firmId, const QString &lastDate);

/// What one receipt settled of one bill, all its rows on it together.
struct BillPayment
{
    int billId = 0;
    int receiptId = 0;
    QDate date; ///< of the receipt, invalid when there is none
    int number = 0;
    EarlierPayment settled;
};

/// Ids of the bills that rows settle anything of, each once.
QList<int> distinctIds(const std::vector<PaymentRow> &rows);

/// Taxable value and taxes of bills by id; others may be among them. A bill without lines is not.
QHash<int, BillSums> billSums(Connection &db, const QList<int> &billIds);

/// The payments on bills in the order in which they count: by date, then number; receipts alike in both by the line
/// that the bill stands in, then by id. `lastDate`, as stored, leaves out what is dated later; "" nothing.
std::vector<BillPayment> paymentsOn(Connection &db, const QList<int> &billIds, const QString &lastDate);

} // namespace ledgora
