// The bill screen on a full year, beside the queries that fill it sent by the server's own client.

#include "Filler.h"
#include "Office.h"
#include "Ratios.h"
#include "bills/frmBillGST.h"
#include "controls/Grid.h"
#include "controls/LineField.h"
#include "host/ClsOth.h"
#include "host/WorkingState.h"
#include "masters/PartyDirectory.h"
#include "store/Connection.h"
#include "store/Dates.h"
#include "store/SqlText.h"
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QPushButton>
#include <QTemporaryDir>
#include <memory>

namespace ledgora::bench {

namespace {

constexpr int partyCount = 100000;
constexpr int smallFirm = 11; // a year of 10,000 bills
constexpr int fullFirm = 12;  // a year of 100,000 bills
constexpr int year = 2024;

/// The full office; filled once a run.
Connection &fullOffice()
{
    static Connection db(Office::instance().handle());
    static const bool filled = [] {
        fillParties(db, partyCount);
        fillBills(db, smallFirm, year, 10000, partyCount);
        fillBills(db, fullFirm, year, 100000, partyCount);
        return true;
    }();
    Q_UNUSED(filled)
    return db;
}

/// The working state as a host leaves it for the screens.
void openPeriod(int firm)
{
    static ClsOth host(1, 1, 1);
    gCnn = &fullOffice();
    gHostObj = &host;
    gHostCode = QStringLiteral("C");
    gRegYr = year;
    gFirmId = firm;
    gFirmStateCode = QStringLiteral("07");
    setToday(QDate(year, 6, 15));
}

/// Seconds that the server's client needs for a file of statements, its output thrown away.
double clientSeconds(const QString &script)
{
    QProcess client;
    client.setStandardInputFile(script);
    client.setStandardOutputFile(QProcess::nullDevice());
    QElapsedTimer clock;
    clock.start();
    client.start(QStringLiteral("mariadb"),
                 {QStringLiteral("--no-defaults"), QStringLiteral("--socket=") + Office::instance().socket(),
                  QStringLiteral("--batch"), QStringLiteral("ledgora")});
    client.waitForFinished(120000);
    if (client.exitStatus() != QProcess::NormalExit || client.exitCode() != 0)
        throw std::runtime_error("mariadb: " + client.readAllStandardError().toStdString());
    return double(clock.nsecsElapsed()) / 1e9;
}

QString scriptOf(const QStringList &statements)
{
    static const QTemporaryDir folder;
    static int count = 0;
    const QString path = folder.filePath(QString::number(++count));
    QFile file(path);
    if (file.open(QIODevice::WriteOnly))
        file.write((statements.join(QStringLiteral(";\n")) + QStringLiteral(";\n")).toUtf8());
    return path;
}

/// The queries of opening the screen: the directory's sources, the bills, their totals.
QStringList directoryQueries()
{
    return {QStringLiteral("Select * from Comp_Master"), QStringLiteral("Select * from LLP_Master"),
            QStringLiteral("Select * from GST_ClRegNo WHERE GSTIN<>'' ORDER BY Code_No"),
            QStringLiteral("Select * from GST_OthCl")};
}

QStringList listQueries(int firm)
{
    QStringList ids;
    Recordset rows = fullOffice().Open("Select BillSrNo from GST_BillM Where FirmId=" + number(firm));
    while (rows.next())
        ids << rows.text(0);
    return {"Select * from GST_BillM Where FirmId=" + number(firm) + " and FYr=" + number(year),
            "Select BillId,SUM(TotalAmt) AS TotBillAmt from GST_BillD Where BillId IN (" + ids.join(u',')
                + ") GROUP BY BillId ORDER BY BillId"};
}

void openScreen(benchmark::State &state, int firm)
{
    openPeriod(firm);
    for ([[maybe_unused]] const auto round : state) {
        auto screen = std::make_unique<frmBillGST>();
        state.PauseTiming(); // closing it is another matter
        screen.reset();
        state.ResumeTiming();
    }
}

void sendQueries(benchmark::State &state, const QString &script)
{
    for ([[maybe_unused]] const auto round : state)
        state.SetIterationTime(clientSeconds(script));
}

void loadDirectory(benchmark::State &state)
{
    openPeriod(fullFirm);
    for ([[maybe_unused]] const auto round : state) {
        Cells parties = emptyPartyDirectory();
        LOADCLLIST(*gCnn, gHostCode, parties);
        if (parties.rows() <= partyCount)
            return state.SkipWithError("the directory is not whole");
    }
}

/// From an amount typed into a cell to the totals on the screen.
void keystroke(benchmark::State &state)
{
    openPeriod(smallFirm);
    frmBillGST screen;
    screen.show();
    screen.findChild<QPushButton *>(QStringLiteral("cmdAdd"))->click();
    auto *lines = screen.findChild<Grid *>(QStringLiteral("vsB"));
    int amount = 1000;
    for ([[maybe_unused]] const auto round : state) {
        lines->model()->setData(lines->model()->index(3, 5), QString::number(++amount));
        QCoreApplication::processEvents();
    }
    screen.findChild<QPushButton *>(QStringLiteral("cmdCancel"))->click();
}

/// One more letter of a name among all parties: found and shown.
void typeAhead(benchmark::State &state)
{
    openPeriod(smallFirm);
    frmBillGST screen;
    screen.show();
    screen.activateWindow();
    screen.findChild<QPushButton *>(QStringLiteral("cmdAdd"))->click();
    QCoreApplication::processEvents();
    auto *name = screen.findChild<LineField *>(QStringLiteral("txtpartynm"));
    auto *parties = screen.findChild<Grid *>(QStringLiteral("vsListC"));
    bool last = false;
    for ([[maybe_unused]] const auto round : state) {
        last = !last;
        name->setText(last ? QStringLiteral("ZGARWAL TRADERS 0999") : QStringLiteral("ZGARWAL TRADERS 099"));
        Q_EMIT name->textEdited(name->text());
        QCoreApplication::processEvents();
    }
    if (parties->row() < 1)
        state.SkipWithError("the party was not found");
    screen.findChild<QPushButton *>(QStringLiteral("cmdCancel"))->click();
}

void registerYear(const char *work, const std::string &name, int firm)
{
    benchmark::RegisterBenchmark(("open " + name + ", Ledgora").c_str(), [firm](benchmark::State &state) {
        openScreen(state, firm);
    })->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark(("open " + name + ", mariadb client").c_str(),
                                 [firm](benchmark::State &state) {
                                     static QHash<int, QString> scripts;
                                     if (!scripts.contains(firm))
                                         scripts.insert(firm, scriptOf(directoryQueries() + listQueries(firm)));
                                     sendQueries(state, scripts.value(firm));
                                 })
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
    compare(work, "open " + name + ", Ledgora", "open " + name + ", mariadb client", 1.5);
}

const int registered = [] {
    registerYear("open a year of 10,000 bills", "year of 10,000", smallFirm);
    registerYear("open a year of 100,000 bills", "year of 100,000", fullFirm);
    benchmark::RegisterBenchmark("directory of 100,000, Ledgora", loadDirectory)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("directory of 100,000, mariadb client",
                                 [](benchmark::State &state) {
                                     openPeriod(fullFirm);
                                     sendQueries(state, scriptOf(directoryQueries()));
                                 })
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
    compare("party directory of 100,000", "directory of 100,000, Ledgora", "directory of 100,000, mariadb client", 2);
    benchmark::RegisterBenchmark("keystroke to totals", keystroke)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("type-ahead among 100,000 parties", typeAhead)->Unit(benchmark::kMillisecond);
    return 0;
}();

} // namespace

} // namespace ledgora::bench
