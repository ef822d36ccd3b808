#include "components/reporter/ReportPager.h"

#include <QScopeGuard>
#include <algorithm>
#include <utility>

namespace ledgora::reporter {

namespace {

constexpr qreal tolerance = 0.5;       ///< twips that sums of heights may be off
constexpr qreal tableGap = 0.4;        ///< between a table and free lines, in lines
constexpr qreal leastOfTallRow = 0.25; ///< of a page: room in which a row that is taller than a page begins

} // namespace

namespace {

/// Whether an upright page would set some row too small to be read, in the pitch in which its kind first comes.
bool wantsWidth(const ReportRows &rows, const std::vector<RowGrid> &grids)
{
    constexpr int smallestType = 100; // twips, 5 points
    ReportFaces faces{ReportPaper(false)};
    std::vector<bool> seen(grids.size());
    PrintState print;
    for (int entry = 0; entry < rows.size(); ++entry) {
        if (rows.kind(entry) == ReportRows::Kind::Text)
            print = afterLeadingCodes(rows.text(entry), print);
        if (rows.kind(entry) != ReportRows::Kind::Row || seen[rows.formatNumber(entry)])
            continue;
        const int format = rows.formatNumber(entry);
        seen[format] = true;
        if (faces.face(grids[format], print.condensed).fonts[0].pixelSize() < smallestType)
            return true;
    }
    return false;
}

} // namespace

ReportPager::ReportPager(const ReportRows &rows)
    : m_rows(rows)
    , m_grids(gridsOf(rows))
    , m_paper(rows.wide() || wantsWidth(rows, m_grids))
    , m_faces(m_paper)
{
}

/// A code that stands ahead of the row's text counts for the row itself, one within it for what follows.
PrintState ReportPager::pitchOf(int entry, PrintState print) const
{
    return m_rows.cells(entry) > 0 ? afterLeadingCodes(m_rows.cell(entry, 0), print) : print;
}

const RowFace &ReportPager::faceOf(int entry, const PrintState &print)
{
    return m_faces.face(gridOf(entry), pitchOf(entry, print).condensed);
}

ReportPager::Height ReportPager::heightOf(int entry, PrintState &print)
{
    const RowGrid &grid = gridOf(entry);
    const RowFace &face = faceOf(entry, print);
    Height height;
    std::size_t next = 0;
    for (int cell = 0; cell < m_rows.cells(entry); ++cell) {
        const bool exists = next < grid.cells.size() && grid.cells[next].index == cell;
        const int lines = wrappedLines(m_rows.cell(entry, cell), exists ? grid.cells[next].room : 1, print);
        if (exists) {
            height.count = std::max(height.count, lines);
            ++next;
        }
    }
    height.lines = height.count * face.line;
    if (grid.inTable) {
        const bool belowRule = m_last && m_last->hasBottom();
        height.above = grid.hasTop() || belowRule ? face.rulePadding : face.padding;
        const bool aboveRule = entry + 1 < m_rows.size() && isRow(entry + 1) && gridOf(entry + 1).hasTop();
        height.below = grid.hasBottom() || aboveRule ? face.rulePadding : face.padding;
    }
    return height;
}

bool ReportPager::isBlank(int entry) const
{
    for (int cell = 0; cell < m_rows.cells(entry); ++cell)
        if (!shownText(m_rows.cell(entry, cell)).trimmed().isEmpty())
            return false;
    return !isRow(entry) || (!gridOf(entry).hasTop() && !gridOf(entry).hasBottom());
}

bool ReportPager::fill(ReportPlace &place, ReportCanvas *canvas)
{
    m_canvas = canvas;
    m_y = m_bodyTop = m_paper.top;
    m_last = nullptr;
    m_goesOn = place.inTable;
    if (place.inTable && place.hasHeading() && place.entry < m_rows.size() && isRow(place.entry)
        && gridOf(place.entry).inTable)
        repeatHeading(place);
    while (place.entry < m_rows.size()) {
        bool fits = true;
        if (isRow(place.entry))
            fits = takeRow(place);
        else if (m_rows.kind(place.entry) == ReportRows::Kind::Table)
            takeTable(place);
        else
            fits = takeText(place);
        if (!fits)
            return place.entry < m_rows.size();
    }
    if (!place.pending.isEmpty())
        endLine(place);
    closeTable(); // a report that was broken off has no total
    return false;
}

/// A second call in the middle of a heading goes on with it.
void ReportPager::takeTable(ReportPlace &place)
{
    const bool goesOn = place.inHeading && place.headingFrom < place.headingTo;
    ++place.entry;
    if (goesOn)
        return;
    place.inHeading = true;
    place.headingFrom = place.headingTo = place.entry;
    place.headingPrint = place.print;
    noteTitle(place);
}

/// What stands between the change of pitch and the table.
void ReportPager::noteTitle(ReportPlace &place)
{
    place.titleTo = place.entry;
    place.titleFrom = place.nextTitle < 0 ? place.titleTo : place.nextTitle;
    place.nextTitle = -1;
}

void ReportPager::noteHeading(ReportPlace &place, int entry) const
{
    const RowGrid &grid = gridOf(entry);
    if (!grid.inTable) {
        place.headingFrom = place.headingTo = 0;
        place.inHeading = false;
    } else if (place.inHeading) {
        if (place.headingFrom == place.headingTo && !grid.hasTop())
            place.inHeading = false; // a table without a heading
        else
            place.headingTo = entry + 1;
        if (grid.hasBottom())
            place.inHeading = false;
    }
}

/// Height of what must stand on one page from here: all from a title to the first row below the heading, and with it
/// what ends a table of few rows. Nothing when a blank line parts this one from the next table.
qreal ReportPager::leadHeight(const ReportPlace &place)
{
    constexpr int longestLead = 12; // a letter above a table need not stay with it
    const auto restore = qScopeGuard([this, above = m_last] { m_last = above; });
    ReportPlace ahead = place;
    qreal height = 0;
    for (int i = 0; i < longestLead && ahead.entry < m_rows.size(); ++i, ++ahead.entry) {
        const int entry = ahead.entry;
        if (m_rows.kind(entry) == ReportRows::Kind::Table) {
            takeTable(ahead);
            --ahead.entry;
            continue;
        }
        const bool row = isRow(entry);
        const bool endsLine = row || !m_rows.text(entry).endsWith(u';');
        const bool inTable = row && gridOf(entry).inTable;
        if (i > 0 && endsLine && !inTable && isBlank(entry))
            return 0;
        const bool wasHeading = ahead.inHeading;
        if (!row) {
            wrappedLines(m_rows.text(entry), 1, ahead.print); // its codes
            height += endsLine ? m_faces.plain(ahead.print.condensed).line : 0;
            m_last = endsLine ? nullptr : m_last;
            continue;
        }
        if (inTable != std::exchange(ahead.inTable, inTable))
            height += faceOf(entry, ahead.print).line * tableGap;
        const qreal end = inTable ? endHeight(ahead) : 0;
        const qreal whole = heightOf(entry, ahead.print).whole();
        noteHeading(ahead, entry);
        if (inTable && (!wasHeading || ahead.headingTo <= entry))
            return height + (whole > m_paper.height ? m_paper.height * leastOfTallRow : std::max(whole, end));
        height += whole;
        m_last = inTable ? &gridOf(entry) : nullptr;
    }
    return 0; // no table
}

/// Height of the rows that end a table and of those that stay with them, when this is the first of these. A total on a
/// page of its own would stand for nothing.
qreal ReportPager::endHeight(const ReportPlace &place)
{
    constexpr int kept = 2;
    int end = place.entry;
    while (isTableRow(end) && !gridOf(end).hasTop()) {
        if (++end - place.entry > kept)
            return 0;
    }
    if (!isTableRow(end) || end == place.entry)
        return 0;
    while (isTableRow(end))
        ++end;
    const RowGrid *above = m_last;
    PrintState print = place.print;
    qreal height = 0;
    for (int entry = place.entry; entry < end; ++entry) {
        height += heightOf(entry, print).whole();
        m_last = &gridOf(entry);
    }
    m_last = above;
    return height;
}

bool ReportPager::takeRow(ReportPlace &place)
{
    if (!place.pending.isEmpty())
        endLine(place);
    if (place.line > 0)
        return splitRow(place);
    const int entry = place.entry;
    const bool inTable = gridOf(entry).inTable;
    PrintState behind = place.print;
    const Height height = heightOf(entry, behind);
    const bool blank = inTable && isBlank(entry);
    const qreal gap = isFresh() || inTable == place.inTable ? 0 : faceOf(entry, place.print).line * tableGap;
    switch (roomFor(place, gap + height.whole())) {
    case Room::Here:
        m_y += gap;
        if (!blank || !isFresh() || m_bodyTop <= m_paper.top)
            putRow(entry, place.print, height, 0, height.count);
        break;
    case Room::NextPage:
        if (blank)
            break; // it parts rows that no longer stand below one another
        closeTable();
        return false;
    case Room::Nowhere:
        return splitRow(place);
    }
    leaveRow(place, behind);
    return true;
}

/// A row that begins a table, or stands above one, wants room for all that stays with it.
ReportPager::Room ReportPager::roomFor(const ReportPlace &place, qreal height)
{
    const qreal room = bottom() - m_y + tolerance;
    const qreal page = bottom() - m_bodyTop + tolerance;
    if (height > page)
        return !isFresh() && room < page * leastOfTallRow ? Room::NextPage : Room::Nowhere;
    if (height > room)
        return Room::NextPage;
    const bool begins = place.inHeading && place.headingFrom == place.headingTo;
    const bool goesOn = place.inTable && !begins && gridOf(place.entry).inTable;
    if (isFresh() || (goesOn && place.inHeading))
        return Room::Here;
    const qreal lead = goesOn ? endHeight(place) : leadHeight(place);
    return lead > room && lead <= page ? Room::NextPage : Room::Here;
}

void ReportPager::leaveRow(ReportPlace &place, const PrintState &behind) const
{
    if (place.inHeading && place.headingFrom == place.headingTo) {
        place.headingFrom = place.headingTo = place.entry;
        place.headingPrint = place.print;
    }
    noteHeading(place, place.entry);
    place.print = behind;
    place.inTable = gridOf(place.entry).inTable;
    place.line = 0;
    ++place.entry;
}

/// Puts as many lines of a row that is taller than a page as there is room for, at least one.
bool ReportPager::splitRow(ReportPlace &place)
{
    PrintState behind = place.print;
    const Height height = heightOf(place.entry, behind);
    const RowFace &face = faceOf(place.entry, place.print);
    const qreal room = bottom() - m_y - height.above - height.below + tolerance;
    const int fitting = std::max(1, static_cast<int>(room / face.line));
    const int last = std::min(height.count, place.line + fitting);
    putRow(place.entry, place.print, height, place.line, last);
    if (last == height.count) {
        leaveRow(place, behind);
        return true;
    }
    place.line = last;
    place.inTable = gridOf(place.entry).inTable;
    closeTable();
    return false;
}

/// The first line is the name; what may stand below it was told once.
void ReportPager::repeatTitle(const ReportPlace &place)
{
    PrintState print = place.titlePrint;
    for (int entry = place.titleFrom; entry < place.titleTo; ++entry) {
        if (!isRow(entry))
            continue;
        const RowFace &face = faceOf(entry, print);
        putRow(entry, print, heightOf(entry, print), 0, 1);
        m_y += face.line * tableGap;
        return;
    }
}

void ReportPager::repeatHeading(const ReportPlace &place)
{
    repeatTitle(place);
    PrintState print = place.headingPrint;
    qreal height = m_y - m_paper.top;
    PrintState measured = print;
    for (int entry = place.headingFrom; entry < place.headingTo; ++entry)
        height += isRow(entry) ? heightOf(entry, measured).whole() : 0;
    if (height > m_paper.height / 2)
        return; // it would leave no room for rows
    for (int entry = place.headingFrom; entry < place.headingTo; ++entry) {
        if (!isRow(entry))
            continue;
        PrintState behind = print;
        const Height row = heightOf(entry, behind);
        putRow(entry, print, row, 0, row.count);
        print = behind;
    }
    m_bodyTop = m_y;
}

void ReportPager::putRow(int entry, PrintState &print, const Height &height, int firstLine, int lastLine)
{
    const RowFace &face = faceOf(entry, print);
    const RowGrid &grid = gridOf(entry);
    if (m_canvas)
        drawRow(entry, print, height, firstLine, lastLine);
    m_y += height.above + (lastLine - firstLine) * face.line + height.below;
    m_last = grid.inTable ? &grid : nullptr;
    m_lastFace = &face;
}

void ReportPager::drawRow(int entry, PrintState print, const Height &height, int firstLine, int lastLine)
{
    const RowFace &face = faceOf(entry, print);
    RowGrid grid = gridOf(entry);
    const qreal down = m_y + height.above + (lastLine - firstLine) * face.line + height.below;
    for (GridCell &cell : grid.cells) {
        cell.top = cell.top && firstLine == 0;
        cell.bottom = cell.bottom && lastLine == height.count;
    }
    if (gridOf(entry).hasTop() && grid.inTable)
        m_canvas->band(grid, face, m_y, down);
    m_canvas->rules(grid, face, m_y, down);
    if (grid.inTable && grid.hasSides() && m_goesOn && m_y <= m_paper.top)
        m_canvas->close(grid, face, m_y); // without a heading the box would be open above
    std::size_t next = 0;
    for (int i = 0; i < m_rows.cells(entry); ++i) {
        const bool exists = next < grid.cells.size() && grid.cells[next].index == i;
        const auto lines = wrapCell(m_rows.cell(entry, i), exists ? grid.cells[next].room : 1, print);
        if (!exists)
            continue;
        const GridCell &cell = grid.cells[next++];
        for (int line = firstLine; line < std::min<int>(lastLine, static_cast<int>(lines.size())); ++line)
            m_canvas->line(grid, cell, face, lines[line], m_y + height.above + (line - firstLine) * face.line);
    }
}

/// Text as it stands, which may hold form feeds: what stands ahead of one is printed no more. False when it begins a
/// page; then its `line` tells that this was done.
bool ReportPager::takeText(ReportPlace &place)
{
    QStringView text = m_rows.text(place.entry);
    const bool goesOn = text.endsWith(u';');
    if (goesOn)
        text.chop(1);
    const qsizetype feed = text.lastIndexOf(u'\f');
    text = text.sliced(feed + 1);
    const bool last = place.entry + 1 == m_rows.size();
    const bool feeds = feed >= 0 && place.line == 0 && !isFresh() && !(last && text.isEmpty());
    const bool moves = place.inTable && !goesOn && !isFresh() && leadHeight(place) > bottom() - m_y + tolerance;
    const bool full = !isFresh() && m_y + m_faces.plain(place.print.condensed).line > bottom() + tolerance;
    if (feeds || moves || (full && !shownText(text).isEmpty())) {
        place.line = feeds ? 1 : place.line;
        closeTable();
        return false;
    }
    place.line = 0;
    ++place.entry;
    place.pending += text;
    const bool onlyCodes = shownText(place.pending).isEmpty();
    if (onlyCodes) {
        wrappedLines(std::exchange(place.pending, {}), 1, place.print);
        if (!place.print.condensed) {
            place.nextTitle = place.entry;
            place.titlePrint = place.print;
        }
    }
    if (!goesOn && (feed < 0 || !onlyCodes))
        endLine(place);
    return true;
}

void ReportPager::endLine(ReportPlace &place)
{
    const auto lines = wrapCell(place.pending, m_paper.columns, place.print);
    const RowFace &face = m_faces.plain(place.print.condensed);
    place.pending.clear();
    place.inTable = false;
    m_last = nullptr;
    for (const CellLine &line : lines) {
        if (line.empty() && isFresh())
            continue;
        if (m_canvas)
            m_canvas->freeLine(face, line, m_y);
        m_y += face.line;
    }
}

void ReportPager::closeTable()
{
    if (m_canvas && m_last && m_last->hasSides() && !m_last->hasBottom())
        m_canvas->close(*m_last, *m_lastFace, m_y);
}

} // namespace ledgora::reporter
