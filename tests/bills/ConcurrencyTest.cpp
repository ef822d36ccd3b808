// Several clerks at the bill screens of one office, each a process of its own: at once, in each other's way, killed in
// the middle of a save, and with a server that goes away.

#include "app/PrivateServer.h"
#include "tests/support/Database.h"
#include "tests/support/Print.h"
#include "tests/support/StatementProxy.h"
#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>
#include <array>
#include <csignal>
#include <gtest/gtest.h>

namespace ledgora::test {
namespace {

using Stop = StatementProxy::Stop;

constexpr int patienceMs = 30'000;
constexpr auto invalidId = "Invalid ID generated for the new Record. Can't Save !";

/// What a clerk answers to a command.
struct Answer
{
    QStringList boxes; ///< and "away" when there was no connection
    QString state;     ///< "edit|ID|NUMBER|PARTY|PARTICULARS|AMOUNT", or "browse|..."; "" when the clerk has ended
    bool isEditing() const { return state.startsWith("edit|"); }
    int id() const { return state.section('|', 1, 1).toInt(); }
    /// What was typed, or shown: "NUMBER|PARTY|PARTICULARS|AMOUNT".
    QString entry() const { return state.section('|', 2); }
};

QString notSaved(const QString &what)
{
    return "The database did not take everything. Not saved: " + what
           + ". What was typed is still here; press Update to try again.";
}

class Clerk
{
public:
    Clerk(const QString &socket, const QString &database, const QString &folder, int lockWait)
    {
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_process.start(LEDGORA_BILL_CLERK, {socket, database, QString::number(lockWait), folder});
        EXPECT_TRUE(answer().state.startsWith("browse|"));
    }
    Clerk(const Clerk &) = delete;
    Clerk &operator=(const Clerk &) = delete;
    ~Clerk()
    {
        m_process.closeWriteChannel();
        if (!m_process.waitForFinished(patienceMs))
            m_process.kill();
    }

    void tell(const QString &command)
    {
        m_process.write(command.toUtf8() + '\n');
        m_process.waitForBytesWritten(patienceMs);
    }
    Answer answer()
    {
        Answer answer;
        QElapsedTimer clock;
        for (clock.start(); !clock.hasExpired(patienceMs);) {
            if (!m_process.canReadLine() && !m_process.waitForReadyRead(patienceMs))
                return answer;
            while (m_process.canReadLine()) {
                const QString line = QString::fromUtf8(m_process.readLine()).chopped(1);
                if (line.startsWith("box "))
                    answer.boxes << line.sliced(4);
                else if (line == "away")
                    answer.boxes << line;
                else
                    return answer.state = line, answer;
            }
        }
        return answer;
    }
    Answer ask(const QString &command)
    {
        tell(command);
        return answer();
    }
    /// Keys a bill whose amount is ten times its number, so that a line tells whose it is.
    void key(int number)
    {
        ask(QString("add ASHOK %1").arg(number * 10));
        EXPECT_EQ(ask(QString("number %1").arg(number)).entry(), entryOf(number));
    }
    static QString entryOf(int number) { return QString("%1|ASHOK TRADERS|Work|%2").arg(number).arg(number * 10); }
    bool wasKilled() { return m_process.waitForFinished(patienceMs) && m_process.exitStatus() == QProcess::CrashExit; }

private:
    QProcess m_process;
};

/// A server of the suite's own, since one test kills it, and a fresh office a test.
class Concurrency : public testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        s_folder = std::make_unique<QTemporaryDir>();
        s_server = std::make_unique<app::PrivateServer>(
            app::PrivateServer::Settings{.dataFolder = s_folder->path(), .lockWaitSeconds = 1});
        ASSERT_TRUE(s_server->start()) << s_server->error().toStdString();
        qputenv("LEDGORA_TEST_SOCKET", s_server->socketPath().toLocal8Bit());
    }
    static void TearDownTestSuite()
    {
        qunsetenv("LEDGORA_TEST_SOCKET");
        s_server.reset();
        s_folder.reset();
    }
    void SetUp() override
    {
        m_data = std::make_unique<Database>();
        data().run("Set Global innodb_flush_log_at_trx_commit=1"); // as in an office: what was acknowledged stays
        data().run("Insert Into GST_FirmMas (FirmSrNo,Nm,StateNm) Values (1,'SHARMA & ASSOCIATES','DELHI')");
        data().run("Insert Into GST_OthCl (OthClSrNo,OthClCode,Nm,StateNm) "
                   "Values (1,'BILL~OTHCL-000001','ASHOK TRADERS','DELHI')");
    }
    void TearDown() override
    {
        m_proxies.clear(); // first, so that no clerk waits for what one holds
        m_clerks.clear();
        m_data.reset();
    }

