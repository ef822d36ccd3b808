#include "masters/OtherClientStore.h"

#include "store/Connection.h"
#include "store/Identifiers.h"
#include "store/NumberFormat.h"
#include "store/SqlText.h"
#include "store/StateList.h"

namespace ledgora {

namespace {

constexpr MasterField fields[] = {
    {"Nm", "txtOthClName"},     {"h_no", "txtOthClHNo"},    {"h_nm", "txtOthClHNm"},    {"street", "txtOthClStreet"},
    {"area", "txtOthClArea"},   {"city", "txtOthClCity"},   {"pincode", "txtOthClPIN"}, {"StateNm", "cboOthClState"},
    {"PhNo1", "txtOthClPhNo1"}, {"PhNo2", "txtOthClPhNo2"}, {"FaxNo", "txtOthClFaxNo"}, {"MobNo", "txtOthClMobNo"},
    {"email", "txtOthClEmail"}, {"PAN", "txtOthClPAN"},     {"GSTIN", "txtOthClGSTIN"},
};

} // namespace

std::span<const MasterField> otherClientFields()
{
    return fields;
}

Cells emptyOtherClientList()
{
    Cells clients(OtherClientColumnCount, 1);
    clients.setRow(0, {QStringLiteral("OthClSrNo"), QStringLiteral("OthClCode"), QStringLiteral("Name")});
    return clients;
}

void loadOtherClientList(Connection &db, Cells &clients, int id)
{
    if (id == 0)
        clients.clearData();
    for (int row = clients.find(QString::number(id), OtherClientId); row >= 0;
         row = clients.find(QString::number(id), OtherClientId))
        clients.removeRow(row);
    Recordset rows = id == 0 ? db.Open(QStringLiteral("Select * from GST_OthCl")) : otherClientRow(db, id);
    while (rows.next())
        clients.addRow({rows.text(QStringLiteral("OthClSrNo")), rows.text(QStringLiteral("OthClCode")),
                        rows.text(QStringLiteral("Nm"))});
    clients.sort(OtherClientName, Cells::Sort::Text);
}

Recordset otherClientRow(Connection &db, int id)
{
    return db.Open("Select * from GST_OthCl WHERE OthClSrNo=" + number(id));
}

QString otherClientCode(int id)
{
    return "BILL~OTHCL-" + formatNumber(id, QStringLiteral("000000"));
}

InsertResult insertOtherClient(Connection &db, const MasterRow &client)
{
    return insertUnderNewId(db, QStringLiteral("GST_OthCl"), QStringLiteral("OthClSrNo"), [&](int id) -> QString {
        return "INSERT INTO GST_OthCl Values (" + number(id) + ',' + quoted(otherClientCode(id)) + ','
               + insertValues(fields, client) + ')';
    });
}

bool updateOtherClient(Connection &db, int id, const MasterRow &client)
{
    const bool updated =
        db.Execute("UPDATE GST_OthCl SET " + updateValues(fields, client) + " WHERE OthClSrNo=" + number(id))
        && db.affectedRows() > 0;
    db.Execute(QStringLiteral("flush tables"));
    return updated;
}

bool deleteOtherClient(Connection &db, int id, const QString &code)
{
    const QString party = quoted(code);
    const QString statements[] = {
        "delete GST_BillD from GST_BillD, GST_BillM WHERE GST_BillM.Code_No=" + party
            + " and GST_BillD.BillId=GST_BillM.BillSrNo",
        "delete from GST_BillM WHERE Code_No=" + party,
        "delete GST_RecpD from GST_RecpD, GST_RecpM where GST_RecpM.Code_No=" + party
            + " and GST_RecpD.RecpId=GST_RecpM.RecpSrNo",
        "delete from GST_RecpM where Code_No=" + party,
        "delete from GST_OthCl where OthClSrNo=" + number(id),
    };
    bool whole = true;
    for (const QString &statement : statements) {
        whole = db.Execute(statement) && whole;
        db.Execute(QStringLiteral("flush tables"));
    }
    return whole;
}

FieldFault otherClientFault(const MasterRow &client, const QString &stateShown)
{
    const QString gstin = client.value(QStringLiteral("GSTIN"));
    const QString state = client.value(QStringLiteral("StateNm"));
    if (client.value(QStringLiteral("Nm")).trimmed().isEmpty())
        return {QStringLiteral("Please Specify 'Name' !"), QStringLiteral("txtOthClName")};
    if (state.isEmpty())
        return {QStringLiteral("Please specify 'State' !"), QStringLiteral("cboOthClState")};
    QString fault = gstinStateFault(gstin, GETSTATECODEFORNAMEONLYGST(state), stateShown);
    if (fault.isEmpty())
        fault = gstinPanFault(gstin, client.value(QStringLiteral("PAN")));
    return {fault, fault.isEmpty() ? QString() : QStringLiteral("txtOthClGSTIN")};
}

} // namespace ledgora
