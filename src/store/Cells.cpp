#include "store/Cells.h"

#include "store/Dates.h"
#include "store/NumberFormat.h"
#include <algorithm>
#include <compare>
#include <iterator>
#include <numeric>

namespace ledgora {

namespace {

/// Order of the data rows by keys computed once a row, stable among equals; empty when they stand in order already.
template<class Key, class KeyOf>
std::vector<int> sortedOrder(int first, int last, KeyOf keyOf)
{
    std::vector<Key> keys;
    keys.reserve(size_t(last - first));
    for (int row = first; row < last; ++row)
        keys.push_back(keyOf(row));
    if (std::ranges::is_sorted(keys))
        return {};
    std::vector<int> order(keys.size());
    std::iota(order.begin(), order.end(), 0);
    std::ranges::stable_sort(order, [&keys](int a, int b) { return keys[size_t(a)] < keys[size_t(b)]; });
    return order;
}

/// The text with its UTF-16 units moved so that they compare as code points do: surrogates behind the whole basic
/// plane.
QString byCodePoints(QString text)
{
    constexpr char16_t firstSurrogate = 0xD800;
    constexpr char16_t pastSurrogates = 0xE000;
    constexpr int surrogates = pastSurrogates - firstSurrogate;
    constexpr int behind = 0x10000 - pastSurrogates;
    if (std::ranges::none_of(text, [](QChar unit) { return unit >= firstSurrogate; }))
        return text;
    for (QChar &unit : text) {
        if (unit >= firstSurrogate)
            unit = QChar(unit.unicode() + (unit < pastSurrogates ? behind : -surrogates));
    }
    return text;
}

/// Key of a text sort. The first units of the upper-cased text decide most comparisons without touching the text.
struct TextKey
{
    quint64 beginning = 0;
    QString upper;
    QString own;

    explicit TextKey(const QString &text) : upper(byCodePoints(text.toUpper())), own(byCodePoints(text))
    {
        for (qsizetype i = 0; i < 4; ++i)
            beginning = beginning << 16U | (i < upper.size() ? upper.at(i).unicode() : 0U);
    }
    std::strong_ordering operator<=>(const TextKey &other) const
    {
        if (beginning != other.beginning)
            return beginning <=> other.beginning;
        const int byUpper = upper.compare(other.upper);
        return (byUpper != 0 ? byUpper : own.compare(other.own)) <=> 0;
    }
    bool operator==(const TextKey &other) const { return own == other.own; }
};

bool matches(const QString &cell, const QString &text, Cells::Match match)
{
    switch (match) {
    case Cells::Match::Exact:
        return cell == text;
    case Cells::Match::ExactAnyCase:
        return cell.compare(text, Qt::CaseInsensitive) == 0;
    case Cells::Match::BeginsAnyCase:
        return cell.startsWith(text, Qt::CaseInsensitive);
    }
    return false;
}

} // namespace

Cells::Cells(int columns, int fixedRows)
    : m_texts(size_t(columns) * size_t(fixedRows))
    , m_hidden(size_t(fixedRows))
    , m_columns(columns)
    , m_fixedRows(fixedRows)
{
}

const QString &Cells::text(int row, int column) const
{
    static const QString none;
    if (row < 0 || row >= rows() || column < 0 || column >= m_columns)
        return none;
    return m_texts[place(row, column)];
}

double Cells::value(int row, int column) const
{
    return Val(text(row, column));
}

void Cells::setText(int row, int column, const QString &text)
{
    if (row >= 0 && row < rows() && column >= 0 && column < m_columns)
        m_texts[place(row, column)] = text;
}

void Cells::setRow(int row, const QStringList &texts)
{
    for (int column = 0; column < texts.size(); ++column)
        setText(row, column, texts.at(column));
}

void Cells::setColumns(int count)
{
    if (count == m_columns || count < 0)
        return;
    std::vector<QString> texts(m_hidden.size() * size_t(count));
    for (int row = 0; row < rows(); ++row) {
        for (int column = 0; column < std::min(count, m_columns); ++column)
            texts[size_t(row) * size_t(count) + size_t(column)] = std::move(m_texts[place(row, column)]);
    }
    m_texts = std::move(texts);
    m_columns = count;
    ++m_shape;
}

void Cells::setRows(int count)
{
    const auto wanted = size_t(std::max(count, m_fixedRows));
    if (wanted == m_hidden.size())
        return;
    m_texts.resize(wanted * size_t(m_columns));
    m_hidden.resize(wanted);
    ++m_shape;
}

int Cells::addRow(const QStringList &texts)
{
    const int row = rows();
    setRows(row + 1);
    setRow(row, texts);
    return row;
}

void Cells::insertRow(int row, const QStringList &texts)
{
    row = std::clamp(row, m_fixedRows, rows());
    m_texts.insert(m_texts.begin() + qptrdiff(place(row, 0)), size_t(m_columns), QString());
    m_hidden.insert(m_hidden.begin() + row, 0);
    ++m_shape;
    setRow(row, texts);
}

void Cells::removeRow(int row)
{
    if (!isData(row))
        return;
    const auto first = m_texts.begin() + qptrdiff(place(row, 0));
    m_texts.erase(first, first + m_columns);
    m_hidden.erase(m_hidden.begin() + row);
    ++m_shape;
}

bool Cells::isHidden(int row) const
{
    return row >= 0 && row < rows() && m_hidden[size_t(row)] != 0;
}

void Cells::setHidden(int row, bool hidden)
{
    if (row < 0 || row >= rows() || isHidden(row) == hidden)
        return;
    m_hidden[size_t(row)] = hidden ? 1 : 0;
    ++m_shape;
}

int Cells::find(const QString &text, int column, int from, Match match, bool visibleOnly) const
{
    for (int row = std::max(from, m_fixedRows); row < rows(); ++row) {
        if (matches(this->text(row, column), text, match) && !(visibleOnly && isHidden(row)))
            return row;
    }
    return -1;
}

int Cells::findMoving(const QString &text, int column, int &start) const
{
    int row = find(text, column, start);
    if (row < 0 && start > m_fixedRows)
        row = find(text, column, m_fixedRows);
    if (row >= 0)
        start = row;
    return row;
}

void Cells::sort(int column, Sort kind)
{
    std::vector<int> order;
    switch (kind) {
    case Sort::Number:
        order = sortedOrder<double>(m_fixedRows, rows(), [&](int row) { return value(row, column); });
        break;
    case Sort::Text:
        order = sortedOrder<TextKey>(m_fixedRows, rows(), [&](int row) { return TextKey(text(row, column)); });
        break;
    case Sort::Date:
        order = sortedOrder<qint64>(m_fixedRows, rows(), [&](int row) {
            const QDate day = DateFromText(text(row, column));
            return day.isValid() ? day.toJulianDay() : 0;
        });
        break;
    }
    if (order.empty())
        return;
    std::vector<QString> texts;
    std::vector<char> hidden;
    texts.reserve(order.size() * size_t(m_columns));
    hidden.reserve(order.size());
    for (const int index : order) {
        const int row = m_fixedRows + index;
        const auto first = m_texts.begin() + qptrdiff(place(row, 0));
        std::move(first, first + m_columns, std::back_inserter(texts));
        hidden.push_back(m_hidden[size_t(row)]);
    }
    std::ranges::move(texts, m_texts.begin() + qptrdiff(place(m_fixedRows, 0)));
    std::ranges::move(hidden, m_hidden.begin() + m_fixedRows);
    ++m_shape;
}

} // namespace ledgora
