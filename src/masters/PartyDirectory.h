#pragma once

#include "bills/DocumentList.h"
#include "masters/AddressColumns.h"

namespace ledgora {

class Connection;

/// The list of all parties, without rows: headings "Code No.", "Name", "PAN", "GSTIN", "State", "Addr".
Cells emptyPartyDirectory();

/// Further columns of a directory that tells how parties are reached.
enum ContactColumn { PartyPhone = PartyColumnCount, PartyFax, PartyMobile, PartyEmail, ContactColumnCount };

/// The list with these columns too: "Phone", "Fax", "Mob", "Email". Host tables need not have them.
Cells emptyContactDirectory();

/// Fills the directory, as many columns as it has: the clients of the host's tables by host code, their registered
/// GSTINs, and the company's other clients; sorted by name. Individuals of host "G" bear the address that `Confg.ini`
/// asks for. A source that can not be read is logged and left out. Time grows with the number of rows read.
void LOADCLLIST(Connection &db, const QString &hostCode, Cells &parties);

} // namespace ledgora
