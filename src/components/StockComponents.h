#pragma once

namespace ledgora {

class Registry;

/// Registers the stock components under their ProgIDs. A host that links them calls this once before it opens a
/// working period.
void registerStockComponents(Registry &registry);

} // namespace ledgora
