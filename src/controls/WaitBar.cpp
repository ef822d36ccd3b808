#include "controls/WaitBar.h"

#include "controls/WorkBar.h"
#include "store/Connection.h"
#include <QApplication>
#include <QCloseEvent>
#include <QEventLoop>
#include <QPointer>
#include <QPushButton>
#include <QSocketNotifier>
#include <QTimer>
#include <poll.h>

namespace ledgora {

namespace {

short pollOnce(int socket, short events, int timeoutMs)
{
    pollfd descriptor{socket, events, 0};
    return poll(&descriptor, 1, timeoutMs) > 0 ? descriptor.revents : short(0);
}

/// Stays until the server has answered: a Cancel that the server does not hear at once must not let the clerk's keys
/// through to a screen whose handler still waits.
class Bar : public QProgressDialog
{
public:
    explicit Bar(Connection &connection)
        : QProgressDialog(QStringLiteral("Waiting for the database server ..."), QString(), 0, 0,
                          QApplication::activeWindow())
    {
        setObjectName(QStringLiteral("waitBar"));
        setWindowModality(Qt::ApplicationModal);
        setMinimumDuration(0);
        setAutoReset(false);
        // Enter and Space were meant for the screen; only a click, Alt+C or Esc gives up.
        auto *cancel = new QPushButton(QStringLiteral("&Cancel"));
        cancel->setFocusPolicy(Qt::NoFocus);
        cancel->setAutoDefault(false);
        setCancelButton(cancel);
        disconnect(this, SIGNAL(canceled()), this, SLOT(cancel())); // it would hide the bar
        connect(this, &QProgressDialog::canceled, this, [&connection] { connection.interrupt(); });
    }

protected:
    void closeEvent(QCloseEvent *event) override
    {
        event->ignore();
        Q_EMIT canceled();
    }
};

/// Lets the window paint and the bar take clicks until the socket is ready.
void waitWithBar(Connection &connection, int socket, short events, int timeoutMs)
{
    Bar bar(connection);
    bar.show();
    QEventLoop loop;
    QSocketNotifier readable(socket, QSocketNotifier::Read);
    QSocketNotifier writable(socket, QSocketNotifier::Write);
    readable.setEnabled(events & POLLIN);
    writable.setEnabled(events & POLLOUT);
    QObject::connect(&readable, &QSocketNotifier::activated, &loop, &QEventLoop::quit);
    QObject::connect(&writable, &QSocketNotifier::activated, &loop, &QEventLoop::quit);
    if (timeoutMs >= 0)
        QTimer::singleShot(timeoutMs, &loop, &QEventLoop::quit);
    loop.exec();
}

} // namespace

void installWaitBar(Connection &connection)
{
    connection.setWaitHook([&connection](int socket, short events, int timeoutMs) {
        const bool endsSoon = timeoutMs >= 0 && timeoutMs <= quietMilliseconds;
        const short ready = pollOnce(socket, events, endsSoon ? timeoutMs : quietMilliseconds);
        if (ready || endsSoon)
            return ready;
        const QPointer<QWidget> window = QApplication::activeWindow();
        waitWithBar(connection, socket, events, timeoutMs < 0 ? -1 : timeoutMs - quietMilliseconds);
        giveKeysBack(window);
        return pollOnce(socket, events, 0);
    });
}

} // namespace ledgora
