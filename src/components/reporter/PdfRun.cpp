#include "components/reporter/PdfRun.h"

#include "components/reporter/PdfFile.h"
#include "components/reporter/PdfOutput.h"
#include "components/reporter/PdfSheets.h"
#include <utility>

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

QByteArray painted(const std::vector<PdfRun::Due> &batch)
{
    PdfSheets sheets{QString()};
    for (const PdfRun::Due &due : batch)
        for (const Page &page : due.pages)
            if (!sheets.add(page))
                return {};
    return sheets.finish();
}

/// Runs aside: it owns its pages, and nothing that it touches is drawn on elsewhere.
std::vector<PdfFault> made(const std::vector<PdfRun::Due> &batch)
{
    std::vector<PdfFault> faults;
    const QByteArray pdf = painted(batch);
    const PdfFile whole(pdf);
    int first = 0;
    for (const PdfRun::Due &due : batch) {
        const int count = static_cast<int>(due.pages.size());
        const QByteArray file = cutOut(whole, std::exchange(first, first + count), count, due.title);
        const QString fault =
            file.isEmpty() ? QStringLiteral("the pages could not be drawn") : writeWhole(file, due.path);
        if (!fault.isEmpty())
            faults.push_back({due.path, fault});
    }
    return faults;
}

} // namespace

PdfRun::~PdfRun()
{
    if (m_making.valid())
        m_making.wait();
}

void PdfRun::add(PageList pages, const QString &path, const QString &title)
{
    m_pages += static_cast<int>(pages.size());
    m_due.push_back({std::move(pages), path, title});
    if (m_pages >= pagesPerBatch)
        start();
}

void PdfRun::finish()
{
    if (!m_due.empty())
        start();
    await();
}

void PdfRun::start()
{
    await();
    m_pages = 0;
    m_making = std::async(std::launch::async | std::launch::deferred,
                          [batch = std::exchange(m_due, {})] { return made(batch); });
}

void PdfRun::await()
{
    if (!m_making.valid())
        return;
    const std::vector<PdfFault> more = m_making.get();
    m_faults.insert(m_faults.end(), more.begin(), more.end());
}

} // namespace ledgora::reporter
