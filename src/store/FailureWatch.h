#pragma once

#include "store/Connection.h"

namespace ledgora {

/// Notes whether a statement fails while it lives. A failed statement stops nobody, so whoever hands out what a run of
/// statements has read or written asks here first whether it is whole.
class FailureWatch
{
public:
    explicit FailureWatch(const Connection &db) : m_db(db), m_before(db.failures()) {}

    bool failed() const { return m_db.failures() != m_before; }
    /// "" or what a user is told.
    QString fault() const { return failed() ? "The database failed: " + m_db.lastError() : QString(); }

private:
    const Connection &m_db;
    qint64 m_before;
};

} // namespace ledgora
