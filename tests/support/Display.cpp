#include "Display.h"

#include <QByteArray>
#include <array>
#include <csignal>
#include <fcntl.h>
#include <stdexcept>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace ledgora::test {

namespace {

constexpr int numberDescriptor = 3; // on which the server tells its number

/// Starts a program that ends with this process. `output` becomes its descriptor 3 when not negative.
template<size_t Count>
pid_t start(std::array<const char *, Count> words, int output = -1)
{
    const pid_t parent = ::getpid();
    const pid_t child = ::fork();
    if (child != 0)
        return child;
    ::prctl(PR_SET_PDEATHSIG, SIGTERM);
    if (::getppid() != parent)
        ::_exit(1);
    if (output >= 0)
        ::dup2(output, numberDescriptor);
    const int nowhere = ::open("/dev/null", O_RDWR); // NOLINT(cppcoreguidelines-pro-type-vararg)
    for (const int standard : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        ::dup2(nowhere, standard);
    ::execvp(words.front(), const_cast<char *const *>(words.data()));
    ::_exit(127);
}

void end(pid_t process)
{
    if (process <= 0)
        return;
    ::kill(process, SIGTERM);
    ::waitpid(process, nullptr, 0);
}

/// The number that the server writes once it takes connections; nothing when it ended instead.
QByteArray readNumber(int descriptor)
{
    QByteArray number;
    std::array<char, 16> part{};
    while (!number.endsWith('\n')) {
        const auto read = ::read(descriptor, part.data(), part.size());
        if (read <= 0)
            return {};
        number.append(part.data(), read);
    }
    return number.trimmed();
}

} // namespace

Display::Display()
{
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0)
        throw std::runtime_error("no pipe");
    // No repetition of keys: a busy machine would let go of them too late.
    m_server = start(std::array{"Xvfb", "-displayfd", "3", "-screen", "0", "1600x900x24", "-nolisten", "tcp",
                                "-noreset", "-r", static_cast<const char *>(nullptr)},
                     ends[1]);
    ::close(ends[1]);
    QByteArray number = readNumber(ends[0]);
    ::close(ends[0]);
    if (number.isEmpty()) {
        end(m_server);
        throw std::runtime_error("no display: is xvfb installed?");
    }
    qputenv("DISPLAY", number.prepend(':'));
    // The settings of the package, not those of whoever runs the tests.
    m_windowManager = start(std::array{"openbox", "--sm-disable", "--config-file", "/etc/xdg/openbox/rc.xml",
                                       static_cast<const char *>(nullptr)});
}

Display::~Display()
{
    end(m_windowManager);
    end(m_server);
}

} // namespace ledgora::test
