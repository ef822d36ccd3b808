#include "OfficeLock.h"

#include "store/Connection.h"
#include "store/SqlText.h"

namespace ledgora::app {

QString databaseOf(Connection &db)
{
    Recordset rows = db.Open(QStringLiteral("Select Database()"));
    return rows.next() ? rows.text(0) : QString();
}

OfficeLock::OfficeLock(Connection &db, const char *work, int waitSeconds)
    : m_db(db)
    , m_name(quoted(databaseOf(db) + u'_' + QLatin1String(work)))
{
    Recordset taken = db.Open("Select Get_Lock(" + m_name + ',' + number(waitSeconds) + ')');
    m_held = taken.next() && taken.integer(0) == 1;
}

OfficeLock::~OfficeLock()
{
    if (m_held && !m_db.isLost())
        m_db.Open("Select Release_Lock(" + m_name + ')');
}

} // namespace ledgora::app
