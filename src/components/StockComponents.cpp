#include "components/StockComponents.h"

#include "components/banklookup/StockBankLookup.h"
#include "components/reporter/StockReporter.h"
#include "platform/Registry.h"

namespace ledgora {

void registerStockComponents(Registry &registry)
{
    registry.add<Reporter>(QString::fromLatin1(Reporter::progId),
                           [] { return std::make_unique<reporter::StockReporter>(); });
    registry.add<BankLookup>(QString::fromLatin1(BankLookup::progId),
                             [] { return std::make_unique<banklookup::StockBankLookup>(); });
}

} // namespace ledgora
