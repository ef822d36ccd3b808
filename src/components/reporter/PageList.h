#pragma once

#include "components/reporter/Document.h"
#include <QFont>
#include <QImage>
#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <vector>

namespace ledgora::reporter {

// The page list: what a laid out document, or a text report, is made of. It knows no device; preview, printer and PDF
// all draw the same pages. Unit twips, origin at the upper left corner of the paper, y downwards.

/// A stretch of one line in one font. It is text and not glyphs, so that it stays searchable wherever it is drawn.
struct TextPiece
{
    QPointF baseline; ///< left end of the baseline
    qreal width = 0;
    QString text;
    QFont font; ///< its pixel size is the size in twips
    QRgb colour = 0xff000000;
};

struct Rule
{
    QPointF from;
    QPointF to;
    qreal width = 0;
    LineStyle style = LineStyle::Single;
    QRgb colour = 0xff000000;
};

struct FilledArea
{
    QRectF area;
    QRgb colour = 0xffffffff;
};

/// A picture, or the part of one that is shown, drawn over the area.
struct DrawnPicture
{
    QRectF area;
    QRectF part; ///< of the image, in its dots; may reach beyond its edges
    QImage image;
};

/// What is drawn at one place: areas first, then pictures, rules and texts.
struct Drawing
{
    std::vector<FilledArea> areas;
    std::vector<DrawnPicture> pictures;
    std::vector<Rule> rules;
    std::vector<TextPiece> texts;

    /// Adds what `other` draws, moved by `offset`.
    void add(const Drawing &other, QPointF offset);
};

struct Page
{
    QSizeF size;
    Drawing drawing;
};

using PageList = std::vector<Page>;

/// The words of a page in reading order of the layout, one line for each stretch of text.
QString textOf(const Page &page);

} // namespace ledgora::reporter
