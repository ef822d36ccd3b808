// The bill screen on a full year, beside the queries that fill it sent by the server's own client.

#include "Ratios.h"
#include "Year.h"
#include "bills/frmBillGST.h"
#include "controls/Grid.h"
#include "controls/LineField.h"
#include "host/WorkingState.h"
#include "masters/PartyDirectory.h"
#include "store/Connection.h"
#include "store/SqlText.h"
#include <QCoreApplication>
#include <QPushButton>
#include <memory>

namespace ledgora::bench {

namespace {

QStringList listQueries(int firm)
{
    return documentListQueries(firm, "Bill", "TotalAmt");
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

const int registered = [] {
    const auto open = [] { return std::make_unique<frmBillGST>(); };
    compareOpening(
        "open a year of 10,000 bills", "year of 10,000", smallFirm, open, [] { return listQueries(smallFirm); }, 1.5);
    compareOpening(
        "open a year of 100,000 bills", "year of 100,000", fullFirm, open, [] { return listQueries(fullFirm); }, 1.5);
    benchmark::RegisterBenchmark("directory of 100,000, Ledgora", loadDirectory)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("directory of 100,000, mariadb client",
                                 [](benchmark::State &state) {
                                     openPeriod(fullFirm);
                                     sendQueries(state, directoryQueries());
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
