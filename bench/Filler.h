#pragma once

namespace ledgora {
class Connection;
}

namespace ledgora::bench {

/// Adds `count` other clients whose names begin with each letter of the alphabet in turn, ids from 1 on. Throws
/// std::runtime_error when a statement fails.
void fillParties(Connection &db, int count);

/// Adds `count` bills of two lines each to a company's year, for the parties of `fillParties` in turn. Ids and
/// numbers go on from the highest there are.
void fillBills(Connection &db, int firmId, int year, int count, int parties);

/// Adds a receipt of half its sum to each of the company's bills of the year.
void fillHalfPaid(Connection &db, int firmId, int year);

/// Adds `count` receipts of two rows each to a company's year, on `bills` bills from `firstBill` on in turn. Ids go on
/// from the highest there is, numbers run from 1.
void fillReceipts(Connection &db, int firmId, int year, int count, int firstBill, int bills);

} // namespace ledgora::bench
