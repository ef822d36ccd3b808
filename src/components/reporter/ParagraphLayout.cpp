#include "components/reporter/Slices.h"

#include <QTextLayout>
#include <algorithm>

namespace ledgora::reporter {

namespace {

/// Narrower columns than this exist only in broken templates; the text in them must still come to an end.
constexpr qreal narrowestLine = 100;
constexpr qreal defaultTabDistance = 720;
constexpr int twipsPerHalfPoint = 10;

QFont fontOf(const CharFormat &format)
{
    QFont font(format.font);
    font.setPixelSize(std::max(1, format.halfPoints * twipsPerHalfPoint));
    font.setBold(format.bold);
    font.setItalic(format.italic);
    font.setUnderline(format.underline);
    font.setHintingPreference(QFont::PreferNoHinting); // the same widths on every device
    return font;
}

Qt::Alignment qtAlignment(Alignment alignment)
{
    switch (alignment) {
    case Alignment::Centre:
        return Qt::AlignHCenter;
    case Alignment::Right:
        return Qt::AlignRight;
    case Alignment::Justified:
        return Qt::AlignJustify;
    default:
        return Qt::AlignLeft;
    }
}

QTextOption::TabType tabType(Alignment alignment)
{
    switch (alignment) {
    case Alignment::Centre:
        return QTextOption::CenterTab;
    case Alignment::Right:
        return QTextOption::RightTab;
    default:
        return QTextOption::LeftTab;
    }
}

/// Tab stops count from the edge of the column, the layout counts from where a line begins. A paragraph whose first
/// line begins elsewhere uses its tabs there.
QTextOption optionOf(const ParagraphFormat &format)
{
    QTextOption option(qtAlignment(format.alignment));
    option.setTextDirection(Qt::LeftToRight);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    option.setUseDesignMetrics(true);
    option.setTabStopDistance(defaultTabDistance);
    const qreal lineBegin = format.leftIndent + format.firstIndent;
    QList<QTextOption::Tab> tabs;
    for (const TabStop &tab : format.tabs)
        if (tab.position > lineBegin)
            tabs.append(QTextOption::Tab(tab.position - lineBegin, tabType(tab.alignment)));
    option.setTabs(tabs);
    return option;
}

struct LineHeight
{
    qreal height = 0;
    qreal baseline = 0;
};

LineHeight heightOf(const QTextLine &line, const LineSpacing &spacing)
{
    const qreal natural = line.height();
    qreal height = natural;
    if (spacing.rule == LineSpacing::Automatic)
        height = natural * spacing.value / 240;
    else if (spacing.rule == LineSpacing::Exact || spacing.value > natural)
        height = spacing.value;
    return {height, line.ascent() + height - natural};
}

class ParagraphLayout
{
public:
    ParagraphLayout(const Paragraph &paragraph, qreal width);

    std::vector<Slice> slices();

private:
    void addTexts(Drawing &drawing, const QTextLine &line, qreal baseline) const;
    void addPieces(Drawing &drawing, const QTextLine &line, int from, int to, const Run &run, qreal baseline) const;
    bool endsPiece(QChar c) const;
    void decorate(Slice &slice, bool first, bool last) const;
    void setLineWidth(QTextLine &line, bool first) const;

