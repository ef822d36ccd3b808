#pragma once

#include <QHash>
#include <QString>

namespace ledgora {

class Cells;

/// Finds the rows of many codes in a list, case counting, while rows and codes of the list stand still. Codes that come
/// in the list's own order cost next to nothing, others a look into an index, and those that are not there no more.
class CodeRows
{
public:
    CodeRows(const Cells &list, int column) : m_list(list), m_column(column) {}

    /// A row of the code, -1 for none; the first one where the list is sorted by code.
    int find(const QString &code);

    /// All rows of the code in a list that is sorted by code.
    template<class Use>
    void forEach(const QString &code, Use use)
    {
        const int first = find(code);
        for (int row = first; row >= 0 && holds(row, code); ++row)
            use(row);
    }

private:
    bool holds(int row, const QString &code) const;
    void makeIndex();

    const Cells &m_list;
    int m_column;
    int m_last = -1;
    QHash<QString, int> m_index; ///< made at the first code out of order
};

} // namespace ledgora
