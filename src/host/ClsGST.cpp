#include "host/ClsGST.h"

#include "controls/CompanyScreen.h"
#include "host/Balance.h"
#include "host/ClsOth.h"
#include "host/HostAnswers.h"
#include "host/WorkingState.h"
#include "masters/frmMainGST.h"
#include "platform/Registry.h"
#include "platform/Reporter.h"
#include "store/Connection.h"
#include "store/ErrorLog.h"
#include "store/Settings.h"
#include <algorithm>

namespace ledgora {

namespace {

constexpr auto accessWordOfHosts = "ZoRbItWaLkErX";

/// How a working period opens on a kind of host.
struct HostKind
{
    const char *code;
    qint16 version; ///< of the interface that the host was made for
    const char *templates, *log;
};
constexpr HostKind hostKinds[] = {
    {"G", 3, "GST_Templates", "VeltrixLog.log"},
    {"T", 2, "MiscSoftData/GST_Templates", "NestrelLogger.log"},
    {"C", 2, "GST_Templates", "BrindleLogger.log"},
};

const HostKind *hostKind(const QString &code)
{
    const auto *found =
        std::ranges::find_if(hostKinds, [&](const HostKind &kind) { return code == QLatin1String(kind.code); });
    return found == std::end(hostKinds) ? nullptr : found;
}

} // namespace

ClsGST::ClsGST() = default;

ClsGST::~ClsGST()
{
    if (m_home)
        m_home->dismiss();
    if (m_reporter && gReporter == m_reporter.get()) {
        CompanyScreen::dismissAll();
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
    const HostKind *kind = hostKind(hostCode);
    if (accessWord != QLatin1String(accessWordOfHosts) || !kind || version != kind->version)
        return false;
    takeHost(hostCode);
    gTmplPath = joinPath(gAppPath, QLatin1String(kind->templates));
    gLogPath = joinPath(gAppPath, QLatin1String(kind->log));
    if (!gHostObj || !gCnn)
        return false;
    m_reporter = Registry::instance().create<Reporter>(QLatin1String(Reporter::progId));
    gReporter = m_reporter.get();
    if (!gReporter) {
        logMissingComponent(QLatin1String(Reporter::progId));
        return false;
    }
    gHostCode = hostCode;
    return true;
}

/// The base object of the host, and what it has set or answers.
void ClsGST::takeHost(const QString &hostCode)
{
    if (hostCode == QLatin1String("C")) {
        m_hostObject = std::make_unique<ClsOth>(m_ratX, m_ratY, m_ratFS);
        gHostObj = m_hostObject.get();
        return;
    }
    const bool isG = hostCode == QLatin1String("G");
    HostAnswers answers = isG ? askVeltrixHost() : askDataHost(QLatin1String(DataHost::progIdOfT));
    m_hostObject = std::move(answers.object);
    gHostObj = m_hostObject.get();
    if (!gHostObj)
        return;
    gAppPath = answers.appPath;
    gTmpPath = answers.tmpPath;
    gCnn = answers.connection;
    // The year of host "T" is one ahead of the financial year.
    gRegYr = qint16(isG ? answers.year : answers.year - 1);
}

void ClsGST::OpenBilling()
{
    const ErrorSite site("CLSGST", "OPENBILLING");
    if (gHostCode.isEmpty())
        return;
    if (!m_home || m_home->isClosed()) // a closed one is about to go
        m_home = new frmMainGST;
    m_home->present();
}

double ClsGST::GetAmt(qint32 firmId, const QString &codeNo)
{
    const ErrorSite site("CLSGST", "GETAMT");
    return gCnn ? balanceOf(*gCnn, firmId, codeNo) : 0;
}

} // namespace ledgora
