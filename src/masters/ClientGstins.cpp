#include "masters/ClientGstins.h"

#include "masters/CodeRows.h"
#include "masters/OwnerName.h"
#include "store/Connection.h"
#include "store/ErrorLog.h"
#include "store/Identifiers.h"
#include "store/SqlText.h"
#include "store/StateList.h"

namespace ledgora {

namespace {

/// A table of the host that clients come from. Individuals have their name in three columns.
struct ClientSource
{
    const char *host;
    const char *query;
    const char *codeMark;
    const char *code;
    const char *name[3];
    const char *state;
    const char *pan;
};

constexpr ClientSource sources[] = {
    {"G", "Select * from Owner1", "", "Code", {"F_nm", "M_nm", "l_nm"}, "State", "PAN"},
    {"G", "Select * from Main_Info1", "", "Code_No", {"Nm"}, "State", "PAN"},
    {"T", "Select * from Main_Info", "", "Code_No", {"Name"}, "State", "PANNo"},
    {"C", "Select * from Comp_Master", "", "Code", {"Nm"}, "State", "PAN"},
    {"C", "Select * from LLP_Master", "LLP!~!", "Code", {"Nm"}, "State", "PAN"},
};

void addClients(Connection &db, Cells &clients, const ClientSource &source)
{
    Recordset rows = db.Open(QLatin1String(source.query));
    const auto column = [&rows](const char *name) { return name ? rows.column(QLatin1String(name)) : -1; };
    const int code = column(source.code);
    const int state = column(source.state);
    const int pan = column(source.pan);
    const int names[] = {column(source.name[0]), column(source.name[1]), column(source.name[2])};
    int row = clients.rows();
    clients.setRows(row + int(rows.recordCount()));
    for (; rows.next(); ++row) {
        const QString first = rows.text(names[0]);
        clients.setText(row, ClientGstinCode, QLatin1String(source.codeMark) + rows.text(code));
        clients.setText(row, ClientGstinName,
                        source.name[1] ? ownerName(first, rows.text(names[1]), rows.text(names[2])) : first);
        clients.setText(row, ClientGstinState, rows.text(state));
        clients.setText(row, ClientGstinPan, rows.text(pan));
    }
}

} // namespace

Cells emptyClientGstins()
{
    Cells clients(ClientGstinColumnCount, 1);
    clients.setRow(0, {QStringLiteral("Code No."), QStringLiteral("Name"), QStringLiteral("State"),
                       QStringLiteral("PAN"), QStringLiteral("GSTIN as loaded"), QStringLiteral("GSTIN")});
    return clients;
}

void fillRegisteredGstins(Connection &db, Cells &clients, int codeColumn, std::initializer_list<int> into)
{
    Recordset rows = db.Open(QStringLiteral("Select * from GST_ClRegNo WHERE GSTIN<>'' ORDER BY Code_No"));
    if (rows.recordCount() == 0)
        return;
    CodeRows places(clients, codeColumn);
    const int code = rows.column(QStringLiteral("Code_No"));
    const int gstin = rows.column(QStringLiteral("GSTIN"));
    while (rows.next()) {
        const int row = places.find(rows.text(code));
        for (const int column : into)
            clients.setText(row, column, rows.text(gstin));
    }
}

void LOADGRIDUPDCLGSTIN(Connection &db, const QString &hostCode, Cells &clients)
{
    const ErrorSite site("frmMainGST", "LOADGRIDUPDCLGSTIN");
    clients.clearData();
    for (const ClientSource &source : sources) {
        if (hostCode == QLatin1String(source.host))
            addClients(db, clients, source);
    }
    fillRegisteredGstins(db, clients, ClientGstinCode, {ClientGstinLoaded, ClientGstin});
    clients.sort(ClientGstinName, Cells::Sort::Text);
}

std::vector<int> changedGstins(const Cells &clients)
{
    std::vector<int> changed;
    for (int row = clients.fixedRows(); row < clients.rows(); ++row) {
        if (clients.text(row, ClientGstin) != clients.text(row, ClientGstinLoaded))
            changed.push_back(row);
    }
    return changed;
}

std::vector<GstinFinding> gstinFindings(const QString &gstin, const QString &state, const QString &pan)
{
    if (gstin.isEmpty())
        return {};
    if (!IsGstinShape(gstin))
        return {{QStringLiteral("Invalid 'GSTIN' !"), false, {}}};
    std::vector<GstinFinding> findings;
    const QString stateFault = gstinStateFault(gstin, GETSTATECODEFORNAMEONLYGST(state), state);
    if (!stateFault.isEmpty())
        findings.push_back({stateFault + QStringLiteral("\n\nDo you want to still want to save ?"), true, {}});
    const QString holder = gstin.mid(2, 10);
    if (hasPanShape(holder)) {
        if (const QString panFault = gstinPanFault(gstin, pan); !panFault.isEmpty())
            findings.push_back({panFault, false, {}});
    } else if (hasTanShape(holder)) {
        findings.push_back({QStringLiteral("Whether GSTIN for Assessee 'Registered as Tax Deductor with TAN' ?"), true,
                            QStringLiteral("Invalid 'GSTIN' ! Should contain PAN or TAN from 3rd to 12th Character.")});
    }
    return findings;
}

QString gstinStatement(const QString &code, const QString &loaded, const QString &gstin)
{
    if (loaded == gstin)
        return {};
    if (gstin.isEmpty())
        return "Delete from GST_ClRegNo Where Code_No=" + quoted(code);
    if (loaded.isEmpty())
        return "Insert into GST_ClRegNo Values (" + quoted(code) + ',' + quoted(gstin) + ",'')";
    return "UPDATE GST_ClRegNo SET GSTIN=" + quoted(gstin) + " Where Code_No=" + quoted(code);
}

bool saveClientGstins(Connection &db, Cells &clients)
{
    bool whole = true;
    for (const int row : changedGstins(clients)) {
        const QString loaded = clients.text(row, ClientGstinLoaded);
        const QString gstin = clients.text(row, ClientGstin);
        const bool done = db.Execute(gstinStatement(clients.text(row, ClientGstinCode), loaded, gstin));
        const bool gone = done && !gstin.isEmpty() && db.affectedRows() == 0;
        db.Execute(QStringLiteral("Flush Tables"));
        if (done)
            clients.setText(row, ClientGstinLoaded, gone ? QString() : gstin);
        whole = whole && done && !gone;
    }
    return whole;
}

} // namespace ledgora
