#pragma once

#include "SamplePlan.h"
#include "receipts/ReceiptChecks.h"
#include <QStringList>
#include <vector>

namespace ledgora::app {

/// A bill of the sample as its client sees it when it comes to paying. Sums in whole rupees.
struct SampleDue
{
    int bill = 0; ///< id
    QDate date;
    QString code; ///< of the client
    int taxable = 0, total = 0;
};

/// What a receipt settles of a bill, in whole rupees; the amount includes the TDS.
struct SampleSettlement
{
    int bill = 0;
    int amount = 0, discount = 0, tds = 0;
};

/// A receipt as a clerk would have keyed it in: no bill is paid before its day or beyond its total, and the money
/// is what the rows say. Numbers run from 1 in company, year and series, none before an earlier day's.
struct SampleReceipt
{
    int id = 0;
    int company = 0;
    int year = 0;
    int seriesId = 0; ///< 0 for none
    int number = 0;
    QString code;
    QDate date;
    std::vector<SampleSettlement> rows; ///< one to ten
};

/// The receipts of a company in the order of their days, ids from `firstId`. Of a hundred bills `plan.receipts` are
/// paid: mostly at once, some in parts, some a year or more too late, some not to the end. Payments of one client that
/// lie close together become one receipt now and then. What would come after the plan's last day has not come yet.
std::vector<SampleReceipt> sampleReceipts(const SamplePlan &plan, int company, int firstId,
                                          const std::vector<SampleDue> &dues);

/// The receipt as the receipt screen would hand it to the store, with the mode that the money came by.
ReceiptDraft receiptDraft(const SamplePlan &plan, const SampleReceipt &receipt);

} // namespace ledgora::app
