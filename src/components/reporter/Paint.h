#pragma once

#include "components/reporter/PageList.h"

class QPainter;

namespace ledgora::reporter {

/// Draws a page, without the paper behind it, on a painter whose unit is the twip.
void paintPage(QPainter &painter, const Page &page);

/// The same in two steps: all but the texts, and one text.
void paintGround(QPainter &painter, const Page &page);
void paintText(QPainter &painter, const TextPiece &piece);

/// Makes the twip the unit of a painter on a device of so many dots per inch.
void scaleToTwips(QPainter &painter, qreal dotsPerInchX, qreal dotsPerInchY);

} // namespace ledgora::reporter
