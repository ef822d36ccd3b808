#pragma once

#include "components/reporter/Slices.h"
#include <map>

namespace ledgora::reporter {

struct LaidCell
{
    const CellFormat *format = nullptr;
    qreal left = 0;
    qreal right = 0;
    Sides<qreal> padding = {};
    std::vector<Slice> content; ///< none in a cell that continues the one above
    int rowSpan = 1;
    bool continued = false; ///< part of a merge that began further up
    bool continuedBelow = false;
};

struct LaidRow
{
    const RowFormat *format = nullptr;
    std::vector<LaidCell> cells;
    qreal height = 0;
    bool keepsWithNext = false;
};

/// Geometry of one table: where its cells stand and how tall its rows are. Column edges of different rows that lie
/// within `edgeTolerance` are one edge, as writers round them. A row is as tall as its tallest cell and the width of
/// its upper border, at least or exactly as its format says.
class TableLayout
{
public:
    static constexpr Twips edgeTolerance = 12;

    TableLayout(const Table &table, qreal columnWidth, const PageNumbers &numbers);

    const std::vector<LaidRow> &rows() const { return m_rows; }
    /// Rows at the top that are repeated on each page; 0 when the table has nothing else.
    std::size_t headingRows() const { return m_headingRows; }
    qreal headingHeight() const { return m_headingHeight; }
    /// End of the rows that merged cells bind to the row at `first`.
    std::size_t groupEnd(std::size_t first) const;
    /// End of the groups from there that keep with one another: no page ends between them, unless they fill one alone.
    std::size_t chainEnd(std::size_t first) const;
    qreal height(std::size_t first, std::size_t end) const;
    /// Whether a page may end inside the row: it may break, and a line of each of its filled cells fits into the
    /// height.
    bool beginsWithin(std::size_t row, qreal height) const;
    /// The rows below one another, from y = 0.
    Drawing draw(std::size_t first, std::size_t end) const;

    /// Takes from the row's cells what fits into the height, in whole lines, and leaves the rest in `row`; nothing is
    /// taken when no line fits, unless it is `forced`. Merges across rows count no more: each part is a row by itself.
    static LaidRow splitOff(LaidRow &row, qreal height, bool forced);
    static Drawing draw(const LaidRow &row);

private:
    void joinEdges(const Table &table);
    void placeCells(const Row &row);
    void align(qreal columnWidth);
    void joinRows();
    void measureRows();
    void countHeadings();
    qreal spanHeight(std::size_t first, int rows) const;
    static void drawCell(Drawing &drawing, const LaidCell &cell, qreal top, qreal rowHeight, qreal contentHeight,
                         bool exact);

    PageNumbers m_numbers;
    std::map<Twips, Twips> m_edges;
    std::vector<LaidRow> m_rows;
    std::size_t m_headingRows = 0;
    qreal m_headingHeight = 0;
};

} // namespace ledgora::reporter
