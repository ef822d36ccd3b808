#pragma once

#include "store/Connection.h"
#include <functional>
#include <stop_token>

namespace ledgora::app {

/// Runs `work` in a thread of its own while the caller waits as it waits for the server: through the hook, which keeps
/// a window painting and shows its bar. Without a hook the work is done at once, here. `work` must come back soon
/// after its token was stopped; nothing else may use what it uses meanwhile.
void runAside(const Connection::WaitHook &wait, const std::stop_source &stop,
              const std::function<void(const std::stop_token &)> &work);

} // namespace ledgora::app
