#pragma once

#include <QDate>
#include <QString>

namespace ledgora::app {

/// How large a sample office is. The same plan, as of the same day, gives the same rows.
struct SamplePlan
{
    int seed = 1; ///< from 0 on
    int companies = 2;
    int parties = 200; ///< clients: the host's own and other clients
    int bills = 1000;  ///< of all companies and years together, in even shares
    int receipts = 85; ///< of a hundred bills, those on which something was received
    int from = 2017;   ///< first financial year, by its starting year
    int to = 0;        ///< last one; 0 for that of `today`
    QDate today;       ///< no bill is dated later
    // NOLINTNEXTLINE(readability-redundant-member-init): initialisers may leave it out
    QString host = QStringLiteral("C"); ///< whose clients: "C", "G", "T"

    int years() const { return to - from + 1; }
};

/// The plan with `today` and `to` filled in where they are left out.
SamplePlan settledPlan(SamplePlan plan);
/// "" for a settled plan that can be carried out, else what is wrong with it.
QString planFault(const SamplePlan &plan);

/// Where a bill stands in the numbering: what the plan alone decides.
struct SampleSlot
{
    int id = 0;
    int company = 0; ///< id, from 1
    int year = 0;
    int seriesId = 0; ///< 0 for none
    int number = 0;   ///< runs from 1 in company, year and series
    QDate date;       ///< never before that of the bill before it in company and year
};

} // namespace ledgora::app
