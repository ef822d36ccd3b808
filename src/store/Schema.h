#pragma once

#include <QString>
#include <QStringList>

namespace ledgora {

class Connection;

/// Version of the schema in data/sql/. Raised with every change that an older program could not work with.
inline constexpr int schemaVersion = 1;

/// The kinds of host whose clients the schema has tables for: "C", "G", "T".
QStringList schemaHosts();

/// The tables that hold an office's data, clients of every host included; in lower case.
QStringList dataTables();
/// The tables of one host's clients; in lower case.
QStringList clientTables(const QString &hostCode);

/// The first table of data that has rows, "" when the office is empty.
QString filledTable(Connection &db);

/// Settles which kind of host the database is of. `hostCode` is the one it is to be opened as, or "" for its own, and
/// comes out as that; "" or why it can not be opened so. An office without any data is of whichever host opens it (the
/// former note goes); a new one is of host "C" unless told. One that an earlier version left without a note is known
/// by its client tables.
QString settleHost(Connection &db, QString &hostCode);

/// Makes the tables of the GST side and those of the host ("C", ...) that are not there yet, and notes the version, and
/// the host where none is noted. False when a statement failed (logged).
bool createSchema(Connection &db, const QString &hostCode);

/// After many rows went in at once: has the server look at the tables of data of a database ("" for the connection's)
/// again, which else goes on with what it knew of the empty ones. Ends a transaction. False when it did not (logged).
bool refreshStatistics(Connection &db, const QString &database = {});

/// "" when the program can work with the database, else why not, in a clerk's words: made by a newer program, or a
/// server whose table names mind their case.
QString schemaFault(Connection &db);

} // namespace ledgora
