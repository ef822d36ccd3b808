#pragma once

#include "bills/TaxType.h"
#include "store/Cells.h"
#include "store/Pick.h"
#include <optional>
#include <vector>

namespace ledgora {

/// Columns of the line grid. Its cells are text and the working store of a bill's lines; amounts are whole rupees.
enum BillColumn {
    SrNoColumn,
    ParticularsColumn,
    SacColumn,
    PeriodColumn, ///< "FY", "AY" or blank
    YearColumn,   ///< starting year; only with a period
    AmountColumn,
    DiscountColumn,
    NetColumn,     ///< computed
    EditTaxColumn, ///< "Y" when the tax amounts are typed by hand, else "N"
    CgstRateColumn,
    CgstColumn,
    SgstRateColumn,
    SgstColumn,
    IgstRateColumn,
    IgstColumn,
    TotalColumn, ///< computed
    BillColumnCount
};

inline constexpr int billFixedRows = 3; ///< two heading rows and the total row
inline constexpr int billTotalRow = 2;
inline constexpr int billLastRow = 12;      ///< ten lines, numbered 1 to 10
inline constexpr int wholeRupeeDigits = 12; ///< an amount takes no more digits

/// The grid with its two-line heading and total row, without lines.
Cells emptyBillLines();

/// Tax of one line in whole rupees: the rate (percent) divided first, the product rounded once, half away from zero.
/// CGST and SGST of a line are each rounded on their own.
double lineTax(double taxable, double rate);

/// Fills the grid up to ten lines with the default rates (9, 9 and 18 %).
void ADDDEFROWSB(Cells &lines);
/// Default rates in empty rate cells of the tax type; a rate that the user set stays.
void SETDEFRATES(Cells &lines, std::optional<TaxType> type);
/// Whether the tax type hides the column.
bool isBillColumnHidden(int column, std::optional<TaxType> type);
/// Recomputes all lines and the total row.
void GETTOTSBILL(Cells &lines, std::optional<TaxType> type);

/// What leaving an edited cell does to it (and to the year when the period was blanked): paise are rounded away, rates
/// keep four decimals, zero and negatives become empty. Returns the message for an entry that is no number.
std::optional<QString> normaliseBillCell(Cells &lines, int row, int column);
/// Whether leaving the column recomputes the bill.
bool changesBillTotals(int column);

/// Whether the cell can be edited at all, and whether editing starts as soon as the cursor lands on it.
bool isBillCellEditable(const Cells &lines, int row, int column);
bool isBillCellEditedOnEntry(const Cells &lines, int row, int column);

/// Where Enter leads from a cell.
struct EnterTarget
{
    bool toNarration = false;
    int row = -1; ///< with `column`: the cell; -1 stays where it is
    int column = -1;
};
EnterTarget billEnterTarget(const Cells &lines, int row, int column, std::optional<TaxType> type);

/// A line row is in use when it has text or an amount; only rows with particulars are stored.
bool isBillLineInUse(const Cells &lines, int row);

const std::vector<Pick> &sacPicks();
std::vector<Pick> periodPicks();
/// Years from the chosen one down to 2000.
std::vector<Pick> yearPicks(int chosenYear);

} // namespace ledgora
