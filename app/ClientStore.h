#pragma once

#include "masters/FieldMap.h"
#include "store/Cells.h"
#include "store/NewId.h"
#include <QDate>
#include <optional>

namespace ledgora::app {

/// The clients of a host of kind "C": companies (`Comp_Master`, with an id and a history of names and addresses) and
/// limited-liability partnerships (`LLP_Master`, whose code is their key).
enum class ClientKind { Company, Partnership };

struct ClientRef
{
    ClientKind kind = ClientKind::Company;
    int id = 0; ///< of a company
    QString code;

    /// The code under which bills and receipts know the client.
    QString partyCode() const;
};

/// Columns of the list of clients; the id is hidden, "" for a partnership.
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
/// Rebuilds the list from both tables, sorted by name.
void loadClientList(Connection &db, Cells &clients);
ClientRef clientAt(const Cells &clients, int row);
/// The row of a client in the list, -1 when it is not there.
int rowOfClient(const Cells &clients, const ClientRef &client);

/// The columns of the kind's table behind the id, and their fields.
std::span<const MasterField> clientFields(ClientKind kind);

/// Nothing when the client is gone or could not be read.
std::optional<MasterRow> storedClient(Connection &db, const ClientRef &client);

/// The fault of a new client's code as the message to show, or "": VALIDATECODENO, at most 20 characters, and not the
/// code of a partnership either.
QString clientCodeFault(Connection &db, const QString &code);
/// First fault of the fields and the field to point at.
struct ClientFault
{
    QString message;
    QString field;
};
ClientFault clientFault(const MasterRow &client);

/// A company gets a new id; a partnership has none, and is inserted only while its code is free (id 1 then stands for
/// the allotted key).
InsertResult insertClient(Connection &db, ClientKind kind, const MasterRow &client);
/// False when the statement failed or met no row. The code stays what it was.
bool updateClient(Connection &db, const ClientRef &client, const MasterRow &row);

/// The day from which the client's latest name or address holds; invalid when it never changed, or is a partnership.
QDate lastChange(Connection &db, const ClientRef &client);
/// The fault of a day from which name or address shall have changed, or "". An empty one is none: a correction.
QString changeDateFault(const QString &typed, QDate last, QDate today);
/// Notes in `ChangeName` and `ChangeAddr` what differs between the former and the present row of a company: from the
/// day on the present one holds. The first change notes the former one too, from 1900 on, so that documents of earlier
/// years keep it. An invalid day is a correction: it mends the latest note, where there is one. Can be run again after
/// a failure. False when a statement failed.
bool noteClientChange(Connection &db, int companyId, const MasterRow &former, const MasterRow &present, QDate from);

/// Documents of the client in all billing companies; nothing when they could not be counted.
struct ClientUse
{
    int bills = 0;
    int receipts = 0;
    bool operator==(const ClientUse &) const = default;
};
std::optional<ClientUse> clientUse(Connection &db, const ClientRef &client);
/// Deletes a client without documents, with its history and its registered GSTIN, since its id or code may be given
/// anew. False when a statement failed or somebody has just written a bill or receipt for the client.
bool deleteClient(Connection &db, const ClientRef &client);

} // namespace ledgora::app
