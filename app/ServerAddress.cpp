#include "ServerAddress.h"

#include "Descriptor.h"
#include <QFile>
#include <QUrl>
#include <QUrlQuery>
#include <fcntl.h>
#include <sys/stat.h>

namespace ledgora::app {

QString ServerAddress::text() const
{
    QUrl url;
    url.setScheme(QStringLiteral("mysql"));
    url.setUserName(user);
    url.setHost(host);
    if (port != ServerAddress().port)
        url.setPort(int(port));
    url.setPath(u'/' + database);
    QUrlQuery query;
    if (tlsRequired)
        query.addQueryItem(QStringLiteral("tls"), QStringLiteral("required"));
    if (!caFile.isEmpty())
        query.addQueryItem(QStringLiteral("ca"), caFile);
    url.setQuery(query);
    return url.toString(QUrl::FullyEncoded);
}

QString ServerAddress::place() const
{
    return database + QStringLiteral(" on ") + host;
}

QString readAddress(const QString &text, ServerAddress &address)
{
    const QUrl url(text, QUrl::StrictMode);
    if (!url.isValid() || url.scheme() != QLatin1String("mysql"))
        return QStringLiteral("a server's address reads mysql://user@server/database");
    if (!url.password().isEmpty())
        return QStringLiteral("a password does not belong into the server's address; give a password file");
    address = {.user = url.userName(),
               .host = url.host(),
               .database = url.path().mid(1),
               .port = unsigned(url.port(int(ServerAddress().port))),
               .tlsRequired = false,
               .caFile = {}};
    if (address.user.isEmpty() || address.host.isEmpty() || address.database.isEmpty()
        || address.database.contains(u'/'))
        return QStringLiteral("a server's address names user, server and database: mysql://user@server/database");
    const auto items = QUrlQuery(url).queryItems(QUrl::FullyDecoded);
    for (const auto &[name, value] : items) {
        if (name == QLatin1String("tls") && value == QLatin1String("required"))
            address.tlsRequired = true;
        else if (name == QLatin1String("ca") && !value.isEmpty())
            address.caFile = value;
        else
            return QStringLiteral("behind a server's address only tls=required and ca=FILE are known");
    }
    return {};
}

QByteArray passwordFrom(const QString &file, QString &fault)
{
    constexpr mode_t others = 0077;
    const QByteArray name = QFile::encodeName(file);
    const Descriptor descriptor(::open(name.constData(), O_RDONLY | O_CLOEXEC));
    struct stat status = {};
    QFile content;
    if (!descriptor.isOpen() || ::fstat(descriptor.number(), &status) != 0
        || !content.open(descriptor.number(), QIODevice::ReadOnly)) {
        fault = QStringLiteral("The password file [") + file + QStringLiteral("] can not be read.");
        return {};
    }
    if (status.st_mode & others) {
        fault = QStringLiteral("The password file [") + file
                + QStringLiteral("] can be read by others. It must have the mode 0600.");
        return {};
    }
    fault.clear();
    QByteArray line = content.readLine();
    while (line.endsWith('\n') || line.endsWith('\r'))
        line.chop(1);
    return line;
}

} // namespace ledgora::app
