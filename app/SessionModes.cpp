#include "SessionModes.h"
#include <QByteArray>
#include <QString>
#include <mysql.h>

namespace ledgora::app {

st_mysql *newHandle(int lockWaitSeconds)
{
    MYSQL *handle = mysql_init(nullptr);
    if (!handle)
        return nullptr;
    const unsigned connectSeconds = 10;
    const unsigned localInfile = 0;
    const my_bool reconnect = 0;
    mysql_optionsv(handle, MYSQL_OPT_NONBLOCK, nullptr);
    mysql_optionsv(handle, MYSQL_OPT_CONNECT_TIMEOUT, &connectSeconds);
    mysql_optionsv(handle, MYSQL_OPT_LOCAL_INFILE, &localInfile);
    mysql_optionsv(handle, MYSQL_OPT_RECONNECT, &reconnect);
    mysql_optionsv(handle, MYSQL_SET_CHARSET_NAME, "utf8mb4");
    mysql_optionsv(handle, MYSQL_INIT_COMMAND, "SET NAMES utf8mb4 COLLATE utf8mb4_unicode_520_ci");
    const QByteArray modes = "SET SESSION sql_mode='NO_ENGINE_SUBSTITUTION', SESSION lock_wait_timeout="
                             + QByteArray::number(lockWaitSeconds);
    mysql_optionsv(handle, MYSQL_INIT_COMMAND, modes.constData());
    return handle;
}

unsigned long connectFlags()
{
    return CLIENT_FOUND_ROWS;
}

} // namespace ledgora::app
