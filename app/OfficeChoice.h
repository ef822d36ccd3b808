#pragma once

#include "Office.h"
#include "ServerAddress.h"
#include <QByteArray>
#include <functional>
#include <memory>
#include <optional>

namespace ledgora::app {

/// Which server holds the data of an office: the folder's private one (no address), or a shared one. Saved in
/// DIR/server.ini, never with a password.
struct ServerChoice
{
    QString address;      ///< "" or mysql://user@server/database
    QString passwordFile; ///< "" when the user is asked

    static ServerChoice saved(const QString &dataFolder);
    /// False when the file could not be written.
    bool save(const QString &dataFolder) const;
};

/// The password of the address's user; `again` after one that was refused. Nothing when the user gives up.
using AskPassword = std::function<std::optional<QByteArray>(const ServerAddress &address, bool again)>;

/// Asks on the terminal, without showing what is typed; nothing without a terminal.
std::optional<QByteArray> askOnTerminal(const ServerAddress &address, bool again);

/// Whether the program could work on the chosen shared server: "" with its place, or why not.
QString tryShared(const ServerChoice &choice, const AskPassword &ask, QString &place);

enum class Folder { MayBeMade, MustBeThere };

/// The office of the folder, opened; nothing with `fault` in a clerk's words. A private office is only made in a
/// folder that may be made.
std::unique_ptr<Office> openOffice(const QString &dataFolder, const QString &hostCode, const ServerChoice &choice,
                                   Folder folder, const AskPassword &ask, QString &fault);

} // namespace ledgora::app
