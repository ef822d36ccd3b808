#pragma once

#include <QString>

namespace ledgora {

class Connection;

/// What a client owes a company, in rupees: the totals of its bills less amounts and discounts of its receipts, of
/// all years.
double balanceOf(Connection &db, int firmId, const QString &codeNo);

} // namespace ledgora
