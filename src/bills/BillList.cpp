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

/// The ids of the rows, separated by commas.
QString idsOf(Recordset &stored)
{
    const int id = stored.column(QStringLiteral("BillSrNo"));
    QString ids;
    while (stored.next()) {
        if (!ids.isEmpty())
            ids += u',';
        ids += stored.text(id);
    }
    stored.rewind();
    return ids;
}

/// Adds a row for each stored bill.
void addStoredBills(Cells &bills, Recordset &stored)
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
    QString day; // bills of one day come together
    QString dayShown;
    for (int row = firstRow; stored.next(); ++row) {
        for (const Source &from : sources)
            bills.setText(row, from.cell, stored.text(from.column));
        if (const QString storedDay = stored.text(date); storedDay != day) {
            day = storedDay;
            dayShown = shownDate(day);
        }
        bills.setText(row, ListBillDate, dayShown);
        bills.setText(row, ListBillAmount, QStringLiteral("0"));
    }
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
    if (const QString ids = idsOf(stored); !ids.isEmpty()) {
        PendingQuery totals = billTotals(db, ids); // the server adds up while the list is made
        addStoredBills(bills, stored);
        fillPartyNames(bills, billListColumns, parties, firstRow);
        Recordset sums = totals.answer();
        fillAmounts(bills, billListColumns, sums);
    }
    sortDocuments(bills, billListColumns, clientWise);
}

} // namespace ledgora
