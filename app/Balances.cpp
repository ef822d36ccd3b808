#include "Balances.h"

#include "bills/DocumentList.h"
#include "host/Balance.h"
#include "masters/PartyDirectory.h"
#include "store/Connection.h"
#include "store/ErrorLog.h"
#include "store/FailureWatch.h"
#include "store/NumberFormat.h"
#include <QHash>
#include <algorithm>

namespace ledgora::app {

namespace {

QHash<QString, QString> partyNames(Connection &db, const QString &hostCode)
{
    Cells parties = emptyPartyDirectory();
    LOADCLLIST(db, hostCode, parties);
    QHash<QString, QString> names;
    names.reserve(parties.rows());
    for (int row = parties.fixedRows(); row < parties.rows(); ++row)
        names.insert(parties.text(row, PartyCode).toUpper(), parties.text(row, PartyName));
    return names;
}

QHash<int, QString> companyNames(Connection &db)
{
    QHash<int, QString> names;
    Recordset rows = db.Open(QStringLiteral("Select FirmSrNo,Nm From GST_FirmMas"));
    while (rows.next())
        names.insert(int(rows.integer(0)), rows.text(1));
    return names;
}

/// Texts of other programs' tables may hold anything; a TAB or line break would break the list.
QString cell(QString text)
{
    for (QChar &c : text) {
        if (c.unicode() < u' ')
            c = u' ';
    }
    return text;
}

struct Row
{
    PartyBalance balance;
    QString name;
};

} // namespace

BalanceList balanceList(Connection &db, const QString &hostCode, int firmId)
{
    const ErrorSite site("BALANCES", "BALANCELIST");
    const FailureWatch watch(db);
    const QHash<int, QString> companies = companyNames(db);
    const auto balances = allBalances(db, firmId);
    const QHash<QString, QString> parties = partyNames(db, hostCode);
    if (!balances || watch.failed())
        return {watch.fault(), {}};
    if (firmId > 0 && !companies.contains(firmId))
        return {QStringLiteral("There is no company number %1.").arg(firmId), {}};
    std::vector<Row> rows;
    for (const PartyBalance &balance : *balances) {
        if (balance.amount != 0)
            rows.push_back({balance, parties.value(balance.code.toUpper())});
    }
    std::ranges::stable_sort(rows, {}, [](const Row &row) { return std::pair(row.balance.firmId, row.name); });
    BalanceList list;
    double total = 0;
    for (const Row &row : rows) {
        const QString company = cell(companies.value(row.balance.firmId, QString::number(row.balance.firmId)));
        list.lines << (firmId > 0 ? QString() : QString(company + u'\t')) + cell(row.balance.code) + u'\t'
                          + cell(row.name) + u'\t' + plainNumber(row.balance.amount);
        total += row.balance.amount;
    }
    list.lines << QStringLiteral("Total\t") + plainNumber(total);
    return list;
}

} // namespace ledgora::app
