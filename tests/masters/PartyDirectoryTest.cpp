#include "masters/PartyDirectory.h"

#include "bills/DocumentList.h"
#include "masters/SeriesStore.h"
#include "store/Connection.h"
#include "store/DocumentNumber.h"
#include "tests/support/Print.h"
#include "tests/support/StoreTest.h"
#include <gtest/gtest.h>

namespace ledgora {
namespace {

TEST(OneLineAddress, JoinsFilledPartsAndThePostalCode)
{
    const struct
    {
        QStringList parts;
        const char *address;
    } cases[] = {
        {{"12", "Rose", "MG Road", "Fort", "Surat", "GUJARAT", "395001"},
         "12, Rose, MG Road, Fort, Surat, GUJARAT-395001"},
        {{"", "", "MG Road", "", "Surat", "", ""}, "MG Road, Surat"},
        {{"12", "", "", "", "", "", "395001"}, "12-395001"},
        {{"", "", "", "", "", "", "395001"}, "395001"},
        {{"", "", "", "", "", "", ""}, ""},
        {{"0", "", "", "", "", "", "0"}, "0-0"},
        {{"A, B", "-", "c"}, "A, B, --c"},
    };
    for (const auto &c : cases)
        EXPECT_EQ(oneLineAddress(c.parts), c.address);
}

class PartyDirectory : public test::StoreTest
{
protected:
    void SetUp() override
    {
        StoreTest::SetUp();
        database->run("Insert Into Comp_Master (CompSrNo,Code,Nm,PAN,Flat,Building,street,area,city,State,PIN) Values "
                      "(1,'7','Zeta Ltd','AAACZ1234B','1','Rose','MG Road','Fort','Surat','GUJARAT','395001'),"
                      "(2,'C''2','mohan Ltd',NULL,NULL,NULL,NULL,NULL,NULL,NULL,'0')");
        database->run("Insert Into LLP_Master (Code,Nm,PAN,Line1,Line2,city,State,PIN) Values "
                      "('7','Bina LLP','AAAFB1234B','Line one','','Delhi','DELHI','110001')");
        database->run("Insert Into GST_OthCl Values "
                      "(1,'BILL~OTHCL-000001','Asha','','','','','','','DELHI','','','','','','P','07AAAPA1234B1Z5'),"
                      "(2,'BILL~OTHCL-000002','Nil',NULL,NULL,NULL,NULL,NULL,'0','','','','','','','','')");
    }
    /// The directory as lines, cells joined with "|".
    QStringList load(const QString &hostCode = "C")
    {
        LOADCLLIST(database->db(), hostCode, parties);
        return test::linesOf(parties);
    }

