#pragma once

#include "Findings.h"
#include "platform/Progress.h"

namespace ledgora {
class Connection;
}

namespace ledgora::app {

struct CheckResult
{
    QString fault; ///< "" or why the check could not be finished
    Findings findings;
    qint64 bills = 0, receipts = 0;
};

/// Looks through all bills and receipts of the office as of one moment, or those of one company (`firmId` not 0);
/// others may work meanwhile. Changes nothing.
CheckResult checkData(Connection &db, const QString &hostCode, int firmId, const Progress &progress);

} // namespace ledgora::app
