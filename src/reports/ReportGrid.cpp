#include "reports/ReportGrid.h"

#include <algorithm>

namespace ledgora {

namespace {

bool isSet(const QString &mask, int cell)
{
    return cell < mask.size() && mask[cell] == u'1';
}

GridCell cellOf(const RowFormat &format, int index, int from)
{
    GridCell cell;
    cell.index = index;
    cell.from = from;
    cell.align = format.aligns[index];
    cell.left = isSet(format.left, index);
    cell.right = isSet(format.right, index);
    cell.top = isSet(format.top, index);
    cell.bottom = isSet(format.bottom, index);
    return cell;
}

} // namespace

bool RowGrid::hasTop() const
{
    return std::any_of(cells.begin(), cells.end(), [](const GridCell &cell) { return cell.top; });
}

bool RowGrid::hasBottom() const
{
    return std::any_of(cells.begin(), cells.end(), [](const GridCell &cell) { return cell.bottom; });
}

bool RowGrid::hasSides() const
{
    return std::any_of(cells.begin(), cells.end(), [](const GridCell &cell) { return cell.left || cell.right; });
}

RowGrid gridOf(const RowFormat &format)
{
    RowGrid grid;
    grid.inTable = format.inTable;
    const int rule = format.inTable ? 1 : 0;
    for (int i = 0; i < int(format.widths.size()); ++i) {
        const int width = std::max<int>(0, format.widths[i]);
        if (width > 0)
            grid.cells.push_back(cellOf(format, i, grid.width));
        if (!grid.cells.empty())
            grid.width += width + rule;
        if (!grid.cells.empty()) {
            grid.cells.back().to = grid.width;
            grid.cells.back().right |= isSet(format.right, i); // of the last cell that it spans
        }
    }
    for (GridCell &cell : grid.cells)
        cell.room = cell.to - cell.from - rule;
    return grid;
}

std::vector<RowGrid> gridsOf(const ReportRows &rows)
{
    std::vector<RowGrid> grids;
    grids.reserve(rows.formats());
    for (int i = 0; i < rows.formats(); ++i)
        grids.push_back(gridOf(rows.formatAt(i)));
    return grids;
}

int outerWidth(const RowGrid &grid)
{
    return grid.width + (grid.inTable ? 1 : 0);
}

double leftOf(const RowGrid &grid, double pageWidth)
{
    const bool alone = !grid.inTable && grid.cells.size() == 1;
    return indentOf(alone ? grid.cells.front().align : ReportAlign::Centre, pageWidth - outerWidth(grid));
}

double indentOf(ReportAlign align, double rest)
{
    switch (align) {
    case ReportAlign::Right:
        return std::max(0.0, rest);
    case ReportAlign::Centre:
        return std::max(0.0, rest / 2);
    default:
        return 0;
    }
}

} // namespace ledgora
