#include "ServerProcess.h"
#include "Waiting.h"
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <csignal>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace ledgora::app {

QString findServerProgram(const QString &wanted)
{
    if (!wanted.isEmpty())
        return QFileInfo(wanted).isExecutable() ? QFileInfo(wanted).absoluteFilePath() : QString();
    const QString name = QStringLiteral("mariadbd");
    QString found = QStandardPaths::findExecutable(name);
    if (!found.isEmpty())
        return found;
    // A clerk's PATH seldom holds the folders of services.
    return QStandardPaths::findExecutable(
        name, {QStringLiteral("/usr/sbin"), QStringLiteral("/usr/local/sbin"), QStringLiteral("/usr/libexec")});
}

QByteArray initialStatements(const QString &serverProgram)
{
    const QString beside = QFileInfo(serverProgram).path() + QStringLiteral("/../share/");
    for (const QString &folder :
         {QString(beside + QStringLiteral("mysql/")), QString(beside + QStringLiteral("mariadb/")),
          QStringLiteral("/usr/share/mysql/"), QStringLiteral("/usr/share/mariadb/")}) {
        QFile tables(folder + QStringLiteral("mysql_system_tables.sql"));
        QFile rows(folder + QStringLiteral("mysql_system_tables_data.sql"));
        if (!tables.open(QIODevice::ReadOnly) || !rows.open(QIODevice::ReadOnly))
            continue;
        return "create database mysql;\nuse mysql;\n" + tables.readAll() + "\n" + rows.readAll()
               + "\ncreate database ledgora character set utf8mb4 collate utf8mb4_unicode_520_ci;\n";
    }
    return {};
}

ServerProcess::ServerProcess(const QString &program, const QStringList &arguments, int workingFolder, int input,
                             int output)
{
    std::vector<QByteArray> words{QFile::encodeName(program)};
    for (const QString &argument : arguments)
        words.push_back(QFile::encodeName(argument));
    std::vector<char *> pointers;
    pointers.reserve(words.size() + 1);
    for (QByteArray &word : words)
        pointers.push_back(word.data());
    pointers.push_back(nullptr);

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addfchdir_np(&actions, workingFolder);
    posix_spawn_file_actions_adddup2(&actions, input, STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&actions, output, STDERR_FILENO);

    // Signals that the program blocks or ignores must reach the server as usual.
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    sigset_t none;
    sigset_t all;
    sigemptyset(&none);
    sigfillset(&all);
    posix_spawnattr_setsigmask(&attributes, &none);
    posix_spawnattr_setsigdefault(&attributes, &all);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);

    m_error = ::posix_spawn(&m_process, pointers.front(), &actions, &attributes, pointers.data(), environ);
    if (m_error != 0)
        m_process = 0;
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&actions);
}

bool ServerProcess::hasEnded()
{
    if (!m_ended)
        m_ended = ::waitpid(m_process, &m_status, WNOHANG) != 0;
    return m_ended;
}

void ServerProcess::terminate() const
{
    if (!m_ended)
        ::kill(m_process, SIGTERM);
}

void ServerProcess::guard(int folder) const
{
    // A program that starts holds start.lock until it is among the living; the server lives while its log is locked.
    // Nobody may attach to a server that was told to end, so that start.lock is held until it has. A process of that
    // number whose output is another file is no longer the server: then a later one has a guard of its own. A server
    // that is told while it comes up hears it neither then nor later, so that its socket is waited for; one that goes
    // on all the same is killed, which what it has stored outlives.
    const QString script = QStringLiteral(R"sh(
exec 6<alive.lock 7<server.log 8<start.lock
( while flock -x 6; do
      [ /proc/%1/fd/1 -ef /proc/self/fd/7 ] || exit
      if flock -n -x 8; then
          for try in 1 2 3 4 5; do
              [ -S ledgora.sock ] || sleep 1
          done
          for try in 1 2; do
              kill -TERM %1
              flock -w 5 -x 7 && exit
          done
          kill -KILL %1
          flock -x 7
          exit
      fi
      flock -u 6
      sleep 1
  done ) &
)sh");
    const int nothing = ::open("/dev/null", O_RDWR | O_CLOEXEC);
    ServerProcess shell(QStringLiteral("/bin/sh"), {QStringLiteral("-c"), script.arg(m_process)}, folder, nothing,
                        nothing);
    ::close(nothing);
    if (shell.wasStarted())
        waitUntil([&] { return shell.hasEnded(); }, std::chrono::seconds(2)); // the guard goes on without it
}

} // namespace ledgora::app
