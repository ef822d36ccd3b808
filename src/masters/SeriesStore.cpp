#include "masters/SeriesStore.h"

#include "store/Connection.h"
#include "store/Dates.h"
#include "store/SqlText.h"

namespace ledgora {

namespace {

constexpr auto billWord = "Bill";
constexpr auto receiptWord = "Receipt";
constexpr auto prefixWord = "Prefix";
constexpr auto suffixWord = "Suffix";

int startingYear(const SeriesEntry &entry)
{
    return entry.year.left(4).toInt();
}

QString position(const SeriesEntry &entry)
{
    return entry.suffix ? QStringLiteral("S") : QStringLiteral("P");
}

} // namespace

std::vector<Series> seriesOfYear(Connection &db, const QString &kind, int year)
{
    Recordset rows = db.Open("Select * from GST_Series Where BR=" + quoted(kind) + " and FY=" + number(year)
                             + " order by SeriesSrNo");
    std::vector<Series> series;
    while (rows.next())
        series.push_back({int(rows.integer(QStringLiteral("SeriesSrNo"))), rows.text(QStringLiteral("Series"))});
    return series;
}

Cells emptySeriesList()
{
    Cells series(SeriesColumnCount, 1);
    series.setRow(0, {QStringLiteral("SeriesSrNo"), QStringLiteral("Bill / Receipt"), QStringLiteral("F.Y."),
                      QStringLiteral("Series"), QStringLiteral("Suffix / Prefix")});
    return series;
}

void loadSeriesList(Connection &db, Cells &series, int id)
{
    if (id == 0)
        series.clearData();
    for (int row = series.find(QString::number(id), SeriesId); row >= 0;
         row = series.find(QString::number(id), SeriesId))
        series.removeRow(row);
    const QString all = QStringLiteral("Select * from GST_Series");
    Recordset rows = db.Open(id == 0 ? all : QString(all + " WHERE SeriesSrNo=" + number(id)));
    while (rows.next())
        series.addRow({rows.text(QStringLiteral("SeriesSrNo")),
                       QLatin1String(rows.text(QStringLiteral("BR")) == QLatin1String("B") ? billWord : receiptWord),
                       financialYearText(int(rows.integer(QStringLiteral("FY")))), rows.text(QStringLiteral("Series")),
                       QLatin1String(rows.text(QStringLiteral("SP")) == QLatin1String("S") ? suffixWord : prefixWord)});
    series.sort(SeriesId, Cells::Sort::Number);
    series.sort(SeriesText, Cells::Sort::Text);
}

SeriesEntry seriesOfRow(const Cells &series, int row)
{
    if (!series.isData(row))
        return {};
    return {.ofReceipts = series.text(row, SeriesKind) != QLatin1String(billWord),
            .year = series.text(row, SeriesYear),
            .text = series.text(row, SeriesText),
            .suffix = series.text(row, SeriesPosition) == QLatin1String(suffixWord)};
}

InsertResult insertSeries(Connection &db, const SeriesEntry &entry)
{
    return insertUnderNewId(db, QStringLiteral("GST_Series"), QStringLiteral("SeriesSrNo"), [&](int id) -> QString {
        return "insert into GST_Series values (" + number(id) + ',' + (entry.ofReceipts ? "'R'" : "'B'") + ','
               + number(startingYear(entry)) + ',' + quoted(entry.text) + ',' + quoted(position(entry)) + ')';
    });
}

bool updateSeries(Connection &db, int id, const SeriesEntry &entry)
{
    const bool updated =
        db.Execute("UPDATE GST_Series SET FY=" + number(startingYear(entry)) + ",Series=" + quoted(entry.text)
                   + ",SP=" + quoted(position(entry)) + " where SeriesSrNo=" + number(id))
        && db.affectedRows() > 0;
    db.Execute(QStringLiteral("flush tables"));
    return updated;
}

bool deleteSeries(Connection &db, int id)
{
    const bool deleted = db.Execute("DELETE FROM GST_Series WHERE SeriesSrNo=" + number(id));
    db.Execute(QStringLiteral("Flush Tables"));
    return deleted;
}

SeriesUse seriesUse(Connection &db, int id, bool ofReceipts)
{
    const QString documents = ofReceipts ? QStringLiteral("Select * from GST_RecpM Where RecpSerId=")
                                         : QStringLiteral("Select * from GST_BillM Where BillSerId=");
    const Recordset rows = db.Open(documents + number(id) + QStringLiteral(" limit 1"));
    if (rows.failed())
        return SeriesUse::Unknown;
    return rows.recordCount() > 0 ? SeriesUse::Used : SeriesUse::Unused;
}

} // namespace ledgora
