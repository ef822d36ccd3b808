// The program's window while its database server is away, comes back, or lets a statement wait.

#include "app/MainWindow.h"
#include "app/Office.h"
#include "app/PrivateServer.h"
#include "app/Waiting.h"
#include "bills/BillLines.h"
#include "bills/frmBillGST.h"
#include "support/Screens.h"
#include "support/StatementProxy.h"
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QProgressDialog>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <csignal>
#include <mysql.h>
#include <sys/socket.h>

namespace ledgora::test {
namespace {

class ServerAway : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_office.open()) << m_office.error().toStdString();
        ASSERT_TRUE(m_server.start());
        connectBeside();
        run("Insert Into GST_FirmMas (FirmSrNo,Nm,StateNm) Values (1,'SHARMA & ASSOCIATES','DELHI')");
        run("Insert Into GST_OthCl (OthClSrNo,OthClCode,Nm,StateNm) "
            "Values (1,'BILL~OTHCL-000001','ASHOK TRADERS','DELHI')");
        m_window = std::make_unique<app::MainWindow>(m_office);
        chooseCompany();
        m_screen = new frmBillGST; // the window's
        m_window->showScreen(*m_screen);
        m_window->show();
        m_window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(m_window.get()));
        Keys::settle();
    }
    void TearDown() override
    {
        delete m_screen;
        m_window.reset();
        mysql_close(m_handle);
    }

    Keys keys() const { return Keys(m_window.get()); }
    QString status() const { return m_window->findChild<QLabel *>("lblStatusLine")->text(); }
    template<class Control>
    Control *find(const char *name) const
    {
        return m_screen->findChild<Control *>(QLatin1String(name));
    }
    bool isEditing() const { return find<QWidget>("famedit")->isEnabled(); }
    void keyBill(const QString &amount) const
    {
        keys().alt('A');
        keys().type("ASHOK");
        keys().press(Qt::Key_Return, Qt::NoModifier, 6);
        keys().type("Work");
        keys().press(Qt::Key_Tab, Qt::NoModifier, 4);
        keys().type(amount);
    }
    void expectEntryKept(const char *amount) const
    {
        EXPECT_TRUE(isEditing());
        EXPECT_EQ(find<QLineEdit>("txtpartynm")->text(), "ASHOK TRADERS");
        EXPECT_EQ(find<Grid>("vsB")->cells().text(billFixedRows, AmountColumn), amount);
    }

    // The test's own user of the database.
    void connectBeside()
    {
        mysql_close(m_handle);
        m_handle = m_server.connect();
        m_beside.setHandle(m_handle);
    }
    void run(const QString &sql) { ASSERT_TRUE(m_beside.Execute(sql)) << m_beside.lastError().toStdString(); }
    QString answer(const QString &sql)
    {
        Recordset rows = m_beside.Open(sql);
        return rows.next() ? rows.text(0) : QString();
    }
    QString storedAmounts() { return answer("Select Group_Concat(ServAmt Order By BillId) From GST_BillD"); }

    void killServer()
    {
        const auto process = pid_t(m_server.processId());
        ASSERT_GT(process, 1);
        ASSERT_EQ(::kill(process, SIGKILL), 0);
        ASSERT_TRUE(QTest::qWaitFor([this] { return m_server.processId() == 0; }, 60'000));
    }
    QString serverFile(const char *name) const { return m_folder.filePath(QLatin1String("office/server/") + name); }

    QTemporaryDir m_folder;
    app::Office m_office{m_folder.filePath("office")};
    app::PrivateServer m_server{{.dataFolder = m_folder.filePath("office")}};
    st_mysql *m_handle = nullptr;
    Connection m_beside;
    std::unique_ptr<app::MainWindow> m_window;
    QPointer<frmBillGST> m_screen;
    Boxes boxes;
};

TEST_F(ServerAway, NextKeyAfterTheServerDiedReopensAndTheEntryGoesIn)
{
    keyBill("100");
    keys().alt('U');
    ASSERT_FALSE(isEditing());
    keyBill("200");
    killServer();
    keys().alt('U');
    EXPECT_FALSE(isEditing());
    EXPECT_TRUE(status().contains("database server is back")) << status().toStdString();
    connectBeside();
    EXPECT_EQ(storedAmounts(), "100,200");
}

TEST_F(ServerAway, ServerThatDoesNotComeBackIsToldUntilItDoes)
{
    keyBill("100");
    killServer();
    // A folder where its settings should be written keeps the server from starting.
    ASSERT_TRUE(QFile::remove(serverFile("server.cnf")) && QDir().mkdir(serverFile("server.cnf")));
    keys().press(Qt::Key_1);
    EXPECT_TRUE(status().contains("server is away")) << status().toStdString();
    boxes.expect("Invalid ID generated for the new Record. Can't Save !").icon(QMessageBox::Critical);
    keys().alt('U');
    expectEntryKept("1001");
    ASSERT_TRUE(QDir().rmdir(serverFile("server.cnf")));
    keys().alt('U');
    EXPECT_FALSE(isEditing());
    EXPECT_TRUE(status().contains("server is back")) << status().toStdString();
    connectBeside();
    EXPECT_EQ(storedAmounts(), "1001");
}

constexpr qint64 quietMs = 300;

/// Looks at the window from inside a wait: what it does is posted to the loop in which the window waits.
class Onlooker : public QObject
{
public:
    static QProgressDialog *bar()
    {
        auto *window = qobject_cast<QProgressDialog *>(QApplication::activeModalWidget());
        return window && window->isVisible() ? window : nullptr;
    }
    /// Once, as soon as the bar is seen.
    void atBar(const std::function<void(QProgressDialog &)> &act)
    {
        m_clock.start();
        connect(&m_timer, &QTimer::timeout, this, [this, act] {
            if (!bar())
                return;
            m_timer.stop();
            m_seenAfter = m_clock.elapsed();
            act(*bar());
        });
        constexpr int lookEveryMs = 10;
        m_timer.start(lookEveryMs);
    }
    bool hasSeenIt() const { return m_seenAfter >= 0; }
    /// However busy the machine is, a bar comes no sooner than it may.
    bool sawItTooSoon() const { return hasSeenIt() && m_seenAfter < quietMs; }

private:
    QTimer m_timer;
    QElapsedTimer m_clock;
    qint64 m_seenAfter = -1;
};

/// Counts what is painted of a widget.
class Painted : public QObject
{
public:
    explicit Painted(QWidget &widget) { widget.installEventFilter(this); }
    int times = 0;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        times += event->type() == QEvent::Paint ? 1 : 0;
        return QObject::eventFilter(watched, event);
    }
};

