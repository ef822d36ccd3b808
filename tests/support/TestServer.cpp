// testserver --data DIR: a private database server for a run of the tests. Prints its socket as one line and serves
// until its standard input ends or it gets SIGTERM or SIGINT.

#include "app/PrivateServer.h"
#include <QCoreApplication>
#include <QTextStream>
#include <array>
#include <csignal>
#include <poll.h>
#include <sys/signalfd.h>
#include <unistd.h>

namespace {

/// Blocked before any thread starts, so that they come through the descriptor alone.
int endSignals()
{
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGTERM);
    sigaddset(&signals, SIGINT);
    sigaddset(&signals, SIGHUP);
    sigprocmask(SIG_BLOCK, &signals, nullptr); // NOLINT(concurrency-mt-unsafe)
    return ::signalfd(-1, &signals, SFD_CLOEXEC);
}

void waitForTheEnd(int signalDescriptor)
{
    std::array<pollfd, 2> sources{{{STDIN_FILENO, POLLIN, 0}, {signalDescriptor, POLLIN, 0}}};
    std::array<char, 256> ignored{};
    while (::poll(sources.data(), sources.size(), -1) >= 0) {
        if (sources[1].revents != 0)
            return;
        if (sources[0].revents != 0 && ::read(STDIN_FILENO, ignored.data(), ignored.size()) <= 0)
            return;
    }
}

} // namespace

int main(int argc, char **argv)
{
    const int signalDescriptor = endSignals();
    const QCoreApplication application(argc, argv);
    const QStringList words = QCoreApplication::arguments();
    QTextStream errors(stderr);
    if (words.size() != 3 || words[1] != QLatin1String("--data")) {
        errors << "usage: testserver --data DIR\n";
        return 2;
    }
    ledgora::app::PrivateServer server({.dataFolder = words[2], .lockWaitSeconds = 1});
    if (!server.start()) {
        errors << server.error() << '\n';
        return 1;
    }
    QTextStream(stdout) << server.socketPath() << '\n';
    waitForTheEnd(signalDescriptor);
    return 0;
}
