#include "bills/DocumentList.h"

#include "store/NumberFormat.h"
#include <algorithm>

namespace ledgora {

void fillPartyNames(Cells &list, const DocumentListColumns &columns, Cells &parties, int firstRow, bool all)
{
    if (all) {
        list.sort(columns.party, Cells::Sort::Text);
        parties.sort(PartyCode, Cells::Sort::Text);
    }
    int start = parties.fixedRows();
    for (int row = firstRow; row < list.rows(); ++row) {
        const int found = parties.findMoving(list.text(row, columns.party), PartyCode, start);
        list.setText(row, columns.name, found >= 0 ? parties.text(found, PartyName) : QString());
    }
    if (all)
        parties.sort(PartyName, Cells::Sort::Text);
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
