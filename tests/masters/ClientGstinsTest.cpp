// The register of the GSTINs of the host's clients, and what the older side hands over once.

#include "masters/ClientGstins.h"

#include "masters/OlderTables.h"
#include "masters/OwnerName.h"
#include "tests/support/Database.h"
#include "tests/support/Print.h"
#include <gtest/gtest.h>

using namespace ledgora;
using namespace ledgora::test;

namespace {

TEST(OwnerName, HasSingleBlanksAndNoneAtItsEnds)
{
    EXPECT_EQ(ownerName("RAM", "", "GUPTA"), "RAM GUPTA");
    EXPECT_EQ(ownerName("RAM ", " ", " GUPTA"), "RAM GUPTA");
}

TEST(GstinFindings, AreToldInTheirOrder)
{
    const QString stateQuestion = "Invalid 'GSTIN' ! First 2-Digit shoule be State Code [21] for State [Orissa]."
                                  "\n\nDo you want to still want to save ?";
    const QString panMessage = "Invalid 'GSTIN' ! Should contain PAN [AAAFS1234K] from 3rd to 12th Character.";
    const QString tanQuestion = "Whether GSTIN for Assessee 'Registered as Tax Deductor with TAN' ?";
    const QString neither = "Invalid 'GSTIN' ! Should contain PAN or TAN from 3rd to 12th Character.";
    const struct
    {
        const char *name;
        QString gstin, state, pan;
        QStringList expected; ///< texts; "?" before a question, its message after No behind "|"
    } rows[] = {
        {"empty", "", "Orissa", "AAAFS1234K", {}},
        {"fits", "21AAAFS1234K1Z5", " Orissa ", "AAAFS1234K", {}},
        {"shape", "21aaafs1234k1Z5", "Orissa", "AAAFS1234K", {"Invalid 'GSTIN' !"}},
        {"state", "07AAAFS1234K1Z5", "Orissa", "AAAFS1234K", {"?" + stateQuestion + "|"}},
        {"unknown state", "07AAAFS1234K1Z5", "Atlantis", "AAAFS1234K", {}},
        {"pan", "21AAAFS1234L1Z5", "Orissa", "AAAFS1234K", {panMessage}},
        {"no pan", "21AAAFS1234L1Z5", "Orissa", "", {}},
        {"state and pan", "07AAAFS1234L1Z5", "Orissa", "AAAFS1234K", {"?" + stateQuestion + "|", panMessage}},
        {"deductor", "21DELA12345B1Z5", "Orissa", "AAAFS1234K", {"?" + tanQuestion + "|" + neither}},
        {"neither shape", "21ABCDEFGHIJ1Z5", "Orissa", "AAAFS1234K", {}},
    };
    for (const auto &row : rows) {
        QStringList told;
        for (const GstinFinding &finding : gstinFindings(row.gstin, row.state, row.pan))
            told << (finding.isQuestion ? QString('?' + finding.text + '|' + finding.messageAfterNo) : finding.text);
        EXPECT_EQ(told, row.expected) << row.name;
    }
}

QStringList shown(const Cells &clients)
{
    QStringList rows;
    for (int row = clients.fixedRows(); row < clients.rows(); ++row) {
        QStringList cells;
        for (int column = 0; column < ClientGstinColumnCount; ++column)
            cells << clients.text(row, column);
        rows << cells.join('|');
    }
    return rows;
}

TEST(ClientGstins, ListHoldsTheClientsOfTheHost)
{
    const struct
    {
        const char *host;
        std::vector<const char *> inserts;
        QStringList expected;
    } rows[] = {
        {"C",
         {"Insert Into Comp_Master (CompSrNo,Code,Nm,PAN,State) Values (1,'Z1','ZETA','P1','DELHI')",
          "Insert Into LLP_Master (Code,Nm,PAN,State) Values ('Z1','ALPHA LLP',Null,'GOA')",
          "Insert Into GST_ClRegNo Values ('LLP!~!Z1','30A',''),('Z1','07Z',''),('GONE','99X','')"},
         {"LLP!~!Z1|ALPHA LLP|GOA||30A|30A", "Z1|ZETA|DELHI|P1|07Z|07Z"}},
        {"G",
         {"Insert Into Owner1 (Code,F_nm,M_nm,l_nm,PAN,State,Code_No) Values ('O1','RAM','','GUPTA','P1','DELHI','X')",
          "Insert Into Main_Info1 (Code_No,Nm,PAN,State) Values ('M1','ALPHA','P2','GOA')",
          "Insert Into GST_ClRegNo Values ('O1','07A','')"},
         {"M1|ALPHA|GOA|P2||", "O1|RAM GUPTA|DELHI|P1|07A|07A"}},
        {"T",
         {"Insert Into Main_Info (Code_No,Name,PANNo,State) Values ('M1','ALPHA','P2','GOA')",
          "Insert Into GST_OthCl (OthClSrNo,OthClCode,Nm) Values (1,'BILL~OTHCL-000001','OTHER')",
          "Insert Into GST_ClRegNo Values ('M1','','')"},
         {"M1|ALPHA|GOA|P2||"}},
    };
    for (const auto &row : rows) {
        const Database data(row.host);
        for (const char *insert : row.inserts)
            data.run(insert);
        Cells clients = emptyClientGstins();
        LOADGRIDUPDCLGSTIN(const_cast<Database &>(data).db(), row.host, clients);
        EXPECT_EQ(shown(clients), row.expected) << row.host;
    }
}

TEST(ClientGstins, ChangesAreWrittenOneByOne)
{
    Database data;
    data.run("Insert Into Comp_Master (CompSrNo,Code,Nm) Values (1,'D''1','A'),(2,'B1','B'),(3,'C1','C'),(4,'E1','E')");
    data.run("Insert Into GST_ClRegNo Values ('B1','07B',''),('C1','07C',''),('E1','07E','')");
    Cells clients = emptyClientGstins();
    LOADGRIDUPDCLGSTIN(data.db(), "C", clients);
    const QStringList gstins{"07NEW", "07B2", "", "07E"};
    for (int row = 1; row <= 4; ++row)
        clients.setText(row, ClientGstin, gstins.at(row - 1));
    EXPECT_EQ(changedGstins(clients), (std::vector<int>{1, 2, 3}));
    EXPECT_TRUE(saveClientGstins(data.db(), clients));
    const QString all = "Select * From GST_ClRegNo Order by Code_No";
    EXPECT_EQ(data.rows(all), (QStringList{"B1|07B2|", "D'1|07NEW|", "E1|07E|"}));
    EXPECT_TRUE(changedGstins(clients).empty());

    // A row that another user took away is written anew by the second try.
    clients.setText(2, ClientGstin, "07B3");
    data.run("Delete From GST_ClRegNo Where Code_No='B1'");
    EXPECT_FALSE(saveClientGstins(data.db(), clients));
    EXPECT_TRUE(saveClientGstins(data.db(), clients));
    EXPECT_EQ(data.rows(all).value(0), "B1|07B3|");
}

TEST(OlderTables, CompaniesAndOtherClientsAreTakenOverOnce)
{
    Database data;
    EXPECT_FALSE(IMPORTOLDBILLFIRMS(data.db())) << "nothing is there";
    data.run("Insert Into Table3 (Name,address,area,city,pincode,designation,pnoo1,pnoo2,pnor1,pnor2,No,pass,StRegNo,"
             "MobNo,PAN) Values ('ZETA','a1','a2','c','p','d','o1','o2','r1','r2','f','pw','st','m','pan'),"
             "('D''SOUZA \\\\ CO',Null,'','','','','','','','','','','','','')");
    data.run("Insert Into biller Values ('X','ASHOK','n','h','s','a','c','GOA','pin','p1','p2','f','m','e')");
    EXPECT_TRUE(IMPORTOLDBILLFIRMS(data.db()));
    EXPECT_EQ(data.rows("Select * From GST_FirmMas Order by FirmSrNo"),
              (QStringList{"1|D'SOUZA \\ CO|||||||||||||||||||||||||",
                           "2|ZETA|d|a1|a2|c|p||o1|o2|r1|r2|f|m|||pan||||||||||pw"}));
    EXPECT_TRUE(IMPORTOLDBILLOTHCLS(data.db()));
    const QStringList clients{"1|BILL~OTHCL-000001|ASHOK|n|h|s|a|c|pin|GOA|p1|p2|f|m|e||"};
    EXPECT_EQ(data.rows("Select * From GST_OthCl"), clients);
    EXPECT_FALSE(IMPORTOLDBILLOTHCLS(data.db())) << "another user was first";
    EXPECT_EQ(data.rows("Select * From GST_OthCl"), clients);
    data.run("Drop Table biller");
    data.run("Delete From GST_OthCl");
    EXPECT_FALSE(IMPORTOLDBILLOTHCLS(data.db())) << "an office without the older side";
    EXPECT_TRUE(data.other().Execute("Insert Into GST_OthCl (OthClSrNo) Values (1)")) << "no lock is left behind";
}

} // namespace
