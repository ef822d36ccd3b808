#include "masters/OtherClientStore.h"

#include "store/Connection.h"
#include "tests/support/Print.h"
#include "tests/support/StoreTest.h"
#include <gtest/gtest.h>

namespace ledgora {
namespace {

using OtherClientStore = test::StoreTest;

TEST_F(OtherClientStore, EveryFieldGoesIntoItsColumnAndTheCodeStays)
{
    MasterRow client;
    for (const MasterField &field : otherClientFields())
        client.insert(field.column, QString(field.column) + "'s \\");
    EXPECT_EQ(insertOtherClient(db(), client).id, 1);
    const QStringList columns{"Nm",    "h_no",  "h_nm",  "street", "area",  "city", "pincode", "StateNm",
                              "PhNo1", "PhNo2", "FaxNo", "MobNo",  "email", "PAN",  "GSTIN"};
    EXPECT_EQ(rows("Select * From GST_OthCl"), QStringList{"1|BILL~OTHCL-000001|" + columns.join("'s \\|") + "'s \\"});
    for (const MasterField &field : otherClientFields())
        client.insert(field.column, QString("new ") + field.column);
    client.insert("OthClCode", "another");
    EXPECT_TRUE(updateOtherClient(db(), 1, client));
    EXPECT_EQ(rows("Select * From GST_OthCl"), QStringList{"1|BILL~OTHCL-000001|new " + columns.join("|new ")});
    EXPECT_FALSE(updateOtherClient(db(), 2, client));
    EXPECT_TRUE(log.isEmpty());
    EXPECT_TRUE(rows("Select * From GST_ClRegNo").isEmpty()) << "their GSTIN never goes to the register";
}

TEST_F(OtherClientStore, CodeHasSixDigitsAtLeast)
{
    EXPECT_EQ(otherClientCode(1), "BILL~OTHCL-000001");
    EXPECT_EQ(otherClientCode(999999), "BILL~OTHCL-999999");
    EXPECT_EQ(otherClientCode(1234567), "BILL~OTHCL-1234567");
}

TEST_F(OtherClientStore, TwoClientsCanHaveOneName)
{
    const MasterRow client{{"Nm", "Asha"}};
    EXPECT_TRUE(insertOtherClient(db(), client).inserted);
    EXPECT_TRUE(insertOtherClient(db(), client).inserted);
    Cells clients = emptyOtherClientList();
    loadOtherClientList(db(), clients, 0);
    ASSERT_EQ(clients.rows(), 3);
    EXPECT_EQ(clients.text(1, OtherClientCode), "BILL~OTHCL-000001");
    EXPECT_EQ(clients.text(2, OtherClientCode), "BILL~OTHCL-000002");
    database->run("Update GST_OthCl Set Nm='Zeta' Where OthClSrNo=1");
    loadOtherClientList(db(), clients, 1);
    ASSERT_EQ(clients.rows(), 3);
    EXPECT_EQ(clients.text(2, OtherClientName), "Zeta");
    EXPECT_EQ(clients.text(2, OtherClientId), "1");
}

TEST_F(OtherClientStore, DeletingTakesItsDocumentsInAllCompanies)
{
    insertOtherClient(db(), {{"Nm", "Gone"}});
    const struct
    {
        int id, firm;
        const char *code;
    } documents[] = {{1, 1, "BILL~OTHCL-000001"}, {2, 2, "BILL~OTHCL-000001"}, {3, 1, "C'1"}};
    for (const auto &d : documents) {
        const QString values =
            QStringLiteral("(%1,%2,'%3')").arg(d.id).arg(d.firm).arg(QString(d.code).replace("'", "''"));
        database->run("Insert Into GST_BillM (BillSrNo,FirmId,Code_No) Values " + values);
        database->run(QStringLiteral("Insert Into GST_BillD (BillId,SrNo) Values (%1,1),(%1,2)").arg(d.id));
        database->run("Insert Into GST_RecpM (RecpSrNo,FirmId,Code_No) Values " + values);
        database->run(QStringLiteral("Insert Into GST_RecpD (RecpId,SrNo) Values (%1,1)").arg(d.id));
    }
    EXPECT_TRUE(deleteOtherClient(db(), 1, "BILL~OTHCL-000001"));
    EXPECT_TRUE(rows("Select * From GST_OthCl").isEmpty());
    EXPECT_EQ(rows("Select BillSrNo From GST_BillM"), QStringList{"3"});
    EXPECT_EQ(rows("Select BillId From GST_BillD"), (QStringList{"3", "3"}));
    EXPECT_EQ(rows("Select RecpSrNo From GST_RecpM"), QStringList{"3"});
    EXPECT_EQ(rows("Select RecpId From GST_RecpD"), QStringList{"3"});
    EXPECT_TRUE(deleteOtherClient(db(), 9, "' or '1'='1"));
    EXPECT_EQ(rows("Select BillSrNo From GST_BillM"), QStringList{"3"}) << "a code is a value, whatever it holds";
}

TEST_F(OtherClientStore, FaultsComeInTheOrderTold)
{
    MasterRow client{{"GSTIN", "07BBBPB1234B1Z5"}, {"PAN", "AAAPA1234B"}};
    const auto expectFault = [&client](const QString &message, const QString &field) {
        const FieldFault fault = otherClientFault(client, "GUJARAT (24)");
        EXPECT_EQ(fault.message, message);
        EXPECT_EQ(fault.field, field);
    };
    expectFault("Please Specify 'Name' !", "txtOthClName");
    client["Nm"] = "Asha";
    expectFault("Please specify 'State' !", "cboOthClState");
    client["StateNm"] = "GUJARAT";
    expectFault("Invalid 'GSTIN' ! First 2-Digit shoule be State Code [24] for State [GUJARAT (24)].", "txtOthClGSTIN");
    client["GSTIN"] = "24BBBPB1234B1Z5";
    expectFault("Invalid 'GSTIN' ! Should contain PAN [AAAPA1234B] from 3rd to 12th Character.", "txtOthClGSTIN");
    client["PAN"] = "BBBPB1234B";
    expectFault("", "");
}

} // namespace
} // namespace ledgora
