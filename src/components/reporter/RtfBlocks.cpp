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
    m_state.paragraph.widowControl = m_widowControl;
    m_state.inTable = false;
    m_state.level = 1;
    m_tabAlignment = Alignment::Left;
}

/// What paragraphs begin with from now on; the word stands in the document's head.
void RtfInterpreter::setWidowControl()
{
    m_widowControl = true;
    m_state.paragraph.widowControl = true;
}

/// The definition of a nested row stands behind its cells, so the row it speaks of is the one that is open.
int RtfInterpreter::nestedLevel() const
{
    const int open = static_cast<int>(m_story.rows.size());
    return std::clamp(tableLevel() >= 2 ? tableLevel() : open, 2, mostTableLevels);
}

RtfInterpreter::RowDefinition &RtfInterpreter::definition()
{
    return m_story.definitions[m_state.nestedRow ? nestedLevel() - 1 : 0];
}

void RtfInterpreter::resetRow()
{
    definition() = RowDefinition();
}

void RtfInterpreter::endCellFormat(int rightEdge)
{
    RowDefinition &defined = definition();
    defined.cell.rightEdge = rightEdge;
    if (defined.cells.size() < mostCellsInRow)
        defined.cells.push_back(defined.cell);
    defined.cell = CellFormat();
}

std::vector<Block> &RtfInterpreter::blocksAt(int level)
{
    if (level == 0)
        return m_story.blocks;
    if (m_story.rows.size() < static_cast<std::size_t>(level))
        m_story.rows.resize(level);
    return m_story.rows[level - 1].blocks;
}

Paragraph RtfInterpreter::takeParagraph()
{
    Paragraph paragraph{std::move(m_story.runs), m_state.paragraph, m_state.chars};
    m_story.runs.clear();
    paragraph.format.pageBreakBefore |= m_story.pageBreak;
    m_story.pageBreak = false;
    ++m_paragraphs;
    return paragraph;
}

void RtfInterpreter::endParagraph()
{
    if (!inBody())
        return;
    closeRowsBelow(tableLevel());
    blocksAt(tableLevel()).emplace_back(takeParagraph());
}

void RtfInterpreter::endCell()
{
    if (inBody())
        endCellAt(1);
}

void RtfInterpreter::endNestedCell()
{
    if (inBody())
        endCellAt(nestedLevel());
}

void RtfInterpreter::endCellAt(int level)
{
    closeRowsBelow(level);
    blocksAt(level).emplace_back(takeParagraph());
    closeCell(m_story.rows[level - 1]);
}

void RtfInterpreter::closeCell(OpenRow &row)
{
    if (row.cells.size() < mostCellsInRow)
        row.cells.emplace_back();
    std::move(row.blocks.begin(), row.blocks.end(), std::back_inserter(row.cells.back()));
    row.blocks.clear();
}

void RtfInterpreter::endRow()
{
    if (inBody())
        endRowAt(1);
}

void RtfInterpreter::endNestedRow()
{
    if (inBody())
        endRowAt(nestedLevel());
}

void RtfInterpreter::endRowAt(int level)
{
    if (!m_story.runs.empty())
        endCellAt(level);
    closeRowsBelow(level);
    blocksAt(level);
    closeRow(level);
}

/// A row is what its cells hold and what its definition says; where the two disagree in number nothing that was
/// written is lost: cells without a definition get a width of an inch.
void RtfInterpreter::closeRow(int level)
{
    OpenRow open = std::move(m_story.rows[level - 1]);
    m_story.rows.resize(level - 1);
    if (!open.blocks.empty())
        closeCell(open);
    const RowDefinition &defined = m_story.definitions[level - 1];
    Row row{defined.row, {}};
    for (const CellFormat &format : defined.cells)
        row.cells.push_back({format, {}});
    while (row.cells.size() < open.cells.size()) {
        CellFormat format;
        format.rightEdge = (row.cells.empty() ? row.format.leftEdge : row.cells.back().format.rightEdge) + 1440;
        row.cells.push_back({format, {}});
    }
    for (std::size_t i = 0; i < open.cells.size(); ++i)
        row.cells[i].blocks = std::move(open.cells[i]);
    if (row.cells.empty())
        return;
    m_cells += static_cast<int>(row.cells.size());
    std::vector<Block> &blocks = blocksAt(level - 1);
    if (blocks.empty() || !std::holds_alternative<Table>(blocks.back().content))
        blocks.emplace_back(Table());
    std::get<Table>(blocks.back().content).rows.push_back(std::move(row));
}

/// Text goes on further out, or ends, before these rows were closed.
void RtfInterpreter::closeRowsBelow(int level)
{
    while (m_story.rows.size() > static_cast<std::size_t>(level)) {
        OpenRow &row = m_story.rows.back();
        if (row.cells.empty() && isEmptyText(row.blocks))
            m_story.rows.pop_back();
        else
            closeRow(static_cast<int>(m_story.rows.size()));
    }
}

void RtfInterpreter::closeStory()
{
    if (!m_story.runs.empty())
        endParagraph();
    closeRowsBelow(0);
}

/// Two breaks with nothing between them leave a page empty.
void RtfInterpreter::breakPage()
{
    if (!inBody() || m_state.inTable)
        return;
    if (!m_story.runs.empty() || m_story.pageBreak)
        endParagraph();
    m_story.pageBreak = true;
}

} // namespace ledgora::reporter
