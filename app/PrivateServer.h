#pragma once

#include <QString>
#include <chrono>
#include <memory>

struct st_mysql;

namespace ledgora::app {

/// The database server of one data folder: a child `mariadbd` on a unix socket in DIR/server, no network. The first
/// program instance on the folder starts it, later ones attach, the last one stops it; after an unclean end it
/// recovers at the next start. The folder is made with mode 0700.
class PrivateServer
{
public:
    struct Settings
    {
        QString dataFolder;       ///< DIR
        int lockWaitSeconds = 60; ///< how long a table lock is waited for
        // Spelt out, so that designated initialisers may leave it out.
        // NOLINTNEXTLINE(readability-redundant-member-init)
        QString serverProgram = {};      ///< default: mariadbd from PATH or /usr/sbin
        std::chrono::seconds limit{120}; ///< how long a start or stop waits for the server, recovery included
    };

    explicit PrivateServer(Settings settings);
    PrivateServer(const PrivateServer &) = delete;
    PrivateServer &operator=(const PrivateServer &) = delete;
    ~PrivateServer(); ///< leaves the folder; stops the server when this was the last instance

    /// Attaches, or initialises the folder and starts the server. False with `error()` in a clerk's words. May be
    /// called again while in the folder: a server that died meanwhile is started anew.
    bool start();
    QString error() const { return m_error; }
    bool wasCold() const { return m_cold; }        ///< the folder was initialised by this start
    bool wasRunning() const { return m_attached; } ///< another instance had started it

    QString socketPath() const; ///< DIR/server/ledgora.sock
    qint64 processId() const;   ///< of the server, 0 when it is not running

    /// A new connection to `database` ("" for none), made for non-blocking use, with the modes that the statements
    /// need set; the caller closes it with mysql_close. nullptr with `error()` when it fails.
    st_mysql *connect(const QString &database = QStringLiteral("ledgora"));
    /// Ends the statement that runs on another connection, from a connection beside it. False when the server did not
    /// take that within two seconds.
    bool endStatement(unsigned long connectionId);

    /// Leaves the folder now; stops the server when this was the last instance.
    void stop();

private:
    struct Visit;
    QString bringUp();
    QString initialise(const QString &program);
    QString launch(const QString &program);
    bool answers();
    bool connectHandle(st_mysql *handle, const QString &database);
    void shutDown();

    Settings m_settings;
    std::unique_ptr<Visit> m_visit;
    QString m_error;
    bool m_cold = false;
    bool m_attached = false;
};

} // namespace ledgora::app
