#pragma once

#include <QHash>
#include <QString>
#include <memory>
#include <vector>

struct st_mysql_res;

namespace ledgora {

/// The rows of a query, read whole to the client. Begins before its first row: `while (rows.next())`. Columns are
/// named without regard to case; an unknown one reads as NULL and is logged once. Frees itself.
class Recordset
{
public:
    Recordset() = default;
    explicit Recordset(st_mysql_res *result);

    bool failed() const { return !m_result; } ///< the query did not run
    qint64 recordCount() const { return m_count; }
    int columns() const { return int(m_last.size()); }
    bool next();
    void rewind(); ///< before the first row again

    /// Position of a column, -1 when there is none: for loops over many rows, which then read by position.
    int column(const QString &name) const { return indexOf(name); }
    /// Whether the query has the column: for one that need not be there, whose absence is nothing to log.
    bool hasColumn(const QString &name) const { return m_columns.value(name.toLower(), -1) >= 0; }

    bool isNull(const QString &column) const;
    QString text(const QString &column) const;   ///< NULL is ""
    double number(const QString &column) const;  ///< NULL is 0
    qint64 integer(const QString &column) const; ///< NULL is 0

    /// The same by position from 0, for queries of one value and loops over all columns.
    bool isNull(int column) const;
    QString text(int column) const;
    double number(int column) const;
    qint64 integer(int column) const;

private:
    int indexOf(const QString &column) const;
    const char *cell(int column, unsigned long &length) const;

    struct Free
    {
        void operator()(st_mysql_res *result) const;
    };
    std::unique_ptr<st_mysql_res, Free> m_result;
    mutable QHash<QString, int> m_columns; ///< -1 for one that was asked for and is not there
    /// The text made last of a column: lists are full of runs of one value, and equal texts then share their memory.
    struct LastText
    {
        const char *bytes = nullptr; ///< in the result, which outlives it
        unsigned long length = 0;
        QString text;
    };
    mutable std::vector<LastText> m_last;
    char **m_row = nullptr;
    unsigned long *m_lengths = nullptr;
    qint64 m_count = 0;
};

} // namespace ledgora
