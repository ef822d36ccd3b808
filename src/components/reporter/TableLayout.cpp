#include "components/reporter/TableLayout.h"

#include <algorithm>
#include <numeric>

namespace ledgora::reporter {

namespace {

Sides<qreal> paddingOf(const Row &row, const Cell &cell)
{
    Sides<qreal> padding = {};
    for (const Side side : {Top, Left, Bottom, Right}) {
        const Twips byGap = side == Left || side == Right ? row.format.gap : 0;
        padding[side] = cell.format.padding[side].value_or(row.format.padding[side].value_or(byGap));
    }
    return padding;
}

qreal topBorderWidth(const LaidRow &row)
{
    Twips widest = 0;
    for (const LaidCell &cell : row.cells)
        if (!cell.continued && cell.format->borders[Top].style != LineStyle::None)
            widest = std::max(widest, cell.format->borders[Top].width);
    return widest;
}

qreal neededHeight(const LaidCell &cell)
{
    return cell.padding[Top] + heightOf(cell.content) + cell.padding[Bottom];
}

/// Height by the cells that belong to this row alone.
qreal ownHeight(const LaidRow &row)
{
    qreal tallest = 0;
    for (const LaidCell &cell : row.cells)
        if (cell.rowSpan == 1)
            tallest = std::max(tallest, neededHeight(cell));
    return tallest + topBorderWidth(row);
}

bool isExact(const LaidRow &row)
{
    return row.format->height.rule == RowHeight::Exact;
}

/// Writers tell it of the paragraphs in a row.
bool keepsWithNext(const Row &row)
{
    if (row.cells.empty() || row.cells.front().blocks.empty())
        return false;
    const auto *paragraph = std::get_if<Paragraph>(&row.cells.front().blocks.front().content);
    return paragraph && paragraph->format.keepWithNext;
}

} // namespace

TableLayout::TableLayout(const Table &table, qreal columnWidth, const PageNumbers &numbers) : m_numbers(numbers)
{
    joinEdges(table);
    for (const Row &row : table.rows)
        placeCells(row);
    joinRows();
    measureRows();
    countHeadings();
    align(columnWidth);
}

/// A table that is centred or set right moves as a whole, by what its widest row leaves free.
void TableLayout::align(qreal columnWidth)
{
    if (m_rows.empty() || m_rows.front().format->alignment == Alignment::Left || m_edges.empty())
        return;
    const qreal left = m_edges.begin()->second;
    const qreal free = columnWidth - (m_edges.rbegin()->second - left);
    const qreal shift = (m_rows.front().format->alignment == Alignment::Right ? free : free / 2) - left;
    for (LaidRow &row : m_rows) {
        for (LaidCell &cell : row.cells) {
            cell.left += shift;
            cell.right += shift;
        }
    }
}

void TableLayout::joinEdges(const Table &table)
{
    for (const Row &row : table.rows) {
        m_edges.emplace(row.format.leftEdge, 0);
        for (const Cell &cell : row.cells)
            m_edges.emplace(cell.format.rightEdge, 0);
    }
    if (m_edges.empty())
        return;
    Twips joined = m_edges.begin()->first;
    for (auto &[edge, target] : m_edges) {
        if (edge - joined > edgeTolerance)
            joined = edge;
        target = joined;
    }
}

void TableLayout::placeCells(const Row &row)
{
    LaidRow laid{&row.format, {}, 0, keepsWithNext(row)};
    qreal left = m_edges.at(row.format.leftEdge);
    for (std::size_t i = 0; i < row.cells.size(); ++i) {
        const Cell &cell = row.cells[i];
        LaidCell place{&cell.format, left, 0, paddingOf(row, cell), {}, 1, false, false};
        Twips edge = cell.format.rightEdge;
        if (cell.format.acrossCells != Merge::None)
            for (; i + 1 < row.cells.size() && row.cells[i + 1].format.acrossCells == Merge::Continued; ++i)
                edge = row.cells[i + 1].format.rightEdge;
        place.right = std::max<qreal>(left, m_edges.at(edge));
        if (cell.format.acrossRows != Merge::Continued)
            place.content =
                layoutColumn(cell.blocks, place.right - left - place.padding[Left] - place.padding[Right], m_numbers);
        left = place.right;
        laid.cells.push_back(std::move(place));
    }
    m_rows.push_back(std::move(laid));
}

/// Finds for each cell that begins a merge the rows that continue it: cells with the same left edge, row after row.
void TableLayout::joinRows()
{
    const auto continuation = [this](std::size_t row, qreal left) -> LaidCell * {
        if (row >= m_rows.size())
            return nullptr;
        const auto found = std::find_if(m_rows[row].cells.begin(), m_rows[row].cells.end(), [left](const LaidCell &c) {
            return c.left == left && c.format->acrossRows == Merge::Continued;
        });
        return found == m_rows[row].cells.end() ? nullptr : &*found;
    };
    for (std::size_t row = 0; row < m_rows.size(); ++row) {
        for (LaidCell &first : m_rows[row].cells) {
            if (first.format->acrossRows != Merge::First)
                continue;
            LaidCell *above = &first;
            while (LaidCell *next = continuation(row + first.rowSpan, first.left)) {
                above->continuedBelow = true;
                next->continued = true;
                above = next;
                ++first.rowSpan;
            }
        }
    }
}

qreal TableLayout::spanHeight(std::size_t first, int rows) const
{
    return height(first, first + rows);
}

void TableLayout::measureRows()
{
    for (LaidRow &row : m_rows) {
        const qreal told = row.format->height.value;
        row.height = isExact(row) ? told : std::max(told, ownHeight(row));
    }
    // What a merged cell still lacks is given to the last of its rows.
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        for (const LaidCell &cell : m_rows[i].cells) {
            LaidRow &last = m_rows[i + cell.rowSpan - 1];
            const qreal lacking = neededHeight(cell) + topBorderWidth(m_rows[i]) - spanHeight(i, cell.rowSpan);
            if (cell.rowSpan > 1 && lacking > 0 && !isExact(last))
                last.height += lacking;
        }
    }
}

