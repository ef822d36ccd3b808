#pragma once

#include <QString>
#include <QStringView>
#include <vector>

namespace ledgora {

/// What printer codes leave switched on: bold and pitch go on from cell to cell and from row to row.
struct PrintState
{
    bool bold = false;
    bool condensed = false;
    bool operator==(const PrintState &) const = default;
};

/// A stretch of a line in one weight, and where it begins in the line, in character cells.
struct CellPiece
{
    QString text;
    bool bold = false;
    int column = 0;
    int width = 0; ///< in character cells
};

/// One line of a cell; without pieces when it is blank. Blanks at its end are gone.
using CellLine = std::vector<CellPiece>;

/// Character cells that the line takes.
int widthOf(const CellLine &line);

/// Character cells of a text that holds no codes: marks that combine with the sign before take none, signs of East Asia
/// two, all others one.
int cellsWide(QStringView text);

/// The cell's text as it is read: without codes, a line break as CR LF, other control characters gone.
QString shownText(QStringView cell);

/// The cell as lines of at most `width` character cells, always at least one. It breaks at blanks, inside of a word
/// only where that is longer than a line, and never between a sign and its marks. Codes in it change `state`: ESC "E"
/// and ESC "F" the weight of what follows, ESC 0x0F and ESC 0x12 the pitch.
std::vector<CellLine> wrapCell(QStringView cell, int width, PrintState &state);

/// How many lines `wrapCell` gives, with the same effect on `state`.
int wrappedLines(QStringView cell, int width, PrintState &state);

/// The state after the codes that stand ahead of the cell's first sign.
PrintState afterLeadingCodes(QStringView cell, PrintState state);

} // namespace ledgora
