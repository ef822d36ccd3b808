#pragma once

#include "platform/ReportWriter.h"
#include "reports/ReportRequest.h"
#include <QDate>
#include <span>

namespace ledgora {

struct PartyCell;

// What all reports share: opening lines, the table with its heading, data, spacer and total rows, the forms of amounts.

inline constexpr auto lineBreak = "\r\n";
inline constexpr auto boldOn = "\x1b"
                               "E";
inline constexpr auto boldOff = "\x1b"
                                "F";
inline constexpr auto condensedPitch = "\x1b\x0f\x1bP;"; ///< the ";" goes on in the same line
inline constexpr auto normalPitch = "\x1b\x12\x1bP";

QString bold(const QString &text);

/// A column of a report's table.
struct ReportColumn
{
    const char *heading;
    ReportAlign align; ///< of data; headings are centred
    qint16 width;
    /// Of a heading of two lines: the width in the first where a heading spans several columns (its first one has the
    /// whole width, the others 0), and the text in the second.
    qint16 headingWidth = -1;
    const char *second = "";

    bool isSpanned() const { return headingWidth >= 0 && headingWidth != width; }
};

/// The firm's name, an empty line and the title, with the chosen group.
void writeOpening(ReportWriter &writer, const ReportRequest &request, const QString &title);
/// A line above, between or below the tables, centred on 78 characters.
void writeFreeLine(ReportWriter &writer, const QString &text);
/// `what` " for the Period From " ... " to " ...
QString periodTitle(const char *what, const ReportRequest &request);
/// The title with " (Group : ...)" when a group was chosen.
QString withGroup(const QString &title, const ReportRequest &request);

using ReportCells = std::vector<PlaceholderValue>;

/// A table of a report. Rules stand between all cells and around the table, above and below heading and total, and
/// not between data rows.
class ReportTable
{
public:
    enum class Heading { Plain, Bold };

    /// The columns must outlive it.
    ReportTable(ReportWriter &writer, std::span<const ReportColumn> columns);

    /// Begins the table: its heading of one line, or of two when a column is spanned. A bold one opens in its first
    /// cell and closes in its last, which is empty.
    void writeHeading(Heading heading = Heading::Plain);
    void writeRow(ReportCells cells);
    /// A row whose cell `partyColumn` is that of the party, with an empty row behind one that has details.
    void writeRow(ReportCells cells, size_t partyColumn, const PartyCell &party);
    /// A row in a box of its own.
    void writeRuled(ReportCells cells);
    /// The same, bold from the first cell to the last.
    void writeTotal(ReportCells cells);
    /// A row under the box, without rules.
    void writeUnruled(ReportCells cells);

private:
    ReportRow rowWith(const char *left, const char *top, const char *bottom) const;
    void writeFirstHeading(Heading heading, bool twoLines);
    void writeSecondHeading(Heading heading);

    ReportWriter &m_writer;
    std::span<const ReportColumn> m_columns;
    ReportRow m_data;
};

// Amounts keep their full value; what is shown is whole rupees with Indian grouping, but for the plain form.

/// The number as it stands; `zero` for 0.
PlaceholderValue plainAmount(double amount, const char *zero = "-");
/// "1,18,000"; 0 is "0".
QString groupedAmount(double amount);
/// "1,18,000", below zero "(1,18,000)"; `zero` for 0.
QString signedAmount(double amount, const char *zero = "-");

/// The difference without the residue of binary fractions.
double withoutResidue(double amount);

/// DD/MM/YYYY, "" for no date.
QString reportDate(QDate day);

} // namespace ledgora
