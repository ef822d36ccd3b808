#pragma once

#include "masters/CompanyStore.h"

namespace ledgora {

/// Columns of the list of other clients `vsOthCl`.
enum OtherClientColumn { OtherClientId, OtherClientCode, OtherClientName, OtherClientColumnCount };

/// The 15 columns of `GST_OthCl` behind id and code, and their fields.
std::span<const MasterField> otherClientFields();

Cells emptyOtherClientList();
/// Rebuilds the list (`id` 0) or refreshes one client in it; sorted by name.
void loadOtherClientList(Connection &db, Cells &clients, int id);
Recordset otherClientRow(Connection &db, int id);

/// "BILL~OTHCL-" and the id in at least six digits; fixed at creation.
QString otherClientCode(int id);

/// Two other clients can have the same name.
InsertResult insertOtherClient(Connection &db, const MasterRow &client);
bool updateOtherClient(Connection &db, int id, const MasterRow &client);
/// Deletes the client and its bills and receipts in all companies. False when a statement failed.
bool deleteOtherClient(Connection &db, int id, const QString &code);

FieldFault otherClientFault(const MasterRow &client, const QString &stateShown);

} // namespace ledgora
