#include "ClientStore.h"

#include "masters/OwnerName.h"
#include "store/Connection.h"
#include "store/ErrorLog.h"
#include "store/Identifiers.h"
#include <algorithm>

namespace ledgora::app {

namespace {

constexpr int longestCode = 20;

const ClientTable &tableOf(const ClientRef &client)
{
    return clientTable(client.kind);
}

QString nameIn(const MasterRow &row, const ClientTable &table)
{
    const auto part = [&](size_t i) { return row.value(QLatin1String(table.name[i])); };
    return table.name.size() == 1 ? part(0).trimmed() : ownerName(part(0), part(1), part(2));
}

QString isClient(const ClientRef &client)
{
    return client.kind == ClientKind::Company
               ? QString("CompSrNo=" + number(client.id))
               : QLatin1String(tableOf(client).code) + QString('=' + quoted(client.code));
}

MasterRow present(const Recordset &rows, std::span<const MasterField> fields)
{
    MasterRow row;
    for (const MasterField &field : fields)
        row.insert(QLatin1String(field.column), rows.text(QLatin1String(field.column)));
    return row;
}

void addClients(Connection &db, Cells &clients, const ClientTable &table)
{
    const bool company = table.kind == ClientKind::Company;
    Recordset rows = db.Open("Select * from " + QLatin1String(table.table));
    const auto text = [&rows](const char *column) { return rows.text(QLatin1String(column)); };
    const auto name = [&](size_t part) { return text(table.name[part]); };
    int row = clients.rows();
    clients.setRows(row + int(rows.recordCount()));
    for (; rows.next(); ++row)
        clients.setRow(row, {text(table.code), table.name.size() == 1 ? name(0) : ownerName(name(0), name(1), name(2)),
                             QLatin1String(table.listCaption), text(table.pan), text("city"), text("State"),
                             company ? text("CompSrNo") : QString()});
}

bool isPartnershipCode(Connection &db, const QString &code)
{
    return db.Open("Select Code from LLP_Master Where Code=" + quoted(code)).next();
}

/// "Insert into T (Code,Nm) Values ('a','b')": the tables of some hosts have columns that the editor does not know.
QString insertStatement(const ClientTable &table, const MasterRow &client)
{
    QStringList columns;
    for (const MasterField &field : table.fields)
        columns << QLatin1String(field.column);
    return "Insert into " + QLatin1String(table.table) + " (" + columns.join(u',') + ") Values ("
           + insertValues(table.fields, client) + ')';
}

/// No id is allotted here, but the code must not come twice: looked for in all tables of the host and inserted under
/// one lock.
bool insertUnderFreeCode(Connection &db, const ClientTable &table, const MasterRow &client)
{
    const QString code = quoted(client.value(QLatin1String(table.code)));
    QStringList locks;
    QStringList codes;
    for (const ClientKind kind : clientKinds(QLatin1String(table.host))) {
        const ClientTable &each = clientTable(kind);
        if (QLatin1String(each.codeMark) != QLatin1String(table.codeMark))
            continue; // the mark keeps equal codes apart
        locks << QString(QLatin1String(each.table) + " Write");
        codes << QString("Select " + QLatin1String(each.code) + " from " + QLatin1String(each.table) + " Where "
                         + QLatin1String(each.code) + '=' + code);
    }
    bool inserted = false;
    if (db.Execute("LOCK TABLE " + locks.join(QStringLiteral(", ")))) {
        bool isFree = true;
        for (const QString &query : codes) {
            Recordset same = db.Open(query);
            isFree = isFree && !same.failed() && !same.next();
        }
        inserted = isFree && db.Execute(insertStatement(table, client));
    }
    db.Execute(QStringLiteral("UNLOCK TABLES"));
    db.Execute(QStringLiteral("flush tables"));
    return inserted;
}

QString documentsOf(const QString &table, const ClientRef &client)
{
    return "Select * from " + table + " Where Code_No=" + quoted(client.partyCode());
}

} // namespace

Cells emptyClientList()
{
    Cells clients(ClientColumnCount, 1);
    clients.setRow(0,
                   {QStringLiteral("Code No."), QStringLiteral("Name"), QStringLiteral("Kind"), QStringLiteral("PAN"),
                    QStringLiteral("City"), QStringLiteral("State"), QStringLiteral("CompSrNo")});
    return clients;
}

void loadClientList(Connection &db, const QString &hostCode, Cells &clients)
{
    const ErrorSite site("CLIENTSTORE", "LOADCLIENTLIST");
    clients.clearData();
    for (const ClientKind kind : clientKinds(hostCode))
        addClients(db, clients, clientTable(kind));
    clients.sort(ClientName, Cells::Sort::Text);
}

int rowOfClient(const Cells &clients, const ClientRef &client)
{
    for (int row = clients.fixedRows(); row < clients.rows(); ++row) {
        if (clientAt(clients, row).partyCode() == client.partyCode())
            return row;
    }
    return -1;
}

std::optional<MasterRow> storedClient(Connection &db, const ClientRef &client)
{
    const ClientTable &table = tableOf(client);
    Recordset rows = db.Open("Select * from " + QLatin1String(table.table) + " Where " + isClient(client));
    if (!rows.next())
        return std::nullopt;
    return present(rows, table.fields);
}

QString clientCodeFault(Connection &db, const QString &hostCode, const QString &code)
{
    QString fault = VALIDATECODENO(db, hostCode, code, {.maxLength = longestCode});
    if (fault.isEmpty() && hostCode == QLatin1String("C") && isPartnershipCode(db, code))
        fault = "Code No. [" + code + "] has already been allotted.";
    return fault;
}

ClientFault clientFault(ClientKind kind, const MasterRow &client)
{
    const ClientTable &table = clientTable(kind);
    if (nameIn(client, table).isEmpty())
        return {QStringLiteral("Please specify 'Name' !"),
                table.name.size() == 1 ? QStringLiteral("txtClientName") : QStringLiteral("txtClientFirst")};
    if (client.value(QStringLiteral("State")).isEmpty())
        return {QStringLiteral("Please specify 'State' !"), QStringLiteral("cboClientState")};
    if (!isEmailAddress(client.value(QStringLiteral("Email"))))
        return {emailMessage(), QStringLiteral("txtClientEmail")};
    return {};
}

InsertResult insertClient(Connection &db, ClientKind kind, const MasterRow &client)
{
    const ClientTable &table = clientTable(kind);
    if (kind != ClientKind::Company)
        return {1, insertUnderFreeCode(db, table, client)};
    return insertUnderNewId(db, QStringLiteral("Comp_Master"), QStringLiteral("CompSrNo"), [&](int id) -> QString {
        return "Insert into Comp_Master Values (" + number(id) + ',' + insertValues(table.fields, client) + ')';
    });
}

bool updateClient(Connection &db, const ClientRef &client, const MasterRow &row)
{
    const ClientTable &table = tableOf(client);
    MasterRow kept = row;
    kept.insert(QLatin1String(table.code), client.code);
    const bool updated = db.Execute("Update " + QLatin1String(table.table) + " Set " + updateValues(table.fields, kept)
                                    + " Where " + isClient(client))
                         && db.affectedRows() > 0;
    db.Execute(QStringLiteral("flush tables"));
    return updated;
}

bool executeAndFlush(Connection &db, const QString &statement)
{
    const bool done = db.Execute(statement);
    db.Execute(QStringLiteral("flush tables"));
    return done;
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
    const QString from = " from " + QLatin1String(tableOf(client).table) + QString(" Where " + isClient(client));
    if (!executeAndFlush(db, "Delete" + from + " and not exists (" + documentsOf(QStringLiteral("GST_BillM"), client)
                                 + ") and not exists (" + documentsOf(QStringLiteral("GST_RecpM"), client) + ')'))
        return false;
    Recordset left = db.Open("Select *" + from);
    if (left.failed() || left.next())
        return false;
    QStringList rest{"GST_ClRegNo Where Code_No=" + quoted(client.partyCode())};
    if (client.kind == ClientKind::Company)
        rest << "ChangeName Where CompSrNo=" + number(client.id) << "ChangeAddr Where CompSrNo=" + number(client.id);
    if (QLatin1String(tableOf(client).host) == QLatin1String("G"))
        rest << "off_info Where code_no=" + quoted(client.code) << "new_Tab Where code_no=" + quoted(client.code)
             << "Grp_Trans Where C_code=" + quoted(client.code);
    bool whole = true;
    for (const QString &rows : rest)
        whole = executeAndFlush(db, "Delete from " + rows) && whole;
    return whole;
}

} // namespace ledgora::app
