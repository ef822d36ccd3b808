#pragma once

#include "app/PrivateServer.h"
#include <QTemporaryDir>

struct st_mysql;

namespace ledgora::bench {

/// An empty office on a private server of its own, with the settings of the product; gone at the end of the run.
/// Throws std::runtime_error when it can not be made.
class Office
{
public:
    /// One for the whole run, made when first asked for.
    static Office &instance();

    Office(const Office &) = delete;
    Office &operator=(const Office &) = delete;
    ~Office();

    st_mysql *handle() const { return m_handle; }
    QString socket() const { return m_server.socketPath(); }

private:
    Office();
    QTemporaryDir m_folder;
    app::PrivateServer m_server{{.dataFolder = m_folder.path()}};
    st_mysql *m_handle;
};

} // namespace ledgora::bench
