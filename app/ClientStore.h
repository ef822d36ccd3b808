#pragma once

#include "masters/FieldMap.h"
#include "store/Cells.h"
#include "store/NewId.h"
#include <QDate>
#include <optional>
#include <vector>

namespace ledgora::app {

/// The clients of the hosts that the program plays. Host "C": companies (`Comp_Master`, with an id and a history of
/// names and addresses) and limited-liability partnerships (`LLP_Master`). Host "G": individuals (`Owner1`) and others
/// (`Main_Info1`). Host "T": all in `Main_Info`. Where there is no id the code is the key.
enum class ClientKind { Company, Partnership, Individual, NonIndividual, ClientOfT };

/// How a kind is kept, and what the editor calls it.
struct ClientTable
{
    ClientKind kind;
    const char *host, *table;
    const char *caption, *listCaption;
    const char *codeMark; ///< before the code in bills and receipts
    const char *code, *pan;
    std::span<const char *const> name; ///< one column, or the three parts of an individual's
    std::span<const MasterField> fields;
    const char *firstLine, *secondLine; ///< what the first two fields of the address hold
};
const ClientTable &clientTable(ClientKind kind);
/// The kinds of a host, in the order in which they are offered.
std::vector<ClientKind> clientKinds(const QString &hostCode);

struct ClientRef
{
    ClientKind kind = ClientKind::Company;
    int id = 0;     ///< of a company
    QString code{}; // NOLINT(readability-redundant-member-init): initialisers may leave it out

    /// The code under which bills and receipts know the client.
    QString partyCode() const;
};

/// Columns of the list of clients; the id is hidden, "" where the kind has none.
enum ClientColumn {
    ClientCode,
    ClientName,
    ClientKindName,
    ClientPan,
    ClientCity,
    ClientState,
    ClientId,
    ClientColumnCount
};

Cells emptyClientList();
/// Rebuilds the list from the host's tables, sorted by name.
void loadClientList(Connection &db, const QString &hostCode, Cells &clients);
ClientRef clientAt(const Cells &clients, int row);
/// The row of a client in the list, -1 when it is not there.
int rowOfClient(const Cells &clients, const ClientRef &client);

/// Nothing when the client is gone or could not be read.
std::optional<MasterRow> storedClient(Connection &db, const ClientRef &client);

/// The fault of a new client's code as the message to show, or "": VALIDATECODENO, at most 20 characters, and not the
/// code of a partnership either.
QString clientCodeFault(Connection &db, const QString &hostCode, const QString &code);
/// First fault of the fields and the field to point at.
struct ClientFault
{
    QString message;
    QString field;
};
ClientFault clientFault(ClientKind kind, const MasterRow &client);

/// A company gets a new id; the others have none, and are inserted only while their code is free in all tables of the
/// host (id 1 then stands for the allotted key).
InsertResult insertClient(Connection &db, ClientKind kind, const MasterRow &client);
/// False when the statement failed or met no row. The code stays what it was.
bool updateClient(Connection &db, const ClientRef &client, const MasterRow &row);

/// The day from which the client's latest name or address holds; invalid when it never changed, or its
/// kind has no history.
QDate lastChange(Connection &db, const ClientRef &client);
/// The fault of a day from which name or address shall have changed, or "". An empty one is none: a correction.
QString changeDateFault(const QString &typed, QDate last, QDate today);
/// Notes in `ChangeName` and `ChangeAddr` what differs between the former and the present row of a company: from the
/// day on the present one holds. The first change notes the former one too, from 1900 on, so that documents of earlier
/// years keep it. An invalid day is a correction: it mends the latest note, where there is one. Can be run again after
/// a failure. False when a statement failed.
bool noteClientChange(Connection &db, int companyId, const MasterRow &former, const MasterRow &present, QDate from);

/// A write of a host's table, with the flush that follows each. False when the statement failed.
bool executeAndFlush(Connection &db, const QString &statement);

/// Documents of the client in all billing companies; nothing when they could not be counted.
struct ClientUse
{
    int bills = 0;
    int receipts = 0;
    bool operator==(const ClientUse &) const = default;
};
std::optional<ClientUse> clientUse(Connection &db, const ClientRef &client);
/// Deletes a client without documents, with all that hangs on its id or code, which may be given anew: history,
/// registered GSTIN, office, choice of addresses, group. False when a statement failed or somebody has just written a
/// bill or receipt for the client.
bool deleteClient(Connection &db, const ClientRef &client);

} // namespace ledgora::app
