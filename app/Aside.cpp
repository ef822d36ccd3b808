#include "Aside.h"

#include "Descriptor.h"
#include <poll.h>
#include <sys/eventfd.h>
#include <thread>

namespace ledgora::app {

void runAside(const Connection::WaitHook &wait, const std::stop_source &stop,
              const std::function<void(const std::stop_token &)> &work)
{
    const Descriptor ended(wait ? ::eventfd(0, EFD_CLOEXEC) : -1);
    if (!ended.isOpen())
        return work(stop.get_token());
    const std::jthread thread([&] {
        work(stop.get_token());
        ::eventfd_write(ended.number(), 1);
    });
    while (!(wait(ended.number(), POLLIN, -1) & POLLIN)) {
    }
}

} // namespace ledgora::app
