#pragma once

#include "SamplePlan.h"

namespace ledgora {
class Connection;
}

namespace ledgora::app {

/// What a sample came to.
struct SampleResult
{
    QString fault; ///< "" or why there is no sample, in a clerk's words; then nothing was written
    qint64 companies = 0, parties = 0, bills = 0, lines = 0, receipts = 0;
};

/// Fills an empty office of the plan's host: all rows in one transaction, so that a run that fails or is ended leaves
/// the office empty. The plan must be settled and without a fault.
SampleResult writeSample(Connection &db, const SamplePlan &plan);

} // namespace ledgora::app
