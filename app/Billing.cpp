#include "Billing.h"

#include "HostObjects.h"
#include "Office.h"
#include "components/StockComponents.h"
#include "host/WorkingState.h"
#include "platform/Registry.h"
#include "store/Dates.h"
#include <QDir>
#include <QFile>

namespace ledgora::app {

namespace {

/// The error log repeats statements, with what was typed. It is made here, since it takes the rights it is made with.
void makeLogPrivate(const QString &path)
{
    QFile log(path);
    constexpr QFile::Permissions ownerOnly = QFile::ReadOwner | QFile::WriteOwner;
    if (!path.isEmpty() && log.open(QIODevice::WriteOnly | QIODevice::Append, ownerOnly))
        log.setPermissions(ownerOnly);
}

} // namespace

Billing::Billing(Office &office, HostWindow *window)
{
    registerStockComponents(Registry::instance());
    registerHostObjects(Registry::instance(), office);
    // Hosts "G" and "T" tell these through their base objects.
    m_gst.AppPath(office.dataFolder());
    m_gst.TmpPath(QDir::tempPath());
    m_gst.CnnObj(&office.connection());
    m_gst.GetRegYr(qint16(financialYearOf(today())));
    m_gst.ObjMdi(window);
    const qint16 version = office.hostCode() == QLatin1String("G") ? 3 : 2;
    m_open = m_gst.CallBilling(QStringLiteral("ZoRbItWaLkErX"), office.hostCode(), version);
    makeLogPrivate(gLogPath);
}

Billing::~Billing()
{
    removeHostObjects(Registry::instance());
}

} // namespace ledgora::app