    Cells parties = emptyPartyDirectory();
};

TEST_F(PartyDirectory, TellsHowPartiesAreReachedWhereItIsAsked)
{
    database->run("Update Comp_Master Set Phone='0261-1',Mob='98',Email='z@x.in' Where CompSrNo=1");
    database->run("Update GST_OthCl Set PhNo1='1',PhNo2='2',FaxNo='3' Where OthClSrNo=1");
    parties = emptyContactDirectory();
    const QStringList lines = load();
    EXPECT_TRUE(lines.filter("Zeta").value(0).endsWith("-395001|0261-1||98|z@x.in")) << lines.join('\n').toStdString();
    EXPECT_TRUE(lines.filter("Asha").value(0).endsWith("|1, 2|3||")) << lines.join('\n').toStdString();
}

TEST_F(PartyDirectory, HoldsHostClientsAndOtherClientsByName)
{
    const QStringList expected{
        "BILL~OTHCL-000001|Asha|P|07AAAPA1234B1Z5|DELHI|DELHI",
        "LLP!~!7|Bina LLP|AAAFB1234B||DELHI|Line one, Delhi, DELHI-110001",
        "C'2|mohan Ltd||||0",
        "BILL~OTHCL-000002|Nil||||",
        "7|Zeta Ltd|AAACZ1234B||GUJARAT|1, Rose, MG Road, Fort, Surat, GUJARAT-395001",
    };
    EXPECT_EQ(load(), expected);
    EXPECT_EQ(load(), expected) << "loading again doubles nothing";
    EXPECT_TRUE(log.isEmpty());
}

TEST_F(PartyDirectory, RegisterGivesHostClientsTheirGstin)
{
    database->run("Insert Into GST_ClRegNo Values ('LLP!~!7','07AAAFB1234B1Z5',''),('gone','24X',''),('C''2','24C',''),"
                  "('7','',''),('BILL~OTHCL-000001','99WRONG','')");
    load();
    const auto gstin = [this](const QString &code) { return parties.text(parties.find(code, PartyCode), PartyGstin); };
    EXPECT_EQ(gstin("LLP!~!7"), "07AAAFB1234B1Z5");
    EXPECT_EQ(gstin("C'2"), "24C");
    EXPECT_EQ(gstin("7"), "") << "an empty one does not count";
    EXPECT_EQ(gstin("BILL~OTHCL-000001"), "07AAAPA1234B1Z5") << "theirs stands in their own table";
    EXPECT_EQ(parties.rows(), 6) << "a client that left is skipped";
}

TEST_F(PartyDirectory, CodesThatDifferInCaseKeepTheirOwnGstin)
{
    database->run("Insert Into Comp_Master (CompSrNo,Code,Nm) Values "
                  "(3,'ab','small'),(4,'AB','large'),(5,'b','b'),(6,'_','line')");
    database->run("Insert Into GST_ClRegNo Values ('ab','1',''),('AB','2',''),('b','3',''),('_','4','')");
    load();
    for (const auto &[code, gstin] : {std::pair("ab", "1"), {"AB", "2"}, {"b", "3"}, {"_", "4"}})
        EXPECT_EQ(parties.text(parties.find(code, PartyCode), PartyGstin), gstin) << code;
}

TEST_F(PartyDirectory, MissingSourceIsLoggedAndLeftOut)
{
    database->run("Rename Table LLP_Master To Away");
    const QStringList lines = load();
    database->run("Rename Table Away To LLP_Master");
    EXPECT_EQ(lines.size(), 4);
    EXPECT_EQ(log.sites(), QStringList{"MODGST LOADCLLIST"});
    database->run("Rename Table GST_ClRegNo To Away");
    EXPECT_EQ(load().size(), 5);
    database->run("Rename Table Away To GST_ClRegNo");
}

TEST_F(PartyDirectory, ThousandsOfClientsFindTheirGstin)
{
    constexpr int count = 5000;
    QStringList clients;
    QStringList numbers;
    for (int i = 0; i < count; ++i) {
        clients << QStringLiteral("(%1,'K%2','Client %2')").arg(i + 10).arg(i * 7919 % count);
        numbers << QStringLiteral("('K%1','G%1','')").arg(i);
    }
    database->run("Insert Into Comp_Master (CompSrNo,Code,Nm) Values " + clients.join(','));
    database->run("Insert Into GST_ClRegNo Values " + numbers.join(','));
    load();
    ASSERT_EQ(parties.rows(), count + 6);
    for (int row = 1; row < parties.rows(); ++row) {
        const QString code = parties.text(row, PartyCode);
        if (code.startsWith('K')) {
            ASSERT_EQ(parties.text(row, PartyGstin), "G" + code.mid(1));
            ASSERT_EQ(parties.text(row, PartyName), "Client " + code.mid(1));
        }
    }
}

TEST_F(PartyDirectory, SeriesAreThoseOfKindAndYearById)
{
    database->run("Insert Into GST_Series Values (9,'B',2024,'B/','P'),(2,'B',2024,'A''/##','S'),(3,'R',2024,'R/','P'),"
                  "(4,'B',2023,'old','S')");
    const std::vector<Series> series = seriesOfYear(database->db(), "B", 2024);
    ASSERT_EQ(series.size(), 2U);
    EXPECT_EQ(series[0].id, 2);
    EXPECT_EQ(series[0].text, "A'/##");
    EXPECT_EQ(series[1].id, 9);
    EXPECT_TRUE(seriesOfYear(database->db(), "R", 2023).empty());

    const struct
    {
        int id;
        const char *number;
    } numbers[] = {{9, "B/12"}, {2, "A'/12"}, {4, "12old"}, {0, "12"}, {77, "12"}};
    for (const auto &n : numbers)
        EXPECT_EQ(COMBNOSERIESGST(database->db(), n.id, "12"), n.number) << n.id;
    EXPECT_TRUE(log.isEmpty());
}

} // namespace
} // namespace ledgora
