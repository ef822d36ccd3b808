#pragma once

#include "components/reporter/ReportCanvas.h"
#include "components/reporter/ReportFaces.h"
#include "reports/ReportCells.h"

namespace ledgora::reporter {

/// Where a page of a text report begins, and what the pages before have left switched on.
struct ReportPlace
{
    int entry = 0;
    int line = 0; ///< of the entry's row, when it is taller than a page and goes on
    PrintState print;
    QString pending;     ///< printed text whose line is not ended
    int headingFrom = 0; ///< rows that are repeated on each page which the table reaches; none when it is the end
    int headingTo = 0;
    PrintState headingPrint; ///< what was switched on ahead of them
    int titleFrom = 0; ///< free lines that name the table, from a change to the normal pitch on; none when the end
    int titleTo = 0;
    int nextTitle = -1; ///< where that of the next table would begin, or -1
    PrintState titlePrint;
    bool inHeading = false; ///< a table was begun and its heading is not through
    bool inTable = false;   ///< the entry before is a row of a table

    bool hasHeading() const { return headingFrom < headingTo && !inHeading; }
};

/// Fills page after page with the entries of a report. The same walk finds where pages end, without a canvas, and
/// draws one: so the pages are counted in one quick pass, and made when they are wanted.
///
/// A row that does not fit moves to the next page, below the table's heading; only one taller than a page is split. The
/// heading of a table are its first rows, from one with a rule above to one with a rule below, which two calls of
/// createtable may part; ahead of them the first line of a title that was printed for this table alone. Lines above a
/// table stay with its heading and its first row, the rows that end it with the two before them. A table that goes on
/// is closed with a rule at the page's end. A report whose type an upright page would make too small lies on its side.
class ReportPager
{
public:
    explicit ReportPager(const ReportRows &rows);

    const ReportPaper &paper() const { return m_paper; }
    /// Moves `place` to the next page's begin; false when this was the last.
    bool fill(ReportPlace &place, ReportCanvas *canvas = nullptr);

private:
    struct Height
    {
        qreal above = 0, lines = 0, below = 0;
        int count = 1;
        qreal whole() const { return above + lines + below; }
    };

    bool isRow(int entry) const { return m_rows.kind(entry) == ReportRows::Kind::Row; }
    const RowGrid &gridOf(int entry) const { return m_grids[m_rows.formatNumber(entry)]; }
    PrintState pitchOf(int entry, PrintState print) const;
    const RowFace &faceOf(int entry, const PrintState &print);
    Height heightOf(int entry, PrintState &print);
    bool isBlank(int entry) const;

    qreal leadHeight(const ReportPlace &place);
    qreal endHeight(const ReportPlace &place);
    bool isTableRow(int entry) const { return entry < m_rows.size() && isRow(entry) && gridOf(entry).inTable; }
    bool takeText(ReportPlace &place);
    static void takeTable(ReportPlace &place);
    enum class Room { Here, NextPage, Nowhere };
    Room roomFor(const ReportPlace &place, qreal height);
    bool takeRow(ReportPlace &place);
    bool splitRow(ReportPlace &place);
    void leaveRow(ReportPlace &place, const PrintState &behind) const;
    void noteHeading(ReportPlace &place, int entry) const;
    static void noteTitle(ReportPlace &place);
    void repeatTitle(const ReportPlace &place);
    void repeatHeading(const ReportPlace &place);
    void putRow(int entry, PrintState &print, const Height &height, int firstLine, int lastLine);
    void drawRow(int entry, PrintState print, const Height &height, int firstLine, int lastLine);
    void endLine(ReportPlace &place);
    void closeTable();
    bool isFresh() const { return m_y <= m_bodyTop; }
    qreal bottom() const { return m_paper.top + m_paper.height; }

    const ReportRows &m_rows;
    std::vector<RowGrid> m_grids;
    ReportPaper m_paper;
    ReportFaces m_faces;
    ReportCanvas *m_canvas = nullptr;
    qreal m_y = 0;
    qreal m_bodyTop = 0;             ///< where the page's own entries begin, below a repeated heading
    const RowGrid *m_last = nullptr; ///< the table row above on this page
    const RowFace *m_lastFace = nullptr;
    bool m_goesOn = false; ///< the page before ended in a table
};

} // namespace ledgora::reporter
