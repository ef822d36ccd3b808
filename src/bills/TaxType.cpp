#include "bills/TaxType.h"

namespace ledgora {

QString taxTypeWord(TaxType type)
{
    switch (type) {
    case TaxType::Intra:
        return QStringLiteral("INTRA");
    case TaxType::Inter:
        return QStringLiteral("INTER");
    case TaxType::None:
        return QStringLiteral("NO");
    }
    return {};
}

TaxType taxTypeOfWord(const QString &word)
{
    if (word == QLatin1String("NO"))
        return TaxType::None;
    return word == QLatin1String("INTER") ? TaxType::Inter : TaxType::Intra;
}

std::optional<TaxType> taxTypeOfIndex(int index)
{
    if (index < int(TaxType::Intra) || index > int(TaxType::None))
        return std::nullopt;
    return TaxType(index);
}

} // namespace ledgora