void TableLayout::countHeadings()
{
    while (m_headingRows < m_rows.size() && m_rows[m_headingRows].format->heading)
        ++m_headingRows;
    if (m_headingRows == m_rows.size())
        m_headingRows = 0;
    m_headingHeight = height(0, m_headingRows);
}

std::size_t TableLayout::groupEnd(std::size_t first) const
{
    std::size_t end = first + 1;
    for (std::size_t row = first; row < end; ++row)
        for (const LaidCell &cell : m_rows[row].cells)
            end = std::max(end, row + cell.rowSpan);
    return end;
}

std::size_t TableLayout::chainEnd(std::size_t first) const
{
    std::size_t end = groupEnd(first);
    while (end < m_rows.size() && m_rows[end - 1].keepsWithNext)
        end = groupEnd(end);
    return end;
}

qreal TableLayout::height(std::size_t first, std::size_t end) const
{
    qreal sum = 0;
    for (std::size_t row = first; row < end; ++row)
        sum += m_rows[row].height;
    return sum;
}

bool TableLayout::beginsWithin(std::size_t row, qreal height) const
{
    const LaidRow &laid = m_rows[row];
    const bool mayBreak = !laid.format->keepTogether && !isExact(laid) && laid.format->height.value <= height;
    return mayBreak && std::all_of(laid.cells.begin(), laid.cells.end(), [&](const LaidCell &cell) {
               const qreal firstLine =
                   cell.content.empty() ? 0 : cell.content.front().gap + cell.content.front().height;
               return firstLine + cell.padding[Top] + cell.padding[Bottom] + topBorderWidth(laid) <= height;
           });
}

Drawing TableLayout::draw(std::size_t first, std::size_t end) const
{
    Drawing drawing;
    qreal top = 0;
    for (std::size_t i = first; i < end; ++i) {
        const LaidRow &row = m_rows[i];
        for (const LaidCell &cell : row.cells) {
            const std::size_t spanEnd = std::min(end, i + cell.rowSpan);
            drawCell(drawing, cell, top, row.height, height(i, spanEnd), isExact(row));
        }
        top += row.height;
    }
    return drawing;
}

Drawing TableLayout::draw(const LaidRow &row)
{
    Drawing drawing;
    for (const LaidCell &cell : row.cells)
        drawCell(drawing, cell, 0, row.height, row.height, isExact(row));
    return drawing;
}

void TableLayout::drawCell(Drawing &drawing, const LaidCell &cell, qreal top, qreal rowHeight, qreal contentHeight,
                           bool exact)
{
    const QRectF box(QPointF(cell.left, top), QPointF(cell.right, top + rowHeight));
    if (cell.format->shading)
        drawing.areas.push_back({box, *cell.format->shading});
    const auto &borders = cell.format->borders;
    if (!cell.continued)
        addBorder(drawing, borders[Top], box.topLeft(), box.topRight());
    if (!cell.continuedBelow)
        addBorder(drawing, borders[Bottom], box.bottomLeft(), box.bottomRight());
    addBorder(drawing, borders[Left], box.topLeft(), box.bottomLeft());
    addBorder(drawing, borders[Right], box.topRight(), box.bottomRight());

    const qreal topBorder = !cell.continued && borders[Top].style != LineStyle::None ? borders[Top].width : 0;
    const qreal free = std::max(0.0, contentHeight - topBorder - neededHeight(cell));
    qreal y = top + topBorder + cell.padding[Top];
    if (cell.format->verticalAlignment != VerticalAlignment::Top)
        y += cell.format->verticalAlignment == VerticalAlignment::Centre ? free / 2 : free;
    for (const Slice &slice : cell.content) {
        y += slice.gap;
        if (exact && y >= top + contentHeight)
            break; // an exact height cuts off what is too much
        drawing.add(slice.drawing, QPointF(cell.left + cell.padding[Left], y));
        y += slice.height;
    }
}

LaidRow TableLayout::splitOff(LaidRow &row, qreal height, bool forced)
{
    LaidRow part{row.format, row.cells, 0};
    for (std::size_t i = 0; i < row.cells.size(); ++i) {
        LaidCell &rest = row.cells[i];
        LaidCell &taken = part.cells[i];
        rest.rowSpan = taken.rowSpan = 1;
        rest.continued = taken.continued = rest.continuedBelow = taken.continuedBelow = false;
        const qreal room = height - rest.padding[Top] - rest.padding[Bottom] - topBorderWidth(part);
        qreal used = 0;
        auto end = rest.content.begin();
        for (; end != rest.content.end(); ++end) {
            const qreal next = used + end->gap + end->height;
            if (next > room && !(forced && end == rest.content.begin()))
                break;
            used = next;
        }
        taken.content.assign(rest.content.begin(), end);
        rest.content.erase(rest.content.begin(), end);
    }
    part.height = ownHeight(part);
    row.height = ownHeight(row);
    return part;
}

} // namespace ledgora::reporter
