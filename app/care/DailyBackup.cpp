#include "DailyBackup.h"

#include "app/Office.h"
#include "app/OfficeLock.h"
#include "store/ErrorLog.h"
#include "store/Schema.h"
#include "store/Settings.h"
#include <QCoreApplication>
#include <QDir>
#include <QProcess>
#include <QRegularExpression>
#include <algorithm>
#include <sys/resource.h>

namespace ledgora::app {

namespace {

struct Kept
{
    const char *prefix;
    qsizetype count;
};
constexpr Kept keptKinds[] = {{"daily-", 7}, {"weekly-", 8}, {"before-restore-", 3}};

QString backupFolder(const QString &dataFolder)
{
    return joinPath(dataFolder, QStringLiteral("backups"));
}

QString dated(const char *prefix, QDate day)
{
    return QLatin1String(prefix) + day.toString(Qt::ISODate) + QStringLiteral(".ledgora");
}

/// The first backup of a week stays as the week's: a second name for it, or a copy where a disk knows no such names.
void keepForTheWeek(const QString &daily, const QString &weekly)
{
    if (QFile::exists(weekly))
        return;
    if (::link(QFile::encodeName(daily).constData(), QFile::encodeName(weekly).constData()) == 0)
        return;
    const QString part = weekly + QStringLiteral(".part");
    QFile::remove(part);
    if (!QFile::copy(daily, part) || !QFile::rename(part, weekly))
        WriteErrLog(75, QStringLiteral("The file [") + weekly + QStringLiteral("] could not be written"),
                    QStringLiteral("Backup"));
}

/// What a command told on the standard error, without the program's name ahead of it.
QString reasonTold(const QByteArray &errors)
{
    const QString told = QString::fromLocal8Bit(errors).trimmed();
    const QString name = QStringLiteral("ledgora: ");
    return told.startsWith(name) ? told.sliced(name.size()) : told;
}

void logFailure(const QString &text, const std::function<void(const QString &)> &tell)
{
    const ErrorSite site("CARE", "DAILYBACKUP");
    WriteErrLog(75, text, QStringLiteral("Backup"));
    tell(QStringLiteral("Today's backup was not made: ") + text);
}

void lowerPriority()
{
    constexpr int patient = 10;
    ::setpriority(PRIO_PROCESS, 0, patient);
}

} // namespace

QString dailyBackupName(QDate day)
{
    return dated("daily-", day);
}

QString weeklyBackupName(QDate day)
{
    return dated("weekly-", day.addDays(1 - day.dayOfWeek()));
}

QStringList outdatedBackups(const QStringList &names, QDate day)
{
    QStringList outdated;
    for (const Kept &kind : keptKinds) {
        const QRegularExpression shape(
            QStringLiteral("^%1\\d{4}-\\d\\d-\\d\\d(-\\d{6})?\\.ledgora$").arg(QLatin1String(kind.prefix)));
        QStringList found = names.filter(shape);
        std::ranges::sort(found, std::greater());
        const QString next = QLatin1String(kind.prefix) + day.addDays(1).toString(Qt::ISODate);
        const auto upToDay = std::ranges::find_if(found, [&next](const QString &name) { return name < next; });
        const qsizetype later = upToDay - found.begin();
        outdated += found.first(later).mid(kind.count) + found.sliced(later).mid(kind.count);
    }
    return outdated;
}

void removeOutdatedBackups(const QString &dataFolder, QDate day)
{
    const QDir folder(backupFolder(dataFolder));
    const QStringList outdated = outdatedBackups(folder.entryList(QDir::Files), day);
    for (const QString &name : outdated + folder.entryList({QStringLiteral("*.ledgora.part")}, QDir::Files))
        QFile::remove(folder.filePath(name));
}

QString makeDailyBackup(const OfficeData &office, QDate day)
{
    const ErrorSite site("CARE", "MAKEDAILYBACKUP");
    const QDir folder(backupFolder(office.folder));
    const QString daily = folder.filePath(dailyBackupName(day));
    const OfficeLock lock(office.db, "care");
    if (!lock.isHeld() || QFile::exists(daily) || filledTable(office.db).isEmpty())
        return {};
    if (!folder.exists() && !QDir().mkdir(folder.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner))
        return QStringLiteral("The folder [") + folder.path() + QStringLiteral("] can not be made.");
    if (QString fault = makeBackup(office, daily, unwatched()); !fault.isEmpty())
        return fault;
    keepForTheWeek(daily, folder.filePath(weeklyBackupName(day)));
    removeOutdatedBackups(office.folder, day);
    return {};
}

void dailyBackup(const Office &office, QDate day, const std::function<void(const QString &text)> &tell,
                 const QString &program)
{
    if (QFile::exists(joinPath(backupFolder(office.dataFolder()), dailyBackupName(day))))
        return;
    auto *process = new QProcess; // belongs to itself: one with an owner would be killed with the window
    process->setStandardOutputFile(QProcess::nullDevice());
    process->setChildProcessModifier(lowerPriority);
    QObject::connect(process, &QProcess::finished, process, [process, tell](int status) {
        if (process->exitStatus() != QProcess::NormalExit)
            logFailure(QStringLiteral("The program that makes it has crashed."), tell);
        else if (status != 0)
            logFailure(reasonTold(process->readAllStandardError()), tell);
        process->deleteLater();
    });
    QObject::connect(process, &QProcess::errorOccurred, process, [process, tell](QProcess::ProcessError error) {
        if (error != QProcess::FailedToStart)
            return;
        logFailure(process->errorString(), tell);
        process->deleteLater();
    });
    process->start(program.isEmpty() ? QCoreApplication::applicationFilePath() : program,
                   {QStringLiteral("backup"), QStringLiteral("--daily"), QStringLiteral("--data"), office.dataFolder(),
                    QStringLiteral("--host"), office.hostCode(), QStringLiteral("--today"), day.toString(Qt::ISODate)});
}

} // namespace ledgora::app
