#include "store/Connection.h"

#include "store/ErrorLog.h"
#include <QScopedValueRollback>
#include <errmsg.h>
#include <mysql.h>
#include <mysqld_error.h>
#include <poll.h>

namespace ledgora {

namespace {

struct EventPair
{
    int client;
    short system;
};
constexpr EventPair eventPairs[] = {
    {MYSQL_WAIT_READ, POLLIN}, {MYSQL_WAIT_WRITE, POLLOUT}, {MYSQL_WAIT_EXCEPT, POLLPRI}};

short pollEvents(int status)
{
    short events = 0;
    for (const EventPair &pair : eventPairs) {
        if (status & pair.client)
            events = short(events | pair.system);
    }
    return events;
}

int clientEvents(short events)
{
    int status = 0;
    for (const EventPair &pair : eventPairs) {
        if (events & (pair.system | POLLERR | POLLHUP))
            status |= pair.client;
    }
    return status;
}

} // namespace

Connection::Connection(st_mysql *handle) : m_handle(handle) {}

void Connection::setHandle(st_mysql *handle)
{
    m_handle = handle;
}

void Connection::setWaitHook(WaitHook hook)
{
    m_wait = std::move(hook);
}

void Connection::setInterrupt(std::function<void()> interrupt)
{
    m_interrupt = std::move(interrupt);
}

void Connection::interrupt()
{
    if (m_interrupt)
        m_interrupt();
}

bool Connection::checkHandle()
{
    m_affected = -1;
    // A hook that lets events through must never bring a second statement on the same connection.
    if (m_handle && !m_running)
        return true;
    if (m_handle)
        noteFailure(CR_COMMANDS_OUT_OF_SYNC, QStringLiteral("Another statement is still running"));
    else
        noteFailure(CR_SERVER_GONE_ERROR, QStringLiteral("There is no connection to the database server"));
    return false;
}

int Connection::waitFor(int status) const
{
    const int timeout = status & MYSQL_WAIT_TIMEOUT ? int(mysql_get_timeout_value_ms(m_handle)) : -1;
    const short ready = m_wait(int(mysql_get_socket(m_handle)), pollEvents(status), timeout);
    return ready ? clientEvents(ready) & status : MYSQL_WAIT_TIMEOUT;
}

bool Connection::run(const QByteArray &sql)
{
    return sendStatement(sql) && readAnswer();
}

bool Connection::sendStatement(const QByteArray &sql)
{
    const auto length = static_cast<unsigned long>(sql.size());
    if (!m_wait)
        return mysql_send_query(m_handle, sql.constData(), length) == 0;
    int failed = 0;
    int status = mysql_send_query_start(&failed, m_handle, sql.constData(), length);
    while (status)
        status = mysql_send_query_cont(&failed, m_handle, waitFor(status));
    return failed == 0;
}

bool Connection::readAnswer()
{
    if (!m_wait)
        return mysql_read_query_result(m_handle) == 0;
    my_bool failed = 0;
    int status = mysql_read_query_result_start(&failed, m_handle);
    while (status)
        status = mysql_read_query_result_cont(&failed, m_handle, waitFor(status));
    return failed == 0;
}

st_mysql_res *Connection::storeResult()
{
    if (!m_wait)
        return mysql_store_result(m_handle);
    MYSQL_RES *result = nullptr;
    int status = mysql_store_result_start(&result, m_handle);
    while (status)
        status = mysql_store_result_cont(&result, m_handle, waitFor(status));
    return result;
}

bool Connection::Execute(const QString &sql)
{
    if (!checkHandle())
        return false;
    const QScopedValueRollback running(m_running, true);
    if (!run(sql.toUtf8())) {
        logFailure();
        return false;
    }
    m_lastErrorNumber = 0;
    if (mysql_field_count(m_handle) > 0)
        mysql_free_result(storeResult());
    m_affected = qint64(mysql_affected_rows(m_handle));
    if (mysql_warning_count(m_handle) > 0)
        logWarnings();
    return true;
}

Recordset Connection::Open(const QString &sql)
{
    return send(sql).answer();
}

PendingQuery Connection::send(const QString &sql)
{
    if (!checkHandle())
        return {*this, false, false};
    m_running = true;
    return {*this, true, sendStatement(sql.toUtf8())};
}

Recordset Connection::takeResult(bool answered)
{
    MYSQL_RES *result = answered ? storeResult() : nullptr;
    // Not before: a statement refused during the wait has left its own number.
    m_lastErrorNumber = 0;
    if (!result)
        logFailure();
    return Recordset(result);
}

PendingQuery::PendingQuery(Connection &connection, bool accepted, bool sent)
    : m_connection(connection)
    , m_isRunning(accepted)
    , m_sent(sent)
{
}

PendingQuery::~PendingQuery()
{
    if (m_isRunning)
        answer();
}

Recordset PendingQuery::answer()
{
    if (!m_isRunning)
        return {};
    Recordset rows = m_connection.takeResult(m_sent && m_connection.readAnswer());
    m_isRunning = false;
    m_connection.m_running = false;
    return rows;
}

bool Connection::ping()
{
    if (!m_handle || m_running)
        return m_running;
    const QScopedValueRollback running(m_running, true);
    if (!m_wait)
        return mysql_ping(m_handle) == 0;
    int failed = 0;
    int status = mysql_ping_start(&failed, m_handle);
    while (status)
        status = mysql_ping_cont(&failed, m_handle, waitFor(status));
    return failed == 0;
}

bool Connection::isLost() const
{
    return !m_handle || m_lastErrorNumber == CR_SERVER_GONE_ERROR || m_lastErrorNumber == CR_SERVER_LOST;
}

bool Connection::wasInterrupted() const
{
    return m_lastErrorNumber == ER_QUERY_INTERRUPTED;
}

void Connection::logFailure()
{
    noteFailure(mysql_errno(m_handle), QString::fromUtf8(mysql_error(m_handle)));
}

void Connection::noteFailure(unsigned number, const QString &error)
{
    ++m_failures;
    m_lastErrorNumber = number;
    m_lastError = error;
    WriteErrLog(m_lastErrorNumber, m_lastError, QStringLiteral("Database"));
}

void Connection::logWarnings()
{
    if (!run(QByteArrayLiteral("Show Warnings")))
        return;
    const qint64 affected = m_affected;
    Recordset warnings(storeResult());
    while (warnings.next()) {
        if (warnings.text(0) != QLatin1String("Note"))
            WriteErrLog(warnings.integer(1), warnings.text(2), QStringLiteral("Database warning"));
    }
    m_affected = affected;
}

} // namespace ledgora
