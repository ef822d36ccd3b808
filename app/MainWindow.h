#pragma once

#include "Billing.h"
#include "platform/HostObject.h"
#include <QMainWindow>
#include <QPointer>

namespace ledgora::app {

class ClientEditor;
class GroupEditor;
class Office;
class ScreenArea;
class StatusLine;

/// The reference host's main window: takes the library's screens as its children and keeps the connection alive
/// between commands.
class MainWindow : public QMainWindow, public HostWindow
{
    Q_OBJECT
public:
    explicit MainWindow(Office &office);

    bool isBillingOpen() const { return m_billing.isOpen(); }
    ClsGST &gst() { return m_billing.gst(); }
    /// Shows the GST home screen.
    void openGst();
    /// Shows the clients of the office.
    void openClients();
    /// Shows the groups of clients, which host "G" has.
    void openGroups();

    /// Says in the status line, for some seconds, what has happened.
    void note(const QString &text);

    void showScreen(QWidget &screen) override;
    void ReloadMenu() override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    void makeMenu();
    void makeWindowMenu();
    void showKeysOfScreen();
    QString placeText() const;
    void keepConnected();
    void giveKeysBack();

    Office &m_office;
    Billing m_billing;
    ScreenArea *m_area;
    StatusLine *m_status;
    QPointer<ClientEditor> m_clients;
    QPointer<GroupEditor> m_groups;
};

} // namespace ledgora::app
