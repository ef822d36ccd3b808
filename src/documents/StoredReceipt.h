#pragma once

#include "documents/DocumentParties.h"
#include "documents/ReceiptDocument.h"
#include <QDate>
#include <QList>

namespace ledgora {

/// A receipt as it lies in the tables, as a document; without company texts and name case, as a stored bill.
struct StoredReceipt
{
    int id = 0;
    QDate date;
    bool hasParty = false; ///< its client is in the directory
    ReceiptDocument document;
};

/// Receipts by their ids, in the order of these; one that is not there is left out. A few queries however many they
/// are. The tax inside is worked out afresh. A bill that is gone is not told, yet what was received on it counts in the
/// sums.
std::vector<StoredReceipt> storedReceipts(Connection &db, const QList<int> &ids, DocumentParties &parties);

} // namespace ledgora
