#include "app/PrivateServer.h"

#include "app/ServerFolder.h"
#include "app/Waiting.h"
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <csignal>
#include <gtest/gtest.h>
#include <memory>
#include <mysql.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>

using ledgora::app::PrivateServer;

namespace {

struct CloseHandle
{
    void operator()(MYSQL *handle) const { mysql_close(handle); }
};
using Handle = std::unique_ptr<MYSQL, CloseHandle>;

/// First cell of the answer, or the error.
QString ask(MYSQL *handle, const char *sql)
{
    if (!handle)
        return QStringLiteral("no connection");
    if (mysql_query(handle, sql) != 0)
        return QString::fromUtf8(mysql_error(handle));
    MYSQL_RES *result = mysql_store_result(handle);
    if (!result)
        return {};
    char **row = mysql_fetch_row(result);
    const QString text = row && row[0] ? QString::fromUtf8(row[0]) : QString();
    mysql_free_result(result);
    return text;
}

QString ask(PrivateServer &server, const char *sql)
{
    return ask(Handle(server.connect()).get(), sql);
}

void write(const QString &path, const QByteArray &text, QFile::Permissions more = {})
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text);
    file.setPermissions(file.permissions() | more);
}

class PrivateServerTest : public testing::Test
{
protected:
    QTemporaryDir m_folder;
    QString data() const { return m_folder.path() + "/office"; }
    QString inServer(const QString &name) const { return data() + "/server/" + name; }
    PrivateServer::Settings settings() const { return {.dataFolder = data(), .lockWaitSeconds = 1}; }
};

TEST_F(PrivateServerTest, EmptyFolderIsInitialisedThenStartedWarmWithItsData)
{
    {
        PrivateServer server(settings());
        ASSERT_TRUE(server.start()) << server.error().toStdString();
        EXPECT_TRUE(server.wasCold());
        EXPECT_FALSE(server.wasRunning());
        EXPECT_EQ(ask(server, "Create Table Kept (a int)"), "");
    }
    EXPECT_FALSE(QFileInfo::exists(inServer("server.pid"))) << "the last one has stopped the server";
    PrivateServer server(settings());
    ASSERT_TRUE(server.start()) << server.error().toStdString();
    EXPECT_FALSE(server.wasCold());
    EXPECT_EQ(ask(server, "Select Count(*) From KEPT"), "0");
}

TEST_F(PrivateServerTest, SessionHasTheModesThatStatementsNeed)
{
    PrivateServer server(settings());
    ASSERT_TRUE(server.start()) << server.error().toStdString();
    const struct
    {
        const char *question;
        const char *answer;
    } modes[] = {
        {"Select @@sql_mode", "NO_ENGINE_SUBSTITUTION"},
        {"Select @@lower_case_table_names", "1"},
        {"Select @@skip_networking", "1"},
        {"Select @@lock_wait_timeout", "1"},
        {"Select @@collation_connection", "utf8mb4_unicode_520_ci"},
        {"Select @@collation_database", "utf8mb4_unicode_520_ci"},
        {"Select @@character_set_client", "utf8mb4"},
        {"Select @@default_storage_engine", "InnoDB"},
        {"Select @@innodb_flush_log_at_trx_commit", "1"},
        {"Select '\xF0\x9F\x98\x80' = '\xF0\x9F\x98\x81'", "0"}, // two characters beyond the basic plane
        {"Select @@max_allowed_packet", "67108864"},
    };
    for (const auto &mode : modes)
        EXPECT_EQ(ask(server, mode.question), mode.answer) << mode.question;

    const Handle handle(server.connect());
    EXPECT_EQ(ask(handle.get(), "Create Table One (a int)"), "");
    EXPECT_EQ(ask(handle.get(), "Insert Into One Values (5)"), "");
    EXPECT_EQ(ask(handle.get(), "Update One Set a=5"), "");
    EXPECT_EQ(mysql_affected_rows(handle.get()), 1U) << "rows found count, changed or not";
}

TEST_F(PrivateServerTest, LaterInstanceAttachesAndOnlyTheLastOneStops)
{
    auto first = std::make_unique<PrivateServer>(settings());
    PrivateServer second(settings());
    ASSERT_TRUE(first->start()) << first->error().toStdString();
    ASSERT_TRUE(second.start()) << second.error().toStdString();
    EXPECT_TRUE(second.wasRunning());
    const qint64 process = first->processId();
    ASSERT_GT(process, 0);
    EXPECT_EQ(second.processId(), process);

    first.reset();
    EXPECT_EQ(ask(second, "Select 7"), "7");
    second.stop();
    EXPECT_EQ(::kill(pid_t(process), 0), -1) << "the server process has gone and was reaped";
}

TEST_F(PrivateServerTest, InstancesThatStartAtOnceShareOneServer)
{
    PrivateServer first(settings());
    PrivateServer second(settings());
    bool secondUp = false;
    std::thread other([&] { secondUp = second.start(); });
    const bool firstUp = first.start();
    other.join();
    ASSERT_TRUE(firstUp) << first.error().toStdString();
    ASSERT_TRUE(secondUp) << second.error().toStdString();
    EXPECT_NE(first.wasRunning(), second.wasRunning());
    EXPECT_EQ(first.processId(), second.processId());
}

