#include "receipts/ReceiptTaxTable.h"

#include "host/WorkingState.h"
#include "receipts/PaymentSplit.h"
#include "store/NumberFormat.h"
#include <limits>

namespace ledgora {

namespace {

/// A text that no id can be is no bill.
int billId(const QString &text)
{
    const double value = Val(text);
    return value > 0 && value <= std::numeric_limits<int>::max() ? int(value) : 0;
}

void put(ReceiptTaxTable &table, int row, int firstField, const TaxShare &share)
{
    int field = firstField;
    for (const auto &value : {share.applied, share.cgst, share.sgst, share.igst}) {
        if (value)
            table(field, row) = plainNumber(*value);
        ++field;
    }
}

} // namespace

void CALCRECPTAXGST(qint32 RecpId, const QString &RecpDt, qint32 RecpNo, ReceiptTaxTable &table)
{
    if (!gCnn)
        return;
    std::vector<PaymentRow> rows;
    for (int row = 1; row <= table.rows(); ++row)
        rows.push_back({billId(table(ReceiptTaxTable::BillId, row)), Val(table(ReceiptTaxTable::Amount, row)),
                        Val(table(ReceiptTaxTable::Discount, row))});
    int row = 0;
    for (const PaymentSplit &split : splitOfReceipt(*gCnn, RecpId, RecpDt, RecpNo, rows)) {
        ++row;
        put(table, row, ReceiptTaxTable::AmountApplied, split.amount);
        put(table, row, ReceiptTaxTable::DiscountApplied, split.discount);
    }
}

} // namespace ledgora
