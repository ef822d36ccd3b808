#pragma once

#include <sys/types.h>

namespace ledgora::test {

/// A display of the process's own, on a free number, with a window manager: what depends on focus, mouse or windows
/// shows its faults only there. DISPLAY names it while the object lives; both programs end with it, and with the
/// process in any case. Throws std::runtime_error when the display does not come up.
class Display
{
public:
    Display();
    Display(const Display &) = delete;
    Display &operator=(const Display &) = delete;
    ~Display();

private:
    pid_t m_server = 0;
    pid_t m_windowManager = 0;
};

} // namespace ledgora::test
