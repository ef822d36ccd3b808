#pragma once

#include <QString>
#include <vector>

namespace ledgora {

class Connection;

/// Stands for all other clients wherever a group of clients is asked for.
inline constexpr auto otherClientsGroup = "$#$OTH$#$";

struct ClientGroup
{
    QString code, name;
};
/// The groups on offer: all other clients, then those of host "G" by name; other hosts know no more.
std::vector<ClientGroup> clientGroups(Connection &db, const QString &hostCode);

/// The codes of a group's clients, quoted and joined by commas, ready for an SQL list; "" for an empty group.
QString GETGROUPCLS(Connection &db, const QString &groupCode);

/// Code and name of the group that a client of host "G" belongs to, "" for one that is in no group. Other hosts know no
/// groups: there both stay as they are.
void GETGROUPDETAILS(Connection &db, const QString &hostCode, const QString &clientCode, QString &groupCode,
                     QString &groupName);

} // namespace ledgora