    const Paragraph &m_paragraph;
    const ParagraphFormat &m_format;
    qreal m_width;
    QString m_text;
    std::vector<QFont> m_fonts; ///< one for each run
    QTextLayout m_layout;
};

ParagraphLayout::ParagraphLayout(const Paragraph &paragraph, qreal width)
    : m_paragraph(paragraph)
    , m_format(paragraph.format)
    , m_width(width)
    , m_text(paragraph.text())
{
    QList<QTextLayout::FormatRange> ranges;
    qsizetype at = 0;
    for (const Run &run : paragraph.runs) {
        m_fonts.push_back(fontOf(run.format));
        QTextLayout::FormatRange range;
        range.start = static_cast<int>(at);
        range.length = static_cast<int>(run.text.size());
        range.format.setFont(m_fonts.back());
        ranges.append(range);
        at += run.text.size();
    }
    m_layout.setText(m_text);
    m_layout.setFont(m_fonts.empty() ? fontOf(paragraph.endFormat) : m_fonts.front());
    m_layout.setFormats(ranges);
    m_layout.setTextOption(optionOf(m_format));
}

void ParagraphLayout::setLineWidth(QTextLine &line, bool first) const
{
    const qreal left = m_format.leftIndent + (first ? m_format.firstIndent : 0);
    line.setLeadingIncluded(true);
    line.setLineWidth(std::max(narrowestLine, m_width - left - m_format.rightIndent));
    line.setPosition(QPointF(left, 0));
}

std::vector<Slice> ParagraphLayout::slices()
{
    std::vector<Slice> slices;
    m_layout.beginLayout();
    for (QTextLine line = m_layout.createLine(); line.isValid(); line = m_layout.createLine())
        setLineWidth(line, line.lineNumber() == 0);
    m_layout.endLayout();
    for (int i = 0; i < m_layout.lineCount(); ++i) {
        const QTextLine line = m_layout.lineAt(i);
        const LineHeight place = heightOf(line, m_format.lineSpacing);
        Slice slice;
        slice.height = place.height;
        addTexts(slice.drawing, line, place.baseline);
        decorate(slice, i == 0, i + 1 == m_layout.lineCount());
        slices.push_back(std::move(slice));
    }
    if (slices.empty())
        slices.emplace_back();
    slices.front().gap += m_format.spaceBefore;
    slices.front().breakBefore = m_format.pageBreakBefore;
    if (m_format.spaceAfter > 0)
        slices.push_back({static_cast<qreal>(m_format.spaceAfter), 0, {}, false});
    return slices;
}

void ParagraphLayout::addTexts(Drawing &drawing, const QTextLine &line, qreal baseline) const
{
    const int lineBegin = line.textStart();
    const int lineEnd = lineBegin + line.textLength();
    int at = 0;
    for (std::size_t i = 0; i < m_fonts.size(); ++i) {
        const Run &run = m_paragraph.runs[i];
        const int end = at + static_cast<int>(run.text.size());
        const int from = std::max(at, lineBegin);
        const int to = std::min(end, lineEnd);
        const std::size_t before = drawing.texts.size();
        if (from < to)
            addPieces(drawing, line, from, to, run, baseline);
        for (std::size_t piece = before; piece < drawing.texts.size(); ++piece)
            drawing.texts[piece].font = m_fonts[i];
        at = end;
    }
}

/// Where the layout alone knows the distance to what follows.
bool ParagraphLayout::endsPiece(QChar c) const
{
    return c == u'\t' || c == lineBreak || (m_format.alignment == Alignment::Justified && c == u' ');
}

void ParagraphLayout::addPieces(Drawing &drawing, const QTextLine &line, int from, int to, const Run &run,
                                qreal baseline) const
{
    for (int begin = from; begin < to;) {
        if (endsPiece(m_text[begin])) {
            ++begin;
            continue;
        }
        int end = begin;
        while (end < to && !endsPiece(m_text[end]))
            ++end;
        TextPiece piece;
        const qreal left = line.cursorToX(begin);
        piece.baseline = QPointF(left, baseline);
        piece.width = line.cursorToX(end) - left;
        piece.text = m_text.mid(begin, end - begin);
        piece.colour = inkOf(run.format.colour);
        drawing.texts.push_back(std::move(piece));
        begin = end;
    }
}

/// Shading and borders go around all lines of the paragraph, between its indents; the space that a border keeps from
/// the text adds to the height at the top and the bottom and lies outside of the indents at the sides.
void ParagraphLayout::decorate(Slice &slice, bool first, bool last) const
{
    const auto &borders = m_format.borders;
    const auto drawn = [&](Side side) { return borders[side].style != LineStyle::None; };
    const qreal above = first && drawn(Top) ? borders[Top].space + borders[Top].width : 0;
    const qreal below = last && drawn(Bottom) ? borders[Bottom].space + borders[Bottom].width : 0;
    for (TextPiece &piece : slice.drawing.texts)
        piece.baseline.ry() += above;
    slice.height += above + below;
    const QRectF box(QPointF(m_format.leftIndent - (drawn(Left) ? borders[Left].space : 0), 0),
                     QPointF(m_width - m_format.rightIndent + (drawn(Right) ? borders[Right].space : 0), slice.height));
    if (m_format.shading)
        slice.drawing.areas.push_back({box, *m_format.shading});
    if (first)
        addBorder(slice.drawing, borders[Top], box.topLeft(), box.topRight());
    if (last)
        addBorder(slice.drawing, borders[Bottom], box.bottomLeft(), box.bottomRight());
    addBorder(slice.drawing, borders[Left], box.topLeft(), box.bottomLeft());
    addBorder(slice.drawing, borders[Right], box.topRight(), box.bottomRight());
}

} // namespace

QRgb inkOf(const Colour &colour)
{
    return colour.value_or(0xff000000);
}

void addBorder(Drawing &drawing, const BorderLine &border, QPointF from, QPointF to)
{
    if (border.style != LineStyle::None)
        drawing.rules.push_back({from, to, static_cast<qreal>(border.width), border.style, inkOf(border.colour)});
}

std::vector<Slice> layoutParagraph(const Paragraph &paragraph, qreal width)
{
    return ParagraphLayout(paragraph, width).slices();
}

} // namespace ledgora::reporter
