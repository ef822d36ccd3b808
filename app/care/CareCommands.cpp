#include "CareCommands.h"

#include "Billing.h"
#include "CommandLine.h"
#include "Office.h"
#include "SampleData.h"
#include "host/WorkingState.h"
#include "store/Settings.h"
#include <QElapsedTimer>
#include <cstdio>

namespace ledgora::app {

namespace {

constexpr double millisecondsASecond = 1000;

int failed(QString why)
{
    std::fprintf(stderr, "ledgora: %s\n", qPrintable(why.replace(u'\n', u' ')));
    return 1;
}

int runSample(const CommandLine &line)
{
    Office office(line.dataFolder);
    if (!office.open())
        return failed(office.error());
    const Billing billing(office, nullptr); // the error log
    QElapsedTimer clock;
    clock.start();
    const SampleResult result = writeSample(office.connection(), line.sample);
    if (!result.fault.isEmpty())
        return failed(result.fault);
    std::printf("%lld companies, %lld clients, %lld bills with %lld lines written in %.1f s.\n",
                static_cast<long long>(result.companies), static_cast<long long>(result.parties),
                static_cast<long long>(result.bills), static_cast<long long>(result.lines),
                double(clock.elapsed()) / millisecondsASecond);
    return 0;
}

} // namespace

int runCareCommand(const CommandLine &line)
{
    return runSample(line);
}

} // namespace ledgora::app
