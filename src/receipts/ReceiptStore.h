#pragma once

#include "bills/DocumentStore.h"
#include "receipts/ReceiptChecks.h"
#include "store/Connection.h"
#include <vector>

namespace ledgora {

/// Faults that only the database can tell: a number in use. A check that the user did not wait for is a fault too: a
/// receipt that was not checked is not saved.
std::optional<ReceiptFault> storedFault(Connection &db, const ReceiptDraft &receipt);

/// The nearest lower number with a later date, and the nearest higher number with an earlier one.
std::optional<Neighbour> lowerWithLaterDate(Connection &db, const ReceiptDraft &receipt);
std::optional<Neighbour> higherWithEarlierDate(Connection &db, const ReceiptDraft &receipt);

/// Writes header and lines as single statements, lines numbered from 1 without gaps. After a header that failed, or
/// that met no row because another user deleted the receipt, no line is touched; after any later failure the remaining
/// statements still run.
SaveResult saveReceipt(Connection &db, const ReceiptDraft &receipt);

/// The rows in `GST_RecpM` and `GST_RecpD` that a receipt becomes, as value lists in brackets: what `saveReceipt`
/// writes, for those who write many at once.
QString receiptHeaderValues(const ReceiptDraft &receipt, int id);
QString receiptLineValues(const ReceiptRow &row, int id, int serial);

/// Deletes the lines, then the header. False when a statement failed (logged).
bool deleteReceipt(Connection &db, int id);

/// The highest receipt number of company and year, over all series; 0 for none.
int highestReceiptNumber(Connection &db, int firmId, int year);

/// A stored line.
struct StoredReceiptRow
{
    int serial = 0; ///< from 1
    ReceiptRow row;
};
std::vector<StoredReceiptRow> receiptLines(Connection &db, int receiptId);

/// Receipts of the year (one when `id` is not 0), columns as stored; and the sum of each one's amounts by id.
Recordset receiptsOfYear(Connection &db, int firmId, int year, int id);
PendingQuery receiptTotals(Connection &db, const QString &ids);

/// The receipt as it lies in the tables now; nothing when it could not be read.
std::optional<StoredDocument> receiptAsStored(Connection &db, int receiptId);

/// Bills of the party up to a date (DD/MM/YYYY), of all years, paid or not; columns as stored.
Recordset billsUpTo(Connection &db, int firmId, const QString &code, const QString &date);
/// What all receipts but one settled of each bill, amounts and discounts, by the bill's id.
Recordset receivedOnBills(Connection &db, const QString &billIds, int exceptReceiptId);

/// Banks, branches and narrations of all companies, each once, in order.
QStringList earlierBankNames(Connection &db);
QStringList earlierBankBranches(Connection &db);
QStringList earlierReceiptNarrations(Connection &db);

} // namespace ledgora
