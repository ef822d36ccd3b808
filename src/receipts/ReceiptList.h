#pragma once

#include "bills/DocumentList.h"

namespace ledgora {

class Connection;

/// Columns of the list of receipts `vsListR`.
enum ReceiptListColumn {
    ListRecpSrNo,
    ListRecpPartyCode,
    ListRecpSerId,
    ListRecpNo,
    ListRecpDate, ///< dd/MM/yyyy
    ListCash,
    ListPayMode, ///< index of the mode, as text
    ListOtherAmount,
    ListBankName,
    ListBankBranch,
    ListPaperNumber,
    ListPaperDate,
    ListRecpNarration,
    ListPayerName, ///< headed "Receiver Name", as on bills
    ListRecpAmount,
    ReceiptListColumnCount
};

inline constexpr ListedColumn listedReceiptColumns[] = {
    {ListRecpSrNo, "RecpSrNo", 0},   {ListRecpPartyCode, "Code_No", 3},
    {ListRecpSerId, "RecpSerId", 4}, {ListRecpNo, "RecpNo", 5},
    {ListCash, "Cash", 7},           {ListPayMode, "PayMode", 8},
    {ListOtherAmount, "OthAmt", 9},  {ListBankName, "BankNm", 10},
    {ListBankBranch, "BankBr", 11},  {ListPaperNumber, "ChqNo", 12},
    {ListPaperDate, "ChqDt", 13},    {ListRecpNarration, "Narr", 14}};
inline constexpr DocumentListKind receiptListKind{
    {.name = ListPayerName, .amount = ListRecpAmount}, listedReceiptColumns, {ListRecpDate, "RecpDt", 6}};

/// The list with its heading, without receipts.
Cells emptyReceiptList();

/// Rebuilds the list of the year's receipts (`id` 0), or refreshes one of them. The amount of a receipt is with TDS and
/// without discount.
void loadReceiptList(Connection &db, Cells &receipts, const Cells &parties, int firmId, int year, int id,
                     bool clientWise);

} // namespace ledgora
