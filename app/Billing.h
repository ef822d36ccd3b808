#pragma once

#include "host/ClsGST.h"
#include <QString>

namespace ledgora {
class HostWindow;
}

namespace ledgora::app {

class Office;

/// The billing library in this program's hands: registers the stock components and host objects and opens a working
/// period on the office as the host that it plays. The current year is the one in which the financial year of today
/// starts.
class Billing
{
public:
    Billing(Office &office, HostWindow *window);
    Billing(const Billing &) = delete;
    Billing &operator=(const Billing &) = delete;
    ~Billing();

    /// False when the working period could not be opened.
    bool isOpen() const { return m_open; }
    ClsGST &gst() { return m_gst; }

private:
    ClsGST m_gst;
    bool m_open = false;
};

} // namespace ledgora::app
