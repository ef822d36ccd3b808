#include "components/reporter/PdfOutput.h"

#include "components/reporter/Paint.h"
#include "components/reporter/PdfText.h"
#include <QBuffer>
#include <QFile>
#include <QMarginsF>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <filesystem>
#include <system_error>

namespace ledgora::reporter {

namespace {

constexpr int twipsPerInch = 1440;
constexpr qreal twipsPerPoint = 20;

QPageSize paperOf(const Page &page)
{
    return QPageSize(page.size / twipsPerPoint, QPageSize::Point, QString(), QPageSize::FuzzyMatch);
}

/// Draws the page and notes the texts that had to be marked.
void drawPage(QPainter &painter, const Page &page, std::vector<QString> &marked)
{
    paintGround(painter, page);
    for (const TextPiece &piece : page.drawing.texts) {
        const bool mark = needsCharacters(piece.text);
        if (mark) {
            beginCharacters(painter, static_cast<int>(marked.size()));
            marked.push_back(piece.text);
        }
        paintText(painter, piece);
        if (mark)
            endCharacters(painter);
    }
}

/// The pages as a PDF file in memory; empty when they can not be drawn.
QByteArray drawn(const PageList &pages, const QString &title)
{
    QByteArray pdf;
    QBuffer buffer(&pdf);
    buffer.open(QIODevice::WriteOnly);
    std::vector<QString> marked;
    QPdfWriter writer(&buffer);
    writer.setResolution(twipsPerInch); // one unit of the device is one twip
    writer.setTitle(title);
    writer.setCreator(QStringLiteral("Ledgora"));
    writer.setPageMargins(QMarginsF());
    writer.setPageSize(paperOf(pages.front()));
    QPainter painter;
    if (!painter.begin(&writer))
        return {};
    for (std::size_t i = 0; i < pages.size(); ++i) {
        if (i > 0) {
            writer.setPageSize(paperOf(pages[i]));
            if (!writer.newPage())
                return {};
        }
        drawPage(painter, pages[i], marked);
    }
    if (!painter.end())
        return {};
    return marked.empty() ? pdf : withCharacters(pdf, marked);
}

QString removed(QFile &part, const QString &reason)
{
    part.close();
    part.remove();
    return reason;
}

} // namespace

QString writePdf(const PageList &pages, const QString &path, const QString &title)
{
    if (pages.empty())
        return QStringLiteral("there are no pages to write");
    QFile part(path + QStringLiteral(".part"));
    part.remove(); // left over from a run that was broken off
    if (!part.open(QIODevice::WriteOnly | QIODevice::NewOnly))
        return part.errorString();
    const QByteArray pdf = drawn(pages, title);
    if (pdf.isEmpty())
        return removed(part, QStringLiteral("the pages could not be drawn"));
    if (part.write(pdf) != pdf.size() || !part.flush() || part.error() != QFileDevice::NoError)
        return removed(part, part.errorString());
    part.close();
    std::error_code fault;
    std::filesystem::rename(part.filesystemFileName(), QFile(path).filesystemFileName(), fault);
    if (fault)
        return removed(part, QString::fromStdString(fault.message()));
    return {};
}

} // namespace ledgora::reporter
