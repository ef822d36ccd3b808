#include "Database.h"
#include "app/PrivateServer.h"
#include "app/SessionModes.h"
#include "store/Schema.h"
#include <QCoreApplication>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <mysql.h>
#include <stdexcept>

namespace ledgora::test {

namespace {

constexpr int lockWaitSeconds = 1;

/// The server that this process starts when nobody told it another.
struct OwnServer
{
    QTemporaryDir folder;
    app::PrivateServer server{{.dataFolder = folder.path(), .lockWaitSeconds = lockWaitSeconds}};
    OwnServer()
    {
        if (!server.start())
            throw std::runtime_error(server.error().toStdString());
    }
};

st_mysql *connectByEnvironment(const QByteArray &socket, const QByteArray &database)
{
    MYSQL *handle = app::newHandle(lockWaitSeconds);
    const int protocol = MYSQL_PROTOCOL_SOCKET;
    mysql_optionsv(handle, MYSQL_OPT_PROTOCOL, &protocol);
    if (mysql_real_connect(handle, nullptr, "root", nullptr, database.isEmpty() ? nullptr : database.constData(), 0,
                           socket.constData(), app::connectFlags()))
        return handle;
    const std::string text = mysql_error(handle);
    mysql_close(handle);
    throw std::runtime_error("no test server: " + text);
}

void send(st_mysql *handle, const QByteArray &sql)
{
    if (mysql_real_query(handle, sql.constData(), static_cast<unsigned long>(sql.size())) != 0)
        throw std::runtime_error(sql.toStdString() + ": " + mysql_error(handle));
}

QString freshName()
{
    static int count = 0;
    return QStringLiteral("test_%1_%2").arg(QCoreApplication::applicationPid()).arg(++count);
}

} // namespace

st_mysql *connectToTestServer(const QString &database)
{
    const QByteArray socket = qgetenv("LEDGORA_TEST_SOCKET");
    if (!socket.isEmpty())
        return connectByEnvironment(socket, database.toUtf8());
    static OwnServer own;
    st_mysql *handle = own.server.connect(database);
    if (!handle)
        throw std::runtime_error(own.server.error().toStdString());
    return handle;
}

Database::User::User(const QString &database)
    : handle(connectToTestServer(database))
    , connection(std::make_unique<Connection>(handle))
{
}

Database::User::~User()
{
    connection.reset();
    mysql_close(handle);
}

Database::Database(const QString &hostCode, Tables tables) : m_name(freshName())
{
    // What a test loses in a power cut nobody misses, and tables are made several times faster.
    const std::unique_ptr<st_mysql, decltype(&mysql_close)> admin(connectToTestServer({}), &mysql_close);
    send(admin.get(), "Set Global innodb_flush_log_at_trx_commit=0, Global sync_frm=0");
    send(admin.get(), "Create Database " + m_name.toUtf8());
    m_own = std::make_unique<User>(m_name);
    if (tables == Tables::Schema && !createSchema(db(), hostCode))
        throw std::runtime_error("no schema: " + db().lastError().toStdString());
}

Database::~Database()
{
    m_other.reset();
    // A test may have left its connection locked or lost.
    m_own.reset();
    try {
        const std::unique_ptr<st_mysql, decltype(&mysql_close)> admin(connectToTestServer({}), &mysql_close);
        send(admin.get(), "Drop Database " + m_name.toUtf8());
    } catch (const std::runtime_error &fault) {
        ADD_FAILURE() << fault.what();
    }
}

Connection &Database::other()
{
    if (!m_other)
        m_other = std::make_unique<User>(m_name);
    return *m_other->connection;
}

void Database::reconnect()
{
    m_other.reset();
    m_own = std::make_unique<User>(m_name);
}

void Database::run(const QString &sql) const
{
    const QByteArray text = sql.toUtf8();
    if (mysql_real_query(handle(), text.constData(), static_cast<unsigned long>(text.size())) != 0)
        ADD_FAILURE() << text.constData() << ": " << mysql_error(handle());
}

QStringList Database::rows(const QString &sql) const
{
    run(sql);
    const std::unique_ptr<MYSQL_RES, decltype(&mysql_free_result)> result(mysql_store_result(handle()),
                                                                          &mysql_free_result);
    QStringList lines;
    if (!result)
        return lines;
    while (char **row = mysql_fetch_row(result.get())) {
        const unsigned long *lengths = mysql_fetch_lengths(result.get());
        QStringList cells;
        for (unsigned column = 0; column < mysql_num_fields(result.get()); ++column)
            cells << (row[column] ? QString::fromUtf8(row[column], qsizetype(lengths[column]))
                                  : QStringLiteral("NULL"));
        lines << cells.join(QLatin1Char('|'));
    }
    return lines;
}

void Database::empty() const
{
    const QStringList tables = rows("Select table_name From information_schema.tables Where table_schema=Database() "
                                    "and table_type='BASE TABLE' and table_name<>'ledgora_schema'");
    for (const QString &table : tables)
        run(QStringLiteral("Delete From `%1`").arg(table));
}

} // namespace ledgora::test
