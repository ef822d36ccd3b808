#pragma once

#include "reports/ReportStore.h"

namespace ledgora {

/// A sum of money as the accounts take it: what of it is net value and what is tax, in rupees.
struct TaxedSum
{
    double net = 0, cgst = 0, sgst = 0, igst = 0;
    double total() const { return net + cgst + sgst + igst; }
    bool isZero() const { return net == 0 && cgst == 0 && sgst == 0 && igst == 0; }
    TaxedSum &operator+=(const TaxedSum &other);
    TaxedSum &operator-=(const TaxedSum &other);
};

/// A stored line of a receipt. What is paid beyond a bill's total does not count; a line without a bill, or whose bill
/// is gone, counts in full, without tax.
struct ReceiptLine
{
    int billId = 0;
    double amount = 0, discount = 0, tds = 0; ///< as stored; the amount includes the TDS
    double applied = 0, appliedDiscount = 0;  ///< what of them counts
    TaxedSum paid;                            ///< `applied` by kind
    TaxedSum allowed;                         ///< `appliedDiscount` by kind
};

/// The lines of the receipts by receipt, in the order of their serials; a few queries, however many receipts.
QHash<int, std::vector<ReceiptLine>> linesOfReceipts(Connection &db, const std::vector<ReportDocument> &receipts);

} // namespace ledgora
