#include "documents/DocumentParties.h"

#include "bills/DocumentList.h"
#include "masters/PartyDirectory.h"
#include "masters/PartyHistory.h"

namespace ledgora {

DocumentParties::DocumentParties(Connection &db, const QString &hostCode) : m_db(db), m_directory(emptyPartyDirectory())
{
    LOADCLLIST(db, hostCode, m_directory);
}

const DocumentParties::Year &DocumentParties::of(int year)
{
    const auto [place, isNew] = m_years.try_emplace(year);
    Year &known = place->second;
    if (!isNew)
        return known;
    known.directory = m_directory;
    CEF_UPDATEADDRESS(m_db, year, known.directory);
    for (int row = known.directory.rows() - 1; row >= known.directory.fixedRows(); --row)
        known.rows.insert(known.directory.text(row, PartyCode), row); // the first one of a code counts
    return known;
}

bool DocumentParties::fill(DocumentHead &document, const QString &code, int year)
{
    const Year &parties = of(year);
    const int row = parties.rows.value(code, -1);
    const auto text = [&](int column) { return parties.directory.text(row, column); };
    document.partyName = text(PartyName);
    document.partyPan = text(PartyPan);
    document.partyGstin = text(PartyGstin);
    document.partyAddress = text(PartyAddress);
    return row >= 0;
}

} // namespace ledgora
