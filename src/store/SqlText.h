#pragma once

#include <QString>

namespace ledgora {

/// A value made safe for quoted SQL text of a server that honours back-slash escapes: ' and \ are doubled.
QString SqlText(const QString &text);

/// `SqlText` of the value between single quotes.
QString quoted(const QString &text);

/// A number as SQL text: plain digits, "." as point, no exponent, shortest text that reads back as the same double.
QString number(qint64 value);
inline QString number(int value)
{
    return number(qint64(value));
}
QString number(double value);

} // namespace ledgora
