#include "components/reporter/Viewer.h"
#include "components/reporter/PdfOutput.h"

#include "Sample.h"
#include "components/StockComponents.h"
#include "components/reporter/PageView.h"
#include "components/reporter/RtfReader.h"
#include "host/WorkingState.h"
#include "platform/HostObject.h"
#include "platform/Registry.h"
#include "support/Boxes.h"
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

namespace ledgora::reporter {

namespace {

Page pageSaying(const QString &word)
{
    Page page{QSizeF(11906, 16838), {}};
    QFont font(QStringLiteral("Liberation Sans"));
    font.setPixelSize(400);
    page.drawing.texts.push_back({QPointF(1000, 2000), 0, word, font, 0xff000000});
    return page;
}

class ViewerTest : public testing::Test
{
public:
    ViewerTest()
        : viewer(new Viewer({pageSaying(QStringLiteral("first")), pageSaying(QStringLiteral("second")),
                             pageSaying(QStringLiteral("third"))},
                            QStringLiteral("Bill MA/17")))
    {
        viewer->show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(viewer));
    }
    ViewerTest(const ViewerTest &) = delete;
    ViewerTest &operator=(const ViewerTest &) = delete;
    ~ViewerTest() override { delete viewer; }

    QString label(const char *name) const { return viewer->findChild<QLabel *>(QLatin1String(name))->text(); }
    PageView *view() const { return viewer->findChild<PageView *>(QStringLiteral("pageView")); }
    int zoom() const { return label("lblZoom").chopped(1).toInt(); }

