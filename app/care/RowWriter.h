#pragma once

#include <QString>

namespace ledgora {
class Connection;
}

namespace ledgora::app {

/// Inserts many rows by few statements of about half a megabyte. After a failed statement nothing more is sent.
class RowWriter
{
public:
    /// `table` as it stands behind "Insert Into", with a list of columns where one is wanted.
    RowWriter(Connection &db, QString table);

    /// The values of a row, in brackets. False after a failure.
    bool add(const QString &values);
    /// Sends what is left. False when any statement failed.
    bool finish();
    qint64 rows() const { return m_rows; }

private:
    Connection &m_db;
    QString m_table;
    QString m_statement;
    qint64 m_rows = 0;
    bool m_whole = true;
};

} // namespace ledgora::app
