#include "SharedServer.h"

#include "ServerRights.h"
#include "SessionModes.h"
#include "store/Connection.h"
#include <QFile>
#include <errmsg.h>
#include <mysql.h>
#include <mysqld_error.h>

namespace ledgora::app {

namespace {

constexpr int lockWaitSeconds = 60;
constexpr unsigned long firstMariaDb = 100400;
constexpr unsigned long firstMySql = 80000;

bool isOldServer(st_mysql *handle)
{
    const bool mariaDb = QByteArray(mysql_get_server_info(handle)).contains("MariaDB");
    return mysql_get_server_version(handle) < (mariaDb ? firstMariaDb : firstMySql);
}

QStringList grantsOf(st_mysql *handle)
{
    Connection db(handle);
    QStringList grants;
    Recordset rows = db.Open(QStringLiteral("Show Grants"));
    while (rows.next())
        grants << rows.text(0);
    return grants;
}

} // namespace

SharedServer::SharedServer(ServerAddress address, QByteArray password)
    : m_address(std::move(address))
    , m_password(std::move(password))
{
}

Login SharedServer::login() const
{
    return {.host = m_address.host.toUtf8(),
            .user = m_address.user.toUtf8(),
            .password = m_password,
            .database = m_address.database.toUtf8(),
            .socket = {},
            .port = m_address.port};
}

st_mysql *SharedServer::prepared() const
{
    MYSQL *handle = newHandle(lockWaitSeconds);
    if (!handle)
        return nullptr;
    const my_bool yes = 1;
    mysql_optionsv(handle, MYSQL_OPT_SSL_ENFORCE, &yes);
    if (!m_address.caFile.isEmpty())
        verifyServer(handle, QFile::encodeName(m_address.caFile));
    return handle;
}

st_mysql *SharedServer::connectOffice(const std::stop_token &stop)
{
    m_refused = false;
    MYSQL *handle = prepared();
    if (!handle)
        return nullptr;
    const bool connected = connectHandle(handle, login(), stop);
    // The client library asks for TLS but takes a server that offers none.
    m_encrypted = connected && mysql_get_ssl_cipher(handle) != nullptr;
    if (connected && (m_encrypted || (!m_address.tlsRequired && m_address.caFile.isEmpty())))
        return handle;
    m_refused = mysql_errno(handle) == ER_ACCESS_DENIED_ERROR;
    m_error = connected ? unprotected(QStringLiteral("it offers none.")) : faultOf(handle);
    mysql_close(handle);
    return nullptr;
}

QString SharedServer::unprotected(const QString &why) const
{
    return QStringLiteral("The way to the database server %1 can not be protected (TLS): %2").arg(m_address.host, why);
}

QString SharedServer::faultOf(st_mysql *handle) const
{
    const QString said = QString::fromUtf8(mysql_error(handle));
    switch (mysql_errno(handle)) {
    case ER_ACCESS_DENIED_ERROR:
        return QStringLiteral("The database server %1 refuses the user \"%2\": wrong name or password.")
            .arg(m_address.host, m_address.user);
    case ER_BAD_DB_ERROR:
    case ER_DBACCESS_DENIED_ERROR:
        return QStringLiteral("The database server %1 has no database \"%2\" for the user \"%3\".")
            .arg(m_address.host, m_address.database, m_address.user);
    case CR_PLUGIN_NOT_ALLOWED:
        return QStringLiteral("The database server %1 asks for the password in a way that would show it to a false "
                              "server. Its administrator can give the user mysql_native_password or ed25519; "
                              "caching_sha2_password needs the server's authority in the address (ca=FILE).")
            .arg(m_address.host);
    case CR_SSL_CONNECTION_ERROR:
        return unprotected(said);
    default:
        return QStringLiteral("The database server %1 does not answer: %2").arg(m_address.host, said);
    }
}

QString SharedServer::unusable(st_mysql *handle) const
{
    if (isOldServer(handle))
        return QStringLiteral("The database server %1 is too old (%2). Ledgora needs MariaDB 10.4 or MySQL 8.")
            .arg(m_address.host, QString::fromUtf8(mysql_get_server_info(handle)));
    const QStringList missing = missingRights(grantsOf(handle), m_address.database);
    if (!missing.isEmpty())
        return QStringLiteral("The user \"%1\" lacks rights on the database server %2: %3.")
            .arg(m_address.user, m_address.host, missing.join(QStringLiteral(", ")));
    return {};
}

bool SharedServer::start(const std::stop_token &stop)
{
    if (m_checked)
        return true; // whether it is there now is seen by connecting
    MYSQL *handle = connectOffice(stop);
    if (!handle)
        return false;
    m_error = unusable(handle);
    mysql_close(handle);
    m_checked = m_error.isEmpty();
    return m_checked;
}

bool SharedServer::endStatement(unsigned long connectionId)
{
    return app::endStatement(prepared(), login(), connectionId);
}

QString SharedServer::place() const
{
    return m_address.place() + (m_encrypted ? QString() : QStringLiteral(", not encrypted"));
}

} // namespace ledgora::app
