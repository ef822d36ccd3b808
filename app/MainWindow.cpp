#include "MainWindow.h"

#include "ClientEditor.h"
#include "GroupEditor.h"
#include "Office.h"
#include "ServerDialog.h"
#include "care/CareMenu.h"
#include "controls/WaitBar.h"
#include "host/WorkingState.h"
#include <QApplication>
#include <QCloseEvent>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QMessageBox>
#include <QStatusBar>

namespace ledgora::app {

MainWindow::MainWindow(Office &office) : m_office(office), m_billing(office, this), m_area(new QMdiArea(this))
{
    setObjectName(QStringLiteral("mainWindow"));
    setWindowTitle(QStringLiteral("Ledgora"));
    setMinimumSize(1280, 720);
    m_area->setObjectName(QStringLiteral("screens"));
    m_area->setBackground(palette().window());
    m_area->setActivationOrder(QMdiArea::ActivationHistoryOrder); // a closed preview gives way to its bill
    setCentralWidget(m_area);
    makeMenu();
    for (const QMenu *menu : menuBar()->findChildren<QMenu *>())
        connect(menu, &QMenu::aboutToHide, this, &MainWindow::giveKeysBack, Qt::QueuedConnection);
    statusBar()->showMessage(QStringLiteral("Office: ") + office.server().place());
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
    QMenu *window = menuBar()->addMenu(QStringLiteral("&Window"));
    window->addAction(QStringLiteral("&Next Screen"), QKeySequence(Qt::CTRL | Qt::Key_Tab), m_area,
                      &QMdiArea::activateNextSubWindow);
    window->addAction(QStringLiteral("&Tile"), m_area, &QMdiArea::tileSubWindows);
    QMenu *help = menuBar()->addMenu(QStringLiteral("He&lp"));
    help->addAction(QStringLiteral("&About Ledgora"), this, [this] {
        QMessageBox::about(
            this, QStringLiteral("Ledgora"),
            QStringLiteral("Ledgora %1\nBilling for Indian tax practitioners and small accounting offices.\n"
                           "Copyright the Ledgora authors. Licence: GPL, version 3 or later.")
                .arg(QStringLiteral(LEDGORA_VERSION)));
    });
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
    QMdiSubWindow *child = nullptr;
    for (QMdiSubWindow *window : m_area->subWindowList()) {
        if (window->widget() == &screen)
            child = window;
    }
    if (!child) {
        child = m_area->addSubWindow(&screen);
        child->setAttribute(Qt::WA_DeleteOnClose);
        connect(&screen, &QObject::destroyed, child, &QWidget::close); // a screen closes itself; its frame goes with it
    }
    screen.show();
    child->showMaximized();
    m_area->setActiveSubWindow(child);
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
    statusBar()->showMessage(QStringLiteral("Press Ctrl+G for GST billing."));
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
        return;
    case Office::Server::Reopened:
        return statusBar()->showMessage(QStringLiteral("The database server is back."));
    case Office::Server::Away:
        return statusBar()->showMessage(
            QStringLiteral("The database server is away. Ledgora tries again with every key."));
    }
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    m_area->closeAllSubWindows();
    event->setAccepted(m_area->subWindowList().isEmpty());
}

} // namespace ledgora::app
