#include "masters/PartyHistory.h"

#include "bills/DocumentList.h"
#include "masters/AddressColumns.h"
#include "masters/CodeRows.h"
#include "store/Connection.h"
#include "store/Dates.h"
#include "store/ErrorLog.h"
#include "store/SqlText.h"

namespace ledgora {

namespace {

/// Runs `use` for the directory row of each change that held by the end of the year, the earliest first. True when
/// there was any.
template<class Use>
bool forEachChange(Recordset &changes, int financialYear, CodeRows &clients, Use use)
{
    const QDate lastDay(financialYear + 1, 3, 31);
    const int day = changes.column(QStringLiteral("chdate"));
    const int code = changes.column(QStringLiteral("Code"));
    bool any = false;
    while (changes.next()) {
        const QDate from = dateFromStore(changes.text(day));
        const int row = clients.find(changes.text(code));
        if (row < 0 || !from.isValid() || from > lastDay)
            continue;
        use(row);
        any = true;
    }
    return any;
}

} // namespace

void CEF_UPDATEADDRESS(Connection &db, int financialYear, Cells &parties)
{
    const ErrorSite site("MODGST", "CEF_UPDATEADDRESS");
    if (db.Open(QStringLiteral("Show Tables Like 'changeaddr'")).recordCount() == 0)
        return;
    CodeRows clients(parties, PartyCode);
    Recordset addresses = db.Open("Select ChangeAddr.*,Comp_Master.Code from ChangeAddr,Comp_Master where "
                                  "Comp_Master.CompSrNo=ChangeAddr.CompSrNo and left(session,4)<="
                                  + number(financialYear) + " order by ChDate");
    const AddressColumns address(addresses, {"Flat", "Building", "street", "area", "city", "State", "PIN"});
    const int state = addresses.column(QStringLiteral("State"));
    forEachChange(addresses, financialYear, clients, [&](int row) {
        parties.setText(row, PartyAddress, address.line(addresses));
        parties.setText(row, PartyState, addresses.text(state));
    });
    Recordset names = db.Open("Select ChangeName.*,Comp_Master.Code from ChangeName,Comp_Master where "
                              "Comp_Master.CompSrNo=ChangeName.CompSrNo and left(session,4)<="
                              + number(financialYear) + " order by ChDate");
    const int name = names.column(QStringLiteral("NewName"));
    const bool renamed = forEachChange(names, financialYear, clients,
                                       [&](int row) { parties.setText(row, PartyName, names.text(name)); });
    if (renamed)
        parties.sort(PartyName, Cells::Sort::Text);
}

} // namespace ledgora
