#include "host/Balance.h"

#include "store/Connection.h"
#include "store/SqlText.h"

namespace ledgora {

namespace {

QString idList(Recordset rows)
{
    QStringList ids;
    while (rows.next())
        ids << rows.text(0);
    return ids.join(u',');
}

double sum(Connection &db, const QString &query, const QString &ids)
{
    if (ids.isEmpty())
        return 0;
    Recordset total = db.Open(query + " IN (" + ids + ")");
    return total.next() ? total.number(0) : 0;
}

} // namespace

double balanceOf(Connection &db, int firmId, const QString &codeNo)
{
    const QString party = " WHERE FirmID=" + number(firmId) + " AND Code_No=" + quoted(codeNo);
    const QString bills = idList(db.Open("SELECT BillSrNo FROM GST_BillM" + party));
    const QString receipts = idList(db.Open("SELECT RecpSrNo FROM GST_RecpM" + party));
    return sum(db, QStringLiteral("SELECT SUM(TotalAmt) AS TotAMT FROM GST_BillD WHERE BillId"), bills)
           - sum(db, QStringLiteral("SELECT SUM(Amount+Discount) AS TotAMT FROM GST_RecpD WHERE RecpId"), receipts);
}

} // namespace ledgora
