#include "host/HostAnswers.h"

#include "platform/Registry.h"
#include "store/ErrorLog.h"
#include <QMessageBox>

namespace ledgora {

namespace {

constexpr int noSuchComponent = 429;

} // namespace

void logMissingComponent(const QString &progId)
{
    WriteErrLog(noSuchComponent, "No component is registered as " + progId, QStringLiteral("Registry"));
}

HostAnswers askVeltrixHost()
{
    const QString progId = QLatin1String(VeltrixHost::progId);
    auto host = Registry::instance().create<VeltrixHost>(progId);
    if (!host) {
        logMissingComponent(progId);
        return {};
    }
    if (!host->CheckDllsVersion(true))
        QMessageBox::critical(
            nullptr, {},
            QStringLiteral("File [VeltrixBase.dll] is not compatible. Please update the latest software properly."));
    HostAnswers answers{nullptr, host->docpath(), host->vTmpPath(), host->dbobj(), host->GetRegYr()};
    answers.object = std::move(host);
    return answers;
}

HostAnswers askDataHost(const QString &progId)
{
    auto host = Registry::instance().create<DataHost>(progId);
    if (!host) {
        logMissingComponent(progId);
        return {};
    }
    HostAnswers answers{nullptr, host->AppPath(), host->vTmpPath(), host->CnnObj(), host->GetRegYr()};
    answers.object = std::move(host);
    return answers;
}

} // namespace ledgora
