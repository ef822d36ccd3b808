#include "components/reporter/PdfOutput.h"

#include "components/reporter/PdfSheets.h"
#include <QFile>
#include <filesystem>
#include <system_error>

namespace ledgora::reporter {

namespace {

QString removed(QFile &part, const QString &reason)
{
    part.close();
    part.remove();
    return reason;
}

} // namespace

QString writePdf(const Pages &pages, const QString &path, const QString &title, const Progress &progress)
{
    if (pages.empty())
        return QStringLiteral("there are no pages to write");
    PdfSheets sheets(title);
    for (int page = 0; page < pages.size(); ++page) {
        if (!progress(page, pages.size(), QStringLiteral("Writing pages")))
            return QString::fromLatin1(cancelledText);
        if (!sheets.add(*pages[page]))
            break;
    }
    const QByteArray pdf = sheets.finish();
    return pdf.isEmpty() ? QStringLiteral("the pages could not be drawn") : writeWhole(pdf, path);
}

QString writeWhole(const QByteArray &content, const QString &path)
{
    QFile part(path + QStringLiteral(".part"));
    part.remove(); // left over from a run that was broken off
    if (!part.open(QIODevice::WriteOnly | QIODevice::NewOnly))
        return part.errorString();
    if (part.write(content) != content.size() || !part.flush() || part.error() != QFileDevice::NoError)
        return removed(part, part.errorString());
    part.close();
    std::error_code fault;
    std::filesystem::rename(part.filesystemFileName(), QFile(path).filesystemFileName(), fault);
    if (fault)
        return removed(part, QString::fromStdString(fault.message()));
    return {};
}

} // namespace ledgora::reporter
