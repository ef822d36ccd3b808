#pragma once

#include "masters/AddressColumns.h"
#include "store/Cells.h"

namespace ledgora {

class Connection;

/// The list of all parties, without rows: headings "Code No.", "Name", "PAN", "GSTIN", "State", "Addr".
Cells emptyPartyDirectory();

/// Fills the directory: the clients of the host's tables by host code, their registered GSTINs, and the company's
/// other clients; sorted by name. Individuals of host "G" bear the address that `Confg.ini` asks for. A source that can
/// not be read is logged and left out. Time grows with the number of rows read.
void LOADCLLIST(Connection &db, const QString &hostCode, Cells &parties);

} // namespace ledgora
