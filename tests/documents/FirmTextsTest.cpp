#include "documents/BillDocument.h"

#include "masters/CompanyStore.h"
#include "store/Connection.h"
#include "tests/support/Database.h"
#include "tests/support/Log.h"
#include "tests/support/Print.h"
#include <gtest/gtest.h>

namespace ledgora {
namespace {

TEST(StoredFirmTexts, ComeFromTheColumnsOfTheirMeaning)
{
    test::Database database;
    const test::Log log;
    MasterRow company;
    for (const MasterField &field : companyFields())
        company.insert(field.column, field.column);
    ASSERT_TRUE(insertCompany(database.db(), company).inserted);
    Recordset row = companyRow(database.db(), 1);
    const FirmTexts firm = firmTexts(row);
    const struct
    {
        const char *column;
        QString text;
    } texts[] = {
        {"Nm", firm.name},
        {"Desig", firm.designation},
        {"GSTIN", firm.gstin},
        {"PAN", firm.pan},
        {"Addr1", firm.addr1},
        {"Addr2", firm.addr2},
        {"City", firm.city},
        {"PinCode", firm.pinCode},
        {"StateNm", firm.state},
        {"MobNo", firm.mobile},
        {"PhNoO1", firm.officePhone1},
        {"PhNoO2", firm.officePhone2},
        {"PhNoR1", firm.residencePhone1},
        {"PhNoR2", firm.residencePhone2},
        {"FaxNo", firm.fax},
        {"Email", firm.email},
        {"WebURL", firm.website},
        {"BankAcName", firm.bankAccountName},
        {"BankName", firm.bankName},
        {"BankBrAdd", firm.bankBranch},
        {"BankAcNo", firm.bankAccountNo},
        {"BankIFSC", firm.bankIfsc},
        {"PayComments", firm.paymentComments},
        {"SignName", firm.signName},
        {"SignDesig", firm.signDesignation},
    };
    for (const auto &t : texts)
        EXPECT_EQ(t.text, t.column);
    EXPECT_TRUE(log.isEmpty());
}

TEST(StoredFirmTexts, AreEmptyForNullFieldsAndWithoutARow)
{
    test::Database database;
    const test::Log log;
    database.run("Insert Into GST_FirmMas (FirmSrNo,Nm,PhNoO2) Values (1,'Asha',NULL)");
    for (const int id : {1, 2}) {
        Recordset row = companyRow(database.db(), id);
        const FirmTexts firm = firmTexts(row);
        EXPECT_EQ(firm.name, id == 1 ? "Asha" : "");
        EXPECT_EQ(firmAddressText(firm), "");
        EXPECT_EQ(firmContactText(firm), "");
        EXPECT_EQ(firmWebText(firm), "");
    }
    EXPECT_TRUE(log.isEmpty());
}

} // namespace
} // namespace ledgora
