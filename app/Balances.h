#pragma once

#include <QStringList>

namespace ledgora {
class Connection;
}

namespace ledgora::app {

struct BalanceList
{
    QString fault; ///< "" or why there is no list
    QStringList lines;
};

/// What each client owes each company, or one company (`firmId` not 0): company's name (only where all are listed),
/// code, client's name, rupees, with a TAB between; by company, then client's name. Balances of 0 are left out; a
/// client with too much paid has a negative one. The last line is the total.
BalanceList balanceList(Connection &db, const QString &hostCode, int firmId);

} // namespace ledgora::app
