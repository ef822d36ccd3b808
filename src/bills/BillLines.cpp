#include "bills/BillLines.h"

#include "store/Dates.h"
#include "store/NumberFormat.h"
#include <algorithm>
#include <array>

namespace ledgora {

namespace {

constexpr std::array totalledColumns{AmountColumn, DiscountColumn, NetColumn,  CgstColumn,
                                     SgstColumn,   IgstColumn,     TotalColumn};
constexpr std::array taxAmountColumns{CgstColumn, SgstColumn, IgstColumn};

QString rupees(double amount)
{
    return formatNumber(amount, QStringLiteral("###0"));
}

QString rupeesFromZero(double amount)
{
    const QString text = rupees(amount);
    return Val(text) < 0 ? QStringLiteral("0") : text;
}

bool isChecked(const Cells &lines, int row)
{
    return lines.text(row, EditTaxColumn) == QLatin1String("Y");
}

/// The tax that counts towards the line's total; that of the other type sits in hidden cells.
double taxOfType(const Cells &lines, int row, std::optional<TaxType> type)
{
    if (type == TaxType::Intra)
        return lines.value(row, CgstColumn) + lines.value(row, SgstColumn);
    return type == TaxType::Inter ? lines.value(row, IgstColumn) : 0;
}

void recomputeLine(Cells &lines, int row, std::optional<TaxType> type)
{
    const auto value = [&](int column) { return lines.value(row, column); };
    lines.setText(row, NetColumn, rupeesFromZero(value(AmountColumn) - value(DiscountColumn)));
    if (!isChecked(lines, row)) {
        for (const int column : taxAmountColumns)
            lines.setText(row, column, rupees(lineTax(value(NetColumn), value(column - 1))));
    }
    const double tax = taxOfType(lines, row, type);
    lines.setText(row, TotalColumn, rupeesFromZero(value(NetColumn) + tax));
    if (value(AmountColumn) != 0 || value(DiscountColumn) != 0)
        return;
    for (const int column : {NetColumn, CgstColumn, SgstColumn, IgstColumn, TotalColumn}) {
        if (lines.text(row, column) == QLatin1String("0"))
            lines.setText(row, column, {});
    }
}

void fillIfEmpty(Cells &lines, int row, int column, const QString &rate)
{
    if (lines.text(row, column).isEmpty())
        lines.setText(row, column, rate);
}

} // namespace

Cells emptyBillLines()
{
    Cells lines(BillColumnCount, billFixedRows);
    lines.setRow(0, {QStringLiteral("Sr. No."), QStringLiteral("Particulars"), QStringLiteral("SAC"),
                     QStringLiteral("Period"), QStringLiteral("Period"), QStringLiteral("Amount"),
                     QStringLiteral("Discount"), QStringLiteral("Net Amount"), QStringLiteral("Edit Tax"),
                     QStringLiteral("CGST"), QStringLiteral("CGST"), QStringLiteral("SGST"), QStringLiteral("SGST"),
                     QStringLiteral("IGST"), QStringLiteral("IGST"), QStringLiteral("Total Amount")});
    lines.setRow(1, {QStringLiteral("Sr. No."), QStringLiteral("Particulars"), QStringLiteral("SAC"),
                     QStringLiteral("FY/AY"), QStringLiteral("Year"), QStringLiteral("Amount"),
                     QStringLiteral("Discount"), QStringLiteral("Net Amount"), QStringLiteral("Edit Tax"),
                     QStringLiteral("%"), QStringLiteral("Amount"), QStringLiteral("%"), QStringLiteral("Amount"),
                     QStringLiteral("%"), QStringLiteral("Amount"), QStringLiteral("Total Amount")});
    lines.setText(billTotalRow, ParticularsColumn, QStringLiteral("Total"));
    return lines;
}

double lineTax(double taxable, double rate)
{
    return wholeRupees(taxable * (rate / 100));
}

void ADDDEFROWSB(Cells &lines)
{
    while (lines.rows() <= billLastRow) {
        const int row = lines.addRow();
        lines.setText(row, SrNoColumn, QString::number(row - billTotalRow));
        lines.setText(row, EditTaxColumn, QStringLiteral("N"));
        lines.setText(row, CgstRateColumn, QStringLiteral("9"));
        lines.setText(row, SgstRateColumn, QStringLiteral("9"));
        lines.setText(row, IgstRateColumn, QStringLiteral("18"));
    }
}

void SETDEFRATES(Cells &lines, std::optional<TaxType> type)
{
    for (int row = billFixedRows; row < lines.rows(); ++row) {
        if (type == TaxType::Intra) {
            fillIfEmpty(lines, row, CgstRateColumn, QStringLiteral("9"));
            fillIfEmpty(lines, row, SgstRateColumn, QStringLiteral("9"));
        } else if (type == TaxType::Inter) {
            fillIfEmpty(lines, row, IgstRateColumn, QStringLiteral("18"));
        }
    }
}

bool isBillColumnHidden(int column, std::optional<TaxType> type)
{
    if (column < EditTaxColumn)
        return false;
    if (type == TaxType::Intra)
        return column == IgstRateColumn || column == IgstColumn;
    if (type == TaxType::Inter)
        return column >= CgstRateColumn && column <= SgstColumn;
    return true;
}

void GETTOTSBILL(Cells &lines, std::optional<TaxType> type)
{
    for (const int column : totalledColumns)
        lines.setText(billTotalRow, column, QStringLiteral("0"));
    for (int row = billFixedRows; row < lines.rows(); ++row) {
        recomputeLine(lines, row, type);
        for (const int column : totalledColumns)
            lines.setText(billTotalRow, column, rupees(lines.value(billTotalRow, column) + lines.value(row, column)));
    }
}

std::optional<QString> normaliseBillCell(Cells &lines, int row, int column)
{
    if (column == PeriodColumn) {
        const QString period = lines.text(row, PeriodColumn);
        if (period != QLatin1String("FY") && period != QLatin1String("AY"))
            lines.setText(row, YearColumn, {});
        return std::nullopt;
    }
    if (!changesBillTotals(column) || column == EditTaxColumn)
        return std::nullopt;
    QString text = lines.text(row, column);
    text.remove(u'%');
    std::optional<QString> message;
    if (!text.isEmpty() && !isNumeric(text)) {
        message = QStringLiteral("Please Specify Valid Amount. Numeric Only.");
        text.clear();
    }
    const bool isRate = column == CgstRateColumn || column == SgstRateColumn || column == IgstRateColumn;
    const QString rounded =
        isRate ? plainNumber(Val(formatNumber(Val(text), QStringLiteral("###0.0000")))) : rupees(Val(text));
    lines.setText(row, column, Val(rounded) > 0 ? rounded : QString());
    return message;
}

bool changesBillTotals(int column)
{
    return column == AmountColumn || column == DiscountColumn || (column >= EditTaxColumn && column <= IgstColumn);
}

bool isBillCellEditable(const Cells &lines, int row, int column)
{
    if (!lines.isData(row))
        return false;
    switch (column) {
    case SrNoColumn:
    case NetColumn:
    case TotalColumn:
        return false;
    case YearColumn:
        return lines.text(row, PeriodColumn) == QLatin1String("FY")
               || lines.text(row, PeriodColumn) == QLatin1String("AY");
    case CgstColumn:
    case SgstColumn:
    case IgstColumn:
        return isChecked(lines, row);
    default:
        return column > SrNoColumn && column < BillColumnCount;
    }
}

bool isBillCellEditedOnEntry(const Cells &lines, int row, int column)
{
    const bool typed = column != SacColumn && column != PeriodColumn && column != YearColumn && column != EditTaxColumn;
    return typed && isBillCellEditable(lines, row, column);
}

EnterTarget billEnterTarget(const Cells &lines, int row, int column, std::optional<TaxType> type)
{
    if (column == AmountColumn) {
        bool lastAmount = true;
        for (int below = row; below < lines.rows() && lastAmount; ++below)
            lastAmount = lines.text(below, AmountColumn).isEmpty();
        if (lastAmount)
            return {.toNarration = true};
    }
    for (int next = column + 1; next < BillColumnCount; ++next) {
        if (!isBillColumnHidden(next, type))
            return {.row = row, .column = next};
    }
    if (column < TotalColumn)
        return {};
    if (row == lines.rows() - 1)
        return {.toNarration = true};
    return {.row = row + 1, .column = ParticularsColumn};
}

bool isBillLineInUse(const Cells &lines, int row)
{
    constexpr std::array texts{ParticularsColumn, SacColumn, PeriodColumn};
    constexpr std::array amounts{AmountColumn, DiscountColumn, CgstColumn, SgstColumn, IgstColumn};
    return std::ranges::any_of(texts, [&](int column) { return !lines.text(row, column).trimmed().isEmpty(); })
           || std::ranges::any_of(amounts, [&](int column) { return lines.value(row, column) != 0; });
}

const std::vector<Pick> &sacPicks()
{
    static const std::vector<Pick> picks = [] {
        constexpr std::array<std::pair<const char *, const char *>, 7> codes{{
            {"998221", "Financial auditing services"},
            {"998222", "Accounting and bookkeeping services"},
            {"998223", "Payroll services"},
            {"998224", "Other similar services n.e.c"},
            {"998231", "Corporate tax consulting and preparation services"},
            {"998232", "Individual tax preparation and planning services"},
            {"998240", "Insolvency and receivership services"},
        }};
        std::vector<Pick> made{{}};
        for (const auto &[code, text] : codes) {
            const QString key = QString::fromLatin1(code);
            made.push_back({key, key, key + QStringLiteral("  ") + QLatin1String(text)});
        }
        return made;
    }();
    return picks;
}

std::vector<Pick> periodPicks()
{
    std::vector<Pick> picks;
    for (const char *period : {"", "FY", "AY"})
        picks.push_back({QLatin1String(period), QLatin1String(period), QLatin1String(period)});
    return picks;
}

std::vector<Pick> yearPicks(int chosenYear)
{
    std::vector<Pick> picks;
    for (int year = chosenYear; year >= 2000; --year)
        picks.push_back({QString::number(year), financialYearText(year), financialYearText(year)});
    return picks;
}

} // namespace ledgora
