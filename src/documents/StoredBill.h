#pragma once

#include "documents/BillDocument.h"
#include "documents/DocumentParties.h"
#include <QDate>
#include <QList>

namespace ledgora {

/// A bill as it lies in the tables, as a document. Company texts and name case are the reader's to add: they are the
/// same for all documents of a run.
struct StoredBill
{
    int id = 0;
    QDate date;
    /// Nothing where the stored word is none of the three; such a bill has no template.
    std::optional<TaxType> taxType;
    bool hasParty = false; ///< its client is in the directory
    BillDocument document;
};

/// Bills by their ids, in the order of these; one that is not there is left out. A few queries however many they are.
/// What the entry screen shows otherwise is kept so: the SAC is not trimmed, the year range is worked out from the
/// year, the totals are summed over the stored lines (tax of the bill's own type only), and every stored line counts.
std::vector<StoredBill> storedBills(Connection &db, const QList<int> &ids, DocumentParties &parties);

} // namespace ledgora
