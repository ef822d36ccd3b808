// The tables in which the hosts keep their clients.

#include "ClientStore.h"

#include <algorithm>

namespace ledgora::app {

namespace {

constexpr MasterField companyColumns[] = {
    {"Code", "txtClientCode"}, {"Nm", "txtClientName"},           {"PAN", "txtClientPAN"},
    {"Flat", "txtClientFlat"}, {"Building", "txtClientBuilding"}, {"street", "txtClientStreet"},
    {"area", "txtClientArea"}, {"city", "txtClientCity"},         {"State", "cboClientState"},
    {"PIN", "txtClientPIN"},   {"Phone", "txtClientPhone"},       {"Fax", "txtClientFax"},
    {"Mob", "txtClientMob"},   {"Email", "txtClientEmail"},
};
constexpr MasterField partnershipColumns[] = {
    {"Code", "txtClientCode"},      {"Nm", "txtClientName"},   {"PAN", "txtClientPAN"},     {"Line1", "txtClientFlat"},
    {"Line2", "txtClientBuilding"}, {"city", "txtClientCity"}, {"State", "cboClientState"}, {"PIN", "txtClientPIN"},
    {"Phone", "txtClientPhone"},    {"Fax", "txtClientFax"},   {"Mob", "txtClientMob"},     {"Email", "txtClientEmail"},
};
constexpr MasterField individualColumns[] = {
    {"Code", "txtClientCode"},     {"F_nm", "txtClientFirst"},    {"M_nm", "txtClientMiddle"},
    {"l_nm", "txtClientLast"},     {"PAN", "txtClientPAN"},       {"h_no", "txtClientFlat"},
    {"h_nm", "txtClientBuilding"}, {"street", "txtClientStreet"}, {"area", "txtClientArea"},
    {"city", "txtClientCity"},     {"State", "cboClientState"},   {"PIN", "txtClientPIN"},
    {"Phone", "txtClientPhone"},   {"Fax", "txtClientFax"},       {"Mob", "txtClientMob"},
    {"Email", "txtClientEmail"},
};
constexpr MasterField nonIndividualColumns[] = {
    {"Code_No", "txtClientCode"}, {"Nm", "txtClientName"},       {"PAN", "txtClientPAN"},
    {"h_no", "txtClientFlat"},    {"h_nm", "txtClientBuilding"}, {"street", "txtClientStreet"},
    {"area", "txtClientArea"},    {"city", "txtClientCity"},     {"State", "cboClientState"},
    {"PIN", "txtClientPIN"},      {"Phone", "txtClientPhone"},   {"Fax", "txtClientFax"},
    {"Mob", "txtClientMob"},      {"Email", "txtClientEmail"},
};
constexpr MasterField columnsOfT[] = {
    {"Code_No", "txtClientCode"}, {"Name", "txtClientName"},         {"PANNo", "txtClientPAN"},
    {"Flat", "txtClientFlat"},    {"Building", "txtClientBuilding"}, {"street", "txtClientStreet"},
    {"area", "txtClientArea"},    {"city", "txtClientCity"},         {"State", "cboClientState"},
    {"PIN", "txtClientPIN"},      {"Phone", "txtClientPhone"},       {"Fax", "txtClientFax"},
    {"Mob", "txtClientMob"},      {"Email", "txtClientEmail"},
};

constexpr const char *oneName[] = {"Nm"};
constexpr const char *nameOfT[] = {"Name"};
constexpr const char *threeNames[] = {"F_nm", "M_nm", "l_nm"};

/// In the order of `ClientKind`.
constexpr ClientTable tables[] = {
    {ClientKind::Company, "C", "Comp_Master", "Company", "Company", "", "Code", "PAN", oneName, companyColumns,
     "Flat No.", "Building"},
    {ClientKind::Partnership, "C", "LLP_Master", "Limited-liability partnership", "LLP", "LLP!~!", "Code", "PAN",
     oneName, partnershipColumns, "Address Line 1", "Address Line 2"},
    {ClientKind::Individual, "G", "Owner1", "Individual", "Individual", "", "Code", "PAN", threeNames,
     individualColumns, "House No.", "House Name"},
    {ClientKind::NonIndividual, "G", "Main_Info1", "Firm, company or other", "Other", "", "Code_No", "PAN", oneName,
     nonIndividualColumns, "House No.", "House Name"},
    {ClientKind::ClientOfT, "T", "Main_Info", "Client", "Client", "", "Code_No", "PANNo", nameOfT, columnsOfT,
     "Flat No.", "Building"},
};

} // namespace

const ClientTable &clientTable(ClientKind kind)
{
    return tables[size_t(kind)];
}

std::vector<ClientKind> clientKinds(const QString &hostCode)
{
    std::vector<ClientKind> kinds;
    for (const ClientTable &table : tables) {
        if (hostCode == QLatin1String(table.host))
            kinds.push_back(table.kind);
    }
    return kinds;
}

QString ClientRef::partyCode() const
{
    return QLatin1String(clientTable(kind).codeMark) + code;
}

ClientRef clientAt(const Cells &clients, int row)
{
    const QString &caption = clients.text(row, ClientKindName);
    const auto *table = std::ranges::find_if(
        tables, [&](const ClientTable &each) { return caption == QLatin1String(each.listCaption); });
    return {table == std::end(tables) ? ClientKind::Company : table->kind, int(clients.value(row, ClientId)),
            clients.text(row, ClientCode)};
}

} // namespace ledgora::app