    Database &data() { return *m_data; }
    static constexpr int patientSeconds = 20; ///< a clerk who meets no held table never waits that long
    Clerk &clerk(int lockWait = patientSeconds) { return clerkAt(s_server->socketPath(), lockWait); }
    Clerk &clerkBehind(const StatementProxy &proxy) { return clerkAt(proxy.address(), patientSeconds); }
    StatementProxy &proxy()
    {
        const QString name = QString("proxy%1.sock").arg(m_proxies.size());
        return *m_proxies.emplace_back(
            std::make_unique<StatementProxy>(s_folder->filePath(name), s_server->socketPath()));
    }
    /// Id, number and the number of lines of each bill, and whether each line is the bill's own.
    QStringList bills()
    {
        return data().rows(
            "Select M.BillSrNo,BillNo,Count(BillId),Coalesce(Min(ServAmt=10*BillNo),'-') From GST_BillM M "
            "Left Join GST_BillD On BillId=M.BillSrNo Group By M.BillSrNo,BillNo Order By M.BillSrNo");
    }
    static QString whole(int id, int number) { return QString("%1|%2|1|1").arg(id).arg(number); }

    static void killServer()
    {
        const auto process = pid_t(s_server->processId());
        ASSERT_GT(process, 1);
        ASSERT_EQ(::kill(process, SIGKILL), 0);
    }
    void restartServer()
    {
        ASSERT_TRUE(s_server->start()) << s_server->error().toStdString();
        data().reconnect();
    }

private:
    Clerk &clerkAt(const QString &socket, int lockWait)
    {
        auto folder = std::make_unique<QTemporaryDir>();
        Clerk &made = *m_clerks.emplace_back(std::make_unique<Clerk>(socket, data().name(), folder->path(), lockWait));
        m_folders.push_back(std::move(folder));
        return made;
    }
    static inline std::unique_ptr<QTemporaryDir> s_folder;
    static inline std::unique_ptr<app::PrivateServer> s_server;
    std::unique_ptr<Database> m_data;
    std::vector<std::unique_ptr<StatementProxy>> m_proxies;
    std::vector<std::unique_ptr<QTemporaryDir>> m_folders;
    std::vector<std::unique_ptr<Clerk>> m_clerks;
};

TEST_F(Concurrency, ClerksWhoSaveAtOnceNeverShareAnIdNorALine)
{
    constexpr int clerks = 4;
    constexpr int billsEach = 15;
    std::array<Clerk *, clerks> office{};
    for (Clerk *&one : office)
        one = &clerk();
    for (int bill = 1; bill <= billsEach; ++bill) {
        for (int i = 0; i < clerks; ++i) {
            const int number = 1000 * (i + 1) + bill;
            office[i]->tell(QString("add ASHOK %1").arg(number * 10));
            office[i]->tell(QString("number %1").arg(number));
            office[i]->tell("update");
        }
    }
    QStringList acknowledged;
    for (int i = 0; i < clerks; ++i) {
        for (int bill = 1; bill <= billsEach; ++bill) {
            const int number = 1000 * (i + 1) + bill;
            office[i]->answer();
            office[i]->answer();
            const Answer saved = office[i]->answer();
            EXPECT_EQ(saved.boxes, QStringList());
            EXPECT_EQ(saved.entry(), Clerk::entryOf(number)) << saved.state.toStdString();
            acknowledged << whole(saved.id(), number);
        }
    }
    QStringList stored = bills();
    stored.sort();
    acknowledged.sort();
    EXPECT_EQ(stored, acknowledged);
    EXPECT_EQ(data().rows("Select Count(*),Max(BillSrNo) From GST_BillM"), QStringList{"60|60"});
    EXPECT_EQ(data().rows("Select Count(*) From GST_BillD"), QStringList{"60"});
}

