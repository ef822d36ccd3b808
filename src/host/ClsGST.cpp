#include "host/ClsGST.h"

#include "host/Balance.h"
#include "host/ClsOth.h"
#include "host/WorkingState.h"
#include "masters/frmMainGST.h"
#include "platform/Registry.h"
#include "platform/Reporter.h"
#include "store/Connection.h"
#include "store/ErrorLog.h"
#include "store/Settings.h"

namespace ledgora {

namespace {

constexpr auto accessWordOfHosts = "ZoRbItWaLkErX";

int expectedVersion(const QString &hostCode)
{
    return hostCode == QLatin1String("G") ? 3 : 2;
}

} // namespace

ClsGST::ClsGST() = default;

ClsGST::~ClsGST()
{
    if (m_reporter && gReporter == m_reporter.get()) {
        gReporter = nullptr;
        gHostObj = nullptr;
        gHostCode.clear();
    }
}

void ClsGST::GetRegYr(qint16 year)
{
    gRegYr = year;
}

void ClsGST::AppPath(const QString &folder)
{
    gAppPath = folder;
}

void ClsGST::TmpPath(const QString &folder)
{
    gTmpPath = folder;
}

void ClsGST::CnnObj(Connection *connection)
{
    gCnn = connection;
}

void ClsGST::ObjMdi(HostWindow *window)
{
    gMdi = window;
}

bool ClsGST::CallBilling(const QString &accessWord, const QString &hostCode, qint16 version)
{
    const ErrorSite site("CLSGST", "CALLBILLING");
    gHostCode.clear();
    if (accessWord != QLatin1String(accessWordOfHosts) || version != expectedVersion(hostCode))
        return false;
    if (hostCode != QLatin1String("C"))
        return false;
    gHostCode = hostCode;
    m_hostObject = std::make_unique<ClsOth>(m_ratX, m_ratY, m_ratFS);
    gHostObj = m_hostObject.get();
    gTmplPath = joinPath(gAppPath, QStringLiteral("GST_Templates"));
    gLogPath = joinPath(gAppPath, QStringLiteral("BrindleLogger.log"));
    if (!gCnn) {
        gHostCode.clear();
        return false;
    }
    m_reporter = Registry::instance().create<Reporter>(QLatin1String(Reporter::progId));
    gReporter = m_reporter.get();
    if (!gReporter) {
        WriteErrLog(429, QStringLiteral("No component is registered as ") + QLatin1String(Reporter::progId),
                    QStringLiteral("ClsGST"));
        gHostCode.clear();
    }
    return gReporter != nullptr;
}

void ClsGST::OpenBilling()
{
    const ErrorSite site("CLSGST", "OPENBILLING");
    if (gHostCode.isEmpty())
        return;
    QWidget *home = m_home;
    if (!home || home->isHidden()) // a closed one is about to go
        m_home = home = new frmMainGST;
    if (gMdi)
        return gMdi->showScreen(*home);
    home->show();
    home->raise();
    home->activateWindow();
}

double ClsGST::GetAmt(qint32 firmId, const QString &codeNo)
{
    const ErrorSite site("CLSGST", "GETAMT");
    return gCnn ? balanceOf(*gCnn, firmId, codeNo) : 0;
}

} // namespace ledgora
