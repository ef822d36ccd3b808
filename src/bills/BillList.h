#pragma once

#include "bills/DocumentList.h"

namespace ledgora {

class Connection;

/// Columns of the list of bills `vsListB`.
enum BillListColumn {
    ListBillSrNo,
    ListPartyCode,
    ListBillSerId,
    ListBillNo,
    ListBillDate, ///< dd/MM/yyyy
    ListGstin,    ///< always empty
    ListPlace,
    ListTaxType,
    ListNarration,
    ListReceiverName,
    ListBillAmount,
    BillListColumnCount
};

inline constexpr DocumentListColumns billListColumns{.name = ListReceiverName, .amount = ListBillAmount};
inline constexpr ListedColumn listedBillColumns[] = {{"BillSrNo", ListBillSrNo, 0},   {"Code_No", ListPartyCode, 3},
                                                     {"BillSerId", ListBillSerId, 4}, {"BillNo", ListBillNo, 5},
                                                     {"PlaceOfServ", ListPlace, 7},   {"AppTaxType", ListTaxType, 8},
                                                     {"Narr", ListNarration, 9}};
inline constexpr DocumentListKind billListKind{billListColumns, listedBillColumns, {"BillDt", ListBillDate, 6}};

/// The list with its heading, without bills.
Cells emptyBillList();

/// Rebuilds the list of the year's bills (`id` 0), or refreshes one bill in it with as few queries: one for the
/// bills, one for all their totals. `parties` is the directory.
void loadBillList(Connection &db, Cells &bills, const Cells &parties, int firmId, int year, int id, bool clientWise);

} // namespace ledgora
