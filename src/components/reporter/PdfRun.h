#pragma once

#include "components/reporter/PageList.h"
#include "platform/Reporter.h"
#include <future>
#include <vector>

namespace ledgora::reporter {

/// Many documents, each in a PDF file of its own. Most of the time that one file takes goes into its fonts; so the
/// documents are painted by the hundred into one file, which is then split. Each file holds only what its pages use.
/// One batch is painted and split in a thread of its own while the next is filled and laid out by the caller.
class PdfRun
{
public:
    PdfRun() = default;
    PdfRun(const PdfRun &) = delete;
    PdfRun &operator=(const PdfRun &) = delete;
    ~PdfRun();

    /// The document's file is made with its batch, at the latest by `finish`. No one else may draw these pages.
    void add(PageList pages, const QString &path, const QString &title);
    /// Makes the files that are still due.
    void finish();
    /// The files so far that could not be made, in the order in which they were added.
    const std::vector<PdfFault> &faults() const { return m_faults; }

    struct Due
    {
        PageList pages;
        QString path;
        QString title;
    };

private:
    void start();
    void await();

    std::vector<Due> m_due;
    int m_pages = 0;
    std::future<std::vector<PdfFault>> m_making;
    std::vector<PdfFault> m_faults;
};

} // namespace ledgora::reporter
