#include "Restore.h"

#include "DailyBackup.h"
#include "OfficeFiles.h"
#include "ScratchDatabase.h"
#include "store/Dates.h"
#include "store/ErrorLog.h"
#include "store/Schema.h"
#include "store/Settings.h"
#include "store/SqlText.h"
#include <QDateTime>
#include <QDir>
#include <QStorageInfo>

namespace ledgora::app {

namespace {

/// Stands among the tables from the swap until the files are in place too.
constexpr auto mark = "ledgora_restored";
constexpr int waitForOther = 60; // seconds for another program to complete the restore

QString databaseFault(Connection &db)
{
    return QStringLiteral("The database did not do it: ") + db.lastError();
}

QString formerDatabase(Connection &db)
{
    return databaseOf(db) + QStringLiteral("_former");
}

/// Who else has the office's database open; its screens would go on with rows that are no longer there.
bool isOpenElsewhere(Connection &db)
{
    Recordset others = db.Open(QStringLiteral("Select 1 From information_schema.processlist Where DB=Database() And "
                                              "ID<>Connection_Id()"));
    return others.failed() || others.next();
}

/// On a shared server only some users see who else is connected.
bool seesOthers(Connection &db)
{
    return db.Open("Select 1 From information_schema.user_privileges Where privilege_type='PROCESS'").next();
}

QString headFault(const BackupHead &head)
{
    if (head.schemaVersion > schemaVersion)
        return QStringLiteral("The backup was made by a newer version of Ledgora (data version %1, this program knows "
                              "%2). Please update Ledgora on this machine.")
            .arg(head.schemaVersion)
            .arg(schemaVersion);
    if (!schemaHosts().contains(head.hostCode))
        return QStringLiteral("The backup is of an office of host %1, which this program does not know.")
            .arg(head.hostCode);
    return {};
}

/// When the server does not answer, nobody knows, and nothing may be thrown away.
bool mayHaveMark(Connection &db)
{
    Recordset marks = db.Open("Select 1 From information_schema.tables Where table_schema=Database() And table_name="
                              + quoted(QLatin1String(mark)));
    return marks.failed() || marks.next();
}

/// The databases beside the office's that a backup or restore works with, as far as they are there: a clerk of a shared
/// server neither sees nor may drop them.
QStringList besideOf(Connection &db)
{
    const QString office = databaseOf(db);
    QStringList names;
    for (const char *suffix : {"_scratch", "_restore", "_former"})
        names << quoted(office + QLatin1String(suffix));
    QStringList found;
    Recordset rows =
        db.Open("Select schema_name From information_schema.schemata Where schema_name In (" + names.join(u',') + ')');
    while (rows.next())
        found << rows.text(0);
    return found;
}

void dropBeside(Connection &db)
{
    for (const QString &name : besideOf(db))
        db.Execute("Drop Database If Exists " + sqlName(name));
}

/// What was left by a backup or restore that was killed before it changed anything. One that is under way holds the
/// lock.
void clearLeftovers(Connection &db, const QString &dataFolder)
{
    if (besideOf(db).isEmpty() && !hasKept(dataFolder))
        return;
    const OfficeLock lock(db, "care");
    if (!lock.isHeld() || mayHaveMark(db))
        return;
    dropBeside(db);
    dropKept(dataFolder);
}

class Restore
{
public:
    Restore(const OfficeData &office, QString file, const Progress &progress)
        : m_office(office)
        , m_file(std::move(file))
        , m_progress(progress)
        , m_database(databaseOf(office.db))
    {
    }

