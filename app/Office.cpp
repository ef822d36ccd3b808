#include "Office.h"

#include "ServerFolder.h"
#include "care/Restore.h"
#include "store/ErrorLog.h"
#include "store/Schema.h"
#include "store/Settings.h"
#include <QDir>
#include <QFile>
#include <algorithm>
#include <mysql.h>
#include <sys/socket.h>

namespace ledgora::app {

bool Office::exists(const QString &dataFolder)
{
    return ServerFolder(dataFolder).isInitialised();
}

Office::Office(const QString &dataFolder)
    : m_dataFolder(QDir(dataFolder).absolutePath())
    , m_server({.dataFolder = m_dataFolder})
{
}

Office::~Office()
{
    closeHandle();
}

bool Office::open()
{
    if (!m_server.start() || !connectToServer()) {
        m_error = m_server.error();
        return false;
    }
    m_error = finishRestore(m_connection, m_dataFolder); // one that was ended between tables and files
    if (!m_error.isEmpty())
        return false;
    m_error = schemaFault(m_connection);
    if (!m_error.isEmpty())
        return false;
    if (!createSchema(m_connection, QStringLiteral("C"))) {
        m_error = QStringLiteral("The tables of the office could not be made: ") + m_connection.lastError();
        return false;
    }
    return installTemplates();
}

bool Office::connectToServer()
{
    closeHandle();
    m_handle = m_server.connect();
    m_connection.setHandle(m_handle);
    m_connection.setInterrupt([this] {
        // The connection stays whole where the server still listens; one that is silent is given up.
        if (!m_server.endStatement(mysql_thread_id(m_handle)))
            ::shutdown(int(mysql_get_socket(m_handle)), SHUT_RDWR);
    });
    return m_handle != nullptr;
}

void Office::closeHandle()
{
    m_connection.setHandle(nullptr);
    if (m_handle)
        mysql_close(m_handle);
    m_handle = nullptr;
}

Office::Server Office::keepConnected()
{
    if (m_connection.isRunning())
        return Server::There;
    if (m_handle && !m_connection.isLost() && m_connection.ping())
        return Server::There;
    const ErrorSite site("OFFICE", "KEEPCONNECTED");
    closeHandle();
    if (m_server.start() && connectToServer())
        return Server::Reopened;
    WriteErrLog(2006, m_server.error(), QStringLiteral("Office"));
    return Server::Away;
}

/// The default templates are copied once; an office may change its copies.
bool Office::installTemplates()
{
    const QString folder = joinPath(m_dataFolder, QStringLiteral("GST_Templates"));
    if (!QDir().mkpath(folder)) {
        m_error = QStringLiteral("The folder [") + folder + QStringLiteral("] could not be made.");
        return false;
    }
    const QDir stock(QStringLiteral(":/templates"));
    return std::ranges::all_of(stock.entryList(QDir::Files), [&](const QString &name) {
        const QString copy = joinPath(folder, name);
        if (QFile::exists(copy))
            return true;
        const bool copied = QFile::copy(stock.filePath(name), copy)
                            && QFile::setPermissions(copy, QFile::ReadOwner | QFile::WriteOwner);
        if (!copied)
            m_error = QStringLiteral("The template [") + copy + QStringLiteral("] could not be written.");
        return copied;
    });
}

} // namespace ledgora::app
