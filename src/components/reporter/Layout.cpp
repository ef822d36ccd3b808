#include "components/reporter/Layout.h"

#include "components/reporter/Pager.h"
#include <algorithm>
#include <optional>
#include <utility>

namespace ledgora::reporter {

namespace {

/// Whether the text tells how many pages there are, which is known only behind a first laying out.
bool tellsTotals(const std::vector<Block> &blocks)
{
    bool found = false;
    eachParagraph(blocks, [&](const Paragraph &paragraph) {
        found = found || std::any_of(paragraph.runs.begin(), paragraph.runs.end(), [](const Run &run) {
                    return run.field == Field::PageCount || run.field == Field::SectionPages;
                });
    });
    return found;
}

void drawColumn(Drawing &drawing, const std::vector<Slice> &slices, QPointF at)
{
    for (const Slice &slice : slices) {
        at.ry() += slice.gap;
        drawing.add(slice.drawing, at);
        at.ry() += slice.height;
    }
}

/// The header comes before the text and the footer behind it, as they are read, searched and copied.
void drawMargins(Page &page, const PageOwner &owner, const PageNumbers &numbers)
{
    const Section &section = *owner.section;
    const PageSetup &setup = section.page;
    const qreal left = withinMargins(setup).left();
    const qreal width = withinMargins(setup).width();
    const auto laid = [&](bool header) {
        return layoutColumn(marginText(section, owner.first, header), width, numbers, setup.height);
    };
    if (const std::vector<Slice> header = laid(true); !header.empty()) {
        Drawing body = std::exchange(page.drawing, {});
        drawColumn(page.drawing, header, QPointF(left, setup.headerDistance));
        page.drawing.add(body, {});
    }
    const std::vector<Slice> footer = laid(false);
    drawColumn(page.drawing, footer, QPointF(left, setup.height - setup.footerDistance - heightOf(footer)));
}

void drawPageBorders(Page &page, const Section &section)
{
    const auto &borders = section.page.borders;
    const auto space = [&](Side side) { return static_cast<qreal>(borders[side].space); };
    QRectF box(QPointF(), page.size);
    if (section.page.bordersFromEdge) {
        box.adjust(space(Left), space(Top), -space(Right), -space(Bottom));
    } else {
        const auto &margins = section.page.margins;
        box.adjust(margins[Left] - space(Left), margins[Top] - space(Top), space(Right) - margins[Right],
                   space(Bottom) - margins[Bottom]);
    }
    addBorder(page.drawing, borders[Top], box.topLeft(), box.topRight());
    addBorder(page.drawing, borders[Bottom], box.bottomLeft(), box.bottomRight());
    addBorder(page.drawing, borders[Left], box.topLeft(), box.bottomLeft());
    addBorder(page.drawing, borders[Right], box.topRight(), box.bottomRight());
}

constexpr std::size_t blocksBetweenWords = 64;

/// Lays the sections out; nothing when `progress` ends it.
std::optional<Pager> paged(const Document &document, const PageTotals &totals, const Progress &progress)
{
    qint64 done = 0;
    qint64 total = 0;
    for (const Section &section : document.sections)
        total += static_cast<qint64>(section.blocks.size());
    const auto goesOn = [&](std::size_t block) {
        return block % blocksBetweenWords != 0
               || progress(done + static_cast<qint64>(block), total, QStringLiteral("Laying out pages"));
    };
    Pager pager(totals);
    for (const Section &section : document.sections) {
        if (!pager.add(section, goesOn))
            return std::nullopt;
        done += static_cast<qint64>(section.blocks.size());
    }
    return pager;
}

} // namespace

qreal heightOf(const std::vector<Slice> &slices)
{
    qreal sum = 0;
    for (const Slice &slice : slices)
        sum += slice.gap + slice.height;
    return sum;
}

std::vector<Slice> layoutColumn(const std::vector<Block> &blocks, qreal width, const PageNumbers &numbers, qreal enough)
{
    std::vector<Slice> column;
    qreal height = 0;
    for (const Block &block : blocks) {
        if (height > enough)
            break;
        if (const auto *paragraph = std::get_if<Paragraph>(&block.content)) {
            std::vector<Slice> lines = layoutParagraph(*paragraph, width, numbers);
            height += heightOf(lines);
            std::move(lines.begin(), lines.end(), std::back_inserter(column));
            continue;
        }
        const TableLayout table(std::get<Table>(block.content), width, numbers);
        height += table.height(0, table.rows().size());
        for (std::size_t row = 0; row < table.rows().size();) {
            const std::size_t end = table.groupEnd(row);
            column.push_back({0, table.height(row, end), table.draw(row, end), false});
            row = end;
        }
    }
    return column;
}

PageList layoutDocument(const Document &document, const Progress &progress)
{
    std::optional<Pager> pager = paged(document, {}, progress);
    const bool isKnownLate = std::any_of(document.sections.begin(), document.sections.end(),
                                         [](const Section &section) { return tellsTotals(section.blocks); });
    if (pager && isKnownLate)
        pager = paged(document, pager->totals(), progress);
    if (!pager)
        return {};
    PageList pages = pager->takePages();
    const PageTotals totals = pager->totals();
    for (std::size_t i = 0; i < pages.size(); ++i) {
        const PageOwner &owner = pager->owners()[i];
        drawMargins(pages[i], owner, numbersOf(owner, totals));
        drawPageBorders(pages[i], *owner.section);
    }
    return pages;
}

} // namespace ledgora::reporter
