#pragma once

#include <QString>
#include <vector>

namespace ledgora {

class Connection;

struct Series
{
    int id = 0;
    QString text;
};

/// Series of bills ("B") or receipts ("R") of the financial year that starts in `year`, by id.
std::vector<Series> seriesOfYear(Connection &db, const QString &kind, int year);

} // namespace ledgora
