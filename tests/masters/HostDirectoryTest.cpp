// The party directory of hosts "G" and "T", the addresses of individuals, groups, and names by year.

#include "bills/DocumentList.h"
#include "masters/ClientGroups.h"
#include "masters/PartyDirectory.h"
#include "masters/PartyHistory.h"
#include "store/Settings.h"
#include "tests/support/Database.h"
#include "tests/support/Log.h"
#include "tests/support/Print.h"
#include "tests/support/StoreTest.h"
#include <gtest/gtest.h>
#include <memory>

namespace ledgora {
namespace {

class HostTables : public testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        for (const char *host : {"G", "T", "C"})
            databases[QLatin1Char(*host)] = std::make_unique<test::Database>(host);
    }
    static void TearDownTestSuite() { databases.clear(); }
    void SetUp() override
    {
        gAppPath = folder.path();
        for (const auto &[host, database] : databases)
            database->empty();
    }
    void TearDown() override { gAppPath.clear(); }

    static test::Database &of(const char *host) { return *databases.at(QLatin1Char(*host)); }
    /// The directory as lines "code|name|PAN|GSTIN|state|address".
    QStringList load(const char *host, int historyOfYear = 0)
    {
        LOADCLLIST(of(host).db(), host, parties);
        if (historyOfYear > 0)
            CEF_UPDATEADDRESS(of(host).db(), historyOfYear, parties);
        EXPECT_EQ(parties.columns(), PartyColumnCount);
        return test::linesOf(parties);
    }

    static inline std::map<QChar, std::unique_ptr<test::Database>> databases;
    QTemporaryDir folder;
    test::Log log;
    Cells parties = emptyPartyDirectory();
};

TEST_F(HostTables, OfHostGAreIndividualsAndOtherClients)
{
    of("G").run("Insert Into Owner1 (Code,F_nm,M_nm,l_nm,h_no,State,PIN,PAN) Values "
                "('2','Ram',NULL,'Zutshi','5','DELHI','110001','P2'),('3','','','Asha',NULL,NULL,'0',NULL)");
    of("G").run("Insert Into Main_Info1 (Code_No,Nm,h_no,PIN,PAN) Values ('A1','Mohan & Co','7','395001','P1'),"
                "('B''1','Nil Trust',NULL,'0',NULL)");
    of("G").run("Insert Into GST_ClRegNo Values ('A1','24X',''),('2','07Y',''),('gone','1',''),('a1','9','')");
    of("G").run("Insert Into GST_OthCl (OthClSrNo,OthClCode,Nm,h_no) Values (1,'BILL~OTHCL-000001','Bina','0')");
    EXPECT_EQ(load("G"), (QStringList{"3|Asha||||", "BILL~OTHCL-000001|Bina||||", "A1|Mohan & Co|P1|24X||7-395001",
                                      "B'1|Nil Trust||||", "2|Ram Zutshi|P2|07Y|DELHI|5, DELHI-110001"}));
    EXPECT_TRUE(log.isEmpty());
}

TEST_F(HostTables, OfHostTIsMainInfo)
{
    of("T").run("Insert Into Main_Info (Code_No,Name,PANNo,Flat,city,State,PIN) Values "
                "('T1','Zeta','PZ','4','Surat','GUJARAT','395001'),('T2','Alpha','PA',NULL,NULL,NULL,'0')");
    of("T").run("Insert Into GST_ClRegNo Values ('T1','24X','')");
    EXPECT_EQ(load("T"), (QStringList{"T2|Alpha|PA|||0", "T1|Zeta|PZ|24X|GUJARAT|4, Surat, GUJARAT-395001"}));
    EXPECT_TRUE(log.isEmpty());
}

struct AddressCase
{
    const char *rule;
    const char *addrOpt, *addrOffNm;
    QStringList states; ///< "code state address" of each individual, by name
};

class IndividualsAddress : public HostTables, public testing::WithParamInterface<AddressCase>
{
};

