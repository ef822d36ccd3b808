#include "masters/OfficeAddresses.h"

#include "masters/AddressColumns.h"
#include "masters/CodeRows.h"
#include "store/Cells.h"
#include "store/Connection.h"
#include "store/ErrorLog.h"
#include <vector>

namespace ledgora {

namespace {

int workColumn(const Cells &grid, OfficeWorkColumn column)
{
    return grid.columns() - OfficeWorkColumnCount + column;
}

/// Clients whose latest assessment year names the residence keep it.
void keepResidences(Connection &db, Cells &grid, CodeRows &clients)
{
    Recordset years = db.Open(
        QStringLiteral("Select * From new_Tab Where code_no Not Like '%^%' Order by code_no ASC, ass_year DESC"));
    const int code = years.column(QStringLiteral("code_no"));
    const int office = years.column(QStringLiteral("AddO"));
    const int mark = workColumn(grid, OfficeMark);
    const int kind = workColumn(grid, OfficeKind);
    // Codes that differ only in case come mixed by year, so that a change of code does not show a first row.
    std::vector<bool> seen(size_t(grid.rows()));
    while (years.next()) {
        const int first = clients.find(years.text(code));
        if (first < 0 || seen[size_t(first)])
            continue;
        seen[size_t(first)] = true;
        if (years.integer(office) != 0)
            continue;
        clients.forEach(years.text(code), [&](int row) {
            if (!grid.text(row, mark).isEmpty())
                grid.setText(row, kind, QStringLiteral("R"));
        });
    }
}

bool takesOffice(int addrOpt, const QString &address, const QString &officeAddress)
{
    switch (addrOpt) {
    case OfficeAddress:
    case CommunicationAddress:
        return true;
    case ResidentialElseOffice:
        return address.isEmpty();
    case OfficeElseResidential:
        return !officeAddress.isEmpty();
    default:
        return false;
    }
}

} // namespace

void CHECKANDFILLOFFCOMMADDRVS(Connection &db, Cells &grid, int firstRow, int codeColumn, int addressColumn,
                               int addrOpt, bool showOffName, int stateColumn)
{
    const ErrorSite site("MODGST", "CHECKANDFILLOFFCOMMADDRVS");
    grid.sort(codeColumn, Cells::Sort::Text);
    if (addrOpt == ResidentialAddress)
        return;
    CodeRows clients(grid, codeColumn);
    if (addrOpt == CommunicationAddress)
        keepResidences(db, grid, clients);
    const int kind = workColumn(grid, OfficeKind);
    const QString mayTakeOffice = QStringLiteral("O");
    if (grid.find(mayTakeOffice, kind, firstRow) < 0)
        return;
    Recordset offices = db.Open(QStringLiteral("Select * From off_info ORDER BY code_no"));
    QStringList parts{"h_no", "h_nm", "street", "area", "city", "State", "PIN"};
    if (showOffName)
        parts.prepend(QStringLiteral("Nm"));
    const AddressColumns address(offices, parts);
    const int code = offices.column(QStringLiteral("code_no"));
    const int state = offices.column(QStringLiteral("State"));
    while (offices.next()) {
        clients.forEach(offices.text(code), [&](int row) {
            if (row < firstRow || grid.text(row, kind) != mayTakeOffice)
                return;
            const QString line = address.line(offices);
            if (!takesOffice(addrOpt, grid.text(row, addressColumn), line))
                return;
            grid.setText(row, addressColumn, line);
            if (stateColumn >= 0)
                grid.setText(row, stateColumn, offices.text(state));
        });
    }
}

} // namespace ledgora
