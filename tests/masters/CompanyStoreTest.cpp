#include "masters/CompanyStore.h"

#include "store/Connection.h"
#include "tests/support/Print.h"
#include "tests/support/StoreTest.h"
#include <gtest/gtest.h>

namespace ledgora {
namespace {

class CompanyStore : public test::StoreTest
{
protected:
    /// Names from the top of the list.
    static QStringList names(const Cells &companies)
    {
        QStringList names;
        for (int row = 1; row < companies.rows(); ++row)
            names << companies.text(row, CompanyName);
        return names;
    }
};

MasterRow named(const QString &name)
{
    return {{"Nm", name}, {"StateNm", "GUJARAT"}};
}

TEST_F(CompanyStore, EveryFieldGoesIntoItsColumn)
{
    // Each column holds its own name, so that one written into its neighbour shows.
    MasterRow company;
    for (const MasterField &field : companyFields())
        company.insert(field.column, QString(field.column) + "'s \\");
    const InsertResult inserted = insertCompany(db(), company);
    EXPECT_TRUE(inserted.inserted);
    const QStringList columns{"Nm",       "Desig",       "Addr1",    "Addr2",      "City",     "PinCode",   "StateNm",
                              "PhNoO1",   "PhNoO2",      "PhNoR1",   "PhNoR2",     "FaxNo",    "MobNo",     "Email",
                              "WebURL",   "PAN",         "GSTIN",    "BankAcName", "BankName", "BankBrAdd", "BankAcNo",
                              "BankIFSC", "PayComments", "SignName", "SignDesig",  "Pass"};
    EXPECT_EQ(rows("Select * From GST_FirmMas"), QStringList{"1|" + columns.join("'s \\|") + "'s \\"});
    for (const MasterField &field : companyFields())
        company.insert(field.column, QString("new ") + field.column);
    EXPECT_TRUE(updateCompany(db(), 1, company));
    EXPECT_EQ(rows("Select * From GST_FirmMas"), QStringList{"1|new " + columns.join("|new ")});
    EXPECT_TRUE(log.isEmpty());
}

TEST_F(CompanyStore, FieldsAreNamedAsTheScreensFields)
{
    QStringList fields;
    for (const MasterField &field : companyFields())
        fields << QString(field.column) + '=' + field.field;
    for (const char *pair : {"Nm=txtFirmName", "PinCode=txtFirmPIN", "StateNm=cboFirmState", "BankName=txtFirmBankNm",
                             "BankBrAdd=txtFirmBankBr", "BankIFSC=txtFirmBankIFSC", "Pass=txtFirmPass"})
        EXPECT_TRUE(fields.contains(pair)) << pair;
}

TEST_F(CompanyStore, UpdateOfAMissingCompanySaysSo)
{
    insertCompany(db(), named("Asha"));
    EXPECT_TRUE(updateCompany(db(), 1, named("Asha"))) << "found, though nothing changed";
    EXPECT_FALSE(updateCompany(db(), 2, named("Mohan")));
    EXPECT_EQ(rows("Select Nm From GST_FirmMas"), QStringList{"Asha"});
}

TEST_F(CompanyStore, ListIsByNameAndCarriesWhatCommandsNeed)
{
    for (const char *name : {"Mohan", "asha", "Bina"})
        insertCompany(db(), named(name));
    database->run("Update GST_FirmMas Set Pass='pa\\'ss' Where Nm='Bina'");
    Cells companies = emptyCompanyList();
    loadCompanyList(db(), companies, 0);
    EXPECT_EQ(names(companies), (QStringList{"asha", "Bina", "Mohan"}));
    EXPECT_EQ(companies.text(2, CompanyId), "3");
    EXPECT_EQ(companies.text(2, CompanyPass), "pa'ss");
    EXPECT_EQ(companies.text(2, CompanyStateName), "GUJARAT");
    database->run("Update GST_FirmMas Set Nm='Zeta' Where Nm='asha'");
    database->run("Delete From GST_FirmMas Where Nm='Mohan'");
    loadCompanyList(db(), companies, 2);
    EXPECT_EQ(names(companies), (QStringList{"Bina", "Mohan", "Zeta"})) << "one company refreshed";
    loadCompanyList(db(), companies, 1);
    EXPECT_EQ(names(companies), (QStringList{"Bina", "Zeta"})) << "a deleted one leaves";
    loadCompanyList(db(), companies, 0);
    EXPECT_EQ(names(companies), (QStringList{"Bina", "Zeta"}));
}

TEST_F(CompanyStore, NameIsTakenByAnyOtherCompany)
{
    insertCompany(db(), named("O'Neil \\ Sons"));
    insertCompany(db(), named("Bina"));
    const struct
    {
        const char *name;
        int id;
        bool taken;
    } cases[] = {{"O'Neil \\ Sons", 0, true}, {"O'Neil \\ Sons", 1, false},
                 {"O'Neil \\ Sons", 2, true}, {"o'neil \\ SONS", 0, true},
                 {"Bina", 1, true},           {"Neil", 0, false},
                 {"' or '1'='1", 0, false},   {"\\", 0, false}};
    for (const auto &c : cases)
        EXPECT_EQ(isCompanyNameTaken(db(), c.name, c.id), c.taken) << c.name << c.id;
    EXPECT_TRUE(log.isEmpty());
}

TEST_F(CompanyStore, DeletingTakesItsBillsAndReceiptsAndNoOthers)
{
    insertCompany(db(), named("Gone"));
    insertCompany(db(), named("Stays"));
    for (const QString firm : {"1", "2"}) {
        for (const QString id : {"1", "2"}) {
            const QString key = firm + id;
            database->run("Insert Into GST_BillM (BillSrNo,FirmId) Values (" + key + ',' + firm + ')');
            database->run("Insert Into GST_BillD (BillId,SrNo) Values (" + key + ",1),(" + key + ",2)");
            database->run("Insert Into GST_RecpM (RecpSrNo,FirmId) Values (" + key + ',' + firm + ')');
            database->run("Insert Into GST_RecpD (RecpId,SrNo) Values (" + key + ",1)");
        }
    }
    EXPECT_TRUE(deleteCompany(db(), 1));
    EXPECT_EQ(rows("Select Nm From GST_FirmMas"), QStringList{"Stays"});
    EXPECT_EQ(rows("Select BillSrNo From GST_BillM Order By 1"), (QStringList{"21", "22"}));
    EXPECT_EQ(rows("Select BillId From GST_BillD Order By 1"), (QStringList{"21", "21", "22", "22"}));
    EXPECT_EQ(rows("Select RecpSrNo From GST_RecpM Order By 1"), (QStringList{"21", "22"}));
    EXPECT_EQ(rows("Select RecpId From GST_RecpD Order By 1"), (QStringList{"21", "22"}));
}

TEST_F(CompanyStore, DeleteThatFailsInPartSaysSoAndGoesOn)
{
    insertCompany(db(), named("Gone"));
    database->run("Rename Table GST_RecpD To Away");
    EXPECT_FALSE(deleteCompany(db(), 1));
    database->run("Rename Table Away To GST_RecpD");
    EXPECT_TRUE(rows("Select * From GST_FirmMas").isEmpty());
    EXPECT_EQ(log.lines().size(), 1U);
}

struct FaultCase
{
    const char *name;
    MasterRow company;
    const char *message;
    const char *field;
};

class CompanyFault : public testing::TestWithParam<FaultCase>
{
};

TEST_P(CompanyFault, IsTheFirstInTheOrderTold)
{
    const FieldFault fault = companyFault(GetParam().company, "GUJARAT (24)");
    EXPECT_EQ(fault.message, GetParam().message);
    EXPECT_EQ(fault.field, GetParam().field);
}

constexpr auto wrongState = "Invalid 'GSTIN' ! First 2-Digit shoule be State Code [24] for State [GUJARAT (24)].";
constexpr auto wrongPan = "Invalid 'GSTIN' ! Should contain PAN [AAAPA1234B] from 3rd to 12th Character.";

INSTANTIATE_TEST_SUITE_P(
    Companies, CompanyFault,
    testing::Values(
        FaultCase{"Nothing", {}, "Please specify 'Name' !", "txtFirmName"},
        FaultCase{"BlankName", {{"Nm", "  "}, {"StateNm", "GUJARAT"}}, "Please specify 'Name' !", "txtFirmName"},
        FaultCase{"NoState", {{"Nm", "Asha"}, {"GSTIN", "07"}}, "Please specify 'State' !", "cboFirmState"},
        FaultCase{"GstinOfAnotherState",
                  {{"Nm", "Asha"}, {"StateNm", "GUJARAT"}, {"GSTIN", "07AAAPA1234B1Z5"}, {"PAN", "BBBPB1234B"}},
                  wrongState,
                  "txtFirmGSTIN"},
        FaultCase{"GstinOfAnotherPan",
                  {{"Nm", "Asha"}, {"StateNm", "GUJARAT"}, {"GSTIN", "24BBBPB1234B1Z5"}, {"PAN", "AAAPA1234B"}},
                  wrongPan,
                  "txtFirmGSTIN"},
        FaultCase{"GstinWithoutPan", {{"Nm", "Asha"}, {"StateNm", "GUJARAT"}, {"GSTIN", "24BBBPB1234B1Z5"}}, "", ""},
        FaultCase{"PanWithoutGstin", {{"Nm", "Asha"}, {"StateNm", "GUJARAT"}, {"PAN", "AAAPA1234B"}}, "", ""},
        FaultCase{"Whole",
                  {{"Nm", "Asha"}, {"StateNm", "GUJARAT"}, {"GSTIN", "24AAAPA1234B1Z5"}, {"PAN", "AAAPA1234B"}},
                  "",
                  ""}),
    [](const auto &company) { return std::string(company.param.name); });

} // namespace
} // namespace ledgora
