#pragma once

#include <QString>
#include <QtGlobal>
#include <array>
#include <vector>

namespace ledgora {

/// The table that a receipt's rows go to `CALCRECPTAXGST` in, and the tax comes back in: texts by field (1 .. 11) and
/// row (from 1); what lies at 0 is not used. The caller fills the first three fields, with plain numbers.
class ReceiptTaxTable
{
public:
    enum Field {
        BillId = 1,
        Amount,
        Discount,
        AmountApplied, ///< the part of the amount that was applied to the bill
        AmountCgst,
        AmountSgst,
        AmountIgst,
        DiscountApplied,
        DiscountCgst,
        DiscountSgst,
        DiscountIgst,
        FieldEnd
    };

    explicit ReceiptTaxTable(int rows) : m_rows(size_t(rows) + 1) {}

    int rows() const { return int(m_rows.size()) - 1; }
    QString &operator()(int field, int row) { return m_rows.at(size_t(row)).at(size_t(field)); }
    const QString &operator()(int field, int row) const { return m_rows.at(size_t(row)).at(size_t(field)); }

private:
    std::vector<std::array<QString, FieldEnd>> m_rows;
};

/// Fills fields 4 to 11 of each row with the split of a receipt's rows (`splitOfReceipt`) on the connection of the
/// working state; a field with nothing in it stays as it is. `RecpId` 0 for a receipt that is not stored, `RecpDt`
/// DD/MM/YYYY or "", `RecpNo` 0 for none.
void CALCRECPTAXGST(qint32 RecpId, const QString &RecpDt, qint32 RecpNo, ReceiptTaxTable &table);

} // namespace ledgora
