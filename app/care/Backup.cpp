#include "Backup.h"

#include "OfficeFiles.h"
#include "ScratchDatabase.h"
#include "store/ErrorLog.h"
#include "store/Schema.h"
#include "store/Settings.h"
#include <QDateTime>
#include <QFileInfo>

namespace ledgora::app {

namespace {

class Dump
{
public:
    Dump(const OfficeData &office, BackupWriter &writer, const Progress &progress)
        : m_office(office)
        , m_writer(writer)
        , m_progress(progress)
        , m_database(databaseOf(office.db))
    {
    }

    /// Tables in one view, so that no bill is met without its lines.
    QString writeTables(const QStringList &known)
    {
        const QStringList there = tablesOf(m_office.db, m_database);
        Snapshot data(m_office.db);
        if (!data.isOpen())
            return databaseFault();
        for (const QString &table : known) {
            if (there.contains(table))
                m_total += countOf(data, table);
        }
        for (const QString &table : known) {
            if (there.contains(table) && !writeTable(data, table))
                return fault();
        }
        return {};
    }

    QString writeFiles()
    {
        for (const QString &path : officeFiles(m_office.folder)) {
            QFile file(joinPath(m_office.folder, path));
            const QByteArray content = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
            if (file.error() != QFile::NoError)
                return QStringLiteral("The file [") + file.fileName() + QStringLiteral("] can not be read.");
            m_writer.addFile(path, content);
        }
        return m_writer.fault();
    }

private:
    qint64 countOf(Snapshot &data, const QString &table)
    {
        Recordset rows = data.Open("Select Count(*) From " + sqlName(table));
        return rows.next() ? rows.integer(0) : 0;
    }

    bool writeTable(Snapshot &data, const QString &table)
    {
        const QStringList columns = columnsOf(m_office.db, m_database, table);
        m_writer.beginTable(table, columns);
        return readRows(
            data, m_database, table, columns, [this](const QByteArray &row) { m_writer.addRow(row); },
            [this](qint64 rows) {
                m_cancelled = !m_progress(m_done += rows, m_total, QStringLiteral("Reading the data"));
                return !m_cancelled && m_writer.fault().isEmpty();
            });
    }

    QString fault() const
    {
        if (m_cancelled)
            return QLatin1String(cancelledText);
        return m_writer.fault().isEmpty() ? databaseFault() : m_writer.fault();
    }
    QString databaseFault() const { return QStringLiteral("The data could not be read: ") + m_office.db.lastError(); }

    const OfficeData &m_office;
    BackupWriter &m_writer;
    const Progress &m_progress;
    QString m_database;
    qint64 m_done = 0, m_total = 0;
    bool m_cancelled = false;
};

} // namespace

QString makeBackup(const OfficeData &office, const QString &file, const Progress &progress)
{
    const ErrorSite site("CARE", "MAKEBACKUP");
    const OfficeLock lock(office.db, "care");
    if (!lock.isHeld())
        return QStringLiteral("Another backup or restore of this office is under way.");
    ScratchDatabase scratch(office.db, databaseOf(office.db) + QStringLiteral("_scratch"), office.hostCode);
    if (!scratch.fault().isEmpty())
        return scratch.fault();
    BackupWriter writer(file, {schemaVersion, office.hostCode, QDateTime::currentDateTime().toString(Qt::ISODate),
                               QStringLiteral(LEDGORA_VERSION)});
    Dump dump(office, writer, progress);
    QString fault = writer.fault();
    if (fault.isEmpty())
        fault = dump.writeTables(scratch.tables());
    if (fault.isEmpty())
        fault = dump.writeFiles();
    if (!fault.isEmpty())
        return fault;
    writer.finish();
    if (writer.fault().isEmpty())
        fault =
            scratch.load(writer.partPath(), [](const QString &, const QByteArray &) { return QString(); }, progress);
    if (fault.isEmpty())
        writer.rename();
    return fault.isEmpty() ? writer.fault() : fault;
}

} // namespace ledgora::app
