#include "PrivateServer.h"
#include "ServerFolder.h"
#include "ServerProcess.h"
#include "SessionModes.h"
#include "Waiting.h"
#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QStorageInfo>
#include <array>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <mysql.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace ledgora::app {

namespace {

constexpr qint64 almostFull = qint64(2) * 1024 * 1024;

/// What a failed server leaves behind as a text: the reason a user can mend first, then the words of the log.
QString failureText(const QString &what, const ServerFolder &folder, qint64 logStart)
{
    const QString tail = folder.logTail(logStart);
    const QStorageInfo disk(folder.path(QStringLiteral(".")));
    static const QRegularExpression fullWords(QStringLiteral("No space left|(errno|Errcode|error):? 28\\b"));
    const bool full = tail.contains(fullWords) || disk.bytesAvailable() < almostFull;
    QString text = what;
    if (full)
        text += QStringLiteral(" There is no room left on the disk %1.").arg(disk.rootPath());
    if (!tail.isEmpty())
        text += QStringLiteral(" Its log says:\n") + tail;
    return text;
}

QStringList serverArguments(const QStringList &more)
{
    QStringList arguments{QStringLiteral("--defaults-file=./") + QLatin1String(ServerFolder::settingsFile)};
    if (::geteuid() == 0) // the server runs as root only when told so
        arguments << QStringLiteral("--user=root");
    return arguments + more;
}

/// An unnamed file in memory that holds the text, to be read from its start.
Descriptor inMemory(const QByteArray &text)
{
    Descriptor file(::memfd_create("statements", MFD_CLOEXEC));
    if (!file.isOpen() || ::write(file.number(), text.constData(), size_t(text.size())) != text.size()
        || ::lseek(file.number(), 0, SEEK_SET) != 0)
        return Descriptor();
    return file;
}

} // namespace

/// An instance's stay in the folder.
struct PrivateServer::Visit
{
    explicit Visit(const QString &dataFolder) : folder(dataFolder) {}
    ServerFolder folder;
    Descriptor users;
    Descriptor alive;
};

PrivateServer::PrivateServer(Settings settings) : m_settings(std::move(settings)) {}

PrivateServer::~PrivateServer()
{
    stop();
}

bool PrivateServer::start(const std::stop_token &stop)
{
    m_cold = m_attached = false;
    auto visit = m_visit ? std::move(m_visit) : std::make_unique<Visit>(m_settings.dataFolder);
    ServerFolder &folder = visit->folder;
    m_error = folder.descriptor() < 0 ? folder.open() : QString();
    if (!m_error.isEmpty())
        return false;
    const Descriptor starting = folder.lock("start.lock", ServerFolder::Lock::Exclusive, m_settings.limit);
    if (!visit->users.isOpen())
        visit->users = folder.lock("users.lock", ServerFolder::Lock::Shared, m_settings.limit);
    if (!visit->alive.isOpen())
        visit->alive = folder.lock("alive.lock", ServerFolder::Lock::Shared, m_settings.limit);
    if (!starting.isOpen() || !visit->users.isOpen() || !visit->alive.isOpen()) {
        m_error = QStringLiteral("Another program holds the folder %1, or it can not be written to.")
                      .arg(folder.path(QStringLiteral(".")));
        return false;
    }
    m_visit = std::move(visit);
    const QString fault = bringUp(stop);
    m_error = fault;
    if (!fault.isEmpty())
        m_visit.reset();
    return fault.isEmpty();
}

QString PrivateServer::bringUp(const std::stop_token &stop)
{
    const ServerFolder &folder = m_visit->folder;
    // A server whose starter was killed may still be coming up, one that was told to stop may still be going down.
    const auto answeredOrGone = [&] {
        return answers(stop) || !folder.serverLives() || folder.socketIsGone() || stop.stop_requested();
    };
    waitUntil(answeredOrGone, m_settings.limit);
    m_attached = answers(stop);
    if (m_attached)
        return {};
    if (folder.socketIsGone())
        return QStringLiteral(
                   "The database server of this folder runs, but its socket %1 was removed. Close the office "
                   "in all other programs, then start again.")
            .arg(socketPath());
    if (folder.serverLives())
        return failureText(QStringLiteral("The database server of this folder runs but does not answer."), folder,
                           folder.logSize());

    const QString program = findServerProgram(m_settings.serverProgram);
    if (program.isEmpty())
        return QStringLiteral("The database server (mariadbd) is not installed. Install the package "
                              "mariadb-server-core.");
    QString fault = folder.writeSettings(m_settings.lockWaitSeconds);
    if (fault.isEmpty() && !folder.isInitialised()) {
        m_cold = true;
        fault = initialise(program);
    }
    return fault.isEmpty() ? launch(program, stop) : fault;
}

