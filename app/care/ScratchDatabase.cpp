#include "ScratchDatabase.h"

#include "RowWriter.h"
#include "store/Schema.h"
#include "store/SqlText.h"
#include <algorithm>
#include <map>
#include <memory>
#include <mysqld_error.h>

namespace ledgora::app {

namespace {

QString readFault(Connection &db)
{
    return QStringLiteral("The database did not do it: ") + db.lastError();
}

QString values(const RowCells &row)
{
    QString text = QStringLiteral("(");
    for (const auto &cell : row) {
        if (text.size() > 1)
            text += u',';
        text += cell ? quoted(QString::fromUtf8(*cell)) : QStringLiteral("NULL");
    }
    return text + u')';
}

} // namespace

ScratchDatabase::ScratchDatabase(Connection &db, const QString &name, const QString &hostCode)
    : m_db(db)
    , m_name(name)
    , m_hostCode(hostCode)
    , m_tables(dataTables())
{
    const QString office = databaseOf(db);
    // The connection is in the other database only while its tables are made: no event can come in between.
    const bool made = !office.isEmpty() && db.Execute("Drop Database If Exists " + sqlName(name))
                      && db.Execute("Create Database " + sqlName(name)) && db.Execute("Use " + sqlName(name));
    QStringList hosts = schemaHosts();
    hosts.removeOne(hostCode);
    hosts.prepend(hostCode); // the first one is noted
    const bool whole =
        made && std::ranges::all_of(hosts, [&db](const QString &host) { return createSchema(db, host); });
    if (!whole)
        m_fault = db.lastErrorNumber() == ER_DBACCESS_DENIED_ERROR
                      ? QStringLiteral("The database user may not make the database %1, in which backups are proved. "
                                       "The administrator can allow it (docs/shared-server.md).")
                            .arg(name)
                      : readFault(db);
    if (made && !db.Execute("Use " + sqlName(office)) && m_fault.isEmpty())
        m_fault = readFault(db);
}

ScratchDatabase::~ScratchDatabase()
{
    if (!m_released && !m_db.isLost())
        m_db.Execute("Drop Database If Exists " + sqlName(m_name));
}

bool ScratchDatabase::dropUnused()
{
    const QStringList own = clientTables(m_hostCode);
    for (const QString &host : schemaHosts()) {
        for (const QString &table : clientTables(host)) {
            if (own.contains(table))
                continue;
            const QString name = sqlName(m_name) + '.' + sqlName(table);
            Recordset row = m_db.Open("Select 1 From " + name + " Limit 1");
            if (row.failed() || (!row.next() && !m_db.Execute("Drop Table " + name)))
                return false;
        }
    }
    return true;
}

/// Puts the rows of a backup into the tables.
class ScratchDatabase::Loading
{
public:
    Loading(ScratchDatabase &scratch, const std::function<QString(const QString &, const QByteArray &)> &file,
            const Progress &progress)
        : m_scratch(scratch)
        , m_file(file)
        , m_progress(progress)
    {
    }

    QString run(const QString &backup, std::vector<TableSum> &told)
    {
        BackupVisitor visitor;
        visitor.table = [this](const QString &table, const QStringList &columns) { return begin(table, columns); };
        visitor.row = [this](const RowCells &row) { return m_writer->add(values(row)) || failed(); };
        visitor.file = [this](const QString &path, const QByteArray &content) {
            m_fault = m_file(path, content);
            return m_fault.isEmpty();
        };
        visitor.pause = [this](qint64 done, qint64 total) {
            if (!m_progress(done, total, QStringLiteral("Loading the data")))
                m_fault = QLatin1String(cancelledText);
            return m_fault.isEmpty();
        };
        m_scratch.m_db.Execute(QStringLiteral("Start Transaction"));
        const BackupContents contents = readBackup(backup, visitor);
        told = contents.tables;
        const bool whole = !m_writer || m_writer->finish() || failed();
        if (!(m_scratch.m_db.Execute(QStringLiteral("Commit")) && whole) && m_fault.isEmpty())
            failed();
        return contents.fault.isEmpty() ? m_fault : contents.fault;
    }

private:
    bool begin(const QString &table, const QStringList &columns)
    {
        if (m_writer && !m_writer->finish())
            return failed();
        const QStringList known = columnsOf(m_scratch.m_db, m_scratch.m_name, table);
        for (const QString &column : columns) {
            if (!m_scratch.m_tables.contains(table) || !known.contains(column, Qt::CaseInsensitive)) {
                m_fault =
                    QStringLiteral("The backup holds the column %1 of the table %2, which this program does not know.")
                        .arg(column, table);
                return false;
            }
        }
        QStringList names;
        for (const QString &column : columns)
            names << sqlName(column);
        m_writer = std::make_unique<RowWriter>(m_scratch.m_db, sqlName(m_scratch.m_name) + '.' + sqlName(table) + " ("
                                                                   + names.join(u',') + ')');
        m_scratch.m_columns.insert_or_assign(table, columns);
        return true;
    }

    bool failed()
    {
        m_fault = readFault(m_scratch.m_db);
        return false;
    }

    ScratchDatabase &m_scratch;
    const std::function<QString(const QString &, const QByteArray &)> &m_file;
    const Progress &m_progress;
    std::unique_ptr<RowWriter> m_writer;
    QString m_fault;
};

QString ScratchDatabase::load(const QString &backup,
                              const std::function<QString(const QString &, const QByteArray &)> &file,
                              const Progress &progress)
{
    std::vector<TableSum> told;
    const QString fault = Loading(*this, file, progress).run(backup, told);
    refreshStatistics(m_db, m_name); // they go along when the tables do
    return fault.isEmpty() ? compare(told, progress) : fault;
}

QString ScratchDatabase::compare(const std::vector<TableSum> &told, const Progress &progress)
{
    Snapshot data(m_db);
    qint64 done = 0;
    qint64 total = 0;
    for (const TableSum &sum : told)
        total += qint64(sum.rows);
    for (const TableSum &sum : told) {
        TableSum stored{sum.table};
        bool cancelled = false;
        const bool read = readRows(
            data, m_name, sum.table, m_columns.at(sum.table), [&](const QByteArray &row) { stored.add(row); },
            [&](qint64 rows) {
                cancelled = !progress(done += rows, total, QStringLiteral("Comparing the data"));
                return !cancelled;
            });
        if (cancelled)
            return QLatin1String(cancelledText);
        if (!read)
            return readFault(m_db);
        if (!(stored == sum))
            return QStringLiteral("The table %1 does not come out of the backup as it went in.").arg(sum.table);
    }
    return {};
}

} // namespace ledgora::app
