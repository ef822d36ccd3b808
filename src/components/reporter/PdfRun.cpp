#include "components/reporter/PdfRun.h"

#include "components/reporter/PdfFile.h"
#include "components/reporter/PdfOutput.h"

namespace ledgora::reporter {

namespace {

constexpr int pagesPerBatch = 100;

QByteArray cutOut(const PdfFile &batch, int first, int count, const QString &title)
{
    PdfFile file;
    file.takePages(batch, first, count);
    file.setInfo("/Title", title);
    file.setInfo("/Creator", QStringLiteral("Ledgora"));
    return file.whole();
}

} // namespace

bool PdfRun::add(const PageList &pages, const QString &path, const QString &title)
{
    if (!m_sheets)
        m_sheets = std::make_unique<PdfSheets>(QString());
    m_due.push_back({path, title, m_sheets->count(), static_cast<int>(pages.size())});
    for (const Page &page : pages)
        if (!m_sheets->add(page))
            break;
    if (m_sheets->count() < pagesPerBatch)
        return false;
    finish();
    return true;
}

void PdfRun::finish()
{
    if (!m_sheets)
        return;
    const QByteArray pdf = m_sheets->finish();
    const PdfFile batch(pdf);
    for (const Due &due : m_due) {
        const QByteArray file = cutOut(batch, due.firstPage, due.pages, due.title);
        const QString fault =
            file.isEmpty() ? QStringLiteral("the pages could not be drawn") : writeWhole(file, due.path);
        if (!fault.isEmpty())
            m_faults.push_back({due.path, fault});
    }
    m_due.clear();
    m_sheets.reset();
}

} // namespace ledgora::reporter
