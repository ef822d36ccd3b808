#include "CommandLine.h"

#include "store/Schema.h"
#include <QCommandLineParser>
#include <QStandardPaths>
#include <algorithm>
#include <iterator>
#include <vector>

namespace ledgora::app {

namespace {

CommandLine wrong(const QString &text)
{
    CommandLine line;
    line.command = CommandLine::Command::Wrong;
    line.text = text;
    return line;
}

struct Words
{
    const char *name;
    CommandLine::Command command;
    const char *description;
};
constexpr Words commands[] = {
    {"demo", CommandLine::Command::Demo,
     "ledgora demo --out DIR: make a new office in DIR and key in bills as a clerk would"},
    {"balance", CommandLine::Command::Balance,
     "ledgora balance --firm ID --party CODE: what a client owes a company, in rupees; with --all instead of --party: "
     "what every client owes, code, name and rupees with tabs between, and the total"},
    {"sample", CommandLine::Command::Sample,
     "ledgora sample --data DIR: fill an empty office with companies, clients, bills and receipts, the same ones "
     "for the same seed"},
    {"check", CommandLine::Command::Check,
     "ledgora check --data DIR: look for incomplete bills and receipts, wrong totals, bills settled beyond their "
     "total, missing numbers and lost clients; one line a finding, exit status 1 when there is any"},
    {"backup", CommandLine::Command::Backup,
     "ledgora backup --data DIR --out FILE: write all data into one file, proved by restoring it aside"},
    {"restore", CommandLine::Command::Restore,
     "ledgora restore --data DIR --from FILE: put the data of a backup in place of the office's"},
    {"bills", CommandLine::Command::Bills,
     "ledgora bills --firm ID --out DIR: write bills as PDF or RTF files, one a bill, or all into one"},
    {"receipts", CommandLine::Command::Receipts,
     "ledgora receipts --firm ID --out DIR: write receipts as PDF or RTF files, one a receipt, or all into one"},
    {"template", CommandLine::Command::Template,
     "ledgora template check FILE: look for misspelt and missing fields in a template; one line a finding, exit status "
     "1 when there is any"},
    {"report", CommandLine::Command::Report,
     "ledgora report KIND --firm ID --from DATE --to DATE --out FILE: write a report of bills, receipts, pending "
     "bills, "
     "outstanding, discount, tds, sac or client account as PDF, text or csv"},
};

/// The options of the commands that look after the data, beyond those that all have.
struct OptionWords
{
    CommandLine::Command command;
    const char *name;
    const char *value; ///< "" for an option without one
    const char *description;
};
constexpr OptionWords careOptions[] = {
    {CommandLine::Command::Sample, "seed", "N", "The same number gives the same data (default 1)."},
    {CommandLine::Command::Sample, "companies", "N", "Billing companies (default 2)."},
    {CommandLine::Command::Sample, "parties", "N", "Clients (default 200)."},
    {CommandLine::Command::Sample, "bills", "N", "Bills of all companies and years together (default 1000)."},
    {CommandLine::Command::Sample, "receipts", "N",
     "Of a hundred bills, those on which something was received (default 85)."},
    {CommandLine::Command::Sample, "from", "YEAR", "First financial year, by its starting year (default 2017)."},
    {CommandLine::Command::Sample, "to", "YEAR",
     "Last financial year (default the present one, whose bills end today)."},
    {CommandLine::Command::Check, "firm", "ID", "Check the bills and receipts of one company (default all companies)."},
    {CommandLine::Command::Backup, "out", "FILE",
     "The backup file; one of that name is replaced when the new is whole (must be given, or --daily)."},
    {CommandLine::Command::Backup, "daily", "",
     "Instead of --out: today's backup in DIR/backups, unless it is there; the last 7 days and 8 weeks are kept."},
    {CommandLine::Command::Restore, "from", "FILE", "The backup file (must be given)."},
};

void addCareOptions(QCommandLineParser &parser, CommandLine::Command command)
{
    for (const OptionWords &option : careOptions) {
        if (option.command == command)
            parser.addOption(
                {QLatin1String(option.name), QLatin1String(option.description), QLatin1String(option.value)});
    }
}

void addOptions(QCommandLineParser &parser, CommandLine::Command command)
{
    parser.addOption({{QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("Show this help.")});
    if (command != CommandLine::Command::Template)
        parser.addOption({QStringLiteral("today"),
                          QStringLiteral("Work as on this day, DD/MM/YYYY or YYYY-MM-DD (default the real day)."),
                          QStringLiteral("DATE")});
    if (command != CommandLine::Command::Demo && command != CommandLine::Command::Template) {
        parser.addOption(
            {QStringLiteral("data"),
             QStringLiteral("Data folder of the office (default ledgora in the user's data folder, ~/.local/share)."),
             QStringLiteral("DIR")});
        parser.addOption(
            {QStringLiteral("connect"),
             QStringLiteral("Use the office's shared server, mysql://user@server/database (default the one "
                            "saved in the data folder, else the folder's own server)."),
             QStringLiteral("URL")});
        parser.addOption({QStringLiteral("password-file"),
                          QStringLiteral("File of mode 0600 whose first line is the password of the shared server "
                                         "(default: you are asked)."),
                          QStringLiteral("FILE")});
        parser.addOption(
            {QStringLiteral("host"),
             QStringLiteral("Kind of host, with its clients and folders: C, G or T. An office is of one of them "
                            "and refuses another (default: the office's own, C for a new one)."),
             QStringLiteral("CODE")});
    }
    switch (command) {
    case CommandLine::Command::Demo:
        parser.addOption({QStringLiteral("out"),
                          QStringLiteral("Folder for the office and the PDF files (must be given)."),
                          QStringLiteral("DIR")});
        break;
    case CommandLine::Command::Balance:
        parser.addOption({QStringLiteral("firm"),
                          QStringLiteral("Number of the company (must be given; with --all default all companies)."),
                          QStringLiteral("ID")});
        parser.addOption(
            {QStringLiteral("all"),
             QStringLiteral("All clients whose balance is not 0; of all companies each with the company's name in "
                            "front.")});
        parser.addOption({QStringLiteral("party"), QStringLiteral("Code of the client (must be given, or --all)."),
                          QStringLiteral("CODE")});
        break;
    case CommandLine::Command::Sample:
    case CommandLine::Command::Check:
    case CommandLine::Command::Backup:
    case CommandLine::Command::Restore:
        addCareOptions(parser, command);
        break;
    case CommandLine::Command::Bills:
    case CommandLine::Command::Receipts:
        addPaperOptions(parser);
        break;
    case CommandLine::Command::Template:
        addTemplateOptions(parser);
        break;
    case CommandLine::Command::Report:
        addReportOptions(parser);
        break;
    default:
        parser.addOption({QStringLiteral("open"), QStringLiteral("Open a home screen at once: gst (default none)."),
                          QStringLiteral("SCREEN")});
        parser.addOption({QStringLiteral("version"), QStringLiteral("Show the version.")});
    }
}

/// Whether the next word belongs to this one, since an option of some command takes it as its value.
bool takesNext(const QString &word)
{
    std::vector<CommandLine::Command> all{CommandLine::Command::Window};
    for (const Words &known : commands)
        all.push_back(known.command);
    return std::ranges::any_of(all, [&word](CommandLine::Command command) {
        QCommandLineParser parser;
        addOptions(parser, command);
        return !parser.parse({QStringLiteral("ledgora"), word}) && parser.unknownOptionNames().isEmpty();
    });
}

/// Takes the command from among the words; options may stand before it.
CommandLine::Command takeCommand(QStringList &words)
{
    for (qsizetype place = 1; place < words.size(); ++place) {
        const QString word = words.at(place);
        if (word.startsWith(u'-')) {
            place += takesNext(word) ? 1 : 0;
            continue;
        }
        const auto *known =
            std::ranges::find_if(commands, [&word](const Words &each) { return word == QLatin1String(each.name); });
        if (known == std::end(commands))
            break;
        words.removeAt(place);
        return known->command;
    }
    return CommandLine::Command::Window;
}

QString helpText(const QCommandLineParser &parser, CommandLine::Command command)
{
    QString text = parser.helpText();
    QString usage = QStringLiteral("ledgora"); // the parser knows neither program nor command
    for (const Words &words : commands) {
        if (words.command == command) {
            usage += u' ' + QLatin1String(words.name);
            text += u'\n' + QLatin1String(words.description) + QStringLiteral(".\n");
        }
    }
    text.replace(0, text.indexOf(u'\n'), QStringLiteral("Usage: ") + usage + QStringLiteral(" [options]"));
    if (command != CommandLine::Command::Window)
        return text;
    text += QStringLiteral("\nCommands without a window (each with --help):\n");
    for (const Words &words : commands)
        text += QStringLiteral("  ") + QLatin1String(words.description) + u'\n';
    return text;
}

/// A number of an option; the default where it is left out, -1 where it is none.
int numberOption(const QCommandLineParser &parser, const char *name, int otherwise)
{
    bool isNumber = false;
    const QString option = QLatin1String(name);
    const int value = parser.isSet(option) ? parser.value(option).toInt(&isNumber) : otherwise;
    return isNumber || !parser.isSet(option) ? value : -1;
}

SamplePlan samplePlan(const QCommandLineParser &parser, QDate today)
{
    SamplePlan plan;
    plan.seed = numberOption(parser, "seed", plan.seed);
    plan.companies = numberOption(parser, "companies", plan.companies);
    plan.parties = numberOption(parser, "parties", plan.parties);
    plan.bills = numberOption(parser, "bills", plan.bills);
    plan.receipts = numberOption(parser, "receipts", plan.receipts);
    plan.from = numberOption(parser, "from", plan.from);
    plan.to = numberOption(parser, "to", plan.to);
    plan.today = today;
    return settledPlan(plan);
}

/// Whether the words are wrong for the commands that look after the data.
QString careFault(const CommandLine &line, const QCommandLineParser &parser)
{
    switch (line.command) {
    case CommandLine::Command::Sample:
        return planFault(line.sample);
    case CommandLine::Command::Check:
        return parser.isSet(QStringLiteral("firm")) && line.firm < 1 ? QStringLiteral("--firm takes a company's number")
                                                                     : QString();
    case CommandLine::Command::Backup:
        return line.out.isEmpty() == line.daily ? QString()
                                                : QStringLiteral("backup needs either --out FILE or --daily");
    case CommandLine::Command::Restore:
        return line.from.isEmpty() ? QStringLiteral("restore needs --from FILE") : QString();
    default:
        return {};
    }
}

QString balanceFault(const CommandLine &line, const QCommandLineParser &parser)
{
    if (line.all && !line.party.isEmpty())
        return QStringLiteral("balance takes either --party CODE or --all");
    if (line.all)
        return parser.isSet(QStringLiteral("firm")) && line.firm < 1 ? QStringLiteral("--firm takes a company's number")
                                                                     : QString();
    return line.firm < 1 || line.party.isEmpty() ? QStringLiteral("balance needs --firm ID and --party CODE, or --all")
                                                 : QString();
}

/// Takes the words of the commands for paper and reports; "" or what is wrong with them.
QString readPaper(CommandLine &line, const QCommandLineParser &parser)
{
    switch (line.command) {
    case CommandLine::Command::Bills:
        return readPaperOptions(parser, DocumentKind::Bill, line.paper);
    case CommandLine::Command::Receipts:
        return readPaperOptions(parser, DocumentKind::Receipt, line.paper);
    case CommandLine::Command::Template:
        return readTemplateOptions(parser, line.templ);
    case CommandLine::Command::Report:
        return readReportOptions(parser, line.report);
    default:
        return {};
    }
}

QString fault(const CommandLine &line, const QCommandLineParser &parser)
{
    const bool takesWords =
        line.command == CommandLine::Command::Template || line.command == CommandLine::Command::Report;
    if (!parser.positionalArguments().isEmpty() && !takesWords)
        return QStringLiteral("unknown command \"") + parser.positionalArguments().first() + u'"';
    for (const char *name : {"data", "connect", "password-file"}) {
        const QString option = QLatin1String(name);
        if (parser.optionNames().contains(option) && parser.value(option).isEmpty())
            return QStringLiteral("--") + option + QStringLiteral(" has an empty value");
    }
    if (parser.optionNames().contains(QStringLiteral("today")) && !line.today.isValid())
        return QStringLiteral("--today takes a date, DD/MM/YYYY or YYYY-MM-DD");
    if (!line.open.isEmpty() && line.open != QLatin1String("gst"))
        return QStringLiteral("--open takes gst");
    if (parser.optionNames().contains(QStringLiteral("host")) && !schemaHosts().contains(line.host))
        return QStringLiteral("--host takes C, G or T");
    ServerAddress address;
    if (const QString said = parser.optionNames().contains(QStringLiteral("connect"))
                                 ? readAddress(line.server.address, address)
                                 : QString();
        !said.isEmpty())
        return QStringLiteral("--connect: ") + said;
    if (line.command == CommandLine::Command::Demo && line.out.isEmpty())
        return QStringLiteral("demo needs --out DIR");
    if (line.command == CommandLine::Command::Balance)
        return balanceFault(line, parser);
    return careFault(line, parser);
}

} // namespace

std::optional<QDate> dateArgument(const QString &text)
{
    for (const char *format : {"dd/MM/yyyy", "yyyy-MM-dd"}) {
        if (const QDate date = QDate::fromString(text, QLatin1String(format)); date.isValid())
            return date;
    }
    return std::nullopt;
}

CommandLine readCommandLine(const QStringList &arguments)
{
    CommandLine line;
    QStringList words = arguments;
    line.command = takeCommand(words);
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Ledgora, billing for Indian tax practitioners and small accounting offices."));
    addOptions(parser, line.command);
    if (!parser.parse(words))
        return wrong(parser.errorText());
    const auto value = [&parser](const char *name) {
        const QString option = QLatin1String(name);
        return parser.optionNames().contains(option) ? parser.value(option) : QString();
    };
    line.host = value("host");
    line.open = value("open");
    line.out = value("out");
    line.party = value("party");
    line.firm = value("firm").toInt();
    line.today = dateArgument(value("today")).value_or(QDate());
    if (line.command == CommandLine::Command::Sample)
        line.sample = samplePlan(parser, line.today);
    else
        line.from = value("from");
    line.all = parser.optionNames().contains(QStringLiteral("all"));
    line.daily = parser.optionNames().contains(QStringLiteral("daily"));
    line.dataFolder = value("data");
    if (line.dataFolder.isEmpty())
        line.dataFolder =
            QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + QStringLiteral("/ledgora");
    line.server = value("connect").isEmpty() ? ServerChoice::saved(line.dataFolder)
                                             : ServerChoice{value("connect"), value("password-file")};
    if (!value("password-file").isEmpty())
        line.server.passwordFile = value("password-file");
    if (parser.isSet(QStringLiteral("help"))) {
        line.text = helpText(parser, line.command);
        line.command = CommandLine::Command::Help;
    } else if (parser.optionNames().contains(QStringLiteral("version"))) {
        line.command = CommandLine::Command::Version;
    } else if (const QString said = fault(line, parser); !said.isEmpty()) {
        return wrong(said);
    } else if (const QString saidOfPaper = readPaper(line, parser); !saidOfPaper.isEmpty()) {
        return wrong(saidOfPaper);
    }
    return line;
}

} // namespace ledgora::app
