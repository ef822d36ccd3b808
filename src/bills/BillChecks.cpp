#include "bills/BillChecks.h"

#include "bills/EntryRules.h"
#include <array>

namespace ledgora {

namespace {

struct HeadCheck
{
    const char *field;
    QString (*fault)(const BillDraft &bill);
};

const std::array headChecks{
    HeadCheck{"txtpartynm",
              [](const BillDraft &b) {
                  return b.code.isEmpty() ? QStringLiteral("Please Select a 'Receiver'.") : QString();
              }},
    HeadCheck{"txtbillno", [](const BillDraft &b) { return documentNumberFault(b.number, QStringLiteral("Bill")); }},
    HeadCheck{"txtbilldt",
              [](const BillDraft &b) { return documentDateFault(b.date, b.year, QStringLiteral("Bill")); }},
    HeadCheck{"cboPOS",
              [](const BillDraft &b) {
                  return b.state.isEmpty() ? QStringLiteral("Please specify 'Place of Supply' !") : QString();
              }},
    HeadCheck{"cboTaxType",
              [](const BillDraft &b) {
                  return b.taxType ? QString() : QStringLiteral("Please specify 'Tax Applicability' !");
              }},
};

struct Line
{
    const Cells &cells;
    int row;
    double value(int column) const { return cells.value(row, column); }
};

bool isNegative(const Line &line, int column)
{
    return line.value(column) < 0;
}

struct LineCheck
{
    int column;
    bool (*fails)(const Line &line, int column);
    const char *message;
};

// A column that the tax type hides is not checked: its cells are not part of the bill.
constexpr std::array lineChecks{
    LineCheck{ParticularsColumn, [](const Line &l, int c) { return l.cells.text(l.row, c).trimmed().isEmpty(); },
              "Please specify 'Particulars' !"},
    LineCheck{AmountColumn, [](const Line &l, int c) { return l.value(c) <= 0; }, "Please specify Valid 'Amount' !"},
    LineCheck{DiscountColumn, isNegative, "Please specify Valid 'Discount' !"},
    LineCheck{DiscountColumn, [](const Line &l, int c) { return l.value(AmountColumn) < l.value(c); },
              "'Discount Amount' can not be more than 'Amount'."},
    LineCheck{CgstRateColumn, isNegative, "Please specify Valid 'CGST (%)' !"},
    LineCheck{CgstColumn, isNegative, "Please specify Valid 'CGST (Amount)' !"},
    LineCheck{SgstRateColumn, isNegative, "Please specify Valid 'SGST (%)' !"},
    LineCheck{SgstColumn, isNegative, "Please specify Valid 'SGST (Amount)' !"},
    LineCheck{IgstRateColumn, isNegative, "Please specify Valid 'IGST (%)' !"},
    LineCheck{IgstColumn, isNegative, "Please specify Valid 'IGST (Amount)' !"},
};

} // namespace

std::optional<BillFault> headFault(const BillDraft &bill)
{
    for (const HeadCheck &check : headChecks) {
        if (const QString message = check.fault(bill); !message.isEmpty())
            return BillFault{message, QLatin1String(check.field)};
    }
    return std::nullopt;
}

std::optional<BillFault> lineFault(const BillDraft &bill)
{
    bool anyInUse = false;
    for (int row = billFixedRows; row < bill.lines.rows(); ++row) {
        if (!isBillLineInUse(bill.lines, row))
            continue;
        anyInUse = true;
        for (const LineCheck &check : lineChecks) {
            if (!isBillColumnHidden(check.column, bill.taxType) && check.fails({bill.lines, row}, check.column))
                return BillFault{QLatin1String(check.message), QStringLiteral("vsB"), row, check.column};
        }
    }
    if (!anyInUse)
        return BillFault{QStringLiteral("Please specify atleast one 'Particular'."), QStringLiteral("vsB"),
                         billFixedRows, ParticularsColumn};
    return std::nullopt;
}

} // namespace ledgora
