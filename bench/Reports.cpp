// Reports of many documents and of many parties, as rows, beside what the database alone needs for their sums.

#include "reports/Reports.h"
#include "Filler.h"
#include "Ratios.h"
#include "Year.h"
#include "host/WorkingState.h"
#include "platform/Progress.h"
#include "reports/ReportParties.h"
#include "reports/ReportRows.h"
#include "reports/ReportStore.h"
#include "store/Connection.h"
#include "store/Schema.h"

namespace ledgora::bench {

namespace {

constexpr int reportFirm = 14; // a year of 100,000 half paid bills of 10,000 parties
constexpr int documents = 100'000;
constexpr int parties = 10'000;

Connection &reportOffice()
{
    static const bool filled = [] {
        fillBills(fullOffice(), reportFirm, year, documents, parties);
        fillHalfPaid(fullOffice(), reportFirm, year);
        return true;
    }();
    Q_UNUSED(filled)
    return fullOffice();
}

ReportRequest requestOf(ReportKind kind)
{
    ReportRequest request;
    request.kind = kind;
    request.firmId = reportFirm;
    request.firmName = QStringLiteral("SHARMA & ASSOCIATES");
    request.from = QStringLiteral("01/04/2024");
    request.to = request.asOn = QStringLiteral("31/03/2025");
    request.parties = emptyReportParties();
    loadReportParties(reportOffice(), QStringLiteral("C"), request.parties);
    for (int row = request.parties.fixedRows(); row < request.parties.rows(); ++row) {
        if (request.parties.text(row, ListedCode) <= QLatin1String("BILL~OTHCL-010000"))
            request.rows.push_back(row);
    }
    return request;
}

void make(benchmark::State &state, ReportKind kind)
{
    openPeriod(reportFirm);
    const ReportRequest request = requestOf(kind);
    for ([[maybe_unused]] const auto round : state) {
        ReportRows rows;
        if (!makeReport(*gCnn, request, rows, unwatched()).fault.isEmpty() || rows.size() < parties / 2)
            state.SkipWithError("there is no report");
    }
}

QStringList billQueries()
{
    const QString where = billsOfPeriod(requestOf(ReportKind::Bills));
    return QStringList("Select * from GST_BillM Where " + where + " Order by BillDt,BillNo")
           + sumsQueries(billLines,
                         "SUM(ServAmt),SUM(DiscAmt),SUM(TaxServAmt),SUM(CGST),SUM(SGST),SUM(IGST),SUM(TotalAmt)",
                         readBills(reportOffice(), where));
}

/// What the server knows right after a bulk fill: the tables are empty, as they were when it last looked.
void forgetRows()
{
    for (const char *statement :
         {"Update mysql.innodb_table_stats Set n_rows=0,clustered_index_size=1,sum_of_other_index_sizes=1 Where "
          "database_name=Database()",
          "Update mysql.innodb_index_stats Set stat_value=If(stat_name Like 'n_diff%',0,1) Where "
          "database_name=Database()",
          "Flush Table GST_BillM,GST_BillD,GST_RecpM,GST_RecpD"})
        reportOffice().Execute(QLatin1String(statement));
}

void makeFreshlyFilled(benchmark::State &state, ReportKind kind)
{
    forgetRows();
    make(state, kind);
    refreshStatistics(reportOffice());
}

/// What each party owes, in one statement: the sums without the tax inside the payments.
QStringList balanceQuery()
{
    const ReportRequest request = requestOf(ReportKind::Outstanding);
    return {"Select Code_No,Sum(Due) From (Select Code_No,TotalAmt As Due From GST_BillM Join GST_BillD On "
            "BillId=BillSrNo Where "
            + billsUpTo(request, request.asOn)
            + " Union All Select Code_No,-(Amount+Discount) From GST_RecpM Join GST_RecpD On RecpId=RecpSrNo Where "
            + receiptsUpTo(request, request.asOn) + ") As Dues Group by Code_No Order by Code_No"};
}

void compareReport(const std::string &work, const std::string &name, ReportKind kind, QStringList (*queries)(),
                   double goal)
{
    const std::string ours = name + ", Ledgora";
    const std::string rival = name + ", mariadb client";
    benchmark::RegisterBenchmark(ours.c_str(), make, kind)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark(rival.c_str(), [queries](benchmark::State &state) { sendQueries(state, queries()); })
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
    compare(work, ours, rival, goal);
}

/// No plan hangs on what the server knows of the tables.
void compareFreshlyFilled(const std::string &name, ReportKind kind)
{
    const std::string fresh = name + ", freshly filled";
    const std::string known = name + ", statistics of now";
    benchmark::RegisterBenchmark(fresh.c_str(), makeFreshlyFilled, kind)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark(known.c_str(), make, kind)->Unit(benchmark::kMillisecond);
    compare(name + " right after a bulk fill", fresh, known, 1.5);
}

const int registered = [] {
    compareReport("Bill Details of 100,000 bills, to rows", "bill details", ReportKind::Bills, billQueries, 1.5);
    compareReport("Outstanding of 10,000 parties", "outstanding", ReportKind::Outstanding, balanceQuery, 10);
    compareReport("Client Accounts of 10,000 parties", "client accounts", ReportKind::Account, balanceQuery, 10);
    compareFreshlyFilled("outstanding", ReportKind::Outstanding);
    compareFreshlyFilled("receipt details", ReportKind::Receipts);
    compareFreshlyFilled("pending bills", ReportKind::Pending);
    return 0;
}();

} // namespace

} // namespace ledgora::bench
