#pragma once

#include <QString>
#include <QStringList>
#include <variant>
#include <vector>

namespace ledgora {

/// What stands for a placeholder or in a cell: a text as it is, or a number that the engine writes in the plain general
/// form (no grouping, no forced decimals, "." as point: 1180 and 1180.5).
using PlaceholderValue = std::variant<QString, double>;

enum class ReportAlign : qint32 { Left = 0, Centre = 1, Right = 2 };

/// One row of a text report, its members in the order in which a row is told. All vectors have one element a cell.
/// Widths are in characters; a cell of width 0 does not exist in this row, its left neighbour spans it. A mask has one
/// character a cell, "1" for a rule on that edge of the cell; "0" alone means no rule on that edge of any.
/// Texts may hold CR LF, which breaks the cell into lines (the row is as high as its highest cell), and the printer
/// codes ESC "E" (bold on) and ESC "F" (bold off); bold may open in one cell and close in a later one, or row.
struct ReportRow
{
    std::vector<PlaceholderValue> cells;
    std::vector<qint16> widths;
    std::vector<ReportAlign> aligns;
    QStringList firstTexts;  ///< kept for callers that pass it; nothing reads it
    QStringList secondTexts; ///< kept for callers that pass it; nothing reads it
    QString left, right, top, bottom;
    bool inTable = false; ///< a row of the current table; else a free line above, below or between tables
};

/// Takes the rows of a text report. Calls come in this order: SetCol130 or not, WinModeReport, NewReport, then the
/// rows, printer codes and tables as they follow one another.
class ReportWriter
{
public:
    ReportWriter() = default;
    ReportWriter(const ReportWriter &) = delete;
    ReportWriter &operator=(const ReportWriter &) = delete;
    virtual ~ReportWriter() = default;

    /// Lays the coming report out for the wide page of 130 columns; it holds for one report.
    virtual void SetCol130(bool wide) = 0;
    /// The report goes to the screen and not straight to a printer; kept for callers that set it and changes nothing.
    virtual void WinModeReport(bool on) = 0;
    /// Discards any earlier report and begins an empty one, in normal pitch, not bold, without a table.
    virtual void NewReport() = 0;
    virtual void WriteToReport(const ReportRow &row) = 0;
    /// Text on the paper as it stands, with its printer codes: ESC 0x0F ESC "P" condensed pitch, ESC 0x12 ESC "P"
    /// normal pitch, a form feed begins a page. Ends the line unless a ";" ends the text.
    virtual void PrintText(const QString &text) = 0;
    /// Begins a table, or goes on with it after a heading line of fewer cells; `first` is always 1. `cells` is how many
    /// cells the next row really has.
    virtual void createtable(int first, int cells) = 0;
    /// What a reader must know of the report as a whole: shown above its pages, not on them.
    virtual void SetNotice(const QString &text) = 0;
};

} // namespace ledgora
