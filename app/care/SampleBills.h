#pragma once

#include "SamplePlan.h"
#include "bills/BillChecks.h"
#include <functional>

namespace ledgora::app {

/// Goes through the bills of the plan company by company, year by year, in the order of their days, ids from 1; ends
/// early when `use` returns False. In each company and year the days lie evenly over it, up to the plan's today.
bool forEachSlot(const SamplePlan &plan, const std::function<bool(const SampleSlot &)> &use);

/// A bill as a clerk would have keyed it in: typed cells went through the rules of the line grid, so what is stored is
/// what the screen would have stored.
BillDraft sampleBill(const SamplePlan &plan, const SampleSlot &slot);

} // namespace ledgora::app
