#include "host/Balance.h"

#include "store/Connection.h"
#include "store/SqlText.h"

namespace ledgora {

namespace {

QString sumsOf(const char *headers, const char *lines, const char *amount, int firmId)
{
    return "SELECT FirmId,Code_No,SUM(" + QLatin1String(amount) + ") AS Due FROM " + QLatin1String(headers)
           + " LEFT JOIN " + QLatin1String(lines)
           + (firmId > 0 ? QString(" WHERE FirmId=" + number(firmId)) : QString()) + " GROUP BY FirmId,Code_No";
}

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

std::optional<std::vector<PartyBalance>> allBalances(Connection &db, int firmId)
{
    Recordset rows = db.Open("SELECT FirmId,MIN(Code_No),SUM(Due) FROM ("
                             + sumsOf("GST_BillM", "GST_BillD ON BillId=BillSrNo", "TotalAmt", firmId) + " UNION ALL "
                             + sumsOf("GST_RecpM", "GST_RecpD ON RecpId=RecpSrNo", "-(Amount+Discount)", firmId)
                             + ") AS Dues GROUP BY FirmId,Code_No ORDER BY FirmId,Code_No");
    if (rows.failed())
        return std::nullopt;
    std::vector<PartyBalance> balances;
    balances.reserve(size_t(rows.recordCount()));
    while (rows.next())
        balances.push_back({int(rows.integer(0)), rows.text(1), rows.number(2)});
    return balances;
}

} // namespace ledgora