TEST_F(ServerAway, WaitIsShownPaintsAndHoldsKeysBackUntilTheAnswer)
{
    keyBill("100");
    run("LOCK TABLE GST_BillM WRITE");
    Painted painted(*find<QWidget>("famedit"));
    Onlooker onlooker;
    int paintedInTheWait = 0;
    bool stillThere = false;
    onlooker.atBar([&](QProgressDialog &bar) {
        const int before = painted.times;
        find<QWidget>("famedit")->update();
        // Keys at the window that is held back, and those that the bar itself gets.
        QTest::keyClick(m_window->windowHandle(), Qt::Key_7);
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Space, Qt::Key_7})
            QTest::keyClick(bar.windowHandle(), key);
        Keys::settle();
        paintedInTheWait = painted.times - before;
        stillThere = Onlooker::bar() == &bar;
        run("UNLOCK TABLES");
    });
    keys().alt('U');
    EXPECT_TRUE(onlooker.hasSeenIt() && !onlooker.sawItTooSoon());
    EXPECT_GT(paintedInTheWait, 0);
    EXPECT_TRUE(stillThere);
    EXPECT_FALSE(isEditing()) << "no key has ended the statement";
    EXPECT_EQ(Onlooker::bar(), nullptr);
    EXPECT_EQ(storedAmounts(), "100");
}

TEST_F(ServerAway, QuickAnswerShowsNoBar)
{
    keyBill("100");
    Onlooker onlooker;
    onlooker.atBar([](QProgressDialog &) {});
    keys().alt('U');
    EXPECT_FALSE(onlooker.sawItTooSoon());
}

TEST_F(ServerAway, CancelEndsTheSaveAndKeepsTheEntry)
{
    keyBill("100");
    run("LOCK TABLE GST_BillM WRITE");
    Onlooker onlooker;
    onlooker.atBar([](QProgressDialog &bar) { bar.findChild<QPushButton *>()->click(); });
    boxes.expect("The database was not waited for. Nothing was saved; what was typed is still here.");
    keys().alt('U');
    EXPECT_TRUE(onlooker.hasSeenIt() && !onlooker.sawItTooSoon());
    expectEntryKept("100");
    run("UNLOCK TABLES");
    EXPECT_EQ(storedAmounts(), "");
    keys().alt('U');
    EXPECT_FALSE(isEditing()) << "the connection is whole";
    EXPECT_EQ(storedAmounts(), "100");
}

