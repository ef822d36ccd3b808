#include "components/reporter/Slices.h"

#include <QTextLayout>
#include <algorithm>

namespace ledgora::reporter {

namespace {

/// Narrower columns than this exist only in broken templates; the text in them must still come to an end.
constexpr qreal narrowestLine = 100;
constexpr qreal defaultTabDistance = 720;
constexpr int twipsPerHalfPoint = 10;

constexpr qreal scriptSize = 0.62; ///< of raised and lowered text, to its type's size
constexpr qreal superRise = 0.34;  ///< how far it stands above the line, to the same
constexpr qreal subFall = 0.12;

int sizeOf(const CharFormat &format)
{
    return std::max(1, format.halfPoints * twipsPerHalfPoint);
}

qreal riseOf(const CharFormat &format)
{
    switch (format.script) {
    case Script::Super:
        return superRise * sizeOf(format);
    case Script::Sub:
        return -subFall * sizeOf(format);
    default:
        return 0;
    }
}

QFont fontOf(const CharFormat &format)
{
    QFont font(format.font);
    const int size = sizeOf(format);
    font.setPixelSize(format.script == Script::Normal ? size : std::max(1, qRound(size * scriptSize)));
    font.setStrikeOut(format.strike);
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

/// A picture is laid out as a letter of no size that is followed by as much room as it is wide.
QFont fontOf(const Picture &picture, const CharFormat &format)
{
    QFont font(format.font);
    font.setPixelSize(1);
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setLetterSpacing(QFont::AbsoluteSpacing, std::max(0.0, picture.shownSize().width() - 1));
    return font;
}

QString shownText(const Run &run, const PageNumbers &numbers)
{
    if (run.anchor || run.format.hidden)
        return {};
    if (run.picture)
        return QStringLiteral("M");
    switch (run.field) {
    case Field::Page:
        return QString::number(numbers.page);
    case Field::PageCount:
        return QString::number(numbers.pages);
    case Field::SectionPages:
        return QString::number(numbers.sectionPages);
    default:
        return run.format.capitals ? run.text.toUpper() : run.text;
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

class ParagraphLayout
{
public:
    ParagraphLayout(const Paragraph &paragraph, qreal width, const PageNumbers &numbers);

    std::vector<Slice> slices();

private:
    LineHeight heightOf(const QTextLine &line) const;
    template<class Visitor>
    void eachPart(const QTextLine &line, Visitor &&visit) const;
    void addPicture(Drawing &drawing, const QTextLine &line, int at, const Picture &picture, qreal baseline) const;
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
    std::vector<int> m_ends;    ///< where each run ends in the text
    QTextLayout m_layout;
};

ParagraphLayout::ParagraphLayout(const Paragraph &paragraph, qreal width, const PageNumbers &numbers)
    : m_paragraph(paragraph)
    , m_format(paragraph.format)
    , m_width(width)
{
    QList<QTextLayout::FormatRange> ranges;
    for (const Run &run : paragraph.runs) {
        m_fonts.push_back(run.picture ? fontOf(*run.picture, run.format) : fontOf(run.format));
        QTextLayout::FormatRange range;
        range.start = static_cast<int>(m_text.size());
        m_text += shownText(run, numbers);
        m_ends.push_back(static_cast<int>(m_text.size()));
        range.length = m_ends.back() - range.start;
        range.format.setFont(m_fonts.back());
        ranges.append(range);
    }
    m_layout.setText(m_text);
    m_layout.setFont(m_text.isEmpty() ? fontOf(paragraph.endFormat) : m_fonts.front());
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
        const LineHeight place = heightOf(line);
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

/// Calls `visit(run, index, from, to)` for what each run has in the line.
template<class Visitor>
void ParagraphLayout::eachPart(const QTextLine &line, Visitor &&visit) const
{
    const int lineBegin = line.textStart();
    const int lineEnd = lineBegin + line.textLength();
    int begin = 0;
    for (std::size_t i = 0; i < m_fonts.size(); ++i) {
        const int from = std::max(begin, lineBegin);
        const int to = std::min(m_ends[i], lineEnd);
        if (from < to)
            visit(m_paragraph.runs[i], i, from, to);
        begin = m_ends[i];
    }
}

/// A picture stands on the line and makes it as tall as itself.
LineHeight ParagraphLayout::heightOf(const QTextLine &line) const
{
    qreal ascent = line.ascent();
    eachPart(line, [&ascent](const Run &run, std::size_t, int, int) {
        if (run.picture)
            ascent = std::max(ascent, run.picture->shownSize().height());
    });
    const LineSpacing &spacing = m_format.lineSpacing;
    const qreal natural = line.height() - line.ascent() + ascent;
    qreal height = natural;
    if (spacing.rule == LineSpacing::Automatic)
        height = natural * spacing.value / 240;
    else if (spacing.rule == LineSpacing::Exact || spacing.value > natural)
        height = spacing.value;
    return {height, ascent + height - natural};
}

void ParagraphLayout::addTexts(Drawing &drawing, const QTextLine &line, qreal baseline) const
{
    eachPart(line, [&](const Run &run, std::size_t index, int from, int to) {
        if (run.picture)
            return addPicture(drawing, line, from, *run.picture, baseline);
        const std::size_t before = drawing.texts.size();
        addPieces(drawing, line, from, to, run, baseline - riseOf(run.format));
        for (std::size_t piece = before; piece < drawing.texts.size(); ++piece)
            drawing.texts[piece].font = m_fonts[index];
        if (run.format.background)
            drawing.areas.push_back({QRectF(QPointF(line.cursorToX(from), baseline - line.ascent()),
                                            QPointF(line.cursorToX(to), baseline + line.descent())),
                                     *run.format.background});
    });
}

void ParagraphLayout::addPicture(Drawing &drawing, const QTextLine &line, int at, const Picture &picture,
                                 qreal baseline) const
{
    const QSizeF size = picture.shownSize();
    const QRectF area(QPointF(line.cursorToX(at), baseline - size.height()), size);
    const qreal dotsX = picture.image.width() / static_cast<qreal>(picture.width);
    const qreal dotsY = picture.image.height() / static_cast<qreal>(picture.height);
    const QRectF part(
        QPointF(picture.crop[Left] * dotsX, picture.crop[Top] * dotsY),
        QPointF((picture.width - picture.crop[Right]) * dotsX, (picture.height - picture.crop[Bottom]) * dotsY));
    if (part.width() > 0 && part.height() > 0)
        drawing.pictures.push_back({area, part, picture.image});
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
    if (above > 0) {
        Drawing moved;
        moved.add(slice.drawing, QPointF(0, above));
        slice.drawing = std::move(moved);
    }
    slice.height += above + below;
    const QRectF box(QPointF(m_format.leftIndent - (drawn(Left) ? borders[Left].space : 0), 0),
                     QPointF(m_width - m_format.rightIndent + (drawn(Right) ? borders[Right].space : 0), slice.height));
    if (m_format.shading) { // below the areas behind single words
        std::vector<FilledArea> areas = {{box, *m_format.shading}};
        areas.insert(areas.end(), slice.drawing.areas.begin(), slice.drawing.areas.end());
        slice.drawing.areas = std::move(areas);
    }
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

std::vector<Slice> layoutParagraph(const Paragraph &paragraph, qreal width, const PageNumbers &numbers)
{
    return ParagraphLayout(paragraph, width, numbers).slices();
}

} // namespace ledgora::reporter
