#include "Balances.h"
#include "CommandLine.h"
#include "Commands.h"
#include "Demo.h"
#include "MainWindow.h"
#include "ServerDialog.h"
#include "care/CareCommands.h"
#include "care/DailyBackup.h"
#include "host/WorkingState.h"
#include "store/Dates.h"
#include "store/FailureWatch.h"
#include "store/NumberFormat.h"
#include <QApplication>
#include <QIcon>
#include <QMessageBox>
#include <cstdio>

using namespace ledgora;
using namespace ledgora::app;

namespace {

enum ExitStatus { Done = 0, Failed = 1, WrongUsage = 2 };

int printAllBalances(Office &office, int firm)
{
    const BalanceList list = balanceList(office.connection(), gHostCode, firm);
    if (!list.fault.isEmpty())
        return failed(list.fault);
    for (const QString &line : list.lines)
        std::printf("%s\n", qPrintable(line));
    return Done;
}

int printBalance(const CommandLine &line)
{
    return inBilling(line, Folder::MustBeThere, [&line](Office &office, ClsGST &gst) {
        if (line.all)
            return printAllBalances(office, line.firm);
        const FailureWatch watch(office.connection());
        const QString amount = plainNumber(gst.GetAmt(line.firm, line.party));
        if (watch.failed())
            return failed(watch.fault());
        std::printf("%s\n", qPrintable(amount));
        return int(Done);
    });
}

int runWindow(const CommandLine &line)
{
    QString fault;
    const auto office = openOffice(line.dataFolder, line.host, line.server, Folder::MayBeMade, askInWindow, fault);
    if (!office) {
        QMessageBox::critical(nullptr, QStringLiteral("Ledgora"), fault);
        return failed(fault);
    }
    MainWindow window(*office);
    if (!window.isBillingOpen())
        return failed(QStringLiteral("the billing library could not be opened"));
    window.showMaximized();
    if (line.open == QLatin1String("gst"))
        window.openGst();
    if (line.server.address.isEmpty()) // a shared server is its administrator's to back up
        dailyBackup(*office, today(), [&window](const QString &text) { window.note(text); });
    return QApplication::exec();
}

} // namespace

int main(int argc, char *argv[])
{
    const QStringList words(argv, argv + argc);
    const CommandLine line = readCommandLine(words);
    setToday(line.today);
    switch (line.command) {
    case CommandLine::Command::Help:
        std::fputs(qPrintable(line.text), stdout);
        return Done;
    case CommandLine::Command::Version:
        std::puts("ledgora " LEDGORA_VERSION);
        return Done;
    case CommandLine::Command::Wrong:
        std::fprintf(stderr, "ledgora: %s\nTry ledgora --help.\n", qPrintable(line.text));
        return WrongUsage;
    default:
        break;
    }
    // What needs no window must run without a display; what a display could have done is then not worth a warning.
    if (line.command != CommandLine::Command::Window) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        qputenv("QT_LOGGING_RULES", "default.warning=false");
    }
    const QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Ledgora"));
    QApplication::setDesktopFileName(QStringLiteral("ledgora"));
    QIcon icon(QStringLiteral(":/icons/ledgora-32.png"));
    icon.addFile(QStringLiteral(":/icons/ledgora-128.png"));
    QApplication::setWindowIcon(icon);
    QApplication::setApplicationVersion(QStringLiteral(LEDGORA_VERSION));
    for (const QString &out : {line.out, line.paper.out, line.report.out}) {
        if (const QString fault = linkFault(out); !fault.isEmpty())
            return failed(fault);
    }
    if (line.command == CommandLine::Command::Balance)
        return printBalance(line);
    if (line.command == CommandLine::Command::Demo) {
        const QString fault = runDemo(line.out);
        return fault.isEmpty() ? int(Done) : failed(fault);
    }
    if (line.command == CommandLine::Command::Template)
        return runTemplateCheck(line.templ);
    if (line.command == CommandLine::Command::Bills || line.command == CommandLine::Command::Receipts)
        return runPaperCommand(line);
    if (line.command == CommandLine::Command::Report)
        return runReportCommand(line);
    if (line.command != CommandLine::Command::Window)
        return runCareCommand(line);
    return runWindow(line);
}
