// The clients of the reference host on a real server.

#include "app/ClientStore.h"

#include "masters/PartyDirectory.h"
#include "support/Database.h"
#include "support/Log.h"
#include "support/Print.h"
#include <gtest/gtest.h>

namespace ledgora::app {
namespace {

using test::Database;

MasterRow company(const QString &code, const QString &name, const QString &city = "DELHI")
{
    return {
        {"Code", code},     {"Nm", name},     {"PAN", "AABCC1234D"}, {"Flat", "14"},     {"Building", "O'HARA\\HOUSE"},
        {"street", "MALL"}, {"area", "FORT"}, {"city", city},        {"State", "DELHI"}, {"PIN", "110001"},
        {"Phone", "11"},    {"Fax", "12"},    {"Mob", "13"},         {"Email", "a@b.in"}};
}

MasterRow partnership(const QString &code, const QString &name)
{
    return {{"Code", code},
            {"Nm", name},
            {"PAN", "AABFG1234C"},
            {"Line1", "7/2"},
            {"Line2", "CAMP"},
            {"city", "PUNE"},
            {"State", "MAHARASHTRA"},
            {"PIN", "411004"},
            {"Phone", "21"},
            {"Fax", "22"},
            {"Mob", "23"},
            {"Email", "c@d.in"}};
}

class ClientStore : public testing::Test
{
protected:
    static void SetUpTestSuite() { s_data = std::make_unique<Database>(); }
    static void TearDownTestSuite() { s_data.reset(); }
    void SetUp() override { data().empty(); }
    void TearDown() override { EXPECT_EQ(log.isEmpty(), !mayLog) << log.sites().join(", ").toStdString(); }

    static Database &data() { return *s_data; }
    static Connection &db() { return data().db(); }
    static ClientRef added(const MasterRow &row)
    {
        return {ClientKind::Company, insertClient(db(), ClientKind::Company, row).id, row.value("Code")};
    }

