#pragma once

#include <QHash>
#include <QString>

namespace ledgora {

class Connection;

/// The printed number of a bill or receipt: number and series text joined by the series' rule ("##" marks the place
/// of the number, else prefix or suffix). `No` alone when the series is unknown.
QString COMBNOSERIESGST(Connection &db, int seriesId, const QString &No);

/// The same from a series already read: `position` "S" is suffix.
QString joinSeries(const QString &series, const QString &position, const QString &number);

/// The series of many documents, read once: `printed` is what COMBNOSERIESGST gives, and `number` alone for series 0.
class SeriesNumbers
{
public:
    explicit SeriesNumbers(Connection &db);
    QString printed(int seriesId, const QString &number) const;

private:
    struct Series
    {
        QString text, position;
    };
    QHash<int, Series> m_series;
};

} // namespace ledgora
