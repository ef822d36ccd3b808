// Full years of documents, and opening a screen on one beside its queries.

#include "Year.h"

#include "Filler.h"
#include "Office.h"
#include "Ratios.h"
#include "host/ClsOth.h"
#include "host/WorkingState.h"
#include "store/Connection.h"
#include "store/Dates.h"
#include "store/SqlText.h"
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QWidget>
#include <stdexcept>

namespace ledgora::bench {

namespace {

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

} // namespace

Connection &fullOffice()
{
    static Connection db(Office::instance().handle());
    static const bool filled = [] {
        fillParties(db, partyCount);
        fillBills(db, smallFirm, year, 10000, partyCount);
        fillBills(db, fullFirm, year, 100000, partyCount);
        fillHalfPaid(db, fullFirm, year);
        fillBills(db, creditorFirm, year, openBillCount, 1);
        return true;
    }();
    Q_UNUSED(filled)
    return db;
}

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

QStringList directoryQueries()
{
    return {QStringLiteral("Select * from Comp_Master"), QStringLiteral("Select * from LLP_Master"),
            QStringLiteral("Select * from GST_ClRegNo WHERE GSTIN<>'' ORDER BY Code_No"),
            QStringLiteral("Select * from GST_OthCl")};
}

/// The ids that a query answers, for an IN list.
static QString idsOf(const QString &query)
{
    QStringList ids;
    Recordset rows = fullOffice().Open(query);
    while (rows.next())
        ids << rows.text(0);
    return ids.join(u',');
}

QStringList documentListQueries(int firm, const QString &kind, const QString &amount)
{
    const QString documents = "GST_" + kind + "M Where FirmId=" + number(firm);
    const QString ids = idsOf("Select " + kind + "SrNo from " + documents);
    return directoryQueries() << "Select * from " + documents + " and FYr=" + number(year)
                              << "Select " + kind + "Id,SUM(" + amount + ") AS Tot" + kind + "Amt from GST_" + kind
                                     + "D Where " + kind + "Id IN (" + ids + ") GROUP BY " + kind + "Id ORDER BY "
                                     + kind + "Id";
}

void sendQueries(benchmark::State &state, const QStringList &statements)
{
    const QString script = scriptOf(statements);
    for ([[maybe_unused]] const auto round : state)
        state.SetIterationTime(clientSeconds(script));
}

void compareOpening(const char *work, const std::string &name, int firm,
                    const std::function<std::unique_ptr<QWidget>()> &open, const std::function<QStringList()> &queries,
                    double goal)
{
    const std::string ours = "open " + name + ", Ledgora";
    const std::string rival = "open " + name + ", mariadb client";
    benchmark::RegisterBenchmark(ours.c_str(), [firm, open](benchmark::State &state) {
        openPeriod(firm);
        for ([[maybe_unused]] const auto round : state) {
            auto screen = open();
            state.PauseTiming(); // closing it is another matter
            screen.reset();
            state.ResumeTiming();
        }
    })->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark(rival.c_str(),
                                 [firm, queries](benchmark::State &state) {
                                     openPeriod(firm);
                                     sendQueries(state, queries());
                                 })
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
    compare(work, ours, rival, goal);
}

} // namespace ledgora::bench
