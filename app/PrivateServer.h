#pragma once

#include "OfficeServer.h"
#include <QString>
#include <chrono>
#include <memory>

namespace ledgora::app {

struct Login;

/// The database server of one data folder: a child `mariadbd` on a unix socket in DIR/server, no network. The first
/// program instance on the folder starts it, later ones attach, the last one stops it; after an unclean end it
/// recovers at the next start. When the last program was killed, a guard beside the server stops it. The folder is made
/// with mode 0700.
class PrivateServer : public OfficeServer
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
    ~PrivateServer() override; ///< leaves the folder; stops the server when this was the last instance

    /// Attaches, or initialises the folder and starts the server; called again while in the folder, starts a server
    /// that died meanwhile.
    bool start(const std::stop_token &stop = {}) override;
    QString error() const override { return m_error; }
    bool wasCold() const { return m_cold; }        ///< the folder was initialised by this start
    bool wasRunning() const { return m_attached; } ///< another instance had started it

    QString socketPath() const; ///< DIR/server/ledgora.sock
    qint64 processId() const;   ///< of the server, 0 when it is not running

    /// As `connectOffice`, to any database ("" for none).
    st_mysql *connect(const QString &database = QStringLiteral("ledgora"), const std::stop_token &stop = {});
    st_mysql *connectOffice(const std::stop_token &stop = {}) override
    {
        return connect(QStringLiteral("ledgora"), stop);
    }
    bool endStatement(unsigned long connectionId) override;
    QString place() const override { return m_settings.dataFolder; }

    /// Leaves the folder now; stops the server when this was the last instance.
    void stop();

private:
    struct Visit;
    QString bringUp(const std::stop_token &stop);
    QString initialise(const QString &program);
    QString launch(const QString &program, const std::stop_token &stop);
    bool answers(const std::stop_token &stop = {});
    Login login(const QString &database) const;
    void shutDown();

    Settings m_settings;
    std::unique_ptr<Visit> m_visit;
    QString m_error;
    bool m_cold = false;
    bool m_attached = false;
};

} // namespace ledgora::app
