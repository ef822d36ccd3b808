#pragma once

#include "app/Descriptor.h"
#include <QByteArray>
#include <QString>
#include <chrono>
#include <condition_variable>
#include <list>
#include <mutex>
#include <optional>
#include <thread>

namespace ledgora::test {

/// Stands on a unix socket between programs and the database server, passes everything on, and stops at the statement
/// that a test names: so a test meets the one moment of a save that it is about, without a seam in the program.
class StatementProxy
{
public:
    enum class Stop {
        KillClient,    ///< SIGKILL to the program that sent the statement, which does not go through
        Drop,          ///< the connection ends on both sides, the statement does not go through
        HoldStatement, ///< the server does not get the statement until `release`
        HoldAnswer     ///< the server gets it, the program does not get the answer until `release`
    };

    /// Listens at `address` and serves in a thread of its own. Throws std::runtime_error when it can not.
    StatementProxy(QString address, QString server);
    StatementProxy(const StatementProxy &) = delete;
    StatementProxy &operator=(const StatementProxy &) = delete;
    ~StatementProxy();

    QString address() const { return m_address; }

    /// Stops once, at the nth statement from now on whose text begins so ("" for any), whichever program sends it.
    void stopAt(Stop stop, const QByteArray &beginning, int nth = 1);
    /// Until the stop was met (true) or the limit has passed (false).
    bool waitForStop(std::chrono::milliseconds limit = std::chrono::seconds(10));
    void release();

private:
    struct Armed
    {
        Stop stop;
        QByteArray beginning;
        int nth;
    };
    /// One program's connection.
    struct Pair
    {
        app::Descriptor client, server;
        QByteArray typed; ///< what the client sent and the server has not got yet
        bool holdsClient = false, holdsServer = false;
        bool ended = false;
    };

    void serve(const std::stop_token &end);
    void accept();
    void fromClient(Pair &pair);
    static void passOn(Pair &pair, const QByteArray &packet);
    void letGo();
    std::optional<Stop> meets(const QByteArray &packet);
    void tell();

    QString m_address, m_server;
    app::Descriptor m_listener, m_wake;
    std::list<Pair> m_pairs; ///< the thread's own
    std::mutex m_mutex;      ///< guards what follows
    std::condition_variable m_met;
    std::optional<Armed> m_armed;
    bool m_stopped = false; ///< the stop is being made
    std::jthread m_thread;  ///< last: it uses the others
};

} // namespace ledgora::test
