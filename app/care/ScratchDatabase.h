#pragma once

#include "BackupFile.h"
#include "platform/Progress.h"

namespace ledgora::app {

/// The database of the connection.
QString databaseOf(Connection &db);

/// A database beside the office's, with the tables of the schema and no rows, made anew; goes with the object unless it
/// was released. Only one such work goes on at a time: see CareLock.
class ScratchDatabase
{
public:
    ScratchDatabase(Connection &db, const QString &name, const QString &hostCode);
    ScratchDatabase(const ScratchDatabase &) = delete;
    ScratchDatabase &operator=(const ScratchDatabase &) = delete;
    ~ScratchDatabase();

    QString name() const { return m_name; }
    QString fault() const { return m_fault; }
    /// The tables that hold data; the version of the schema is none of it.
    QStringList tables() const { return m_tables; }
    void release() { m_released = true; }

    /// Fills the tables from a backup and compares each one's rows and checksum with those the backup tells. "" when
    /// the data is whole, else what is wrong. Files of the backup go to `file`, which may refuse one.
    QString load(const QString &backup, const std::function<QString(const QString &, const QByteArray &)> &file,
                 const Progress &progress);

private:
    class Loading;
    QString compare(const std::vector<TableSum> &told, const Progress &progress);

    Connection &m_db;
    QString m_name, m_fault;
    QStringList m_tables;
    std::map<QString, QStringList> m_columns; ///< of each table that was loaded
    bool m_released = false;
};

/// The one backup, restore or check that changes something at a time, over all programs of the office.
class CareLock
{
public:
    explicit CareLock(Connection &db, int waitSeconds = 0);
    CareLock(const CareLock &) = delete;
    CareLock &operator=(const CareLock &) = delete;
    ~CareLock();
    bool isHeld() const { return m_held; }

private:
    Connection &m_db;
    QString m_name;
    bool m_held;
};

} // namespace ledgora::app
