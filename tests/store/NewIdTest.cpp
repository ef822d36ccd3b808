#include "store/NewId.h"

#include "store/ErrorLog.h"
#include "tests/support/Print.h"
#include "tests/support/StoreTest.h"
#include <gtest/gtest.h>
#include <mysqld_error.h>

namespace ledgora {
namespace {

class NewId : public test::StoreTest
{
protected:
    static InsertResult insertSeries(const QString &values = "'B',2024,'A/','P'")
    {
        return insertUnderNewId(database->db(), "GST_Series", "SeriesSrNo", [&](int id) -> QString {
            return "Insert Into GST_Series Values (" + QString::number(id) + ',' + values + ')';
        });
    }
    static QStringList ids() { return database->rows("Select SeriesSrNo From GST_Series Order By SeriesSrNo"); }
    /// Whether the other user can write the table, and this one another table: nothing is locked.
    static bool nothingIsLocked()
    {
        return database->other().Execute("Update GST_Series Set FY=2024")
               && database->db().Execute("Update GST_OthCl Set Nm=''");
    }
};

TEST_F(NewId, IsOneInAnEmptyTable)
{
    const InsertResult result = insertSeries();
    EXPECT_EQ(result.id, 1);
    EXPECT_TRUE(result.inserted);
    EXPECT_EQ(database->rows("Select * From GST_Series"), QStringList{"1|B|2024|A/|P"});
    EXPECT_TRUE(nothingIsLocked());
    EXPECT_TRUE(log.isEmpty());
}

TEST_F(NewId, IsOneAboveTheHighestEvenIfALowerOneIsFree)
{
    database->run("Insert Into GST_Series Values (2,'B',2024,'',''),(7,'B',2024,'','')");
    EXPECT_EQ(insertSeries().id, 8);
    database->run("Delete From GST_Series Where SeriesSrNo>2");
    EXPECT_EQ(insertSeries().id, 3) << "a maximum, not a counter";
}

TEST_F(NewId, IsRefusedBelowOne)
{
    database->run("Insert Into GST_Series Values (-5,'B',2024,'','')");
    const InsertResult result = insertSeries();
    EXPECT_EQ(result.id, 0);
    EXPECT_FALSE(result.inserted);
    EXPECT_EQ(ids(), QStringList{"-5"});
    EXPECT_TRUE(nothingIsLocked());
}

// A read lock of the other user lets the highest id be read, so that the time-out of the lock alone must stop the save.
TEST_F(NewId, IsNotAllottedWhileTheOtherUserHoldsTheTable)
{
    for (const QString kind : {"Write", "Read"}) {
        database->run("Delete From GST_Series");
        ASSERT_TRUE(database->other().Execute("Lock Table GST_Series " + kind));
        const ErrorSite site("frmMainGST", "CMDSRSAVE_CLICK");
        const InsertResult result = insertSeries();
        EXPECT_EQ(result.id, 0) << kind.toStdString();
        EXPECT_FALSE(result.inserted);
        ASSERT_FALSE(log.isEmpty());
        EXPECT_EQ(log.lines().back().at(1), QString::number(ER_LOCK_WAIT_TIMEOUT));
        EXPECT_EQ(log.sites().constFirst(), "frmMainGST CMDSRSAVE_CLICK");
        ASSERT_TRUE(database->other().Execute("Unlock Tables"));
        EXPECT_TRUE(ids().isEmpty());
        EXPECT_TRUE(nothingIsLocked());
    }
}

TEST_F(NewId, FailedInsertStillUnlocks)
{
    const InsertResult result = insertSeries("'B',2024,'one value too few'");
    EXPECT_EQ(result.id, 1);
    EXPECT_FALSE(result.inserted);
    EXPECT_TRUE(ids().isEmpty());
    EXPECT_TRUE(nothingIsLocked());
    EXPECT_EQ(log.lines().size(), 1U);
}

TEST_F(NewId, MissingTableGivesNone)
{
    const InsertResult result = insertUnderNewId(
        database->db(), "GST_Gone", "Id", [](int) { return QString("Insert Into GST_Series Values (1,'','','','')"); });
    EXPECT_EQ(result.id, 0);
    EXPECT_TRUE(ids().isEmpty());
    EXPECT_TRUE(nothingIsLocked());
}

TEST_F(NewId, TwoUsersNeverShareOne)
{
    const auto insertBy = [](Connection &db) {
        return insertUnderNewId(db, "GST_Series", "SeriesSrNo",
                                [](int id) -> QString {
                                    return "Insert Into GST_Series Values (" + QString::number(id) + ",'R',2024,'','')";
                                })
            .id;
    };
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(insertBy(database->db()), 2 * i + 1);
        EXPECT_EQ(insertBy(database->other()), 2 * i + 2);
    }
}

TEST(InvalidId, IsToldInTheseWords)
{
    EXPECT_STREQ(invalidIdMessage, "Invalid ID generated for the new Record. Can't Save !");
}

} // namespace
} // namespace ledgora
