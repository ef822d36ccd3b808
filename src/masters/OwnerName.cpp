#include "masters/OwnerName.h"

namespace ledgora {

QString ownerName(const QString &first, const QString &middle, const QString &last)
{
    QString name = first + ' ' + middle + ' ' + last;
    const QString doubled = QStringLiteral("  ");
    while (name.contains(doubled))
        name.replace(doubled, QStringLiteral(" "));
    return name.trimmed();
}

} // namespace ledgora
