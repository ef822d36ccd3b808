#include "masters/PartyDirectory.h"

#include "bills/DocumentList.h"
#include "store/Connection.h"
#include "store/ErrorLog.h"
#include <array>
#include <vector>

namespace ledgora {

namespace {

/// A table that parties come from: its columns for a party's code, name, PAN, GSTIN and state, and its address
/// fields, the postal code last.
struct PartySource
{
    const char *query;
    const char *codeMark;
    const char *code, *name, *pan, *gstin, *state;
    QStringList address;
    bool zeroAddressIsEmpty;
};

const PartySource companies{"Select * from Comp_Master",
                            "",
                            "Code",
                            "Nm",
                            "PAN",
                            nullptr,
                            "State",
                            {"Flat", "Building", "street", "area", "city", "State", "PIN"},
                            false};
const PartySource partnerships{"Select * from LLP_Master",
                               "LLP!~!",
                               "Code",
                               "Nm",
                               "PAN",
                               nullptr,
                               "State",
                               {"Line1", "Line2", "city", "State", "PIN"},
                               false};
const PartySource otherClients{"Select * from GST_OthCl",
                               "",
                               "OthClCode",
                               "Nm",
                               "PAN",
                               "GSTIN",
                               "StateNm",
                               {"h_no", "h_nm", "street", "area", "city", "StateNm", "pincode"},
                               true};

void addParties(Connection &db, Cells &parties, const PartySource &source)
{
    Recordset rows = db.Open(QLatin1String(source.query));
    const auto column = [&rows](const char *name) { return name ? rows.column(QLatin1String(name)) : -1; };
    const int code = column(source.code);
    const std::array<std::pair<int, int>, 4> sources{{{PartyName, column(source.name)},
                                                      {PartyPan, column(source.pan)},
                                                      {PartyGstin, column(source.gstin)},
                                                      {PartyState, column(source.state)}}};
    std::vector<int> address;
    for (const QString &name : source.address)
        address.push_back(rows.column(name));
    const int firstRow = parties.rows();
    parties.setRows(firstRow + int(rows.recordCount()));
    for (int row = firstRow; rows.next(); ++row) {
        parties.setText(row, PartyCode, QLatin1String(source.codeMark) + rows.text(code));
        for (const auto &[cell, from] : sources)
            parties.setText(row, cell, rows.text(from));
        QStringList parts;
        for (const int part : address)
            parts << rows.text(part);
        const QString line = oneLineAddress(parts);
        const bool empty = source.zeroAddressIsEmpty && line == QLatin1String("0");
        parties.setText(row, PartyAddress, empty ? QString() : line);
    }
}

/// Both tables are in code order, so that the search moves along; a client that left the host is skipped.
void addRegisteredGstins(Connection &db, Cells &parties)
{
    Recordset rows = db.Open(QStringLiteral("Select * from GST_ClRegNo WHERE GSTIN<>'' ORDER BY Code_No"));
    if (rows.recordCount() == 0)
        return;
    parties.sort(PartyCode, Cells::Sort::Text);
    int start = parties.fixedRows();
    while (rows.next()) {
        const int row = parties.findMoving(rows.text(QStringLiteral("Code_No")), PartyCode, start);
        if (row >= 0)
            parties.setText(row, PartyGstin, rows.text(QStringLiteral("GSTIN")));
    }
}

} // namespace

Cells emptyPartyDirectory()
{
    Cells parties(PartyColumnCount, 1);
    parties.setRow(0, {QStringLiteral("Code No."), QStringLiteral("Name"), QStringLiteral("PAN"),
                       QStringLiteral("GSTIN"), QStringLiteral("State"), QStringLiteral("Addr")});
    return parties;
}

void LOADCLLIST(Connection &db, const QString &hostCode, Cells &parties)
{
    const ErrorSite site("MODGST", "LOADCLLIST");
    parties.clearData();
    if (hostCode == QLatin1String("C")) {
        addParties(db, parties, companies);
        addParties(db, parties, partnerships);
    }
    addRegisteredGstins(db, parties);
    addParties(db, parties, otherClients);
    parties.sort(PartyName, Cells::Sort::Text);
}

QString oneLineAddress(const QStringList &parts)
{
    QString address;
    for (qsizetype i = 0; i < parts.size(); ++i) {
        const QString &part = parts.at(i);
        if (part.isEmpty())
            continue;
        if (!address.isEmpty())
            address += i == parts.size() - 1 ? QStringLiteral("-") : QStringLiteral(", ");
        address += part;
    }
    return address;
}

} // namespace ledgora
