#pragma once

#include "ClientStore.h"
#include <QMap>

namespace ledgora::app {

/// What host "G" keeps of a client beside its own row.
struct ClientDetails
{
    MasterRow office; ///< of an individual, by column of `officeFields`; empty texts when there is none
    /// Of an individual, by assessment year ("2024-25"): whether letters go to the office. A year that is not there
    /// follows the settings.
    QMap<QString, bool> lettersToOffice;
    QString group; ///< code of the group, "" for none
    bool operator==(const ClientDetails &) const = default;
};

/// Columns of `off_info` behind the code, and their fields.
std::span<const MasterField> officeFields();

/// Nothing when they could not be read.
std::optional<ClientDetails> storedDetails(Connection &db, const QString &code);
/// Writes what differs from the former details. Can be run again after a failure. False when a statement failed.
bool storeDetails(Connection &db, const QString &code, const ClientDetails &former, const ClientDetails &present);

/// The groups of clients: columns of the list, sorted by name.
enum GroupColumn { GroupCode, GroupName, GroupMembers, GroupColumnCount };
Cells emptyGroupList();
void loadGroupList(Connection &db, Cells &groups);
/// Codes and names of a group's clients, sorted by name.
enum MemberColumn { MemberCode, MemberName, MemberColumnCount };
Cells emptyMemberList();
void loadMemberList(Connection &db, const QString &group, Cells &members);

/// The fault of a new group's code and name as the message to show, or "".
QString groupFault(Connection &db, const QString &code, const QString &name);
bool insertGroup(Connection &db, const QString &code, const QString &name);
/// False when the statement failed or met no group.
bool renameGroup(Connection &db, const QString &code, const QString &name);
/// Deletes a group without members. False when it has any, or the statement failed.
bool deleteGroup(Connection &db, const QString &code);

} // namespace ledgora::app