    QPointer<Viewer> viewer;
};

TEST_F(ViewerTest, BeginsAtTheTopOfTheFirstPage)
{
    EXPECT_EQ(label("lblPage").toStdString(), "Page 1 of 3");
    EXPECT_EQ(viewer->windowTitle().toStdString(), "Preview - Bill MA/17");
}

TEST_F(ViewerTest, KeysMoveThroughThePages)
{
    QTest::keyClick(view(), Qt::Key_End);
    EXPECT_EQ(label("lblPage").toStdString(), "Page 3 of 3");
    QTest::keyClick(view(), Qt::Key_PageUp);
    QTest::keyClick(view(), Qt::Key_PageUp);
    EXPECT_EQ(label("lblPage").toStdString(), "Page 2 of 3");
    QTest::keyClick(view(), Qt::Key_Home);
    EXPECT_EQ(label("lblPage").toStdString(), "Page 1 of 3");
}

TEST_F(ViewerTest, KeysAndButtonsZoom)
{
    const int fitting = zoom();
    QTest::keyClick(view(), Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_GT(zoom(), fitting);
    QTest::mouseClick(viewer->findChild<QPushButton *>(QStringLiteral("cmdZoomOut")), Qt::LeftButton);
    QTest::keyClick(view(), Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_LT(zoom(), fitting);
    QTest::keyClick(view(), Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(zoom(), fitting);
    for (int i = 0; i < 40; ++i)
        QTest::keyClick(view(), Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_EQ(zoom(), 25);
}

TEST_F(ViewerTest, EscClosesAndTheWindowDeletesItself)
{
    QTest::keyClick(view(), Qt::Key_Escape);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(viewer.isNull());
}

TEST_F(ViewerTest, SavingProposesTheNameAndAsksBeforeItOverwrites)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("mine.pdf"));
    QFile former(path);
    ASSERT_TRUE(former.open(QIODevice::WriteOnly));
    former.write("former");
    former.close();
    test::Boxes boxes;
    QString proposed;
    const auto choose = [&](QWidget &dialog) {
        EXPECT_EQ(dialog.objectName().toStdString(), "dlgSavePdf");
        auto *name = dialog.findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
        ASSERT_NE(name, nullptr);
        if (proposed.isEmpty())
            proposed = name->text();
        name->setText(path);
        QTest::keyClick(name, Qt::Key_Return);
    };
    boxes.expectDialog([&](QWidget &dialog) {
        choose(dialog);
        qobject_cast<QDialog *>(&dialog)->reject();
    });
    boxes.expect(QStringLiteral("mine.pdf already exists.\nDo you want to replace it?"), QMessageBox::No);
    QTest::keyClick(view(), Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(proposed.toStdString(), "Bill MA-17.pdf");
    EXPECT_EQ(QFileInfo(path).size(), 6);

    viewer->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(viewer));
    boxes.expectDialog(choose);
    boxes.expect(QStringLiteral("mine.pdf already exists.\nDo you want to replace it?"), QMessageBox::Yes);
    QTest::keyClick(view(), Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(pdfWords(path),
              (QStringList{QStringLiteral("first"), QStringLiteral("second"), QStringLiteral("third")}));
    EXPECT_EQ(label("lblDone").toStdString(), "Saved mine.pdf");
}

TEST_F(ViewerTest, SavingWhereNothingCanBeWrittenSaysWhyAndStays)
{
    test::Boxes boxes;
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("mine.pdf"));
    ASSERT_TRUE(QDir().mkpath(path + QStringLiteral(".part"))); // what stands in the way of root too
    boxes.expectDialog([&](QWidget &dialog) {
        auto *name = dialog.findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
        name->setText(path);
        QTest::keyClick(name, Qt::Key_Return);
    });
    boxes.expect("The file could not be saved: " + path + "\nFile exists");
    QTest::keyClick(view(), Qt::Key_S, Qt::ControlModifier);
    ASSERT_FALSE(viewer.isNull());
    EXPECT_EQ(label("lblDone"), "");
    EXPECT_FALSE(QFileInfo::exists(path));
    int told = 0;
    const auto count = [&told](qint64, qint64, const QString &) { return ++told > 0; };
    EXPECT_NE(writePdf(viewer->pages(), path, QStringLiteral("mine"), count), "");
    EXPECT_EQ(told, 0) << "no page is drawn in vain";
}

TEST_F(ViewerTest, PrintsTheRangeThatWasChosen)
{
    const QTemporaryDir folder;
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(folder.filePath(QStringLiteral("out.pdf")));
    printer.setFromTo(2, 3);
    EXPECT_EQ(printPages(printer, viewer->pages()), QString());
    EXPECT_EQ(pdfWords(printer.outputFileName()), (QStringList{QStringLiteral("second"), QStringLiteral("third")}));
}

TEST_F(ViewerTest, PrintingProposesAFileThatCanBeWritten)
{
    test::Boxes boxes;
    boxes.expectDialog([](QWidget &dialog) {
        EXPECT_EQ(dynamic_cast<QPrintDialog &>(dialog).printer()->docName(), "Bill MA-17") << "the file is named so";
        dialog.close();
    });
    QTest::keyClick(view(), Qt::Key_P, Qt::ControlModifier);
}

TEST_F(ViewerTest, PrintsAsManyCopiesAsWanted)
{
    const QTemporaryDir folder;
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(folder.filePath(QStringLiteral("out.pdf")));
    printer.setFromTo(1, 2);
    printer.setCopyCount(2);
    for (const auto &[collated, words] :
         {std::pair{true, "first second first second"}, {false, "first first second second"}}) {
        printer.setCollateCopies(collated);
        EXPECT_EQ(printPages(printer, viewer->pages()), QString());
        EXPECT_EQ(pdfWords(printer.outputFileName()).join(QLatin1Char(' ')).toStdString(), words);
    }
}

TEST_F(ViewerTest, FindsWordsByKeys)
{
    QTest::keyClick(view(), Qt::Key_F, Qt::ControlModifier);
    auto *words = viewer->findChild<QLineEdit *>(QStringLiteral("txtFind"));
    ASSERT_NE(words, nullptr);
    EXPECT_TRUE(words->hasFocus());
    QTest::keyClicks(words, QStringLiteral("IR"));
    EXPECT_EQ(label("lblFound").toStdString(), "1 of 2");
    QTest::keyClick(words, Qt::Key_Return);
    EXPECT_EQ(label("lblFound").toStdString(), "2 of 2");
    EXPECT_EQ(label("lblPage").toStdString(), "Page 3 of 3");
    QTest::keyClick(words, Qt::Key_F3);
    EXPECT_EQ(label("lblPage").toStdString(), "Page 1 of 3");
    QTest::keyClicks(words, QStringLiteral("x"));
    EXPECT_EQ(label("lblFound").toStdString(), "Not found");
    QTest::keyClick(words, Qt::Key_Escape);
    EXPECT_FALSE(words->isVisible());
    EXPECT_TRUE(view()->isVisible() && view()->hits().empty());
}

TEST_F(ViewerTest, TheOverviewLeadsAndFollows)
{
    auto *strip = viewer->findChild<QWidget *>(QStringLiteral("pageStrip"));
    QTest::keyClick(strip, Qt::Key_Down);
    EXPECT_EQ(label("lblPage").toStdString(), "Page 2 of 3");
    QTest::keyClick(view(), Qt::Key_PageDown, Qt::ControlModifier);
    QTest::keyClick(strip, Qt::Key_Up);
    EXPECT_EQ(label("lblPage").toStdString(), "Page 2 of 3");
    QTest::keyClick(view(), Qt::Key_9, Qt::ControlModifier);
    EXPECT_LE(view()->zoom() * 16838 * view()->logicalDpiY() / 1440, view()->viewport()->height());
}

TEST(PageSearch, FindsWordsAcrossFormatsAndLines)
{
    Page page{QSizeF(11906, 16838), {}};
    QFont font(QStringLiteral("Liberation Sans"));
    font.setPixelSize(200);
    for (const auto &[x, y, text] :
         {std::tuple{1000, 1000, "Total am"}, {1800, 1000, "ount of"}, {1000, 1300, "the bill, total"}})
        page.drawing.texts.push_back({QPointF(x, y), 800, QString::fromLatin1(text), font, 0xff000000});
    const auto places = [&](const char *words) { return findText({page, page}, QString::fromLatin1(words)).size(); };
    EXPECT_EQ(places("TOTAL"), 4U);
    EXPECT_EQ(places("amount of  the"), 2U);
    EXPECT_EQ(places("am ount"), 0U);
    EXPECT_EQ(places(" "), 0U);
    const Hit hit = findText({page}, QStringLiteral("amount")).at(0);
    ASSERT_EQ(hit.areas.size(), 2U);
    EXPECT_NEAR(hit.areas[0].right(), hit.areas[1].left(), 1);
    EXPECT_GT(hit.areas[0].left(), 1300);
}

TEST(FileNames, HoldNothingThatAFileSystemRefuses)
{
    EXPECT_EQ(fileNameFor(QStringLiteral("Bill A/2019-20\\7:*?\"<>|")).toStdString(), "Bill A-2019-20-7-------");
    EXPECT_EQ(fileNameFor(QStringLiteral("../../etc/passwd")).toStdString(), "-..-etc-passwd");
    EXPECT_EQ(fileNameFor(QStringLiteral(" .. ")).toStdString(), "Document");
    EXPECT_EQ(fileNameFor(QString(300, QLatin1Char('x'))).size(), 100);
}

/// A host's window that keeps what it is given.
struct HoldingHost : HostWindow
{
    void showScreen(QWidget &screen) override { shown.push_back(&screen); }
    void ReloadMenu() override {}
    std::vector<QWidget *> shown;
};

class StockReporterTest : public testing::Test
{
public:
    StockReporterTest()
    {
        Registry registry;
        registerStockComponents(registry);
        reporter = registry.create<Reporter>(QStringLiteral("PrjOrvaneReporter.ClsMain"));
        gMdi = &host;
    }
    StockReporterTest(const StockReporterTest &) = delete;
    StockReporterTest &operator=(const StockReporterTest &) = delete;
    ~StockReporterTest() override
    {
        gMdi = nullptr;
        qDeleteAll(host.shown);
    }

    void writeTemplate(const QByteArray &text) const
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }

    QString shownText()
    {
        reporter->ShowReport(false);
        if (host.shown.empty())
            return {};
        return textOf(dynamic_cast<Viewer &>(*host.shown.back()).pages().front());
    }

    QTemporaryDir folder;
    QString path = folder.filePath(QStringLiteral("Mine.doc"));
    HoldingHost host;
    std::unique_ptr<Reporter> reporter;
};

TEST_F(StockReporterTest, FillsAndShowsInTheHostsWindow)
{
    writeTemplate("{\\rtf1 No. #BILL_NO# of #X#\\par}");
    reporter->newreportnew(path);
    reporter->SetText(QStringLiteral("#BILL_NO#"), QStringLiteral("7"));
    reporter->SetText(QStringLiteral("#X#"), 1180.5);
    EXPECT_EQ(shownText().toStdString(), "No. 7 of 1180.5\n");
    EXPECT_EQ(host.shown.back()->windowTitle().toStdString(), "Preview - Bill 7");
    reporter->newreportnew(path);
    reporter->SetText(QStringLiteral("#RCPT_NO#"), QStringLiteral("8"));
    reporter->ShowReport(false);
    EXPECT_EQ(host.shown.back()->windowTitle().toStdString(), "Preview - Receipt 8");
}

TEST_F(StockReporterTest, EachReportBeginsWithTheCleanTemplate)
{
    writeTemplate("{\\rtf1 #X#\\par}");
    for (const char *value : {"one", "two"}) {
        reporter->newreportnew(path);
        reporter->SetText(QStringLiteral("#X#"), QString::fromLatin1(value));
        EXPECT_EQ(shownText().trimmed().toStdString(), value);
    }
}

TEST_F(StockReporterTest, AChangedTemplateIsReadAgain)
{
    writeTemplate("{\\rtf1 before\\par}");
    reporter->newreportnew(path);
    writeTemplate("{\\rtf1 after it\\par}");
    reporter->newreportnew(path);
    EXPECT_EQ(shownText().toStdString(), "after it\n");
}

TEST_F(StockReporterTest, TellsWhatMustBeKnownOfAReportAboveItsPages)
{
    for (const QString &notice : {QString(), QStringLiteral("This report is incomplete.")}) {
        reporter->NewReport();
        reporter->PrintText(QStringLiteral("a line"));
        reporter->SetNotice(notice);
        reporter->ShowReport(false);
        const auto *label = host.shown.back()->findChild<QLabel *>(QStringLiteral("lblNotice"));
        EXPECT_EQ(label->text(), notice);
        EXPECT_EQ(label->isVisibleTo(host.shown.back()), !notice.isEmpty());
    }
}

TEST_F(StockReporterTest, WithoutAWholeTemplateNothingIsShownNorSaved)
{
    const QString cut = folder.filePath(QStringLiteral("Cut.doc"));
    ASSERT_TRUE(QFile(cut).open(QIODevice::NewOnly));
    for (const QString &bad : {folder.filePath(QStringLiteral("Missing.doc")), cut}) {
        writeTemplate("{\\rtf1 former\\par}");
        reporter->newreportnew(path);
        reporter->newreportnew(bad);
        EXPECT_NE(reporter->LastError(), QString());
        reporter->SetText(QStringLiteral("#X#"), QStringLiteral("x"));
        EXPECT_EQ(shownText(), QString());
        reporter->SaveToPDF(folder.filePath(QStringLiteral("a.pdf")), 12);
        EXPECT_FALSE(QFile::exists(folder.filePath(QStringLiteral("a.pdf"))));
    }
}

TEST_F(StockReporterTest, SavesAsPdf)
{
    writeTemplate("{\\rtf1 some #X#\\par}");
    reporter->newreportnew(path);
    reporter->SetText(QStringLiteral("#X#"), QStringLiteral("words"));
    reporter->SaveToPDF(folder.filePath(QStringLiteral("a.pdf")), 12);
    EXPECT_EQ(pdfWords(folder.filePath(QStringLiteral("a.pdf"))),
              (QStringList{QStringLiteral("some"), QStringLiteral("words")}));
}

TEST_F(StockReporterTest, TheShownDocumentIsSavedAsRtf)
{
    writeTemplate("{\\rtf1 a {\\b #X#}\\par}");
    reporter->newreportnew(path);
    reporter->SetText(QStringLiteral("#X#"), QStringLiteral("{b}"));
    EXPECT_EQ(shownText().toStdString(), "a \n{b}\n");
    QWidget *viewer = host.shown.back();
    viewer->show();
    viewer->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(viewer));
    reporter->newreportnew(folder.filePath(QStringLiteral("another.doc")));
    const QString saved = folder.filePath(QStringLiteral("saved.rtf"));
    test::Boxes boxes;
    boxes.expectDialog([&](QWidget &dialog) {
        auto *name = dialog.findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
        name->setText(saved);
        QTest::keyClick(name, Qt::Key_Return);
    });
    QTest::keyClick(viewer, Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    QFile file(saved);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const RtfRead read = readRtf(file.readAll());
    const auto &runs = std::get<Paragraph>(read.document.sections.front().blocks.at(0).content).runs;
    EXPECT_TRUE(runs.size() == 2 && runs[1].format.bold && runs[1].text == QStringLiteral("{b}"));
}

/// More files than one batch takes; what one document alone needs, a face of Indian script, must not lie in the others.
TEST_F(StockReporterTest, ARunOfPdfFilesHoldsOfEachDocumentWhatItUses)
{
    const QString hindi = QStringLiteral("श्री किर्लोस्कर");
    writeTemplate("{\\rtf1{\\fonttbl{\\f0 Liberation Sans;}}\\f0 Bill #BILL_NO# {\\b of} #X#\\par}");
    ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("50.pdf")));
    const auto file = [this](int number) { return folder.filePath(QString::number(number) + ".pdf"); };
    const int count = 130;
    reporter->BeginPdfRun();
    for (int number = 1; number <= count; ++number) {
        reporter->OpenMasterFile(path);
        reporter->NewSetText(QStringLiteral("#BILL_NO#"), double(number));
        reporter->NewSetText(QStringLiteral("#X#"), number == 7 ? hindi : QString(QStringLiteral("2024\f")));
        reporter->AddMasterToPdf(file(number));
    }
    const std::vector<PdfFault> faults = reporter->EndPdfRun();
    ASSERT_EQ(faults.size(), 1U);
    EXPECT_EQ(faults.front().path.toStdString(), file(50).toStdString());
    for (const int number : {1, 7, 99, 100, 101, 130}) {
        EXPECT_EQ(pdfWords(file(number)).join(u' ').toStdString(),
                  QString("Bill %1 of %2").arg(number).arg(number == 7 ? hindi : QStringLiteral("2024")).toStdString());
        QProcess check;
        check.start(QStringLiteral("pdffonts"), {file(number)});
        EXPECT_TRUE(check.waitForFinished());
        EXPECT_EQ(check.readAllStandardOutput().contains("Devanagari"), number == 7) << number;
    }
    EXPECT_EQ(QDir(folder.path()).entryList({QStringLiteral("*.part")}).size(), 0);
    EXPECT_LT(QFileInfo(file(1)).size(), QFileInfo(file(7)).size());
}

