#pragma once

#include "store/Recordset.h"
#include <QStringList>
#include <optional>

namespace ledgora {

// What the saving of bills and receipts has in common, apart from their statements.

inline constexpr auto notWaitedForMessage =
    "The database was not waited for. Nothing was saved; what was typed is still here.";

/// A document of the same company, year and series whose number and date are out of order with the one being saved.
struct Neighbour
{
    QString number;
    QString date; ///< DD/MM/YYYY
};
/// The first of the rows found, by its columns of number and date.
std::optional<Neighbour> firstNeighbour(Recordset found, const QString &numberColumn, const QString &dateColumn);

/// What came of a save. A document is not written as one unit: `notIn` names, for the user, what did not go in.
struct SaveResult
{
    int id = 0;            ///< 0 when no id could be allotted: nothing was written
    bool headerIn = false; ///< from here on the document exists under `id`
    QStringList notIn;
    bool whole() const { return id > 0 && headerIn && notIn.isEmpty(); }
};

/// A document as it lies in the tables now, to see whether another user changed it since it was read; without texts
/// when it is gone.
struct StoredDocument
{
    QStringList header; ///< columns of its row as stored
    QStringList lines;  ///< columns of each line in order
    bool operator==(const StoredDocument &) const = default;
};
/// Nothing when one of them could not be read.
std::optional<StoredDocument> storedDocument(Recordset header, Recordset lines);

/// The first column of all rows.
QStringList firstColumn(Recordset rows);

} // namespace ledgora
