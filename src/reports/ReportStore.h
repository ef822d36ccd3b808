#pragma once

#include "reports/ReportRequest.h"
#include "reports/ReportRun.h"
#include <QDate>
#include <QHash>
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

/// Bills as stored, for a report that lets the server go on while it takes them apart.
Recordset openBills(Connection &db, const QString &where);
std::vector<ReportDocument> takeBills(Recordset stored);

/// By date, then number, then id.
std::vector<ReportDocument> readBills(Connection &db, const QString &where);
std::vector<ReportDocument> readReceipts(Connection &db, const QString &where);
/// Bills by their ids; what is gone is not among them.
QHash<int, ReportDocument> readBillsById(Connection &db, const QList<int> &ids);

/// Sums by document; one that is not there has no lines, and NULL counts as 0.
template<size_t Count>
using Sums = QHash<int, std::array<double, Count>>;

/// Sums over the lines of each bill or receipt of a condition above. `sums` are the SQL sums, `onLine` a further
/// condition on the line.
struct LineSums
{
    const char *header, *lines, *join; ///< tables, and how they belong together
    const char *key;                   ///< column of the document's id in the lines
};
inline constexpr LineSums billLines{"GST_BillM", "GST_BillD", "GST_BillM.BillSrNo=GST_BillD.BillId",
                                    "GST_BillD.BillId"};
inline constexpr LineSums receiptLines{"GST_RecpM", "GST_RecpD", "GST_RecpM.RecpSrNo=GST_RecpD.RecpId",
                                       "GST_RecpD.RecpId"};
/// What receipts settled of bills, whenever they came.
inline constexpr LineSums settledOfBills{"GST_BillM", "GST_RecpD", "GST_BillM.BillSrNo=GST_RecpD.BillId",
                                         "GST_RecpD.BillId"};

QString sumsQuery(const LineSums &of, const char *sums, const QString &where, const QString &onLine = {});
/// The answer to such a query.
template<size_t Count>
Sums<Count> takeSums(Recordset rows)
{
    Sums<Count> byId;
    byId.reserve(rows.recordCount());
    while (rows.next()) {
        std::array<double, Count> &sums = byId[int(rows.integer(0))];
        for (size_t i = 0; i < Count; ++i)
            sums[i] = rows.number(int(i) + 1);
    }
    return byId;
}

template<size_t Count>
Sums<Count> sumsOf(Connection &db, const LineSums &of, const char *sums, const QString &where,
                   const QString &onLine = {})
{
    return takeSums<Count>(readForReport(db, sumsQuery(of, sums, where, onLine)));
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