TEST_F(StockReporterTest, ARunJoinsItsDocumentsOnPagesOfTheFirst)
{
    const QString rtf = folder.filePath(QStringLiteral("Bill.rtf"));
    for (const char *number : {"7", "{8}", "9"}) {
        const bool first = *number == '7';
        writeTemplate(first ? "{\\rtf1\\paperw8000 No. #BILL_NO#\\par}" : "{\\rtf1\\paperw9000 No. #BILL_NO#\\par}");
        reporter->WinModeReport(true);
        reporter->initReport(first, false);
        if (first)
            reporter->LoadPageSetup(path);
        else
            reporter->SetFontSizeBeforeAppendFile(QStringLiteral("\f\r\n"), 2);
        reporter->OpenMasterFile(path);
        EXPECT_TRUE(reporter->LastMasFileOpenOK());
        reporter->NewSetText(QStringLiteral("#BILL_NO#"), QString::fromLatin1(number));
        reporter->SaveMasterFile(rtf);
        reporter->AppendFile(rtf);
        EXPECT_EQ(reporter->LastError().toStdString(), "");
    }
    EXPECT_EQ(shownText().toStdString(), "No. 7\n");
    const Pages pages = dynamic_cast<Viewer &>(*host.shown.back()).pages();
    ASSERT_EQ(pages.size(), 3);
    EXPECT_EQ(textOf(*pages[1]).toStdString(), "No. {8}\n");
    EXPECT_EQ(pages.paper(2).width(), 8000);
    EXPECT_NEAR(pages[1]->drawing.texts[0].baseline.y(), pages[0]->drawing.texts[0].baseline.y(), 60);
    EXPECT_EQ(host.shown.back()->windowTitle().toStdString(), "Preview - Bill 7 and 2 more");
}

