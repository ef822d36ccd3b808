#pragma once

#include "PrivateServer.h"
#include "store/Connection.h"
#include <QString>
#include <memory>

namespace ledgora::app {

/// The office of one data folder: its private server, the one connection of this program, its tables, its templates.
class Office
{
public:
    /// True when an office was made in the folder before; makes nothing.
    static bool exists(const QString &dataFolder);

    explicit Office(const QString &dataFolder);
    Office(const Office &) = delete;
    Office &operator=(const Office &) = delete;
    ~Office();

    /// Starts or attaches to the server and makes what is missing. False with `error()` in a clerk's words.
    bool open();
    QString error() const { return m_error; }

    Connection &connection() { return m_connection; }
    const PrivateServer &server() const { return m_server; }
    QString dataFolder() const { return m_dataFolder; }

    enum class Server { There, Reopened, Away };
    /// Before a command: when the server went away, starts or attaches to it again and hands the connection a new
    /// handle; `Away` while that does not work. Does nothing while a statement runs.
    Server keepConnected();

private:
    bool connectToServer();
    bool installTemplates();
    void closeHandle();

    QString m_dataFolder;
    PrivateServer m_server;
    st_mysql *m_handle = nullptr;
    Connection m_connection;
    QString m_error;
};

} // namespace ledgora::app
