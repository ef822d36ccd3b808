#pragma once

#include <benchmark/benchmark.h>
#include <map>
#include <string>

namespace ledgora::bench {

/// Says that `ours` and `rival`, names of registered benchmarks, do the same work, and that ours may take at most
/// `goal` times as long. Figures in seconds differ from machine to machine, ratios of one run hardly do.
void compare(const std::string &work, const std::string &ours, const std::string &rival, double goal);

/// The usual table, and after all runs one line for each comparison, from medians.
class RatioReporter : public benchmark::ConsoleReporter
{
public:
    RatioReporter() : ConsoleReporter(OO_None) {}
    void ReportRuns(const std::vector<Run> &runs) override;
    void Finalize() override;

private:
    std::map<std::string, double> m_seconds; ///< median by name
};

} // namespace ledgora::bench
