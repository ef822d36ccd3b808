#pragma once

#include "components/reporter/PdfSheets.h"
#include "platform/Reporter.h"
#include <memory>

namespace ledgora::reporter {

/// Many documents, each in a PDF file of its own. Most of the time that one file takes goes into its fonts; so the
/// documents are painted by the hundred into one file, which is then split. Each file holds only what its pages use.
class PdfRun
{
public:
    /// The document's file is made with its batch, at the latest by `finish`. True when a batch was made just now.
    bool add(const PageList &pages, const QString &path, const QString &title);
    /// Makes the files that are still due.
    void finish();
    /// All files of the run that could not be made, in the order in which they were added.
    const std::vector<PdfFault> &faults() const { return m_faults; }

private:
    struct Due
    {
        QString path;
        QString title;
        int firstPage;
        int pages;
    };

    std::unique_ptr<PdfSheets> m_sheets;
    std::vector<Due> m_due;
    std::vector<PdfFault> m_faults;
};

} // namespace ledgora::reporter
