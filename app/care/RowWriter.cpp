#include "RowWriter.h"

#include "store/Connection.h"

namespace ledgora::app {

namespace {

constexpr qsizetype longEnough = 500'000;

} // namespace

RowWriter::RowWriter(Connection &db, QString table) : m_db(db), m_table(std::move(table))
{
    m_statement.reserve(longEnough);
}

bool RowWriter::add(const QString &values)
{
    if (m_statement.isEmpty())
        m_statement += QStringLiteral("Insert Into ") + m_table + QStringLiteral(" Values ");
    else
        m_statement += u',';
    m_statement += values;
    ++m_rows;
    return m_statement.size() < longEnough || finish();
}

bool RowWriter::finish()
{
    if (m_whole && !m_statement.isEmpty())
        m_whole = m_db.Execute(m_statement);
    m_statement.resize(0); // keeps its memory
    return m_whole;
}

} // namespace ledgora::app
