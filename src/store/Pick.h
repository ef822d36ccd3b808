#pragma once

#include <QString>

namespace ledgora {

/// An entry of a pick list: the cell keeps `key` and shows `shown`; the open list shows `entry`.
struct Pick
{
    QString key, shown, entry;
};

} // namespace ledgora