TEST_F(PrivateServerTest, KilledServerIsRecoveredWithAllThatWasAcknowledged)
{
    PrivateServer server(settings());
    ASSERT_TRUE(server.start()) << server.error().toStdString();
    EXPECT_EQ(ask(server, "Create Table Kept (a int)"), "");
    EXPECT_EQ(ask(server, "Insert Into Kept Values (1), (2)"), "");
    const qint64 killed = server.processId();
    ASSERT_GT(killed, 0);
    ASSERT_EQ(::kill(pid_t(killed), SIGKILL), 0);
    ::waitpid(pid_t(killed), nullptr, 0);

    EXPECT_EQ(server.connect(), nullptr);
    EXPECT_FALSE(server.error().isEmpty());
    ASSERT_TRUE(QFileInfo::exists(inServer("ledgora.sock"))) << "a stale socket stands in the way";
    ASSERT_TRUE(server.start()) << server.error().toStdString();
    EXPECT_FALSE(server.wasRunning());
    EXPECT_NE(server.processId(), killed);
    EXPECT_EQ(ask(server, "Select Count(*) From Kept"), "2");
}

/// By the guard that the killed program has left; a program that starts meanwhile gets a whole server either way.
TEST_F(PrivateServerTest, ServerWhoseProgramWasKilledEndsUnlessItIsUsedAgain)
{
    const auto killedProgram = [this] {
        const pid_t program = ::fork();
        if (program == 0) {
            PrivateServer server(settings());
            const bool up = server.start();
            ::raise(up ? SIGKILL : SIGTERM);
        }
        int status = 0;
        return ::waitpid(program, &status, 0) == program && WTERMSIG(status) == SIGKILL;
    };
    ASSERT_TRUE(killedProgram());
    {
        PrivateServer server(settings());
        ASSERT_TRUE(server.start()) << server.error().toStdString();
        ASSERT_TRUE(killedProgram());
        EXPECT_EQ(ask(server, "Select 7"), "7") << "this program still uses it";
    }
    ASSERT_TRUE(killedProgram());
    ledgora::app::ServerFolder folder(data());
    ASSERT_EQ(folder.open(), "");
    EXPECT_TRUE(ledgora::app::waitUntil([&] { return !folder.serverLives(); }, std::chrono::seconds(20)));
}

TEST_F(PrivateServerTest, ServerWhoseProgramIsKilledWhileItComesUpEnds)
{
    ASSERT_TRUE(PrivateServer(settings()).start()); // the folder has its data
    PrivateServer::Settings slow = settings();
    slow.serverProgram = m_folder.path() + "/slow";
    write(slow.serverProgram, "#!/bin/sh\nsleep 1\nkill -KILL $PPID\nexec sleep 600\n", QFile::ExeOwner);
    const pid_t program = ::fork();
    if (program == 0)
        PrivateServer(slow).start();
    int status = 0;
    ASSERT_EQ(::waitpid(program, &status, 0), program);
    ASSERT_EQ(WTERMSIG(status), SIGKILL);
    ledgora::app::ServerFolder folder(data());
    ASSERT_EQ(folder.open(), "");
    EXPECT_TRUE(ledgora::app::waitUntil([&] { return !folder.serverLives(); }, std::chrono::seconds(20)));
}

TEST_F(PrivateServerTest, BrokenInitialisingIsThrownAway)
{
    ASSERT_TRUE(QDir().mkpath(inServer("data.tmp/mysql")));
    ASSERT_EQ(::chmod(QFile::encodeName(data() + "/server").constData(), 0700), 0);
    write(inServer("data.tmp/ibdata1"), "half a file");
    PrivateServer server(settings());
    ASSERT_TRUE(server.start()) << server.error().toStdString();
    EXPECT_TRUE(server.wasCold());
    EXPECT_FALSE(QFileInfo::exists(inServer("data.tmp")));
}

TEST_F(PrivateServerTest, FolderNameMayBeDeepAndHoldAnyCharacter)
{
    auto wanted = settings();
    wanted.dataFolder = data() + "/" + QString(120, 'd') + "/it's \"100%\" #1 = कर;";
    PrivateServer server(wanted);
    ASSERT_TRUE(server.start()) << server.error().toStdString();
    EXPECT_EQ(ask(server, "Select Database()"), "ledgora");
    wanted.dataFolder = data() + "/" + QString(200, 'e') + "/" + QString(200, 'f');
    PrivateServer tooDeep(wanted);
    EXPECT_FALSE(tooDeep.start());
    EXPECT_TRUE(tooDeep.error().contains("too long")) << tooDeep.error().toStdString();
}

