#include "store/Schema.h"

#include "store/Connection.h"
#include "store/ErrorLog.h"
#include "store/SqlText.h"
#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <algorithm>

namespace ledgora {

namespace {

/// Statements of a script end with a ";" at the end of a line; lines that begin with "--" are remarks.
QStringList statementsOf(const QString &resource)
{
    QFile file(resource);
    if (!file.open(QIODevice::ReadOnly)) {
        WriteErrLog(53, QStringLiteral("Missing script ") + resource, QStringLiteral("Schema"));
        return {};
    }
    QString script;
    const QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n');
    for (const QString &line : lines) {
        if (!line.startsWith(QLatin1String("--")))
            script += line + u'\n';
    }
    return script.split(QStringLiteral(";\n"), Qt::SkipEmptyParts);
}

QString hostScript(const QString &hostCode)
{
    return QStringLiteral(":/sql/host_") + hostCode + QStringLiteral(".sql");
}

QStringList tablesOfScript(const QString &resource)
{
    static const QRegularExpression head(QStringLiteral("CREATE TABLE IF NOT EXISTS (\\w+)"));
    QStringList tables;
    for (const QString &statement : statementsOf(resource)) {
        if (const auto found = head.match(statement); found.hasMatch())
            tables << found.captured(1).toLower();
    }
    return tables;
}

/// Of a database, "" for the connection's.
QStringList tablesThere(Connection &db, const QString &database = {})
{
    QStringList tables;
    Recordset rows = db.Open("Select Lower(table_name) From information_schema.tables Where table_schema="
                             + (database.isEmpty() ? QStringLiteral("Database()") : quoted(database)));
    while (rows.next())
        tables << rows.text(0);
    return tables;
}

QString notedHost(Connection &db, const QStringList &there)
{
    if (!there.contains(QLatin1String("ledgora_host")))
        return {};
    Recordset note = db.Open(QStringLiteral("Select Code From Ledgora_Host"));
    return note.next() ? note.text(0) : QString();
}

bool hasRows(Connection &db, const QString &table)
{
    return db.Open("Select 1 From " + table + " Limit 1").next();
}

/// The hosts whose clients are there; where no host has any, those whose tables are.
QStringList hostsByTables(Connection &db, const QStringList &there)
{
    QStringList known;
    QStringList filled;
    for (const QString &host : schemaHosts()) {
        QStringList tables = clientTables(host);
        tables.removeIf([&](const QString &table) { return !there.contains(table); });
        if (!tables.isEmpty())
            known << host;
        if (std::ranges::any_of(tables, [&](const QString &table) { return hasRows(db, table); }))
            filled << host;
    }
    return filled.isEmpty() ? known : filled;
}

bool runScript(Connection &db, const QString &resource)
{
    const QStringList statements = statementsOf(resource);
    bool whole = !statements.isEmpty();
    for (const QString &statement : statements) {
        if (!statement.trimmed().isEmpty())
            whole = db.Execute(statement) && whole;
    }
    return whole;
}

} // namespace

QStringList schemaHosts()
{
    QStringList hosts;
    for (const QString &script : QDir(QStringLiteral(":/sql")).entryList({QStringLiteral("host_*.sql")}))
        hosts << script.section(u'_', 1).section(u'.', 0, 0);
    return hosts;
}

QStringList clientTables(const QString &hostCode)
{
    return tablesOfScript(hostScript(hostCode));
}

QStringList dataTables()
{
    QStringList tables = tablesOfScript(QStringLiteral(":/sql/gst.sql"));
    tables.removeIf([](const QString &table) { return table.startsWith(QLatin1String("ledgora_")); });
    tables << tablesOfScript(QStringLiteral(":/sql/legacy.sql"));
    for (const QString &host : schemaHosts())
        tables << clientTables(host);
    return tables;
}

QString filledTable(Connection &db)
{
    const QStringList there = tablesThere(db);
    for (const QString &table : dataTables()) {
        if (there.contains(table) && hasRows(db, table))
            return table;
    }
    return {};
}

QString settleHost(Connection &db, QString &hostCode)
{
    const ErrorSite site("SCHEMA", "SETTLEHOST");
    const QStringList there = tablesThere(db);
    const QString noted = notedHost(db, there);
    QStringList own = noted.isEmpty() ? hostsByTables(db, there) : QStringList{noted};
    const bool isOther = !hostCode.isEmpty() && !own.contains(hostCode);
    if (isOther && filledTable(db).isEmpty()) {
        if (!noted.isEmpty())
            db.Execute(QStringLiteral("Delete From Ledgora_Host"));
        own.clear();
    }
    if (own.isEmpty())
        own << (hostCode.isEmpty() ? QStringLiteral("C") : hostCode);
    if (!hostCode.isEmpty() && !own.contains(hostCode))
        return QStringLiteral("This is an office of host %1. It can not be opened as one of host %2.")
            .arg(own.join(QStringLiteral(" and ")), hostCode);
    if (hostCode.isEmpty() && own.size() > 1)
        return QStringLiteral("The office holds clients of the hosts %1. Say with --host which one it is.")
            .arg(own.join(QStringLiteral(" and ")));
    if (hostCode.isEmpty())
        hostCode = own.front();
    return {};
}

bool createSchema(Connection &db, const QString &hostCode)
{
    const ErrorSite site("SCHEMA", "CREATESCHEMA");
    bool whole = runScript(db, QStringLiteral(":/sql/gst.sql"));
    whole = runScript(db, QStringLiteral(":/sql/legacy.sql")) && whole;
    whole = runScript(db, hostScript(hostCode)) && whole;
    // No "Insert Ignore": its warning would go to the error log at every start.
    whole = whole
            && db.Execute("Insert Into Ledgora_Host Select 1," + quoted(hostCode)
                          + " From dual Where Not Exists (Select * From Ledgora_Host)");
    return db.Execute(QStringLiteral("Insert Into Ledgora_Schema Select 1,") + number(schemaVersion)
                      + QStringLiteral(" From dual Where Not Exists (Select * From Ledgora_Schema)"))
           && whole;
}

bool refreshStatistics(Connection &db, const QString &database)
{
    const ErrorSite site("SCHEMA", "REFRESHSTATISTICS");
    const QStringList there = tablesThere(db, database);
    QStringList tables;
    for (const QString &table : dataTables()) {
        if (there.contains(table))
            tables << (database.isEmpty() ? QString() : u'`' + database + QStringLiteral("`.")) + table;
    }
    return db.Execute("Analyze Table " + tables.join(u','));
}

QString schemaFault(Connection &db)
{
    const ErrorSite site("SCHEMA", "SCHEMAFAULT");
    Recordset names = db.Open(QStringLiteral("Select @@lower_case_table_names"));
    if (names.next() && names.integer(0) == 0)
        return QStringLiteral("The database server minds the case of table names. It must be set up with "
                              "lower_case_table_names=1 before Ledgora can use it.");
    Recordset version = db.Open(QStringLiteral("Select Version From Ledgora_Schema"));
    if (version.next() && version.integer(0) > schemaVersion)
        return QStringLiteral("The data was last used by a newer version of Ledgora (data version %1, this program "
                              "knows %2). Please update Ledgora on this machine.")
            .arg(version.integer(0))
            .arg(schemaVersion);
    return {};
}

} // namespace ledgora
