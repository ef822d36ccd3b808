#pragma once

#include <QString>
#include <stop_token>

struct st_mysql;

namespace ledgora::app {

/// The database server on which an office's data lies. Faults are texts in a clerk's words. The waiting operations
/// come back soon after their token was stopped; they then fail.
class OfficeServer
{
public:
    OfficeServer() = default;
    OfficeServer(const OfficeServer &) = delete;
    OfficeServer &operator=(const OfficeServer &) = delete;
    virtual ~OfficeServer() = default;

    /// Makes sure that the server is there; may be called again after it went away. False with `error()`.
    virtual bool start(const std::stop_token &stop = {}) = 0;
    virtual QString error() const = 0;

    /// A new connection to the office's database, made for non-blocking use, with the modes that the statements need
    /// set; the caller closes it with mysql_close. nullptr with `error()` when it fails.
    virtual st_mysql *connectOffice(const std::stop_token &stop = {}) = 0;

    /// Ends the statement that runs on another connection, from a connection beside it. False when the server did not
    /// take that within two seconds.
    virtual bool endStatement(unsigned long connectionId) = 0;

    /// Where the data lies, for the status line and for messages.
    virtual QString place() const = 0;
};

} // namespace ledgora::app
