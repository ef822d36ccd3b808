#include "store/DocumentNumber.h"

#include "store/Connection.h"
#include "store/ErrorLog.h"
#include "store/SqlText.h"

namespace ledgora {

QString COMBNOSERIESGST(Connection &db, int seriesId, const QString &No)
{
    const ErrorSite site("MODGST", "COMBNOSERIESGST");
    Recordset series = db.Open("Select * from GST_Series WHERE SeriesSrNo=" + number(seriesId));
    if (!series.next())
        return No;
    return joinSeries(series.text("Series"), series.text("SP"), No);
}

QString joinSeries(const QString &series, const QString &position, const QString &number)
{
    if (series.contains("##"))
        return QString(series).replace("##", number);
    return position == "S" ? QString(number + series) : QString(series + number);
}

SeriesNumbers::SeriesNumbers(Connection &db)
{
    const ErrorSite site("MODGST", "COMBNOSERIESGST");
    Recordset series = db.Open("Select SeriesSrNo,Series,SP from GST_Series");
    while (series.next())
        m_series.insert(int(series.integer(0)), {series.text(1), series.text(2)});
}

QString SeriesNumbers::printed(int seriesId, const QString &number) const
{
    const auto series = m_series.constFind(seriesId);
    return seriesId == 0 || series == m_series.cend() ? number : joinSeries(series->text, series->position, number);
}

} // namespace ledgora
