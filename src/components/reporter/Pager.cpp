#include "components/reporter/Pager.h"

#include <algorithm>

namespace ledgora::reporter {

namespace {

/// Smallest room for text that margins may leave on a page, and that a column may have.
constexpr qreal smallestRoom = 720;

} // namespace

QRectF withinMargins(const PageSetup &setup)
{
    const auto &margins = setup.margins;
    QRectF room(margins[Left], margins[Top], setup.width - margins[Left] - margins[Right],
                setup.height - margins[Top] - margins[Bottom]);
    if (room.width() < smallestRoom || room.height() < smallestRoom)
        room = QRectF(0, 0, setup.width, setup.height);
    return room;
}

namespace {

int columnsOf(const PageSetup &setup)
{
    const qreal width = withinMargins(setup).width();
    const auto fitting = static_cast<int>((width + setup.columnGap) / (smallestRoom + setup.columnGap));
    return std::clamp(fitting, 1, std::max(1, setup.columns));
}

qreal columnWidth(const PageSetup &setup)
{
    const int columns = columnsOf(setup);
    return (withinMargins(setup).width() - static_cast<qreal>(columns - 1) * setup.columnGap) / columns;
}

bool keepsWithNext(const Block &block)
{
    const auto *paragraph = std::get_if<Paragraph>(&block.content);
    return paragraph && paragraph->format.keepWithNext;
}

/// Height of the first line of a paragraph, or of the first rows of a table.
qreal beginHeight(const std::variant<std::vector<Slice>, TableLayout> &laid)
{
    if (const auto *slices = std::get_if<std::vector<Slice>>(&laid))
        return slices->front().gap + slices->front().height;
    const auto &table = std::get<TableLayout>(laid);
    return table.rows().empty() ? 0 : table.height(0, std::max(table.headingRows() + 1, table.groupEnd(0)));
}

} // namespace

const std::vector<Block> &marginText(const Section &section, bool first, bool header)
{
    if (first && section.page.titlePage)
        return section.margins[header ? FirstHeader : FirstFooter];
    return section.margins[header ? Header : Footer];
}

QRectF roomOf(const Section &section, bool first)
{
    const PageSetup &page = section.page;
    QRectF room = withinMargins(page);
    const auto height = [&](bool header) {
        return heightOf(layoutColumn(marginText(section, first, header), room.width(), {}, page.height));
    };
    if (const qreal header = height(true); header > 0)
        room.setTop(std::max(room.top(), page.headerDistance + header));
    if (const qreal footer = height(false); footer > 0)
        room.setBottom(std::min(room.bottom(), page.height - page.footerDistance - footer));
    return room.height() < smallestRoom ? withinMargins(page) : room;
}

PageNumbers numbersOf(const PageOwner &owner, const PageTotals &totals)
{
    return {owner.number, totals.pages, totals.ofSections.value(owner.section, 1)};
}

PageTotals Pager::totals() const
{
    PageTotals totals{static_cast<int>(m_owners.size()), {}};
    for (const PageOwner &owner : m_owners)
        ++totals.ofSections[owner.section];
    return totals;
}

bool Pager::add(const Section &section, const std::function<bool(std::size_t block)> &goesOn)
{
    begin(section);
    const std::vector<Block> &blocks = section.blocks;
    for (std::size_t first = 0; first < blocks.size();) {
        if (!goesOn(first))
            return false;
        std::size_t end = first + 1;
        while (end < blocks.size() && keepsWithNext(blocks[end - 1]))
            ++end;
        addChain(blocks, first, end);
        first = end;
    }
    return true;
}

/// A section that goes on below the former one keeps that one's paper; only its columns count at once.
void Pager::begin(const Section &section)
{
    const bool below = !section.newPage && !m_pages.empty();
    const qreal top = m_y;
    const Section *former = m_section;
    m_section = &section;
    if (!below) {
        newPage();
        return;
    }
    if (m_column > 0 || columnsOf(former->page) > 1) {
        newPage(); // columns are not balanced: what follows them begins a page
        return;
    }
    m_column = 0;
    m_room = QRectF(m_room.left(), top, columnWidth(section.page), m_room.bottom() - top);
}

void Pager::newPage()
{
    const bool first = m_owners.empty() || m_owners.back().section != m_section;
    const bool restarts = m_owners.empty() || (first && m_section->page.restartsPages);
    m_owners.push_back({m_section, first, restarts ? 1 : m_owners.back().number + 1});
    m_pages.push_back({QSizeF(m_section->page.width, m_section->page.height), {}});
    m_room = roomOf(*m_section, first);
    m_room.setWidth(columnWidth(m_section->page));
    m_column = 0;
    m_y = m_bodyTop = m_room.top();
}

void Pager::nextColumn()
{
    if (m_column + 1 >= columnsOf(m_section->page)) {
        newPage();
        return;
    }
    ++m_column;
    m_room.translate(m_room.width() + m_section->page.columnGap, 0);
    m_y = m_bodyTop = m_room.top();
}

void Pager::put(const Drawing &drawing, qreal height)
{
    m_pages.back().drawing.add(drawing, QPointF(m_room.left(), m_y));
    m_y += height;
}

Pager::Laid Pager::lay(const Block &block) const
{
    if (const auto *paragraph = std::get_if<Paragraph>(&block.content))
        return layoutParagraph(*paragraph, m_room.width(), numbers());
    return TableLayout(std::get<Table>(block.content), m_room.width(), numbers());
}

/// Blocks of which each but the last keeps with the next: where the next of them would begin on another page, all go
/// there.
void Pager::addChain(const std::vector<Block> &blocks, std::size_t first, std::size_t end)
{
    std::vector<Laid> laid;
    qreal height = 0;
    for (std::size_t i = first; i < end; ++i) {
        laid.push_back(lay(blocks[i]));
        const auto *slices = std::get_if<std::vector<Slice>>(&laid.back());
        height += i + 1 < end && slices ? heightOf(*slices) : beginHeight(laid.back());
    }
    if (end - first > 1 && height > rest() && height <= m_room.height() && !isFresh())
        nextColumn();
    for (std::size_t i = first; i < end; ++i) {
        if (const auto *slices = std::get_if<std::vector<Slice>>(&laid[i - first]))
            addParagraph(std::get<Paragraph>(blocks[i].content), *slices);
        else
            addTable(std::get<TableLayout>(laid[i - first]));
    }
}

void Pager::addParagraph(const Paragraph &paragraph, const std::vector<Slice> &slices)
{
    if (slices.front().breakBefore && !isFresh())
        newPage();
    const qreal whole = heightOf(slices);
    if (paragraph.format.keepTogether && whole > rest() && whole <= m_room.height() && !isFresh())
        nextColumn();
    std::size_t end = linesThatFit(paragraph, slices, 0);
    for (std::size_t line = 0; line < slices.size(); ++line) {
        const Slice &slice = slices[line];
        if (slice.height > 0 && (line == end || slice.gap + slice.height > rest()) && !isFresh()) {
            nextColumn();
            end = linesThatFit(paragraph, slices, line);
        }
        if (!isFresh() || isFirstOfAll())
            m_y += slice.gap;
        put(slice.drawing, slice.height);
    }
}

/// End of the lines from `first` on that go into this column: as many as fit, but with widow control neither the first
/// line alone nor all but the last one.
std::size_t Pager::linesThatFit(const Paragraph &paragraph, const std::vector<Slice> &slices, std::size_t first) const
{
    std::size_t count = slices.size();
    while (count > 0 && slices[count - 1].height <= 0)
        --count; // the room below the paragraph
    qreal room = rest();
    std::size_t end = first;
    for (; end < count && (end == first || slices[end].gap + slices[end].height <= room); ++end)
        room -= slices[end].gap + slices[end].height;
    if (!paragraph.format.widowControl || end == count)
        return end;
    if (count - end == 1 && end > first)
        --end;
    return end == 1 && !isFresh() ? 0 : end;
}

void Pager::newTablePage(const TableLayout &table)
{
    nextColumn();
    const qreal heading = table.headingHeight();
    if (heading > m_room.height() / 2)
        return; // a heading that fills the page would leave no room for what it heads
    put(table.draw(0, table.headingRows()), heading);
    m_bodyTop = m_y;
}

void Pager::addTable(const TableLayout &table)
{
    m_bodyTop = m_room.top();
    std::size_t chained = 0; // end of the rows that are known to stand on one page
    for (std::size_t row = 0; row < table.rows().size();) {
        const std::size_t end = table.groupEnd(row);
        if (row >= chained && row >= table.headingRows()) {
            chained = table.chainEnd(row);
            const qreal height = table.height(row, chained);
            if (chained > end && height > rest() && height <= m_room.height() - table.headingHeight())
                newTablePage(table);
        }
        addRows(table, row, end);
        row = end;
    }
}

void Pager::addRows(const TableLayout &table, std::size_t first, std::size_t end)
{
    const qreal height = table.height(first, end);
    const bool isHeading = first < table.headingRows();
    const qreal headingAbove = isHeading ? 0 : table.headingHeight();
    if (end - first == 1 && !isHeading && height > rest() && table.beginsWithin(first, rest()))
        return addSplit(table, first);
    if (height > rest() && height <= m_room.height() - headingAbove) {
        if (isHeading)
            nextColumn();
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

/// A row that no page holds, or that may break: as many lines of it on each page as fit.
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

} // namespace ledgora::reporter
