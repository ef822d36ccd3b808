#include "store/NewId.h"

#include "store/Connection.h"

namespace ledgora {

InsertResult insertUnderNewId(Connection &db, const QString &table, const QString &idColumn,
                              const std::function<QString(int id)> &insertStatement)
{
    InsertResult result;
    const bool locked = db.Execute(QStringLiteral("LOCK TABLE ") + table + QStringLiteral(" Write"));
    // Without the lock the highest id is of no use, and reading it would wait as long again for whoever holds the
    // table.
    Recordset highest =
        locked ? db.Open(QStringLiteral("Select Max(") + idColumn + QStringLiteral(") as MaxSr From ") + table)
               : Recordset();
    if (!highest.failed())
        result.id = (highest.next() ? int(highest.integer(QStringLiteral("MaxSr"))) : 0) + 1;
    if (result.id < 1) {
        result.id = 0;
        db.Execute(QStringLiteral("UNLOCK TABLES"));
        return result;
    }
    result.inserted = db.Execute(insertStatement(result.id));
    db.Execute(QStringLiteral("UNLOCK TABLES"));
    db.Execute(QStringLiteral("Flush Tables"));
    return result;
}

} // namespace ledgora
