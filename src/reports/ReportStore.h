#pragma once

#include "reports/ReportRequest.h"
#include "reports/ReportRun.h"
#include <QDate>
#include <QHash>
#include <QSet>
#include <array>

namespace ledgora {

// What the reports read. Every list is one query, whatever its length; sums of many documents come grouped by document.

/// A bill or receipt as the reports know it.
struct ReportDocument
{
    int id = 0;
    QDate date;
    int seriesId = 0;
    qint64 number = 0;
    QString code;                   ///< of its party
    QString placeOfSupply, taxType; ///< of a bill
};

/// Conditions on the header table for the request's company and parties: bills or receipts of the period, or up to a
/// day (DD/MM/YYYY). The columns are named without their table: no line table has them.
QString billsOfPeriod(const ReportRequest &request);
QString receiptsOfPeriod(const ReportRequest &request);
QString billsUpTo(const ReportRequest &request, const QString &day);
QString receiptsUpTo(const ReportRequest &request, const QString &day);

/// By date, then number, then id.
std::vector<ReportDocument> readBills(Connection &db, const QString &where);
std::vector<ReportDocument> readReceipts(Connection &db, const QString &where);
/// Bills by their ids; what is gone is not among them.
QHash<int, ReportDocument> readBillsById(Connection &db, const QList<int> &ids);

/// Sums by document; one that is not there has no lines, and NULL counts as 0.
template<size_t Count>
using Sums = QHash<int, std::array<double, Count>>;

/// Lines that are summed, and the column of their document's id.
struct LineSums
{
    const char *lines, *key;
};
inline constexpr LineSums billLines{"GST_BillD", "BillId"};
inline constexpr LineSums receiptLines{"GST_RecpD", "RecpId"};
/// What receipts settled of bills, whenever they came.
inline constexpr LineSums settledOfBills{"GST_RecpD", "BillId"};

/// The queries for the sums over the lines of each document; lines of others may be among them. `sums` are the SQL
/// sums, `onLine` a further condition on the line.
QStringList sumsQueries(const LineSums &of, const char *sums, const std::vector<ReportDocument> &documents,
                        const QString &onLine = {});

template<size_t Count>
Sums<Count> sumsOf(Connection &db, const LineSums &of, const char *sums, const std::vector<ReportDocument> &documents,
                   const QString &onLine = {})
{
    QSet<int> wanted;
    for (const ReportDocument &document : documents)
        wanted.insert(document.id);
    Sums<Count> byId;
    byId.reserve(wanted.size());
    for (const QString &query : sumsQueries(of, sums, documents, onLine)) {
        Recordset rows = readForReport(db, query);
        while (rows.next()) {
            const int id = int(rows.integer(0));
            for (size_t i = 0; wanted.contains(id) && i < Count; ++i)
                byId[id][i] = rows.number(int(i) + 1);
        }
    }
    return byId;
}

/// Printed numbers of documents; the series are read once.
class DocumentNumbers
{
public:
    explicit DocumentNumbers(Connection &db);
    /// Number and series joined by the series' rule; the bare number without a series.
    QString of(int seriesId, qint64 number) const;
    QString of(const ReportDocument &document) const { return of(document.seriesId, document.number); }

private:
    struct Series
    {
        QString text, position;
    };
    QHash<int, Series> m_series;
};

} // namespace ledgora
