#include "bills/BillList.h"

#include "bills/BillStore.h"
#include "store/Dates.h"

namespace ledgora {

namespace {

/// Adds a row for each stored bill and returns their ids, separated by commas.
QString addStoredBills(Cells &bills, Recordset &stored)
{
    const int firstRow = bills.rows();
    bills.setRows(firstRow + int(stored.recordCount()));
    QString ids;
    for (int row = firstRow; stored.next(); ++row) {
        const auto put = [&](int column, const char *name) { bills.setText(row, column, stored.text(QLatin1String(name))); };
        put(ListBillSrNo, "BillSrNo");
        put(ListPartyCode, "Code_No");
        put(ListBillSerId, "BillSerId");
        put(ListBillNo, "BillNo");
        bills.setText(row, ListBillDate,
                      formatDate(dateFromStore(stored.text(QStringLiteral("BillDt"))), QStringLiteral("dd/MM/yyyy")));
        put(ListPlace, "PlaceOfServ");
        put(ListTaxType, "AppTaxType");
        put(ListNarration, "Narr");
        bills.setText(row, ListBillAmount, QStringLiteral("0"));
        if (!ids.isEmpty())
            ids += u',';
        ids += bills.text(row, ListBillSrNo);
    }
    return ids;
}

} // namespace

Cells emptyBillList()
{
    Cells bills(BillListColumnCount, 1);
    bills.setRow(0, {QStringLiteral("BillSrNo"), QStringLiteral("PartyCode"), QStringLiteral("BillSerId"),
                     QStringLiteral("Bill No."), QStringLiteral("Bill Date"), QStringLiteral("GSTIN"), QStringLiteral("POS"),
                     QStringLiteral("AppTaxType"), QStringLiteral("Narr"), QStringLiteral("Receiver Name"),
                     QStringLiteral("Bill Amount")});
    return bills;
}

void loadBillList(Connection &db, Cells &bills, Cells &parties, int firmId, int year, int id, bool clientWise)
{
    if (id == 0)
        bills.clearData();
    else
        removeDocument(bills, ListBillSrNo, id);
    const int firstRow = bills.rows();
    Recordset stored = billsOfYear(db, firmId, year, id);
    const QString ids = addStoredBills(bills, stored);
    fillPartyNames(bills, billListColumns, parties, firstRow, id == 0);
    if (!ids.isEmpty()) {
        Recordset totals = billTotals(db, ids);
        fillAmounts(bills, billListColumns, totals);
    }
    sortDocuments(bills, billListColumns, clientWise);
}

} // namespace ledgora
