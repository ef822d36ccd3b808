#include "components/banklookup/CsvReader.h"

namespace ledgora::banklookup {

namespace {

bool isLineBreak(QChar c)
{
    return c == u'\n' || c == u'\r';
}

} // namespace

CsvReader::CsvReader(QString text) : m_text(std::move(text))
{
    if (m_text.startsWith(QChar::ByteOrderMark))
        m_at = 1;
}

bool CsvReader::next(QStringList &fields)
{
    while (m_at < m_text.size()) {
        const qsizetype start = m_at;
        fields.clear();
        if (record(fields))
            return true;
        ++m_skipped;
        skipLine(start);
    }
    return false;
}

bool CsvReader::record(QStringList &fields)
{
    for (;;) {
        QString value;
        if (!field(value))
            return false;
        fields << value;
        if (m_at >= m_text.size() || endOfLine())
            return true;
        if (m_text.at(m_at) != u',')
            return false;
        ++m_at;
    }
}

bool CsvReader::field(QString &value)
{
    if (m_at < m_text.size() && m_text.at(m_at) == u'"')
        return quotedField(value);
    const qsizetype start = m_at;
    while (m_at < m_text.size() && m_text.at(m_at) != u',' && !isLineBreak(m_text.at(m_at))) {
        if (m_text.at(m_at) == u'"')
            return false;
        ++m_at;
    }
    value = m_text.mid(start, m_at - start);
    return value.size() <= longestField;
}

bool CsvReader::quotedField(QString &value)
{
    for (++m_at; m_at < m_text.size() && value.size() <= longestField; ++m_at) {
        if (m_text.at(m_at) != u'"') {
            value += m_text.at(m_at);
            continue;
        }
        ++m_at;
        if (m_at >= m_text.size() || m_text.at(m_at) != u'"')
            return true;
        value += u'"';
    }
    return false;
}

bool CsvReader::endOfLine()
{
    if (!isLineBreak(m_text.at(m_at)))
        return false;
    const bool pair = m_text.at(m_at) == u'\r' && m_at + 1 < m_text.size() && m_text.at(m_at + 1) == u'\n';
    m_at += pair ? 2 : 1;
    return true;
}

void CsvReader::skipLine(qsizetype start)
{
    m_at = start;
    while (m_at < m_text.size() && !endOfLine())
        ++m_at;
}

} // namespace ledgora::banklookup
