#include "CommandLine.h"

#include "Office.h"
#include <QCommandLineParser>
#include <QStandardPaths>

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
     "ledgora balance --firm ID --party CODE: what a client owes a company, in rupees"},
};

void addOptions(QCommandLineParser &parser, CommandLine::Command command)
{
    parser.addOption({QStringLiteral("data"), QStringLiteral("Data folder of the office."), QStringLiteral("DIR")});
    parser.addOption({QStringLiteral("today"), QStringLiteral("Work as on this day (DD/MM/YYYY or YYYY-MM-DD)."),
                      QStringLiteral("DATE")});
    parser.addOption({{QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("Show this help.")});
    if (command != CommandLine::Command::Demo)
        parser.addOption({QStringLiteral("host"),
                          QStringLiteral("Host to play, with its clients and folders: C, G or T (default C)."),
                          QStringLiteral("CODE")});
    switch (command) {
    case CommandLine::Command::Demo:
        parser.addOption(
            {QStringLiteral("out"), QStringLiteral("Folder for the office and the PDF files."), QStringLiteral("DIR")});
        break;
    case CommandLine::Command::Balance:
        parser.addOption({QStringLiteral("firm"), QStringLiteral("Number of the company."), QStringLiteral("ID")});
        parser.addOption({QStringLiteral("party"), QStringLiteral("Code of the client."), QStringLiteral("CODE")});
        break;
    default:
        parser.addOption(
            {QStringLiteral("open"), QStringLiteral("Open a home screen at once: gst."), QStringLiteral("SCREEN")});
        parser.addOption({QStringLiteral("version"), QStringLiteral("Show the version.")});
    }
}

QString helpText(const QCommandLineParser &parser, CommandLine::Command command)
{
    QString text = parser.helpText();
    if (command != CommandLine::Command::Window)
        return text;
    text += QStringLiteral("\nCommands without a window (each with --help):\n");
    for (const Words &words : commands)
        text += QStringLiteral("  ") + QLatin1String(words.description) + u'\n';
    return text;
}

QString fault(const CommandLine &line, const QCommandLineParser &parser)
{
    if (!parser.positionalArguments().isEmpty())
        return QStringLiteral("unknown command \"") + parser.positionalArguments().first() + u'"';
    if (parser.isSet(QStringLiteral("today")) && !line.today.isValid())
        return QStringLiteral("--today takes a date, DD/MM/YYYY or YYYY-MM-DD");
    if (!line.open.isEmpty() && line.open != QLatin1String("gst"))
        return QStringLiteral("--open takes gst");
    if (!Office::hostCodes().contains(line.host))
        return QStringLiteral("--host takes C, G or T");
    if (line.command == CommandLine::Command::Demo && line.out.isEmpty())
        return QStringLiteral("demo needs --out DIR");
    if (line.command == CommandLine::Command::Balance && (line.firm < 1 || line.party.isEmpty()))
        return QStringLiteral("balance needs --firm ID and --party CODE");
    return {};
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
    for (const Words &known : commands) {
        if (words.size() > 1 && words.at(1) == QLatin1String(known.name)) {
            line.command = known.command;
            words.removeAt(1);
            break;
        }
    }
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
    if (parser.optionNames().contains(QStringLiteral("host")))
        line.host = value("host");
    line.open = value("open");
    line.out = value("out");
    line.party = value("party");
    line.firm = value("firm").toInt();
    line.today = dateArgument(value("today")).value_or(QDate());
    line.dataFolder = value("data");
    if (line.dataFolder.isEmpty())
        line.dataFolder =
            QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + QStringLiteral("/ledgora");
    if (parser.isSet(QStringLiteral("help"))) {
        line.text = helpText(parser, line.command);
        line.command = CommandLine::Command::Help;
    } else if (parser.optionNames().contains(QStringLiteral("version"))) {
        line.command = CommandLine::Command::Version;
    } else if (const QString said = fault(line, parser); !said.isEmpty()) {
        return wrong(said);
    }
    return line;
}

} // namespace ledgora::app
