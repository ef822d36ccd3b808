#include "Billing.h"

#include "Office.h"
#include "components/StockComponents.h"
#include "platform/Registry.h"
#include "store/Dates.h"
#include <QDir>

namespace ledgora::app {

Billing::Billing(Office &office, HostWindow *window)
{
    registerStockComponents(Registry::instance());
    m_gst.AppPath(office.dataFolder());
    m_gst.TmpPath(QDir::tempPath());
    m_gst.CnnObj(&office.connection());
    m_gst.GetRegYr(qint16(financialYearOf(today())));
    m_gst.ObjMdi(window);
    m_open = m_gst.CallBilling(QStringLiteral("ZoRbItWaLkErX"), QStringLiteral("C"), 2);
}

} // namespace ledgora::app
