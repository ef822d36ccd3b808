#include "components/reporter/ReportCanvas.h"

#include <QFontMetricsF>
#include <algorithm>
#include <cmath>

namespace ledgora::reporter {

namespace {

constexpr qreal ruleWidth = 8; ///< 0.4 points
constexpr QRgb bandColour = 0xfff2f2f2;
constexpr QRgb footerColour = 0xff606060;
constexpr int footerSize = 160;
constexpr qreal footerDistance = 420; ///< of its baseline from the paper's edge
constexpr qreal footerGap = 300;
constexpr qreal sideRoom = 0.5; ///< cells between a table's rule and its text

/// Signs that the fixed-pitch face has for sure, each as wide as the others.
bool isPlain(const QString &text)
{
    return std::all_of(text.cbegin(), text.cend(), [](QChar c) { return c.unicode() < 0x180; });
}

struct Measured
{
    QFont font;
    qreal width;
};

/// A sign that the face lacks comes from another one and is as wide as it likes: where it would leave its cell it is
/// squeezed.
Measured measure(const CellPiece &piece, const RowFace &face, qreal room)
{
    Measured measured{face.fonts[piece.bold], piece.width * face.advance[piece.bold]};
    if (isPlain(piece.text))
        return measured;
    measured.width = QFontMetricsF(measured.font).horizontalAdvance(piece.text);
    if (measured.width > room && room > 0) {
        const int stretch = measured.font.stretch() > 0 ? measured.font.stretch() : 100;
        measured.font.setStretch(std::max(1, static_cast<int>(stretch * room / measured.width)));
        measured.width = QFontMetricsF(measured.font).horizontalAdvance(piece.text);
    }
    return measured;
}

} // namespace

qreal ReportCanvas::leftOf(const RowGrid &grid, const RowFace &face) const
{
    const qreal columns = m_paper.width / face.column;
    // The rule at a table's right end takes no room on paper.
    return m_paper.left + ledgora::leftOf(grid, columns + (grid.inTable ? 1 : 0)) * face.column;
}

void ReportCanvas::level(qreal from, qreal to, qreal y)
{
    auto &rules = m_page.drawing.rules;
    const auto open = m_levels.find(qRound(y));
    if (open != m_levels.end()) {
        Rule &rule = rules[open->second];
        if (from >= rule.from.x() && to <= rule.to.x())
            return;
        if (from <= rule.to.x() + ruleWidth && from >= rule.from.x()) {
            rule.to.setX(to + ruleWidth / 2);
            return;
        }
    }
    m_levels[qRound(y)] = rules.size();
    rules.push_back({QPointF(from - ruleWidth / 2, y), QPointF(to + ruleWidth / 2, y), ruleWidth});
}

void ReportCanvas::upright(qreal x, qreal top, qreal bottom)
{
    auto &rules = m_page.drawing.rules;
    const auto open = m_uprights.find(qRound(x));
    if (open != m_uprights.end() && qAbs(rules[open->second].to.y() - top) < 1) {
        rules[open->second].to.setY(bottom);
        return;
    }
    m_uprights[qRound(x)] = rules.size();
    rules.push_back({QPointF(x, top), QPointF(x, bottom), ruleWidth});
}

void ReportCanvas::rules(const RowGrid &grid, const RowFace &face, qreal top, qreal bottom)
{
    const qreal left = leftOf(grid, face);
    for (const GridCell &cell : grid.cells) {
        const qreal from = left + cell.from * face.column;
        const qreal to = left + cell.to * face.column;
        if (cell.left)
            upright(from, top, bottom);
        if (cell.right)
            upright(to, top, bottom);
        if (cell.top)
            level(from, to, top);
        if (cell.bottom)
            level(from, to, bottom);
    }
}

void ReportCanvas::close(const RowGrid &grid, const RowFace &face, qreal y)
{
    if (grid.cells.empty())
        return;
    const qreal left = leftOf(grid, face);
    level(left + grid.cells.front().from * face.column, left + grid.cells.back().to * face.column, y);
}

void ReportCanvas::band(const RowGrid &grid, const RowFace &face, qreal top, qreal bottom)
{
    const qreal left = leftOf(grid, face);
    m_page.drawing.areas.push_back({QRectF(left, top, grid.width * face.column, bottom - top), bandColour});
}

void ReportCanvas::texts(const CellLine &line, const RowFace &face, qreal left, qreal room, ReportAlign align,
                         qreal baseline)
{
    std::vector<Measured> measured;
    qreal width = 0;
    for (const CellPiece &piece : line) {
        measured.push_back(measure(piece, face, room * piece.width / std::max(1, widthOf(line))));
        width += measured.back().width;
    }
    qreal x = left + indentOf(align, room - width);
    for (std::size_t i = 0; i < line.size(); ++i) {
        m_page.drawing.texts.push_back({QPointF(x, baseline), measured[i].width, line[i].text, measured[i].font});
        x += measured[i].width;
    }
}

void ReportCanvas::line(const RowGrid &grid, const GridCell &cell, const RowFace &face, const CellLine &line, qreal top)
{
    const qreal from = leftOf(grid, face) + (cell.from + (grid.inTable ? sideRoom : 0)) * face.column;
    texts(line, face, from, cell.room * face.column, cell.align, top + face.ascent);
}

void ReportCanvas::freeLine(const RowFace &face, const CellLine &line, qreal top)
{
    texts(line, face, m_paper.left, m_paper.width, ReportAlign::Left, top + face.ascent);
}

void ReportCanvas::footer(const QString &title, int page, int pages)
{
    QFont font(QStringLiteral("Liberation Sans"));
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setPixelSize(footerSize);
    const QFontMetricsF metrics(font);
    const QString number = QStringLiteral("Page %1 of %2").arg(page).arg(pages);
    const qreal width = metrics.horizontalAdvance(number);
    const qreal y = m_paper.size.height() - footerDistance;
    const QString shown = metrics.elidedText(title, Qt::ElideRight, m_paper.width - width - footerGap);
    if (!shown.isEmpty())
        m_page.drawing.texts.push_back(
            {QPointF(m_paper.left, y), metrics.horizontalAdvance(shown), shown, font, footerColour});
    m_page.drawing.texts.push_back(
        {QPointF(m_paper.left + m_paper.width - width, y), width, number, font, footerColour});
}

Page ReportCanvas::take()
{
    return std::move(m_page);
}

} // namespace ledgora::reporter
