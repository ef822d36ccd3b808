#include "Office.h"
#include "store/Connection.h"
#include "store/Schema.h"
#include <mysql.h>
#include <stdexcept>

namespace ledgora::bench {

Office &Office::instance()
{
    static Office office;
    return office;
}

Office::Office() : m_handle(m_server.start() ? m_server.connect() : nullptr)
{
    if (!m_handle)
        throw std::runtime_error(m_server.error().toStdString());
    Connection db(m_handle);
    if (!createSchema(db, QStringLiteral("C")))
        throw std::runtime_error("no schema: " + db.lastError().toStdString());
}

Office::~Office()
{
    mysql_close(m_handle);
}

} // namespace ledgora::bench
