#pragma once

#include <QList>
#include <QString>
#include <QStringList>

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

/// Conditions that together find every row whose whole-number column is one of the ids, for queries of one table: no
/// plan of these costs more than reading the table, whatever the server's statistics say, which a join or a long list
/// can not promise. Ids that lie close together are named by their bounds, so that rows of others come too. No
/// conditions for no ids.
QStringList amongIds(const QString &column, QList<int> ids);

} // namespace ledgora
