#pragma once

#include <QStringList>
#include <benchmark/benchmark.h>
#include <functional>
#include <memory>
#include <string>

class QWidget;

namespace ledgora {
class Connection;
}

namespace ledgora::bench {

constexpr int partyCount = 100000;
constexpr int smallFirm = 11;    // a year of 10,000 bills
constexpr int fullFirm = 12;     // a year of 100,000 bills, and as many receipts
constexpr int creditorFirm = 13; // one party with 5,000 open bills
constexpr int openBillCount = 5000;
constexpr int year = 2024;

/// The full office; filled once a run.
Connection &fullOffice();

/// The working state as a host leaves it for the screens.
void openPeriod(int firm);

/// The queries that fill the directory.
QStringList directoryQueries();

/// The queries that fill an entry screen: the directory's, and those of its list. `kind` "Bill" or "Recp" as in the
/// tables' names, `amount` the column of the lines that the list sums.
QStringList documentListQueries(int firm, const QString &kind, const QString &amount);

/// Registers opening the screen that `open` makes, beside its `queries` sent by the server's own client.
void compareOpening(const char *work, const std::string &name, int firm,
                    const std::function<std::unique_ptr<QWidget>()> &open, const std::function<QStringList()> &queries,
                    double goal);

/// A run of the statements by the server's own client, its output thrown away.
void sendQueries(benchmark::State &state, const QStringList &statements);

} // namespace ledgora::bench
