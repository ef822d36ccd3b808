#include "PaperCommands.h"

#include "CommandLine.h"
#include "Commands.h"
#include "Office.h"
#include "components/TemplateText.h"
#include "documents/ReadyDocuments.h"
#include "host/WorkingState.h"
#include "masters/CompanyStore.h"
#include "store/Connection.h"
#include "store/ErrorLog.h"
#include "store/FailureWatch.h"
#include "store/Settings.h"
#include <QCommandLineParser>
#include <csignal>
#include <cstdio>
#include <optional>
#include <unistd.h>

namespace ledgora::app {

namespace {

volatile std::sig_atomic_t interrupted = 0;

/// Ctrl+C ends a run between two documents, so that nothing it made on the way stays.
class InterruptGuard
{
public:
    InterruptGuard() : m_formerInt(std::signal(SIGINT, note)), m_formerTerm(std::signal(SIGTERM, note)) {}
    InterruptGuard(const InterruptGuard &) = delete;
    InterruptGuard &operator=(const InterruptGuard &) = delete;
    ~InterruptGuard()
    {
        std::signal(SIGINT, m_formerInt);
        std::signal(SIGTERM, m_formerTerm);
    }

private:
    static void note(int) { interrupted = 1; }

    void (*m_formerInt)(int);
    void (*m_formerTerm)(int);
};

/// A positive number; 0 for anything else.
int positive(const QString &text)
{
    bool isNumber = false;
    const int value = text.toInt(&isNumber);
    return isNumber && value > 0 ? value : 0;
}

/// "7" or "7-12".
std::optional<DocumentChoice::Numbers> numbersOf(const QString &text)
{
    const QStringList ends = text.split(u'-');
    const DocumentChoice::Numbers range{positive(ends.first()), positive(ends.last())};
    const bool valid = ends.size() <= 2 && range.from > 0 && range.from <= range.to;
    return valid ? std::optional(range) : std::nullopt;
}

/// "2024" or "2024-25".
int yearOf(const QString &text)
{
    constexpr int firstYear = 2017;
    constexpr int lastYear = 9998;
    const int year = positive(text.left(4));
    const QString end = QStringLiteral("%1").arg((year + 1) % 100, 2, 10, QLatin1Char('0'));
    const bool valid = text.size() == 4 || text == text.left(4) + u'-' + end;
    return valid && year >= firstYear && year <= lastYear ? year : 0;
}

QString readDay(const QCommandLineParser &parser, const QString &option, QDate &day)
{
    if (!parser.isSet(option))
        return {};
    day = dateArgument(parser.value(option)).value_or(QDate());
    return day.isValid()
               ? QString()
               : QString(QStringLiteral("--") + option + QStringLiteral(" takes a date, DD/MM/YYYY or YYYY-MM-DD"));
}

QString readChoice(const QCommandLineParser &parser, DocumentChoice &choice)
{
    choice.firmId = positive(parser.value(QStringLiteral("firm")));
    if (choice.firmId == 0)
        return QStringLiteral("--firm takes a company's number");
    for (const QString &text : parser.values(QStringLiteral("number"))) {
        const auto numbers = numbersOf(text);
        if (!numbers)
            return QStringLiteral("--number takes a number, or two with - between them");
        choice.numbers.push_back(*numbers);
    }
    choice.parties = parser.values(QStringLiteral("party"));
    choice.seriesId = positive(parser.value(QStringLiteral("series")));
    if (parser.isSet(QStringLiteral("series")) && choice.seriesId == 0)
        return QStringLiteral("--series takes a series' number");
    choice.year = yearOf(parser.value(QStringLiteral("fy")));
    if (parser.isSet(QStringLiteral("fy")) && choice.year == 0)
        return QStringLiteral("--fy takes a financial year, 2024 or 2024-25");
    QString fault = readDay(parser, QStringLiteral("from"), choice.from);
    if (fault.isEmpty())
        fault = readDay(parser, QStringLiteral("to"), choice.to);
    return fault;
}

Progress toldOnTerminal(bool quiet)
{
    const bool told = !quiet && isatty(STDERR_FILENO);
    return [told](qint64 done, qint64 total, const QString &what) {
        constexpr auto overTheLine = "\r\x1B[K";
        if (told)
            std::fprintf(stderr, "%s%lld/%lld %s", overTheLine, static_cast<long long>(done),
                         static_cast<long long>(total), qPrintable(what));
        return interrupted == 0;
    };
}

void endProgress(bool quiet)
{
    if (!quiet && isatty(STDERR_FILENO))
        std::fputc('\n', stderr);
}

/// What came of the run, one line for each document that could not be made.
int report(const PaperOptions &options, const RunResult &result)
{
    for (const QString &failure : result.failures)
        failed(failure);
    if (!result.fault.isEmpty())
        return failed(result.fault);
    const QString noun = documentNoun(options.kind).toLower() + (result.documents == 1 ? u"" : u"s");
    if (!options.quiet && result.documents > 0 && !result.files.isEmpty())
        std::printf("%d %s written to [%s].\n", result.documents, qPrintable(noun), qPrintable(options.out));
    return result.whole() ? 0 : 1;
}

int writeChosen(const PaperOptions &options, Connection &db)
{
    const FailureWatch watch(db);
    const bool hasCompany = companyRow(db, options.choice.firmId).next();
    const QList<int> ids = chosenDocuments(db, options.kind, options.choice);
    if (watch.failed()) // what was not read is not missing
        return failed(watch.fault());
    if (!hasCompany)
        return failed(QStringLiteral("there is no company with the number %1").arg(options.choice.firmId));
    gFirmId = options.choice.firmId;
    READTMPLSETUP();
    if (ids.isEmpty())
        return failed(QStringLiteral("No Record Found."));
    const InterruptGuard guard;
    const Progress progress = toldOnTerminal(options.quiet);
    const DocumentFiles files{.folder = options.out, .format = options.format, .partyInName = true};
    const RunResult result =
        options.one ? writeOneDocument(db, *gReporter, options.kind, ids, options.out, options.format, progress)
                    : writeEachDocument(db, *gReporter, options.kind, ids, files, progress);
    endProgress(options.quiet);
    return report(options, result);
}

} // namespace

void addPaperOptions(QCommandLineParser &parser)
{
    parser.addOptions(
        {{QStringLiteral("firm"), QStringLiteral("Number of the company (must be given)."), QStringLiteral("ID")},
         {QStringLiteral("number"),
          QStringLiteral("Number, or first and last number; may be given again (default all)."),
          QStringLiteral("N[-M]")},
         {QStringLiteral("party"), QStringLiteral("Code of the client; may be given again (default all)."),
          QStringLiteral("CODE")},
         {QStringLiteral("series"), QStringLiteral("Number of the series (default all)."), QStringLiteral("ID")},
         {QStringLiteral("fy"), QStringLiteral("Financial year, 2024 or 2024-25 (default all)."),
          QStringLiteral("YEAR")},
         {QStringLiteral("from"), QStringLiteral("From this day on, DD/MM/YYYY or YYYY-MM-DD (default the first)."),
          QStringLiteral("DATE")},
         {QStringLiteral("to"), QStringLiteral("Up to this day (default the last)."), QStringLiteral("DATE")},
         {QStringLiteral("out"),
          QStringLiteral("Folder for a file of each document; with --one the file of all (must be given)."),
          QStringLiteral("DIR|FILE")},
         {QStringLiteral("format"), QStringLiteral("pdf or rtf (default pdf)."), QStringLiteral("FORMAT")},
         {QStringLiteral("one"),
          QStringLiteral("All documents in one file, each on a page of its own (default a file each).")},
         {QStringLiteral("quiet"), QStringLiteral("Tell nothing but failures.")}});
}

void addTemplateOptions(QCommandLineParser &parser)
{
    parser.addPositionalArgument(QStringLiteral("check FILE"), QStringLiteral("The template to check."));
    parser.addOption({QStringLiteral("kind"),
                      QStringLiteral("What it is for: intra, inter, notax or receipt (default as the file's name "
                                     "tells: GST_Intra_Bill_2Copy.doc)."),
                      QStringLiteral("KIND")});
}

QString readPaperOptions(const QCommandLineParser &parser, DocumentKind kind, PaperOptions &options)
{
    options.kind = kind;
    options.out = parser.value(QStringLiteral("out"));
    options.one = parser.isSet(QStringLiteral("one"));
    options.quiet = parser.isSet(QStringLiteral("quiet"));
    const QString format = parser.value(QStringLiteral("format"));
    options.format = format == QLatin1String("rtf") ? DocumentFormat::Rtf : DocumentFormat::Pdf;
    if (!format.isEmpty() && format != QLatin1String("rtf") && format != QLatin1String("pdf"))
        return QStringLiteral("--format takes pdf or rtf");
    if (options.out.isEmpty())
        return documentNoun(kind).toLower()
               + QStringLiteral("s needs --out: a folder, or with --one the file of all documents");
    return readChoice(parser, options.choice);
}

QString readTemplateOptions(const QCommandLineParser &parser, TemplateOptions &options)
{
    const QStringList words = parser.positionalArguments();
    if (words.size() != 2 || words.first() != QLatin1String("check"))
        return QStringLiteral("template needs check FILE");
    options.file = words.last();
    const auto named = templateUseOf(options.file);
    options.use = named.value_or(TemplateUse());
    if (!parser.isSet(QStringLiteral("kind")))
        return named ? QString() : QStringLiteral("the file's name does not tell its kind; --kind does");
    const auto kind = templateKindOf(parser.value(QStringLiteral("kind")));
    options.use.kind = kind.value_or(TemplateKind::Intra);
    return kind ? QString() : QStringLiteral("--kind takes intra, inter, notax or receipt");
}

int runPaperCommand(const CommandLine &line)
{
    return inBilling(line, Folder::MustBeThere, [&line](Office &office, ClsGST &) {
        const ErrorSite site("LEDGORA", line.paper.kind == DocumentKind::Bill ? "BILLS" : "RECEIPTS");
        return writeChosen(line.paper, office.connection());
    });
}

int runTemplateCheck(const TemplateOptions &options)
{
    QString fault;
    const QString text = templateText(options.file, fault);
    if (!fault.isEmpty())
        return failed(options.file + QStringLiteral(": ") + fault);
    const QStringList findings = templateFindings(options.use, text);
    for (const QString &finding : findings)
        std::printf("%s\n", qPrintable(finding));
    return findings.isEmpty() ? 0 : 1;
}

} // namespace ledgora::app
