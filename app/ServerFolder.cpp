#include "ServerFolder.h"
#include "Waiting.h"
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringList>
#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace ledgora::app {

namespace {

// The server keeps names in buffers of 512 bytes; what it appends to its folder stays below the difference.
constexpr int longestFolder = 400;
constexpr qint64 largestLog = qint64(1024) * 1024;
constexpr qint64 longestTail = 1500;

/// By which of them a folder is an office's.
constexpr std::array officeNames{"server", "server.ini", "GST_Templates", "MiscSoftData/GST_Templates"};

/// The sockets on which any program listens, by the names that /proc/PID/fd gives them.
QStringList listeningSockets()
{
    QFile table(QStringLiteral("/proc/net/unix"));
    QStringList sockets;
    if (!table.open(QIODevice::ReadOnly))
        return sockets;
    // Num RefCount Protocol Flags Type St Inode Path; the flag stands for a socket that accepts connections.
    for (const QByteArray &line : table.readAll().split('\n')) {
        const QByteArrayList words = line.simplified().split(' ');
        if (words.value(3) == "00010000")
            sockets << QStringLiteral("socket:[") + QString::fromLatin1(words.value(6)) + u']';
    }
    return sockets;
}

QString systemText(int error)
{
    return QString::fromLocal8Bit(std::strerror(error)); // NOLINT(concurrency-mt-unsafe)
}

QString makeFolder(const QString &path)
{
    const QByteArray name = QFile::encodeName(path);
    if (::mkdir(name.constData(), 0700) == 0 || errno == EEXIST)
        return {};
    return QStringLiteral("The folder %1 can not be made: %2.").arg(path, systemText(errno));
}

} // namespace

QString makePrivate(const QString &dataFolder)
{
    const QByteArray name = QFile::encodeName(dataFolder);
    struct stat state = {};
    if (::stat(name.constData(), &state) != 0 || !S_ISDIR(state.st_mode))
        return {}; // told when it is used
    if (state.st_uid != ::geteuid())
        return QStringLiteral("The folder %1 belongs to another user.").arg(dataFolder);
    if ((state.st_mode & (S_IRWXG | S_IRWXO)) == 0)
        return {};
    const QDir folder(dataFolder);
    const bool isOffice = std::ranges::any_of(officeNames, [&](const char *each) { return folder.exists(each); });
    if (!isOffice && !folder.isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot))
        return QStringLiteral(
                   "Other users may enter the folder %1, which holds other files. Make it private (chmod 700) "
                   "or choose another one for the office.")
            .arg(dataFolder);
    return ::chmod(name.constData(), S_IRWXU) == 0
               ? QString()
               : QStringLiteral("The folder %1 can not be made private: %2.").arg(dataFolder, systemText(errno));
}

ServerFolder::ServerFolder(const QString &dataFolder)
    : m_dataFolder(QDir::cleanPath(QDir(dataFolder).absolutePath()))
    , m_path(QString(m_dataFolder + QStringLiteral("/server")))
{
}