QString PrivateServer::initialise(const QString &program)
{
    const ServerFolder &folder = m_visit->folder;
    const QByteArray statements = initialStatements(program);
    if (statements.isEmpty())
        return QStringLiteral("The database server's system tables (mysql_system_tables.sql) are missing. Install the "
                              "package mariadb-server-core again.");
    // Made aside and renamed when whole: what a broken attempt leaves is thrown away, never taken for data.
    const QString aside = folder.path(QStringLiteral("data.tmp"));
    const QByteArray asideName = QFile::encodeName(aside);
    if (!QDir(aside).removeRecursively() || ::mkdir(asideName.constData(), 0700) != 0)
        return QStringLiteral("The folder %1 can not be made afresh.").arg(aside);

    const qint64 logStart = folder.logSize();
    Descriptor log = folder.openLog();
    const Descriptor input = inMemory(statements);
    if (!log.isOpen() || !input.isOpen())
        return QStringLiteral("The folder %1 can not be written to.").arg(folder.path(QStringLiteral(".")));
    ServerProcess process(program,
                          serverArguments({QStringLiteral("--datadir=./data.tmp"), QStringLiteral("--bootstrap")}),
                          folder.descriptor(), input.number(), log.number());
    log.close();
    if (!process.wasStarted() || !waitUntil([&] { return process.hasEnded(); }, m_settings.limit)
        || !process.succeeded()) {
        if (process.wasStarted())
            process.terminate();
        const QString text = failureText(QStringLiteral("The database could not be set up."), folder, logStart);
        QDir(aside).removeRecursively();
        return text;
    }
    const QByteArray name = QFile::encodeName(folder.path(QStringLiteral("data")));
    if (std::rename(asideName.constData(), name.constData()) != 0 || ::fsync(folder.descriptor()) != 0)
        return QStringLiteral("The folder %1 can not be renamed to \"data\".").arg(aside);
    return {};
}

QString PrivateServer::launch(const QString &program, const std::stop_token &stop)
{
    const ServerFolder &folder = m_visit->folder;
    const qint64 logStart = folder.logSize();
    Descriptor log = folder.openLog();
    const Descriptor input(::open("/dev/null", O_RDONLY | O_CLOEXEC));
    if (!log.isOpen() || !input.isOpen())
        return QStringLiteral("The file %1 can not be written to.").arg(folder.path(QStringLiteral("server.log")));
    ServerProcess process(program, serverArguments({}), folder.descriptor(), input.number(), log.number());
    log.close(); // from here on the server alone holds the lock
    bool up = false;
    if (process.wasStarted()) {
        process.guard(folder.descriptor()); // before it answers: this program may be killed while it waits
        waitUntil([&] { return (up = answers(stop)) || process.hasEnded() || stop.stop_requested(); },
                  m_settings.limit);
        if (!up)
            process.terminate();
    }
    if (up)
        return {};
    return failureText(QStringLiteral("The database server does not come up."), folder, logStart);
}

bool PrivateServer::answers(const std::stop_token &stop)
{
    MYSQL *handle = connect(QString(), stop);
    if (handle)
        mysql_close(handle);
    return handle != nullptr;
}

QString PrivateServer::socketPath() const
{
    return ServerFolder(m_settings.dataFolder).path(QStringLiteral("ledgora.sock"));
}

qint64 PrivateServer::processId() const
{
    return m_visit ? m_visit->folder.serverProcess() : 0;
}

st_mysql *PrivateServer::connect(const QString &database, const std::stop_token &stop)
{
    if (!m_visit) {
        m_error = QStringLiteral("The database server was not started.");
        return nullptr;
    }
    MYSQL *handle = newHandle(m_settings.lockWaitSeconds);
    if (!handle || connectHandle(handle, login(database), stop))
        return handle;
    m_error = QStringLiteral("The database server does not answer: %1.").arg(QString::fromUtf8(mysql_error(handle)));
    mysql_close(handle);
    return nullptr;
}

/// The server's own root, without a password: the folder's mode keeps everybody else from the socket.
Login PrivateServer::login(const QString &database) const
{
    Login login;
    login.user = "root";
    login.database = database.toUtf8();
    login.socket = QFile::encodeName(m_visit->folder.socketAddress());
    return login;
}

bool PrivateServer::endStatement(unsigned long connectionId)
{
    return m_visit && app::endStatement(newHandle(m_settings.lockWaitSeconds), login(QString()), connectionId);
}

void PrivateServer::stop()
{
    if (!m_visit)
        return;
    const Descriptor stopping = m_visit->folder.lock("start.lock", ServerFolder::Lock::Exclusive, m_settings.limit);
    if (stopping.isOpen() && ServerFolder::makeExclusive(m_visit->users))
        shutDown();
    m_visit.reset();
}

void PrivateServer::shutDown()
{
    const ServerFolder &folder = m_visit->folder;
    const auto process = pid_t(folder.serverProcess());
    if (MYSQL *handle = connect(QString())) {
        mysql_real_query(handle, "SHUTDOWN", 8);
        mysql_close(handle);
    } else if (process > 0) {
        ::kill(process, SIGTERM); // it lives, but its socket is gone or it is out of connections
    }
    waitUntil([&] { return !folder.serverLives(); }, m_settings.limit);
    // The server is a child of the instance that started it, which takes it off the system's list of processes.
    if (process > 0)
        waitUntil([&] { return ::waitpid(process, nullptr, WNOHANG) != 0; }, std::chrono::seconds(1));
}

} // namespace ledgora::app
