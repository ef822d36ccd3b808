#pragma once

namespace ledgora {

class Connection;

/// The companies of the older side, taken over once: while `GST_FirmMas` holds none. They are numbered by name from 1
/// and stay without a state, which each asks for at its first use. True when companies came in; False when there were
/// none, another user was first, or a statement failed (logged).
bool IMPORTOLDBILLFIRMS(Connection &db);

/// The same for the other clients of the older side, while `GST_OthCl` holds none. They get new codes.
bool IMPORTOLDBILLOTHCLS(Connection &db);

} // namespace ledgora
