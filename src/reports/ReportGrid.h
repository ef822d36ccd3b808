#pragma once

#include "reports/ReportRows.h"
#include <vector>

namespace ledgora {

/// A cell that exists in a row, on the character grid. Edges count from the row's left end.
struct GridCell
{
    int index = 0; ///< of the cell in its row, from 0
    int from = 0;  ///< its left edge
    int to = 0;    ///< its right edge, which is the next cell's left one
    int room = 0;  ///< character cells for its text
    ReportAlign align = ReportAlign::Left;
    bool left = false, right = false, top = false, bottom = false; ///< rules on its edges
};

/// The cells of rows of one kind. In a table each cell takes one character more than its width, for the rule at its
/// left, whether it is drawn or not; so a cell that spans others ends where they end. Such a row is `width` wide and
/// has one more rule at its right end. Free lines have no room for rules.
struct RowGrid
{
    std::vector<GridCell> cells;
    int width = 0;
    bool inTable = false;

    bool hasTop() const;
    bool hasBottom() const;
    bool hasSides() const; ///< else it stands open, as what is written under a box
};

RowGrid gridOf(const RowFormat &format);

/// The grids of all kinds of rows in the report, by the number of their format.
std::vector<RowGrid> gridsOf(const ReportRows &rows);

/// The width of the row, the rule at a table's right end counted.
int outerWidth(const RowGrid &grid);

/// Where the row stands on a page of so many characters, which may be fractions of other pitches: in the middle, but a
/// free line of one cell at the side to which it is aligned.
double leftOf(const RowGrid &grid, double pageWidth);

/// What stays free at the left when so much is free in all; nothing when that is less than none.
double indentOf(ReportAlign align, double rest);

} // namespace ledgora