/// With a proxy in the place of the server's socket; the window comes over it when its connection was ended.
class SilentServer : public ServerAway
{
protected:
    void SetUp() override
    {
        ServerAway::SetUp();
        ASSERT_TRUE(QFile::rename(serverFile("ledgora.sock"), serverFile("behind.sock")));
        m_proxy = std::make_unique<StatementProxy>(serverFile("ledgora.sock"), serverFile("behind.sock"));
        run("Kill "
            + answer("Select Id From information_schema.processlist Where Id<>Connection_Id() and db='ledgora'"));
        keyBill("100");
    }
    StatementProxy &proxy() { return *m_proxy; }
    /// A stop counts once all threads of the server stand still: until then one of them may still answer.
    void signalServer(int number) const
    {
        ASSERT_EQ(::kill(pid_t(m_server.processId()), number), 0);
        if (number == SIGSTOP) {
            ASSERT_TRUE(app::waitUntil([this] { return serverStands(); }, std::chrono::minutes(1)));
        }
    }

    Onlooker onlooker;

private:
    bool serverStands() const
    {
        const QDir threads(QStringLiteral("/proc/%1/task").arg(m_server.processId()));
        const QStringList ids = threads.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
        return std::ranges::all_of(ids, [&threads](const QString &id) {
            QFile stat(threads.filePath(id + QStringLiteral("/stat")));
            // The state is the word behind the name, which stands in brackets.
            return !stat.open(QIODevice::ReadOnly) || stat.readAll().contains(") T ");
        });
    }

    std::unique_ptr<StatementProxy> m_proxy;
};

TEST_F(SilentServer, BarStaysAfterCancelUntilTheAnswerComes)
{
    proxy().stopAt(StatementProxy::Stop::HoldAnswer, "LOCK TABLE");
    bool stillThere = false;
    onlooker.atBar([&](QProgressDialog &bar) {
        bar.findChild<QPushButton *>()->click();
        Keys::settle();
        stillThere = Onlooker::bar() == &bar;
        proxy().release();
    });
    keys().alt('U');
    EXPECT_TRUE(proxy().waitForStop());
    EXPECT_TRUE(stillThere);
    EXPECT_FALSE(isEditing());
    EXPECT_EQ(storedAmounts(), "100") << "the lock was there, so the save went on";
}

TEST_F(SilentServer, CancelGivesUpAConnectionThatNobodyAnswers)
{
    proxy().stopAt(StatementProxy::Stop::HoldStatement, "LOCK TABLE");
    onlooker.atBar([&](QProgressDialog &bar) {
        signalServer(SIGSTOP);
        bar.findChild<QPushButton *>()->click();
        signalServer(SIGCONT);
    });
    boxes.expect("Invalid ID generated for the new Record. Can't Save !").icon(QMessageBox::Critical);
    keys().alt('U');
    EXPECT_TRUE(onlooker.hasSeenIt() && !onlooker.sawItTooSoon());
    expectEntryKept("100");
    keys().alt('U');
    EXPECT_FALSE(isEditing());
    EXPECT_EQ(storedAmounts(), "100");
}

TEST_F(SilentServer, KeyThatMeetsASleepingServerWaitsWithTheBarAndThenCounts)
{
    signalServer(SIGSTOP);
    onlooker.atBar([&](QProgressDialog &) { signalServer(SIGCONT); });
    keys().press(Qt::Key_5);
    EXPECT_TRUE(onlooker.hasSeenIt() && !onlooker.sawItTooSoon());
    keys().alt('U');
    EXPECT_EQ(storedAmounts(), "1005");
}

TEST_F(SilentServer, ReconnectingWaitsWithTheBarAndASilentServerIsThenLetAlone)
{
    signalServer(SIGSTOP);
    ::shutdown(int(mysql_get_socket(m_office.connection().handle())), SHUT_RDWR);
    onlooker.atBar([](QProgressDialog &bar) {
        // The clerk waits a while before he gives up: a silence, not a refusal.
        QTimer::singleShot(2500, &bar, [&bar] { bar.findChild<QPushButton *>()->click(); });
    });
    keys().press(Qt::Key_5);
    EXPECT_TRUE(onlooker.hasSeenIt() && !onlooker.sawItTooSoon());
    EXPECT_EQ(Onlooker::bar(), nullptr);
    EXPECT_TRUE(status().startsWith("The database server is away.")) << status().toStdString();
    Onlooker next;
    next.atBar([](QProgressDialog &bar) { bar.findChild<QPushButton *>()->click(); });
    keys().press(Qt::Key_6);
    EXPECT_FALSE(next.hasSeenIt()) << "nobody asks the silent server, so that the window can be used";
    EXPECT_TRUE(isEditing()) << "what was typed is there";
    signalServer(SIGCONT);
}

} // namespace
} // namespace ledgora::test
