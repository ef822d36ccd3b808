// The receipt screen on a full year, and on a party with thousands of open bills.

#include "Ratios.h"
#include "Year.h"
#include "controls/Grid.h"
#include "receipts/frmRecpGST.h"
#include "store/Dates.h"
#include "store/SqlText.h"
#include <QCoreApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <memory>

namespace ledgora::bench {

namespace {

QStringList listQueries(int firm)
{
    return documentListQueries(firm, "Recp", "Amount");
}

/// From an amount left in a row to the taxes on the screen.
void keystroke(benchmark::State &state)
{
    openPeriod(creditorFirm);
    setToday(QDate(year + 1, 3, 31)); // all bills of the year can be paid
    frmRecpGST screen;
    screen.show();
    screen.activateWindow();
    QCoreApplication::processEvents();
    screen.findChild<QPushButton *>(QStringLiteral("cmdAdd"))->click();
    QCoreApplication::processEvents();
    const auto field = [&screen](const char *name) { return screen.findChild<QLineEdit *>(QLatin1String(name)); };
    const auto keys = [&screen](const QString &text) {
        QTest::keyClicks(screen.focusWidget(), text);
        QTest::keyClick(screen.focusWidget(), Qt::Key_Return);
        QCoreApplication::processEvents();
    };
    keys(QStringLiteral("AGARWAL TRADERS 000000"));
    QTest::mouseClick(field("txtBillSN_0"), Qt::LeftButton);
    QCoreApplication::processEvents();
    keys(QStringLiteral("10"));
    int amount = 100;
    for ([[maybe_unused]] const auto round : state) {
        state.PauseTiming();
        QTest::mouseClick(field("txtAMT_0"), Qt::LeftButton);
        field("txtAMT_0")->selectAll();
        QTest::keyClicks(field("txtAMT_0"), QString::number(++amount));
        QCoreApplication::processEvents();
        state.ResumeTiming();
        QTest::keyClick(screen.focusWidget(), Qt::Key_Return);
        QCoreApplication::processEvents();
    }
    if (field("txtCGST_0")->text().isEmpty())
        state.SkipWithError("the taxes were not worked out");
    screen.findChild<QPushButton *>(QStringLiteral("cmdCancel"))->click();
}

const int registered = [] {
    compareOpening(
        "open a year of 100,000 receipts", "year of 100,000 receipts", fullFirm,
        [] { return std::make_unique<frmRecpGST>(); }, [] { return listQueries(fullFirm); }, 1.5);
    benchmark::RegisterBenchmark("amount to taxes, 5,000 open bills", keystroke)->Unit(benchmark::kMillisecond);
    return 0;
}();

} // namespace

} // namespace ledgora::bench
