#include "masters/SeriesStore.h"

#include "store/Connection.h"
#include "store/SqlText.h"

namespace ledgora {

std::vector<Series> seriesOfYear(Connection &db, const QString &kind, int year)
{
    Recordset rows = db.Open("Select * from GST_Series Where BR=" + quoted(kind) + " and FY=" + number(year)
                             + " order by SeriesSrNo");
    std::vector<Series> series;
    while (rows.next())
        series.push_back({int(rows.integer(QStringLiteral("SeriesSrNo"))), rows.text(QStringLiteral("Series"))});
    return series;
}

} // namespace ledgora
