#pragma once

#include "components/reporter/Document.h"

namespace ledgora::reporter {

/// A report put together from many documents, one behind the other, on the page that was set for it. A document that
/// has headers or footers, which may speak of that document alone, gets a section of its own, with its own page
/// numbers.
class CombinedReport
{
public:
    /// Paper, margins and the like of all that is appended from now on.
    void setPage(const PageSetup &page) { m_page = page; }
    /// Text that goes before the next document, at a size in points. A form feed begins a page; a line end closes the
    /// paragraph.
    void putBeforeNext(const QString &text, int fontSize);
    void append(Document document, const QString &name);

    const Document &document() const { return m_document; }
    int count() const { return m_count; }
    /// The name of the first document and how many stand behind it.
    QString name() const;

private:
    std::optional<PageSetup> m_page;
    std::vector<Block> m_before;
    Document m_document;
    QString m_firstName;
    int m_count = 0;
};

} // namespace ledgora::reporter