TEST_F(StockReporterTest, EachDocumentOfARunCountsItsOwnPages)
{
    const QString rtf = folder.filePath(QStringLiteral("Bill.rtf"));
    writeTemplate("{\\rtf1\\sectd\\titlepg{\\header #BILL_NO#: {\\field{\\*\\fldinst PAGE}} of {\\field{\\*\\fldinst "
                  "NUMPAGES}}\\par}a\\par\\page b\\par}");
    for (const char *number : {"7", "8"}) {
        reporter->initReport(*number == '7', false);
        if (*number != '7')
            reporter->SetFontSizeBeforeAppendFile(QStringLiteral("\f\r\n"), 2);
        reporter->OpenMasterFile(path);
        reporter->NewSetText(QStringLiteral("#BILL_NO#"), QString::fromLatin1(number));
        reporter->SaveMasterFile(rtf);
        reporter->AppendFile(rtf);
    }
    reporter->SaveToRTF(folder.filePath(QStringLiteral("all.rtf")));
    reporter->ShowReport(false);
    QStringList shown;
    const Pages pages = dynamic_cast<Viewer &>(*host.shown.back()).pages();
    for (int page = 0; page < pages.size(); ++page)
        shown << textOf(*pages[page]).simplified();
    EXPECT_EQ(shown, (QStringList{"a", "7: 2 of 2 b", "a", "8: 2 of 2 b"}));
    QFile saved(folder.filePath(QStringLiteral("all.rtf")));
    ASSERT_TRUE(saved.open(QIODevice::ReadOnly));
    EXPECT_EQ(saved.readAll().count("SECTIONPAGES"), 2);
}

