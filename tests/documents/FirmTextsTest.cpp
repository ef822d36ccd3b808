#include "documents/FirmTexts.h"

#include "masters/CompanyStore.h"
#include "store/Connection.h"
#include "store/ErrorLog.h"
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
    const FirmTexts firm = firmTexts(row, DocumentKind::Bill);
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
    database.run("Insert Into GST_FirmMas (FirmSrNo,Nm,PhNoO2) Values (1,'Asha',NULL)");
    const struct
    {
        int id;
        DocumentKind kind;
        int noted; ///< payment terms and signature are expected to be there
    } cases[] = {{1, DocumentKind::Bill, 8}, {1, DocumentKind::Receipt, 2}, {2, DocumentKind::Bill, 0}};
    for (const auto &c : cases) {
        const test::Log log;
        const ErrorSite site("frmBillGST", "CMDPREVIEW_CLICK");
        Recordset row = companyRow(database.db(), c.id);
        const FirmTexts firm = firmTexts(row, c.kind);
        EXPECT_EQ(firm.name, c.id == 1 ? "Asha" : "");
        EXPECT_EQ(firmAddressText(firm) + firmContactText(firm) + firmWebText(firm) + firm.bankName, "");
        EXPECT_EQ(log.sites().count("frmBillGST CMDPREVIEW_CLICK"), c.noted);
        EXPECT_EQ(log.lines().size(), size_t(c.noted));
    }
}

} // namespace
} // namespace ledgora
