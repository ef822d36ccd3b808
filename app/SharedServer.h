#pragma once

#include "OfficeServer.h"
#include "ServerAddress.h"
#include <QByteArray>

namespace ledgora::app {

struct Login;

/// The office's shared server, reached over the network: with TLS where the server offers it. It is never started or
/// stopped by this program.
class SharedServer : public OfficeServer
{
public:
    SharedServer(ServerAddress address, QByteArray password);

    /// Connects once and looks whether the program can work there: version of the server, rights of the user.
    bool start(const std::stop_token &stop = {}) override;
    QString error() const override { return m_error; }
    st_mysql *connectOffice(const std::stop_token &stop = {}) override;
    bool endStatement(unsigned long connectionId) override;
    QString place() const override;

    /// The server was reached and refused the user's name or password.
    bool wasRefused() const { return m_refused; }

private:
    st_mysql *prepared() const;
    Login login() const;
    QString faultOf(st_mysql *handle) const;
    QString unprotected(const QString &why) const;
    QString unusable(st_mysql *handle) const;

    ServerAddress m_address;
    QByteArray m_password;
    QString m_error;
    bool m_refused = false;
    bool m_encrypted = false;
    bool m_checked = false;
};

} // namespace ledgora::app