TEST_F(PrivateServerTest, PrivateFilesAreOfNobodyElse)
{
    PrivateServer server(settings());
    ASSERT_TRUE(server.start()) << server.error().toStdString();
    for (const QString &name : {data(), inServer("."), inServer("server.cnf"), inServer("server.log")})
        EXPECT_FALSE(QFile::permissions(name)
                     & (QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther))
            << name.toStdString();
}

TEST_F(PrivateServerTest, FolderThatOthersMayEnterIsMendedUnlessItIsMoreThanAnOffice)
{
    const auto isPrivate = [](const QString &folder) {
        return (QFile::permissions(folder) & (QFile::ReadGroup | QFile::ExeGroup | QFile::ReadOther | QFile::ExeOther))
               == 0;
    };
    const auto open = [](const QString &folder) { ::chmod(QFile::encodeName(folder).constData(), 0755); };
    ASSERT_TRUE(QDir().mkpath(data() + "/new") && QDir().mkpath(data() + "/home/letters"));
    for (int time = 0; time < 2; ++time) {
        open(data() + "/new");
        PrivateServer server({.dataFolder = data() + "/new"});
        EXPECT_TRUE(server.start()) << server.error().toStdString();
        EXPECT_TRUE(isPrivate(data() + "/new")) << (time == 0 ? "an empty one" : "an office");
    }
    open(data() + "/home");
    PrivateServer server({.dataFolder = data() + "/home"});
    EXPECT_FALSE(server.start());
    EXPECT_EQ(server.error(), "Other users may enter the folder " + data()
                                  + "/home, which holds other files. Make it "
                                    "private (chmod 700) or choose another one for the office.");
    EXPECT_EQ(QDir(data() + "/home").entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList{"letters"});
}

TEST_F(PrivateServerTest, RemovedSocketIsToldAtOnce)
{
    PrivateServer first(settings());
    ASSERT_TRUE(first.start()) << first.error().toStdString();
    ASSERT_TRUE(QFile::remove(first.socketPath()));
    PrivateServer second(settings());
    EXPECT_FALSE(second.start());
    EXPECT_EQ(second.error(), "The database server of this folder runs, but its socket " + first.socketPath()
                                  + " was removed. Close the office in all other programs, then start again.");
}

TEST_F(PrivateServerTest, FaultsAreToldInWords)
{
    ASSERT_TRUE(QDir().mkpath(data() + "/open/server"));
    write(data() + "/file", "not a folder");
    write(data() + "/fails", "#!/bin/sh\necho all is lost >&2\nexit 3\n", QFile::ExeOwner);
    write(data() + "/hangs", "#!/bin/sh\necho still thinking >&2\nexec sleep 60\n", QFile::ExeOwner);
    const struct
    {
        const char *name;
        QString folder;
        QString program;
        QString words;
    } faults[] = {
        {"others may enter", data() + "/open", {}, "Other users may enter the folder"},
        {"a file where the folder should be", data() + "/file", {}, "can not be"},
        {"a file above it", data() + "/file/below", {}, "can not be made"},
        {"no server program", data() + "/a", data() + "/nowhere", "Install the package mariadb-server-core"},
        {"a server that fails", data() + "/b", data() + "/fails", "all is lost"},
        {"a server that hangs", data() + "/c", data() + "/hangs", "still thinking"},
    };
    for (const auto &fault : faults) {
        SCOPED_TRACE(fault.name);
        PrivateServer server({fault.folder, 1, fault.program, std::chrono::seconds(1)});
        EXPECT_FALSE(server.start());
        EXPECT_TRUE(server.error().contains(fault.words)) << server.error().toStdString();
        EXPECT_EQ(server.connect(), nullptr);
    }
}

TEST_F(PrivateServerTest, FullDiskIsNamedAndLeavesNothingHalfMade)
{
    ASSERT_TRUE(QDir().mkpath(data()));
    const QByteArray disk = QFile::encodeName(data());
    if (::mount("tmpfs", disk.constData(), "tmpfs", 0, "size=20m,mode=0700") != 0)
        GTEST_SKIP() << "mounting a small disk needs root";
    {
        PrivateServer server(settings());
        EXPECT_FALSE(server.start());
        EXPECT_TRUE(server.error().contains("no room left on the disk")) << server.error().toStdString();
        EXPECT_FALSE(QFileInfo::exists(inServer("data")));
        EXPECT_EQ(::mount("tmpfs", disk.constData(), "tmpfs", MS_REMOUNT, "size=128m"), 0);
        EXPECT_TRUE(server.start()) << server.error().toStdString();
    }
    ::umount(disk.constData());
}

TEST_F(PrivateServerTest, FolderThatCanNotBeWrittenIsRefused)
{
    if (::geteuid() == 0)
        GTEST_SKIP() << "root may write everywhere";
    ASSERT_TRUE(QDir().mkpath(data()));
    ASSERT_EQ(::chmod(QFile::encodeName(data()).constData(), 0500), 0);
    PrivateServer server(settings());
    EXPECT_FALSE(server.start());
    EXPECT_TRUE(server.error().contains("can not be made")) << server.error().toStdString();
}

} // namespace
