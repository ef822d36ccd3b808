#include "components/reporter/RtfTokens.h"

#include <algorithm>

namespace ledgora::reporter {

namespace {

bool isLetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

} // namespace

int hexValue(char c)
{
    if (isDigit(c))
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return -1;
}

void RtfTokens::fail(const QString &what)
{
    if (m_error.isEmpty())
        m_error = what + QStringLiteral(" at byte ") + QString::number(m_at);
}

RtfToken RtfTokens::next()
{
    while (!atEnd() && (m_input[m_at] == '\r' || m_input[m_at] == '\n'))
        ++m_at;
    if (atEnd())
        return {};
    switch (m_input[m_at]) {
    case '{':
        ++m_at;
        return {RtfToken::GroupBegin, {}, {}};
    case '}':
        ++m_at;
        return {RtfToken::GroupEnd, {}, {}};
    case '\\':
        ++m_at;
        return control();
    default:
        return text();
    }
}

RtfToken RtfTokens::text()
{
    const qsizetype begin = m_at;
    const auto ends = [](char c) { return c == '{' || c == '}' || c == '\\' || c == '\r' || c == '\n'; };
    while (!atEnd() && !ends(m_input[m_at]))
        ++m_at;
    return {RtfToken::Text, m_input.sliced(begin, m_at - begin), {}};
}

RtfToken RtfTokens::control()
{
    if (atEnd()) {
        fail(QStringLiteral("the text ends after a backslash"));
        return {};
    }
    if (isLetter(m_input[m_at]))
        return word();
    if (m_input[m_at] == '\'') {
        ++m_at;
        return hexByte();
    }
    return {RtfToken::Symbol, m_input.sliced(m_at++, 1), {}};
}

RtfToken RtfTokens::word()
{
    const qsizetype begin = m_at;
    while (!atEnd() && isLetter(m_input[m_at]))
        ++m_at;
    const QByteArrayView name = m_input.sliced(begin, m_at - begin);
    const std::optional<int> parameter = number();
    if (!atEnd() && m_input[m_at] == ' ')
        ++m_at; // one blank ends the word and belongs to it
    if (name == "bin")
        return binary(parameter.value_or(0));
    return {RtfToken::Word, name, parameter};
}

/// Digits beyond the range are read and cut, so that no number can overflow what is computed from it.
std::optional<int> RtfTokens::number()
{
    constexpr qint64 largest = 0x7fffffff;
    const qsizetype begin = m_at;
    const bool negative = !atEnd() && m_input[m_at] == '-';
    if (negative)
        ++m_at;
    if (atEnd() || !isDigit(m_input[m_at])) {
        m_at = begin;
        return {};
    }
    qint64 value = 0;
    for (; !atEnd() && isDigit(m_input[m_at]); ++m_at)
        value = std::min(value * 10 + (m_input[m_at] - '0'), largest);
    return static_cast<int>(negative ? -value : value);
}

RtfToken RtfTokens::hexByte()
{
    const int high = m_at + 1 < m_input.size() ? hexValue(m_input[m_at]) : -1;
    const int low = high >= 0 ? hexValue(m_input[m_at + 1]) : -1;
    if (low < 0) {
        fail(QStringLiteral("two hexadecimal digits are missing"));
        return {RtfToken::Text, m_input.sliced(m_at, 0), {}};
    }
    m_at += 2;
    return {RtfToken::Byte, {}, high * 16 + low};
}

RtfToken RtfTokens::binary(int length)
{
    const qsizetype rest = m_input.size() - m_at;
    if (length < 0 || length > rest)
        fail(QStringLiteral("binary data is cut short"));
    const qsizetype taken = std::clamp<qsizetype>(length, 0, rest);
    m_at += taken;
    return {RtfToken::Binary, m_input.sliced(m_at - taken, taken), {}};
}

} // namespace ledgora::reporter
