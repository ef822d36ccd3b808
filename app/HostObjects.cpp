#include "HostObjects.h"

#include "Office.h"
#include "host/ClsOth.h"
#include "platform/Registry.h"
#include "store/Dates.h"
#include <QDir>

namespace ledgora::app {

namespace {

/// What both base objects have in common; the program's screens are laid out for any display.
template<class Base>
class OfficeHost : public Base
{
public:
    explicit OfficeHost(Office &office) : m_office(office) {}

    float vScreenRatX() const override { return m_screens.vScreenRatX(); }
    float vScreenRatY() const override { return m_screens.vScreenRatY(); }
    float vScreenRatFS() const override { return m_screens.vScreenRatFS(); }
    void Resize_For_Resolution(QWidget &screen) override { m_screens.Resize_For_Resolution(screen); }
    QString vTmpPath() const override { return QDir::tempPath(); }

protected:
    Office &office() const { return m_office; }
    static qint16 currentYear() { return qint16(financialYearOf(today())); }

private:
    Office &m_office;
    ClsOth m_screens{1, 1, 1};
};

class HostG final : public OfficeHost<VeltrixHost>
{
public:
    using OfficeHost::OfficeHost;
    QString docpath() const override { return office().dataFolder(); }
    Connection *dbobj() override { return &office().connection(); }
    qint16 GetRegYr() const override { return currentYear(); }
};

class HostT final : public OfficeHost<DataHost>
{
public:
    using OfficeHost::OfficeHost;
    QString AppPath() const override { return office().dataFolder(); }
    Connection *CnnObj() override { return &office().connection(); }
    qint16 GetRegYr() const override { return qint16(currentYear() + 1); }
};

} // namespace

void registerHostObjects(Registry &registry, Office &office)
{
    registry.add<VeltrixHost>(QLatin1String(VeltrixHost::progId),
                              [&office] { return std::make_unique<HostG>(office); });
    registry.add<DataHost>(QLatin1String(DataHost::progIdOfT), [&office] { return std::make_unique<HostT>(office); });
}

void removeHostObjects(Registry &registry)
{
    registry.remove(QLatin1String(VeltrixHost::progId));
    registry.remove(QLatin1String(DataHost::progIdOfT));
}

} // namespace ledgora::app
