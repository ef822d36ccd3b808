#pragma once

#include "reports/ReportParties.h"
#include "reports/ReportRows.h"
#include "reports/Reports.h"
#include "store/Connection.h"
#include "tests/support/Print.h"
#include "tests/support/StoreTest.h"

namespace ledgora::test {

/// The entries of a report as lines: cells joined with "|", bold codes as "^E" and "^F", line breaks as "~"; a table as
/// "table 13", a pitch as "condensed" or "normal".
inline QStringList linesOf(const ReportRows &report)
{
    const auto shown = [](QString text) { return text.replace("\x1b", "^").replace("\r\n", "~"); };
    QStringList lines;
    for (int entry = 0; entry < report.size(); ++entry) {
        if (report.kind(entry) == ReportRows::Kind::Table) {
            lines << QString("table %1").arg(report.tableCells(entry));
        } else if (report.kind(entry) == ReportRows::Kind::Text) {
            lines << shown(report.text(entry).toString()).replace("^\x0f^P;", "condensed").replace("^\x12^P", "normal");
        } else {
            QStringList cells;
            for (int cell = 0; cell < int(report.format(entry).widths.size()); ++cell)
                cells << shown(report.cell(entry, cell).toString());
            lines << cells.join('|');
        }
    }
    return lines;
}

/// Shapes of rows in the order in which they first come: widths, aligns, the masks left, right, top, bottom.
inline QStringList shapesOf(const ReportRows &report)
{
    QStringList shapes;
    for (int entry = 0; entry < report.size(); ++entry) {
        if (report.kind(entry) != ReportRows::Kind::Row)
            continue;
        const RowFormat &format = report.format(entry);
        QString aligns;
        QStringList widths;
        for (const ReportAlign align : format.aligns)
            aligns += QString("LCR").at(int(align));
        for (const qint16 width : format.widths)
            widths << QString::number(width);
        const QString shape = QStringList{widths.join(','),
                                          aligns,
                                          format.left,
                                          format.right,
                                          format.top,
                                          format.bottom,
                                          format.inTable ? "table" : "free"}
                                  .join(' ');
        if (!shapes.contains(shape))
            shapes << shape;
    }
    return shapes;
}

/// A company with three clients. Ashok has a bill of the year before and two of the year, Bharat one over two services,
/// Chetan one that lost its lines. Money came on Ashok's bills, and from Bharat on account and on a bill that is gone.
class ReportOffice : public StoreTest
{
protected:
    void SetUp() override
    {
        StoreTest::SetUp();
        request.firmId = 1;
        request.firmName = "SHARMA & ASSOCIATES";
        request.from = "01/04/2024";
        request.to = "31/03/2025";
        request.asOn = "31/05/2024";
    }
    static void fill()
    {
        for (const char *sql :
             {"Insert Into GST_OthCl Values (1,'A','ASHOK TRADERS','1','','MG ROAD','','DELHI','110001','DELHI',"
              "'011-1','011-2','','98100','a@b.in','AAAPA1234B','07AAAPA1234B1Z5'),"
              "(2,'B','BHARAT MILLS','','','','','','','GOA','','','','','','',''),"
              "(3,'C','CHETAN','','','','','','','GOA','','','','','','','')",
              "Insert Into GST_Series Values (1,'B',2024,'INV/','P'),(2,'R',2024,'/R','S')",
              "Insert Into GST_BillM Values (1,1,2024,'A',0,1,'2024-04-10','DELHI','INTRA',''),"
              "(2,1,2024,'B',1,7,'2024-05-12','GOA','INTER',''),(3,1,2024,'A',1,9,'2024-05-13','DELHI','NO',''),"
              "(4,1,2023,'A',0,3,'2023-04-01','DELHI','INTRA',''),(5,1,2024,'C',0,12,'2024-05-20','DELHI','NO',''),"
              "(6,2,2024,'A',0,1,'2024-05-20','DELHI','NO','')",
              "Insert Into GST_BillD Values (1,1,'','998221','',0,1000,0,1000,'N',9,90,9,90,0,0,1180),"
              "(2,1,'','998222','',0,200000,20000,180000,'N',0,0,0,0,18,32400,212400),"
              "(2,2,'','','',0,500,0,500,'N',0,0,0,0,18,90,590),(3,1,'','998221','',0,300,0,300,'N',0,0,0,0,0,0,300),"
              "(4,1,'','998221','',0,1000,0,1000,'N',9,90,9,90,0,0,1180),"
              "(6,1,'','','',0,9,0,9,'N',0,0,0,0,0,0,9)",
              "Insert Into GST_RecpM (RecpSrNo,FirmId,FYr,Code_No,RecpSerId,RecpNo,RecpDt) Values "
              "(1,1,2024,'A',2,1,'2024-05-01'),(2,1,2024,'A',2,2,'2024-06-01'),(3,1,2024,'B',0,3,'2024-06-02')",
              "Insert Into GST_RecpD Values (1,1,4,590,0,50),(2,1,1,1000.5,100,100),(2,2,3,300,0,0),"
              "(3,1,0,5000,0,0),(3,2,99,700,50,0)"})
            database->run(sql);
    }

    /// Every party of the directory.
    void askForAll()
    {
        request.parties = emptyReportParties();
        request.rows.clear();
        loadReportParties(db(), "C", request.parties);
        for (int row = 1; row < request.parties.rows(); ++row)
            request.rows.push_back(row);
    }
    QString make(ReportKind kind)
    {
        request.kind = kind;
        return makeReport(db(), request, report, unwatched()).fault;
    }
    QStringList lines(ReportKind kind)
    {
        EXPECT_EQ(make(kind), "");
        return linesOf(report);
    }

    ReportRequest request;
    ReportRows report;
};

} // namespace ledgora::test
