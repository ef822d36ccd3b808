#pragma once

#include "receipts/ReceiptChecks.h"
#include "store/Cells.h"

namespace ledgora {

class Connection;

/// Columns of `vsfbr`, the bills of a party that a receipt can settle. Amounts are whole rupees; TDS is in none of the
/// sums, since it lies inside the amount of its row.
enum OpenBillColumn {
    OpenBillSrNo,
    OpenBillNo,
    OpenBillDate, ///< dd/MM/yyyy
    OpenBillSerId,
    OpenBillTotal,
    OpenBillReceived,     ///< amounts and discounts of all other receipts
    OpenBillReceivedHere, ///< those of the rows on the screen
    OpenBillPending,
    OpenBillColumnCount
};

/// The list with its heading, without bills.
Cells emptyOpenBills();

/// Fills the list with the party's bills of all years up to the receipt's date, by date, then number; none without a
/// party or without all digits of the date. `receiptId` 0 for a receipt that is not stored.
void LOADBILLLIST(Connection &db, Cells &bills, int firmId, const QString &code, const QString &date, int receiptId);

/// Works out what is pending once more from the rows on the screen (two rows of one bill both count), and hides the
/// bills that are paid. Reads nothing; linear in the bills.
void REFRESHBILLLIST(Cells &bills, const ReceiptRows &rows);

/// Row of a bill in the list, hidden ones too; -1 for no bill and for one that is not offered.
int openBillRow(const Cells &bills, int billId);

/// False when the row's bill is paid more than it charges.
bool VALIDBILLAMT(const Cells &bills, const ReceiptRow &row);
inline constexpr auto overpaidMessage = "Total Receipt Amount can not be Greater than Bill Amount.";

/// The hint of a row: amount of its bill in whole rupees, ", " and its date; "" for a bill that is not in the list.
QString openBillHint(const Cells &bills, int listRow);

} // namespace ledgora
