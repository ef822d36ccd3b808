#include "components/reporter/Filling.h"
#include "components/reporter/Layout.h"
#include "components/reporter/PdfOutput.h"
#include "components/reporter/RtfReader.h"
#include "components/reporter/RtfWriter.h"

#include "Sample.h"
#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QUrl>
#include <algorithm>
#include <functional>
#include <set>

namespace ledgora::reporter {

namespace {

const QStringList kinds = {QStringLiteral("Intra"), QStringLiteral("Inter"), QStringLiteral("NoTax")};

QString templatePath(const QString &kind, int copies = 1)
{
    return QStringLiteral(LEDGORA_TEMPLATES "/GST_%1_Bill%2.doc").arg(kind, QLatin1String(copies == 2 ? "_2Copy" : ""));
}

RtfRead readFile(const QString &path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return readRtf(file.readAll());
}

PageList filledPages(const QString &kind, int lines)
{
    Filling filling(readFile(templatePath(kind)).document);
    for (const auto &[placeholder, value] : billValues(kind, lines))
        filling.setText(placeholder, value);
    return layoutDocument(filling.document());
}

QStringList wordsOf(const PageList &pages)
{
    QString all;
    for (const Page &page : pages)
        all += textOf(page);
    return all.split(QRegularExpression(QStringLiteral("\\s+")), Qt::SkipEmptyParts);
}

const TextPiece *find(const PageList &pages, const QString &text)
{
    for (const Page &page : pages)
        for (const TextPiece &piece : page.drawing.texts)
            if (piece.text == text)
                return &piece;
    return nullptr;
}

TEST(BillTemplates, HoldThePlaceholdersOfTheirKindAndNoOther)
{
    for (const QString &kind : kinds) {
        const RtfRead read = readFile(templatePath(kind));
        EXPECT_EQ(read.error.toStdString(), "");
        std::set<QString> held;
        eachParagraph(read.document.sections.front().blocks, [&held](const Paragraph &paragraph) {
            static const QRegularExpression name(QStringLiteral("#[A-Z0-9_]+#"));
            for (auto found = name.globalMatch(paragraph.text()); found.hasNext();)
                held.insert(found.next().captured());
        });
        std::set<QString> filled;
        for (const auto &[placeholder, value] : billValues(kind, 10))
            filled.insert(placeholder);
        EXPECT_EQ(held, filled) << kind.toStdString();
    }
}

TEST(BillTemplates, AFilledBillIsOnePageWithEveryValueOnIt)
{
    for (const QString &kind : kinds) {
        const PageList pages = filledPages(kind, 10);
        EXPECT_EQ(pages.size(), 1U) << kind.toStdString();
        const QString words = wordsOf(pages).join(QLatin1Char(' '));
        EXPECT_FALSE(words.contains(QStringLiteral("#P"))) << words.toStdString();
        for (const char *text : {"firm name", "10. Work 10 SAC : 998221 A.Y. 2019-20 1010.5", "Total 123456789",
                                 "₹ 987654321", "note", "payterms banknm bradd", "reverse charge: No"})
            EXPECT_TRUE(words.contains(QString::fromUtf8(text))) << kind.toStdString() << ": " << text << "\n"
                                                                 << words.toStdString();
        EXPECT_TRUE(words.contains(kind == QStringLiteral("NoTax") ? QStringLiteral("BILL OF SUPPLY")
                                                                   : QStringLiteral("TAX INVOICE")));
    }
}

/// The words of each page of a bill whose values `change` has changed.
QStringList pagesWith(const QString &kind, int copies,
                      const std::function<void(const QString &, PlaceholderValue &)> &change)
{
    Filling filling(readFile(templatePath(kind, copies)).document);
    for (auto [placeholder, value] : billValues(kind, 10)) {
        change(placeholder, value);
        filling.setText(placeholder, value);
    }
    QStringList words;
    for (const Page &page : layoutDocument(filling.document()))
        words << wordsOf({page}).join(u' ');
    return words;
}

TEST(BillTemplates, FurtherPagesNameTheBillInEachCopy)
{
    for (const QString &kind : kinds) {
        for (const int copies : {1, 2}) {
            const QStringList pages = pagesWith(kind, copies, [](const QString &placeholder, PlaceholderValue &value) {
                if (placeholder.startsWith(u"#PARTICULARS"))
                    value = QStringLiteral("Representation before the Tribunal ").repeated(15);
            });
            ASSERT_GE(pages.size(), 2);
            const QString title = kind == u"NoTax" ? QStringLiteral("BILL OF SUPPLY") : QStringLiteral("TAX INVOICE");
            EXPECT_FALSE(pages[0].contains("page ")) << pages[0].toStdString();
            for (qsizetype page = 1; page < pages.size(); ++page) {
                const QString head =
                    "firm name " + title
                    + QStringLiteral(" bill no of bill dt, page %1 of %2").arg(page + 1).arg(pages.size());
                EXPECT_EQ(pages[page].count(head), copies) << pages[page].toStdString();
                EXPECT_TRUE(pages[page].startsWith(head));
            }
        }
    }
}

TEST(BillTemplates, ALabelWithoutItsValueIsNotPrinted)
{
    const QStringList labels{"GSTIN", "PAN", "Place of supply", "In favour of", "Bank", "Account no.", "IFSC"};
    for (const bool hasValues : {true, false}) {
        const QStringList pages = pagesWith("Intra", 1, [&](const QString &placeholder, PlaceholderValue &value) {
            static const QRegularExpression optional("GSTIN|PAN|PLACE|PAYTERMS|NOTE");
            if (!hasValues && placeholder.contains(optional))
                value = QString();
        });
        ASSERT_EQ(pages.size(), 1);
        for (const QString &label : labels)
            EXPECT_EQ(pages[0].contains(label), hasValues) << label.toStdString();
        EXPECT_FALSE(pages[0].contains("optional"));
    }
}

TEST(BillTemplates, RowsLeftOverTakeNoRoom)
{
    const auto linesHeight = [](int lines) {
        const PageList pages = filledPages(QStringLiteral("Intra"), lines);
        const TextPiece *first = find(pages, QStringLiteral("1."));
        const TextPiece *total = find(pages, QStringLiteral("123456789"));
        EXPECT_TRUE(first && total);
        return first && total ? total->baseline.y() - first->baseline.y() : 0;
    };
    const qreal nine = linesHeight(10) - linesHeight(1); // what nine filled lines of two rows of text each take more
    EXPECT_GT(nine, 9 * 300);
    EXPECT_LT(linesHeight(1), 1400); // one line, nine empty ones and the way to the total row: about an inch
}

TEST(BillTemplates, AmountsStandUnderOneAnother)
{
    const PageList pages = filledPages(QStringLiteral("Inter"), 3);
    std::vector<qreal> edges;
    for (const TextPiece &piece : pages[0].drawing.texts)
        if (piece.text == QStringLiteral("1001.5") || piece.text == QStringLiteral("1003.5"))
            edges.push_back(piece.baseline.x() + piece.width);
    ASSERT_EQ(edges.size(), 10U);
    for (std::size_t column = 0; column < 5; ++column)
        EXPECT_NEAR(edges[column], edges[column + 5], 1);
}

TEST(BillTemplates, ACutTemplateIsLaidOutAsFarAsItGoes)
{
    QFile file(templatePath(QStringLiteral("NoTax")));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray whole = file.readAll();
    for (qsizetype length = 500; length < whole.size(); length += 397)
        EXPECT_GE(layoutDocument(readRtf(QByteArrayView(whole).first(length)).document).size(), 1U);
}

/// Another word processor reads the template, and what we write of it, and saves it in its own way; the page must say
/// the same.
TEST(BillTemplates, AreReadTheSameAfterAnotherProgramSavedThem)
{
    const QString office = QStandardPaths::findExecutable(QStringLiteral("soffice"));
    ASSERT_FALSE(office.isEmpty()) << "the word processor that checks our reading is not installed (packages.txt)";
    const QTemporaryDir folder;
    QStringList arguments = {QStringLiteral("-env:UserInstallation=")
                                 + QUrl::fromLocalFile(folder.filePath(QStringLiteral("profile"))).toString(),
                             QStringLiteral("--headless"),
                             QStringLiteral("--convert-to"),
                             QStringLiteral("rtf"),
                             QStringLiteral("--outdir"),
                             folder.path()};
    for (const QString &kind : kinds) {
        QFile written(folder.filePath(kind + QStringLiteral(".doc")));
        ASSERT_TRUE(written.open(QIODevice::WriteOnly));
        written.write(writeRtf(readFile(templatePath(kind)).document));
        arguments += QStringList{templatePath(kind), written.fileName()};
    }
    ASSERT_EQ(QProcess::execute(office, arguments), 0);
    for (const QString &kind : kinds) {
        const QString here = wordsOf(layoutDocument(readFile(templatePath(kind)).document)).join(QString());
        for (const char *name : {"GST_%1_Bill.rtf", "%1.rtf"}) {
            const RtfRead saved = readFile(folder.filePath(QString::fromLatin1(name).arg(kind)));
            EXPECT_EQ(saved.error.toStdString(), "");
            const QString there = wordsOf(layoutDocument(saved.document)).join(QString());
            EXPECT_EQ(here.toStdString(), there.toStdString()) << kind.toStdString() << name;
        }
    }
}

TEST(PdfOutput, SaysTheWordsOfThePages)
{
    const QTemporaryDir folder;
    for (const QString &kind : kinds) {
        const PageList pages = filledPages(kind, 10);
        const QString path = folder.filePath(kind);
        ASSERT_EQ(writePdf(pages, path, kind).toStdString(), "");
        QStringList expected = wordsOf(pages);
        QStringList found = pdfWords(path);
        std::sort(expected.begin(), expected.end());
        std::sort(found.begin(), found.end());
        EXPECT_EQ(found.join(QLatin1Char(' ')).toStdString(), expected.join(QLatin1Char(' ')).toStdString());
    }
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files).size(), 3) << "nothing but the files stays behind";
}

