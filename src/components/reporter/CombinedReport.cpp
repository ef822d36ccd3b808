#include "components/reporter/CombinedReport.h"

#include <algorithm>
#include <iterator>

namespace ledgora::reporter {

namespace {

void append(std::vector<Block> &blocks, std::vector<Block> more)
{
    std::move(more.begin(), more.end(), std::back_inserter(blocks));
}

bool hasMarginTexts(const Section &section)
{
    return std::any_of(section.margins.begin(), section.margins.end(),
                       [](const std::vector<Block> &text) { return !text.empty(); });
}

} // namespace

namespace {

/// "Page 2 of 3" goes on to speak of the one document, whatever stands before and behind it.
void countPagesAlone(Document &document)
{
    document.sections.front().page.restartsPages = true;
    everyParagraph(document, [](Paragraph &paragraph) {
        for (Run &run : paragraph.runs) {
            if (run.field == Field::PageCount)
                run.field = Field::SectionPages;
        }
    });
}

} // namespace

void CombinedReport::putBeforeNext(const QString &text, int fontSize)
{
    Paragraph paragraph;
    paragraph.endFormat.halfPoints = std::clamp(2 * fontSize, 1, 3276);
    QString line;
    const auto endParagraph = [&] {
        if (!line.isEmpty())
            paragraph.runs = {Run{line, paragraph.endFormat}};
        m_before.push_back({paragraph});
        paragraph.runs.clear();
        paragraph.format.pageBreakBefore = false;
        line.clear();
    };
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        if (c == u'\f') {
            if (!line.isEmpty())
                endParagraph();
            paragraph.format.pageBreakBefore = true;
        } else if (c == u'\r' || c == u'\n') {
            if (c == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n')
                ++i;
            endParagraph();
        } else if (c == u'\t' || c.category() != QChar::Other_Control) {
            line += c;
        }
    }
    if (!line.isEmpty() || paragraph.format.pageBreakBefore)
        endParagraph();
}

void CombinedReport::append(Document document, const QString &name)
{
    auto &sections = m_document.sections;
    std::size_t next = 0;
    Section &first = document.sections.front();
    const bool ownSection = hasMarginTexts(first) || hasMarginTexts(sections.back());
    const PageSetup own = first.page;
    for (Section &section : document.sections)
        if (m_page && section.page == own)
            section.page = *m_page; // a page that its document turns on purpose stays as it is
    if (ownSection)
        countPagesAlone(document);
    first.blocks.insert(first.blocks.begin(), std::make_move_iterator(m_before.begin()),
                        std::make_move_iterator(m_before.end()));
    m_before.clear();
    if (m_count == 0)
        sections.clear();
    else if (!ownSection && sections.back().page == first.page)
        reporter::append(sections.back().blocks, std::move(document.sections[next++].blocks));
    for (; next < document.sections.size(); ++next)
        sections.push_back(std::move(document.sections[next]));
    if (m_count++ == 0)
        m_firstName = name;
}

QString CombinedReport::name() const
{
    return m_count > 1 ? QStringLiteral("%1 and %2 more").arg(m_firstName).arg(m_count - 1) : m_firstName;
}

} // namespace ledgora::reporter
