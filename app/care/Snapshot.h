#pragma once

#include "store/Connection.h"
#include <functional>

namespace ledgora::app {

/// A view of all tables as of one moment, whatever others save meanwhile. Between two readings no table is held, so
/// that the table lock under which others allot an id is not kept waiting.
class Snapshot
{
public:
    explicit Snapshot(Connection &db);
    Snapshot(const Snapshot &) = delete;
    Snapshot &operator=(const Snapshot &) = delete;
    ~Snapshot();

    bool isOpen() const { return m_open; }
    Recordset Open(const QString &sql);
    /// Runs several queries of the connection within the view.
    void read(const std::function<void(Connection &)> &queries);

private:
    Connection &m_db;
    bool m_open;
};

} // namespace ledgora::app
