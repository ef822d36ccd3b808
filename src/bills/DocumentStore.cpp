#include "bills/DocumentStore.h"

#include "store/Dates.h"

namespace ledgora {

std::optional<Neighbour> firstNeighbour(Recordset found, const QString &numberColumn, const QString &dateColumn)
{
    if (!found.next())
        return std::nullopt;
    return Neighbour{found.text(numberColumn),
                     formatDate(dateFromStore(found.text(dateColumn)), QStringLiteral("DD/MM/YYYY"))};
}

std::optional<StoredDocument> storedDocument(Recordset header, Recordset lines)
{
    const auto allTexts = [](Recordset &rows) {
        QStringList texts;
        while (rows.next()) {
            for (int column = 0; column < rows.columns(); ++column)
                texts << rows.text(column);
        }
        return texts;
    };
    if (header.failed() || lines.failed())
        return std::nullopt;
    return StoredDocument{allTexts(header), allTexts(lines)};
}

QStringList firstColumn(Recordset rows)
{
    QStringList texts;
    while (rows.next())
        texts << rows.text(0);
    return texts;
}

} // namespace ledgora
