// bill_clerk SOCKET DATABASE LOCKWAIT FOLDER: a clerk at the bill screen of company 1, a process of its own. Works the
// screen with keys, as told by lines on standard input:
//
//   add PARTY AMOUNT   Add, the party by the beginning of its name, one line of that amount
//   number N           types the bill number over
//   update             Update
//   look               nothing
//
// Answers each with one line for every box that came, "box TEXT" (line breaks as blanks), and one line of what stands
// on the screen then: "edit" or "browse", the bill's id in the list, number, party, particulars and amount of the first
// line, "|" between them. Before each command the connection is looked after, as a host does: "away" tells that there
// is none. Ends with its input.

#include "app/SessionModes.h"
#include "bills/BillLines.h"
#include "bills/frmBillGST.h"
#include "controls/WaitBar.h"
#include "platform/Registry.h"
#include "store/Connection.h"
#include "store/Dates.h"
#include "tests/support/Screens.h"
#include <QApplication>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <iostream>
#include <mysql.h>

namespace ledgora::test {
namespace {

/// The host's side of the connection.
class Host
{
public:
    Host(QByteArray socket, QByteArray database, int lockWait)
        : m_socket(std::move(socket))
        , m_database(std::move(database))
        , m_lockWait(lockWait)
    {
        installWaitBar(connection);
    }
    Host(const Host &) = delete;
    Host &operator=(const Host &) = delete;
    ~Host() { close(); }

    bool keepConnected()
    {
        if (connection.handle() && !connection.isLost() && connection.ping())
            return true;
        close();
        MYSQL *handle = app::newHandle(m_lockWait);
        if (mysql_real_connect(handle, nullptr, "root", nullptr, m_database.constData(), 0, m_socket.constData(),
                               app::connectFlags()))
            connection.setHandle(handle);
        else
            mysql_close(handle);
        return connection.isOpen();
    }

    Connection connection;

private:
    void close()
    {
        if (MYSQL *handle = connection.handle()) {
            connection.setHandle(nullptr);
            mysql_close(handle);
        }
    }
    QByteArray m_socket, m_database;
    int m_lockWait;
};

/// Tells every message box and answers it by its default button.
void watchBoxes(QTimer &timer)
{
    QObject::connect(&timer, &QTimer::timeout, [] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (!box || !box->isVisible())
            return;
        std::cout << "box " << box->text().simplified().toStdString() << std::endl;
        (box->defaultButton() ? box->defaultButton() : box->buttons().constFirst())->click();
    });
    constexpr int lookEveryMs = 5;
    timer.start(lookEveryMs);
}

class Desk
{
public:
    explicit Desk(QWidget &screen) : m_screen(screen), m_keys(&screen) {}

    void obey(const QStringList &words)
    {
        if (words.value(0) == u"add") {
            m_keys.alt('A');
            m_keys.type(words.value(1));
            m_keys.press(Qt::Key_Return, Qt::NoModifier, 6); // party, series, number, date, place, tax type
            m_keys.type("Work");
            m_keys.press(Qt::Key_Tab, Qt::NoModifier, 4);
            m_keys.type(words.value(2));
        } else if (words.value(0) == u"number") {
            m_keys.retype(find<QWidget>("txtbillno"), words.value(1));
        } else if (words.value(0) == u"update") {
            m_keys.alt('U');
        }
    }

    QString state() const
    {
        const auto *list = find<Grid>("vsListB");
        const Cells &lines = find<Grid>("vsB")->cells();
        return QStringList{find<QWidget>("famedit")->isEnabled() ? "edit" : "browse",
                           list->cells().text(list->row(), 0),
                           find<QLineEdit>("txtbillno")->text(),
                           find<QLineEdit>("txtpartynm")->text(),
                           lines.rows() > billFixedRows ? lines.text(billFixedRows, ParticularsColumn) : QString(),
                           lines.rows() > billFixedRows ? lines.text(billFixedRows, AmountColumn) : QString()}
            .join(u'|');
    }

private:
    template<class Control>
    Control *find(const char *name) const
    {
        return m_screen.findChild<Control *>(QLatin1String(name));
    }
    QWidget &m_screen;
    Keys m_keys;
};

void work(Host &host, Desk &desk)
{
    std::cout << desk.state().toStdString() << std::endl;
    for (std::string line; std::getline(std::cin, line);) {
        if (!host.keepConnected())
            std::cout << "away" << std::endl;
        desk.obey(QString::fromStdString(line).split(u' '));
        std::cout << desk.state().toStdString() << std::endl;
    }
}

/// A working period on the database, with company 1 of Delhi chosen.
bool openPeriod(ClsGST &gst, Connection &connection, const QString &folder)
{
    setToday(QDate(2024, 6, 15));
    Registry::instance().add<Reporter>(Reporter::progId, [] { return std::make_unique<NotingReporter>(); });
    gst.AppPath(folder);
    gst.TmpPath(folder);
    gst.CnnObj(&connection);
    gst.GetRegYr(2024);
    gst.ObjMdi(nullptr);
    const bool open = gst.CallBilling("ZoRbItWaLkErX", "C", 2);
    chooseCompany();
    return open;
}

/// What the windowless platform can not do is no news.
void showMessage(QtMsgType, const QMessageLogContext &, const QString &text)
{
    if (!text.startsWith(QLatin1String("This plugin does not support")) && !text.startsWith(u"QStandardPaths"))
        std::cerr << text.toStdString() << std::endl;
}

} // namespace
} // namespace ledgora::test

int main(int argc, char **argv)
{
    using namespace ledgora::test;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(showMessage);
    const QApplication application(argc, argv);
    const QStringList words = QCoreApplication::arguments();
    if (words.size() != 5)
        return 2;
    Host host(words[1].toLocal8Bit(), words[2].toUtf8(), words[3].toInt());
    ledgora::ClsGST gst;
    if (!host.keepConnected() || !openPeriod(gst, host.connection, words[4]))
        return 1;
    QTimer boxes;
    watchBoxes(boxes);
    auto *screen = new ledgora::frmBillGST; // deletes itself when closed
    screen->resize(1280, 720);
    screen->show();
    Desk desk(*screen);
    work(host, desk);
    delete screen;
    return 0;
}