TEST_F(Concurrency, TableHeldPastTheTimeOutIsToldAndTheEntriesAreKept)
{
    Clerk *waiting[] = {&clerk(1), &clerk(1)};
    for (int i = 0; i < 2; ++i)
        waiting[i]->key(7 + i);
    ASSERT_TRUE(data().other().Execute("LOCK TABLE GST_BillM WRITE"));
    for (Clerk *one : waiting)
        one->tell("update");
    for (int i = 0; i < 2; ++i) {
        const Answer refused = waiting[i]->answer();
        EXPECT_EQ(refused.boxes, QStringList{invalidId});
        EXPECT_TRUE(refused.isEditing());
        EXPECT_EQ(refused.entry(), Clerk::entryOf(7 + i));
    }
    ASSERT_TRUE(data().other().Execute("UNLOCK TABLES"));
    EXPECT_EQ(bills(), QStringList());
    for (int i = 0; i < 2; ++i)
        EXPECT_EQ(waiting[i]->ask("update").state, QString("browse|%1|").arg(i + 1) + Clerk::entryOf(7 + i));
    EXPECT_EQ(bills(), (QStringList{whole(1, 7), whole(2, 8)}));
}

struct KillCase
{
    const char *name;
    const char *statement;
    QStringList left; ///< of the killed clerk's bill
};

class KilledClerk : public Concurrency, public testing::WithParamInterface<KillCase>
{
};

TEST_P(KilledClerk, LeavesTheOthersAtTheirWork)
{
    StatementProxy &road = proxy();
    Clerk &victim = clerkBehind(road);
    Clerk *others[] = {&clerk(), &clerk(), &clerk()};
    victim.key(1);
    for (int i = 0; i < 3; ++i)
        others[i]->key(11 + i);
    road.stopAt(Stop::KillClient, GetParam().statement);
    victim.tell("update");
    ASSERT_TRUE(road.waitForStop());
    for (Clerk *other : others)
        other->tell("update");
    QStringList expected = GetParam().left;
    for (int i = 0; i < 3; ++i) {
        const Answer saved = others[i]->answer();
        EXPECT_EQ(saved.boxes, QStringList());
        EXPECT_EQ(saved.entry(), Clerk::entryOf(11 + i));
        EXPECT_FALSE(saved.isEditing());
        expected << whole(saved.id(), 11 + i);
    }
    EXPECT_TRUE(victim.wasKilled());
    expected.sort();
    EXPECT_EQ(bills(), expected);
}

INSTANTIATE_TEST_SUITE_P(Moments, KilledClerk,
                         testing::Values(KillCase{"HoldingTheLock", "Insert Into GST_BillM", {}},
                                         KillCase{"AfterTheHeader", "Delete From GST_BillD", {"1|1|0|-"}}),
                         [](const auto &moment) { return std::string(moment.param.name); });

struct LossCase
{
    const char *name;
    const char *statement;
    QString box;
};

class LostConnection : public Concurrency, public testing::WithParamInterface<LossCase>
{
};

