#include "reports/ReportStore.h"

#include "reports/ReportParties.h"
#include "store/Dates.h"
#include "store/DocumentNumber.h"
#include "store/SqlText.h"
#include <QSet>
#include <QStringList>

namespace ledgora {

namespace {

QString companyAndParties(const ReportRequest &request)
{
    const QString codes = codeList(request);
    return "FirmId=" + number(request.firmId) + (codes.isEmpty() ? QString() : " and Code_No in (" + codes + ')');
}

QString between(const char *column, const QString &from, const QString &to)
{
    const QString name = QLatin1String(column);
    return (from.isEmpty() ? QString() : " and " + name + ">=" + quoted(CONVERTTOSAVE(from))) + " and " + name
           + "<=" + quoted(CONVERTTOSAVE(to));
}

struct DocumentColumns
{
    const char *id, *date, *series, *number;
};
constexpr DocumentColumns billColumns{"BillSrNo", "BillDt", "BillSerId", "BillNo"};
constexpr DocumentColumns receiptColumns{"RecpSrNo", "RecpDt", "RecpSerId", "RecpNo"};

std::vector<ReportDocument> documentsOf(Recordset rows, const DocumentColumns &columns)
{
    const auto column = [&rows](const char *name) { return rows.column(QLatin1String(name)); };
    const auto optional = [&rows](const char *name) {
        return rows.hasColumn(QLatin1String(name)) ? rows.column(QLatin1String(name)) : -1;
    };
    const int id = column(columns.id);
    const int date = column(columns.date);
    const int series = column(columns.series);
    const int number = column(columns.number);
    const int code = column("Code_No");
    const int place = optional("PlaceOfServ");
    const int taxType = optional("AppTaxType");
    std::vector<ReportDocument> documents;
    documents.reserve(size_t(rows.recordCount()));
    while (rows.next())
        documents.push_back({.id = int(rows.integer(id)),
                             .date = dateFromStore(rows.text(date)),
                             .seriesId = int(rows.integer(series)),
                             .number = rows.integer(number),
                             .code = rows.text(code),
                             .placeOfSupply = rows.text(place),
                             .taxType = rows.text(taxType)});
    return documents;
}

} // namespace

QString billsOfPeriod(const ReportRequest &request)
{
    return companyAndParties(request) + between("BillDt", request.from, request.to);
}

QString receiptsOfPeriod(const ReportRequest &request)
{
    return companyAndParties(request) + between("RecpDt", request.from, request.to);
}

QString billsUpTo(const ReportRequest &request, const QString &day)
{
    return companyAndParties(request) + between("BillDt", {}, day);
}

QString receiptsUpTo(const ReportRequest &request, const QString &day)
{
    return companyAndParties(request) + between("RecpDt", {}, day);
}

std::vector<ReportDocument> readBills(Connection &db, const QString &where)
{
    return documentsOf(readForReport(db, "Select * from GST_BillM Where " + where + " Order by BillDt,BillNo,BillSrNo"),
                       billColumns);
}

std::vector<ReportDocument> readReceipts(Connection &db, const QString &where)
{
    return documentsOf(readForReport(db, "Select * from GST_RecpM Where " + where + " Order by RecpDt,RecpNo,RecpSrNo"),
                       receiptColumns);
}

QHash<int, ReportDocument> readBillsById(Connection &db, const QList<int> &ids)
{
    const QSet<int> wanted(ids.begin(), ids.end());
    QHash<int, ReportDocument> bills;
    for (const QString &condition : amongIds(QStringLiteral("BillSrNo"), ids)) {
        for (const ReportDocument &bill :
             documentsOf(readForReport(db, "Select * from GST_BillM Where " + condition), billColumns)) {
            if (wanted.contains(bill.id))
                bills.insert(bill.id, bill);
        }
    }
    return bills;
}

QStringList sumsQueries(const LineSums &of, const char *sums, const std::vector<ReportDocument> &documents,
                        const QString &onLine)
{
    const QString key = QLatin1String(of.key);
    QList<int> ids;
    ids.reserve(qsizetype(documents.size()));
    for (const ReportDocument &document : documents)
        ids << document.id;
    QStringList queries;
    for (const QString &condition : amongIds(key, std::move(ids)))
        queries << "Select " + key + ',' + QLatin1String(sums) + " from " + QLatin1String(of.lines) + " Where "
                       + condition + (onLine.isEmpty() ? QString() : " and " + onLine) + " Group by " + key;
    return queries;
}

DocumentNumbers::DocumentNumbers(Connection &db)
{
    Recordset rows = readForReport(db, QStringLiteral("Select * from GST_Series"));
    while (rows.next())
        m_series.insert(int(rows.integer(QStringLiteral("SeriesSrNo"))),
                        {rows.text(QStringLiteral("Series")), rows.text(QStringLiteral("SP"))});
}

QString DocumentNumbers::of(int seriesId, qint64 number) const
{
    const auto series = m_series.constFind(seriesId);
    const QString digits = QString::number(number);
    return seriesId == 0 || series == m_series.cend() ? digits : joinSeries(series->text, series->position, digits);
}

} // namespace ledgora
