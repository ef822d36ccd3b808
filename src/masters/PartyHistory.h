#pragma once

namespace ledgora {

class Cells;
class Connection;

/// Lays the names and addresses that the companies of host "C" bore in a financial year over the party directory, so
/// that a document shows those that held then: of the changes up to 31 March of the year's end, the last one of a
/// company wins. `financialYear` is the year in which it starts. To be run on a directory just loaded: what changed
/// after another year is not taken back. Leaves the directory sorted by name. Hosts without a history have no such
/// tables; that is no failure.
void CEF_UPDATEADDRESS(Connection &db, int financialYear, Cells &parties);

} // namespace ledgora
