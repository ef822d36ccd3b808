#include "components/reporter/RtfInterpreter.h"

#include <algorithm>

namespace ledgora::reporter {

// The part of the interpreter that puts paragraphs, cells and rows together.

namespace {

bool isEmptyText(const std::vector<Block> &blocks)
{
    return std::all_of(blocks.begin(), blocks.end(), [](const Block &block) {
        const auto *paragraph = std::get_if<Paragraph>(&block.content);
        return paragraph && paragraph->runs.empty();
    });
}

} // namespace

void RtfInterpreter::resetChars()
{
    m_state.chars = CharFormat();
    setFont(m_defaultFont);
}

void RtfInterpreter::resetParagraph()
{
    m_state.paragraph = ParagraphFormat();
    m_state.inTable = false;
    m_tabAlignment = Alignment::Left;
}

void RtfInterpreter::resetRow()
{
    m_row = RowFormat();
    m_cell = CellFormat();
    m_cellFormats.clear();
}

void RtfInterpreter::endCellFormat(int rightEdge)
{
    m_cell.rightEdge = rightEdge;
    if (m_cellFormats.size() < mostCellsInRow)
        m_cellFormats.push_back(m_cell);
    m_cell = CellFormat();
}

Paragraph RtfInterpreter::takeParagraph()
{
    Paragraph paragraph{std::move(m_runs), m_state.paragraph, m_state.chars};
    m_runs.clear();
    paragraph.format.pageBreakBefore |= m_pageBreak;
    m_pageBreak = false;
    ++m_paragraphs;
    return paragraph;
}

void RtfInterpreter::endParagraph()
{
    if (m_state.destination != Destination::Body)
        return;
    if (m_state.inTable) {
        m_cellBlocks.emplace_back(takeParagraph());
        return;
    }
    closeOpenRow();
    m_read.document.blocks.emplace_back(takeParagraph());
    m_tableOpen = false;
}

void RtfInterpreter::endCell()
{
    if (m_state.destination != Destination::Body)
        return;
    m_cellBlocks.emplace_back(takeParagraph());
    closeCell();
}

void RtfInterpreter::closeCell()
{
    if (m_cells.size() < mostCellsInRow)
        m_cells.emplace_back();
    std::move(m_cellBlocks.begin(), m_cellBlocks.end(), std::back_inserter(m_cells.back()));
    m_cellBlocks.clear();
}

/// A row is what its cells hold and what its definition says; where the two disagree in number nothing that was
/// written is lost: cells without a definition get a width of an inch.
void RtfInterpreter::endRow()
{
    if (m_state.destination != Destination::Body)
        return;
    if (!m_runs.empty())
        endCell();
    else if (!m_cellBlocks.empty())
        closeCell();
    Row row{m_row, {}};
    for (const CellFormat &format : m_cellFormats)
        row.cells.push_back({format, {}});
    while (row.cells.size() < m_cells.size()) {
        CellFormat format;
        format.rightEdge = (row.cells.empty() ? m_row.leftEdge : row.cells.back().format.rightEdge) + 1440;
        row.cells.push_back({format, {}});
    }
    for (std::size_t i = 0; i < m_cells.size(); ++i)
        row.cells[i].blocks = std::move(m_cells[i]);
    m_cells.clear();
    if (row.cells.empty())
        return;
    std::vector<Block> &blocks = m_read.document.blocks;
    if (!m_tableOpen || blocks.empty())
        blocks.emplace_back(Table());
    std::get<Table>(blocks.back().content).rows.push_back(std::move(row));
    m_tableOpen = true;
}

/// Text went on outside of the table, or ended, before the row was closed.
void RtfInterpreter::closeOpenRow()
{
    if (m_cells.empty() && (m_cellBlocks.empty() || isEmptyText(m_cellBlocks))) {
        m_cellBlocks.clear();
        return;
    }
    std::vector<Run> runs = std::move(m_runs);
    m_runs.clear();
    endRow();
    m_runs = std::move(runs);
}

void RtfInterpreter::breakPage()
{
    if (m_state.destination != Destination::Body || m_state.inTable)
        return;
    if (!m_runs.empty())
        endParagraph();
    m_pageBreak = true;
}

} // namespace ledgora::reporter
