#include "masters/CodeRows.h"

#include "store/Cells.h"
#include <algorithm>

namespace ledgora {

bool CodeRows::holds(int row, const QString &code) const
{
    return row < m_list.rows() && m_list.text(row, m_column) == code;
}

int CodeRows::find(const QString &code)
{
    constexpr int rowsAhead = 8;
    const int start = std::max(m_last, m_list.fixedRows());
    for (int row = start; row <= start + rowsAhead; ++row) {
        if (holds(row, code))
            return m_last = row;
    }
    if (m_index.isEmpty())
        makeIndex();
    const int row = m_index.value(code, -1);
    if (row >= 0)
        m_last = row;
    return row;
}

void CodeRows::makeIndex()
{
    m_index.reserve(m_list.rows());
    for (int row = m_list.rows() - 1; row >= m_list.fixedRows(); --row) // of equal codes the first stays
        m_index.insert(m_list.text(row, m_column), row);
}

} // namespace ledgora
