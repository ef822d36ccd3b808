#include "components/reporter/Layout.h"

#include "components/reporter/Slices.h"
#include "components/reporter/TableLayout.h"
#include <algorithm>

namespace ledgora::reporter {

namespace {

/// Smallest room for text that margins may leave on a page.
constexpr qreal smallestRoom = 720;

/// Fills page after page with slices and tables.
class Pager
{
public:
    explicit Pager(const PageSetup &setup);

    void add(const Block &block);
    PageList take() { return std::move(m_pages); }

private:
    void add(const Paragraph &paragraph);
    void add(const Table &table);
    void addRows(const TableLayout &table, std::size_t first, std::size_t end);
    void addSplit(const TableLayout &table, std::size_t row);
    void put(const Drawing &drawing, qreal height);
    void newPage();
    void newTablePage(const TableLayout &table);
    qreal rest() const { return m_room.bottom() - m_y; }
    bool pageIsFresh() const { return m_y <= m_room.top(); }

    QSizeF m_paper;
    QRectF m_room;
    qreal m_y = 0;
    qreal m_bodyTop = 0; ///< where rows begin on this page, below the repeated heading
    PageList m_pages;
};

QRectF roomOf(const PageSetup &setup)
{
    const auto &margins = setup.margins;
    QRectF room(margins[Left], margins[Top], setup.width - margins[Left] - margins[Right],
                setup.height - margins[Top] - margins[Bottom]);
    if (room.width() < smallestRoom || room.height() < smallestRoom)
        room = QRectF(0, 0, setup.width, setup.height);
    return room;
}

Pager::Pager(const PageSetup &setup) : m_paper(setup.width, setup.height), m_room(roomOf(setup))
{
    newPage();
}

void Pager::newPage()
{
    m_pages.push_back({m_paper, {}});
    m_y = m_bodyTop = m_room.top();
}

void Pager::put(const Drawing &drawing, qreal height)
{
    m_pages.back().drawing.add(drawing, QPointF(m_room.left(), m_y));
    m_y += height;
}

void Pager::add(const Block &block)
{
    if (const auto *paragraph = std::get_if<Paragraph>(&block.content))
        add(*paragraph);
    else
        add(std::get<Table>(block.content));
}

void Pager::add(const Paragraph &paragraph)
{
    for (const Slice &slice : layoutParagraph(paragraph, m_room.width())) {
        const bool firstOfAll = m_pages.size() == 1 && pageIsFresh();
        if ((slice.breakBefore && !firstOfAll)
            || (slice.height > 0 && slice.gap + slice.height > rest() && !pageIsFresh()))
            newPage();
        if (!pageIsFresh() || firstOfAll)
            m_y += slice.gap;
        put(slice.drawing, slice.height);
    }
}

void Pager::newTablePage(const TableLayout &table)
{
    newPage();
    const qreal heading = table.height(0, table.headingRows());
    if (heading > m_room.height() / 2)
        return; // a heading that fills the page would leave no room for what it heads
    put(table.draw(0, table.headingRows()), heading);
    m_bodyTop = m_y;
}

void Pager::add(const Table &table)
{
    const TableLayout layout(table);
    m_bodyTop = m_room.top();
    for (std::size_t row = 0; row < layout.rows().size();) {
        const std::size_t end = layout.groupEnd(row);
        addRows(layout, row, end);
        row = end;
    }
}

void Pager::addRows(const TableLayout &table, std::size_t first, std::size_t end)
{
    const qreal height = table.height(first, end);
    const bool isHeading = first < table.headingRows();
    const qreal headingAbove = isHeading ? 0 : table.height(0, table.headingRows());
    if (height > rest() && height <= m_room.height() - headingAbove) {
        if (isHeading)
            newPage();
        else
            newTablePage(table);
    }
    if (height <= rest()) {
        put(table.draw(first, end), height);
        return;
    }
    for (std::size_t row = first; row < end; ++row)
        addSplit(table, row);
}

/// A row taller than any page: as many lines of it on each page as fit.
void Pager::addSplit(const TableLayout &table, std::size_t row)
{
    LaidRow left = table.rows()[row];
    const auto isEmpty = [](const LaidCell &cell) { return cell.content.empty(); };
    while (true) {
        const bool fresh = m_y <= m_bodyTop;
        const LaidRow part = TableLayout::splitOff(left, rest(), fresh);
        const bool done = std::all_of(left.cells.begin(), left.cells.end(), isEmpty);
        const bool took = done || !std::all_of(part.cells.begin(), part.cells.end(), isEmpty);
        if (took)
            put(TableLayout::draw(part), part.height);
        if (done)
            return;
        newTablePage(table);
    }
}

} // namespace

qreal heightOf(const std::vector<Slice> &slices)
{
    qreal sum = 0;
    for (const Slice &slice : slices)
        sum += slice.gap + slice.height;
    return sum;
}

std::vector<Slice> layoutColumn(const std::vector<Block> &blocks, qreal width)
{
    std::vector<Slice> column;
    for (const Block &block : blocks) {
        if (const auto *paragraph = std::get_if<Paragraph>(&block.content)) {
            std::vector<Slice> lines = layoutParagraph(*paragraph, width);
            std::move(lines.begin(), lines.end(), std::back_inserter(column));
            continue;
        }
        const TableLayout table(std::get<Table>(block.content));
        for (std::size_t row = 0; row < table.rows().size();) {
            const std::size_t end = table.groupEnd(row);
            column.push_back({0, table.height(row, end), table.draw(row, end), false});
            row = end;
        }
    }
    return column;
}

PageList layoutDocument(const Document &document)
{
    Pager pager(document.sections.front().page);
    for (const Section &section : document.sections)
        for (const Block &block : section.blocks)
            pager.add(block);
    return pager.take();
}

} // namespace ledgora::reporter
