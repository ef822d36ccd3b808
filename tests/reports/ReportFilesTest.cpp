#include "SampleReport.h"
#include "reports/ReportCsv.h"
#include "reports/ReportRows.h"
#include "reports/ReportText.h"
#include "support/Print.h"
#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace ledgora {

namespace {

QString textOf(const ReportRows &rows)
{
    QBuffer out;
    EXPECT_TRUE(out.open(QIODevice::WriteOnly) && writeReportText(rows, out));
    return QString::fromUtf8(out.data());
}

QString csvOf(const ReportRows &rows)
{
    QBuffer out;
    EXPECT_TRUE(out.open(QIODevice::WriteOnly) && writeReportCsv(rows, out));
    return QString::fromUtf8(out.data());
}

ReportRows &smallReport(ReportRows &rows)
{
    rows.NewReport();
    rows.WriteToReport(test::freeLine(test::boldOn + "FIRM" + test::boldOff));
    rows.PrintText(test::normal);
    rows.PrintText(test::condensed + u';');
    rows.createtable(1, 2);
    rows.WriteToReport(test::tableRow({"A", "B", ""}, {3, 4, 0}, "CCC", "111", "0"));
    rows.createtable(1, 3);
    rows.WriteToReport(test::tableRow({"", "x", "y"}, {3, 2, 2}, "CCC", "011", "111"));
    rows.WriteToReport(test::tableRow({"one two", "1", "-"}, {3, 2, 2}, "LRR"));
    rows.WriteToReport(test::tableRow({"Sum", "12", ""}, {3, 2, 2}, "LRR", "111", "111"));
    return rows;
}

TEST(ReportText, DrawsTheRulesOfTheMasks)
{
    ReportRows rows;
    EXPECT_EQ(textOf(smallReport(rows)).section(u'\n', 2).toStdString(), R"(                                 ┌───┬─────┐
                                 │ A │  B  │
                                 │   ├──┬──┤
                                 │   │x │y │
                                 ├───┼──┼──┤
                                 │one│ 1│ -│
                                 │two│  │  │
                                 ├───┼──┼──┤
                                 │Sum│12│  │
                                 └───┴──┴──┘
)");
    EXPECT_EQ(textOf(rows).section(u'\n', 0, 1).toStdString(), QString(QString(37, u' ') + "FIRM\n").toStdString());
}

TEST(ReportText, PrintedTextGoesOnBehindASemicolon)
{
    ReportRows rows;
    rows.NewReport();
    for (const char *text : {"one ;", "two", "\f", "three;"})
        rows.PrintText(text);
    EXPECT_EQ(textOf(rows).toStdString(), "one two\n\nthree\n");
    EXPECT_EQ(csvOf(rows).toStdString(), "one two\r\nthree\r\n");
}

TEST(ReportCsv, HoldsOneRecordARow)
{
    ReportRows rows;
    EXPECT_EQ(csvOf(smallReport(rows)).toStdString(), "FIRM\r\nA,B,\r\n,x,y\r\none two,1,-\r\nSum,12,\r\n");
}

TEST(ReportCsv, FieldsAreNoFormulas)
{
    const std::pair<const char *, const char *> cases[] = {{"=1+1", "'=1+1"},
                                                           {"-5", "-5"},
                                                           {"-", "-"},
                                                           {"+91 98", "'+91 98"},
                                                           {"@x", "'@x"},
                                                           {"-1.5", "-1.5"},
                                                           {"-1,000", "\"-1,000\""},
                                                           {"--", "'--"},
                                                           {"say \"a\"", "\"say \"\"a\"\"\""},
                                                           {"a\nb", "\"a\r\nb\""},
                                                           {"(1,000)", "\"(1,000)\""},
                                                           {"-1-2", "'-1-2"},
                                                           {"", "\"\""}};
    for (const auto &[cell, field] : cases) {
        ReportRows rows;
        rows.NewReport();
        rows.WriteToReport(test::freeLine(cell));
        EXPECT_EQ(csvOf(rows).toStdString(), std::string(field) + "\r\n");
    }
}

TEST(ReportFiles, ComeWholeOrNotAtAll)
{
    const QTemporaryDir folder;
    ReportRows rows;
    test::writeBillDetails(rows, 1000);
    const QString path = folder.filePath("a.csv");
    int told = 0;
    const Progress cancelling = [&told](qint64, qint64, const QString &) { return ++told < 3; };
    EXPECT_EQ(saveReportCsv(rows, path, cancelling).toStdString(), "It was cancelled.");
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
    EXPECT_NE(saveReportText(rows, folder.filePath("missing/a.txt")), QString());
    EXPECT_EQ(saveReportText(rows, folder.filePath("a.txt")), QString());
    QFile saved(folder.filePath("a.txt"));
    ASSERT_TRUE(saved.open(QIODevice::ReadOnly));
    EXPECT_GT(saved.readAll().count('\n'), 1000);

    const QString planted = folder.filePath("b.txt");
    ASSERT_TRUE(QFile::link(path, planted));
    EXPECT_EQ(saveReportText(rows, planted), QString());
    EXPECT_FALSE(QFile::exists(path)) << "the link is not followed";
    EXPECT_FALSE(QFileInfo(planted).isSymLink());
}

TEST(ReportRows, AreToldToAnotherWriterAsTheyWere)
{
    ReportRows rows;
    test::writeBillDetails(rows, 3, true);
    ReportRows again;
    rows.writeTo(again);
    EXPECT_TRUE(again.wide());
    EXPECT_EQ(textOf(again), textOf(rows));
}

} // namespace

} // namespace ledgora
