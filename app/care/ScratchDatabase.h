#pragma once

#include "BackupFile.h"
#include "app/OfficeLock.h"
#include "platform/Progress.h"

namespace ledgora::app {

/// A database beside the office's, with the tables of the schema, clients of every host included, and no rows, made
/// anew; goes with the object unless it was released. Only one such work goes on at a time: see OfficeLock.
class ScratchDatabase
{
public:
    ScratchDatabase(Connection &db, const QString &name, const QString &hostCode);
    ScratchDatabase(const ScratchDatabase &) = delete;
    ScratchDatabase &operator=(const ScratchDatabase &) = delete;
    ~ScratchDatabase();

    QString name() const { return m_name; }
    QString fault() const { return m_fault; }
    /// The tables that hold data.
    QStringList tables() const { return m_tables; }
    void release() { m_released = true; }

    /// Drops the client tables of other hosts that got no rows. False when a statement failed.
    bool dropUnused();

    /// Fills the tables from a backup and compares each one's rows and checksum with those the backup tells. "" when
    /// the data is whole, else what is wrong. Files of the backup go to `file`, which may refuse one.
    QString load(const QString &backup, const std::function<QString(const QString &, const QByteArray &)> &file,
                 const Progress &progress);

private:
    class Loading;
    QString compare(const std::vector<TableSum> &told, const Progress &progress);

    Connection &m_db;
    QString m_name, m_hostCode, m_fault;
    QStringList m_tables;
    std::map<QString, QStringList> m_columns; ///< of each table that was loaded
    bool m_released = false;
};

} // namespace ledgora::app
