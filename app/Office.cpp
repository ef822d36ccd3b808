#include "Office.h"

#include "Aside.h"
#include "PrivateServer.h"
#include "ServerFolder.h"
#include "care/Restore.h"
#include "store/ErrorLog.h"
#include "store/Schema.h"
#include "store/Settings.h"
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QScopedValueRollback>
#include <algorithm>
#include <mysql.h>
#include <sys/socket.h>

namespace ledgora::app {

namespace {

constexpr int silenceMilliseconds = 2000; ///< an attempt that took longer met silence, not a refusal
constexpr QFile::Permissions ownerOnly = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;
constexpr int letAloneMilliseconds = 10000;

} // namespace

bool Office::exists(const QString &dataFolder)
{
    return ServerFolder(dataFolder).isInitialised();
}

QStringList Office::hostCodes()
{
    return {QStringLiteral("C"), QStringLiteral("G"), QStringLiteral("T")};
}

Office::Office(const QString &dataFolder, QString hostCode, std::unique_ptr<OfficeServer> server)
    : m_dataFolder(QDir(dataFolder).absolutePath())
    , m_hostCode(std::move(hostCode))
    , m_server(std::move(server))
{
    if (!m_server)
        m_server = std::make_unique<PrivateServer>(PrivateServer::Settings{.dataFolder = m_dataFolder});
    m_connection.setInterrupt([this] { interrupt(); });
}

Office::~Office()
{
    closeHandle();
}

bool Office::open()
{
    if (!reachServer()) {
        m_error = m_server->error();
        return false;
    }
    // A private server has made it; with a shared one only templates, settings and log lie there.
    const QDir folder(m_dataFolder);
    if (!folder.exists() && !(QDir().mkpath(QFileInfo(m_dataFolder).path()) && QDir().mkdir(m_dataFolder, ownerOnly))) {
        m_error = QStringLiteral("The folder [") + m_dataFolder + QStringLiteral("] could not be made.");
        return false;
    }
    m_error = finishRestore(m_connection, m_dataFolder); // one that was ended between tables and files
    if (!m_error.isEmpty())
        return false;
    m_error = schemaFault(m_connection);
    if (!m_error.isEmpty())
        return false;
    if (!createSchema(m_connection, m_hostCode)) {
        m_error = QStringLiteral("The tables of the office could not be made: ") + m_connection.lastError();
        return false;
    }
    return installTemplates();
}

bool Office::reachServer()
{
    closeHandle();
    const QScopedValueRollback reaching(m_isReaching, true);
    m_stop = std::stop_source();
    runAside(m_connection.waitHook(), m_stop, [this](const std::stop_token &stop) {
        m_handle = m_server->start(stop) ? m_server->connectOffice(stop) : nullptr;
    });
    m_connection.setHandle(m_handle);
    return m_handle != nullptr;
}

void Office::interrupt()
{
    if (m_isReaching)
        m_stop.request_stop();
    // The connection stays whole where the server still listens; one that is silent is given up.
    else if (m_handle && !m_server->endStatement(mysql_thread_id(m_handle)))
        ::shutdown(int(mysql_get_socket(m_handle)), SHUT_RDWR);
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
    if (m_connection.isRunning() || m_isReaching)
        return Server::There;
    if (m_handle && !m_connection.isLost() && m_connection.ping())
        return Server::There;
    if (!m_letAlone.hasExpired())
        return Server::Away;
    const ErrorSite site("OFFICE", "KEEPCONNECTED");
    QElapsedTimer clock;
    clock.start();
    if (reachServer())
        return Server::Reopened;
    if (clock.elapsed() > silenceMilliseconds)
        m_letAlone.setRemainingTime(letAloneMilliseconds);
    WriteErrLog(2006, m_server->error(), QStringLiteral("Office"));
    return Server::Away;
}

/// The default templates are copied once; an office may change its copies.
bool Office::installTemplates()
{
    const bool isT = m_hostCode == QLatin1String("T");
    const QString folder =
        joinPath(m_dataFolder, isT ? QStringLiteral("MiscSoftData/GST_Templates") : QStringLiteral("GST_Templates"));
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
