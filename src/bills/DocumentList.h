#pragma once

#include "store/Cells.h"
#include "store/Recordset.h"
#include <functional>
#include <span>

namespace ledgora {

class PendingQuery;
struct StoredDocument;

// The list of a year's bills or receipts, which is also the cursor through them: what both kinds have in common.
// Names and amounts are not read document by document: the directory and one query of all sums fill them.

/// Columns of the party directory.
enum PartyColumn { PartyCode, PartyName, PartyPan, PartyGstin, PartyState, PartyAddress, PartyColumnCount };

/// Columns that both lists share; name and amount stand where the kind has them.
struct DocumentListColumns
{
    int id = 0, party = 1, number = 3, date = 4;
    int name, amount;
};

/// A column of the list that shows a column of the document's row as it is stored.
struct ListedColumn
{
    const char *name; ///< in the table
    int cell;
    int place; ///< its place in the row
};

/// A list as a kind of document has it.
struct DocumentListKind
{
    DocumentListColumns columns;
    std::span<const ListedColumn> listed; ///< all but the date
    ListedColumn date;                    ///< shown as dd/MM/yyyy
};

/// Rebuilds the list (`id` 0) from the rows `stored`, or refreshes the document `id` in it. `totals` is asked once for
/// the sums of the ids, separated by commas; `parties` is the directory.
void loadDocumentList(Cells &list, const DocumentListKind &kind, const Cells &parties, int id, bool clientWise,
                      Recordset stored, const std::function<PendingQuery(const QString &ids)> &totals);

/// Whether the row of the list still says what is stored.
bool isListedAsStored(const Cells &list, int row, const DocumentListKind &kind, const StoredDocument &document);

/// A stored date and time as dd/MM/yyyy.
QString listedDate(const QString &stored);

/// Puts the names of the parties into the rows from `firstRow` on, by exact code. A party that left the directory
/// leaves the name empty.
void fillPartyNames(Cells &list, const DocumentListColumns &columns, const Cells &parties, int firstRow);

/// Puts each sum of `totals` (id, amount; ordered by id) into the row of its document.
void fillAmounts(Cells &list, const DocumentListColumns &columns, Recordset &totals);

/// By date, then number; with `clientWise` by name, then date, then number. Equal ones are by id.
void sortDocuments(Cells &list, const DocumentListColumns &columns, bool clientWise);

/// The row to select after a refresh: that of `id`; else the remembered one, the last one when that is past the end,
/// the first one when neither is there; -1 in an empty list.
int rowAfterRefresh(const Cells &list, int idColumn, int id, int rememberedRow);

/// Removes every row of the id.
void removeDocument(Cells &list, int idColumn, int id);

} // namespace ledgora
