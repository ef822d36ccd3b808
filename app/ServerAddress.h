#pragma once

#include <QString>

namespace ledgora::app {

/// The office's shared server as an office writes it: mysql://user@server[:port]/database, and behind a "?" how the
/// way there is protected, joined by "&": "tls=required" refuses a server without TLS, "ca=FILE" (a PEM file) also one
/// whose certificate that authority did not sign for its name. A password never stands in it.
struct ServerAddress
{
    QString user, host, database;
    unsigned port = 3306;
    bool tlsRequired = false;
    QString caFile;

    QString text() const;
    /// "database on server", for messages.
    QString place() const;
};

/// Reads an address; "" or why it is none, in words that repeat nothing of what may be a password.
QString readAddress(const QString &text, ServerAddress &address);

/// The password in the first line of a file that only its owner can read. "" in `fault`, or why it is not taken.
QByteArray passwordFrom(const QString &file, QString &fault);

} // namespace ledgora::app
