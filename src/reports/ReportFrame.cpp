#include "reports/ReportFrame.h"

#include "reports/ReportParties.h"
#include "store/Dates.h"
#include "store/NumberFormat.h"
#include <algorithm>

namespace ledgora {

namespace {

constexpr qint16 lineWidth = 78;

QString lastOnly(size_t cells)
{
    return QString(qsizetype(cells) - 1, u'0') + u'1';
}

void append(PlaceholderValue &cell, const char *code)
{
    const double *number = std::get_if<double>(&cell);
    cell = QString((number ? plainNumber(*number) : std::get<QString>(cell)) + QLatin1String(code));
}

void prepend(PlaceholderValue &cell, const char *code)
{
    cell = QString(QLatin1String(code) + std::get<QString>(cell));
}

} // namespace

QString bold(const QString &text)
{
    return QLatin1String(boldOn) + text + QLatin1String(boldOff);
}

void writeFreeLine(ReportWriter &writer, const QString &text)
{
    const QString none = QStringLiteral("0");
    writer.WriteToReport({.cells = {text},
                          .widths = {lineWidth},
                          .aligns = {ReportAlign::Centre},
                          .firstTexts = {},
                          .secondTexts = {},
                          .left = none,
                          .right = none,
                          .top = none,
                          .bottom = none,
                          .inTable = false});
}

void writeOpening(ReportWriter &writer, const ReportRequest &request, const QString &title)
{
    writeFreeLine(writer, bold(request.firmName));
    writeFreeLine(writer, {});
    writeFreeLine(writer, withGroup(title, request));
}

QString periodTitle(const char *what, const ReportRequest &request)
{
    return QLatin1String(what) + QStringLiteral(" for the Period From ") + request.from + QStringLiteral(" to ")
           + request.to;
}

QString withGroup(const QString &title, const ReportRequest &request)
{
    return request.groupName.isEmpty() ? title : QString(title + " (Group : " + request.groupName + ')');
}

ReportTable::ReportTable(ReportWriter &writer, std::span<const ReportColumn> columns)
    : m_writer(writer)
    , m_columns(columns)
    , m_data(rowWith("1", "0", "0"))
{
}

/// A row of the table without its cells; an edge that has rules has them at every cell.
ReportRow ReportTable::rowWith(const char *left, const char *top, const char *bottom) const
{
    const auto mask = [this](const char *edge) {
        return *edge == '1' ? QString(qsizetype(m_columns.size()), u'1') : QStringLiteral("0");
    };
    ReportRow row;
    for (const ReportColumn &column : m_columns) {
        row.widths.push_back(column.width);
        row.aligns.push_back(column.align);
    }
    row.left = mask(left);
    row.right = *left == '1' ? lastOnly(m_columns.size()) : QStringLiteral("0");
    row.top = mask(top);
    row.bottom = mask(bottom);
    row.inTable = true;
    return row;
}

void ReportTable::writeFirstHeading(Heading heading, bool twoLines)
{
    ReportRow row = rowWith("1", "1", twoLines ? "0" : "1");
    int cells = 0;
    for (size_t i = 0; i < m_columns.size(); ++i) {
        const ReportColumn &column = m_columns[i];
        row.cells.emplace_back(QLatin1String(column.heading));
        row.widths[i] = column.headingWidth < 0 ? column.width : column.headingWidth;
        row.aligns[i] = ReportAlign::Centre;
        cells += row.widths[i] > 0 ? 1 : 0;
    }
    if (heading == Heading::Bold)
        prepend(row.cells.front(), boldOn);
    m_writer.createtable(1, cells);
    m_writer.WriteToReport(row);
}

void ReportTable::writeSecondHeading(Heading heading)
{
    ReportRow row = rowWith("1", "1", "1");
    for (size_t i = 0; i < m_columns.size(); ++i) {
        row.cells.emplace_back(QLatin1String(m_columns[i].second));
        row.aligns[i] = ReportAlign::Centre;
        // The other headings run on from the line above.
        row.top[qsizetype(i)] = m_columns[i].isSpanned() ? u'1' : u'0';
    }
    if (heading == Heading::Bold)
        append(row.cells.back(), boldOff);
    m_writer.createtable(1, int(m_columns.size()));
    m_writer.WriteToReport(row);
}

void ReportTable::writeHeading(Heading heading)
{
    const bool twoLines = std::ranges::any_of(m_columns, &ReportColumn::isSpanned);
    writeFirstHeading(heading, twoLines);
    if (twoLines)
        writeSecondHeading(heading);
}

void ReportTable::writeRow(ReportCells cells)
{
    m_data.cells = std::move(cells);
    m_writer.WriteToReport(m_data);
}

void ReportTable::writeRow(ReportCells cells, size_t partyColumn, const PartyCell &party)
{
    cells[partyColumn] = party.text;
    writeRow(std::move(cells));
    if (party.hasDetails)
        writeRow(ReportCells(m_columns.size()));
}

void ReportTable::writeRuled(ReportCells cells)
{
    ReportRow row = rowWith("1", "1", "1");
    row.cells = std::move(cells);
    m_writer.WriteToReport(row);
}

void ReportTable::writeTotal(ReportCells cells)
{
    prepend(cells.front(), boldOn);
    append(cells.back(), boldOff);
    writeRuled(std::move(cells));
}

void ReportTable::writeUnruled(ReportCells cells)
{
    ReportRow row = rowWith("0", "0", "0");
    row.cells = std::move(cells);
    m_writer.WriteToReport(row);
}

PlaceholderValue plainAmount(double amount, const char *zero)
{
    return amount == 0 ? PlaceholderValue(QString(QLatin1String(zero))) : PlaceholderValue(amount);
}

QString groupedAmount(double amount)
{
    return groupedRupees(amount);
}

QString signedAmount(double amount, const char *zero)
{
    return amount == 0 ? QString(QLatin1String(zero)) : FORMETGEN(plainNumber(amount), QStringLiteral("#,##0;(#,##0)"));
}

double withoutResidue(double amount)
{
    return Val(plainNumber(amount));
}

QString reportDate(QDate day)
{
    return formatDate(day, QStringLiteral("DD/MM/YYYY"));
}

} // namespace ledgora
