#include "Ratios.h"
#include <cstdio>
#include <vector>

namespace ledgora::bench {

namespace {

struct Comparison
{
    std::string work;
    std::string ours;
    std::string rival;
    double goal;
};

std::vector<Comparison> &comparisons()
{
    static std::vector<Comparison> all;
    return all;
}

} // namespace

void compare(const std::string &work, const std::string &ours, const std::string &rival, double goal)
{
    comparisons().push_back({work, ours, rival, goal});
}

void RatioReporter::ReportRuns(const std::vector<Run> &runs)
{
    ConsoleReporter::ReportRuns(runs);
    for (const Run &run : runs)
        if (!run.error_occurred && run.aggregate_name == "median")
            m_seconds[run.run_name.function_name] =
                run.GetAdjustedRealTime() / benchmark::GetTimeUnitMultiplier(run.time_unit);
}

void RatioReporter::Finalize()
{
    ConsoleReporter::Finalize();
    std::printf("\n%-40s %12s %12s %8s %8s\n", "work", "ours, ms", "rival, ms", "ratio", "goal");
    for (const Comparison &pair : comparisons()) {
        const auto ours = m_seconds.find(pair.ours);
        const auto rival = m_seconds.find(pair.rival);
        if (ours == m_seconds.end() || rival == m_seconds.end()) {
            std::printf("%-40s not measured\n", pair.work.c_str());
            continue;
        }
        std::printf("%-40s %12.2f %12.2f %8.2f %8.2f\n", pair.work.c_str(), ours->second * 1000, rival->second * 1000,
                    ours->second / rival->second, pair.goal);
    }
}

} // namespace ledgora::bench
