#include "reports/ReportText.h"

#include "reports/ReportCells.h"
#include "reports/ReportFile.h"
#include "reports/ReportGrid.h"
#include <algorithm>

namespace ledgora {

namespace {

/// Where rules go from the middle of a character.
enum Arm : quint8 { ToLeft = 1, ToRight = 2, Up = 4, Down = 8 };

QChar boxSign(quint8 arms)
{
    static const QString signs = QStringLiteral(" ───│┘└┴│┐┌┬│┤├┼");
    return signs[arms];
}

class TextWriter
{
public:
    TextWriter(const ReportRows &rows, ReportSink &sink) : m_rows(rows), m_sink(sink), m_grids(gridsOf(rows))
    {
        for (const RowGrid &grid : m_grids)
            m_width = std::max(m_width, outerWidth(grid));
    }

    void row(int entry);
    void text(QStringView text);
    void finish();

private:
    void closeRules(const RowGrid *next, int left);
    void lines(int entry, const RowGrid &grid, int left);
    void mark(int column, quint8 arms)
    {
        if (column >= int(m_arms.size()))
            m_arms.resize(column + 1);
        m_arms[column] |= arms;
    }
    void markEdges(const RowGrid &grid, int left, Arm up, bool GridCell::*level);
    void put(QString line);

    const ReportRows &m_rows;
    ReportSink &m_sink;
    std::vector<RowGrid> m_grids;
    int m_width = 0;
    PrintState m_state;
    const RowGrid *m_above = nullptr; ///< the row above, in the same table
    int m_aboveLeft = 0;
    std::vector<quint8> m_arms; ///< of the rule line that is being drawn
    QString m_pending;          ///< text whose line is not ended
};

void TextWriter::put(QString line)
{
    while (line.endsWith(u' '))
        line.chop(1);
    m_sink.put(line);
    m_sink.put('\n');
}

void TextWriter::markEdges(const RowGrid &grid, int left, Arm up, bool GridCell::*level)
{
    for (const GridCell &cell : grid.cells) {
        if (cell.left)
            mark(left + cell.from, up);
        if (cell.right)
            mark(left + cell.to, up);
        if (!(cell.*level))
            continue;
        mark(left + cell.from, ToRight);
        for (int column = cell.from + 1; column < cell.to; ++column)
            mark(left + column, ToLeft | ToRight);
        mark(left + cell.to, ToLeft);
    }
}

/// The line between the row above and the next one, if a rule lies there.
void TextWriter::closeRules(const RowGrid *next, int left)
{
    const bool drawn = (m_above && m_above->hasBottom()) || (next && next->hasTop());
    if (drawn) {
        m_arms.clear();
        if (m_above)
            markEdges(*m_above, m_aboveLeft, Up, &GridCell::bottom);
        if (next)
            markEdges(*next, left, Down, &GridCell::top);
        QString line;
        for (const quint8 arms : m_arms)
            line += boxSign(arms);
        put(line);
    }
    m_above = next;
    m_aboveLeft = left;
}

void TextWriter::lines(int entry, const RowGrid &grid, int left)
{
    std::vector<std::vector<CellLine>> cells(grid.cells.size());
    std::size_t height = 1;
    std::size_t next = 0;
    for (int i = 0; i < m_rows.cells(entry); ++i) {
        const bool exists = next < grid.cells.size() && grid.cells[next].index == i;
        std::vector<CellLine> wrapped = wrapCell(m_rows.cell(entry, i), exists ? grid.cells[next].room : 1, m_state);
        if (!exists)
            continue; // only its codes count
        height = std::max(height, wrapped.size());
        cells[next++] = std::move(wrapped);
    }
    for (std::size_t line = 0; line < height; ++line) {
        QString out;
        int taken = 0;
        const auto fill = [&](int column, const QString &text, int width) {
            out += QString(std::max(0, column - taken), u' ') + text;
            taken = std::max(taken, column) + width;
        };
        for (std::size_t i = 0; i < cells.size(); ++i) {
            const GridCell &cell = grid.cells[i];
            const int from = left + cell.from;
            if (cell.left)
                fill(from, boxSign(Up | Down), 1);
            if (line < cells[i].size() && !cells[i][line].empty()) {
                QString text;
                for (const CellPiece &piece : cells[i][line])
                    text += piece.text;
                const int width = widthOf(cells[i][line]);
                fill(from + (grid.inTable ? 1 : 0) + int(indentOf(cell.align, cell.room - width)), text, width);
            }
            if (cell.right)
                fill(left + cell.to, boxSign(Up | Down), 1);
        }
        put(out);
    }
}

void TextWriter::row(int entry)
{
    if (!m_pending.isEmpty())
        put(std::exchange(m_pending, {}));
    const RowGrid &grid = m_grids[m_rows.formatNumber(entry)];
    const int left = int(leftOf(grid, m_width));
    closeRules(&grid, left);
    lines(entry, grid, left);
}

void TextWriter::text(QStringView text)
{
    const bool goesOn = text.endsWith(u';');
    m_pending += shownText(goesOn ? text.chopped(1) : text);
    if (goesOn)
        return;
    closeRules(nullptr, 0);
    put(std::exchange(m_pending, {}));
}

void TextWriter::finish()
{
    closeRules(nullptr, 0);
    if (!m_pending.isEmpty())
        put(m_pending);
}

} // namespace

bool writeReportText(const ReportRows &rows, QIODevice &out, const Progress &progress)
{
    ReportSink sink(out, progress, rows.size());
    TextWriter writer(rows, sink);
    for (int entry = 0; entry < rows.size(); ++entry) {
        if (rows.kind(entry) == ReportRows::Kind::Row)
            writer.row(entry);
        else if (rows.kind(entry) == ReportRows::Kind::Text)
            writer.text(rows.text(entry));
        if (!sink.rowDone(entry))
            return false;
    }
    writer.finish();
    return sink.finish();
}

QString saveReportText(const ReportRows &rows, const QString &path, const Progress &progress)
{
    return saveReportFile(path, [&](QIODevice &out) { return writeReportText(rows, out, progress); });
}

} // namespace ledgora
