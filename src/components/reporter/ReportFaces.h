#pragma once

#include "reports/ReportGrid.h"
#include <QFont>
#include <QSizeF>
#include <array>
#include <map>

namespace ledgora::reporter {

/// Paper and margins of a text report, in twips.
struct ReportPaper
{
    explicit ReportPaper(bool wide);

    QSizeF size;
    qreal left, top, width, height; ///< the room for rows
    int columns;                    ///< of normal pitch that the room is wide
};

/// How rows of one kind are set in one pitch. Lengths in twips.
struct RowFace
{
    std::array<QFont, 2> fonts;     ///< not bold, bold
    std::array<qreal, 2> advance{}; ///< of one sign
    qreal column = 0;               ///< width of a character cell
    qreal line = 0;                 ///< height of a line
    qreal ascent = 0;               ///< from a line's top to its baseline
    qreal padding = 0;              ///< above and below a row of a table
    qreal rulePadding = 0;          ///< the same where a rule is drawn
};

/// The faces of a report, made when first wanted. A kind of row that is wider than the paper is set narrower until it
/// fits; condensed pitch is 17 signs to the inch where the normal one is 10, and its signs are squeezed rather
/// than small, as printers make them.
class ReportFaces
{
public:
    explicit ReportFaces(const ReportPaper &paper) : m_paper(paper) {}

    const RowFace &face(const RowGrid &grid, bool condensed);
    /// The face of text that stands in no row.
    const RowFace &plain(bool condensed);

private:
    const RowFace &faceOf(qreal column, bool condensed);

    ReportPaper m_paper;
    std::map<std::pair<qreal, bool>, RowFace> m_faces;
};

} // namespace ledgora::reporter
