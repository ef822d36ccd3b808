#pragma once

#include "components/reporter/PageList.h"
#include <limits>

namespace ledgora::reporter {

/// What a page takes or refuses as a whole: a line of text, or rows of a table. Positions in `drawing` count from the
/// slice's upper left corner; lengths in twips.
struct Slice
{
    qreal gap = 0; ///< free space above; dropped at the top of a page
    qreal height = 0;
    Drawing drawing;
    bool breakBefore = false;
};

/// What page number fields show.
struct PageNumbers
{
    int page = 1;
    int pages = 1;
    int sectionPages = 1;
};

/// A paragraph as its lines, in a column of the given width.
std::vector<Slice> layoutParagraph(const Paragraph &paragraph, qreal width, const PageNumbers &numbers);

/// Blocks as one column that is not cut into pages, such as the content of a cell; nothing more once it is taller than
/// `enough`.
std::vector<Slice> layoutColumn(const std::vector<Block> &blocks, qreal width, const PageNumbers &numbers,
                                qreal enough = std::numeric_limits<qreal>::infinity());

/// Height of slices that stand below one another, gaps included.
qreal heightOf(const std::vector<Slice> &slices);

QRgb inkOf(const Colour &colour);

/// The rule along one side of a rectangle; nothing for a border without a line.
void addBorder(Drawing &drawing, const BorderLine &border, QPointF from, QPointF to);

} // namespace ledgora::reporter
