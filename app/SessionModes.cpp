#include "SessionModes.h"
#include <QString>
#include <algorithm>
#include <mysql.h>
#include <poll.h>

namespace ledgora::app {

namespace {

constexpr unsigned connectSeconds = 10;
constexpr unsigned endSeconds = 2;
constexpr int lookAtStopMilliseconds = 100;

/// They prove that the password is known without showing it, to whomever they speak.
constexpr auto readableByNobody = "mysql_native_password,client_ed25519";
/// These show it to the other end of the encrypted way, which must be the office's own server then.
constexpr auto readableByTheServer = "mysql_native_password,client_ed25519,caching_sha2_password,sha256_password";

void restrictMethods(st_mysql *handle, const char *methods)
{
    mysql_optionsv(handle, MARIADB_OPT_RESTRICTED_AUTH, methods);
}

const char *orNone(const QByteArray &text)
{
    return text.isEmpty() ? nullptr : text.constData();
}

struct EventPair
{
    int client;
    short system;
};
constexpr EventPair eventPairs[] = {
    {MYSQL_WAIT_READ, POLLIN}, {MYSQL_WAIT_WRITE, POLLOUT}, {MYSQL_WAIT_EXCEPT, POLLPRI}};

/// Waits for what the client wants, in slices, so that a stop is seen. The events that came; MYSQL_WAIT_TIMEOUT when
/// the time is over or nobody waits any longer.
int waitFor(st_mysql *handle, int status, const std::stop_token &stop)
{
    pollfd socket{int(mysql_get_socket(handle)), 0, 0};
    for (const EventPair &pair : eventPairs)
        socket.events = short(socket.events | (status & pair.client ? pair.system : 0));
    int left = status & MYSQL_WAIT_TIMEOUT ? int(mysql_get_timeout_value_ms(handle)) : int(connectSeconds) * 1000;
    for (; left > 0 && !stop.stop_requested(); left -= lookAtStopMilliseconds) {
        if (::poll(&socket, 1, std::min(left, lookAtStopMilliseconds)) <= 0)
            continue;
        int came = 0;
        for (const EventPair &pair : eventPairs)
            came |= socket.revents & (pair.system | POLLERR | POLLHUP) ? pair.client & status : 0;
        return came;
    }
    return MYSQL_WAIT_TIMEOUT;
}

} // namespace

st_mysql *newHandle(int lockWaitSeconds)
{
    MYSQL *handle = mysql_init(nullptr);
    if (!handle)
        return nullptr;
    restrictMethods(handle, readableByNobody);
    mysql_optionsv(handle, MYSQL_DEFAULT_AUTH, "mysql_native_password"); // whatever the server greets with
    const unsigned localInfile = 0;
    const my_bool reconnect = 0;
    mysql_optionsv(handle, MYSQL_OPT_NONBLOCK, nullptr);
    mysql_optionsv(handle, MYSQL_OPT_CONNECT_TIMEOUT, &connectSeconds);
    mysql_optionsv(handle, MYSQL_OPT_LOCAL_INFILE, &localInfile);
    mysql_optionsv(handle, MYSQL_OPT_RECONNECT, &reconnect);
    mysql_optionsv(handle, MYSQL_SET_CHARSET_NAME, "utf8mb4");
    mysql_optionsv(handle, MYSQL_INIT_COMMAND, "SET NAMES utf8mb4 COLLATE utf8mb4_unicode_520_ci");
    const QByteArray modes = "SET SESSION sql_mode='NO_ENGINE_SUBSTITUTION', SESSION lock_wait_timeout="
                             + QByteArray::number(lockWaitSeconds);
    mysql_optionsv(handle, MYSQL_INIT_COMMAND, modes.constData());
    return handle;
}

void verifyServer(st_mysql *handle, const QByteArray &caFile)
{
    const my_bool yes = 1;
    mysql_optionsv(handle, MYSQL_OPT_SSL_CA, caFile.constData());
    mysql_optionsv(handle, MYSQL_OPT_SSL_VERIFY_SERVER_CERT, &yes);
    restrictMethods(handle, readableByTheServer);
}

unsigned long connectFlags()
{
    return CLIENT_FOUND_ROWS;
}

bool connectHandle(st_mysql *handle, const Login &login, const std::stop_token &stop)
{
    const int protocol = login.socket.isEmpty() ? MYSQL_PROTOCOL_TCP : MYSQL_PROTOCOL_SOCKET;
    mysql_optionsv(handle, MYSQL_OPT_PROTOCOL, &protocol);
    MYSQL *connected = nullptr;
    int status =
        mysql_real_connect_start(&connected, handle, orNone(login.host), orNone(login.user), orNone(login.password),
                                 orNone(login.database), login.port, orNone(login.socket), connectFlags());
    while (status)
        status = mysql_real_connect_cont(&connected, handle, waitFor(handle, status, stop));
    return connected != nullptr;
}

bool endStatement(st_mysql *handle, const Login &login, unsigned long connectionId)
{
    if (!handle)
        return false;
    mysql_optionsv(handle, MYSQL_OPT_CONNECT_TIMEOUT, &endSeconds);
    mysql_optionsv(handle, MYSQL_OPT_READ_TIMEOUT, &endSeconds);
    const QByteArray kill = "KILL QUERY " + QByteArray::number(qulonglong(connectionId));
    const bool ended = connectHandle(handle, login, {})
                       && mysql_real_query(handle, kill.constData(), static_cast<unsigned long>(kill.size())) == 0;
    mysql_close(handle);
    return ended;
}

} // namespace ledgora::app