TEST_P(IndividualsAddress, FollowsTheSettings)
{
    // Home and office; home alone; office alone; neither; an office without address; two codes that differ in case.
    of("G").run("Insert Into Owner1 (Code,F_nm,h_no,State) Values ('B','1','home B','DELHI'),('H','2','home H','GOA'),"
                "('O','3','','BIHAR'),('N','4',NULL,NULL),('E','5','home E','ASSAM'),('b2','6','home b2','DELHI')");
    of("G").run("Insert Into off_info (code_no,Nm,h_no,State,PIN) Values ('B','Firm B','7','PUNJAB','110001'),"
                "('O','Firm O','8',NULL,'0'),('E','',NULL,NULL,NULL),('gone','Firm','9','GOA','1'),"
                "('B2','Firm B2','10','GOA','1')");
    // The latest year of B says home, of O office; H and E say nothing; a code with ^ is no client's.
    of("G").run("Insert Into new_Tab Values ('B','2023-24',1),('B','2024-25',0),('O','2024-25',1),('O','2022-23',0),"
                "('E^1','2024-25',0),('N','2024-25',NULL),('b','2025-26',1)");
    SAVESETTININI("Settings", "AddrOpt", GetParam().addrOpt);
    SAVESETTININI("Settings", "AddrOffNm", GetParam().addrOffNm);
    load("G");
    QStringList states;
    for (int row = 1; row < parties.rows(); ++row)
        states << QStringList{parties.text(row, PartyCode), parties.text(row, PartyState),
                              parties.text(row, PartyAddress)}
                      .join('|');
    EXPECT_EQ(states, GetParam().states);
    EXPECT_TRUE(log.isEmpty());
}

const QStringList atHome{"B|DELHI|home B, DELHI", "H|GOA|home H, GOA",      "O|BIHAR|BIHAR", "N||",
                         "E|ASSAM|home E, ASSAM", "b2|DELHI|home b2, DELHI"};

INSTANTIATE_TEST_SUITE_P(Choices, IndividualsAddress,
                         testing::Values(AddressCase{"Residence", "0", "0", atHome},
                                         AddressCase{"UnknownChoiceIsResidence", "5", "0", atHome},
                                         AddressCase{"OfficeEvenWhenItsAddressIsEmpty",
                                                     "1",
                                                     "1",
                                                     {"B|PUNJAB|7, PUNJAB-110001", "H|GOA|home H, GOA", "O||8-0", "N||",
                                                      "E||", "b2|DELHI|home b2, DELHI"}},
                                         AddressCase{"OfficeOnlyWhereThereIsNoResidence",
                                                     "2",
                                                     "0",
                                                     {"B|DELHI|home B, DELHI", "H|GOA|home H, GOA", "O|BIHAR|BIHAR",
                                                      "N||", "E|ASSAM|home E, ASSAM", "b2|DELHI|home b2, DELHI"}},
                                         AddressCase{"OfficeWhereItHasAnAddress",
                                                     "3",
                                                     "0",
                                                     {"B|PUNJAB|Firm B, 7, PUNJAB-110001", "H|GOA|home H, GOA",
                                                      "O||Firm O, 8-0", "N||", "E|ASSAM|home E, ASSAM",
                                                      "b2|DELHI|home b2, DELHI"}},
                                         AddressCase{"LatestAssessmentYearElseOffice",
                                                     "4",
                                                     "1",
                                                     {"B|DELHI|home B, DELHI", "H|GOA|home H, GOA", "O||8-0", "N||",
                                                      "E||", "b2|DELHI|home b2, DELHI"}}),
                         [](const auto &choice) { return std::string(choice.param.rule); });