TEST(PdfOutput, AFileThatCanNotBeWrittenIsTold)
{
    const QTemporaryDir folder;
    const PageList pages = filledPages(QStringLiteral("NoTax"), 1);
    EXPECT_NE(writePdf(pages, folder.filePath(QStringLiteral("missing/a.pdf")), QString()), QString());
    EXPECT_NE(writePdf({}, folder.filePath(QStringLiteral("b.pdf")), QString()), QString());
    ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("c.pdf")));
    EXPECT_NE(writePdf(pages, folder.filePath(QStringLiteral("c.pdf")), QString()), QString());
    EXPECT_TRUE(QDir(folder.path()).entryList(QDir::Files).isEmpty());
}

TEST(PdfOutput, ReplacesAFormerFileAndALeftOver)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.pdf"));
    for (const QString &name : {path, QString(path + QStringLiteral(".part"))}) {
        QFile former(name);
        ASSERT_TRUE(former.open(QIODevice::WriteOnly));
        former.write("former");
    }
    EXPECT_EQ(writePdf(filledPages(QStringLiteral("NoTax"), 1), path, QString()), QString());
    EXPECT_TRUE(pdfWords(path).contains(QStringLiteral("SUPPLY")));
    EXPECT_FALSE(QFile::exists(path + QStringLiteral(".part")));
}

