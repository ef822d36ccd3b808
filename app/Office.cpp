#include "Office.h"

#include "Aside.h"
#include "OfficeLock.h"
#include "PrivateServer.h"
#include "ServerFolder.h"
#include "care/OfficeFiles.h"
#include "care/Restore.h"
#include "store/ErrorLog.h"
#include "store/Schema.h"
#include "store/Settings.h"
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QSaveFile>
#include <QScopedValueRollback>
#include <mysql.h>
#include <sys/socket.h>

namespace ledgora::app {

namespace {

constexpr int silenceMilliseconds = 2000; ///< an attempt that took longer met silence, not a refusal
constexpr QFile::Permissions ownerOnly = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;
constexpr int letAloneMilliseconds = 10000;
constexpr int makingSeconds = 60; ///< how long another program may take to make the same office

} // namespace

bool Office::exists(const QString &dataFolder)
{
    return ServerFolder(dataFolder).isInitialised();
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
    makePrivate(m_dataFolder); // with a shared server others may have a reason to enter
    m_error = makeWhole();
    return m_error.isEmpty();
}

/// Programs that are started at once do it one after the other: the first makes, the others find it made.
QString Office::makeWhole()
{
    const OfficeLock lock(m_connection, "open", makingSeconds);
    if (!lock.isHeld())
        return QStringLiteral("Another program is still opening this office.");
    QString fault = finishRestore(m_connection, m_dataFolder);
    if (fault.isEmpty())
        fault = schemaFault(m_connection);
    if (fault.isEmpty())
        fault = settleHost(m_connection, m_hostCode);
    if (fault.isEmpty() && !createSchema(m_connection, m_hostCode))
        fault = QStringLiteral("The tables of the office could not be made: ") + m_connection.lastError();
    return fault.isEmpty() ? installTemplates() : fault;
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

/// The default templates are copied once; an office may change its copies. Each comes as a whole: a program that is
/// killed leaves no half of one.
QString Office::installTemplates()
{
    const QString folder = joinPath(m_dataFolder, templateFolder(m_hostCode));
    if (!QDir().mkpath(folder))
        return QStringLiteral("The folder [") + folder + QStringLiteral("] could not be made.");
    const QDir stock(QStringLiteral(":/templates"));
    for (const QString &name : stock.entryList(QDir::Files)) {
        const QString path = joinPath(folder, name);
        if (QFile::exists(path))
            continue;
        QFile from(stock.filePath(name));
        QSaveFile copy(path);
        if (!from.open(QIODevice::ReadOnly) || !copy.open(QIODevice::WriteOnly)
            || !copy.setPermissions(QFile::ReadOwner | QFile::WriteOwner) || copy.write(from.readAll()) != from.size()
            || !copy.commit())
            return QStringLiteral("The template [") + path + QStringLiteral("] could not be written.");
    }
    return {};
}

} // namespace ledgora::app
