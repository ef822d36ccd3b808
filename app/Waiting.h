#pragma once

#include <chrono>
#include <thread>

namespace ledgora::app {

/// Asks `ready` every two milliseconds until it says yes (true) or `limit` has passed (false). It is asked once at
/// least, so that a limit of nothing is a plain question.
template<class Ready>
bool waitUntil(Ready ready, std::chrono::milliseconds limit)
{
    const auto end = std::chrono::steady_clock::now() + limit;
    while (!ready()) {
        if (std::chrono::steady_clock::now() >= end)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    return true;
}

} // namespace ledgora::app
