#pragma once

#include <QString>
#include <optional>
#include <vector>

namespace ledgora {

class Connection;

// The tax inside a payment. Nothing of it is stored: it is worked out wherever it is wanted, from the bill's lines,
// from the payments on the bill that came earlier (by date, then number; in each the discount before the amount) and
// from the receipt's own rows, so that screen, documents and reports agree.

/// A row of a receipt: what it settles of a bill, in rupees. `amount` includes the TDS.
struct PaymentRow
{
    int billId = 0; ///< 0 for a row without a bill
    double amount = 0;
    double discount = 0;
};

/// The part of a sum that was applied to the bill, and the tax inside it in whole rupees. Nothing where the field stays
/// empty: the bill bears no such tax, is paid already, or the row has no such sum.
struct TaxShare
{
    std::optional<double> applied, cgst, sgst, igst;
    bool operator==(const TaxShare &) const = default;
};

struct PaymentSplit
{
    TaxShare amount, discount;
    bool operator==(const PaymentSplit &) const = default;
};

/// What a bill charges: taxable value and taxes, in rupees.
struct BillSums
{
    double taxable = 0, cgst = 0, sgst = 0, igst = 0;
    double total() const { return taxable + cgst + sgst + igst; }
};

/// All that one earlier receipt settled of the bill.
struct EarlierPayment
{
    double amount = 0, discount = 0;
};

/// The split of a receipt's rows on one bill, row by row in their order. `earlier` are the receipts that count before
/// it, in order. Amounts, and the discounts of earlier receipts, are rounded half away from zero on 15 digits; the
/// discounts of this receipt half to even on the double as it is; both are cut to what is left of the bill's tax.
std::vector<PaymentSplit> splitOnBill(const BillSums &bill, const std::vector<EarlierPayment> &earlier,
                                      const std::vector<PaymentRow> &rows);

/// The split of a receipt's rows, in their order, read from the tables in a few queries however many bills they
/// settle. `receiptId` 0 for one that is not stored; `date` DD/MM/YYYY or "" (then no receipt is left out as later);
/// `number` 0 for none.
std::vector<PaymentSplit> splitOfReceipt(Connection &db, int receiptId, const QString &date, int number,
                                         const std::vector<PaymentRow> &rows);

} // namespace ledgora
