#pragma once

#include <QByteArray>
#include <stop_token>

struct st_mysql;

namespace ledgora::app {

/// How a program comes to a server; empty texts count as not given.
struct Login
{
    QByteArray host, user, password, database, socket;
    unsigned port = 0;
};

/// A handle for a connection that is still to be made: non-blocking calls allowed, no silent reconnect, and the modes
/// that the statements need are set as soon as it connects. It proves the password only in ways that do not show it: a
/// false server could ask for it in clear. nullptr when memory is exhausted.
st_mysql *newHandle(int lockWaitSeconds);

/// The handle will take only a server whose certificate the authority (a PEM file) signed for the server's name. Such a
/// one may ask for the password in the ways that only the server itself can read.
void verifyServer(st_mysql *handle, const QByteArray &caFile);

/// Flags that a connection must be made with.
unsigned long connectFlags();

/// Connects the handle; waits at most ten seconds, and no longer than the token allows. False with the handle's own
/// error.
bool connectHandle(st_mysql *handle, const Login &login, const std::stop_token &stop);

/// Ends the running statement of a connection from another one, made on `handle` (which is closed), within two
/// seconds.
bool endStatement(st_mysql *handle, const Login &login, unsigned long connectionId);

} // namespace ledgora::app
