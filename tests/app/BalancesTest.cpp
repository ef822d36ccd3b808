// The list of what all clients owe.

#include "app/Balances.h"
#include "tests/support/Database.h"
#include "tests/support/Log.h"
#include "tests/support/Print.h"
#include <gtest/gtest.h>

using namespace ledgora;
using namespace ledgora::test;

TEST(BalanceList, NamesClientsInOrderAndLeavesOutWhoOwesNothing)
{
    Database data;
    const Log log;
    data.run("Insert Into GST_FirmMas (FirmSrNo,Nm) Values (1,'GUPTA'),(2,'ASSOCIATES')");
    data.run("Insert Into GST_OthCl (OthClSrNo,OthClCode,Nm) Values (1,'BILL~OTHCL-000001','ZOYA\tKHAN'),"
             "(2,'BILL~OTHCL-000002','ASHOK'),(3,'BILL~OTHCL-000003','EVEN')");
    data.run(
        "Insert Into GST_BillM (BillSrNo,FirmId,Code_No) Values (1,1,'BILL~OTHCL-000001'),(2,1,'bill~othcl-000002'),"
        "(3,1,'BILL~OTHCL-000003'),(4,2,'BILL~OTHCL-000002'),(5,2,'GONE')");
    data.run("Insert Into GST_BillD (BillId,SrNo,TotalAmt) Values (1,1,100),(2,1,20.5),(3,1,7),(4,1,1),(5,1,2)");
    data.run("Insert Into GST_RecpM (RecpSrNo,FirmId,Code_No) Values (1,1,'BILL~OTHCL-000003'),(2,2,'GONE')");
    data.run("Insert Into GST_RecpD Values (1,1,3,6,1,0),(2,1,5,5,0,0)");
    EXPECT_EQ(app::balanceList(data.db(), "C", 0).lines.join('\n'),
              "GUPTA\tbill~othcl-000002\tASHOK\t20.5\nGUPTA\tBILL~OTHCL-000001\tZOYA KHAN\t100\n"
              "ASSOCIATES\tGONE\t\t-3\nASSOCIATES\tBILL~OTHCL-000002\tASHOK\t1\nTotal\t118.5");
    EXPECT_EQ(app::balanceList(data.db(), "C", 2).lines.join('\n'),
              "GONE\t\t-3\nBILL~OTHCL-000002\tASHOK\t1\nTotal\t-2");
    EXPECT_EQ(app::balanceList(data.db(), "C", 3).fault, "There is no company number 3.");
    EXPECT_TRUE(log.isEmpty());
}