/// Shaped text, in which signs change their order and join, is found again as it was typed, beside plain text.
TEST(PdfOutput, IndianScriptsAreReadBackAsTyped)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.pdf"));
    const QString text = QString::fromUtf8("M/s हिन्दी क्षत्रिय शर्मा | தமிழ் நிறுவனம் | গ্রন্থাগার | ગ્રાહક ₹ 500");
    const QByteArray rtf = "{\\rtf1{\\fonttbl{\\f0 Liberation Sans;}}\\f0 #A#\\par plain (words)\\par\\page #A#\\par}";
    Filling filling(readRtf(rtf).document);
    filling.setText(QStringLiteral("#A#"), text);
    ASSERT_EQ(writePdf(layoutDocument(filling.document()), path, QString()), QString());
    const QString expected = text + QStringLiteral(" plain (words) ") + text;
    EXPECT_EQ(pdfWords(path).join(QLatin1Char(' ')).toStdString(), expected.toStdString());
}

struct HostileCase
{
    const char *name;
    QString value;
    QString shown;
};

TEST(PdfOutput, HostileValuesAreShownAsTheyStand)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.pdf"));
    for (const HostileCase &c :
         {HostileCase{"markup", QStringLiteral("{\\b}\\bin9\\par"), QStringLiteral("{\\b}\\bin9\\par")},
          HostileCase{"controls", QStringLiteral("a\x01\x1b\x07z"), QStringLiteral("az")},
          HostileCase{"lone surrogate", QString(QStringLiteral("a") + QChar(0xD800)), QStringLiteral("a")},
          HostileCase{"a sign in no font", QString::fromUtf8("a\U0010FFF0z"), QStringLiteral("a")},
          HostileCase{"pdf text", QStringLiteral("(a)Tj<</A>>"), QStringLiteral("(a)Tj<</A>>")},
          HostileCase{"placeholder of nothing", QStringLiteral("#NONE#"), QStringLiteral("#NONE#")}}) {
        Filling filling(readRtf(R"({\rtf1{\fonttbl{\f0 Liberation Sans;}}\f0 #A#\par})").document);
        filling.setText(QStringLiteral("#A#"), c.value);
        ASSERT_EQ(writePdf(layoutDocument(filling.document()), path, QString()), QString()) << c.name;
        EXPECT_TRUE(pdfWords(path).join(QString()).startsWith(c.shown))
            << c.name << pdfWords(path).join(u' ').toStdString();
    }
}

} // namespace

} // namespace ledgora::reporter
