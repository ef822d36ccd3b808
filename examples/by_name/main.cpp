// Uses the library by name alone: registers it, finds it by the name of a class, makes and destroys an object, takes
// the notes back. Prints each answer.
//
//     by_name LIBRARY

#include <QCoreApplication>
#include <QLibrary>
#include <QSettings>
#include <QStandardPaths>
#include <cstdio>
#include <host/LibraryExports.h>

namespace {

template<class Function>
Function *find(QLibrary &library, const char *name)
{
    return reinterpret_cast<Function *>(library.resolve(name));
}

QString libraryOf(const QString &className)
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    return QSettings(folder + "/ledgora/components.ini", QSettings::IniFormat).value(className + "/Library").toString();
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    QLibrary given(QString::fromLocal8Bit(argc > 1 ? argv[1] : ""));
    const auto enter = find<decltype(DllRegisterServer)>(given, "DllRegisterServer");
    if (!enter) {
        std::fprintf(stderr, "by_name: %s\n", qPrintable(given.errorString()));
        return 1;
    }
    const char *className = "PrjLedgora.ClsGST";
    std::printf("register %d\n", enter());
    QLibrary library(libraryOf(className));
    const auto getClass = find<decltype(DllGetClassObject)>(library, "DllGetClassObject");
    const auto mayUnload = find<decltype(DllCanUnloadNow)>(library, "DllCanUnloadNow");
    const auto leave = find<decltype(DllUnregisterServer)>(library, "DllUnregisterServer");
    if (!getClass || !mayUnload || !leave) {
        std::fprintf(stderr, "by_name: %s\n", qPrintable(library.errorString()));
        return 1;
    }
    const LedgoraFactory *factory = nullptr;
    std::printf("unknown class %d\n", getClass("PrjLedgora.Nothing", &factory));
    std::printf("class %d\n", getClass(className, &factory));
    void *object = factory->create();
    std::printf("unload while it lives %d\n", mayUnload());
    factory->destroy(object);
    std::printf("unload after %d\n", mayUnload());
    std::printf("unregister %d\n", leave());
    std::printf("left \"%s\"\n", qPrintable(libraryOf(className)));
    return 0;
}
