#include "components/reporter/ReportFaces.h"

#include <QFontMetricsF>
#include <algorithm>

namespace ledgora::reporter {

namespace {

constexpr qreal shortSide = 11906; // A4
constexpr qreal longSide = 16838;
constexpr qreal sideMargin = 567; // a centimetre, which printers leave free
constexpr qreal topMargin = 624;
constexpr qreal bottomMargin = 850; // the page's number stands in it
constexpr qreal condensedToNormal = 10.0 / 17;
constexpr qreal squeeze = 0.83; ///< of condensed signs: their width to what their height asks for
constexpr qreal lineToSize = 1.17;

qreal advanceOf(const QFont &font)
{
    return QFontMetricsF(font).horizontalAdvance(QStringLiteral("0000000000")) / 10;
}

QFont faceFont(qreal column, bool condensed, bool bold)
{
    constexpr int sample = 1000;
    QFont font(QStringLiteral("Liberation Mono"));
    font.setStyleHint(QFont::Monospace);
    font.setHintingPreference(QFont::PreferNoHinting); // the same widths on every device
    font.setBold(bold);
    font.setPixelSize(sample);
    const qreal natural = sample * column / advanceOf(font);
    font.setPixelSize(std::max(1, static_cast<int>(condensed ? natural / squeeze : natural)));
    if (condensed)
        font.setStretch(static_cast<int>(100 * squeeze));
    return font;
}

} // namespace

ReportPaper::ReportPaper(bool wide)
    : size(wide ? QSizeF(longSide, shortSide) : QSizeF(shortSide, longSide))
    , left(sideMargin)
    , top(topMargin)
    , width(size.width() - 2 * sideMargin)
    , height(size.height() - topMargin - bottomMargin)
    , columns(wide ? 132 : 80)
{
}

const RowFace &ReportFaces::face(const RowGrid &grid, bool condensed)
{
    const qreal pitch = m_paper.width / m_paper.columns * (condensed ? condensedToNormal : 1);
    return faceOf(std::min(pitch, m_paper.width / std::max(1, grid.width)), condensed);
}

const RowFace &ReportFaces::plain(bool condensed)
{
    return face(RowGrid(), condensed);
}

const RowFace &ReportFaces::faceOf(qreal column, bool condensed)
{
    const auto found = m_faces.find({column, condensed});
    if (found != m_faces.end())
        return found->second;
    RowFace face;
    face.column = column;
    for (const bool bold : {false, true}) {
        face.fonts[bold] = faceFont(column, condensed, bold);
        face.advance[bold] = advanceOf(face.fonts[bold]);
    }
    const QFontMetricsF metrics(face.fonts[0]);
    const qreal size = face.fonts[0].pixelSize();
    face.line = size * lineToSize;
    face.ascent = (face.line + metrics.ascent() - metrics.descent()) / 2;
    face.padding = size * 0.08;
    face.rulePadding = size * 0.3;
    return m_faces.emplace(std::pair(column, condensed), face).first->second;
}

} // namespace ledgora::reporter
