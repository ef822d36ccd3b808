#pragma once

#include "components/reporter/PageList.h"
#include "components/reporter/ReportFaces.h"
#include "reports/ReportCells.h"
#include <map>

namespace ledgora::reporter {

/// A page of a text report while it is drawn. Rules that go on from row to row, or from cell to cell, become one, so
/// that they are joined without gaps.
class ReportCanvas
{
public:
    explicit ReportCanvas(const ReportPaper &paper) : m_paper(paper) { m_page.size = paper.size; }

    /// The rules of a row between two heights.
    void rules(const RowGrid &grid, const RowFace &face, qreal top, qreal bottom);
    /// A rule over all cells of a row.
    void close(const RowGrid &grid, const RowFace &face, qreal y);
    /// The light band behind a heading or a total.
    void band(const RowGrid &grid, const RowFace &face, qreal top, qreal bottom);
    /// A line of a cell, its first sign's place being `from` cells from the row's left end.
    void line(const RowGrid &grid, const GridCell &cell, const RowFace &face, const CellLine &line, qreal top);
    /// A line at the left of the page.
    void freeLine(const RowFace &face, const CellLine &line, qreal top);
    void footer(const QString &title, int page, int pages);

    Page take();

private:
    qreal leftOf(const RowGrid &grid, const RowFace &face) const;
    void level(qreal from, qreal to, qreal y);
    void upright(qreal x, qreal top, qreal bottom);
    void texts(const CellLine &line, const RowFace &face, qreal left, qreal room, ReportAlign align, qreal baseline);

    ReportPaper m_paper;
    Page m_page;
    std::map<int, std::size_t> m_uprights; ///< by their place: the rule that may go on
    std::map<int, std::size_t> m_levels;   ///< by their height: the rule that may go on
};

} // namespace ledgora::reporter
