#pragma once

#include "store/Cells.h"
#include <QStringList>

namespace ledgora {

class Connection;

/// The list of all parties, without rows: headings "Code No.", "Name", "PAN", "GSTIN", "State", "Addr".
Cells emptyPartyDirectory();

/// Fills the directory: the clients of the host's tables by host code, their registered GSTINs, and the company's
/// other clients; sorted by name. A source that can not be read is logged and left out.
void LOADCLLIST(Connection &db, const QString &hostCode, Cells &parties);

/// One-line address: parts that are not empty joined with ", ", the last one (the postal code) with "-".
QString oneLineAddress(const QStringList &parts);

} // namespace ledgora
