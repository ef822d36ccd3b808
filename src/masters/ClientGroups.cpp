#include "masters/ClientGroups.h"

#include "store/Connection.h"
#include "store/ErrorLog.h"
#include "store/SqlText.h"
#include <QStringList>

namespace ledgora {

std::vector<ClientGroup> clientGroups(Connection &db, const QString &hostCode)
{
    std::vector<ClientGroup> groups{{QLatin1String(otherClientsGroup), QStringLiteral("(Other Clients)")}};
    if (hostCode != QLatin1String("G"))
        return groups;
    Recordset stored = db.Open(QStringLiteral("Select * from grp_m order by nm,Code_No"));
    while (stored.next())
        groups.push_back({stored.text(QStringLiteral("Code_No")), stored.text(QStringLiteral("Nm"))});
    return groups;
}

QString GETGROUPCLS(Connection &db, const QString &groupCode)
{
    const ErrorSite site("MODGST", "GETGROUPCLS");
    const bool others = groupCode == QLatin1String(otherClientsGroup);
    Recordset clients = others ? db.Open(QStringLiteral("Select * from gst_othcl"))
                               : db.Open("Select * from grp_trans Where Code_no=" + quoted(groupCode));
    const int code = clients.column(others ? QStringLiteral("OthClCode") : QStringLiteral("C_code"));
    QStringList codes;
    while (clients.next())
        codes << quoted(clients.text(code));
    return codes.join(u',');
}

void GETGROUPDETAILS(Connection &db, const QString &hostCode, const QString &clientCode, QString &groupCode,
                     QString &groupName)
{
    const ErrorSite site("MODGST", "GETGROUPDETAILS");
    if (hostCode != QLatin1String("G"))
        return;
    groupCode.clear();
    groupName.clear();
    Recordset membership = db.Open("Select * from Grp_Trans Where C_Code=" + quoted(clientCode));
    if (!membership.next())
        return;
    groupCode = membership.text(QStringLiteral("Code_No"));
    Recordset group = db.Open("Select * from Grp_M Where Code_No=" + quoted(groupCode));
    if (group.next())
        groupName = group.text(QStringLiteral("Nm"));
}

} // namespace ledgora
