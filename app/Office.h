#pragma once

#include "OfficeServer.h"
#include "store/Connection.h"
#include <QDeadlineTimer>
#include <QString>
#include <memory>
#include <stop_token>

namespace ledgora::app {

/// The office of one data folder: its server, the one connection of this program, its tables and templates as the host
/// has them. The office knows which kind of host it is of.
class Office
{
public:
    /// True when an office was made in the folder before; makes nothing.
    static bool exists(const QString &dataFolder);

    /// On the folder's private server, or on another one; templates, settings and log lie in the folder either way.
    /// `hostCode` is the host that the office must be of, "" for whichever it is ("C" for a new one).
    explicit Office(const QString &dataFolder, QString hostCode = {}, std::unique_ptr<OfficeServer> server = {});
    Office(const Office &) = delete;
    Office &operator=(const Office &) = delete;
    ~Office();

    /// Starts or attaches to the server and makes what is missing. False with `error()` in a clerk's words.
    bool open();
    QString error() const { return m_error; }

    Connection &connection() { return m_connection; }
    const OfficeServer &server() const { return *m_server; }
    QString dataFolder() const { return m_dataFolder; }
    QString hostCode() const { return m_hostCode; } ///< of the open office: "C", "G" or "T"

    enum class Server { There, Reopened, Away };
    /// Before a command: when the server went away, starts or attaches to it again and hands the connection a new
    /// handle; `Away` while that does not work. Waits as a statement does, with a bar where the connection has one; a
    /// server that did not even refuse is let alone for some seconds then, so that the window can be used meanwhile.
    /// Does nothing while a statement runs.
    Server keepConnected();

private:
    bool reachServer();
    void interrupt();
    QString makeWhole();
    QString installTemplates();
    void closeHandle();

    QString m_dataFolder;
    QString m_hostCode;
    std::unique_ptr<OfficeServer> m_server;
    st_mysql *m_handle = nullptr;
    std::stop_source m_stop;
    bool m_isReaching = false;
    QDeadlineTimer m_letAlone;
    Connection m_connection;
    QString m_error;
};

} // namespace ledgora::app
