#pragma once

#include "platform/ReportWriter.h"
#include <QString>

namespace ledgora::test {

inline const QString boldOn = QStringLiteral("\x1b"
                                             "E");
inline const QString boldOff = QStringLiteral("\x1b"
                                              "F");
inline const QString condensed = QStringLiteral("\x1b\x0f\x1bP");
inline const QString normal = QStringLiteral("\x1b\x12\x1bP");

/// A row of a table in the usual dress; a free line when the masks are "0".
inline ReportRow tableRow(const QStringList &cells, std::vector<qint16> widths, const QString &aligns,
                          const QString &top = QStringLiteral("0"), const QString &bottom = QStringLiteral("0"))
{
    ReportRow row;
    for (const QString &cell : cells)
        row.cells.emplace_back(cell);
    row.widths = std::move(widths);
    for (const QChar c : aligns)
        row.aligns.push_back(ReportAlign(QStringLiteral("LCR").indexOf(c)));
    row.left = QString(cells.size(), u'1');
    row.right = QString(cells.size() - 1, u'0') + u'1';
    row.top = top;
    row.bottom = bottom;
    row.inTable = true;
    return row;
}

inline ReportRow freeLine(const QString &text, ReportAlign align = ReportAlign::Centre)
{
    ReportRow row;
    row.cells = {text};
    row.widths = {78};
    row.aligns = {align};
    row.left = row.right = row.top = row.bottom = QStringLiteral("0");
    return row;
}

/// A list of bills as wide as reports get: thirteen columns, a heading of two lines, a total at the end.
inline void writeBillDetails(ReportWriter &report, int bills, bool details = false)
{
    const std::vector<qint16> widths = {12, 20, 50, 20, 12, 12, 12, 12, 12, 12, 12, 12, 12};
    const QString centred(13, u'C');
    const QString aligns = QStringLiteral("CLLLRRRRRRRRR");
    const QString all(13, u'1');
    report.SetCol130(true);
    report.WinModeReport(true);
    report.NewReport();
    report.WriteToReport(freeLine(boldOn + QStringLiteral("SHARMA ASSOCIATES") + boldOff));
    report.WriteToReport(freeLine(QString()));
    report.WriteToReport(freeLine(QStringLiteral("Bill Details for the Period From 01/04/2024 to 31/03/2025")));
    report.PrintText(condensed + u';');
    report.createtable(1, 10);
    report.WriteToReport(tableRow({"Date", "Bill No.", "Party Name", "Place of Supply", "Value of Service", "Discount",
                                   "Net Amount\r\n(Tax Applicability Wise)", "", "", "Tax under Intra-State", "",
                                   "Tax under Inter-State", "Total Amount"},
                                  {12, 20, 50, 20, 12, 12, 36, 0, 0, 24, 0, 12, 12}, centred, all));
    report.createtable(1, 13);
    report.WriteToReport(
        tableRow({"", "", "", "", "", "", "No Tax", "Intra-State", "Inter-State", "CGST", "SGST", "IGST", ""}, widths,
                 centred, QStringLiteral("0000001111100"), all));
    for (int bill = 1; bill <= bills; ++bill) {
        const QString name =
            QStringLiteral("NARMADA TEXTILES AND GENERAL TRADING COMPANY PRIVATE LIMITED %1").arg(bill);
        report.WriteToReport(tableRow(
            {QStringLiteral("15/06/2024"), QStringLiteral("SA/24-25/%1").arg(bill),
             details ? boldOn + name + boldOff + QStringLiteral("\r\nGSTIN: 07AAACN1234C1Z5\r\n12 Mall Road, Delhi")
                     : name.left(bill % 5 == 0 ? 70 : 25),
             QStringLiteral("DELHI"), QStringLiteral("1,20,000"), QStringLiteral("-"), QStringLiteral("-"),
             QString::number(1000 + bill), QStringLiteral("-"), QStringLiteral("10,800"), QStringLiteral("10,800"),
             QStringLiteral("-"), QStringLiteral("1,41,600")},
            widths, aligns));
        if (details)
            report.WriteToReport(tableRow(QString(12, u',').split(u','), widths, aligns));
    }
    report.WriteToReport(tableRow({boldOn, "", "Grand Total", "", "12,00,000", "0", "0", "12,00,000", "0", "1,08,000",
                                   "1,08,000", "0", "14,16,000" + boldOff},
                                  widths, aligns, all, all));
}

/// One party's account: its heading is bold from its first cell to its last one, which holds nothing else.
inline void writeAccount(ReportWriter &report, const QString &party, int entries)
{
    const std::vector<qint16> widths = {12, 24, 12, 12, 12, 12, 12, 12, 12, 12, 12};
    const QString all(11, u'1');
    report.PrintText(normal);
    report.WriteToReport(freeLine(boldOn + party + boldOff + QStringLiteral("\r\nPAN: AAACN1234C")));
    report.PrintText(condensed + u';');
    report.createtable(1, 10);
    report.WriteToReport(tableRow({boldOn + QStringLiteral("Date"), "Particulars", "Opening", "Bill Amount", "",
                                   "Amount", "Receipt", "Discount", "Balance", "Remarks", "TDS"},
                                  {12, 24, 12, 24, 0, 12, 12, 12, 12, 12, 12}, QString(11, u'C'), all));
    report.createtable(1, 11);
    report.WriteToReport(tableRow({"", "", "", "Net", "Tax", "", "", "", "", "", boldOff}, widths, QString(11, u'C'),
                                  QStringLiteral("00011000000"), all));
    for (int entry = 1; entry <= entries; ++entry)
        report.WriteToReport(tableRow({"03-Nov-19", QStringLiteral("Bill No. %1").arg(entry), "", "1,000", "180",
                                       "1,180", "", "", "1,180", "", ""},
                                      widths, QStringLiteral("CLRRRRRRRLR")));
    report.WriteToReport(tableRow({boldOn, "Total", "", "1,000", "180", "1,180", "", "", "1,180", "", boldOff}, widths,
                                  QStringLiteral("CLRRRRRRRLR"), all, all));
}

} // namespace ledgora::test
