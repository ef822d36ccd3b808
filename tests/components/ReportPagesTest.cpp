#include "components/reporter/ReportPages.h"

#include "Sample.h"
#include "components/StockComponents.h"
#include "components/reporter/PageSearch.h"
#include "components/reporter/PdfOutput.h"
#include "components/reporter/Viewer.h"
#include "host/WorkingState.h"
#include "platform/HostObject.h"
#include "platform/Registry.h"
#include "reports/ReportCsv.h"
#include "reports/ReportText.h"
#include "support/Boxes.h"
#include "tests/reports/SampleReport.h"
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <functional>
#include <map>
#include <random>
#include <set>
#include <stdexcept>

namespace ledgora::reporter {

namespace {

using Writing = std::function<void(ReportWriter &)>;

std::shared_ptr<const ReportRows> rowsOf(const Writing &write)
{
    auto rows = std::make_shared<ReportRows>();
    rows->NewReport();
    write(*rows);
    return rows;
}

Pages pagesOf(const Writing &write)
{
    return Pages(std::make_shared<ReportPages>(rowsOf(write)));
}

QString wordsOf(const Page &page)
{
    return textOf(page).simplified();
}

const TextPiece &piece(const Page &page, const QString &text)
{
    for (const TextPiece &found : page.drawing.texts)
        if (found.text == text)
            return found;
    throw std::out_of_range(text.toStdString());
}

/// The level rules at a height, joined: from and to.
std::vector<std::pair<qreal, qreal>> levelRules(const Page &page, qreal y)
{
    std::vector<std::pair<qreal, qreal>> found;
    for (const Rule &rule : page.drawing.rules)
        if (rule.from.y() == rule.to.y() && qAbs(rule.from.y() - y) < 2)
            found.emplace_back(rule.from.x(), rule.to.x());
    return found;
}

std::vector<const Rule *> uprights(const Page &page)
{
    std::vector<const Rule *> found;
    for (const Rule &rule : page.drawing.rules)
        if (rule.from.x() == rule.to.x())
            found.push_back(&rule);
    return found;
}

TEST(ReportPages, RulesStandAtTheEdgesOfTheMasks)
{
    const Pages pages = pagesOf([](ReportWriter &report) { test::writeBillDetails(report, 3); });
    ASSERT_EQ(pages.size(), 1);
    const Page page = pages.front();
    EXPECT_EQ(page.size, QSizeF(16838, 11906));
    const auto sides = uprights(page);
    // 12 edges go through the whole table; those inside of the two spanning headings begin below them, and under
    // "Net Amount" the three columns have two inner edges, under "Tax under Intra-State" one.
    std::map<int, int> begins;
    for (const Rule *side : sides)
        ++begins[qRound(side->from.y())];
    ASSERT_EQ(begins.size(), 2U);
    EXPECT_EQ(begins.begin()->second, 11);
    EXPECT_EQ(begins.rbegin()->second, 3);
    const qreal top = sides.front()->from.y();
    const qreal middle = begins.rbegin()->first;
    const qreal bottom = sides.front()->to.y();
    for (const Rule *side : sides)
        EXPECT_NEAR(side->to.y(), bottom, 0.1);
    ASSERT_EQ(levelRules(page, top).size(), 1U) << "one line from end to end";
    ASSERT_EQ(levelRules(page, middle).size(), 1U) << "under the two spanning headings";
    const auto [from, to] = levelRules(page, middle).front();
    EXPECT_LT(from, piece(page, "No Tax").baseline.x());
    EXPECT_GT(to, piece(page, "SGST").baseline.x());
    EXPECT_LT(to, piece(page, "IGST").baseline.x());
    EXPECT_LE(levelRules(page, top).front().second, 16838 - 500) << "narrowed until it fits the paper";
    EXPECT_EQ(levelRules(page, bottom).size(), 1U);
    std::set<int> heights;
    for (const Rule &rule : page.drawing.rules)
        if (rule.from.y() == rule.to.y())
            heights.insert(qRound(rule.from.y()));
    EXPECT_EQ(heights.size(), 5U) << "top, below the spans, below the heading, above and below the total";
}

TEST(ReportPages, AlignmentAndBoldFollowTheRow)
{
    const Page page = pagesOf([](ReportWriter &report) { test::writeBillDetails(report, 2); }).front();
    const auto right = [&](const char *text) {
        const TextPiece &found = piece(page, QString::fromLatin1(text));
        return found.baseline.x() + found.width;
    };
    EXPECT_NEAR(right("1001"), right("1002"), 0.5);
    EXPECT_NEAR(right("1,41,600"), right("14,16,000"), 0.5);
    EXPECT_TRUE(piece(page, "Grand Total").font.bold() && piece(page, "14,16,000").font.bold());
    EXPECT_FALSE(piece(page, "1,41,600").font.bold());
    const TextPiece &firm = piece(page, "SHARMA ASSOCIATES");
    EXPECT_NEAR(firm.baseline.x() + firm.width / 2, 16838 / 2.0, 1);
    EXPECT_LT(piece(page, "DELHI").width / 5, firm.width / 17 * 0.65) << "condensed pitch";
    const Page account = pagesOf([](ReportWriter &report) { test::writeAccount(report, "P", 1); }).front();
    EXPECT_TRUE(piece(account, "Net").font.bold() && piece(account, "Remarks").font.bold());
    EXPECT_FALSE(piece(account, "Bill No. 1").font.bold());
}

struct BreakCase
{
    const char *name;
    Writing write;
    int pages;
    const char *second; ///< what the second page begins with
};

void manyLines(ReportWriter &report, int count)
{
    for (int line = 1; line <= count; ++line)
        report.WriteToReport(test::freeLine(QStringLiteral("line %1").arg(line)));
}

ReportRow tallRow(int lines)
{
    return test::tableRow({QString(QStringLiteral("x\r\n")).repeated(lines) + "end", "b"}, {40, 38}, "LL");
}

void beginTable(ReportWriter &report)
{
    report.createtable(1, 2);
    report.WriteToReport(test::tableRow({"Head", "B"}, {40, 38}, "CC", "11", "11"));
}

TEST(ReportPages, BreakWhereARowDoesNotFit)
{
    // A page takes 58 lines of normal pitch.
    const BreakCase cases[] = {
        {"the heading is repeated, and the table's own title",
         [](ReportWriter &report) { test::writeAccount(report, "PARTY", 120); }, 2,
         "PARTY Date Particulars Opening Bill Amount Amount Receipt Discount Balance Remarks TDS Net Tax 03-Nov-19"},
        {"the report's title is not the table's", [](ReportWriter &report) { test::writeBillDetails(report, 60); }, 2,
         "Date Bill No."},
        {"a form feed",
         [](ReportWriter &report) { manyLines(report, 1), report.PrintText("\f"), manyLines(report, 1); }, 2, "line 1"},
        {"form feeds without a page between them",
         [](ReportWriter &report) { report.PrintText("\f"), manyLines(report, 1), report.PrintText("\f;"); }, 1, ""},
        {"a title stays with its table",
         [](ReportWriter &report) { manyLines(report, 53), test::writeAccount(report, "PARTY", 3); }, 2,
         "PARTY PAN: AAACN1234C Date"},
        {"a row moves as a whole",
         [](ReportWriter &report) {
             beginTable(report), report.WriteToReport(tallRow(40)), report.WriteToReport(tallRow(30));
         },
         2, "Head B x"},
        {"a row taller than a page is split",
         [](ReportWriter &report) { beginTable(report), report.WriteToReport(tallRow(130)); }, 3, "Head B x"},
        {"heading and lines above stay with a row taller than a page",
         [](ReportWriter &report) { manyLines(report, 43), beginTable(report), report.WriteToReport(tallRow(70)); }, 3,
         "line 35"},
        {"a spacer does not begin a page",
         [](ReportWriter &report) {
             beginTable(report), report.WriteToReport(tallRow(53));
             report.WriteToReport(test::tableRow({"", ""}, {40, 38}, "LL"));
             report.WriteToReport(test::tableRow({"", ""}, {40, 38}, "LL"));
             report.WriteToReport(test::tableRow({"", ""}, {40, 38}, "LL"));
             report.WriteToReport(test::tableRow({"next", ""}, {40, 38}, "LL"));
         },
         2, "Head B next"}};
    for (const BreakCase &c : cases) {
        const Pages pages = pagesOf(c.write);
        ASSERT_EQ(pages.size(), c.pages) << c.name;
        const QString second = c.pages > 1 ? wordsOf(*pages[1]) : QString("");
        EXPECT_TRUE(second.startsWith(QLatin1String(c.second))) << c.name << ": " << second.toStdString();
        for (int page = 0; page < pages.size(); ++page) {
            const auto drawn = pages[page];
            EXPECT_TRUE(wordsOf(*drawn).endsWith(QStringLiteral("Page %1 of %2").arg(page + 1).arg(c.pages))) << c.name;
            for (const Rule *side : uprights(*drawn)) // closed above and below on each page
                EXPECT_TRUE(!levelRules(*drawn, side->from.y()).empty() && !levelRules(*drawn, side->to.y()).empty())
                    << c.name << " page " << page + 1;
        }
    }
}

TEST(ReportPages, WhatEndsATableStaysWithItsLastRowsAndTheBalanceStandsOpen)
{
    for (int count = 40; count < 70; ++count) {
        const Pages pages = pagesOf([count](ReportWriter &report) {
            beginTable(report);
            for (int row = 0; row < count; ++row)
                report.WriteToReport(test::tableRow({"entry", ""}, {40, 38}, "LL"));
            report.WriteToReport(test::tableRow({"Total", ""}, {40, 38}, "LL", "11", "11"));
            ReportRow closing = test::tableRow({"Balance", ""}, {40, 38}, "LL");
            closing.left = closing.right = "0";
            report.WriteToReport(closing);
        });
        const auto last = pages[pages.size() - 1];
        EXPECT_GE(wordsOf(*last).count("entry"), 2) << count;
        EXPECT_EQ(wordsOf(*last).count("Total"), 1) << count;
        const qreal balance = piece(*last, "Balance").baseline.y();
        for (const Rule &rule : last->drawing.rules)
            EXPECT_LT(rule.to.y(), balance) << count;
    }
}

TEST(ReportPages, NameAndHeadingStayWithTheFirstRow)
{
    for (const int entries : {1, 2, 9}) {
        for (int above = 50; above < 75; ++above) {
            const Pages pages = pagesOf([&](ReportWriter &report) {
                test::writeAccount(report, "FORMER", above);
                test::writeAccount(report, "PARTY", entries);
            });
            for (int page = 0; page < pages.size(); ++page) {
                const QString words = wordsOf(*pages[page]);
                const qsizetype name = words.indexOf("PARTY");
                EXPECT_TRUE(name < 0 || words.indexOf("Bill No.", name) > 0)
                    << entries << " below " << above << ", page " << page + 1 << ": " << words.toStdString();
            }
        }
    }
}

TEST(ReportPages, TypeThatAnUprightPageWouldMakeTooSmallGetsAPageAcross)
{
    for (const auto &[width, pitch, size] : {std::tuple<qint16, QString, QSizeF>{77, test::normal, {11906, 16838}},
                                             {87, test::normal, {11906, 16838}},
                                             {90, test::normal, {16838, 11906}},
                                             {90, test::condensed, {11906, 16838}},
                                             {110, test::condensed, {16838, 11906}}}) {
        const Pages pages = pagesOf([&](ReportWriter &report) {
            report.PrintText(pitch + u';');
            report.createtable(1, 2);
            report.WriteToReport(test::tableRow({"a", "b"}, {width, width}, "LL", "11", "11"));
        });
        EXPECT_EQ(pages.front().size, size) << width;
        EXPECT_GE(piece(pages.front(), "a").font.pixelSize(), 100) << width;
    }
}

TEST(ReportPages, NoRowIsLostOrPrintedTwice)
{
    const Pages pages = pagesOf([](ReportWriter &report) { test::writeBillDetails(report, 3000, true); });
    QStringList numbers;
    for (int page = 0; page < pages.size(); ++page)
        for (const TextPiece &text : pages[page]->drawing.texts) {
            EXPECT_LT(text.baseline.y(), 11906 - 400);
            if (text.text.startsWith(QStringLiteral("SA/24-25/")))
                numbers << text.text.mid(9);
        }
    ASSERT_EQ(numbers.size(), 3000);
    for (int bill = 1; bill <= 3000; ++bill)
        EXPECT_EQ(numbers[bill - 1].toInt(), bill);
    EXPECT_EQ(findText(pages, "company PRIVATE limited 2999").size(), 1U);
    EXPECT_EQ(findText(pages, "Tax Applicability").size(), static_cast<std::size_t>(pages.size()));
}

TEST(ReportPages, SignsOfAnotherFaceStayInTheirCell)
{
    const QString name = QString::fromUtf8("श्रीकिर्लोस्करउद्योग日本語会社製作");
    const Page page = pagesOf([&](ReportWriter &report) {
                          report.createtable(1, 2);
                          report.WriteToReport(test::tableRow({name, "next"}, {40, 10}, "LL", "11", "11"));
                      }).front();
    const TextPiece &found = piece(page, name);
    EXPECT_LT(found.baseline.x() + found.width, piece(page, "next").baseline.x());
}

/// The words of rows of random texts, as paper, plain text and csv show them: each read back by another program.
TEST(ReportPages, PaperTextAndCsvSayTheSameWordsInTheSameOrder)
{
    std::mt19937 random(20240615); // NOLINT(bugprone-random-generator-seed): the same texts in every run
    const auto pick = [&random](int below) { return static_cast<int>(random() % static_cast<unsigned>(below)); };
    const QStringList parts = {"a",   "Rs.",   "\"quoted\"", "comma,comma",          "=SUM(A1)", "x;y", "co-op", "\r\n",
                               "...", "1,180", "(5)",        QString::fromUtf8("₹"), "{\\b}",    "'",   "Ltd"};
    QStringList rows;
    const auto report = rowsOf([&](ReportWriter &writer) {
        beginTable(writer);
        for (int row = 0; row < 1000; ++row) {
            QString text = QStringLiteral("r%1").arg(row);
            for (int word = pick(12); word > 0; --word)
                text += u' ' + parts[pick(static_cast<int>(parts.size()))];
            rows << text;
            writer.WriteToReport(test::tableRow({text, ""}, {40, 38}, "LL"));
        }
    });
    const QTemporaryDir folder;
    const QString path = folder.filePath("a");
    ASSERT_EQ(writePdf(Pages(std::make_shared<ReportPages>(report)), path + ".pdf", {}), QString());
    ASSERT_TRUE(saveReportText(*report, path + ".txt").isEmpty() && saveReportCsv(*report, path + ".csv").isEmpty());
    QProcess reader;
    reader.start("python3", {"-c", R"(
import csv, json, re, subprocess, sys
path = sys.argv[1]
def words(text):
    return [w for w in re.sub('[│┌┐└┘├┤┬┴┼─]', ' ', text).split()]
paper = subprocess.run(['pdftotext', '-layout', path + '.pdf', '-'], capture_output=True, text=True, check=True).stdout
pages = [p for p in paper.split('\f') if p.strip()]
paper = [w for p in pages for w in words('\n'.join(l for l in p.split('\n') if not re.match(r' *(Page \d+ of|Head +B)', l)))]
text = words(open(path + '.txt', encoding='utf-8').read())[2:]
with open(path + '.csv', newline='', encoding='utf-8') as file:
    records = list(csv.reader(file))[1:]
json.dump({'paper': paper == text, 'n': len(text), 'words': text, 'cells': [r[0] for r in records],
           'fields': sorted({len(r) for r in records})}, sys.stdout)
)",
                             path});
    ASSERT_TRUE(reader.waitForFinished(60000)) << "python3 is needed";
    const QJsonObject said = QJsonDocument::fromJson(reader.readAllStandardOutput()).object();
    EXPECT_TRUE(said["paper"].toBool()) << reader.readAllStandardError().toStdString();
    EXPECT_GT(said["n"].toInt(), 5000);
    EXPECT_EQ(said["fields"].toArray(), QJsonArray{2});
    const QJsonArray cells = said["cells"].toArray();
    ASSERT_EQ(cells.size(), rows.size());
    QStringList words;
    for (int row = 0; row < rows.size(); ++row) {
        EXPECT_EQ(cells[row].toString(), rows[row]);
        words += rows[row].split(QRegularExpression("\\s+"), Qt::SkipEmptyParts);
    }
    QStringList shown;
    for (const auto word : said["words"].toArray())
        shown << word.toString();
    EXPECT_EQ(shown.join(u' ').toStdString(), words.join(u' ').toStdString());
}

/// A host's window that keeps what it is given.
struct HoldingHost : HostWindow
{
    void showScreen(QWidget &screen) override { shown.reset(&screen); }
    void ReloadMenu() override {}
    std::unique_ptr<QWidget> shown;
};

TEST(TextReport, IsShownAndSavedWhenItWasBegunLast)
{
    Registry registry;
    registerStockComponents(registry);
    const auto reporter = registry.create<Reporter>(QString::fromLatin1(Reporter::progId));
    HoldingHost host;
    gMdi = &host;
    const QTemporaryDir folder;
    test::writeBillDetails(*reporter, 200);
    reporter->ShowReport(false);
    gMdi = nullptr;
    reporter->PrintText("written behind");
    auto &viewer = dynamic_cast<Viewer &>(*host.shown);
    EXPECT_EQ(viewer.windowTitle().toStdString(),
              "Preview - Bill Details for the Period From 01/04/2024 to 31/03/2025");
    EXPECT_EQ(viewer.pages().paper(0), QSizeF(16838, 11906));
    EXPECT_EQ(findText(viewer.pages(), "written behind").size(), 0U) << "what is shown does not change any more";
    EXPECT_EQ(viewer.findChild<QPushButton *>("cmdSaveRtf"), nullptr);
    viewer.show();
    test::Boxes boxes;
    for (const char *suffix : {"Txt", "Csv"}) {
        viewer.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&viewer));
        const QString saved = folder.filePath(QString("a.") + QString(suffix).toLower());
        boxes.expectDialog([&](QWidget &dialog) {
            EXPECT_EQ(dialog.objectName(), QString("dlgSave") + suffix);
            auto *name = dialog.findChild<QLineEdit *>("fileNameEdit");
            name->setText(saved);
            QTest::keyClick(name, Qt::Key_Return);
        });
        viewer.findChild<QPushButton *>(QString("cmdSave") + suffix)->click();
        QFile file(saved);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly) && file.readAll().contains("SA/24-25/200")) << suffix;
    }
    int told = 0;
    reporter->SetProgress([&](qint64, qint64, const QString &) { return ++told < 3; });
    reporter->SaveToPDF(folder.filePath("b.pdf"), 12);
    EXPECT_EQ(reporter->LastError().toStdString(), "It was cancelled.");
    EXPECT_FALSE(QFile::exists(folder.filePath("b.pdf")));
    reporter->SetProgress(unwatched());
    reporter->SaveToPDF(folder.filePath("b.pdf"), 12);
    EXPECT_TRUE(pdfWords(folder.filePath("b.pdf")).contains("behind"));
    reporter->AbortReport();
    reporter->SaveToPDF(folder.filePath("c.pdf"), 12);
    EXPECT_FALSE(QFile::exists(folder.filePath("c.pdf")));
}

} // namespace

} // namespace ledgora::reporter
