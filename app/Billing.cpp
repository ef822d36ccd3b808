#include "Billing.h"

#include "HostObjects.h"
#include "Office.h"
#include "components/StockComponents.h"
#include "platform/Registry.h"
#include "store/Dates.h"
#include <QDir>

namespace ledgora::app {

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
}

Billing::~Billing()
{
    removeHostObjects(Registry::instance());
}

} // namespace ledgora::app
