#include "receipts/UnpaidBill.h"

#include "store/NumberFormat.h"
#include <algorithm>

namespace ledgora {

UnpaidBill::UnpaidBill(const BillSums &bill)
    : m_total(bill.total())
    , m_left(m_total)
    , m_cgst{.charged = bill.cgst}
    , m_sgst{.charged = bill.sgst}
    , m_igst{.charged = bill.igst}
{
}

void UnpaidBill::settle(const EarlierPayment &receipt)
{
    if (receipt.discount > 0)
        settleEarlier(receipt.discount);
    if (receipt.amount != 0)
        settleEarlier(receipt.amount);
}

PaymentSplit UnpaidBill::settle(const PaymentRow &row)
{
    PaymentSplit split;
    if (m_left == 0)
        return split;
    split.discount = take(row.discount, roundHalfEven);
    split.amount = take(row.amount, wholeRupees);
    return split;
}

void UnpaidBill::settleEarlier(double sum)
{
    if (m_left <= 0)
        return;
    const double applied = std::min(sum, m_left);
    useEarlier(m_cgst, applied);
    useEarlier(m_sgst, applied);
    useEarlier(m_igst, applied);
    m_left = std::max(0.0, m_left - sum);
}

void UnpaidBill::useEarlier(Tax &tax, double sum) const
{
    if (tax.charged > 0)
        tax.used = std::min(tax.charged, tax.used + wholeRupees(share(tax, sum)));
}

TaxShare UnpaidBill::take(double sum, Rounding rounded)
{
    TaxShare taken;
    if (sum > 0 && m_left > 0) {
        const double applied = std::min(sum, m_left);
        taken = {applied, use(m_cgst, applied, rounded), use(m_sgst, applied, rounded), use(m_igst, applied, rounded)};
    }
    m_left = std::max(0.0, m_left - sum);
    return taken;
}

std::optional<double> UnpaidBill::use(Tax &tax, double sum, Rounding rounded) const
{
    if (tax.charged <= 0)
        return std::nullopt;
    double part = rounded(share(tax, sum));
    if (tax.used < tax.charged) {
        part = std::min(part, tax.charged - tax.used);
        tax.used += part;
    }
    return part;
}

} // namespace ledgora
