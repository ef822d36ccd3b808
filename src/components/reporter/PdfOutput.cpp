#include "components/reporter/PdfOutput.h"

#include "components/reporter/PdfSheets.h"
#include "reports/ReportFile.h"

namespace ledgora::reporter {

QString writePdf(const Pages &pages, const QString &path, const QString &title, const Progress &progress)
{
    if (pages.empty())
        return QStringLiteral("there are no pages to write");
    if (QString fault = reportPlaceFault(path); !fault.isEmpty())
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
    return saveReportFile(path, [&content](QIODevice &out) { return out.write(content) == content.size(); });
}

} // namespace ledgora::reporter
