#pragma once

#include "store/Connection.h"
#include <QStringList>
#include <memory>

struct st_mysql;

namespace ledgora::test {

/// A fresh database with our schema on the server of the test run, dropped in the end: one a test suite. The server is
/// the one named by LEDGORA_TEST_SOCKET, else one that this process starts in a temporary folder and stops at its end.
/// A lock is waited for one second. Throws std::runtime_error when there is no server or no schema, which fails the
/// test or suite that asked.
class Database
{
public:
    enum class Tables { Schema, None };

    explicit Database(const QString &hostCode = QStringLiteral("C"), Tables tables = Tables::Schema);
    Database(const Database &) = delete;
    Database &operator=(const Database &) = delete;
    ~Database();

    QString name() const { return m_name; }
    Connection &db() { return *m_own->connection; }
    st_mysql *handle() const { return m_own->handle; }
    /// Another user of the same database, connected when first asked for.
    Connection &other();
    /// After the server was away: both users anew.
    void reconnect();

    /// A statement of the test's own, past the code under test; a failed one fails the test.
    void run(const QString &sql) const;
    /// The rows of a query of the test's own, cells joined with "|", NULL as "NULL".
    QStringList rows(const QString &sql) const;
    /// Empties every table but the schema's version, so that the tests of a suite can share the database.
    void empty() const;

private:
    struct User
    {
        explicit User(const QString &database);
        User(const User &) = delete;
        User &operator=(const User &) = delete;
        ~User();
        st_mysql *handle;
        std::unique_ptr<Connection> connection;
    };
    QString m_name;
    std::unique_ptr<User> m_own;
    std::unique_ptr<User> m_other;
};

/// A new connection to a database of the test run's server ("" for none), to be closed with mysql_close. Throws
/// std::runtime_error when there is none.
st_mysql *connectToTestServer(const QString &database);

} // namespace ledgora::test
