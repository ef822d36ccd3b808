#include "bills/DocumentList.h"

#include "store/NumberFormat.h"
#include <QHash>
#include <algorithm>
#include <vector>

namespace ledgora {

void fillPartyNames(Cells &list, const DocumentListColumns &columns, const Cells &parties, int firstRow)
{
    // Each code once, with the row of its party; each document knows its code's place.
    QHash<QStringView, int> placeOfCode;
    std::vector<int> places;
    places.reserve(size_t(list.rows() - firstRow));
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
