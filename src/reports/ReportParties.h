#pragma once

#include "reports/ReportRequest.h"
#include <QHash>

namespace ledgora {

class Connection;

/// Columns of the party list `vsfc` of the reports. Between code and name stand the list's own: what the party is known
/// by elsewhere in the directory.
enum ReportPartyColumn {
    ListedAddress,
    ListedCode,
    ListedState,
    ListedName = 6,
    ListedPhone,
    ListedFax,
    ListedMobile,
    ListedEmail,
    ListedGstin,
    ListedPan,
    ListedTick, ///< "Y" for a ticked party
    ListedColumnCount
};

Cells emptyReportParties();
/// Fills the list from the party directory, sorted by name, nothing ticked.
void loadReportParties(Connection &db, const QString &hostCode, Cells &parties);
/// The same anew; parties that were ticked are ticked again.
void reloadReportParties(Connection &db, const QString &hostCode, Cells &parties);

/// The codes of the request's parties, quoted and joined by commas, ready for an SQL list.
QString codeList(const ReportRequest &request);

/// Rows of the list that count: ticked and not hidden.
std::vector<int> tickedRows(const Cells &parties);
/// Shows the rows of the codes alone (a list as `GETGROUPCLS` gives it), or all rows for "". The first row shown, -1
/// for none.
int showGroup(Cells &parties, const QString &codes);

/// What a row of a report says of a party.
struct PartyCell
{
    QString text;            ///< name and details, with line breaks and bold codes
    bool hasDetails = false; ///< then an empty row keeps it apart from the next
};

/// The cell of a row of the list: the name in the case asked for, then the details asked for that the list has, each on
/// a line. The name is bold when details follow, or when `boldAlone`.
PartyCell partyCell(const ReportRequest &request, int row, bool boldAlone = false);

/// Cells and names by code, which is looked up exactly as it is written; a code that is not listed has none. A cell is
/// put together once. The request must outlive it.
class PartyCells
{
public:
    explicit PartyCells(const ReportRequest &request);
    const PartyCell &of(const QString &code);
    QString name(const QString &code) const;

private:
    const ReportRequest &m_request;
    QHash<QString, int> m_rows;
    QHash<int, PartyCell> m_cells;
    const PartyCell m_none;
};

} // namespace ledgora