    test::Log log;
    bool mayLog = false;

private:
    static inline std::unique_ptr<Database> s_data;
};

const ClientRef acme{ClientKind::Company, 1, "ACME"};
const ClientRef river{ClientKind::Partnership, 0, "RIVER"};

TEST_F(ClientStore, BothKindsComeBackWholeAndBillsFindThem)
{
    EXPECT_TRUE(insertClient(db(), ClientKind::Company, company("ACME", "ACME LTD.")).inserted);
    EXPECT_TRUE(insertClient(db(), ClientKind::Partnership, partnership("RIVER", "A RIVER LLP")).inserted);
    EXPECT_EQ(storedClient(db(), acme), company("ACME", "ACME LTD."));
    EXPECT_EQ(storedClient(db(), river), partnership("RIVER", "A RIVER LLP"));

    Cells clients = emptyClientList();
    loadClientList(db(), "C", clients);
    ASSERT_EQ(clients.rows(), 3);
    EXPECT_EQ(clients.text(1, ClientName), "A RIVER LLP");
    EXPECT_EQ(rowOfClient(clients, acme), 2);
    EXPECT_EQ(clientAt(clients, 2).id, 1);
    EXPECT_EQ(clientAt(clients, 1).partyCode(), "LLP!~!RIVER");

    Cells parties = emptyPartyDirectory();
    LOADCLLIST(db(), "C", parties);
    ASSERT_EQ(parties.rows(), 3);
    EXPECT_EQ(parties.text(1, 0), "LLP!~!RIVER");
    EXPECT_EQ(parties.text(2, 5), "14, O'HARA\\HOUSE, MALL, FORT, DELHI, DELHI-110001");
}

TEST_F(ClientStore, CodeIsGivenOnceOverBothKinds)
{
    added(company("ACME", "ACME LTD."));
    insertClient(db(), ClientKind::Partnership, partnership("RIVER", "RIVER LLP"));
    const struct
    {
        const char *code, *message;
    } cases[] = {{"NEW-1", ""},
                 {"", "Please Specify Code No."},
                 {"ACME", "Code No. [ACME] has already been allotted."},
                 {"RIVER", "Code No. [RIVER] has already been allotted."},
                 {"COM1", "Code No. [COM1] is not allowed (Reserved word by Windows)."},
                 {"ABCDEFGHIJKLMNOPQRST", ""},
                 {"ABCDEFGHIJKLMNOPQRSTU", "Code No. length can not exceed 20 characters."}};
    for (const auto &c : cases)
        EXPECT_EQ(clientCodeFault(db(), "C", c.code), c.message) << c.code;
}

/// Another user was quicker between the test of the code and the insert.
TEST_F(ClientStore, PartnershipIsNotInsertedUnderATakenCode)
{
    EXPECT_TRUE(insertClient(db(), ClientKind::Partnership, partnership("RIVER", "FIRST")).inserted);
    EXPECT_FALSE(insertClient(db(), ClientKind::Partnership, partnership("RIVER", "SECOND")).inserted);
    EXPECT_EQ(data().rows("Select Nm From LLP_Master"), QStringList{"FIRST"});
    EXPECT_TRUE(data().other().Execute("Insert Into LLP_Master (Code) Values ('FREE')")) << "a lock was left";
}

TEST_F(ClientStore, InsertThatMeetsALockTellsSo)
{
    mayLog = true;
    ASSERT_TRUE(data().other().Execute("LOCK TABLES LLP_Master Write, Comp_Master Write"));
    EXPECT_FALSE(insertClient(db(), ClientKind::Partnership, partnership("RIVER", "RIVER LLP")).inserted);
    const InsertResult result = insertClient(db(), ClientKind::Company, company("ACME", "ACME LTD."));
    EXPECT_EQ(result.id, 0);
    EXPECT_FALSE(result.inserted);
    data().other().Execute("UNLOCK TABLES");
    EXPECT_TRUE(data().rows("Select * From Comp_Master").isEmpty());
}

TEST_F(ClientStore, UpdateKeepsTheCodeAndTellsOfARowThatIsGone)
{
    added(company("ACME", "ACME LTD."));
    insertClient(db(), ClientKind::Partnership, partnership("RIVER", "RIVER LLP"));
    EXPECT_TRUE(updateClient(db(), acme, company("OTHER", "D'ACME")));
    EXPECT_TRUE(updateClient(db(), river, partnership("OTHER", "RIVERS LLP")));
    EXPECT_TRUE(updateClient(db(), acme, company("ACME", "D'ACME"))) << "unchanged is no failure";
    EXPECT_EQ(data().rows("Select Code,Nm From Comp_Master"), QStringList{"ACME|D'ACME"});
    EXPECT_EQ(data().rows("Select Code,Nm From LLP_Master"), QStringList{"RIVER|RIVERS LLP"});
    data().run("Delete From Comp_Master");
    EXPECT_FALSE(updateClient(db(), acme, company("ACME", "ACME LTD.")));
    EXPECT_EQ(storedClient(db(), acme), std::nullopt);
}

struct DayCase
{
    const char *name;
    const char *typed;
    const char *last;
    const char *message;
};
class ChangeDay : public testing::TestWithParam<DayCase>
{
};

TEST_P(ChangeDay, IsPastAndNotBeforeTheLatest)
{
    const DayCase &c = GetParam();
    EXPECT_EQ(changeDateFault(c.typed, QDate::fromString(c.last, Qt::ISODate), QDate(2024, 6, 15)), c.message);
}

const char *const invalidDay = "Please specify a valid date, or leave it empty for a correction.";
const char *const future = "The day of the change can not lie in the future.";
const char *const tooEarly = "The latest change holds from 01/04/2023. A further one can not begin before it.";
INSTANTIATE_TEST_SUITE_P(Days, ChangeDay,
                         testing::Values(DayCase{"Empty", "", "2023-04-01", ""}, DayCase{"Today", "15/06/2024", "", ""},
                                         DayCase{"Tomorrow", "16/06/2024", "", future},
                                         DayCase{"NoDate", "ab/cd/efgh", "", invalidDay},
                                         DayCase{"NoSuchDay", "31/02/2024", "", invalidDay},
                                         DayCase{"Ancient", "01/01/1900", "", invalidDay},
                                         DayCase{"BeforeTheLatest", "31/03/2023", "2023-04-01", tooEarly},
                                         DayCase{"SameDayAgain", "01/04/2023", "2023-04-01", ""}),
                         [](const auto &each) { return std::string(each.param.name); });

QStringList names(const Database &data)
{
    return data.rows("Select CompSrNo,session,Date(ChDate),NewName From ChangeName Order By CompSrNo,ChDate");
}

TEST_F(ClientStore, FirstChangeKeepsTheFormerNameForEarlierYears)
{
    EXPECT_TRUE(noteClientChange(db(), 1, company("ACME", "OLD"), company("ACME", "NEW"), QDate(2023, 3, 31)));
    EXPECT_EQ(names(data()), (QStringList{"1|1900-01|1900-04-01|OLD", "1|2022-23|2023-03-31|NEW"}));
    EXPECT_TRUE(data().rows("Select * From ChangeAddr").isEmpty());
    EXPECT_EQ(lastChange(db(), acme), QDate(2023, 3, 31));
    EXPECT_FALSE(lastChange(db(), {ClientKind::Company, 2, "B"}).isValid());
    EXPECT_FALSE(lastChange(db(), river).isValid());

    EXPECT_TRUE(noteClientChange(db(), 1, company("ACME", "NEW"), company("ACME", "NEWER"), QDate(2024, 4, 1)));
    EXPECT_EQ(names(data()).mid(1), (QStringList{"1|2022-23|2023-03-31|NEW", "1|2024-25|2024-04-01|NEWER"}));
}

/// A save that failed on its way is pressed again with the same day.
TEST_F(ClientStore, SameChangeTwiceIsNotedOnce)
{
    for (int i = 0; i < 2; ++i)
        EXPECT_TRUE(noteClientChange(db(), 1, company("ACME", "OLD"), company("ACME", "NEW"), QDate(2023, 4, 1)));
    EXPECT_EQ(names(data()), (QStringList{"1|1900-01|1900-04-01|OLD", "1|2023-24|2023-04-01|NEW"}));
}

TEST_F(ClientStore, AddressHasAHistoryOfItsOwn)
{
    EXPECT_TRUE(noteClientChange(db(), 1, company("ACME", "A"), company("ACME", "A", "PUNE"), QDate(2023, 4, 1)));
    EXPECT_TRUE(names(data()).isEmpty());
    EXPECT_EQ(data().rows("Select session,Flat,Building,street,area,city,State,PIN From ChangeAddr Order By ChDate"),
              (QStringList{"1900-01|14|O'HARA\\HOUSE|MALL|FORT|DELHI|DELHI|110001",
                           "2023-24|14|O'HARA\\HOUSE|MALL|FORT|PUNE|DELHI|110001"}));
}

TEST_F(ClientStore, CorrectionMendsTheLatestNoteAndMakesNone)
{
    EXPECT_TRUE(noteClientChange(db(), 1, company("ACME", "A"), company("ACME", "B"), {}));
    EXPECT_TRUE(names(data()).isEmpty());
    noteClientChange(db(), 1, company("ACME", "OLD"), company("ACME", "NWE"), QDate(2023, 4, 1));
    noteClientChange(db(), 2, company("B", "OLD"), company("B", "NWE"), QDate(2023, 4, 1));
    EXPECT_TRUE(noteClientChange(db(), 1, company("ACME", "NWE"), company("ACME", "NEW"), {}));
    EXPECT_EQ(names(data()), (QStringList{"1|1900-01|1900-04-01|OLD", "1|2023-24|2023-04-01|NEW",
                                          "2|1900-01|1900-04-01|OLD", "2|2023-24|2023-04-01|NWE"}));
}

TEST_F(ClientStore, HistoryThatCanNotBeWrittenTellsSo)
{
    mayLog = true;
    ASSERT_TRUE(data().other().Execute("LOCK TABLES ChangeName Write"));
    EXPECT_FALSE(noteClientChange(db(), 1, company("ACME", "OLD"), company("ACME", "NEW"), QDate(2023, 4, 1)));
    data().other().Execute("UNLOCK TABLES");
}

TEST_F(ClientStore, DocumentsOfAllCompaniesCount)
{
    data().run("Insert Into GST_BillM (BillSrNo,FirmId,Code_No) Values (1,1,'ACME'),(2,2,'ACME'),(3,1,'LLP!~!RIVER'),"
               "(4,1,'RIVER')");
    data().run("Insert Into GST_RecpM (RecpSrNo,Code_No) Values (1,'LLP!~!RIVER')");
    EXPECT_EQ(clientUse(db(), acme), (ClientUse{2, 0}));
    EXPECT_EQ(clientUse(db(), river), (ClientUse{1, 1}));
}

/// Somebody writes a bill while the question is still open.
TEST_F(ClientStore, ClientWithDocumentsIsNotDeletedWhateverWasCounted)
{
    added(company("ACME", "ACME LTD."));
    insertClient(db(), ClientKind::Partnership, partnership("RIVER", "RIVER LLP"));
    noteClientChange(db(), 1, company("ACME", "OLD"), company("ACME", "NEW"), QDate(2023, 4, 1));
    data().run("Insert Into GST_BillM (BillSrNo,Code_No) Values (1,'ACME')");
    data().run("Insert Into GST_RecpM (RecpSrNo,Code_No) Values (1,'LLP!~!RIVER')");
    EXPECT_FALSE(deleteClient(db(), acme));
    EXPECT_FALSE(deleteClient(db(), river));
    EXPECT_EQ(data().rows("Select Code From Comp_Master Union Select Code From LLP_Master"),
              (QStringList{"ACME", "RIVER"}));
    EXPECT_EQ(names(data()).size(), 2);
}

/// The id or code may be given to the next client, who must not inherit.
TEST_F(ClientStore, DeletedClientLeavesNothingToInherit)
{
    added(company("ACME", "ACME LTD."));
    added(company("BETA", "BETA LTD."));
    for (const int id : {1, 2})
        noteClientChange(db(), id, company("X", "OLD"), company("X", "NEW", "PUNE"), QDate(2023, 4, 1));
    data().run("Insert Into GST_ClRegNo Values ('ACME','07AABCC1234D1Z5',''),('BETA','07AABCC1234D1Z5','')");
    EXPECT_TRUE(deleteClient(db(), acme));
    EXPECT_TRUE(deleteClient(db(), acme)) << "gone already is gone";
    EXPECT_EQ(data().rows("Select Code From Comp_Master"), QStringList{"BETA"});
    EXPECT_EQ(data().rows("Select Code_No From GST_ClRegNo"), QStringList{"BETA"});
    EXPECT_EQ(data().rows("Select Distinct CompSrNo From ChangeName Union Select CompSrNo From ChangeAddr"),
              QStringList{"2"});
}

} // namespace
} // namespace ledgora::app
