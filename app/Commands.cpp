#include "Commands.h"

#include "Billing.h"
#include "CommandLine.h"
#include "Office.h"
#include "store/FailureWatch.h"
#include <QDir>
#include <QFile>
#include <cstdio>
#include <sys/stat.h>
#include <unistd.h>

namespace ledgora::app {

int failed(QString why)
{
    std::fprintf(stderr, "ledgora: %s\n", qPrintable(why.replace(u'\n', u' ')));
    return 1;
}

QString linkFault(const QString &path)
{
    struct stat state = {};
    const bool isLink =
        ::lstat(QFile::encodeName(QDir::cleanPath(path)).constData(), &state) == 0 && S_ISLNK(state.st_mode);
    return isLink && state.st_uid != ::geteuid()
               ? QStringLiteral("[") + path + QStringLiteral("] is a link that another user has made.")
               : QString();
}

int inBilling(const CommandLine &line, Folder folder, const std::function<int(Office &, ClsGST &)> &work)
{
    QString fault;
    const auto office = openOffice(line.dataFolder, line.host, line.server, folder, askOnTerminal, fault);
    if (!office)
        return failed(fault);
    const FailureWatch watch(office->connection());
    Billing billing(*office, nullptr);
    if (!billing.isOpen())
        return failed(QStringLiteral("the billing library could not be opened"));
    const int status = work(*office, billing.gst());
    return status == 0 && watch.failed() ? failed(watch.fault()) : status;
}

} // namespace ledgora::app
