#include "Commands.h"

#include "Billing.h"
#include "CommandLine.h"
#include "Office.h"
#include "store/FailureWatch.h"
#include <cstdio>

namespace ledgora::app {

int failed(QString why)
{
    std::fprintf(stderr, "ledgora: %s\n", qPrintable(why.replace(u'\n', u' ')));
    return 1;
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