    RestoreResult run()
    {
        RestoreResult result;
        result.fault = keepFormer(result.former);
        if (result.fault.isEmpty())
            result.fault = replace();
        if (result.fault.isEmpty())
            removeOutdatedBackups(m_office.folder, today()); // not before: the backup may be one of them
        else if (!mayHaveMark(m_office.db))
            dropKept(m_office.folder);
        return result;
    }

private:
    /// The former data goes into a file first, so that a wrong restore can be taken back.
    QString keepFormer(QString &former)
    {
        if (!filledTable(m_office.db).isEmpty()) {
            const QString folder = joinPath(m_office.folder, QStringLiteral("backups"));
            QDir().mkdir(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
            const QString name = QStringLiteral("before-restore-")
                                 + QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd-HHmmss"))
                                 + QStringLiteral(".ledgora");
            former = joinPath(folder, name);
            if (const QString fault = makeBackup(m_office, former, m_progress); !fault.isEmpty())
                return QStringLiteral("The present data could not be backed up first: ") + fault;
        }
        return {};
    }

    QString replace()
    {
        Connection &db = m_office.db;
        ScratchDatabase scratch(db, m_database + QStringLiteral("_restore"), m_office.hostCode);
        QString fault = scratch.fault();
        if (fault.isEmpty())
            fault = beginKeeping(m_office.folder);
        if (fault.isEmpty())
            fault = scratch.load(
                m_file,
                [this](const QString &path, const QByteArray &content) {
                    return isOfficeFile(path)
                               ? keepForRestore(m_office.folder, path, content)
                               : QString("The backup holds the file [" + path + "], which is none of an office.");
                },
                m_progress);
        if (!fault.isEmpty())
            return fault;
        const QString former = formerDatabase(db);
        const QStringList replaced = scratch.tables() + QStringList{"ledgora_schema", "ledgora_host"};
        const bool ready = scratch.dropUnused()
                           && db.Execute("Create Table " + sqlName(scratch.name()) + '.' + sqlName(QLatin1String(mark))
                                         + " (Id int) Engine=InnoDB")
                           && db.Execute("Drop Database If Exists " + sqlName(former))
                           && db.Execute("Create Database " + sqlName(former));
        if (!ready || !db.Execute(swap(replaced, scratch.name(), former)))
            return databaseFault(db);
        fault = finishRestore(db, m_office.folder);
        return fault.isEmpty() ? fault
                               : "The tables are restored; settings and templates follow at the next start: " + fault;
    }

    /// All tables change places in one statement, which the server carries out whole or not at all, even when it is
    /// killed. Those that are none of ours stay.
    QString swap(const QStringList &replaced, const QString &scratch, const QString &former)
    {
        QStringList moves;
        const auto move = [&](const QString &table, const QString &from, const QString &to) {
            moves << sqlName(from) + '.' + sqlName(table) + " To " + sqlName(to) + '.' + sqlName(table);
        };
        for (const QString &table : tablesOf(m_office.db, m_database)) {
            if (replaced.contains(table))
                move(table, m_database, former);
        }
        for (const QString &table : tablesOf(m_office.db, scratch))
            move(table, scratch, m_database);
        return "Rename Table " + moves.join(u',');
    }

    const OfficeData &m_office;
    QString m_file;
    const Progress &m_progress;
    QString m_database;
};

} // namespace

BackupLook lookAtBackup(const QString &file, const Progress &progress)
{
    BackupVisitor visitor;
    visitor.pause = [&](qint64 done, qint64 total) {
        return progress(done, total, QStringLiteral("Reading the backup"));
    };
    const BackupContents contents = readBackup(file, visitor);
    if (contents.stopped)
        return {QLatin1String(cancelledText), {}, 0};
    return {contents.fault.isEmpty() ? headFault(contents.head) : contents.fault, contents.head.hostCode,
            contents.unpacked};
}

RestoreResult restoreBackup(const OfficeData &office, const QString &file, const Progress &progress)
{
    const ErrorSite site("CARE", "RESTOREBACKUP");
    const BackupLook backup = lookAtBackup(file, progress);
    if (!backup.fault.isEmpty())
        return {backup.fault, {}};
    if (backup.hostCode != office.hostCode)
        return {QStringLiteral("The backup is of an office of host %1, this one is of host %2.")
                    .arg(backup.hostCode, office.hostCode),
                {}};
    constexpr qint64 megabyte = qint64(1024) * 1024;
    const QStorageInfo disk(office.folder);
    if (backup.unpacked > disk.bytesAvailable())
        return {QStringLiteral("The backup holds %1 MB, and there is no room for them on the disk %2.")
                    .arg(backup.unpacked / megabyte)
                    .arg(disk.rootPath()),
                {}};
    const OfficeLock lock(office.db, "care");
    if (!lock.isHeld())
        return {QStringLiteral("Another backup or restore of this office is under way."), {}};
    if (!seesOthers(office.db))
        return {
            QStringLiteral("The database user lacks the right PROCESS: whether the office is open elsewhere can not "
                           "be seen."),
            {}};
    if (isOpenElsewhere(office.db))
        return {QStringLiteral("The office is open in another program. Close it there first."), {}};
    return Restore(office, file, progress).run();
}

QString finishRestore(Connection &db, const QString &dataFolder)
{
    const ErrorSite site("CARE", "FINISHRESTORE");
    if (!mayHaveMark(db)) {
        clearLeftovers(db, dataFolder);
        return {};
    }
    const OfficeLock lock(db, "care", waitForOther);
    if (!lock.isHeld())
        return QStringLiteral("Another program is restoring this office.");
    if (!mayHaveMark(db)) // it has completed it meanwhile
        return {};
    if (const QString fault = takeKept(dataFolder); !fault.isEmpty())
        return fault;
    if (!db.Execute("Drop Table " + sqlName(QLatin1String(mark))))
        return databaseFault(db);
    dropBeside(db);
    return {};
}

} // namespace ledgora::app
