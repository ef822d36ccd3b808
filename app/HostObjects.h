#pragma once

namespace ledgora {
class Registry;
}

namespace ledgora::app {

class Office;

/// Registers the base objects of hosts "G" and "T" as this program plays them on the office: its data folder, its
/// connection, and as current year the one in which the financial year of today starts (host "T": the next one). The
/// office must outlive every period opened with them.
void registerHostObjects(Registry &registry, Office &office);
void removeHostObjects(Registry &registry);

} // namespace ledgora::app
