#include "ReportCommand.h"

#include "CommandLine.h"
#include "Commands.h"
#include "Office.h"
#include "host/WorkingState.h"
#include "masters/ClientGroups.h"
#include "masters/CompanyStore.h"
#include "platform/Reporter.h"
#include "reports/ReportCsv.h"
#include "reports/ReportParties.h"
#include "reports/ReportRows.h"
#include "reports/ReportText.h"
#include "reports/Reports.h"
#include "store/Connection.h"
#include "store/Dates.h"
#include "store/FailureWatch.h"
#include "store/NumberFormat.h"
#include "store/Settings.h"
#include <QCommandLineParser>
#include <QFileInfo>
#include <algorithm>
#include <cstdio>
#include <iterator>
#include <utility>

namespace ledgora::app {

namespace {

constexpr const char *kinds[] = {"bills", "receipts", "pending", "outstanding", "discount", "tds", "sac", "account"};

struct DetailWord
{
    const char *word;
    bool PartyDetails::*detail;
};
constexpr DetailWord detailWords[] = {
    {"address", &PartyDetails::address}, {"phone", &PartyDetails::phone}, {"email", &PartyDetails::email},
    {"mobile", &PartyDetails::mobile},   {"fax", &PartyDetails::fax},     {"gstin", &PartyDetails::gstin},
    {"pan", &PartyDetails::pan},
};

/// Options that one kind takes alone. The period is for all kinds but Outstanding.
constexpr std::pair<const char *, ReportKind> ownOptions[] = {
    {"as-on", ReportKind::Outstanding},  {"upto", ReportKind::Outstanding}, {"amount", ReportKind::Outstanding},
    {"either", ReportKind::Outstanding}, {"sac", ReportKind::Sac},          {"bill-numbers", ReportKind::Account},
};

/// A report that passed over one of its words would answer another question. "" or which option is not the kind's.
QString strayOption(const QCommandLineParser &parser, ReportKind kind)
{
    const auto stray = [kind](const char *option) {
        return QStringLiteral("report %1 takes no --%2").arg(QLatin1String(kinds[int(kind)]), QLatin1String(option));
    };
    for (const auto &[option, owner] : ownOptions) {
        if (kind != owner && parser.isSet(QLatin1String(option)))
            return stray(option);
    }
    for (const char *option : {"from", "to"}) {
        if (kind == ReportKind::Outstanding && parser.isSet(QLatin1String(option)))
            return stray(option);
    }
    return {};
}

QString shownDate(QDate day)
{
    return formatDate(day, QStringLiteral("DD/MM/YYYY"));
}

/// The option's date; one left out is "", and a fault where it must be told.
QString readDate(const QCommandLineParser &parser, const char *option, bool mustBeTold, QString &date)
{
    const QString name = QLatin1String(option);
    if (!parser.isSet(name))
        return mustBeTold ? QString("report needs --" + name) : QString();
    const auto day = dateArgument(parser.value(name));
    date = day ? shownDate(*day) : QString();
    return day ? QString() : QString("--" + name + " takes a date, DD/MM/YYYY or YYYY-MM-DD");
}

QString readDates(const QCommandLineParser &parser, ReportRequest &asked)
{
    const bool hasPeriod = asked.kind != ReportKind::Outstanding;
    for (const QString &fault :
         {readDate(parser, "from", hasPeriod, asked.from), readDate(parser, "to", hasPeriod, asked.to),
          readDate(parser, "as-on", false, asked.asOn), readDate(parser, "upto", false, asked.billsUpTo)}) {
        if (!fault.isEmpty())
            return fault;
    }
    if (hasPeriod && DateFromText(asked.from) > DateFromText(asked.to))
        return QStringLiteral("--from must not be later than --to");
    return {};
}

QString readDetails(const QString &list, PartyDetails &details)
{
    for (const QString &word : list.split(u',', Qt::SkipEmptyParts)) {
        const auto known = std::find_if(std::begin(detailWords), std::end(detailWords), [&word](const DetailWord &d) {
            return word.trimmed() == QLatin1String(d.word);
        });
        if (known == std::end(detailWords))
            return QStringLiteral("--print takes address, phone, email, mobile, fax, gstin and pan, with commas");
        details.*known->detail = true;
    }
    return {};
}

/// "all", "blank" or a code, as an entry of the list of services.
QString readSac(const QString &text, int &entry)
{
    if (text.isEmpty() || text == QLatin1String("all"))
        return {};
    for (entry = 1; entry < int(std::size(sacEntries)); ++entry) {
        const QString known = QLatin1String(sacEntries[entry]);
        if (known.startsWith(text + " - ") || (entry == 1 && text == QLatin1String("blank")))
            return {};
    }
    return QStringLiteral("--sac takes all, blank or one of the codes 998221 to 998240");
}

QString readAmounts(const QStringList &tests, std::array<AmountTest, 2> &amounts)
{
    if (tests.size() > qsizetype(amounts.size()))
        return QStringLiteral("--amount is taken at most twice");
    for (qsizetype i = 0; i < tests.size(); ++i) {
        if (!readAmountTest(tests.at(i), amounts.at(size_t(i))))
            return QStringLiteral("--amount takes a comparison and a number, as \">1000\"");
    }
    return {};
}

QString readFile(const QString &out)
{
    const QString ending = QFileInfo(out).suffix().toLower();
    const bool known =
        QStringList{QStringLiteral("pdf"), QStringLiteral("txt"), QStringLiteral("csv")}.contains(ending);
    return known ? QString() : QStringLiteral("report needs --out: a file that ends with .pdf, .txt or .csv");
}

/// Ticks the parties that are asked for: all, those of the codes, those of the group. "" or which one is not there.
QString tickParties(Connection &db, const ReportOptions &options, ReportRequest &asked)
{
    Cells &parties = asked.parties;
    if (!options.group.isEmpty()) {
        const std::vector<ClientGroup> groups = clientGroups(db, gHostCode);
        const auto group = std::ranges::find_if(groups, [&options](const ClientGroup &offered) {
            return options.group.compare(offered.code, Qt::CaseInsensitive) == 0
                   || options.group.compare(offered.name, Qt::CaseInsensitive) == 0;
        });
        const QString codes = group == groups.end() ? QString() : GETGROUPCLS(db, group->code);
        if (codes.isEmpty())
            return "No Client in Group '" + options.group + "' !";
        asked.groupName = group->name;
        showGroup(parties, codes);
    }
    for (int row = parties.fixedRows(); row < parties.rows() && options.parties.isEmpty(); ++row)
        parties.setText(row, ListedTick, QStringLiteral("Y"));
    for (const QString &code : options.parties) {
        const int row = parties.find(code, ListedCode, parties.fixedRows());
        if (row < 0)
            return "there is no client with the code " + code;
        parties.setText(row, ListedTick, QStringLiteral("Y"));
    }
    asked.rows = tickedRows(parties);
    return asked.rows.empty() ? QStringLiteral("No Client Selection !") : QString();
}

QString writeReport(Connection &db, const ReportRequest &asked, const QString &out)
{
    const QString ending = QFileInfo(out).suffix().toLower();
    if (ending == QLatin1String("pdf")) {
        if (const ReportResult made = makeReport(db, asked, *gReporter, unwatched()); !made.fault.isEmpty())
            return made.fault;
        gReporter->SaveToPDF(out, 0);
        return gReporter->LastError(); // it names the file
    }
    ReportRows rows;
    if (const ReportResult made = makeReport(db, asked, rows, unwatched()); !made.fault.isEmpty())
        return made.fault;
    const QString fault = ending == QLatin1String("csv") ? saveReportCsv(rows, out) : saveReportText(rows, out);
    return fault.isEmpty() ? QString() : QString(out + ": " + fault);
}

/// What the office knows of the request: company and parties. "" or what is wrong.
QString readOffice(Connection &db, const ReportOptions &report, ReportRequest &asked)
{
    Recordset company = companyRow(db, asked.firmId);
    if (!company.next())
        return QStringLiteral("there is no company with the number %1").arg(asked.firmId);
    asked.firmName = company.text(QStringLiteral("Nm"));
    asked.properCase =
        Val(GETSETTININI(QStringLiteral("Settings"), QStringLiteral("NameAdd_BR"), QStringLiteral("0"))) == 0;
    asked.parties = emptyReportParties();
    loadReportParties(db, gHostCode, asked.parties);
    return tickParties(db, report, asked);
}

int makeAsked(const ReportOptions &report, Connection &db)
{
    ReportRequest asked = report.asked;
    if (asked.asOn.isEmpty())
        asked.asOn = shownDate(today());
    if (!asked.billsUpTo.isEmpty() && DateFromText(asked.billsUpTo) > DateFromText(asked.asOn))
        return failed(QStringLiteral("--upto must not be later than --as-on"));
    const FailureWatch watch(db);
    QString fault = readOffice(db, report, asked);
    if (watch.failed()) // what was not read is not missing
        fault = watch.fault();
    if (fault.isEmpty())
        fault = writeReport(db, asked, report.out);
    return fault.isEmpty() ? 0 : failed(fault);
}

} // namespace

void addReportOptions(QCommandLineParser &parser)
{
    parser.addPositionalArgument(
        QStringLiteral("KIND"),
        QStringLiteral("bills, receipts, pending, outstanding, discount, tds, sac or account."));
    parser.addOptions(
        {{QStringLiteral("firm"), QStringLiteral("Number of the company (must be given)."), QStringLiteral("ID")},
         {QStringLiteral("from"),
          QStringLiteral("First day of the period, DD/MM/YYYY or YYYY-MM-DD (must be given; not for "
                         "outstanding)."),
          QStringLiteral("DATE")},
         {QStringLiteral("to"), QStringLiteral("Last day of the period (must be given; not for outstanding)."),
          QStringLiteral("DATE")},
         {QStringLiteral("as-on"), QStringLiteral("outstanding: what is due on this day (default today)."),
          QStringLiteral("DATE")},
         {QStringLiteral("upto"), QStringLiteral("outstanding: only for bills issued up to this day (default all)."),
          QStringLiteral("DATE")},
         {QStringLiteral("amount"),
          QStringLiteral("outstanding: only totals that pass, as \">1000\" or \"<=500\"; may be given twice "
                         "(default all that is due)."),
          QStringLiteral("TEST")},
         {QStringLiteral("either"), QStringLiteral("outstanding: of two tests one is enough (default both).")},
         {QStringLiteral("party"), QStringLiteral("Code of a client; may be given again (default all clients)."),
          QStringLiteral("CODE")},
         {QStringLiteral("group"), QStringLiteral("Name or code of a group of clients, host G (default all clients)."),
          QStringLiteral("GROUP")},
         {QStringLiteral("sac"), QStringLiteral("sac: one code, blank for lines without one, or all (default all)."),
          QStringLiteral("CODE")},
         {QStringLiteral("print"),
          QStringLiteral("What to print with the names: address,phone,email,mobile,fax,gstin,pan (default the "
                         "names alone)."),
          QStringLiteral("LIST")},
         {QStringLiteral("bill-numbers"),
          QStringLiteral("account: a receipt's bills beside its number (default without).")},
         {QStringLiteral("out"), QStringLiteral("The file: .pdf, .txt or .csv (must be given)."),
          QStringLiteral("FILE")}});
}

QString readReportOptions(const QCommandLineParser &parser, ReportOptions &options)
{
    const QStringList words = parser.positionalArguments();
    const auto kind = std::find(std::begin(kinds), std::end(kinds), words.value(0));
    if (words.size() != 1 || kind == std::end(kinds))
        return QStringLiteral(
            "report needs a kind: bills, receipts, pending, outstanding, discount, tds, sac or account");
    const auto value = [&parser](const char *name) { return parser.value(QLatin1String(name)); };
    ReportRequest &asked = options.asked;
    asked.kind = ReportKind(kind - std::begin(kinds));
    asked.firmId = value("firm").toInt();
    if (asked.firmId < 1)
        return QStringLiteral("--firm takes a company's number");
    options.parties = parser.values(QStringLiteral("party"));
    options.group = value("group");
    options.out = value("out");
    asked.bothAmounts = !parser.isSet(QStringLiteral("either"));
    asked.billNumbers = parser.isSet(QStringLiteral("bill-numbers"));
    for (const QString &fault :
         {strayOption(parser, asked.kind), readDates(parser, asked), readDetails(value("print"), asked.details),
          readSac(value("sac"), asked.sac), readAmounts(parser.values(QStringLiteral("amount")), asked.amounts),
          readFile(options.out)}) {
        if (!fault.isEmpty())
            return fault;
    }
    return {};
}

bool readAmountTest(const QString &text, AmountTest &test)
{
    constexpr std::pair<const char *, int> comparisons[] = {{">=", 3}, {"<=", 4}, {"!=", 6}, {"<>", 6},
                                                            {">", 1},  {"<", 2},  {"=", 5}};
    for (const auto &[sign, comparison] : comparisons) {
        if (!text.startsWith(QLatin1String(sign)))
            continue;
        const QString number = text.mid(QLatin1String(sign).size()).trimmed();
        test = {comparison, Val(number)};
        return isNumeric(number);
    }
    return false;
}

int runReportCommand(const CommandLine &line)
{
    return inBilling(line, Folder::MustBeThere,
                     [&line](Office &office, ClsGST &) { return makeAsked(line.report, office.connection()); });
}

} // namespace ledgora::app
