#include "bills/DocumentList.h"

#include "bills/DocumentStore.h"
#include "store/Connection.h"
#include "store/Dates.h"
#include "store/NumberFormat.h"
#include <QHash>
#include <algorithm>
#include <vector>

namespace ledgora {

namespace {

/// The ids of the rows, separated by commas.
QString idsOf(Recordset &stored, const DocumentListKind &kind)
{
    const int id = stored.column(QLatin1String(kind.listed.front().name));
    QString ids;
    while (stored.next()) {
        if (!ids.isEmpty())
            ids += u',';
        ids += stored.text(id);
    }
    stored.rewind();
    return ids;
}

/// Adds a row for each stored document.
void addStored(Cells &list, const DocumentListKind &kind, Recordset &stored)
{
    std::vector<int> sources;
    for (const ListedColumn &column : kind.listed)
        sources.push_back(stored.column(QLatin1String(column.name)));
    const int date = stored.column(QLatin1String(kind.date.name));
    const int firstRow = list.rows();
    list.setRows(firstRow + int(stored.recordCount()));
    QString day; // documents of one day come together
    QString dayShown;
    for (int row = firstRow; stored.next(); ++row) {
        for (size_t i = 0; i < sources.size(); ++i)
            list.setText(row, kind.listed[i].cell, stored.text(sources[i]));
        if (const QString storedDay = stored.text(date); storedDay != day) {
            day = storedDay;
            dayShown = listedDate(day);
        }
        list.setText(row, kind.date.cell, dayShown);
        list.setText(row, kind.columns.amount, QStringLiteral("0"));
    }
}

} // namespace

QString listedDate(const QString &stored)
{
    return formatDate(dateFromStore(stored), QStringLiteral("dd/MM/yyyy"));
}

void loadDocumentList(Cells &list, const DocumentListKind &kind, const Cells &parties, int id, bool clientWise,
                      Recordset stored, const std::function<PendingQuery(const QString &ids)> &totals)
{
    if (id == 0)
        list.clearData();
    else
        removeDocument(list, kind.columns.id, id);
    const int firstRow = list.rows();
    if (const QString ids = idsOf(stored, kind); !ids.isEmpty()) {
        PendingQuery sums = totals(ids); // the server adds up while the list is made
        addStored(list, kind, stored);
        fillPartyNames(list, kind.columns, parties, firstRow);
        Recordset answer = sums.answer();
        fillAmounts(list, kind.columns, answer);
    }
    sortDocuments(list, kind.columns, clientWise);
}

bool isListedAsStored(const Cells &list, int row, const DocumentListKind &kind, const StoredDocument &document)
{
    return list.text(row, kind.date.cell) == listedDate(document.header.value(kind.date.place))
           && std::ranges::all_of(kind.listed, [&](const ListedColumn &column) {
                  return list.text(row, column.cell) == document.header.value(column.place);
              });
}

void fillPartyNames(Cells &list, const DocumentListColumns &columns, const Cells &parties, int firstRow)
{
    // Each code once, with the row of its party; each document knows its code's place.
    QHash<QStringView, int> placeOfCode;
    std::vector<int> places;
    places.reserve(size_t(list.rows() - firstRow));
    placeOfCode.reserve(std::min(list.rows() - firstRow, parties.rows()));
    for (int row = firstRow; row < list.rows(); ++row) {
        int &place = placeOfCode[list.text(row, columns.party)];
        if (place == 0)
            place = int(placeOfCode.size()); // places count from 1
        places.push_back(place);
    }
    std::vector<int> partyRows(size_t(placeOfCode.size()) + 1, -1);
    for (int row = parties.fixedRows(); row < parties.rows(); ++row) {
        const int place = placeOfCode.value(parties.text(row, PartyCode));
        if (place > 0 && partyRows[size_t(place)] < 0) // of equal codes the first counts
            partyRows[size_t(place)] = row;
    }
    for (int row = firstRow; row < list.rows(); ++row)
        list.setText(row, columns.name, parties.text(partyRows[size_t(places[size_t(row - firstRow)])], PartyName));
}

void fillAmounts(Cells &list, const DocumentListColumns &columns, Recordset &totals)
{
    list.sort(columns.id, Cells::Sort::Number);
    int start = list.fixedRows();
    while (totals.next()) {
        const int found = list.findMoving(totals.text(0), columns.id, start);
        if (found >= 0)
            list.setText(found, columns.amount, plainNumber(totals.number(1)));
    }
}

void sortDocuments(Cells &list, const DocumentListColumns &columns, bool clientWise)
{
    list.sort(columns.id, Cells::Sort::Number); // equal ones must not show in which order the list was before
    list.sort(columns.number, Cells::Sort::Number);
    list.sort(columns.date, Cells::Sort::Date);
    if (clientWise)
        list.sort(columns.name, Cells::Sort::Text);
}

int rowAfterRefresh(const Cells &list, int idColumn, int id, int rememberedRow)
{
    if (!list.hasData())
        return -1;
    if (id != 0) {
        if (const int row = list.find(QString::number(id), idColumn); row >= 0)
            return row;
    }
    return std::clamp(rememberedRow, list.fixedRows(), list.rows() - 1);
}

void removeDocument(Cells &list, int idColumn, int id)
{
    const QString wanted = QString::number(id);
    for (int row = list.find(wanted, idColumn); row >= 0; row = list.find(wanted, idColumn, row))
        list.removeRow(row);
}

} // namespace ledgora
