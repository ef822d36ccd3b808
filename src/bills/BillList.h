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
inline constexpr ListedColumn listedBillColumns[] = {{ListBillSrNo, "BillSrNo", 0},   {ListPartyCode, "Code_No", 3},
                                                     {ListBillSerId, "BillSerId", 4}, {ListBillNo, "BillNo", 5},
                                                     {ListPlace, "PlaceOfServ", 7},   {ListTaxType, "AppTaxType", 8},
                                                     {ListNarration, "Narr", 9}};
inline constexpr DocumentListKind billListKind{billListColumns, listedBillColumns, {ListBillDate, "BillDt", 6}};

/// The list with its heading, without bills.
Cells emptyBillList();

/// Rebuilds the list of the year's bills (`id` 0), or refreshes one bill in it with as few queries: one for the
/// bills, one for all their totals. `parties` is the directory.
void loadBillList(Connection &db, Cells &bills, const Cells &parties, int firmId, int year, int id, bool clientWise);

} // namespace ledgora
