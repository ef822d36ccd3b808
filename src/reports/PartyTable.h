#pragma once

#include "platform/Progress.h"
#include "reports/ReportFrame.h"
#include "store/Recordset.h"

namespace ledgora {

class Connection;
class PartyCells;

/// The pair of temporary tables in which a report is summed by party: a detail table that takes one row a document, and
/// a summary with one row a party. They are ordinary tables of the database, under names that support people know, and
/// live for one run: emptied when they are made, in case a run before stopped midway, and dropped with the object.
/// Every statement on them is followed by "Flush Tables".
class PartyTable
{
public:
    /// `name` of the detail table, the summary's has a "1" behind; names of the amounts, all doubles.
    PartyTable(Connection &db, const char *name, std::vector<const char *> amounts, const PartyCells &parties);
    PartyTable(const PartyTable &) = delete;
    PartyTable &operator=(const PartyTable &) = delete;
    ~PartyTable();

    /// Takes a document's row. Rows go to the server in statements of up to a megabyte.
    void add(const QString &code, std::span<const double> amounts);
    /// Makes the summary of what was added, and reads it: `Code`, `Nm` and the amounts, by name. `condition` on its
    /// columns, "" for none.
    Recordset summary(const QString &condition = {});

private:
    void execute(const QString &sql);
    void drop(const QString &table);
    void sendRows();
    QString columns(int nameWidth) const;

    Connection &m_db;
    const QString m_name;
    const std::vector<const char *> m_amounts;
    const PartyCells &m_parties;
    QString m_rows;
};

/// Writes the table of a party report from a summary: a row a party, signed amounts, and the total.
void writeParties(ReportWriter &writer, std::span<const ReportColumn> columns, Recordset summary, PartyCells &parties,
                  const Progress &progress);

} // namespace ledgora
