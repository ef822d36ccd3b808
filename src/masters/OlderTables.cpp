#include "masters/OlderTables.h"

#include "masters/CompanyStore.h"
#include "masters/OtherClientStore.h"
#include "store/Connection.h"
#include "store/ErrorLog.h"
#include "store/SqlText.h"
#include <functional>

namespace ledgora {

namespace {

/// A column of a master of the GST side and the one of the older table that it is taken from.
struct TakenColumn
{
    const char *column;
    const char *older;
};

constexpr TakenColumn companyColumns[] = {
    {"Nm", "Name"},         {"Desig", "designation"}, {"Addr1", "Address"}, {"Addr2", "area"},   {"City", "city"},
    {"PinCode", "pincode"}, {"PhNoO1", "pnoo1"},      {"PhNoO2", "pnoo2"},  {"PhNoR1", "pnor1"}, {"PhNoR2", "pnor2"},
    {"FaxNo", "No"},        {"MobNo", "MobNo"},       {"PAN", "PAN"},       {"Pass", "pass"},
};

constexpr TakenColumn clientColumns[] = {
    {"Nm", "Nm"},     {"h_no", "h_no"},   {"h_nm", "h_nm"},     {"street", "street"}, {"area", "area"},
    {"city", "city"}, {"pincode", "PIN"}, {"StateNm", "State"}, {"PhNo1", "ph1"},     {"PhNo2", "ph2"},
    {"FaxNo", "fax"}, {"MobNo", "mob"},   {"email", "email"},
};

struct Takeover
{
    const char *table;
    const char *idColumn;
    const char *older;
    const char *olderOrder;
    std::span<const TakenColumn> taken;
    std::span<const MasterField> columns; ///< all columns behind the id, or behind id and code
    std::function<QString(int id)> key;   ///< the values in front of them
};

MasterRow takenRow(const Recordset &older, const Takeover &takeover)
{
    MasterRow row;
    for (const TakenColumn &taken : takeover.taken)
        row.insert(QLatin1String(taken.column), older.text(QLatin1String(taken.older)));
    return row;
}

/// Runs under the lock of both tables.
bool takeOverLocked(Connection &db, const Takeover &takeover)
{
    const QString table = QLatin1String(takeover.table);
    Recordset highest = db.Open("Select Max(" + QLatin1String(takeover.idColumn) + ") as MaxSr From " + table);
    if (highest.failed() || (highest.next() && highest.integer(0) > 0))
        return false; // another user got there first
    Recordset older =
        db.Open("select * from " + QLatin1String(takeover.older) + " ORDER BY " + QLatin1String(takeover.olderOrder));
    QStringList rows;
    while (older.next())
        rows << '(' + takeover.key(int(rows.size()) + 1) + ','
                    + insertValues(takeover.columns, takenRow(older, takeover)) + ')';
    return !rows.isEmpty() && db.Execute("INSERT INTO " + table + " Values " + rows.join(u','));
}

bool takeOver(Connection &db, const Takeover &takeover)
{
    // An office that never used the older side does without its tables; that is no failure.
    if (!db.Open("Show Tables Like '" + QLatin1String(takeover.older) + '\'').next())
        return false;
    const bool locked = db.Execute("LOCK TABLE " + QLatin1String(takeover.table) + " WRITE, "
                                   + QLatin1String(takeover.older) + " WRITE");
    const bool takenOver = locked && takeOverLocked(db, takeover);
    db.Execute(QStringLiteral("UNLOCK TABLES"));
    if (takenOver) {
        db.Execute(QStringLiteral("flush tables"));
        db.Execute("Analyze Table " + QLatin1String(takeover.table)); // many rows at once
    }
    return takenOver;
}

} // namespace

bool IMPORTOLDBILLFIRMS(Connection &db)
{
    const ErrorSite site("frmMainGST", "IMPORTOLDBILLFIRMS");
    return takeOver(db, {"GST_FirmMas", "FirmSrNo", "table3", "name", companyColumns, companyFields(),
                         [](int id) { return number(id); }});
}

bool IMPORTOLDBILLOTHCLS(Connection &db)
{
    const ErrorSite site("frmMainGST", "IMPORTOLDBILLOTHCLS");
    return takeOver(db, {"GST_OthCl", "OthClSrNo", "biller", "Nm", clientColumns, otherClientFields(),
                         [](int id) -> QString { return number(id) + ',' + quoted(otherClientCode(id)); }});
}

} // namespace ledgora