QString ServerFolder::open()
{
    const QFileInfo above(m_dataFolder);
    if (!QDir().mkpath(above.path()))
        return QStringLiteral("The folder %1 can not be made.").arg(above.path());
    for (const QString &folder : {m_dataFolder, m_path}) {
        QString fault = makeFolder(folder);
        if (fault.isEmpty() && folder == m_dataFolder)
            fault = makePrivate(folder);
        if (!fault.isEmpty())
            return fault;
    }
    if (QFile::encodeName(QFileInfo(m_path).canonicalFilePath()).size() > longestFolder)
        return QStringLiteral("The name of the folder %1 is too long for the database server (%2 bytes at most).")
            .arg(m_path)
            .arg(longestFolder);

    m_folder = Descriptor(::open(QFile::encodeName(m_path).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    struct stat state = {};
    if (!m_folder.isOpen() || ::fstat(m_folder.number(), &state) != 0)
        return QStringLiteral("The folder %1 can not be read: %2.").arg(m_path, systemText(errno));
    if (state.st_uid != ::geteuid())
        return QStringLiteral("The folder %1 belongs to another user.").arg(m_path);
    if ((state.st_mode & (S_IRWXG | S_IRWXO)) != 0)
        return QStringLiteral("Other users may enter the folder %1. Make it private (chmod 700) and start again.")
            .arg(m_path);
    if (::faccessat(m_folder.number(), ".", W_OK | X_OK, AT_EACCESS) != 0)
        return QStringLiteral("The folder %1 can not be written to: %2.").arg(m_path, systemText(errno));
    return {};
}

QString ServerFolder::path(const QString &name) const
{
    return m_path + QLatin1Char('/') + name;
}

QString ServerFolder::socketAddress() const
{
    QString whole = path(QStringLiteral("ledgora.sock"));
    if (QFile::encodeName(whole).size() < int(sizeof(sockaddr_un::sun_path)))
        return whole;
    return QStringLiteral("/proc/self/fd/%1/ledgora.sock").arg(m_folder.number());
}

Descriptor ServerFolder::lock(const char *name, Lock kind, std::chrono::milliseconds limit) const
{
    Descriptor file(::openat(m_folder.number(), name, O_RDWR | O_CREAT | O_CLOEXEC, 0600));
    const int operation = (kind == Lock::Shared ? LOCK_SH : LOCK_EX) | LOCK_NB;
    if (!file.isOpen() || !waitUntil([&] { return ::flock(file.number(), operation) == 0; }, limit))
        return Descriptor();
    return file;
}

bool ServerFolder::makeExclusive(const Descriptor &lock)
{
    return ::flock(lock.number(), LOCK_EX | LOCK_NB) == 0;
}

bool ServerFolder::isInitialised() const
{
    return QFileInfo::exists(path(QStringLiteral("data/mysql")));
}

bool ServerFolder::serverLives() const
{
    const Descriptor log(::openat(m_folder.number(), "server.log", O_RDWR | O_CLOEXEC));
    return log.isOpen() && ::flock(log.number(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
}

qint64 ServerFolder::serverProcess() const
{
    QFile file(path(QStringLiteral("server.pid")));
    if (!serverLives() || !file.open(QIODevice::ReadOnly))
        return 0;
    return file.readAll().trimmed().toLongLong();
}

bool ServerFolder::socketIsGone() const
{
    const qint64 process = serverProcess();
    if (process <= 0 || QFileInfo::exists(path(QStringLiteral("ledgora.sock"))))
        return false;
    const QStringList listening = listeningSockets();
    const QDir open(QStringLiteral("/proc/%1/fd").arg(process));
    return std::ranges::any_of(open.entryList(QDir::System | QDir::Files), [&](const QString &number) {
        std::array<char, 64> target{};
        const QByteArray link = QFile::encodeName(open.filePath(number));
        const ssize_t length = ::readlink(link.constData(), target.data(), target.size());
        return length > 0 && listening.contains(QString::fromLatin1(target.data(), length));
    });
}

Descriptor ServerFolder::openLog() const
{
    Descriptor log(::openat(m_folder.number(), "server.log", O_RDWR | O_CREAT | O_APPEND | O_CLOEXEC, 0600));
    if (!log.isOpen() || ::flock(log.number(), LOCK_EX | LOCK_NB) != 0)
        return Descriptor();
    if (logSize() > largestLog && ::ftruncate(log.number(), 0) != 0)
        return Descriptor();
    return log;
}

qint64 ServerFolder::logSize() const
{
    return QFileInfo(path(QStringLiteral("server.log"))).size();
}

QString ServerFolder::logTail(qint64 from) const
{
    QFile file(path(QStringLiteral("server.log")));
    if (!file.open(QIODevice::ReadOnly) || !file.seek(std::max(from, file.size() - longestTail)))
        return {};
    return QString::fromUtf8(file.readAll()).trimmed();
}

QString ServerFolder::writeSettings(int lockWaitSeconds) const
{
    // Names are relative: data and pid file to this folder, in which the server begins, the others to the data folder,
    // in which it works later. A folder's name can hold what the file's
    // syntax would misread, and a socket's full name can be too long.
    const QByteArray text = "[mariadbd]\n"
                            "datadir=./data\n"
                            "socket=../ledgora.sock\n"
                            "pid-file=./server.pid\n"
                            "tmpdir=../tmp\n"
                            "skip-networking\n"
                            "skip-name-resolve\n"
                            "skip-log-bin\n"
                            "local-infile=0\n"
                            "performance_schema=OFF\n"
                            // Statements spell the tables in two ways; changing this later loses tables.
                            "lower_case_table_names=1\n"
                            "character-set-server=utf8mb4\n"
                            "collation-server=utf8mb4_unicode_520_ci\n"
                            "sql_mode=NO_ENGINE_SUBSTITUTION\n"
                            "default-storage-engine=InnoDB\n"
                            "innodb_buffer_pool_size=128M\n"
                            "innodb_log_file_size=32M\n"
                            "innodb_autoextend_increment=4\n" // not 64 MB at a time
                            "innodb_flush_log_at_trx_commit=1\n"
                            "max_allowed_packet=64M\n"
                            // A window may stay open over a long week-end.
                            "wait_timeout=31536000\n"
                            "interactive_timeout=31536000\n"
                            "lock_wait_timeout="
                            + QByteArray::number(lockWaitSeconds) + "\n";
    QString fault = makeFolder(path(QStringLiteral("tmp")));
    if (!fault.isEmpty())
        return fault;
    const Descriptor file(::openat(m_folder.number(), settingsFile, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600));
    if (!file.isOpen() || ::fchmod(file.number(), 0600) != 0
        || ::write(file.number(), text.constData(), size_t(text.size())) != text.size())
        return QStringLiteral("The file %1 can not be written: %2.")
            .arg(path(QString::fromLatin1(settingsFile)), systemText(errno));
    return {};
}

} // namespace ledgora::app
