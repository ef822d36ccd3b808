#pragma once

#include "platform/HostObject.h"
#include <QString>
#include <memory>

namespace ledgora {

class Connection;

/// What a working period takes from a host's base object.
struct HostAnswers
{
    std::unique_ptr<HostObject> object; ///< nothing (logged) when no such object could be made
    QString appPath;
    QString tmpPath;
    Connection *connection = nullptr;
    qint16 year = 0; ///< as the host tells it
};

/// Makes the base object of host "G" and asks it. Parts of the host that do not fit together are told in a critical
/// box, and no more.
HostAnswers askVeltrixHost();
/// Makes the base object of that ProgID and asks it.
HostAnswers askDataHost(const QString &progId);

/// Logs that no component is registered under the ProgID.
void logMissingComponent(const QString &progId);

} // namespace ledgora
