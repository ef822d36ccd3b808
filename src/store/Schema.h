#pragma once

#include <QString>

namespace ledgora {

class Connection;

/// Version of the schema in data/sql/. Raised with every change that an older program could not work with.
inline constexpr int schemaVersion = 1;

/// Makes the tables of the GST side and those of the host ("C", ...) that are not there yet, and notes the version.
/// False when a statement failed (logged).
bool createSchema(Connection &db, const QString &hostCode);

/// "" when the program can work with the database, else why not, in a clerk's words: made by a newer program, or a
/// server whose table names mind their case.
QString schemaFault(Connection &db);

} // namespace ledgora
