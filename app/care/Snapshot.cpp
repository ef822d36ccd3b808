#include "Snapshot.h"

namespace ledgora::app {

Snapshot::Snapshot(Connection &db)
    : m_db(db)
    , m_open(db.Execute(QStringLiteral("Set Transaction Isolation Level Repeatable Read"))
             && db.Execute(QStringLiteral("Start Transaction With Consistent Snapshot, Read Only")))
{
}

Snapshot::~Snapshot()
{
    if (m_open)
        m_db.Execute(QStringLiteral("Commit"));
}

Recordset Snapshot::Open(const QString &sql)
{
    Recordset rows;
    read([&](Connection &db) { rows = db.Open(sql); });
    return rows;
}

/// Going back to the savepoint lets the tables go that were read since; the view stays.
void Snapshot::read(const std::function<void(Connection &)> &queries)
{
    m_db.Execute(QStringLiteral("Savepoint Reading"));
    queries(m_db);
    if (!m_db.isLost())
        m_db.Execute(QStringLiteral("Rollback To Savepoint Reading"));
}

} // namespace ledgora::app
