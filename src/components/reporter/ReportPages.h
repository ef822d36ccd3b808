#pragma once

#include "components/reporter/PageList.h"
#include "components/reporter/ReportPager.h"
#include <QCache>

namespace ledgora::reporter {

/// The pages of a text report. Where they begin is found at once, in one pass over the rows; a page is made when it is
/// asked for, and the last few are kept. The rows are shared and must not change any more.
class ReportPages final : public PageSource
{
public:
    explicit ReportPages(std::shared_ptr<const ReportRows> rows);

    int count() const override { return static_cast<int>(m_places.size()); }
    QSizeF paper(int) const override { return m_pager.paper().size; }
    std::shared_ptr<const Page> page(int page) const override;
    bool mayHold(int page, const QStringList &words) const override;

private:
    Page made(int page) const;
    QString textOf(int page) const;

    std::shared_ptr<const ReportRows> m_rows;
    QString m_title;
    mutable ReportPager m_pager; ///< it remembers fonts
    std::vector<ReportPlace> m_places;
    mutable QCache<int, std::shared_ptr<const Page>> m_made;
};

/// What a report is called: its second line, the first being the company's name, or the first when there is no other.
QString titleOf(const ReportRows &rows);

} // namespace ledgora::reporter
