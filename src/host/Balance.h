#pragma once

#include <QString>
#include <optional>
#include <vector>

namespace ledgora {

class Connection;

/// What a client owes a company, in rupees: the totals of its bills less amounts and discounts of its receipts, of
/// all years.
double balanceOf(Connection &db, int firmId, const QString &codeNo);

/// A client's balance with one company.
struct PartyBalance
{
    int firmId = 0;
    QString code; ///< as one of the documents spells it; codes are blind to case
    double amount = 0;
};

/// `balanceOf` of every company (one when `firmId` is not 0) and client that have any bill or receipt, by
/// company, then code. Nothing when they could not be read.
std::optional<std::vector<PartyBalance>> allBalances(Connection &db, int firmId);

} // namespace ledgora
