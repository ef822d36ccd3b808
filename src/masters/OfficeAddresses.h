#pragma once

namespace ledgora {

class Cells;
class Connection;

/// Which address an individual's documents bear: the value of "AddrOpt" in `Confg.ini`.
enum AddressChoice {
    ResidentialAddress,
    OfficeAddress,
    ResidentialElseOffice,
    OfficeElseResidential,
    CommunicationAddress, ///< by client, as told for its latest assessment year
};

/// Columns that a list of individuals gets on its right while its addresses are chosen: a mark, "Y" where the latest
/// assessment year may send a client back to its residence; a code that nobody fills; the kind, "O" while an office
/// address may take the place of the row's.
enum OfficeWorkColumn { OfficeMark, OfficeCode, OfficeKind, OfficeWorkColumnCount };

/// Replaces addresses in a list of individuals by those of their offices (`off_info`), from `firstRow` on, as
/// `addrOpt` says. The last columns of the list are the working ones above. With `showOffName` the office's name
/// begins its address. A row that gets an office address gets the office's state too, when `stateColumn` is not
/// negative. Leaves the list sorted by code. Time grows with clients plus offices.
void CHECKANDFILLOFFCOMMADDRVS(Connection &db, Cells &grid, int firstRow, int codeColumn, int addressColumn,
                               int addrOpt, bool showOffName, int stateColumn);

} // namespace ledgora
