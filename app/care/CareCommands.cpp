#include "CareCommands.h"

#include "Check.h"
#include "CommandLine.h"
#include "Commands.h"
#include "DailyBackup.h"
#include "Office.h"
#include "Restore.h"
#include "SampleData.h"
#include "host/WorkingState.h"
#include "store/Dates.h"
#include "store/Settings.h"
#include <QElapsedTimer>
#include <QFile>
#include <cstdio>

namespace ledgora::app {

namespace {

constexpr double millisecondsASecond = 1000;

/// Single copies of the common templates, unless the office has chosen: with that its bills can be opened at once.
bool chooseTemplates()
{
    return QFile::exists(joinPath(gTmplPath, QStringLiteral("Settings.txt"))) || saveTemplateSetup(false, false, 0, 0);
}

int runSample(SamplePlan plan, Connection &db)
{
    plan.host = gHostCode;
    QElapsedTimer clock;
    clock.start();
    const SampleResult result = writeSample(db, plan);
    if (!result.fault.isEmpty())
        return failed(result.fault);
    if (!chooseTemplates())
        return failed(QStringLiteral("The choice of templates could not be written to [") + gTmplPath + u']');
    std::printf("%lld companies, %lld clients, %lld bills with %lld lines, %lld receipts written in %.1f s.\n",
                static_cast<long long>(result.companies), static_cast<long long>(result.parties),
                static_cast<long long>(result.bills), static_cast<long long>(result.lines),
                static_cast<long long>(result.receipts), double(clock.elapsed()) / millisecondsASecond);
    return 0;
}

int runCheck(const CommandLine &line, Connection &db)
{
    const CheckResult result = checkData(db, gHostCode, line.firm, unwatched());
    if (!result.fault.isEmpty())
        return failed(result.fault);
    for (const Finding &finding : result.findings)
        std::printf("%s\n", qPrintable(findingText(finding)));
    if (result.findings.empty())
        std::printf("%lld bills and %lld receipts checked, nothing found.\n", static_cast<long long>(result.bills),
                    static_cast<long long>(result.receipts));
    return result.findings.empty() ? 0 : 1;
}

int runBackup(const CommandLine &line, const OfficeData &office)
{
    const QString fault = line.daily ? makeDailyBackup(office, today()) : makeBackup(office, line.out, unwatched());
    if (!fault.isEmpty())
        return failed(fault);
    if (line.daily)
        return 0;
    std::printf("The backup [%s] is written and proved.\n", qPrintable(line.out));
    return 0;
}

int runRestore(const CommandLine &line, const OfficeData &office)
{
    const RestoreResult result = restoreBackup(office, line.from, unwatched());
    if (!result.fault.isEmpty())
        return failed(result.fault);
    std::printf("The data of [%s] is restored.\n", qPrintable(line.from));
    if (!result.former.isEmpty())
        std::printf("The former data is kept in [%s].\n", qPrintable(result.former));
    return 0;
}

} // namespace

int runCareCommand(CommandLine line)
{
    // Only what writes into an office may make one: a mistyped folder must not become one, nor a bad backup an empty
    // one.
    const bool restores = line.command == CommandLine::Command::Restore;
    if (restores) {
        const BackupLook backup = lookAtBackup(line.from, unwatched());
        if (!backup.fault.isEmpty())
            return failed(backup.fault);
        if (line.host.isEmpty()) // an office that is new or empty becomes one of the backup's host
            line.host = backup.hostCode;
    }
    const Folder folder =
        restores || line.command == CommandLine::Command::Sample ? Folder::MayBeMade : Folder::MustBeThere;
    return inBilling(line, folder, [&line](Office &office, ClsGST &) {
        switch (line.command) {
        case CommandLine::Command::Sample:
            return runSample(line.sample, office.connection());
        case CommandLine::Command::Check:
            return runCheck(line, office.connection());
        case CommandLine::Command::Backup:
            return runBackup(line, {office.connection(), gHostCode, office.dataFolder()});
        case CommandLine::Command::Restore:
            return runRestore(line, {office.connection(), gHostCode, office.dataFolder()});
        default:
            return failed(QStringLiteral("not a command for the data"));
        }
    });
}

} // namespace ledgora::app
