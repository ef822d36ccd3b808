#include "store/SqlText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace ledgora {

QString SqlText(const QString &text)
{
    QString safe = text;
    safe.replace(u'\'', QStringLiteral("''"));
    safe.replace(u'\\', QStringLiteral("\\\\"));
    return safe;
}

QString quoted(const QString &text)
{
    return u'\'' + SqlText(text) + u'\'';
}

QString number(qint64 value)
{
    return QString::number(value);
}

QString number(double value)
{
    if (!std::isfinite(value) || value == 0)
        return QStringLiteral("0"); // the server knows neither infinity nor a negative zero
    std::array<char, 400> digits{}; // the smallest and the largest double need some 350 places without an exponent
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value, std::chars_format::fixed);
    return QString::fromLatin1(digits.data(), end.ptr - digits.data());
}

QStringList amongIds(const QString &column, QList<int> ids)
{
    constexpr qsizetype longest = 900; // the server makes a table of a longer list, and a join with it
    constexpr qint64 sparse = 8;
    std::ranges::sort(ids);
    if (ids.size() > longest && qint64(ids.back()) - ids.front() < sparse * ids.size())
        return {column + QStringLiteral(" Between ") + number(ids.front()) + " And " + number(ids.back())};
    QStringList conditions;
    for (qsizetype first = 0; first < ids.size(); first += longest) {
        QStringList texts;
        for (const int id : ids.mid(first, longest))
            texts << number(id);
        conditions << column + QStringLiteral(" In (") + texts.join(u',') + u')';
    }
    return conditions;
}

} // namespace ledgora
