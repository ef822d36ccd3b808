#include "Ratios.h"
#include <QApplication>
#include <cstdio>
#include <exception>
#include <string>
#include <vector>

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    // Medians of interleaved repetitions: a busy moment of the machine then hits ours and its rival alike.
    std::vector<std::string> words{argv[0], "--benchmark_repetitions=3", "--benchmark_enable_random_interleaving=true",
                                   "--benchmark_display_aggregates_only=true"};
    words.insert(words.end(), argv + 1, argv + argc);
    std::vector<char *> pointers;
    pointers.reserve(words.size());
    for (std::string &word : words)
        pointers.push_back(word.data());
    int count = int(pointers.size());
    benchmark::Initialize(&count, pointers.data());
    if (benchmark::ReportUnrecognizedArguments(count, pointers.data()))
        return 2;
    try {
        ledgora::bench::RatioReporter reporter;
        benchmark::RunSpecifiedBenchmarks(&reporter);
    } catch (const std::exception &fault) {
        std::fprintf(stderr, "%s\n", fault.what());
        return 1;
    }
    return 0;
}