TEST_F(StockReporterTest, WhatFailsInARunIsToldAndAbortingLeavesNothing)
{
    reporter->initReport(true, false);
    const auto failed = [this] { return !reporter->LastError().isEmpty(); };
    for (const QByteArray &text : {QByteArray(), QByteArray("{\\rtf1 cut off")}) {
        writeTemplate(text);
        reporter->OpenMasterFile(path);
        EXPECT_TRUE(!reporter->LastMasFileOpenOK() && failed()) << text.toStdString();
    }
    reporter->SaveMasterFile(folder.filePath(QStringLiteral("none.rtf")));
    EXPECT_TRUE(failed());
    writeTemplate("{\\rtf1 a\\par}");
    reporter->OpenMasterFile(path);
    EXPECT_TRUE(reporter->LastMasFileOpenOK() && !failed());
    reporter->SaveMasterFile(folder.filePath(QStringLiteral("missing/a.rtf")));
    EXPECT_TRUE(failed());
    reporter->AppendFile(folder.filePath(QStringLiteral("missing/a.rtf")));
    EXPECT_TRUE(failed());
    reporter->AppendFile(path);
    EXPECT_EQ(shownText().toStdString(), "a\n");
    reporter->AbortReport();
    reporter->ShowReport(false);
    EXPECT_EQ(host.shown.size(), 1U);
}

} // namespace

} // namespace ledgora::reporter
