#include "bills/BillList.h"

#include "bills/BillStore.h"
#include "store/Connection.h"

namespace ledgora {

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
    loadDocumentList(bills, billListKind, parties, id, clientWise, billsOfYear(db, firmId, year, id),
                     [&db](const QString &ids) { return billTotals(db, ids); });
}

} // namespace ledgora
