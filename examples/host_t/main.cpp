// A small host of kind "T": a window with tabs, a base object, a client table of its own, on a server that it reaches
// through a socket.
//
//     sample_host SOCKET DATABASE FOLDER [--once]
//
// FOLDER holds settings, templates and the error log. With --once it says what it shows and ends.

#include <QApplication>
#include <QDir>
#include <QMainWindow>
#include <QTabWidget>
#include <components/StockComponents.h>
#include <cstdio>
#include <host/ClsGST.h>
#include <host/ClsOth.h>
#include <memory>
#include <mysql.h>
#include <platform/Registry.h>
#include <store/Connection.h>
#include <store/Schema.h>

namespace {

/// What the host keeps: its folder and its one connection.
struct Office
{
    QString folder;
    std::unique_ptr<MYSQL, decltype(&mysql_close)> handle{nullptr, &mysql_close};
    ledgora::Connection connection{};
};

/// A connection as the library's statements want it: UTF-8, back-slash escapes, affected rows counted as found.
MYSQL *connectTo(const char *socket)
{
    MYSQL *handle = mysql_init(nullptr);
    mysql_options(handle, MYSQL_SET_CHARSET_NAME, "utf8mb4");
    mysql_options(handle, MYSQL_INIT_COMMAND, "SET SESSION sql_mode='NO_ENGINE_SUBSTITUTION'");
    if (mysql_real_connect(handle, nullptr, "root", nullptr, nullptr, 0, socket, CLIENT_FOUND_ROWS))
        return handle;
    std::fprintf(stderr, "sample_host: %s\n", mysql_error(handle));
    mysql_close(handle);
    return nullptr;
}

bool open(Office &office, const char *socket, const QString &database)
{
    office.handle.reset(connectTo(socket));
    office.connection.setHandle(office.handle.get());
    return office.handle && office.connection.Execute("Create Database If Not Exists " + database)
           && office.connection.Execute("Use " + database) && ledgora::createSchema(office.connection, "T");
}

/// The base object that the library makes by its ProgID and asks.
class Host : public ledgora::DataHost
{
public:
    explicit Host(Office &office) : m_office(office) {}

    float vScreenRatX() const override { return m_screens.vScreenRatX(); }
    float vScreenRatY() const override { return m_screens.vScreenRatY(); }
    float vScreenRatFS() const override { return m_screens.vScreenRatFS(); }
    void Resize_For_Resolution(QWidget &screen) override { m_screens.Resize_For_Resolution(screen); }

    QString AppPath() const override { return m_office.folder; }
    QString vTmpPath() const override { return QDir::tempPath(); }
    ledgora::Connection *CnnObj() override { return &m_office.connection; }
    qint16 GetRegYr() const override { return 2025; } // one ahead: 2024-25 is the last year offered

private:
    Office &m_office;
    ledgora::ClsOth m_screens{1, 1, 1};
};

/// Takes each screen as a tab.
class Window : public QMainWindow, public ledgora::HostWindow
{
public:
    Window()
    {
        setCentralWidget(&m_tabs);
        resize(1280, 800);
    }
    ~Window() override { takeCentralWidget(); }

    void showScreen(QWidget &screen) override
    {
        if (m_tabs.indexOf(&screen) < 0)
            m_tabs.addTab(&screen, screen.windowTitle());
        m_tabs.setCurrentWidget(&screen);
    }
    void ReloadMenu() override {}

    QString shown() const { return m_tabs.currentWidget() ? m_tabs.currentWidget()->objectName() : QString(); }

private:
    QTabWidget m_tabs;
};

} // namespace

int main(int argc, char *argv[])
{
    if (argc < 4) {
        std::fputs("usage: sample_host SOCKET DATABASE FOLDER [--once]\n", stderr);
        return 2;
    }
    const QApplication application(argc, argv);
    Office office{.folder = QString::fromLocal8Bit(argv[3])};
    if (!open(office, argv[1], QString::fromLocal8Bit(argv[2])))
        return 1;

    ledgora::Registry &registry = ledgora::Registry::instance();
    ledgora::registerStockComponents(registry);
    registry.add<ledgora::DataHost>(ledgora::DataHost::progIdOfT, [&office] { return std::make_unique<Host>(office); });

    Window window;
    ledgora::ClsGST billing;
    billing.ObjMdi(&window);
    if (!billing.CallBilling("ZoRbItWaLkErX", "T", 2)) {
        std::fputs("sample_host: the working period could not be opened\n", stderr);
        return 1;
    }
    window.show();
    billing.OpenBilling();
    if (argc == 4)
        return QApplication::exec();
    std::printf("%s\n", qPrintable(window.shown()));
    std::printf("%g\n", billing.GetAmt(1, "T1"));
    return 0;
}
