#include "store/Schema.h"

#include "tests/support/Database.h"
#include "tests/support/Log.h"
#include "tests/support/Print.h"
#include <gtest/gtest.h>

namespace ledgora {
namespace {

// Inserts name no columns, so that their order is part of what other programs of the office rely on.
TEST(Schema, ColumnsStandInTheirBindingOrder)
{
    const test::Database database;
    const struct
    {
        const char *table, *columns;
    } tables[] = {
        {"GST_FirmMas",
         "FirmSrNo Nm Desig Addr1 Addr2 City PinCode StateNm PhNoO1 PhNoO2 PhNoR1 PhNoR2 FaxNo MobNo Email "
         "WebURL PAN GSTIN BankAcName BankName BankBrAdd BankAcNo BankIFSC PayComments SignName SignDesig Pass"},
        {"GST_OthCl",
         "OthClSrNo OthClCode Nm h_no h_nm street area city pincode StateNm PhNo1 PhNo2 FaxNo MobNo email PAN "
         "GSTIN"},
        {"GST_Series", "SeriesSrNo BR FY Series SP"},
        {"GST_BillM", "BillSrNo FirmId FYr Code_No BillSerId BillNo BillDt PlaceOfServ AppTaxType Narr"},
        {"GST_BillD",
         "BillId SrNo part SAC YrType Yr ServAmt DiscAmt TaxServAmt FlagEdit RtCGST CGST RtSGST SGST RtIGST "
         "IGST TotalAmt"},
        {"GST_RecpM",
         "RecpSrNo FirmId FYr Code_No RecpSerId RecpNo RecpDt Cash PayMode OthAmt BankNm BankBr ChqNo ChqDt "
         "Narr"},
        {"GST_RecpD", "RecpId SrNo BillId Amount Discount TDS"},
        {"SRate", "Frm Rate Yr Mon Dt ECess ECess1 SBC KKC"},
        {"Bill_Main", "BillCompNm FYr Code_No BillSrId BillNo BillDt Narr BillId ConsCalc"},
        {"Bill_Det", "BillId SrNo part Yr Typ Amount STaxApp"},
        {"Recp_Main",
         "RecpCompNm FYr Code_No RecpSrId RecpNo RecpDt CASH PayMode OthAmt BankNm BankBr ChqNo ChqDt Narr RecpId"},
        {"Recp_Det", "RecpId SrNo BillId Amount DISCOUNT TDS"},
        {"Bill_OpBal", "CompNm Code_No asondt Amount Amount1 SVTAmt"},
        {"Bill_Se", "Num Series B_R Yr S_P"},
    };
    for (const auto &t : tables) {
        const QStringList columns =
            database.rows(QStringLiteral("Select column_name From information_schema.columns Where "
                                         "table_schema=Database() and table_name='%1' Order By "
                                         "ordinal_position")
                              .arg(t.table));
        EXPECT_EQ(columns.join(' '), t.columns) << t.table;
    }
    // The third column of the register has no name that anybody knows it by.
    EXPECT_EQ(
        database.rows("Select column_name, data_type From information_schema.columns Where table_schema=Database() "
                      "and table_name='gst_clregno' Order By ordinal_position"),
        (QStringList{"Code_No|varchar", "GSTIN|varchar", "Remarks|varchar"}));
}

TEST(Schema, TableAndColumnNamesResolveInAnyCase)
{
    const test::Database database;
    database.run("Insert Into gst_othcl Values (1,'C','N','','','','','','','','','','','','','','')");
    EXPECT_EQ(database.rows("Select NM From GST_OTHCL Where othclsrno=1"), QStringList{"N"});
}

TEST(Schema, HoldsEveryFieldAtItsFullLength)
{
    test::Database database;
    const test::Log log;
    const QString name = QString(255, QChar(0x0930));
    EXPECT_TRUE(database.db().Execute("Insert Into GST_FirmMas Values (1,'" + name + "'" + QString(",'x'").repeated(21)
                                      + ",'" + name + "','x','x','x')"));
    EXPECT_TRUE(database.db().Execute("Insert Into GST_BillM Values (999999999,1,2024,'LLP!~!1',1,999999999,"
                                      "'2025-03-31 00:00:00','"
                                      + name.left(40) + "','INTRA','')"));
    EXPECT_TRUE(database.db().Execute("Insert Into GST_BillD Values (1,1,'','','FY',2024"
                                      + QString(",999999999999").repeated(3) + ",'Y',0.1235,1,2,3,4,5,999999999999)"));
    EXPECT_TRUE(log.isEmpty()) << "nothing was cut";
    EXPECT_EQ(database.rows("Select TotalAmt, RtCGST From GST_BillD"), QStringList{"999999999999|0.1235"});
}

TEST(Schema, MadeTwiceLosesNothingAndComplainsOfNothing)
{
    test::Database database;
    const test::Log log;
    database.run("Insert Into GST_Series Values (1,'B',2024,'A/','P')");
    EXPECT_TRUE(createSchema(database.db(), "C"));
    EXPECT_EQ(database.rows("Select Count(*) From GST_Series"), QStringList{"1"});
    EXPECT_EQ(database.rows("Select * From Ledgora_Schema"), QStringList{"1|1"});
    EXPECT_TRUE(log.isEmpty());
    EXPECT_EQ(schemaFault(database.db()), "");
}

/// Offices of earlier versions have no note; the last case is one that has, and no data.
TEST(Schema, OfficeIsKnownByItsNoteOrItsClients)
{
    const QString clientOfG = "Insert Into Owner1 (Code) Values ('A')";
    const QString clientOfC = "Insert Into LLP_Master (Code) Values ('A')";
    const QString bill = "Insert Into GST_BillM (BillSrNo) Values (1)";
    const struct
    {
        QStringList made, filled; ///< hosts whose tables are there, statements
        QString wanted, host, fault;
        bool noted = false;
    } cases[] = {
        {{}, {}, "", "C", ""},
        {{}, {}, "T", "T", ""},
        {{"G"}, {bill}, "", "G", ""},
        {{"C", "G"}, {clientOfG}, "", "G", ""},
        {{"C", "G"}, {clientOfG}, "C", "C", "This is an office of host G. It can not be opened as one of host C."},
        {{"C", "G"}, {clientOfC, clientOfG}, "G", "G", ""},
        {{"C", "G"},
         {clientOfC, clientOfG},
         "",
         "",
         "The office holds clients of the hosts C and G. Say with --host which one it is."},
        {{"G"}, {bill}, "T", "T", "This is an office of host G. It can not be opened as one of host T.", true},
        {{"G"}, {}, "T", "T", "", true},
    };
    for (const auto &c : cases) {
        test::Database database("C", test::Database::Tables::None);
        for (const QString &host : c.made)
            ASSERT_TRUE(createSchema(database.db(), host));
        if (!c.made.isEmpty() && !c.noted)
            database.run("Drop Table Ledgora_Host");
        for (const QString &statement : c.filled)
            database.run(statement);
        QString host = c.wanted;
        EXPECT_EQ(settleHost(database.db(), host), c.fault);
        EXPECT_EQ(host, c.host);
        if (c.fault.isEmpty()) {
            EXPECT_TRUE(createSchema(database.db(), host));
            EXPECT_EQ(database.rows("Select Code From Ledgora_Host"), QStringList{c.host});
        }
    }
}

TEST(Schema, NewerDatabaseIsRefusedAndStaysNewer)
{
    test::Database database;
    database.run("Update Ledgora_Schema Set Version=2");
    const QString fault = schemaFault(database.db());
    EXPECT_TRUE(fault.contains("newer version") && fault.contains('2')) << fault.toStdString();
    EXPECT_TRUE(createSchema(database.db(), "C"));
    EXPECT_EQ(schemaFault(database.db()), fault);
}

TEST(Schema, EmptyDatabaseIsNoFault)
{
    test::Database database("C", test::Database::Tables::None);
    EXPECT_EQ(schemaFault(database.db()), "");
    EXPECT_TRUE(createSchema(database.db(), "C"));
    EXPECT_FALSE(database.rows("Show Tables Like 'comp_master'").isEmpty());
}

TEST(Schema, FailureIsToldAndLogged)
{
    test::Database database("C", test::Database::Tables::None);
    const test::Log log;
    EXPECT_FALSE(createSchema(database.db(), "no such host"));
    EXPECT_FALSE(database.rows("Show Tables Like 'gst_billm'").isEmpty()) << "the rest was made";
    EXPECT_EQ(log.sites(), QStringList{"SCHEMA CREATESCHEMA"});
}

} // namespace
} // namespace ledgora
