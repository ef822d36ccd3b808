#pragma once

#include "store/Cells.h"
#include "store/NewId.h"
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

/// Columns of the list of series `vsSeries`.
enum SeriesColumn { SeriesId, SeriesKind, SeriesYear, SeriesText, SeriesPosition, SeriesColumnCount };

/// A series as its edit frame shows it. It belongs to no company.
struct SeriesEntry
{
    bool ofReceipts = false;
    QString year; ///< as in the list of years, "2024-25"; "" when none is chosen
    QString text; ///< "##" marks the place of the number
    bool suffix = false;
};

Cells emptySeriesList();
/// Rebuilds the list (`id` 0) or refreshes one series in it; sorted by the series text, equal ones by id.
void loadSeriesList(Connection &db, Cells &series, int id);
/// The series in a row of the list; an empty one for no row.
SeriesEntry seriesOfRow(const Cells &series, int row);

InsertResult insertSeries(Connection &db, const SeriesEntry &entry);
/// Year, text and position; a series never changes between bills and receipts. False when it met no row or failed.
bool updateSeries(Connection &db, int id, const SeriesEntry &entry);
bool deleteSeries(Connection &db, int id);

/// Whether a document of any company bears the series. Unknown when the database did not answer.
enum class SeriesUse { Unused, Used, Unknown };
SeriesUse seriesUse(Connection &db, int id, bool ofReceipts);

} // namespace ledgora
