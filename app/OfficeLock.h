#pragma once

#include <QString>

namespace ledgora {
class Connection;
}

namespace ledgora::app {

/// The database of the connection.
QString databaseOf(Connection &db);

/// One at a time over all programs of an office, for as long as the object lives: work of one kind ("care": backup and
/// restore; "open": making what an office lacks).
class OfficeLock
{
public:
    OfficeLock(Connection &db, const char *work, int waitSeconds = 0);
    OfficeLock(const OfficeLock &) = delete;
    OfficeLock &operator=(const OfficeLock &) = delete;
    ~OfficeLock();
    bool isHeld() const { return m_held; }

private:
    Connection &m_db;
    QString m_name;
    bool m_held;
};

} // namespace ledgora::app
