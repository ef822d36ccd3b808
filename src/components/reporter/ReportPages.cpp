#include "components/reporter/ReportPages.h"

#include <algorithm>

namespace ledgora::reporter {

namespace {

constexpr int pagesKept = 12;

/// The first lines of the report that say something, at most two.
QStringList headLines(const ReportRows &rows)
{
    constexpr int furthest = 20;
    QStringList lines;
    for (int entry = 0; entry < std::min(rows.size(), furthest) && lines.size() < 2; ++entry) {
        if (rows.kind(entry) != ReportRows::Kind::Row || rows.format(entry).inTable || rows.cells(entry) == 0)
            continue;
        const QString line = shownText(rows.cell(entry, 0)).section(QLatin1Char('\r'), 0, 0).trimmed();
        if (!line.isEmpty())
            lines << line;
    }
    return lines;
}

} // namespace

QString titleOf(const ReportRows &rows)
{
    const QStringList lines = headLines(rows);
    return lines.isEmpty() ? QStringLiteral("Report") : lines.constLast();
}

ReportPages::ReportPages(std::shared_ptr<const ReportRows> rows)
    : m_rows(std::move(rows))
    , m_title(headLines(*m_rows).join(QStringLiteral("  \u00b7  ")))
    , m_pager(*m_rows)
    , m_made(pagesKept)
{
    ReportPlace place;
    do
        m_places.push_back(place);
    while (m_pager.fill(place));
}

std::shared_ptr<const Page> ReportPages::page(int page) const
{
    if (const auto *kept = m_made.object(page))
        return *kept;
    auto drawn = std::make_shared<const Page>(made(page));
    m_made.insert(page, new std::shared_ptr<const Page>(drawn));
    return drawn;
}

Page ReportPages::made(int page) const
{
    ReportCanvas canvas(m_pager.paper());
    ReportPlace place = m_places[page];
    m_pager.fill(place, &canvas);
    canvas.footer(m_title, page + 1, count());
    return canvas.take();
}

/// All words that may stand on the page, a few more where it begins or ends within a row.
QString ReportPages::textOf(int page) const
{
    const ReportPlace &begin = m_places[page];
    const int end = page + 1 < count() ? m_places[page + 1].entry + 1 : m_rows->size();
    QString text = m_title + QStringLiteral(" Page %1 of %2").arg(page + 1).arg(count()) + begin.pending;
    const auto add = [&](int from, int to) {
        for (int entry = from; entry < std::min(to, m_rows->size()); ++entry)
            for (int cell = 0; cell < m_rows->cells(entry); ++cell) {
                text += QLatin1Char(' ');
                text += shownText(m_rows->cell(entry, cell));
            }
    };
    add(begin.titleFrom, begin.titleTo);
    add(begin.headingFrom, begin.headingTo);
    add(begin.entry, end);
    return text;
}

bool ReportPages::mayHold(int page, const QStringList &words) const
{
    const QString text = textOf(page);
    return std::all_of(words.begin(), words.end(),
                       [&text](const QString &word) { return text.contains(word, Qt::CaseInsensitive); });
}

} // namespace ledgora::reporter
