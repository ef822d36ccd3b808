#include "controls/WaitBar.h"

#include "store/Connection.h"
#include <QApplication>
#include <QEventLoop>
#include <QProgressDialog>
#include <QSocketNotifier>
#include <QTimer>
#include <memory>
#include <poll.h>

namespace ledgora {

namespace {

constexpr int quietMilliseconds = 300;

short pollOnce(int socket, short events, int timeoutMs)
{
    pollfd descriptor{socket, events, 0};
    return poll(&descriptor, 1, timeoutMs) > 0 ? descriptor.revents : short(0);
}

std::unique_ptr<QProgressDialog> makeBar(Connection &connection)
{
    auto bar = std::make_unique<QProgressDialog>(QStringLiteral("Waiting for the database server ..."),
                                                 QStringLiteral("Cancel"), 0, 0, QApplication::activeWindow());
    bar->setObjectName(QStringLiteral("waitBar"));
    bar->setWindowModality(Qt::ApplicationModal);
    bar->setMinimumDuration(0);
    bar->setAutoReset(false);
    QObject::connect(bar.get(), &QProgressDialog::canceled, bar.get(), [&connection] { connection.interrupt(); });
    return bar;
}

/// Lets the window paint and the bar take clicks until the socket is ready.
short waitWithBar(Connection &connection, int socket, short events, int timeoutMs)
{
    const auto bar = makeBar(connection);
    bar->show();
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
    return pollOnce(socket, events, 0);
}

} // namespace

void installWaitBar(Connection &connection)
{
    connection.setWaitHook([&connection](int socket, short events, int timeoutMs) {
        const bool endsSoon = timeoutMs >= 0 && timeoutMs <= quietMilliseconds;
        const short ready = pollOnce(socket, events, endsSoon ? timeoutMs : quietMilliseconds);
        if (ready || endsSoon)
            return ready;
        return waitWithBar(connection, socket, events, timeoutMs < 0 ? -1 : timeoutMs - quietMilliseconds);
    });
}

} // namespace ledgora
