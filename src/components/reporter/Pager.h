#pragma once

#include "components/reporter/Slices.h"
#include "components/reporter/TableLayout.h"
#include <QHash>
#include <functional>
#include <variant>

namespace ledgora::reporter {

/// Which section a page shows in its margins, and whether it is that section's first.
struct PageOwner
{
    const Section *section = nullptr;
    bool first = false;
    int number = 1; ///< as its page number field shows it
};

/// How many pages there are, known behind a first laying out.
struct PageTotals
{
    int pages = 1;
    QHash<const Section *, int> ofSections; ///< counted by the section that a page shows in its margins
};

PageNumbers numbersOf(const PageOwner &owner, const PageTotals &totals);

/// Fills page after page, and column after column of them, with slices and tables. The margins' texts only take their
/// room here; they are drawn when all pages are known.
class Pager
{
public:
    explicit Pager(PageTotals totals) : m_totals(std::move(totals)) {}

    /// Asks `goesOn` ahead of each block with its number; False when that ended it.
    bool add(const Section &section, const std::function<bool(std::size_t block)> &goesOn);

    PageList takePages() { return std::move(m_pages); }
    const std::vector<PageOwner> &owners() const { return m_owners; }
    PageTotals totals() const;

private:
    using Laid = std::variant<std::vector<Slice>, TableLayout>;

    PageNumbers numbers() const { return numbersOf(m_owners.back(), m_totals); }
    void begin(const Section &section);
    void newPage();
    void nextColumn();
    void newTablePage(const TableLayout &table);
    Laid lay(const Block &block) const;
    void addChain(const std::vector<Block> &blocks, std::size_t first, std::size_t end);
    void addParagraph(const Paragraph &paragraph, const std::vector<Slice> &slices);
    std::size_t linesThatFit(const Paragraph &paragraph, const std::vector<Slice> &slices, std::size_t first) const;
    void addTable(const TableLayout &table);
    void addRows(const TableLayout &table, std::size_t first, std::size_t end);
    void addSplit(const TableLayout &table, std::size_t row);
    void put(const Drawing &drawing, qreal height);
    qreal rest() const { return m_room.bottom() - m_y; }
    bool isFresh() const { return m_y <= m_room.top(); }
    bool isFirstOfAll() const { return m_pages.size() == 1 && isFresh(); }

    PageTotals m_totals;
    const Section *m_section = nullptr;
    QRectF m_room; ///< the column that is being filled
    qreal m_y = 0;
    int m_column = 0;
    qreal m_bodyTop = 0; ///< where rows begin on this page, below the repeated heading
    PageList m_pages;
    std::vector<PageOwner> m_owners;
};

/// Room for the text of a page of the section, between its header and footer.
QRectF roomOf(const Section &section, bool first);

/// The text in a margin of a section's first or other page; empty when it has none.
const std::vector<Block> &marginText(const Section &section, bool first, bool header);

/// The paper between its margins; all of it where they would leave no room.
QRectF withinMargins(const PageSetup &setup);

} // namespace ledgora::reporter
