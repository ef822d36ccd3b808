#pragma once

#include "bills/BillChecks.h"
#include "bills/DocumentStore.h"
#include "store/Connection.h"

namespace ledgora {

class Connection;

/// Faults that only the database can tell: less than was received on the bill, a number in use. A check that the user
/// did not wait for is a fault too: a bill that was not checked is not saved.
std::optional<BillFault> storedFault(Connection &db, const BillDraft &bill);

/// The nearest lower number with a later date, and the nearest higher number with an earlier one.
std::optional<Neighbour> lowerWithLaterDate(Connection &db, const BillDraft &bill);
std::optional<Neighbour> higherWithEarlierDate(Connection &db, const BillDraft &bill);

/// What a save writes: the values of the bill's row in `GST_BillM`, and those of one row in `GST_BillD` for each line
/// with particulars, serials from 1; each in brackets, as they stand behind "Insert Into ... Values".
QString billHeaderValues(const BillDraft &bill, int id);
QStringList billLineValues(const BillDraft &bill, int id);

/// Writes header and lines as single statements. After a header that failed, or that met no row because another user
/// deleted the bill, no line is touched; after any later failure the remaining statements still run.
SaveResult saveBill(Connection &db, const BillDraft &bill);

/// Deletes the lines, then the header. False when a statement failed (logged).
bool deleteBill(Connection &db, int id);

/// Whether any receipt settles the bill.
bool hasReceipts(Connection &db, int billId);

/// The highest bill number of company and year, over all series; 0 for none.
int highestBillNumber(Connection &db, int firmId, int year);

/// Fills the line grid with a bill's stored lines; tax cells of the type not chosen stay empty.
void readBillLines(Connection &db, int billId, TaxType type, Cells &lines);

/// Bills of the year (one when `id` is not 0), columns as stored; and the sum of each one's line totals by id.
Recordset billsOfYear(Connection &db, int firmId, int year, int id);
PendingQuery billTotals(Connection &db, const QString &ids);

/// The bill as it lies in the tables now; nothing when it could not be read.
std::optional<StoredDocument> billAsStored(Connection &db, int billId);

/// Earlier particulars and narrations of all companies, each once, in order.
QStringList earlierParticulars(Connection &db);
QStringList earlierNarrations(Connection &db);

} // namespace ledgora
