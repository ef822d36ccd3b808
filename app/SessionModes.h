#pragma once

struct st_mysql;

namespace ledgora::app {

/// A new client handle, not connected yet, that sets on connecting what the statements need of their session: utf8mb4
/// with a collation that tells all characters apart, no strict mode, a limit to the wait for a table lock. Made for
/// non-blocking use; affected rows count rows found; nothing reconnects; reading has no limit in time, since a server
/// would go on with a statement whose answer nobody reads. nullptr when memory is short.
st_mysql *newHandle(int lockWaitSeconds);

/// The flags to connect such a handle with.
unsigned long connectFlags();

} // namespace ledgora::app
