// Starting the private server: from an empty folder, on a folder in use before, attaching to a running one, each beside
// what the server package offers for it.

#include "Ratios.h"
#include "app/PrivateServer.h"
#include "app/Waiting.h"
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <mysql.h>
#include <unistd.h>

namespace ledgora::bench {

namespace {

using Clock = std::chrono::steady_clock;

double secondsSince(Clock::time_point start)
{
    return std::chrono::duration<double>(Clock::now() - start).count();
}

MYSQL *connectTo(const QByteArray &socket)
{
    MYSQL *handle = mysql_init(nullptr);
    if (mysql_real_connect(handle, nullptr, "root", nullptr, nullptr, 0, socket.constData(), 0))
        return handle;
    mysql_close(handle);
    return nullptr;
}

/// mariadbd by itself, with the package's own tool for an empty folder.
class BareServer
{
public:
    explicit BareServer(const QString &folder)
        : m_data(QString(folder + "/data"))
        , m_socket(QFile::encodeName(folder + "/s"))
    {
    }

    bool initialise() const
    {
        QProcess tool;
        tool.setStandardOutputFile(QProcess::nullDevice());
        tool.start("mariadb-install-db", common({"--auth-root-authentication-method=normal"}));
        return tool.waitForFinished() && tool.exitCode() == 0;
    }

    bool start()
    {
        m_process.setStandardErrorFile(QProcess::nullDevice());
        const QString socket = "--socket=" + QFile::decodeName(m_socket);
        m_process.start("mariadbd", common({"--skip-networking", socket}));
        return app::waitUntil(
            [this] {
                m_handle = connectTo(m_socket);
                return m_handle != nullptr;
            },
            std::chrono::seconds(30));
    }

    void stop()
    {
        if (m_handle) {
            mysql_query(m_handle, "SHUTDOWN");
            mysql_close(m_handle);
            m_handle = nullptr;
        }
        m_process.waitForFinished();
    }

private:
    QStringList common(const QStringList &more) const
    {
        QStringList arguments{"--no-defaults", "--datadir=" + m_data};
        if (::geteuid() == 0)
            arguments << "--user=root";
        return arguments + more;
    }

    QString m_data;
    QByteArray m_socket;
    QProcess m_process;
    MYSQL *m_handle = nullptr;
};

enum class From { Nothing, Stopped, Running };

void ours(benchmark::State &state, From from)
{
    const QTemporaryDir fixed;
    app::PrivateServer holder({.dataFolder = fixed.path()});
    if (from != From::Nothing && !holder.start())
        return state.SkipWithError(holder.error().toUtf8().constData());
    if (from == From::Stopped)
        holder.stop();
    for ([[maybe_unused]] const auto round : state) {
        const QTemporaryDir fresh;
        app::PrivateServer server({.dataFolder = from == From::Nothing ? fresh.path() : fixed.path()});
        const auto begin = Clock::now();
        MYSQL *handle = server.start() ? server.connect() : nullptr;
        state.SetIterationTime(secondsSince(begin));
        if (!handle)
            return state.SkipWithError(server.error().toUtf8().constData());
        mysql_close(handle);
    }
}

void bare(benchmark::State &state, From from)
{
    const QTemporaryDir fixed;
    if (from == From::Stopped && !BareServer(fixed.path()).initialise())
        return state.SkipWithError("mariadb-install-db failed");
    for ([[maybe_unused]] const auto round : state) {
        const QTemporaryDir fresh;
        BareServer server(from == From::Nothing ? fresh.path() : fixed.path());
        const auto begin = Clock::now();
        const bool up = (from != From::Nothing || server.initialise()) && server.start();
        state.SetIterationTime(secondsSince(begin));
        server.stop();
        if (!up)
            return state.SkipWithError("mariadbd did not start");
    }
}

void add(const char *name, void (*function)(benchmark::State &, From), From from, int rounds)
{
    benchmark::RegisterBenchmark(name, function, from)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond)
        ->Iterations(rounds);
}

const int registered = [] {
    add("cold start, Ledgora", ours, From::Nothing, 2);
    add("cold start, mariadb-install-db and mariadbd", bare, From::Nothing, 2);
    add("warm start, Ledgora", ours, From::Stopped, 3);
    add("warm start, mariadbd", bare, From::Stopped, 3);
    add("attach, Ledgora", ours, From::Running, 100);
    compare("server from an empty folder", "cold start, Ledgora", "cold start, mariadb-install-db and mariadbd", 1.0);
    compare("server on a folder in use", "warm start, Ledgora", "warm start, mariadbd", 1.15);
    return 0;
}();

} // namespace

} // namespace ledgora::bench
