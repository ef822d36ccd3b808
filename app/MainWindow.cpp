#include "MainWindow.h"

#include "ClientEditor.h"
#include "GroupEditor.h"
#include "Office.h"
#include "ScreenArea.h"
#include "ServerDialog.h"
#include "StatusLine.h"
#include "care/CareMenu.h"
#include "controls/WaitBar.h"
#include "host/WorkingState.h"
#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QMessageBox>
#include <QScreen>
#include <QStatusBar>

namespace ledgora::app {

namespace {

constexpr QSize smallestWindow(1280, 720); // what every screen fits into at 96 dpi
constexpr QSize roomForFrame(16, 40);      // that a window manager puts around it

} // namespace

MainWindow::MainWindow(Office &office)
    : m_office(office)
    , m_billing(office, this)
    , m_area(new ScreenArea(this))
    , m_status(new StatusLine(this))
{
    setObjectName(QStringLiteral("mainWindow"));
    setWindowTitle(QStringLiteral("Ledgora"));
    setMinimumSize(smallestWindow.boundedTo(screen()->availableSize() - roomForFrame));
    setCentralWidget(m_area);
    makeMenu();
    for (const QMenu *menu : menuBar()->findChildren<QMenu *>())
        connect(menu, &QMenu::aboutToHide, this, &MainWindow::giveKeysBack, Qt::QueuedConnection);
    statusBar()->addWidget(m_status, 1);
    m_status->setStanding(placeText());
    installWaitBar(office.connection());
    qApp->installEventFilter(this);
}

void MainWindow::makeMenu()
{
    QMenu *billing = menuBar()->addMenu(QStringLiteral("Billin&g"));
    billing->addAction(QStringLiteral("&GST Billing"), QKeySequence(Qt::CTRL | Qt::Key_G), this, &MainWindow::openGst)
        ->setObjectName(QStringLiteral("actGstBilling"));
    billing->addSeparator();
    billing
        ->addAction(QStringLiteral("&Database Server ..."), this,
                    [this] { ServerDialog(m_office.dataFolder(), this).exec(); })
        ->setObjectName(QStringLiteral("actServer"));
    billing->addAction(QStringLiteral("&Quit"), QKeySequence(Qt::CTRL | Qt::Key_Q), this, &QWidget::close);
    // The access letter is one that no screen has on a command.
    QMenu *clients = menuBar()->addMenu(QStringLiteral("Clie&nts"));
    clients
        ->addAction(QStringLiteral("&Clients of the Office"), QKeySequence(Qt::CTRL | Qt::Key_L), this,
                    &MainWindow::openClients)
        ->setObjectName(QStringLiteral("actClients"));
    if (m_office.hostCode() == QLatin1String("G"))
        clients->addAction(QStringLiteral("&Groups of Clients"), this, &MainWindow::openGroups)
            ->setObjectName(QStringLiteral("actGroups"));
    addCareMenu(
        *menuBar(), *this, m_office,
        [this] {
            m_area->closeAllSubWindows();
            return m_area->subWindowList().isEmpty();
        },
        [this] {
            CompanyState().apply(); // the chosen company may not be there any more
            ReloadMenu();
        });
    makeWindowMenu();
    QMenu *help = menuBar()->addMenu(QStringLiteral("He&lp"));
    // Not a shortcut of the menu: each screen takes the key itself, boxes and previews too.
    help->addAction(QStringLiteral("&Keys of this Screen\tF1"), this, &MainWindow::showKeysOfScreen)
        ->setObjectName(QStringLiteral("actKeys"));
    help->addAction(QStringLiteral("&About Ledgora"), this, [this] {
        QMessageBox::about(
            this, QStringLiteral("Ledgora"),
            QStringLiteral("Ledgora %1\nBilling for Indian tax practitioners and small accounting offices.\n"
                           "Copyright the Ledgora authors. Licence: GPL, version 3 or later.")
                .arg(QStringLiteral(LEDGORA_VERSION)));
    });
}

void MainWindow::makeWindowMenu()
{
    QMenu *window = menuBar()->addMenu(QStringLiteral("&Window"));
    window->addAction(QStringLiteral("&Next Screen"), QKeySequence(Qt::CTRL | Qt::Key_Tab), m_area,
                      &ScreenArea::showNext);
    window->addAction(QStringLiteral("&Tile"), m_area, &QMdiArea::tileSubWindows);
    window->addSeparator();
    const qsizetype own = window->actions().size();
    connect(window, &QMenu::aboutToShow, this, [this, window, own] {
        for (QAction *screen : window->actions().mid(own))
            delete screen;
        m_area->listScreens(*window);
    });
}

void MainWindow::showKeysOfScreen()
{
    if (QWidget *screen = m_area->front())
        QApplication::postEvent(screen, new QKeyEvent(QEvent::KeyPress, Qt::Key_F1, Qt::NoModifier));
    else
        QMessageBox::information(this, QStringLiteral("Keys"),
                                 QStringLiteral("Ctrl+G opens GST billing, Ctrl+L the clients of the office, Ctrl+Q "
                                                "ends the program. F1 shows the keys of each screen."));
}

QString MainWindow::placeText() const
{
    return QStringLiteral("Office: ") + m_office.server().place();
}

void MainWindow::note(const QString &text)
{
    m_status->note(text);
}

void MainWindow::openGst()
{
    m_billing.gst().OpenBilling();
}

void MainWindow::openClients()
{
    if (!m_billing.isOpen())
        return;
    if (!m_clients)
        m_clients = new ClientEditor;
    showScreen(*m_clients);
}

void MainWindow::openGroups()
{
    if (!m_billing.isOpen())
        return;
    if (!m_groups)
        m_groups = new GroupEditor;
    showScreen(*m_groups);
}

void MainWindow::showScreen(QWidget &screen)
{
    m_area->showScreen(screen);
}

/// After a menu the keys are where they were; by itself the menu bar keeps them, and knows no longer whose they were.
void MainWindow::giveKeysBack()
{
    const QMdiSubWindow *screen = m_area->activeSubWindow();
    QWidget *field = screen ? screen->focusWidget() : nullptr;
    if (field && !QApplication::activePopupWidget() && !QApplication::activeModalWidget())
        field->setFocus(Qt::MenuBarFocusReason);
}

void MainWindow::ReloadMenu()
{
    m_status->clearNote(); // of a billing that has closed
}

/// Looks after the connection before a key or click can start a command, so never in the middle of a save.
bool MainWindow::eventFilter(QObject *watched, QEvent *event)
{
    if (watched->isWindowType() && (event->type() == QEvent::KeyPress || event->type() == QEvent::MouseButtonPress))
        keepConnected();
    return QMainWindow::eventFilter(watched, event);
}

void MainWindow::keepConnected()
{
    switch (m_office.keepConnected()) {
    case Office::Server::There:
        return m_status->setStanding(placeText());
    case Office::Server::Reopened:
        m_status->setStanding(placeText());
        return m_status->note(QStringLiteral("The database server is back."));
    case Office::Server::Away:
        m_status->setStanding(QStringLiteral("The database server is away. Ledgora tries again with every key."));
        return m_status->clearNote();
    }
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    m_area->closeAllSubWindows();
    event->setAccepted(m_area->subWindowList().isEmpty());
}

} // namespace ledgora::app