TEST_P(LostConnection, KeepsTheEntryAndTheNextUpdateMakesTheBillWhole)
{
    StatementProxy &road = proxy();
    Clerk &clerk = clerkBehind(road);
    clerk.key(5);
    road.stopAt(Stop::Drop, GetParam().statement);
    const Answer refused = clerk.ask("update");
    EXPECT_EQ(refused.boxes, QStringList{GetParam().box});
    EXPECT_TRUE(refused.isEditing());
    EXPECT_EQ(refused.entry(), Clerk::entryOf(5));
    const Answer saved = clerk.ask("update");
    EXPECT_EQ(saved.boxes, QStringList());
    EXPECT_EQ(saved.state, "browse|1|" + Clerk::entryOf(5));
    EXPECT_EQ(bills(), QStringList{whole(1, 5)});
}

INSTANTIATE_TEST_SUITE_P(
    Moments, LostConnection,
    testing::Values(LossCase{"Checks", "Select * from GST_BillM Where FirmId", invalidId},
                    LossCase{"Lock", "LOCK TABLE", invalidId}, LossCase{"HighestId", "Select Max(BillSrNo)", invalidId},
                    LossCase{"Header", "Insert Into GST_BillM", notSaved("the bill")},
                    LossCase{"Unlock", "UNLOCK", notSaved("removal of the earlier lines, line 1")},
                    LossCase{"EarlierLines", "Delete From GST_BillD", notSaved("removal of the earlier lines, line 1")},
                    LossCase{"Line", "Insert Into GST_BillD", notSaved("line 1")}),
    [](const auto &moment) { return std::string(moment.param.name); });

TEST_F(Concurrency, KilledServerLosesNothingThatWasAcknowledged)
{
    struct Moment
    {
        const char *statement;
        QString box;
        StatementProxy *road = nullptr;
        Clerk *clerk = nullptr;
    };
    // In this order, since nobody gets past the one who holds the lock.
    Moment moments[] = {{"Select * from GST_BillM Where FirmId", invalidId},
                        {"LOCK TABLE", invalidId},
                        {"Insert Into GST_BillD", notSaved("line 1")},
                        {"Insert Into GST_BillM", notSaved("the bill")}};
    QStringList acknowledged;
    int number = 0;
    for (Moment &moment : moments) {
        moment.road = &proxy();
        moment.clerk = &clerkBehind(*moment.road);
        moment.clerk->key(++number);
        acknowledged << whole(moment.clerk->ask("update").id(), number);
    }
    for (Moment &moment : moments)
        moment.clerk->key(++number);
    for (const Moment &moment : moments) {
        moment.road->stopAt(Stop::HoldStatement, moment.statement);
        moment.clerk->tell("update");
        ASSERT_TRUE(moment.road->waitForStop()) << moment.statement;
    }
    killServer();
    for (int i = 0; i < 4; ++i) {
        const Answer refused = moments[i].clerk->answer();
        EXPECT_EQ(refused.boxes, QStringList{moments[i].box}) << moments[i].statement;
        EXPECT_TRUE(refused.isEditing()) << moments[i].statement;
        EXPECT_EQ(refused.entry(), Clerk::entryOf(5 + i));
    }
    const Answer away = moments[0].clerk->ask("update");
    EXPECT_EQ(away.boxes, (QStringList{"away", invalidId}));
    EXPECT_EQ(away.entry(), Clerk::entryOf(5));

    restartServer();
    EXPECT_EQ(bills(), QStringList(acknowledged) << "5|7|0|-") << "one header waits for its line";
    const int ids[] = {6, 7, 5, 8};
    for (int i = 0; i < 4; ++i) {
        const Answer saved = moments[i].clerk->ask("update");
        EXPECT_EQ(saved.boxes, QStringList());
        EXPECT_EQ(saved.state, QString("browse|%1|").arg(ids[i]) + Clerk::entryOf(5 + i));
    }
    acknowledged << whole(5, 7) << whole(6, 5) << whole(7, 6) << whole(8, 8);
    EXPECT_EQ(bills(), acknowledged);
}

} // namespace
} // namespace ledgora::test
