// Files of word processors, and our own templates filled, laid out here and by another program: the same words in the
// same order, and pages that end at the same line.

#include "Sample.h"
#include "components/reporter/Filling.h"
#include "components/reporter/Layout.h"
#include "components/reporter/PdfOutput.h"
#include "components/reporter/RtfReader.h"
#include "components/reporter/RtfWriter.h"
#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QUrl>
#include <algorithm>
#include <cstdlib>

namespace ledgora::reporter {

namespace {

RtfRead readFile(const QString &path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return readRtf(file.readAll());
}

PlaceholderValue valueFor(const QString &placeholder)
{
    static const std::pair<const char *, const char *> texts[] = {
        {"#SN_", "10."}, {"#YR_", "A.Y.\r\n2019-20"}, {"#CRT_", "9%"}, {"#SRT_", "9%"}, {"#IRT_", "18%"}};
    for (const auto &[name, text] : texts) {
        if (placeholder.startsWith(QLatin1String(name)))
            return QString::fromLatin1(text);
    }
    if (placeholder.contains(QLatin1String("AMT")) || placeholder == QLatin1String("#TOTFIGS#"))
        return 118000.0;
    return QStringLiteral("Work of the year");
}

/// A value for every placeholder, whatever the kind of the template.
Document filled(const Document &document)
{
    QStringList names;
    static const QRegularExpression name(QStringLiteral("#[A-Z0-9_]+#"));
    eachParagraph(document.sections.front().blocks, [&names](const Paragraph &paragraph) {
        for (auto found = name.globalMatch(paragraph.text()); found.hasNext();)
            names << found.next().captured();
    });
    names.removeDuplicates();
    Filling filling(document);
    for (const QString &placeholder : std::as_const(names))
        filling.setText(placeholder, valueFor(placeholder));
    return filling.document();
}

/// Words of each page, in the order in which a reader of the file finds them.
std::vector<QStringList> wordsByPage(const QString &pdf)
{
    std::vector<QStringList> pages(1);
    for (const QString &word : pdfWords(pdf, Breaks::Kept)) {
        if (word == QLatin1String("\f"))
            pages.emplace_back();
        else if (word != QString::fromUtf8("₹")) // from another font, which the other program draws behind its line
            pages.back() << QString(word).replace(QChar(0x2011), u'-'); // the other program writes a plain hyphen
    }
    pages.pop_back(); // behind the last page's form feed
    return pages;
}

constexpr int wordsOfALine = 25;

void expectTheSamePages(const std::string &name, const std::vector<QStringList> &ours,
                        const std::vector<QStringList> &theirs)
{
    ASSERT_EQ(ours.size(), theirs.size()) << name;
    QStringList all[2];
    for (std::size_t page = 0; page < ours.size(); ++page) {
        all[0] += ours[page];
        all[1] += theirs[page];
        EXPECT_LE(std::abs(all[0].size() - all[1].size()), wordsOfALine) << name << ", end of page " << page + 1;
    }
    const auto [here, there] = std::mismatch(all[0].cbegin(), all[0].cend(), all[1].cbegin(), all[1].cend());
    const auto around = [](const QStringList &words, qsizetype at) {
        return words.mid(std::max<qsizetype>(0, at - 3), 8).join(u' ').toStdString();
    };
    EXPECT_TRUE(all[0] == all[1]) << name << ": here \"" << around(all[0], here - all[0].cbegin()) << "\", there \""
                                  << around(all[1], there - all[1].cbegin()) << '"';
}

TEST(ForeignFiles, AndFilledTemplatesHaveTheWordsAndPagesThatAnotherProgramGivesThem)
{
    const QString office = QStandardPaths::findExecutable(QStringLiteral("soffice"));
    ASSERT_FALSE(office.isEmpty()) << "the word processor that checks our pages is not installed (packages.txt)";
    const QTemporaryDir folder;
    QStringList files;
    const QDir foreign(QStringLiteral(LEDGORA_FOREIGN));
    for (const QString &name : foreign.entryList({QStringLiteral("*.rtf")}))
        files << foreign.filePath(name);
    ASSERT_GE(files.size(), 10);
    const QDir templates(QStringLiteral(LEDGORA_TEMPLATES));
    for (const QString &name : templates.entryList({QStringLiteral("*.doc")})) {
        files << folder.filePath(QFileInfo(name).completeBaseName() + QStringLiteral(".rtf"));
        QFile file(files.back());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(writeRtf(filled(readFile(templates.filePath(name)).document)));
    }
    QStringList arguments = {QStringLiteral("-env:UserInstallation=")
                                 + QUrl::fromLocalFile(folder.filePath(QStringLiteral("profile"))).toString(),
                             QStringLiteral("--headless"),
                             QStringLiteral("--convert-to"),
                             QStringLiteral("pdf"),
                             QStringLiteral("--outdir"),
                             folder.filePath(QStringLiteral("theirs"))};
    ASSERT_EQ(QProcess::execute(office, arguments + files), 0);
    for (const QString &path : std::as_const(files)) {
        const QString pdf = QFileInfo(path).completeBaseName() + QStringLiteral(".pdf");
        const RtfRead read = readFile(path);
        EXPECT_EQ(read.error.toStdString(), "") << pdf.toStdString();
        ASSERT_EQ(writePdf(layoutDocument(read.document), folder.filePath(pdf), pdf), QString());
        expectTheSamePages(pdf.toStdString(), wordsByPage(folder.filePath(pdf)),
                           wordsByPage(folder.filePath(QStringLiteral("theirs/") + pdf)));
    }
}

TEST(ForeignFiles, LoseNothingWhenTheyAreWrittenAndReadAgain)
{
    const QDir foreign(QStringLiteral(LEDGORA_FOREIGN));
    for (const QString &name : foreign.entryList({QStringLiteral("*.rtf")})) {
        const Document document = readFile(foreign.filePath(name)).document;
        const QByteArray written = writeRtf(document);
        const RtfRead again = readRtf(written);
        EXPECT_EQ(again.error.toStdString(), "") << name.toStdString();
        EXPECT_EQ(writeRtf(again.document), written) << name.toStdString();
        const PageList here = layoutDocument(document);
        const PageList there = layoutDocument(again.document);
        ASSERT_EQ(here.size(), there.size()) << name.toStdString();
        for (std::size_t page = 0; page < here.size(); ++page)
            EXPECT_EQ(textOf(here[page]), textOf(there[page])) << name.toStdString() << ", page " << page + 1;
    }
}

} // namespace

} // namespace ledgora::reporter
