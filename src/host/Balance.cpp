#include "host/Balance.h"

#include "store/Connection.h"
#include "store/SqlText.h"
#include <QHash>
#include <map>
#include <utility>

namespace ledgora {

namespace {

/// What the lines of each document come to, by its id.
QHash<int, double> sumsOf(Connection &db, const char *lines, const char *key, const char *amount)
{
    QHash<int, double> sums;
    Recordset rows = db.Open("SELECT " + QLatin1String(key) + ",SUM(" + QLatin1String(amount) + ") FROM "
                             + QLatin1String(lines) + " GROUP BY " + QLatin1String(key));
    sums.reserve(rows.recordCount());
    while (rows.next())
        sums.insert(int(rows.integer(0)), rows.number(1));
    return sums;
}

/// By company and code; the server tells how it compares a code, which is blind to case.
using Balances = std::map<std::pair<int, QByteArray>, PartyBalance>;

/// Adds documents of one kind; each query reads one table, since the plan of a join hangs on the server's statistics.
/// False when they could not be read.
bool addDocuments(Connection &db, const char *headers, const char *id, int firmId, const QHash<int, double> &sums,
                  int sign, Balances &balances)
{
    Recordset rows =
        db.Open("SELECT FirmId,Code_No," + QLatin1String(id) + ",HEX(WEIGHT_STRING(RTRIM(Code_No))) FROM "
                + QLatin1String(headers) + (firmId > 0 ? QString(" WHERE FirmId=" + number(firmId)) : QString()));
    while (rows.next()) {
        const int firm = int(rows.integer(0));
        PartyBalance &balance = balances[{firm, rows.text(3).toLatin1()}];
        if (balance.code.isEmpty() || rows.text(1) < balance.code)
            balance.code = rows.text(1);
        balance.firmId = firm;
        balance.amount += sign * sums.value(int(rows.integer(2)));
    }
    return !rows.failed();
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
    Balances byParty;
    const auto billed = sumsOf(db, "GST_BillD", "BillId", "TotalAmt");
    if (db.lastErrorNumber() != 0 || !addDocuments(db, "GST_BillM", "BillSrNo", firmId, billed, 1, byParty))
        return std::nullopt;
    const auto received = sumsOf(db, "GST_RecpD", "RecpId", "Amount+Discount");
    if (db.lastErrorNumber() != 0 || !addDocuments(db, "GST_RecpM", "RecpSrNo", firmId, received, -1, byParty))
        return std::nullopt;
    std::vector<PartyBalance> balances;
    balances.reserve(byParty.size());
    for (auto &[party, balance] : byParty)
        balances.push_back(std::move(balance));
    return balances;
}

} // namespace ledgora
