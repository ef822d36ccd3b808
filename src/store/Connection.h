#pragma once

#include "store/Recordset.h"
#include <QString>
#include <functional>

struct st_mysql;

namespace ledgora {

class PendingQuery;

/// One connection to a MySQL-dialect server. The handle is made and closed by the host; the library only uses it.
/// `Execute` and `Open` never throw: a failure is written to the error log under the `ErrorSite` in force and the
/// caller goes on to its next statement. Statements that met warnings (a cut text, a number out of range) are logged
/// too. Nothing reconnects by itself: a silent reconnect would lose table locks.
class Connection
{
public:
    /// Called while the server works: wait until `socket` is ready for `events` (bits of poll(2)), or `timeoutMs`
    /// has passed (negative: no limit), and return the bits that are ready, 0 on a time-out.
    using WaitHook = std::function<short(int socket, short events, int timeoutMs)>;

    explicit Connection(st_mysql *handle = nullptr);
    Connection(const Connection &) = delete;
    Connection &operator=(const Connection &) = delete;
    ~Connection() = default;

    /// The host hands over a new handle after the old one was lost; nothing is closed here.
    void setHandle(st_mysql *handle);
    st_mysql *handle() const { return m_handle; }
    bool isOpen() const { return m_handle != nullptr; }
    bool isRunning() const { return m_running; } ///< a statement is under way, the wait hook letting events through

    /// With a hook statements run through the client's non-blocking calls, so that a window can stay alive; without
    /// one they just wait. The handle must have been made with MYSQL_OPT_NONBLOCK for a hook to be used.
    void setWaitHook(WaitHook hook);
    const WaitHook &waitHook() const { return m_wait; }

    /// What a wait bar's Cancel does: the host ends the running statement from outside (a second connection).
    void setInterrupt(std::function<void()> interrupt);
    void interrupt();

    /// Runs a statement; False when it failed.
    bool Execute(const QString &sql);
    /// Rows the last statement found, changed or not; -1 after a failure.
    qint64 affectedRows() const { return m_affected; }
    /// Runs a query and reads its whole result; a failed one gives an empty recordset that says so.
    Recordset Open(const QString &sql);
    /// Sends a query and comes back at once, so that the caller works while the server does. No other statement can
    /// run on the connection until the answer has been taken.
    [[nodiscard]] PendingQuery send(const QString &sql);

    /// Whether the server answers; waits for it as a statement does. Nothing is logged.
    bool ping();

    QString lastError() const { return m_lastError; }
    unsigned lastErrorNumber() const { return m_lastErrorNumber; }
    /// Statements that failed since the connection was made, whatever ran after them: FailureWatch asks.
    qint64 failures() const { return m_failures; }
    /// True after a failure that means that the server is gone.
    bool isLost() const;
    /// True after a statement that was ended from outside: the user no longer waits for it.
    bool wasInterrupted() const;

private:
    friend class PendingQuery;

    bool run(const QByteArray &sql);
    bool sendStatement(const QByteArray &sql);
    bool readAnswer();
    Recordset takeResult(bool answered);
    st_mysql_res *storeResult();
    int waitFor(int status) const;
    void noteFailure(unsigned number, const QString &error);
    void logFailure();
    void logWarnings();
    bool checkHandle();

    st_mysql *m_handle;
    WaitHook m_wait;
    std::function<void()> m_interrupt;
    qint64 m_affected = -1;
    QString m_lastError;
    unsigned m_lastErrorNumber = 0;
    qint64 m_failures = 0;
    bool m_running = false;
};

/// A query under way. Its answer is taken once; one that nobody takes is thrown away, since the connection is only
/// free behind it.
class PendingQuery
{
public:
    PendingQuery(const PendingQuery &) = delete;
    PendingQuery &operator=(const PendingQuery &) = delete;
    ~PendingQuery();

    /// Waits for the answer; as the result of `Connection::Open`.
    Recordset answer();

private:
    friend class Connection;
    PendingQuery(Connection &connection, bool accepted, bool sent);

    Connection &m_connection;
    bool m_isRunning;
    bool m_sent;
};

} // namespace ledgora
