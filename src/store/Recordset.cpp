#include "store/Recordset.h"

#include "store/ErrorLog.h"
#include <cstring>
#include <mysql.h>

namespace ledgora {

void Recordset::Free::operator()(st_mysql_res *result) const
{
    mysql_free_result(result);
}

Recordset::Recordset(st_mysql_res *result) : m_result(result)
{
    if (!result)
        return;
    m_count = qint64(mysql_num_rows(result));
    const unsigned count = mysql_num_fields(result);
    m_last.resize(count);
    const MYSQL_FIELD *fields = mysql_fetch_fields(result);
    // Of two columns with one name the first counts, as in "Select a.*,b.*".
    for (unsigned i = count; i-- > 0;)
        m_columns.insert(QString::fromUtf8(fields[i].name).toLower(), int(i));
}

bool Recordset::next()
{
    m_row = m_result ? mysql_fetch_row(m_result.get()) : nullptr;
    m_lengths = m_row ? mysql_fetch_lengths(m_result.get()) : nullptr;
    return m_row != nullptr;
}

void Recordset::rewind()
{
    m_row = nullptr;
    if (m_result)
        mysql_data_seek(m_result.get(), 0);
}

int Recordset::indexOf(const QString &column) const
{
    const auto found = m_columns.constFind(column.toLower());
    if (found != m_columns.cend())
        return found.value();
    if (m_result) {
        WriteErrLog(3265, QStringLiteral("The query has no column [") + column + u']', QStringLiteral("Recordset"));
        m_columns.insert(column.toLower(), -1);
    }
    return -1;
}

const char *Recordset::cell(int column, unsigned long &length) const
{
    if (!m_row || column < 0 || column >= int(mysql_num_fields(m_result.get())))
        return nullptr;
    length = m_lengths[column];
    return m_row[column];
}

bool Recordset::isNull(const QString &column) const
{
    return isNull(indexOf(column));
}

bool Recordset::isNull(int column) const
{
    unsigned long length = 0;
    return cell(column, length) == nullptr;
}

QString Recordset::text(int column) const
{
    unsigned long length = 0;
    const char *bytes = cell(column, length);
    if (!bytes)
        return {};
    LastText &last = m_last[size_t(column)];
    if (!last.bytes || last.length != length || std::memcmp(last.bytes, bytes, length) != 0)
        last = {bytes, length, QString::fromUtf8(bytes, qsizetype(length))};
    return last.text;
}

double Recordset::number(int column) const
{
    unsigned long length = 0;
    const char *bytes = cell(column, length);
    return bytes ? QByteArray::fromRawData(bytes, qsizetype(length)).toDouble() : 0;
}

qint64 Recordset::integer(int column) const
{
    return qint64(number(column));
}

QString Recordset::text(const QString &column) const
{
    return text(indexOf(column));
}

double Recordset::number(const QString &column) const
{
    return number(indexOf(column));
}

qint64 Recordset::integer(const QString &column) const
{
    return integer(indexOf(column));
}

} // namespace ledgora
