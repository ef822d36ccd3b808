// A text report of many rows on paper and in files. What painting its pages takes by itself is the floor.

#include "Ratios.h"
#include "components/reporter/PdfOutput.h"
#include "components/reporter/ReportPages.h"
#include "reports/ReportCsv.h"
#include "reports/ReportRows.h"
#include "reports/ReportText.h"
#include "tests/reports/SampleReport.h"
#include <QTemporaryDir>
#include <memory>

namespace ledgora::bench {

namespace {

using reporter::Pages;
using reporter::ReportPages;

constexpr int rowsOfYear = 100'000;
constexpr auto paperName = "report of 100,000 rows to PDF, Ledgora";
constexpr auto paintedName = "report of 100,000 rows to PDF, pages from memory";

std::shared_ptr<const ReportRows> report(int bills)
{
    auto rows = std::make_shared<ReportRows>();
    test::writeBillDetails(*rows, bills);
    return rows;
}

Pages pagesOf(const std::shared_ptr<const ReportRows> &rows)
{
    return Pages(std::make_shared<ReportPages>(rows));
}

bool save(benchmark::State &state, const QString &fault)
{
    if (!fault.isEmpty())
        state.SkipWithError(fault.toUtf8().constData());
    return fault.isEmpty();
}

void toPaper(benchmark::State &state)
{
    const QTemporaryDir folder;
    const auto rows = report(int(state.range(0)));
    for ([[maybe_unused]] const auto round : state)
        if (!save(state, reporter::writePdf(pagesOf(rows), folder.filePath("a.pdf"), {})))
            return;
}

void painted(benchmark::State &state)
{
    const QTemporaryDir folder;
    const Pages pages = pagesOf(report(int(state.range(0))));
    reporter::PageList made;
    for (int page = 0; page < pages.size(); ++page)
        made.push_back(*pages[page]);
    const Pages all(std::move(made));
    for ([[maybe_unused]] const auto round : state)
        if (!save(state, reporter::writePdf(all, folder.filePath("a.pdf"), {})))
            return;
}

void firstPage(benchmark::State &state)
{
    const auto rows = report(int(state.range(0)));
    for ([[maybe_unused]] const auto round : state)
        benchmark::DoNotOptimize(pagesOf(rows)[0]);
}

void toText(benchmark::State &state)
{
    const QTemporaryDir folder;
    const auto rows = report(int(state.range(0)));
    for ([[maybe_unused]] const auto round : state)
        if (!save(state, saveReportText(*rows, folder.filePath("a.txt"))))
            return;
}

void toCsv(benchmark::State &state)
{
    const QTemporaryDir folder;
    const auto rows = report(int(state.range(0)));
    for ([[maybe_unused]] const auto round : state)
        if (!save(state, saveReportCsv(*rows, folder.filePath("a.csv"))))
            return;
}

const int registered = [] {
    const auto add = [](const char *name, void (*run)(benchmark::State &), int rows) {
        return benchmark::RegisterBenchmark(name, run)->Arg(rows)->Unit(benchmark::kMillisecond);
    };
    add(paperName, toPaper, rowsOfYear)->Iterations(1);
    add(paintedName, painted, rowsOfYear)->Iterations(1);
    for (const int rows : {rowsOfYear / 100, rowsOfYear / 10, rowsOfYear}) {
        add("report's first page, growth", firstPage, rows);
        add("report to text, growth", toText, rows);
        add("report to csv, growth", toCsv, rows);
    }
    add("report to PDF, growth", toPaper, rowsOfYear / 100);
    add("report to PDF, growth", toPaper, rowsOfYear / 10)->Iterations(1);
    compare("pages of 100,000 rows to PDF", paperName, paintedName, 1.5);
    return 0;
}();

} // namespace

} // namespace ledgora::bench
