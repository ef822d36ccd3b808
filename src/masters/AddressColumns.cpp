#include "masters/AddressColumns.h"

#include "store/Recordset.h"

namespace ledgora {

QString oneLineAddress(const QStringList &parts)
{
    QString address;
    for (qsizetype i = 0; i < parts.size(); ++i) {
        const QString &part = parts.at(i);
        if (part.isEmpty())
            continue;
        if (!address.isEmpty())
            address += i == parts.size() - 1 ? QStringLiteral("-") : QStringLiteral(", ");
        address += part;
    }
    return address;
}

AddressColumns::AddressColumns(const Recordset &rows, const QStringList &columns)
{
    for (const QString &name : columns)
        m_columns.push_back(rows.column(name));
}

QString AddressColumns::line(const Recordset &rows) const
{
    QStringList parts;
    parts.reserve(qsizetype(m_columns.size()));
    for (const int column : m_columns)
        parts << rows.text(column);
    return oneLineAddress(parts);
}

} // namespace ledgora
