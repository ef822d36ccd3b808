#pragma once

namespace ledgora::app {

struct DemoDesk;

inline constexpr auto accountPdf = "Client_Accounts.pdf";
/// The accounts of both clients of the demonstration, saved from the viewer. The home screen has the keys before.
void printAccounts(const DemoDesk &desk);

} // namespace ledgora::app
