#pragma once

#include "platform/ReportWriter.h"
#include <QStringView>
#include <vector>

namespace ledgora {

/// What the rows of one kind have in common: all of a row but its texts.
struct RowFormat
{
    std::vector<qint16> widths;
    std::vector<ReportAlign> aligns;
    QString left, right, top, bottom;
    bool inTable = false;
    bool operator==(const RowFormat &) const = default;
};

/// A text report as data: its rows, printer codes and tables in their order, as they were told. The page list, the
/// plain text and the csv are all made from it, so that they show the same. Rows of 100,000 documents lie in one text
/// and a list of cell ends: some 20 bytes a cell beside its characters.
class ReportRows final : public ReportWriter
{
public:
    enum class Kind : quint8 { Row, Text, Table };

    void SetCol130(bool wide) override { m_nextWide = wide; }
    void WinModeReport(bool) override {}
    void NewReport() override;
    void WriteToReport(const ReportRow &row) override;
    void PrintText(const QString &text) override;
    void createtable(int first, int cells) override;
    void SetNotice(const QString &text) override { m_notice = text; }

    /// Tells the whole report to another writer, from SetCol130 on; numbers as the texts that they are shown as.
    void writeTo(ReportWriter &writer) const;

    bool wide() const { return m_wide; }
    const QString &notice() const { return m_notice; }
    /// Entries of all kinds. Valid until the next call of a writing routine: the views that `cell` and `text` give.
    int size() const { return int(m_entries.size()); }
    Kind kind(int entry) const { return m_entries[entry].kind; }
    const RowFormat &format(int row) const { return m_formats[m_entries[row].format]; }
    /// Rows of one kind share their format: the number of a row's, and all there are.
    int formatNumber(int row) const { return m_entries[row].format; }
    int formats() const { return int(m_formats.size()); }
    const RowFormat &formatAt(int number) const { return m_formats[number]; }
    /// How many cells the entry has; a text has one, a table none.
    int cells(int entry) const
    {
        if (kind(entry) == Kind::Row)
            return int(format(entry).widths.size());
        return kind(entry) == Kind::Text ? 1 : 0;
    }
    /// The cell's text with its codes and line breaks; cells count from 0. A number is in the plain general form.
    QStringView cell(int row, int cell) const;
    /// The text of a `PrintText`.
    QStringView text(int entry) const { return cell(entry, 0); }
    /// The cells that a `createtable` announced.
    int tableCells(int entry) const { return m_entries[entry].format; }

private:
    struct Entry
    {
        Kind kind;
        int format;    ///< of a row; of a table its number of cells
        int firstCell; ///< index into m_ends
    };
    int formatOf(const ReportRow &row);
    ReportRow rowAt(int entry) const;
    void addCell(const PlaceholderValue &value);

    std::vector<Entry> m_entries;
    std::vector<RowFormat> m_formats;
    std::vector<qsizetype> m_ends; ///< where each cell's text ends in m_text
    QString m_text, m_notice;
    bool m_wide = false, m_nextWide = false;
};

} // namespace ledgora
