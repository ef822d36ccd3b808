#pragma once

#include <QString>

namespace ledgora {

class Connection;

/// The printed number of a bill or receipt: number and series text joined by the series' rule ("##" marks the place
/// of the number, else prefix or suffix). `No` alone when the series is unknown.
QString COMBNOSERIESGST(Connection &db, int seriesId, const QString &No);

/// The same from a series already read: `position` "S" is suffix.
QString joinSeries(const QString &series, const QString &position, const QString &number);

} // namespace ledgora
