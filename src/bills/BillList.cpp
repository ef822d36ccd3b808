#include "bills/BillList.h"

#include "bills/BillStore.h"
#include "store/Dates.h"
#include <QStringList>
#include <array>

namespace ledgora {

namespace {

/// A stored date and time as dd/MM/yyyy.
QString shownDate(const QString &stored)
{
    return formatDate(dateFromStore(stored), QStringLiteral("dd/MM/yyyy"));
}

/// Adds a row for each stored bill and returns their ids, separated by commas.
QString addStoredBills(Cells &bills, Recordset &stored)
{
    struct Source
    {
        int cell;
        int column;
    };
    const auto source = [&stored](int cell, const char *name) {
        return Source{cell, stored.column(QLatin1String(name))};
    };
    const std::array sources{source(ListBillSrNo, "BillSrNo"),   source(ListPartyCode, "Code_No"),
                             source(ListBillSerId, "BillSerId"), source(ListBillNo, "BillNo"),
                             source(ListPlace, "PlaceOfServ"),   source(ListTaxType, "AppTaxType"),
                             source(ListNarration, "Narr")};
    const int date = stored.column(QStringLiteral("BillDt"));
    const int firstRow = bills.rows();
    bills.setRows(firstRow + int(stored.recordCount()));
    QStringList ids;
    for (int row = firstRow; stored.next(); ++row) {
        for (const Source &from : sources)
            bills.setText(row, from.cell, stored.text(from.column));
        bills.setText(row, ListBillDate, shownDate(stored.text(date)));
        bills.setText(row, ListBillAmount, QStringLiteral("0"));
        ids << bills.text(row, ListBillSrNo);
    }
    return ids.join(u',');
}

} // namespace

Cells emptyBillList()
{
    Cells bills(BillListColumnCount, 1);
    bills.setRow(0, {QStringLiteral("BillSrNo"), QStringLiteral("PartyCode"), QStringLiteral("BillSerId"),
                     QStringLiteral("Bill No."), QStringLiteral("Bill Date"), QStringLiteral("GSTIN"),
                     QStringLiteral("POS"), QStringLiteral("AppTaxType"), QStringLiteral("Narr"),
                     QStringLiteral("Receiver Name"), QStringLiteral("Bill Amount")});
    return bills;
}

void loadBillList(Connection &db, Cells &bills, const Cells &parties, int firmId, int year, int id, bool clientWise)
{
    if (id == 0)
        bills.clearData();
    else
        removeDocument(bills, ListBillSrNo, id);
    const int firstRow = bills.rows();
    Recordset stored = billsOfYear(db, firmId, year, id);
    const QString ids = addStoredBills(bills, stored);
    fillPartyNames(bills, billListColumns, parties, firstRow);
    if (!ids.isEmpty()) {
        Recordset totals = billTotals(db, ids);
        fillAmounts(bills, billListColumns, totals);
    }
    sortDocuments(bills, billListColumns, clientWise);
}

} // namespace ledgora
