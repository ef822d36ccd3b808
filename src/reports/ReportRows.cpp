#include "reports/ReportRows.h"

#include "store/NumberFormat.h"
#include <algorithm>
#include <utility>

namespace ledgora {

void ReportRows::NewReport()
{
    m_entries.clear();
    m_formats.clear();
    m_ends.clear();
    m_text.clear();
    m_notice.clear();
    m_wide = std::exchange(m_nextWide, false);
}

void ReportRows::WriteToReport(const ReportRow &row)
{
    m_entries.push_back({Kind::Row, formatOf(row), int(m_ends.size())});
    for (const PlaceholderValue &value : row.cells)
        addCell(value);
}

void ReportRows::PrintText(const QString &text)
{
    m_entries.push_back({Kind::Text, 0, int(m_ends.size())});
    addCell(text);
}

void ReportRows::createtable(int, int cells)
{
    m_entries.push_back({Kind::Table, cells, int(m_ends.size())});
}

void ReportRows::writeTo(ReportWriter &writer) const
{
    writer.SetCol130(m_wide);
    writer.WinModeReport(true);
    writer.NewReport();
    writer.SetNotice(m_notice);
    for (int entry = 0; entry < size(); ++entry) {
        switch (kind(entry)) {
        case Kind::Row:
            writer.WriteToReport(rowAt(entry));
            break;
        case Kind::Text:
            writer.PrintText(text(entry).toString());
            break;
        case Kind::Table:
            writer.createtable(1, tableCells(entry));
            break;
        }
    }
}

ReportRow ReportRows::rowAt(int entry) const
{
    const RowFormat &shared = format(entry);
    ReportRow row;
    for (int index = 0; index < cells(entry); ++index)
        row.cells.emplace_back(cell(entry, index).toString());
    row.widths = shared.widths;
    row.aligns = shared.aligns;
    row.left = shared.left;
    row.right = shared.right;
    row.top = shared.top;
    row.bottom = shared.bottom;
    row.inTable = shared.inTable;
    return row;
}

QStringView ReportRows::cell(int row, int cell) const
{
    const int index = m_entries[row].firstCell + cell;
    const qsizetype from = index > 0 ? m_ends[index - 1] : 0;
    return QStringView(m_text).mid(from, m_ends[index] - from);
}

/// A report has a handful of formats, and the one of the row before is the likeliest: looked for from the end.
int ReportRows::formatOf(const ReportRow &row)
{
    RowFormat format{row.widths, row.aligns, row.left, row.right, row.top, row.bottom, row.inTable};
    format.widths.resize(row.cells.size());
    format.aligns.resize(row.cells.size());
    const auto found = std::find(m_formats.rbegin(), m_formats.rend(), format);
    if (found != m_formats.rend())
        return int(m_formats.rend() - found) - 1;
    m_formats.push_back(std::move(format));
    return int(m_formats.size()) - 1;
}

void ReportRows::addCell(const PlaceholderValue &value)
{
    if (const double *number = std::get_if<double>(&value))
        m_text += plainNumber(*number);
    else
        m_text += std::get<QString>(value);
    m_ends.push_back(m_text.size());
}

} // namespace ledgora
