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
    {"RecpSrNo", ListRecpSrNo, 0},   {"Code_No", ListRecpPartyCode, 3},
    {"RecpSerId", ListRecpSerId, 4}, {"RecpNo", ListRecpNo, 5},
    {"Cash", ListCash, 7},           {"PayMode", ListPayMode, 8},
    {"OthAmt", ListOtherAmount, 9},  {"BankNm", ListBankName, 10},
    {"BankBr", ListBankBranch, 11},  {"ChqNo", ListPaperNumber, 12},
    {"ChqDt", ListPaperDate, 13},    {"Narr", ListRecpNarration, 14}};
inline constexpr DocumentListKind receiptListKind{
    {.name = ListPayerName, .amount = ListRecpAmount}, listedReceiptColumns, {"RecpDt", ListRecpDate, 6}};

/// The list with its heading, without receipts.
Cells emptyReceiptList();

/// Rebuilds the list of the year's receipts (`id` 0), or refreshes one of them. The amount of a receipt is with TDS and
/// without discount.
void loadReceiptList(Connection &db, Cells &receipts, const Cells &parties, int firmId, int year, int id,
                     bool clientWise);

} // namespace ledgora
