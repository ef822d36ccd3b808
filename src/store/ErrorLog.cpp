#include "store/ErrorLog.h"

#include "host/WorkingState.h"
#include <QDateTime>
#include <QFile>

namespace ledgora {

namespace {

// The library runs on the host's one user-interface thread.
const ErrorSite *innermost = nullptr;

QString oneField(QString text)
{
    for (QChar &c : text) {
        if (c == u'\t' || c == u'\r' || c == u'\n')
            c = u' ';
    }
    return text;
}

} // namespace

ErrorSite::ErrorSite(const char *object, const char *procedure)
    : m_object(object)
    , m_procedure(procedure)
    , m_outer(innermost)
{
    innermost = this;
}

ErrorSite::~ErrorSite()
{
    innermost = m_outer;
}

void WriteErrLog(qint64 number, const QString &description, const QString &source)
{
    if (number == 0)
        return;
    gErrSite = innermost ? QString::fromLatin1(innermost->m_object) + u'\t' + QLatin1String(innermost->m_procedure)
                         : QStringLiteral("\t");
    QFile log(gLogPath);
    if (gLogPath.isEmpty() || !log.open(QIODevice::WriteOnly | QIODevice::Append))
        return;
    const QStringList fields{QDateTime::currentDateTime().toString(QStringLiteral("dd/MM/yyyy HH:mm:ss")),
                             QString::number(number), oneField(description), oneField(source), gErrSite};
    log.write(fields.join(u'\t').toUtf8() + '\n');
}

} // namespace ledgora
