#include "components/reporter/Paint.h"

#include <QPainter>
#include <algorithm>

namespace ledgora::reporter {

namespace {

Qt::PenStyle penStyle(LineStyle style)
{
    switch (style) {
    case LineStyle::Dotted:
        return Qt::DotLine;
    case LineStyle::Dashed:
        return Qt::DashLine;
    default:
        return Qt::SolidLine;
    }
}

/// On a screen a hair-thin rule is one whole dot, or it would fade.
qreal drawnWidth(const QPainter &painter, qreal width)
{
    const qreal scale = painter.worldTransform().m22();
    return scale > 0 ? std::max(width, 1 / scale) : width;
}

void paintRule(QPainter &painter, const Rule &rule)
{
    painter.setPen(
        QPen(QColor::fromRgb(rule.colour), drawnWidth(painter, rule.width), penStyle(rule.style), Qt::FlatCap));
    if (rule.style != LineStyle::Double) {
        painter.drawLine(rule.from, rule.to);
        return;
    }
    // Two lines of the given width with as much between them.
    const bool level = qFuzzyCompare(rule.from.y(), rule.to.y());
    const QPointF apart = level ? QPointF(0, rule.width) : QPointF(rule.width, 0);
    painter.drawLine(rule.from - apart, rule.to - apart);
    painter.drawLine(rule.from + apart, rule.to + apart);
}

} // namespace

void paintGround(QPainter &painter, const Page &page)
{
    // Edges on whole dots: neighbouring areas leave no seam and rules stay crisp.
    const bool smooth = painter.testRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::Antialiasing, false);
    for (const FilledArea &filled : page.drawing.areas)
        painter.fillRect(filled.area, QColor::fromRgb(filled.colour));
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    for (const DrawnPicture &picture : page.drawing.pictures)
        painter.drawImage(picture.area, picture.image, picture.part);
    for (const Rule &rule : page.drawing.rules)
        paintRule(painter, rule);
    painter.setRenderHint(QPainter::Antialiasing, smooth);
}

void paintText(QPainter &painter, const TextPiece &piece)
{
    painter.setFont(piece.font);
    painter.setPen(QColor::fromRgb(piece.colour));
    painter.drawText(piece.baseline, piece.text);
}

void paintPage(QPainter &painter, const Page &page)
{
    paintGround(painter, page);
    for (const TextPiece &piece : page.drawing.texts)
        paintText(painter, piece);
}

void scaleToTwips(QPainter &painter, qreal dotsPerInchX, qreal dotsPerInchY)
{
    constexpr qreal twipsPerInch = 1440;
    painter.scale(dotsPerInchX / twipsPerInch, dotsPerInchY / twipsPerInch);
}

} // namespace ledgora::reporter
