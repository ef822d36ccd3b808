#pragma once

#include <QString>
#include <functional>

namespace ledgora {

class Connection;

/// What came of an insert under a new id. `id` is 0 when none could be allotted (the lock or the reading of the
/// highest id failed); then nothing was inserted and the user is to be told `invalidIdMessage`.
struct InsertResult
{
    int id = 0;
    bool inserted = false;
};

inline constexpr auto invalidIdMessage = "Invalid ID generated for the new Record. Can't Save !";

/// Inserts a row under the highest id in use plus one: locks the table, reads the highest id, inserts, unlocks,
/// flushes. The id counts only when both the lock and the reading succeeded, so that a time-out never ends in a
/// write on somebody else's row 1. `insertStatement` gives the statement for the id.
InsertResult insertUnderNewId(Connection &db, const QString &table, const QString &idColumn,
                              const std::function<QString(int id)> &insertStatement);

} // namespace ledgora
