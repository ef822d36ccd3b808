// Bills as documents: files of their own, one report, one filled file; beside an office program converting the same
// filled files.

#include "Ratios.h"
#include "components/StockComponents.h"
#include "platform/Registry.h"
#include "platform/Reporter.h"
#include <QApplication>
#include <QDir>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QUrl>
#include <QWidget>
#include <algorithm>
#include <functional>
#include <memory>

namespace ledgora::bench {

namespace {

constexpr int bills = 500;
constexpr int filesPerCall = 240; ///< of soffice
constexpr auto filesName = "500 bills to PDF files, Ledgora";
constexpr auto officeName = "500 bills to PDF files, soffice";
constexpr auto singlyName = "500 bills to PDF files, one by one";

const QString billTemplate = QStringLiteral(LEDGORA_TEMPLATES "/GST_Intra_Bill.doc");

Reporter &reporter()
{
    static const std::unique_ptr<Reporter> engine = [] {
        Registry registry;
        registerStockComponents(registry);
        return registry.create<Reporter>(QString::fromLatin1(Reporter::progId));
    }();
    return *engine;
}

using Set = std::function<void(const QString &, const PlaceholderValue &)>;

void fillLine(const Set &set, int line, bool filled)
{
    const auto put = [&](const char *name, const PlaceholderValue &value) {
        set(QStringLiteral("#%1_%2#").arg(QLatin1String(name)).arg(line), filled ? value : PlaceholderValue());
    };
    put("SN", QStringLiteral("%1.").arg(line));
    put("PARTICULARS_SAC", QStringLiteral("Audit of the accounts and the report on them\r\nSAC : 998221"));
    put("YR", QStringLiteral("A.Y.\r\n2023-24"));
    for (const char *name : {"AMT", "NAMT"})
        put(name, 12000.0 * line);
    put("DISC", 0.0);
    for (const char *name : {"CRT", "SRT"})
        put(name, QStringLiteral("9%"));
    for (const char *name : {"CAMT", "SAMT"})
        put(name, 1080.0 * line);
    put("TAMT", 14160.0 * line);
}

void fill(const Set &set, int number)
{
    const std::pair<const char *, const char *> texts[] = {{"FIRM_NAME", "Sharma Associates"},
                                                           {"FIRM_DESIG", "Chartered Accountants"},
                                                           {"FIRM_GSTIN", "07AAACS1234C1Z5"},
                                                           {"FIRM_PAN", "AAACS1234C"},
                                                           {"PARTY_NAME", "Narmada Textiles Ltd"},
                                                           {"PARTY_GSTIN", "07AAACN1234C1Z5"},
                                                           {"PARTY_PAN", "AAACN1234C"},
                                                           {"PARTY_ADDRESS", "12 Mall Road\r\nDelhi 110001"},
                                                           {"PLACE_OF_SUPPLY", "DELHI (07)"},
                                                           {"BILL_DT", "15/06/2024"}};
    for (const auto &[name, value] : texts)
        set(QStringLiteral("#%1#").arg(QLatin1String(name)), QString::fromLatin1(value));
    set(QStringLiteral("#BILL_NO#"), QStringLiteral("SA/24-25/%1").arg(number));
    for (int line = 1; line <= 10; ++line)
        fillLine(set, line, line <= 4);
    for (const char *name : {"GTAMT", "GTNAMT", "GTCAMT", "GTSAMT", "GTTAMT", "TOTFIGS"})
        set(QStringLiteral("#%1#").arg(QLatin1String(name)), 120000.0 + number);
    for (const char *name :
         {"GTDISC", "PAYTERMS_INFAVOF", "PAYTERMS_BANKNM_BRADD", "PAYTERMS_ACNO", "PAYTERMS_IFSC", "PAYTERMS_COMMENTS",
          "NOTE", "AUTHSIGN_NAME", "AUTHSIGN_DESIG", "FIRM_ADDRESS", "FIRM_CONTDET", "FIRM_EMLWEB"})
        set(QStringLiteral("#%1#").arg(QLatin1String(name)), QStringLiteral("Chandni Chowk, Delhi"));
    set(QStringLiteral("#TOTWORDS#"), QStringLiteral("Rupees One Lakh Twenty Thousand Only"));
}

void fillMaster(int number)
{
    reporter().OpenMasterFile(billTemplate);
    fill([](const QString &name, const PlaceholderValue &value) { reporter().NewSetText(name, value); }, number);
}

/// The run's files; told as a fault when one is missing.
void toFiles(benchmark::State &state)
{
    const QTemporaryDir folder;
    const auto count = int(state.range(0));
    for ([[maybe_unused]] const auto round : state) {
        reporter().BeginPdfRun();
        for (int number = 1; number <= count; ++number) {
            fillMaster(number);
            reporter().AddMasterToPdf(folder.filePath(QString("%1.pdf").arg(number)));
        }
        if (!reporter().EndPdfRun().empty())
            return state.SkipWithError("a file is missing");
    }
    state.SetItemsProcessed(state.iterations() * count);
}

void singly(benchmark::State &state)
{
    const QTemporaryDir folder;
    for ([[maybe_unused]] const auto round : state)
        for (int number = 1; number <= bills; ++number) {
            reporter().newreportnew(billTemplate);
            fill([](const QString &name, const PlaceholderValue &value) { reporter().SetText(name, value); }, number);
            reporter().SaveToPDF(folder.filePath(QString("%1.pdf").arg(number)), 12);
        }
}

/// It takes no more than 247 files in a call; so three calls.
bool convertAll(const QString &office, const QTemporaryDir &folder)
{
    const QString target = folder.filePath("pdf");
    QDir(target).removeRecursively();
    for (int first = 1; first <= bills; first += filesPerCall) {
        QStringList words{QStringLiteral("-env:UserInstallation=")
                              + QUrl::fromLocalFile(folder.filePath("profile")).toString(),
                          "--headless",
                          "--convert-to",
                          "pdf",
                          "--outdir",
                          target};
        for (int number = first; number <= std::min(bills, first + filesPerCall - 1); ++number)
            words << folder.filePath(QString("%1.rtf").arg(number));
        QProcess converter;
        converter.setStandardOutputFile(QProcess::nullDevice());
        converter.setStandardErrorFile(QProcess::nullDevice());
        converter.start(office, words);
        converter.waitForFinished(-1);
    }
    return QDir(target).entryList({"*.pdf"}).size() == bills;
}

void officeProgram(benchmark::State &state)
{
    const QString office = QStandardPaths::findExecutable(QStringLiteral("soffice"));
    if (office.isEmpty())
        return state.SkipWithError("soffice is not installed");
    const QTemporaryDir folder;
    for (int number = 1; number <= bills; ++number) {
        fillMaster(number);
        reporter().SaveMasterFile(folder.filePath(QString("%1.rtf").arg(number)));
    }
    for ([[maybe_unused]] const auto round : state)
        if (!convertAll(office, folder))
            return state.SkipWithError("soffice did not make all files");
}

void toOneReport(benchmark::State &state)
{
    const QTemporaryDir folder;
    const QString rtf = folder.filePath("bill.rtf");
    const auto count = int(state.range(0));
    for ([[maybe_unused]] const auto round : state) {
        for (int number = 1; number <= count; ++number) {
            reporter().initReport(number == 1);
            if (number == 1)
                reporter().LoadPageSetup(billTemplate);
            else
                reporter().SetFontSizeBeforeAppendFile(QStringLiteral("\f"), 2);
            fillMaster(number);
            reporter().SaveMasterFile(rtf);
            reporter().AppendFile(rtf);
        }
        reporter().SaveToPDF(folder.filePath("report.pdf"), 12);
        if (!reporter().LastError().isEmpty())
            return state.SkipWithError(reporter().LastError().toUtf8().constData());
    }
    state.SetItemsProcessed(state.iterations() * count);
}

void filledRtf(benchmark::State &state)
{
    const QTemporaryDir folder;
    int number = 0;
    for ([[maybe_unused]] const auto round : state) {
        fillMaster(++number);
        reporter().SaveMasterFile(folder.filePath("bill.rtf"));
    }
}

/// From Preview to the first page on the screen: the template read again, filled, laid out, shown.
void previewed(benchmark::State &state)
{
    int number = 0;
    for ([[maybe_unused]] const auto round : state) {
        reporter().newreportnew(billTemplate);
        fill([](const QString &name, const PlaceholderValue &value) { reporter().SetText(name, value); }, ++number);
        reporter().ShowReport(false);
        QCoreApplication::processEvents();
        state.PauseTiming();
        bool shown = false;
        for (QWidget *window : QApplication::topLevelWidgets())
            shown = (window->objectName() == QLatin1String("ReportViewer") && window->close()) || shown;
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        state.ResumeTiming();
        if (!shown)
            return state.SkipWithError("no preview");
    }
}

const int registered = [] {
    benchmark::RegisterBenchmark(filesName, toFiles)->Arg(bills)->Unit(benchmark::kMillisecond)->UseRealTime();
    benchmark::RegisterBenchmark(officeName, officeProgram)
        ->Unit(benchmark::kMillisecond)
        ->Iterations(1)
        ->UseRealTime();
    benchmark::RegisterBenchmark(singlyName, singly)->Unit(benchmark::kMillisecond)->Iterations(1);
    for (const int count : {bills, 10 * bills}) {
        benchmark::RegisterBenchmark("bills to PDF files, growth", toFiles)
            ->Arg(count)
            ->Unit(benchmark::kMillisecond)
            ->Iterations(1);
        benchmark::RegisterBenchmark("bills to one report, growth", toOneReport)
            ->Arg(count)
            ->Unit(benchmark::kMillisecond)
            ->Iterations(1);
    }
    benchmark::RegisterBenchmark("a filled RTF", filledRtf)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("a bill's preview, first page", previewed)->Unit(benchmark::kMillisecond);
    compare("500 bills to 500 PDF files", filesName, officeName, 0.05);
    return 0;
}();

} // namespace

} // namespace ledgora::bench
