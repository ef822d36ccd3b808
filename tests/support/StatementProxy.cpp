#include "StatementProxy.h"

#include <QFile>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <poll.h>
#include <stdexcept>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <vector>

namespace ledgora::test {

namespace {

// A packet is three bytes of length, one of its place in the exchange, and the content. A command begins an exchange.
constexpr qsizetype headSize = 4;
constexpr char queryCommand = 3;

sockaddr_un addressOf(const QString &path)
{
    const QByteArray name = QFile::encodeName(path);
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    if (size_t(name.size()) >= sizeof address.sun_path)
        throw std::runtime_error("the name of the socket is too long");
    std::memcpy(address.sun_path, name.constData(), size_t(name.size()));
    return address;
}

app::Descriptor newSocket()
{
    return app::Descriptor(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
}

app::Descriptor listenAt(const QString &path)
{
    QFile::remove(path);
    app::Descriptor socket = newSocket();
    const sockaddr_un address = addressOf(path);
    if (!socket.isOpen() || ::bind(socket.number(), reinterpret_cast<const sockaddr *>(&address), sizeof address) != 0
        || ::listen(socket.number(), SOMAXCONN) != 0)
        throw std::runtime_error("no socket of a statement proxy");
    return socket;
}

bool sendWhole(int socket, const QByteArray &bytes)
{
    for (qsizetype sent = 0; sent < bytes.size();) {
        const ssize_t part = ::send(socket, bytes.constData() + sent, size_t(bytes.size() - sent), MSG_NOSIGNAL);
        if (part < 0 && errno != EINTR)
            return false;
        sent += part > 0 ? part : 0;
    }
    return true;
}

/// What has come; nothing when the other side has ended.
QByteArray receive(int socket)
{
    std::array<char, 65536> bytes; // NOLINT(cppcoreguidelines-pro-type-member-init): filled by recv
    const ssize_t size = ::recv(socket, bytes.data(), bytes.size(), 0);
    return size > 0 ? QByteArray(bytes.data(), size) : QByteArray();
}

/// The first packet of the bytes, empty while it has not come whole.
QByteArray firstPacket(const QByteArray &bytes)
{
    if (bytes.size() < headSize)
        return {};
    const auto byte = [&](int i) { return qsizetype(static_cast<unsigned char>(bytes[i])); };
    const qsizetype size = headSize + byte(0) + (byte(1) << 8) + (byte(2) << 16);
    return bytes.size() < size ? QByteArray() : bytes.first(size);
}

void killOwner(int socket)
{
    ucred owner = {};
    socklen_t size = sizeof owner;
    if (::getsockopt(socket, SOL_SOCKET, SO_PEERCRED, &owner, &size) == 0 && owner.pid > 1)
        ::kill(owner.pid, SIGKILL);
}

} // namespace

StatementProxy::StatementProxy(QString address, QString server)
    : m_address(std::move(address))
    , m_server(std::move(server))
    , m_listener(listenAt(m_address))
    , m_wake(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK))
    , m_thread([this](const std::stop_token &end) { serve(end); })
{
}

StatementProxy::~StatementProxy()
{
    m_thread.request_stop();
    ::eventfd_write(m_wake.number(), 1);
    m_thread.join();
    QFile::remove(m_address);
}

void StatementProxy::stopAt(Stop stop, const QByteArray &beginning, int nth)
{
    const std::lock_guard guard(m_mutex);
    m_armed = Armed{stop, beginning, nth};
}

bool StatementProxy::waitForStop(std::chrono::milliseconds limit)
{
    std::unique_lock lock(m_mutex);
    return m_met.wait_for(lock, limit, [this] { return !m_armed; });
}

void StatementProxy::release()
{
    ::eventfd_write(m_wake.number(), 1);
}

void StatementProxy::serve(const std::stop_token &end)
{
    while (!end.stop_requested()) {
        std::vector<pollfd> sources{{m_listener.number(), POLLIN, 0}, {m_wake.number(), POLLIN, 0}};
        for (const Pair &pair : m_pairs) {
            // A negative number is passed over: what is held waits in the socket.
            sources.push_back({pair.holdsClient ? -1 : pair.client.number(), POLLIN, 0});
            sources.push_back({pair.holdsServer ? -1 : pair.server.number(), POLLIN, 0});
        }
        if (::poll(sources.data(), sources.size(), -1) < 0)
            continue;
        auto source = sources.cbegin() + 2;
        for (Pair &pair : m_pairs) {
            if ((source++)->revents != 0)
                fromClient(pair);
            if ((source++)->revents != 0) {
                const QByteArray answer = receive(pair.server.number());
                pair.ended = pair.ended || answer.isEmpty() || !sendWhole(pair.client.number(), answer);
            }
        }
        if (sources[1].revents != 0)
            letGo();
        m_pairs.remove_if([](const Pair &pair) { return pair.ended; });
        if (sources[0].revents != 0)
            accept();
    }
}

/// What was held goes on.
void StatementProxy::letGo()
{
    eventfd_t count = 0;
    ::eventfd_read(m_wake.number(), &count);
    for (Pair &pair : m_pairs) {
        pair.holdsServer = false;
        if (std::exchange(pair.holdsClient, false))
            passOn(pair, firstPacket(pair.typed));
    }
}

void StatementProxy::accept()
{
    Pair &pair = m_pairs.emplace_back();
    pair.client = app::Descriptor(::accept4(m_listener.number(), nullptr, nullptr, SOCK_CLOEXEC));
    pair.server = newSocket();
    const sockaddr_un address = addressOf(m_server);
    if (::connect(pair.server.number(), reinterpret_cast<const sockaddr *>(&address), sizeof address) != 0)
        m_pairs.pop_back(); // the program sees that the server is away
}

void StatementProxy::fromClient(Pair &pair)
{
    const QByteArray bytes = receive(pair.client.number());
    pair.ended = bytes.isEmpty();
    pair.typed += bytes;
    for (QByteArray packet = firstPacket(pair.typed); !packet.isEmpty() && !pair.ended && !pair.holdsClient;
         packet = firstPacket(pair.typed)) {
        const std::optional<Stop> stop = meets(packet);
        if (stop == Stop::KillClient)
            killOwner(pair.client.number());
        pair.ended = stop == Stop::KillClient || stop == Stop::Drop;
        pair.holdsClient = stop == Stop::HoldStatement;
        pair.holdsServer = stop == Stop::HoldAnswer;
        if (!pair.ended && !pair.holdsClient)
            passOn(pair, packet);
        if (stop)
            tell();
    }
}

void StatementProxy::passOn(Pair &pair, const QByteArray &packet)
{
    pair.typed.remove(0, packet.size());
    pair.ended = !sendWhole(pair.server.number(), packet);
}

/// The stop, when this packet is the statement that was named. Told to the waiting test by `tell`, when it was done.
std::optional<StatementProxy::Stop> StatementProxy::meets(const QByteArray &packet)
{
    if (packet.size() <= headSize || packet[headSize - 1] != 0 || packet[headSize] != queryCommand)
        return std::nullopt;
    const std::lock_guard guard(m_mutex);
    if (!m_armed || m_stopped || !packet.sliced(headSize + 1).startsWith(m_armed->beginning) || --m_armed->nth > 0)
        return std::nullopt;
    m_stopped = true;
    return m_armed->stop;
}

void StatementProxy::tell()
{
    const std::lock_guard guard(m_mutex);
    m_armed.reset();
    m_stopped = false;
    m_met.notify_all();
}

} // namespace ledgora::test
