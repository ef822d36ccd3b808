#include "host/LibraryExports.h"

#include "host/ClsGST.h"
#include "host/LiveObjects.h"
#include "store/Settings.h"
#include <QDir>
#include <QFile>
#include <QSettings>
#include <QStandardPaths>
#include <atomic>
#include <dlfcn.h>

namespace ledgora {

namespace {

enum Answer { Failed = -1, Yes = 0, No = 1 };

std::atomic<int> liveObjects;

struct PublicClass
{
    const char *name;
    LedgoraFactory factory;
};

template<class Object>
constexpr LedgoraFactory factoryOf()
{
    // The bare pointer crosses the boundary; its owner is the host.
    return {[]() -> void * { return std::make_unique<Object>().release(); },
            [](void *object) { const std::unique_ptr<Object> dying(static_cast<Object *>(object)); }};
}

constexpr PublicClass publicClasses[] = {{"PrjLedgora.ClsGST", factoryOf<ClsGST>()}};

/// The file that the library was loaded from.
QString libraryFile()
{
    Dl_info found{};
    if (::dladdr(reinterpret_cast<const void *>(&DllRegisterServer), &found) == 0)
        return {};
    return QFileInfo(QFile::decodeName(found.dli_fname)).absoluteFilePath();
}

QString registryFile()
{
    return joinPath(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation),
                    QStringLiteral("ledgora/components.ini"));
}

} // namespace

LiveObject::LiveObject()
{
    ++liveObjects;
}

LiveObject::~LiveObject()
{
    --liveObjects;
}

int LiveObject::count()
{
    return liveObjects;
}

} // namespace ledgora

using namespace ledgora;

int DllCanUnloadNow()
{
    return LiveObject::count() == 0 ? Yes : No;
}

int DllGetClassObject(const char *className, const LedgoraFactory **factory)
{
    if (!className || !factory)
        return Failed;
    *factory = nullptr;
    for (const PublicClass &each : publicClasses) {
        if (qstrcmp(each.name, className) == 0)
            *factory = &each.factory;
    }
    return *factory ? Yes : Failed;
}

int DllRegisterServer()
{
    const QString library = libraryFile();
    const QString path = registryFile();
    if (library.isEmpty() || !QDir().mkpath(QFileInfo(path).path()))
        return Failed;
    QSettings registry(path, QSettings::IniFormat);
    for (const PublicClass &each : publicClasses)
        registry.setValue(QLatin1String(each.name) + QStringLiteral("/Library"), library);
    registry.sync();
    return registry.status() == QSettings::NoError ? Yes : Failed;
}

int DllUnregisterServer()
{
    const QString path = registryFile();
    if (!QFile::exists(path))
        return Yes;
    QSettings registry(path, QSettings::IniFormat);
    for (const PublicClass &each : publicClasses)
        registry.remove(QLatin1String(each.name));
    registry.sync();
    return registry.status() == QSettings::NoError ? Yes : Failed;
}
