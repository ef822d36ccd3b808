#pragma once

#include <QString>
#include <QStringList>

namespace ledgora::app {

/// The rights that the program needs on the office's database of a shared server and that the grants (as
/// "Show Grants" of MariaDB and MySQL answers them, those of the roles in force included) do not give: SELECT, INSERT,
/// UPDATE, DELETE, CREATE, DROP and LOCK TABLES on the database, RELOAD on the server.
QStringList missingRights(const QStringList &grants, const QString &database);

} // namespace ledgora::app
