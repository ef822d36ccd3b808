#pragma once

namespace ledgora {

class Connection;

/// Keeps the window alive while a statement runs: after 300 ms a bar with Cancel comes up that holds all other input
/// back until the server has answered. Cancel asks the host to end the statement (`Connection::interrupt`).
void installWaitBar(Connection &connection);

} // namespace ledgora
