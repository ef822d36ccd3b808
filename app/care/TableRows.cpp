#include "TableRows.h"

#include "store/SqlText.h"
#include <QtEndian>

namespace ledgora::app {

namespace {

constexpr quint32 nullLength = 0xFFFFFFFFU;
constexpr qsizetype lengthBytes = sizeof(quint32);
constexpr int rowsAReading = 20'000;

/// The numeric column that an index of the table begins with, "" when there is none.
QString leadingNumber(Snapshot &data, const QString &database, const QString &table)
{
    Recordset found = data.Open(
        "Select s.column_name From information_schema.statistics s Join information_schema.columns c On "
        "c.table_schema=s.table_schema And c.table_name=s.table_name And c.column_name=s.column_name Where "
        "s.table_schema="
        + quoted(database) + " And s.table_name=" + quoted(table)
        + " And s.seq_in_index=1 And c.data_type='int' Order by s.index_name='PRIMARY' Desc,s.index_name Limit 1");
    return found.next() ? found.text(0) : QString();
}

/// The bounds of one reading: above one value and up to another, each where there is one.
struct Range
{
    std::optional<qint64> above, upTo;

    QString condition(const QString &column) const
    {
        QString text = column + QStringLiteral(" Is Not Null");
        if (above)
            text += " And " + column + '>' + number(*above);
        if (upTo)
            text += " And " + column + "<=" + number(*upTo);
        return text;
    }
};

class Reading
{
public:
    Reading(Snapshot &data, const QString &database, const QString &table, const QStringList &columns,
            const std::function<void(const QByteArray &)> &use, const std::function<bool(qint64)> &pause)
        : m_data(data)
        , m_from(" From " + sqlName(database) + '.' + sqlName(table))
        , m_columns(columns)
        , m_use(use)
        , m_pause(pause)
    {
    }

    bool readAll() { return readWhere({}); }

    /// In ranges of the column, then the rows without a number.
    bool readBy(const QString &column)
    {
        Range range;
        do {
            range.upTo = highestOfNext(column, range);
            if (!readWhere(range.condition(column)))
                return false;
            range.above = range.upTo;
        } while (range.upTo);
        return readWhere(column + QStringLiteral(" Is Null"));
    }

private:
    std::optional<qint64> highestOfNext(const QString &column, Range range)
    {
        range.upTo.reset();
        Recordset found = m_data.Open("Select " + column + m_from + " Where " + range.condition(column) + " Order by "
                                      + column + " Limit " + number(rowsAReading) + ",1");
        return found.next() ? std::optional(found.integer(0)) : std::nullopt;
    }

    bool readWhere(const QString &condition)
    {
        QStringList names;
        for (const QString &column : m_columns)
            names << sqlName(column);
        Recordset rows = m_data.Open("Select " + names.join(u',') + m_from
                                     + (condition.isEmpty() ? QString() : QString(" Where " + condition)));
        if (rows.failed())
            return false;
        QByteArray row;
        while (rows.next()) {
            row.resize(0);
            for (int column = 0; column < m_columns.size(); ++column)
                appendCell(row, rows.isNull(column) ? std::nullopt : std::optional(rows.text(column).toUtf8()));
            m_use(row);
        }
        return m_pause(rows.recordCount());
    }

    Snapshot &m_data;
    QString m_from;
    const QStringList &m_columns;
    const std::function<void(const QByteArray &)> &m_use;
    const std::function<bool(qint64)> &m_pause;
};

QStringList firstColumn(Recordset rows)
{
    QStringList texts;
    while (rows.next())
        texts << rows.text(0);
    return texts;
}

} // namespace

void appendCell(QByteArray &row, const std::optional<QByteArray> &cell)
{
    const quint32 length = qToBigEndian(cell ? quint32(cell->size()) : nullLength);
    row.append(reinterpret_cast<const char *>(&length), lengthBytes);
    if (cell)
        row.append(*cell);
}

std::optional<RowCells> takeRow(QByteArrayView &rest, size_t columns)
{
    RowCells cells(columns);
    for (auto &cell : cells) {
        if (rest.size() < lengthBytes)
            return std::nullopt;
        const auto length = qFromBigEndian<quint32>(rest.data());
        rest = rest.sliced(lengthBytes);
        if (length == nullLength)
            continue;
        if (qsizetype(length) > rest.size())
            return std::nullopt;
        cell = rest.first(qsizetype(length));
        rest = rest.sliced(qsizetype(length));
    }
    return cells;
}

/// Fowler, Noll and Vo's hash with its bits spread once more, since the sum of the bare ones is weak in the high bits.
void TableSum::add(QByteArrayView row)
{
    quint64 hash = 0xcbf29ce484222325U;
    for (const char byte : row)
        hash = (hash ^ quint8(byte)) * 0x100000001b3U;
    hash = (hash ^ (hash >> 33U)) * 0xff51afd7ed558ccdU;
    sum += hash ^ (hash >> 33U);
    ++rows;
}

QStringList tablesOf(Connection &db, const QString &database)
{
    return firstColumn(db.Open("Select table_name From information_schema.tables Where table_schema=" + quoted(database)
                               + " And table_type='BASE TABLE' Order by table_name"));
}

QStringList columnsOf(Connection &db, const QString &database, const QString &table)
{
    return firstColumn(db.Open("Select column_name From information_schema.columns Where table_schema="
                               + quoted(database) + " And table_name=" + quoted(table) + " Order by ordinal_position"));
}

QString sqlName(const QString &name)
{
    QString safe = name;
    safe.replace(u'`', QStringLiteral("``"));
    return u'`' + safe + u'`';
}

bool readRows(Snapshot &data, const QString &database, const QString &table, const QStringList &columns,
              const std::function<void(const QByteArray &row)> &use, const std::function<bool(qint64 rows)> &pause)
{
    Reading reading(data, database, table, columns, use, pause);
    const QString number = leadingNumber(data, database, table);
    return number.isEmpty() ? reading.readAll() : reading.readBy(sqlName(number));
}

} // namespace ledgora::app
