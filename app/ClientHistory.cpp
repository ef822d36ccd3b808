// The names and addresses that a company bore, by the day from which each held.

#include "ClientStore.h"

#include "store/Connection.h"
#include "store/Dates.h"
#include "store/ErrorLog.h"
#include <algorithm>

namespace ledgora::app {

namespace {

/// What stands before the first change holds from here on: earlier than any document.
const QDate beforeAllDocuments(1900, 4, 1);

/// A column of a history and the column of `Comp_Master` that it follows.
struct FollowedColumn
{
    const char *column, *source;
};
struct History
{
    const char *table;
    std::span<const FollowedColumn> columns;
};
constexpr FollowedColumn nameColumns[] = {{"NewName", "Nm"}};
constexpr FollowedColumn addressColumns[] = {{"Flat", "Flat"}, {"Building", "Building"}, {"street", "street"},
                                             {"area", "area"}, {"city", "city"},         {"State", "State"},
                                             {"PIN", "PIN"}};
constexpr History histories[] = {{"ChangeName", nameColumns}, {"ChangeAddr", addressColumns}};

bool differ(const History &history, const MasterRow &former, const MasterRow &present)
{
    return std::ranges::any_of(history.columns, [&](const FollowedColumn &followed) {
        const QString column = QLatin1String(followed.source);
        return former.value(column) != present.value(column);
    });
}

QString stored(QDate day)
{
    return quoted(CONVERTTOSAVE(day.toString(QStringLiteral("dd/MM/yyyy"))));
}

QString ofCompany(const History &history, int companyId)
{
    return QLatin1String(history.table) + QString(" Where CompSrNo=" + number(companyId));
}

bool addNote(Connection &db, const History &history, int companyId, QDate day, const MasterRow &row)
{
    QStringList values{number(companyId), quoted(financialYearText(financialYearOf(day))), stored(day)};
    for (const FollowedColumn &followed : history.columns)
        values << quoted(row.value(QLatin1String(followed.source)));
    return db.Execute("Insert into " + QLatin1String(history.table) + " Values (" + values.join(u',') + ')');
}

bool mendLatest(Connection &db, const History &history, int companyId, const MasterRow &row)
{
    QStringList values;
    for (const FollowedColumn &followed : history.columns)
        values << QLatin1String(followed.column) + QString('=' + quoted(row.value(QLatin1String(followed.source))));
    return db.Execute("Update " + QLatin1String(history.table) + " Set " + values.join(u',')
                      + " Where CompSrNo=" + number(companyId) + " Order By ChDate Desc Limit 1");
}

bool noteFrom(Connection &db, const History &history, int companyId, const MasterRow &former, const MasterRow &present,
              QDate from)
{
    Recordset notes = db.Open("Select * from " + ofCompany(history, companyId));
    if (notes.failed())
        return false;
    if (notes.recordCount() == 0 && !addNote(db, history, companyId, beforeAllDocuments, former))
        return false;
    // A second change of the same day takes the place of the first.
    return db.Execute("Delete from " + ofCompany(history, companyId) + " and ChDate=" + stored(from))
           && addNote(db, history, companyId, from, present);
}

} // namespace

QDate lastChange(Connection &db, const ClientRef &client)
{
    if (client.kind != ClientKind::Company)
        return {};
    QDate last = beforeAllDocuments;
    for (const History &history : histories) {
        Recordset latest = db.Open("Select Max(ChDate) as Latest from " + ofCompany(history, client.id));
        if (latest.next())
            last = std::max(last, dateFromStore(latest.text(QStringLiteral("Latest"))));
    }
    return last > beforeAllDocuments ? last : QDate();
}

QString changeDateFault(const QString &typed, QDate last, QDate today)
{
    if (typed.isEmpty())
        return {};
    const QDate day = isDateText(typed) ? DateFromText(CONVERTDATE(typed)) : QDate();
    if (!day.isValid() || day <= beforeAllDocuments)
        return QStringLiteral("Please specify a valid date, or leave it empty for a correction.");
    if (day > today)
        return QStringLiteral("The day of the change can not lie in the future.");
    if (last.isValid() && day < last)
        return "The latest change holds from " + last.toString(QStringLiteral("dd/MM/yyyy"))
               + ". A further one can not begin before it.";
    return {};
}

bool noteClientChange(Connection &db, int companyId, const MasterRow &former, const MasterRow &present, QDate from)
{
    const ErrorSite site("CLIENTSTORE", "NOTECLIENTCHANGE");
    bool whole = true;
    for (const History &history : histories) {
        if (!differ(history, former, present))
            continue;
        const bool noted = from.isValid() ? noteFrom(db, history, companyId, former, present, from)
                                          : mendLatest(db, history, companyId, present);
        db.Execute(QStringLiteral("flush tables"));
        whole = noted && whole;
    }
    return whole;
}

} // namespace ledgora::app
