#include "ClientStore.h"

#include "store/Connection.h"
#include "store/ErrorLog.h"
#include "store/Identifiers.h"

namespace ledgora::app {

namespace {

constexpr auto partnershipMark = "LLP!~!";
constexpr int longestCode = 20;

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

QString tableOf(ClientKind kind)
{
    return kind == ClientKind::Company ? QStringLiteral("Comp_Master") : QStringLiteral("LLP_Master");
}

QString isClient(const ClientRef &client)
{
    return client.kind == ClientKind::Company ? QString("CompSrNo=" + number(client.id))
                                              : QString("Code=" + quoted(client.code));
}

void addClients(Connection &db, Cells &clients, ClientKind kind)
{
    const bool company = kind == ClientKind::Company;
    Recordset rows = db.Open("Select * from " + tableOf(kind));
    int row = clients.rows();
    clients.setRows(row + int(rows.recordCount()));
    for (; rows.next(); ++row)
        clients.setRow(row,
                       {rows.text(QStringLiteral("Code")), rows.text(QStringLiteral("Nm")),
                        company ? QStringLiteral("Company") : QStringLiteral("LLP"), rows.text(QStringLiteral("PAN")),
                        rows.text(QStringLiteral("city")), rows.text(QStringLiteral("State")),
                        company ? rows.text(QStringLiteral("CompSrNo")) : QString()});
}

bool isPartnershipCode(Connection &db, const QString &code)
{
    return db.Open("Select Code from LLP_Master Where Code=" + quoted(code)).next();
}

/// No id is allotted here, but the code must not come twice: looked for and inserted under one lock.
bool insertPartnership(Connection &db, const MasterRow &client)
{
    bool inserted = false;
    if (db.Execute(QStringLiteral("LOCK TABLE LLP_Master Write"))) {
        Recordset same =
            db.Open("Select Code from LLP_Master Where Code=" + quoted(client.value(QStringLiteral("Code"))));
        if (!same.failed() && !same.next())
            inserted = db.Execute("Insert into LLP_Master Values (" + insertValues(partnershipColumns, client) + ')');
    }
    db.Execute(QStringLiteral("UNLOCK TABLES"));
    db.Execute(QStringLiteral("flush tables"));
    return inserted;
}

QString documentsOf(const QString &table, const ClientRef &client)
{
    return "Select * from " + table + " Where Code_No=" + quoted(client.partyCode());
}

bool executeAndFlush(Connection &db, const QString &statement)
{
    const bool done = db.Execute(statement);
    db.Execute(QStringLiteral("flush tables"));
    return done;
}

} // namespace

QString ClientRef::partyCode() const
{
    return kind == ClientKind::Company ? code : QString(QLatin1String(partnershipMark) + code);
}

Cells emptyClientList()
{
    Cells clients(ClientColumnCount, 1);
    clients.setRow(0,
                   {QStringLiteral("Code No."), QStringLiteral("Name"), QStringLiteral("Kind"), QStringLiteral("PAN"),
                    QStringLiteral("City"), QStringLiteral("State"), QStringLiteral("CompSrNo")});
    return clients;
}

void loadClientList(Connection &db, Cells &clients)
{
    const ErrorSite site("CLIENTSTORE", "LOADCLIENTLIST");
    clients.clearData();
    addClients(db, clients, ClientKind::Company);
    addClients(db, clients, ClientKind::Partnership);
    clients.sort(ClientName, Cells::Sort::Text);
}

ClientRef clientAt(const Cells &clients, int row)
{
    const bool company = !clients.text(row, ClientId).isEmpty();
    return {company ? ClientKind::Company : ClientKind::Partnership, int(clients.value(row, ClientId)),
            clients.text(row, ClientCode)};
}

int rowOfClient(const Cells &clients, const ClientRef &client)
{
    for (int row = clients.fixedRows(); row < clients.rows(); ++row) {
        if (clientAt(clients, row).partyCode() == client.partyCode())
            return row;
    }
    return -1;
}

std::span<const MasterField> clientFields(ClientKind kind)
{
    if (kind == ClientKind::Company)
        return companyColumns;
    return partnershipColumns;
}

std::optional<MasterRow> storedClient(Connection &db, const ClientRef &client)
{
    Recordset rows = db.Open("Select * from " + tableOf(client.kind) + " Where " + isClient(client));
    if (!rows.next())
        return std::nullopt;
    MasterRow row;
    for (const MasterField &field : clientFields(client.kind))
        row.insert(QLatin1String(field.column), rows.text(QLatin1String(field.column)));
    return row;
}

QString clientCodeFault(Connection &db, const QString &code)
{
    QString fault = VALIDATECODENO(db, QStringLiteral("C"), code, {.maxLength = longestCode});
    if (fault.isEmpty() && isPartnershipCode(db, code))
        fault = "Code No. [" + code + "] has already been allotted.";
    return fault;
}

ClientFault clientFault(const MasterRow &client)
{
    if (client.value(QStringLiteral("Nm")).trimmed().isEmpty())
        return {QStringLiteral("Please specify 'Name' !"), QStringLiteral("txtClientName")};
    if (client.value(QStringLiteral("State")).isEmpty())
        return {QStringLiteral("Please specify 'State' !"), QStringLiteral("cboClientState")};
    if (!isEmailAddress(client.value(QStringLiteral("Email"))))
        return {emailMessage(), QStringLiteral("txtClientEmail")};
    return {};
}

InsertResult insertClient(Connection &db, ClientKind kind, const MasterRow &client)
{
    if (kind == ClientKind::Partnership)
        return {1, insertPartnership(db, client)};
    return insertUnderNewId(db, QStringLiteral("Comp_Master"), QStringLiteral("CompSrNo"), [&](int id) -> QString {
        return "Insert into Comp_Master Values (" + number(id) + ',' + insertValues(companyColumns, client) + ')';
    });
}

bool updateClient(Connection &db, const ClientRef &client, const MasterRow &row)
{
    MasterRow kept = row;
    kept.insert(QStringLiteral("Code"), client.code);
    const bool updated = db.Execute("Update " + tableOf(client.kind) + " Set "
                                    + updateValues(clientFields(client.kind), kept) + " Where " + isClient(client))
                         && db.affectedRows() > 0;
    db.Execute(QStringLiteral("flush tables"));
    return updated;
}

std::optional<ClientUse> clientUse(Connection &db, const ClientRef &client)
{
    Recordset bills = db.Open(documentsOf(QStringLiteral("GST_BillM"), client));
    Recordset receipts = db.Open(documentsOf(QStringLiteral("GST_RecpM"), client));
    if (bills.failed() || receipts.failed())
        return std::nullopt;
    return ClientUse{int(bills.recordCount()), int(receipts.recordCount())};
}

/// The count before may be out of date, so the statement itself looks again.
bool deleteClient(Connection &db, const ClientRef &client)
{
    const QString row = "Delete from " + tableOf(client.kind) + " Where " + isClient(client) + " and not exists ("
                        + documentsOf(QStringLiteral("GST_BillM"), client) + ") and not exists ("
                        + documentsOf(QStringLiteral("GST_RecpM"), client) + ')';
    if (!executeAndFlush(db, row))
        return false;
    Recordset left = db.Open("Select Code from " + tableOf(client.kind) + " Where " + isClient(client));
    if (left.failed() || left.next())
        return false;
    bool whole = executeAndFlush(db, "Delete from GST_ClRegNo Where Code_No=" + quoted(client.partyCode()));
    if (client.kind == ClientKind::Company) {
        for (const char *history : {"ChangeName", "ChangeAddr"})
            whole =
                executeAndFlush(db, "Delete from " + QLatin1String(history) + " Where CompSrNo=" + number(client.id))
                && whole;
    }
    return whole;
}

} // namespace ledgora::app
