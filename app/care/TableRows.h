#pragma once

#include "Snapshot.h"
#include <QByteArray>
#include <QStringList>
#include <functional>
#include <optional>
#include <vector>

namespace ledgora::app {

// Rows of any table as bytes, for backups. A row is its cells one after the other: a length of four bytes, the highest
// first, 0xFFFFFFFF for NULL, and the cell's text in UTF-8 as the server gives it.

using RowCells = std::vector<std::optional<QByteArrayView>>;

void appendCell(QByteArray &row, const std::optional<QByteArray> &cell);
/// The cells of a row, which must live as long; nothing when the bytes are no row of so many columns. `rest` is what
/// follows behind it.
std::optional<RowCells> takeRow(QByteArrayView &rest, size_t columns);

/// What a table comes to: the number of its rows and the sum of their checksums (64 bits), whatever their order.
struct TableSum
{
    QString table;
    quint64 rows = 0;
    quint64 sum = 0;

    void add(QByteArrayView row);
    bool operator==(const TableSum &) const = default;
};

/// Tables of a database, in order of their names.
QStringList tablesOf(Connection &db, const QString &database);
QStringList columnsOf(Connection &db, const QString &database, const QString &table);

/// A name as the server takes it, whatever it holds.
QString sqlName(const QString &name);

/// Reads all rows of a table, some ten thousand at a time where an index on a number allows it, and hands each to
/// `use`, which returns False to end it; `pause` comes between two readings. False when not all were read.
bool readRows(Snapshot &data, const QString &database, const QString &table, const QStringList &columns,
              const std::function<void(const QByteArray &row)> &use, const std::function<bool(qint64 rows)> &pause);

} // namespace ledgora::app
