#include "store/Connection.h"

#include "store/ErrorLog.h"
#include "store/SqlText.h"
#include "tests/support/Database.h"
#include "tests/support/Log.h"
#include "tests/support/Print.h"
#include <QRegularExpression>
#include <errmsg.h>
#include <gtest/gtest.h>
#include <memory>
#include <mysqld_error.h>
#include <poll.h>

namespace ledgora {
namespace {

class ConnectionTest : public testing::Test
{
protected:
    static void SetUpTestSuite() { database = std::make_unique<test::Database>("C", test::Database::Tables::None); }
    static void TearDownTestSuite() { database.reset(); }

    void SetUp() override
    {
        database->run("Create Table Notes (Id int, Words varchar(20), Amount double)");
        database->run("Insert Into Notes Values (1, 'one', 1.5), (2, NULL, NULL), (3, '', 0)");
    }
    void TearDown() override
    {
        db().setWaitHook({});
        database->run("Drop Table Notes");
    }

    static Connection &db() { return database->db(); }
    static inline std::unique_ptr<test::Database> database;
    test::Log log;
};

/// Waits as a window would, and counts.
Connection::WaitHook counting(int &calls)
{
    return [&calls](int socket, short events, int timeoutMs) -> short {
        ++calls;
        pollfd ready{socket, events, 0};
        return poll(&ready, 1, timeoutMs) > 0 ? ready.revents : short(0);
    };
}

TEST_F(ConnectionTest, RowsAreReadByNameInAnyCaseAndByPlace)
{
    Recordset rows = db().Open("Select * From Notes Order By Id");
    EXPECT_FALSE(rows.failed());
    EXPECT_EQ(rows.recordCount(), 3);
    ASSERT_TRUE(rows.next());
    EXPECT_EQ(rows.text("WORDS"), "one");
    EXPECT_EQ(rows.number("amount"), 1.5);
    EXPECT_EQ(rows.integer("iD"), 1);
    EXPECT_EQ(rows.text(1), "one");
    ASSERT_TRUE(rows.next());
    EXPECT_TRUE(rows.isNull("Words"));
    EXPECT_EQ(rows.text("Words"), "");
    EXPECT_EQ(rows.number("Amount"), 0);
    ASSERT_TRUE(rows.next());
    EXPECT_FALSE(rows.isNull("Words")) << "an empty text is no NULL";
    EXPECT_FALSE(rows.next());
    EXPECT_TRUE(log.isEmpty());
}

TEST_F(ConnectionTest, QueryUnderWayKeepsOthersOffUntilItsAnswerIsTakenOrDropped)
{
    PendingQuery names = db().send("Select Id From Notes Order By Id");
    EXPECT_FALSE(db().Execute("Delete From Notes"));
    Recordset rows = names.answer();
    EXPECT_EQ(rows.recordCount(), 3);
    ASSERT_TRUE(rows.next() && rows.next());
    rows.rewind();
    ASSERT_TRUE(rows.next());
    EXPECT_EQ(rows.integer(0), 1);
    EXPECT_TRUE(names.answer().failed()) << "an answer is taken once";
    {
        const PendingQuery dropped = db().send("Select * From Notes");
    }
    EXPECT_EQ(db().Open("Select * From Notes").recordCount(), 3);
    EXPECT_TRUE(db().send("Select * From Nowhere").answer().failed());
    EXPECT_EQ(log.lines().size(), 2) << "the refused one and the unknown table";
}

TEST_F(ConnectionTest, UnknownColumnReadsAsNullAndIsLoggedOnce)
{
    Recordset rows = db().Open("Select * From Notes");
    while (rows.next()) {
        EXPECT_TRUE(rows.isNull("Colour"));
        EXPECT_EQ(rows.text("COLOUR"), "");
    }
    ASSERT_EQ(log.lines().size(), 1U);
    EXPECT_TRUE(log.lines().front().at(2).contains("Colour", Qt::CaseInsensitive));
}

TEST_F(ConnectionTest, FailureLeavesOneLineOfSixFieldsAndTheNextStatementRuns)
{
    const ErrorSite outer("frmMainGST", "FORM_LOAD");
    {
        const ErrorSite inner("frmBillGST", "CMDUPDATE_CLICK");
        EXPECT_FALSE(db().Execute("Insert Into Nowhere Values (1)"));
    }
    EXPECT_EQ(db().lastErrorNumber(), unsigned(ER_NO_SUCH_TABLE));
    EXPECT_EQ(db().affectedRows(), -1);
    EXPECT_FALSE(db().isLost());
    ASSERT_EQ(log.lines().size(), 1U);
    const QStringList line = log.lines().front();
    ASSERT_EQ(line.size(), 6);
    EXPECT_TRUE(QRegularExpression("^\\d\\d/\\d\\d/\\d{4} \\d\\d:\\d\\d:\\d\\d$").match(line.at(0)).hasMatch());
    EXPECT_EQ(line.at(1), "1146");
    EXPECT_TRUE(line.at(2).contains("nowhere", Qt::CaseInsensitive));
    EXPECT_FALSE(line.at(3).isEmpty());
    EXPECT_EQ(log.sites(), QStringList{"frmBillGST CMDUPDATE_CLICK"});
    EXPECT_EQ(gErrSite, "frmBillGST\tCMDUPDATE_CLICK");

    EXPECT_TRUE(db().Execute("Update Notes Set Amount=0 Where Id=1"));
    EXPECT_TRUE(db().Open("Select Nothing From Notes").failed());
    EXPECT_EQ(log.sites(), (QStringList{"frmBillGST CMDUPDATE_CLICK", "frmMainGST FORM_LOAD"}));
}

TEST_F(ConnectionTest, BreaksInADescriptionStayInsideTheirField)
{
    EXPECT_FALSE(db().Execute("Select *\tFrom\r\nNotes Wherever\n\tthe 'end"));
    ASSERT_EQ(log.lines().size(), 1U);
    EXPECT_EQ(log.lines().front().size(), 6);
    EXPECT_FALSE(log.lines().front().at(2).contains('\r'));
}

TEST_F(ConnectionTest, NothingToSayIsNotLogged)
{
    WriteErrLog(0, "no error", "Nowhere");
    EXPECT_TRUE(log.isEmpty());
    gLogPath = "/nowhere/at all/ledgora.log";
    EXPECT_FALSE(db().Execute("Nonsense")) << "a log that can not be written stops nothing";
}

TEST_F(ConnectionTest, CutTextsAndNumbersOutOfRangeAreLogged)
{
    EXPECT_TRUE(db().Execute("Insert Into Notes Values (99999999999, 'more than twenty letters', 1)"));
    EXPECT_EQ(db().affectedRows(), 1);
    EXPECT_EQ(log.lines().size(), 2U);
    EXPECT_EQ(database->rows("Select Words From Notes Where Amount=1"), QStringList{"more than twenty let"});
    EXPECT_TRUE(db().Execute("Drop Table If Exists Nowhere"));
    EXPECT_EQ(log.lines().size(), 2U) << "a note is no warning";
}

TEST_F(ConnectionTest, AffectedRowsAreThoseThatWereFound)
{
    EXPECT_TRUE(db().Execute("Update Notes Set Words='one' Where Id=1"));
    EXPECT_EQ(db().affectedRows(), 1) << "found, though nothing changed";
    EXPECT_TRUE(db().Execute("Update Notes Set Words='x' Where Id=9"));
    EXPECT_EQ(db().affectedRows(), 0);
}

TEST_F(ConnectionTest, WaitHookChangesNoResult)
{
    int calls = 0;
    db().setWaitHook(counting(calls));
    EXPECT_TRUE(db().Execute("Insert Into Notes Values (4, 'four', 4)"));
    EXPECT_EQ(db().affectedRows(), 1);
    Recordset rows = db().Open("Select Sum(Id) as Total, Sleep(0.02) From Notes");
    ASSERT_TRUE(rows.next());
    EXPECT_EQ(rows.integer("Total"), 10);
    EXPECT_FALSE(db().Execute("Nonsense"));
    EXPECT_EQ(db().lastErrorNumber(), unsigned(ER_PARSE_ERROR));
    EXPECT_TRUE(db().Execute("Insert Into Notes Values (5, 'more than twenty letters', 1)"));
    EXPECT_EQ(log.lines().size(), 2U) << "one failure, one warning";
    EXPECT_GT(calls, 0);
    EXPECT_FALSE(db().isRunning());
}

/// A hook that tries a second statement while the first one is under way.
struct Interloper
{
    Connection &db;
    bool refused = false;
    bool wasRunning = false;
    void operator()(const QString &sql)
    {
        int calls = 0;
        db.setWaitHook([this, wait = counting(calls)](int socket, short events, int timeoutMs) {
            wasRunning = db.isRunning();
            refused = !db.Execute("Delete From Notes") && db.Open("Select 1").failed();
            return wait(socket, events, timeoutMs);
        });
        db.Execute(sql);
        db.setWaitHook({});
    }
};

TEST_F(ConnectionTest, SecondStatementDuringAWaitIsRefusedAndSpoilsNothing)
{
    Interloper interloper{db()};
    interloper("Update Notes Set Amount=Sleep(0.01) Where Id<3");
    EXPECT_TRUE(interloper.wasRunning);
    EXPECT_TRUE(interloper.refused);
    EXPECT_EQ(db().affectedRows(), 2);
    EXPECT_EQ(database->rows("Select Count(*) From Notes"), QStringList{"3"});
    EXPECT_EQ(db().lastErrorNumber(), 0U) << "the statement itself went well";

    interloper("Insert Into Nowhere Values (1)");
    EXPECT_TRUE(interloper.refused);
    EXPECT_EQ(db().lastErrorNumber(), unsigned(ER_NO_SUCH_TABLE));
    EXPECT_EQ(log.lines().back().at(1), "1146");
}

TEST_F(ConnectionTest, InterruptEndsTheStatementAndNotTheConnection)
{
    const QString id = database->rows("Select Connection_Id()").value(0);
    db().setInterrupt([&id] { database->other().Execute("Kill Query " + id); });
    db().setWaitHook([](int socket, short events, int) -> short {
        constexpr int patience = 20;
        pollfd ready{socket, events, 0};
        while (poll(&ready, 1, patience) == 0)
            db().interrupt();
        return ready.revents;
    });
    EXPECT_FALSE(db().Execute("Update Notes Set Amount=Sleep(60) Where Id=1"));
    EXPECT_EQ(db().lastErrorNumber(), unsigned(ER_QUERY_INTERRUPTED));
    EXPECT_FALSE(db().isLost());
    db().setWaitHook({});
    db().setInterrupt({});
    EXPECT_EQ(log.lines().size(), 1U);
    EXPECT_EQ(database->rows("Select Amount From Notes Where Id=1"), QStringList{"1.5"});
}

TEST_F(ConnectionTest, WithoutAHandleEveryStatementFailsAndIsLogged)
{
    Connection none;
    EXPECT_FALSE(none.isOpen());
    EXPECT_TRUE(none.isLost());
    EXPECT_FALSE(none.Execute("Select 1"));
    EXPECT_TRUE(none.Open("Select 1").failed());
    EXPECT_EQ(log.lines().size(), 2U);
}

TEST_F(ConnectionTest, LostServerIsNoticedLoggedAndSurvived)
{
    for (const bool hooked : {false, true}) {
        test::Database own("C", test::Database::Tables::None);
        int calls = 0;
        if (hooked)
            own.db().setWaitHook(counting(calls));
        const QString id = own.rows("Select Connection_Id()").value(0);
        ASSERT_TRUE(own.other().Execute("Kill " + id));
        const size_t before = log.lines().size();
        EXPECT_FALSE(own.db().Execute("Select 1"));
        EXPECT_TRUE(own.db().isLost());
        EXPECT_TRUE(own.db().Open("Select 1").failed());
        EXPECT_TRUE(own.db().isLost());
        EXPECT_EQ(log.lines().size(), before + 2);
        EXPECT_FALSE(own.other().isLost());
    }
}

TEST_F(ConnectionTest, TextsOfEveryKindGoThroughWhole)
{
    database->run("Alter Table Notes Modify Words text");
    for (const QString &text : {QString(R"(O'Neil \ "and" `sons`)"), QString("\u0930\u092E\u0947\u0936 \u20B9"),
                                QString("\U0001F600"), QString::fromUtf8("a\0b", 3), QString("\r\n\t\x1A%_")}) {
        EXPECT_TRUE(db().Execute("Update Notes Set Words=" + quoted(text) + " Where Id=1"));
        Recordset rows = db().Open("Select Words From Notes Where Words=" + quoted(text));
        EXPECT_TRUE(rows.next());
        EXPECT_EQ(rows.text("Words"), text);
    }
    EXPECT_TRUE(log.isEmpty());
}

} // namespace
} // namespace ledgora
