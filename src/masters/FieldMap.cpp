#include "masters/FieldMap.h"

namespace ledgora {

QString insertValues(std::span<const MasterField> fields, const MasterRow &row)
{
    QStringList values;
    for (const MasterField &field : fields)
        values << quoted(row.value(QLatin1String(field.column)));
    return values.join(u',');
}

QString updateValues(std::span<const MasterField> fields, const MasterRow &row)
{
    QStringList values;
    for (const MasterField &field : fields)
        values << QLatin1String(field.column) + QString(u'=' + quoted(row.value(QLatin1String(field.column))));
    return values.join(u',');
}

} // namespace ledgora
