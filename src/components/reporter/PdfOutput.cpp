#include "components/reporter/PdfOutput.h"

#include "components/reporter/PdfSheets.h"
#include <QFile>
#include <filesystem>
#include <system_error>

namespace ledgora::reporter {

namespace {

const QString partSuffix = QStringLiteral(".part");

QString removed(QFile &part, const QString &reason)
{
    part.close();
    part.remove();
    return reason;
}

/// "" or why no file can be made there: better told ahead of thousands of pages than behind them.
QString placeFault(const QString &path)
{
    QFile part(path + partSuffix);
    part.remove(); // left over from a run that was broken off
    return part.open(QIODevice::WriteOnly | QIODevice::NewOnly) ? removed(part, QString()) : part.errorString();
}

} // namespace

QString writePdf(const Pages &pages, const QString &path, const QString &title, const Progress &progress)
{
    if (pages.empty())
        return QStringLiteral("there are no pages to write");
    if (QString fault = placeFault(path); !fault.isEmpty())
        return fault;
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
    QFile part(path + partSuffix);
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
