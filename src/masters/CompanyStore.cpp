#include "masters/CompanyStore.h"

#include "store/Connection.h"
#include "store/Identifiers.h"
#include "store/SqlText.h"
#include "store/StateList.h"

namespace ledgora {

namespace {

constexpr MasterField fields[] = {
    {"Nm", "txtFirmName"},
    {"Desig", "txtFirmDesig"},
    {"Addr1", "txtFirmAddr1"},
    {"Addr2", "txtFirmAddr2"},
    {"City", "txtFirmCity"},
    {"PinCode", "txtFirmPIN"},
    {"StateNm", "cboFirmState"},
    {"PhNoO1", "txtFirmPhNoO1"},
    {"PhNoO2", "txtFirmPhNoO2"},
    {"PhNoR1", "txtFirmPhNoR1"},
    {"PhNoR2", "txtFirmPhNoR2"},
    {"FaxNo", "txtFirmFaxNo"},
    {"MobNo", "txtFirmMobNo"},
    {"Email", "txtFirmEmail"},
    {"WebURL", "txtFirmWebURL"},
    {"PAN", "txtFirmPAN"},
    {"GSTIN", "txtFirmGSTIN"},
    {"BankAcName", "txtFirmBankAcName"},
    {"BankName", "txtFirmBankNm"},
    {"BankBrAdd", "txtFirmBankBr"},
    {"BankAcNo", "txtFirmBankAcNo"},
    {"BankIFSC", "txtFirmBankIFSC"},
    {"PayComments", "txtFirmPayComments"},
    {"SignName", "txtFirmSignName"},
    {"SignDesig", "txtFirmSignDesig"},
    {"Pass", "txtFirmPass"},
};

} // namespace

std::span<const MasterField> companyFields()
{
    return fields;
}

Cells emptyCompanyList()
{
    Cells companies(CompanyColumnCount, 1);
    companies.setRow(
        0, {QStringLiteral("FirmSrNo"), QStringLiteral("Pass"), QStringLiteral("StateNm"), QStringLiteral("Name")});
    return companies;
}

void loadCompanyList(Connection &db, Cells &companies, int id)
{
    if (id == 0)
        companies.clearData();
    for (int row = companies.find(QString::number(id), CompanyId); row >= 0;
         row = companies.find(QString::number(id), CompanyId))
        companies.removeRow(row);
    Recordset rows = id == 0 ? db.Open(QStringLiteral("Select * from GST_FirmMas")) : companyRow(db, id);
    while (rows.next())
        companies.addRow({rows.text(QStringLiteral("FirmSrNo")), rows.text(QStringLiteral("Pass")),
                          rows.text(QStringLiteral("StateNm")), rows.text(QStringLiteral("Nm"))});
    companies.sort(CompanyName, Cells::Sort::Text);
}

Recordset companyRow(Connection &db, int id)
{
    return db.Open("SELECT * FROM GST_FirmMas WHERE FirmSrNo=" + number(id));
}

bool isCompanyNameTaken(Connection &db, const QString &name, int id)
{
    return db
        .Open("SELECT * FROM GST_FirmMas WHERE Nm=" + quoted(name)
              + (id > 0 ? QString(" AND FirmSrNo<>" + number(id)) : QString()))
        .next();
}

InsertResult insertCompany(Connection &db, const MasterRow &company)
{
    return insertUnderNewId(db, QStringLiteral("GST_FirmMas"), QStringLiteral("FirmSrNo"), [&](int id) -> QString {
        return "INSERT INTO GST_FirmMas Values (" + number(id) + ',' + insertValues(fields, company) + ')';
    });
}

bool updateCompany(Connection &db, int id, const MasterRow &company)
{
    const bool updated =
        db.Execute("UPDATE GST_FirmMas SET " + updateValues(fields, company) + " WHERE FirmSrNo=" + number(id))
        && db.affectedRows() > 0;
    db.Execute(QStringLiteral("flush tables"));
    return updated;
}

bool deleteCompany(Connection &db, int id)
{
    const QString firm = number(id);
    const QString statements[] = {
        "DELETE GST_BillD from GST_BillD, GST_BillM WHERE GST_BillM.FirmId=" + firm
            + " AND GST_BillD.BillId=GST_BillM.BillSrNo",
        "Delete From GST_BillM WHERE FirmId=" + firm,
        "DELETE GST_RecpD from GST_RecpD, GST_RecpM WHERE GST_RecpM.FirmId=" + firm
            + " AND GST_RecpD.RecpId=GST_RecpM.RecpSrNo",
        "Delete From GST_RecpM WHERE FirmId=" + firm,
        "Delete From GST_FirmMas WHERE FirmSrNo=" + firm,
    };
    bool whole = true;
    for (const QString &statement : statements) {
        whole = db.Execute(statement) && whole;
        db.Execute(QStringLiteral("flush tables"));
    }
    return whole;
}

FieldFault companyFault(const MasterRow &company, const QString &stateShown)
{
    const QString gstin = company.value(QStringLiteral("GSTIN"));
    const QString state = company.value(QStringLiteral("StateNm"));
    if (company.value(QStringLiteral("Nm")).trimmed().isEmpty())
        return {QStringLiteral("Please specify 'Name' !"), QStringLiteral("txtFirmName")};
    if (state.isEmpty())
        return {QStringLiteral("Please specify 'State' !"), QStringLiteral("cboFirmState")};
    QString fault = gstinStateFault(gstin, GETSTATECODEFORNAMEONLYGST(state), stateShown);
    if (fault.isEmpty())
        fault = gstinPanFault(gstin, company.value(QStringLiteral("PAN")));
    return {fault, fault.isEmpty() ? QString() : QStringLiteral("txtFirmGSTIN")};
}

} // namespace ledgora
