#pragma once

#include "receipts/PaymentSplit.h"

namespace ledgora {

/// A bill as its payments use it up: what is left to pay, and how much of each tax the payments had so far. Receipts
/// go in by their order, in each the discount before the amount. A payment bears tax in the proportion that the bill
/// does, so each is rounded on its own; the sum of the roundings is kept from passing the bill's tax.
class UnpaidBill
{
public:
    explicit UnpaidBill(const BillSums &bill);

    /// A receipt that counts before the one in hand: all its rows on the bill together, both sums rounded half away
    /// from zero on 15 digits.
    void settle(const EarlierPayment &receipt);
    /// A row of the receipt in hand, its discount rounded half to even, its amount half away from zero. Once a tax is
    /// used up to the rupee, a further row still shows its share of it: the cut applies only while some is left.
    PaymentSplit settle(const PaymentRow &row);

private:
    struct Tax
    {
        double charged = 0, used = 0;
    };
    using Rounding = double (*)(double);

    double share(const Tax &tax, double sum) const { return tax.charged / m_total * sum; }
    void settleEarlier(double sum);
    void useEarlier(Tax &tax, double sum) const;
    TaxShare take(double sum, Rounding rounded);
    std::optional<double> use(Tax &tax, double sum, Rounding rounded) const;

    double m_total, m_left;
    Tax m_cgst, m_sgst, m_igst;
};

} // namespace ledgora
