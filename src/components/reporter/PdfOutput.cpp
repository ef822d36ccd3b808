#include "components/reporter/PdfOutput.h"

#include "components/reporter/Paint.h"
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

bool drawPages(QIODevice &device, const PageList &pages, const QString &title)
{
    QPdfWriter writer(&device);
    writer.setResolution(twipsPerInch); // one unit of the device is one twip
    writer.setTitle(title);
    writer.setCreator(QStringLiteral("Ledgora"));
    writer.setPageMargins(QMarginsF());
    writer.setPageSize(paperOf(pages.front()));
    QPainter painter;
    if (!painter.begin(&writer))
        return false;
    for (std::size_t i = 0; i < pages.size(); ++i) {
        if (i > 0) {
            writer.setPageSize(paperOf(pages[i]));
            if (!writer.newPage())
                return false;
        }
        paintPage(painter, pages[i]);
    }
    return painter.end();
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
    if (!drawPages(part, pages, title))
        return removed(part, QStringLiteral("the pages could not be drawn"));
    // The writer does not tell of a full disk; the file does.
    if (!part.flush() || part.error() != QFileDevice::NoError)
        return removed(part, part.errorString());
    part.close();
    std::error_code fault;
    std::filesystem::rename(part.filesystemFileName(), QFile(path).filesystemFileName(), fault);
    if (fault)
        return removed(part, QString::fromStdString(fault.message()));
    return {};
}

} // namespace ledgora::reporter
