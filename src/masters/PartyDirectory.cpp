#include "masters/PartyDirectory.h"

#include "bills/DocumentList.h"
#include "masters/ClientGstins.h"
#include "masters/OfficeAddresses.h"
#include "masters/OwnerName.h"
#include "store/Connection.h"
#include "store/ErrorLog.h"
#include "store/NumberFormat.h"
#include "store/Settings.h"
#include <array>
#include <vector>

namespace ledgora {

namespace {

/// A table that parties come from: its columns for a party's code, name, PAN, GSTIN and state, and its address
/// fields, the postal code last.
struct PartySource
{
    const char *query;
    const char *codeMark;
    const char *code;
    QStringList name; ///< one column, or the three parts of an individual's
    const char *pan, *gstin, *state;
    QStringList address;
    bool zeroAddressIsEmpty;
    std::array<QStringList, 4> contacts = {{{"Phone"}, {"Fax"}, {"Mob"}, {"Email"}}}; ///< phone, fax, mobile, e-mail
};

const QStringList flatFields{"Flat", "Building", "street", "area", "city", "State", "PIN"};
const QStringList houseFields{"h_no", "h_nm", "street", "area", "city", "State", "PIN"};

const PartySource companies{
    "Select * from Comp_Master", "", "Code", {"Nm"}, "PAN", nullptr, "State", flatFields, false};
const PartySource partnerships{"Select * from LLP_Master",
                               "LLP!~!",
                               "Code",
                               {"Nm"},
                               "PAN",
                               nullptr,
                               "State",
                               {"Line1", "Line2", "city", "State", "PIN"},
                               false};
const PartySource clientsOfT{
    "Select * from Main_Info", "", "Code_No", {"Name"}, "PANNo", nullptr, "State", flatFields, false};
const PartySource individuals{
    "Select * from Owner1", "", "Code", {"F_nm", "M_nm", "l_nm"}, "PAN", nullptr, "State", houseFields, true};
const PartySource clientsOfG{
    "Select * from Main_Info1", "", "Code_No", {"Nm"}, "PAN", nullptr, "State", houseFields, true};
const PartySource otherClients{"Select * from GST_OthCl",
                               "",
                               "OthClCode",
                               {"Nm"},
                               "PAN",
                               "GSTIN",
                               "StateNm",
                               {"h_no", "h_nm", "street", "area", "city", "StateNm", "pincode"},
                               true,
                               {{{"PhNo1", "PhNo2"}, {"FaxNo"}, {"MobNo"}, {"email"}}}};

QString partyName(const Recordset &rows, const std::vector<int> &columns)
{
    return columns.size() == 1 ? rows.text(columns[0])
                               : ownerName(rows.text(columns[0]), rows.text(columns[1]), rows.text(columns[2]));
}

/// How to reach the parties, from `firstRow` on; of several numbers all that are filled, with ", " between.
void addContacts(Recordset &rows, Cells &parties, const PartySource &source, int firstRow)
{
    for (size_t kind = 0; kind < source.contacts.size(); ++kind) {
        std::vector<int> columns;
        for (const QString &name : source.contacts.at(kind)) {
            if (rows.hasColumn(name))
                columns.push_back(rows.column(name));
        }
        rows.rewind();
        for (int row = firstRow; rows.next(); ++row) {
            QString contact;
            for (const int column : columns) {
                const QString text = rows.text(column);
                contact += contact.isEmpty() || text.isEmpty() ? text : QString(", " + text);
            }
            parties.setText(row, PartyPhone + int(kind), contact);
        }
    }
}

void addParties(Connection &db, Cells &parties, const PartySource &source, bool withContacts)
{
    Recordset rows = db.Open(QLatin1String(source.query));
    const auto column = [&rows](const char *name) { return name ? rows.column(QLatin1String(name)) : -1; };
    const int code = column(source.code);
    const std::array<std::pair<int, int>, 3> sources{
        {{PartyPan, column(source.pan)}, {PartyGstin, column(source.gstin)}, {PartyState, column(source.state)}}};
    std::vector<int> name;
    for (const QString &part : source.name)
        name.push_back(rows.column(part));
    const AddressColumns address(rows, source.address);
    const int firstRow = parties.rows();
    parties.setRows(firstRow + int(rows.recordCount()));
    for (int row = firstRow; rows.next(); ++row) {
        parties.setText(row, PartyCode, QLatin1String(source.codeMark) + rows.text(code));
        parties.setText(row, PartyName, partyName(rows, name));
        for (const auto &[cell, from] : sources)
            parties.setText(row, cell, rows.text(from));
        const QString line = address.line(rows);
        const bool empty = source.zeroAddressIsEmpty && line == QLatin1String("0");
        parties.setText(row, PartyAddress, empty ? QString() : line);
    }
    if (withContacts)
        addContacts(rows, parties, source, firstRow);
}

int setting(const char *key)
{
    return int(Val(GETSETTININI(QStringLiteral("Settings"), QLatin1String(key), QStringLiteral("0"))));
}

/// The individuals of host "G", with the address that the settings ask for.
void addIndividuals(Connection &db, Cells &parties, bool withContacts)
{
    const int addrOpt = setting("AddrOpt");
    const bool showOfficeName = setting("AddrOffNm") == 0;
    const int columns = parties.columns();
    parties.setColumns(columns + OfficeWorkColumnCount);
    addParties(db, parties, individuals, withContacts);
    for (int row = parties.fixedRows(); row < parties.rows(); ++row) {
        if (addrOpt != ResidentialElseOffice || !parties.text(row, PartyAddress).isEmpty())
            parties.setText(row, columns + OfficeMark, QStringLiteral("Y"));
        parties.setText(row, columns + OfficeKind, QStringLiteral("O"));
    }
    CHECKANDFILLOFFCOMMADDRVS(db, parties, parties.fixedRows(), PartyCode, PartyAddress, addrOpt, showOfficeName,
                              PartyState);
    parties.setColumns(columns);
}

} // namespace

Cells emptyPartyDirectory()
{
    Cells parties(PartyColumnCount, 1);
    parties.setRow(0, {QStringLiteral("Code No."), QStringLiteral("Name"), QStringLiteral("PAN"),
                       QStringLiteral("GSTIN"), QStringLiteral("State"), QStringLiteral("Addr")});
    return parties;
}

Cells emptyContactDirectory()
{
    Cells parties = emptyPartyDirectory();
    parties.setColumns(ContactColumnCount);
    for (const auto &[column, heading] :
         {std::pair(PartyPhone, "Phone"), {PartyFax, "Fax"}, {PartyMobile, "Mob"}, {PartyEmail, "Email"}})
        parties.setText(0, column, QLatin1String(heading));
    return parties;
}

void LOADCLLIST(Connection &db, const QString &hostCode, Cells &parties)
{
    const ErrorSite site("MODGST", "LOADCLLIST");
    const bool contacts = parties.columns() >= ContactColumnCount;
    parties.clearData();
    if (hostCode == QLatin1String("C")) {
        addParties(db, parties, companies, contacts);
        addParties(db, parties, partnerships, contacts);
    } else if (hostCode == QLatin1String("T")) {
        addParties(db, parties, clientsOfT, contacts);
    } else if (hostCode == QLatin1String("G")) {
        addIndividuals(db, parties, contacts);
        addParties(db, parties, clientsOfG, contacts);
    }
    fillRegisteredGstins(db, parties, PartyCode, {PartyGstin});
    addParties(db, parties, otherClients, contacts);
    parties.sort(PartyName, Cells::Sort::Text);
}

} // namespace ledgora
