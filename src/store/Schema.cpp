#include "store/Schema.h"

#include "store/Connection.h"
#include "store/ErrorLog.h"
#include "store/SqlText.h"
#include <QFile>

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

bool createSchema(Connection &db, const QString &hostCode)
{
    const ErrorSite site("SCHEMA", "CREATESCHEMA");
    bool whole = runScript(db, QStringLiteral(":/sql/gst.sql"));
    whole = runScript(db, QStringLiteral(":/sql/legacy.sql")) && whole;
    whole = runScript(db, QStringLiteral(":/sql/host_") + hostCode + QStringLiteral(".sql")) && whole;
    // No "Insert Ignore": its warning would go to the error log at every start.
    return db.Execute(QStringLiteral("Insert Into Ledgora_Schema Select 1,") + number(schemaVersion)
                      + QStringLiteral(" From dual Where Not Exists (Select * From Ledgora_Schema)"))
           && whole;
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
