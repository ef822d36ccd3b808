#pragma once

#include <QStringList>
#include <vector>

namespace ledgora {

class Recordset;

/// One-line address: parts that are not empty joined with ", ", the last one (the postal code) with "-".
QString oneLineAddress(const QStringList &parts);

/// The address fields of a table by position, for loops over many rows. The last one is the postal code; a NULL field
/// counts as empty, and so does a column that the table lacks (logged once).
class AddressColumns
{
public:
    AddressColumns(const Recordset &rows, const QStringList &columns);
    /// One-line address of the present row.
    QString line(const Recordset &rows) const;

private:
    std::vector<int> m_columns;
};

} // namespace ledgora
