#include "ClientDetails.h"

#include "masters/ClientGroups.h"
#include "store/Connection.h"
#include "store/ErrorLog.h"
#include <algorithm>

namespace ledgora::app {

namespace {

constexpr MasterField officeColumns[] = {
    {"Nm", "txtOfficeName"},   {"h_no", "txtOfficeFlat"}, {"h_nm", "txtOfficeBuilding"}, {"street", "txtOfficeStreet"},
    {"area", "txtOfficeArea"}, {"city", "txtOfficeCity"}, {"State", "cboOfficeState"},   {"PIN", "txtOfficePIN"},
};

bool isEmpty(const MasterRow &row)
{
    return std::ranges::all_of(row, [](const QString &text) { return text.isEmpty(); });
}

/// One office a client: of several that another program wrote, the first is the one shown and changed.
bool storeOffice(Connection &db, const QString &code, const MasterRow &office)
{
    const QString ofClient = " Where code_no=" + quoted(code);
    if (isEmpty(office))
        return executeAndFlush(db, "Delete from off_info" + ofClient + " Limit 1");
    if (!executeAndFlush(db, "Update off_info Set " + updateValues(officeColumns, office) + ofClient + " Limit 1"))
        return false;
    Recordset stored = db.Open("Select * from off_info" + ofClient);
    if (stored.failed() || stored.recordCount() > 0)
        return !stored.failed();
    return executeAndFlush(db, "Insert into off_info (code_no,Nm,h_no,h_nm,street,area,city,State,PIN) Values ("
                                   + quoted(code) + ',' + insertValues(officeColumns, office) + ')');
}

bool storeYears(Connection &db, const QString &code, const QMap<QString, bool> &former,
                const QMap<QString, bool> &present)
{
    bool whole = true;
    for (const QString &year : (former.keys() + present.keys())) {
        if (former.contains(year) == present.contains(year) && former.value(year) == present.value(year))
            continue;
        whole =
            executeAndFlush(db, "Delete from new_Tab Where code_no=" + quoted(code) + " and ass_year=" + quoted(year))
            && whole;
        if (present.contains(year))
            whole = executeAndFlush(db, "Insert into new_Tab Values (" + quoted(code) + ',' + quoted(year) + ','
                                            + number(present.value(year) ? 1 : 0) + ')')
                    && whole;
    }
    return whole;
}

bool storeGroup(Connection &db, const QString &code, const QString &group)
{
    const bool left = executeAndFlush(db, "Delete from Grp_Trans Where C_code=" + quoted(code));
    return left
           && (group.isEmpty()
               || executeAndFlush(db, "Insert into Grp_Trans Values (" + quoted(group) + ',' + quoted(code) + ')'));
}

} // namespace

std::span<const MasterField> officeFields()
{
    return officeColumns;
}

std::optional<ClientDetails> storedDetails(Connection &db, const QString &code)
{
    const ErrorSite site("CLIENTSTORE", "STOREDDETAILS");
    ClientDetails details;
    Recordset office = db.Open("Select * from off_info Where code_no=" + quoted(code));
    Recordset years = db.Open("Select * from new_Tab Where code_no=" + quoted(code));
    if (office.failed() || years.failed())
        return std::nullopt;
    const bool any = office.next();
    for (const MasterField &field : officeColumns)
        details.office.insert(QLatin1String(field.column), any ? office.text(QLatin1String(field.column)) : QString());
    while (years.next())
        details.lettersToOffice.insert(years.text(QStringLiteral("ass_year")),
                                       years.integer(QStringLiteral("AddO")) != 0);
    QString name;
    GETGROUPDETAILS(db, QStringLiteral("G"), code, details.group, name);
    return details;
}

bool storeDetails(Connection &db, const QString &code, const ClientDetails &former, const ClientDetails &present)
{
    const ErrorSite site("CLIENTSTORE", "STOREDETAILS");
    bool whole = former.office == present.office || storeOffice(db, code, present.office);
    whole = storeYears(db, code, former.lettersToOffice, present.lettersToOffice) && whole;
    return (former.group == present.group || storeGroup(db, code, present.group)) && whole;
}

Cells emptyGroupList()
{
    Cells groups(GroupColumnCount, 1);
    groups.setRow(0, {QStringLiteral("Code No."), QStringLiteral("Name"), QStringLiteral("Clients")});
    return groups;
}

void loadGroupList(Connection &db, Cells &groups)
{
    const ErrorSite site("CLIENTSTORE", "LOADGROUPLIST");
    groups.clearData();
    Recordset rows =
        db.Open(QStringLiteral("Select Grp_M.Code_No,Grp_M.Nm,Count(C_code) as Members from Grp_M Left Join "
                               "Grp_Trans on Grp_Trans.Code_no=Grp_M.Code_No Group By Grp_M.Code_No"));
    while (rows.next())
        groups.addRow({rows.text(0), rows.text(1), rows.text(2)});
    groups.sort(GroupName, Cells::Sort::Text);
}

Cells emptyMemberList()
{
    Cells members(MemberColumnCount, 1);
    members.setRow(0, {QStringLiteral("Code No."), QStringLiteral("Name")});
    return members;
}

void loadMemberList(Connection &db, const QString &group, Cells &members)
{
    const ErrorSite site("CLIENTSTORE", "LOADMEMBERLIST");
    members.clearData();
    const QString codes = GETGROUPCLS(db, group);
    if (codes.isEmpty())
        return;
    Recordset rows =
        db.Open("Select Code,Concat_Ws(' ',NullIf(F_nm,''),NullIf(M_nm,''),NullIf(l_nm,'')) from Owner1 Where Code In ("
                + codes + ") Union All Select Code_No,Nm from Main_Info1 Where Code_No In (" + codes + ')');
    while (rows.next())
        members.addRow({rows.text(0), rows.text(1)});
    members.sort(MemberName, Cells::Sort::Text);
}

QString groupFault(Connection &db, const QString &code, const QString &name)
{
    if (code.trimmed().isEmpty())
        return QStringLiteral("Please Specify Code No.");
    if (db.Open("Select * from Grp_M Where Code_No=" + quoted(code)).next())
        return "Code No. [" + code + "] has already been allotted.";
    return name.trimmed().isEmpty() ? QStringLiteral("Please specify 'Name' !") : QString();
}

bool insertGroup(Connection &db, const QString &code, const QString &name)
{
    return executeAndFlush(db, "Insert into Grp_M Values (" + quoted(code) + ',' + quoted(name) + ')');
}

bool renameGroup(Connection &db, const QString &code, const QString &name)
{
    const bool done = db.Execute("Update Grp_M Set Nm=" + quoted(name) + " Where Code_No=" + quoted(code));
    const bool met = db.affectedRows() > 0;
    db.Execute(QStringLiteral("flush tables"));
    return done && met;
}

/// Somebody may have put a client into the group meanwhile, so the statement itself looks.
bool deleteGroup(Connection &db, const QString &code)
{
    const bool done = db.Execute("Delete from Grp_M Where Code_No=" + quoted(code)
                                 + " and not exists (Select * from Grp_Trans Where Code_no=" + quoted(code) + ')');
    const bool met = db.affectedRows() > 0;
    db.Execute(QStringLiteral("flush tables"));
    return done && met;
}

} // namespace ledgora::app