TEST_F(HostTables, OfficeStandsInForAnEmptyResidence)
{
    of("G").run("Insert Into Owner1 (Code,F_nm) Values ('N','Nil'),('Z','Zero')");
    of("G").run("Update Owner1 Set PIN='0' Where Code='Z'");
    of("G").run("Insert Into off_info (code_no,h_no,State) Values ('N','8','GOA'),('Z','9','GOA')");
    SAVESETTININI("Settings", "AddrOpt", "2");
    SAVESETTININI("Settings", "AddrOffNm", "1");
    EXPECT_EQ(load("G"), (QStringList{"N|Nil|||GOA|8, GOA", "Z|Zero|||GOA|9, GOA"}));
}

TEST_F(HostTables, GroupsAreQuotedListsAndHostGAlone)
{
    of("G").run("Insert Into Grp_M Values ('1','Mehta''s'),('O''N','Odd')");
    of("G").run("Insert Into Grp_Trans Values ('1','A'),('1','B\\\\''1'),('O''N','C'),('9','D')");
    of("G").run("Insert Into GST_OthCl (OthClSrNo,OthClCode) Values (1,'BILL~OTHCL-000001'),(2,'BILL~OTHCL-000002')");
    const struct
    {
        const char *group, *codes;
    } groups[] = {{"1", "'A','B\\\\''1'"},
                  {"O'N", "'C'"},
                  {"$#$OTH$#$", "'BILL~OTHCL-000001','BILL~OTHCL-000002'"},
                  {"' or '1'='1", ""}};
    for (const auto &g : groups)
        EXPECT_EQ(GETGROUPCLS(of("G").db(), g.group), g.codes);

    const struct
    {
        const char *host, *client, *code, *name;
    } clients[] = {{"G", "B\\'1", "1", "Mehta's"},
                   {"G", "C", "O'N", "Odd"},
                   {"G", "D", "9", ""},
                   {"G", "nobody", "", ""},
                   {"C", "A", "as", "before"}};
    for (const auto &c : clients) {
        QString code = "as";
        QString name = "before";
        GETGROUPDETAILS(of("G").db(), c.host, c.client, code, name);
        EXPECT_EQ(code + '|' + name, QString::fromLatin1(c.code) + '|' + c.name) << c.client;
    }
    EXPECT_TRUE(log.isEmpty());
}

TEST_F(HostTables, CompaniesBearTheNameAndAddressOfTheYear)
{
    of("C").run("Insert Into Comp_Master (CompSrNo,Code,Nm,State,Flat) Values (1,'K1','Now Ltd','GOA','9'),"
                "(2,'K2','Beta Ltd','GOA','1')");
    of("C").run("Insert Into ChangeName Values (1,'1900-01','1900-04-01','Old Ltd'),"
                "(1,'2024-25','2025-03-31','Now Ltd'),(1,'2023-24','2023-07-01','Zwischen Ltd'),"
                "(7,'2020-21','2020-07-01','Nobody'),(2,'2023-24',NULL,'Undated')");
    of("C").run("Insert Into ChangeAddr Values (1,'2023-24','2023-07-01','5','Rose','','','Surat','GUJARAT','395001'),"
                "(2,'2024-25','2025-04-01','6','','','','','DELHI','1')");
    const struct
    {
        int year;
        QStringList lines;
    } years[] = {
        {2022, {"K2|Beta Ltd|||GOA|1, GOA", "K1|Old Ltd|||GOA|9, GOA"}},
        {2023, {"K2|Beta Ltd|||GOA|1, GOA", "K1|Zwischen Ltd|||GUJARAT|5, Rose, Surat, GUJARAT-395001"}},
        {2024, {"K2|Beta Ltd|||GOA|1, GOA", "K1|Now Ltd|||GUJARAT|5, Rose, Surat, GUJARAT-395001"}},
        {2022, {"K2|Beta Ltd|||GOA|1, GOA", "K1|Old Ltd|||GOA|9, GOA"}},
    };
    for (const auto &y : years)
        EXPECT_EQ(load("C", y.year), y.lines) << y.year;
    load("T", 2024);
    EXPECT_TRUE(log.isEmpty()) << "a host without a history has none to lay over";
}

} // namespace
} // namespace ledgora
