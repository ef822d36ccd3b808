// The words of a call of the program.

#include "app/CommandLine.h"
#include "app/Commands.h"
#include "tests/support/Print.h"
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <unistd.h>

using namespace ledgora::app;
using Command = CommandLine::Command;

namespace {

struct Call
{
    const char *name;
    QStringList words; ///< behind the program's name
    Command command;
    const char *says = ""; ///< part of the text for wrong usage and help
};

class CommandLineCall : public testing::TestWithParam<Call>
{
};

TEST_P(CommandLineCall, IsUnderstood)
{
    const CommandLine line = readCommandLine(QStringList{"ledgora"} + GetParam().words);
    EXPECT_EQ(int(line.command), int(GetParam().command)) << line.text.toStdString();
    EXPECT_TRUE(line.text.contains(GetParam().says)) << line.text.toStdString();
}

/// A report of a year into a file, with further words.
QStringList report(const QStringList &words)
{
    return QStringList{"report", "--firm", "1", "--from", "01/04/2023", "--to", "2024-03-31", "--out", "x.PDF"} + words;
}

QStringList outstanding(const QStringList &words)
{
    return QStringList{"report", "outstanding", "--firm", "1", "--out", "x.txt"} + words;
}

INSTANTIATE_TEST_SUITE_P(
    Calls, CommandLineCall,
    testing::Values(
        Call{"Bare", {}, Command::Window}, Call{"OpenGst", {"--open", "gst"}, Command::Window},
        Call{"OpenElsewhere", {"--open", "moon"}, Command::Wrong, "--open"},
        Call{"OptionsFirst", {"--data", "demo", "--today=2024-06-15", "check", "--firm", "1"}, Command::Check},
        Call{"OptionsOfTheCommandFirst", {"--all", "--firm", "1", "balance"}, Command::Balance},
        Call{"UnknownCommandBehindOptions", {"--data", "x", "dmeo"}, Command::Wrong, "dmeo"},
        Call{"HelpFirst", {"--help", "check"}, Command::Help, "Usage: ledgora check"},
        Call{"NoFolder", {"check", "--data", ""}, Command::Wrong, "--data"},
        Call{"NoServer", {"--connect="}, Command::Wrong, "--connect"},
        Call{"OtherHost", {"--host", "G"}, Command::Window},
        Call{"UnknownHost", {"balance", "--firm", "1", "--party", "X", "--host", "g"}, Command::Wrong, "--host"},
        Call{"UnknownCommand", {"dmeo"}, Command::Wrong, "dmeo"},
        Call{"UnknownOption", {"--colour"}, Command::Wrong, "colour"},
        Call{"OptionOfAnotherCommand", {"balance", "--out", "x"}, Command::Wrong, "out"},
        Call{"SharedServer", {"--connect", "mysql://ram@server/office"}, Command::Window},
        Call{
            "SharedServerWithAPassword", {"--connect", "mysql://ram:x@server/office"}, Command::Wrong, "password file"},
        Call{"Demo", {"demo", "--out", "x"}, Command::Demo},
        Call{"DemoWithoutAFolder", {"demo"}, Command::Wrong, "--out"},
        Call{"DemoWithTooMuch", {"demo", "--out", "x", "y"}, Command::Wrong, "y"},
        Call{"DemoOnNoDay", {"demo", "--out", "x", "--today", "31/02/2024"}, Command::Wrong, "--today"},
        Call{"Balance", {"balance", "--firm", "1", "--party", "X"}, Command::Balance},
        Call{"BalanceWithoutAParty", {"balance", "--firm", "1"}, Command::Wrong, "--party"},
        Call{"BalanceOfAll", {"balance", "--all"}, Command::Balance},
        Call{"BalanceOfAllAndOne", {"balance", "--all", "--party", "X"}, Command::Wrong, "--all"},
        Call{"BalanceOfAllOfNoCompany", {"balance", "--all", "--firm", "0"}, Command::Wrong, "--firm"},
        Call{"SampleOfTooManyReceipts", {"sample", "--receipts", "101"}, Command::Wrong, "--receipts"},
        Call{"BalanceOfNoNumber", {"balance", "--firm", "one", "--party", "X"}, Command::Wrong, "--firm"},
        Call{"BalanceOfAHugeNumber", {"balance", "--firm", "99999999999", "--party", "X"}, Command::Wrong, "--firm"},
        Call{"Sample", {"sample", "--bills", "0", "--from", "2018", "--to", "2020"}, Command::Sample},
        Call{"SampleOfNoNumber", {"sample", "--bills", "many"}, Command::Wrong, "--bills"},
        Call{"SampleBeforeGst", {"sample", "--from", "2016"}, Command::Wrong, "--from"},
        Call{"SampleInTheFuture", {"sample", "--today", "2024-04-01", "--to", "2025"}, Command::Wrong, "--to"},
        Call{"CheckOfNoCompany", {"check", "--firm", "0"}, Command::Wrong, "--firm"},
        Call{"BackupNowhere", {"backup"}, Command::Wrong, "--out"},
        Call{"BackupOfTheDayElsewhere", {"backup", "--daily", "--out", "x"}, Command::Wrong, "--daily"},
        Call{"RestoreOfNothing", {"restore", "--data", "x"}, Command::Wrong, "--from"},
        Call{"Bills", {"bills", "--firm", "1", "--number", "3-9", "--number", "12", "--out", "x"}, Command::Bills},
        Call{"BillsNowhere", {"bills", "--firm", "1"}, Command::Wrong, "--out"},
        Call{"BillsOfNoCompany", {"bills", "--out", "x"}, Command::Wrong, "--firm"},
        Call{"BillsBackwards", {"bills", "--firm", "1", "--out", "x", "--number", "9-3"}, Command::Wrong, "--number"},
        Call{"BillsOfNoYear", {"bills", "--firm", "1", "--out", "x", "--fy", "2024-26"}, Command::Wrong, "--fy"},
        Call{"ReceiptsOfAYear", {"receipts", "--firm", "1", "--out", "x", "--fy", "2024-25"}, Command::Receipts},
        Call{
            "ReceiptsToNoDay", {"receipts", "--firm", "1", "--out", "x", "--to", "31/02/2024"}, Command::Wrong, "--to"},
        Call{"ReceiptsInOneRtf",
             {"receipts", "--firm", "1", "--out", "x", "--one", "--format", "rtf"},
             Command::Receipts},
        Call{"ReceiptsInNoFormat",
             {"receipts", "--firm", "1", "--out", "x", "--format", "doc"},
             Command::Wrong,
             "--format"},
        Call{"TemplateOfATellingName", {"template", "check", "a/gst_inter_bill_2copy.DOC"}, Command::Template},
        Call{"TemplateOfAnotherName", {"template", "check", "letter.doc"}, Command::Wrong, "--kind"},
        Call{"TemplateOfNoKind", {"template", "check", "letter.doc", "--kind", "memo"}, Command::Wrong, "--kind"},
        Call{"TemplateWithoutAFile", {"template", "check"}, Command::Wrong, "check FILE"},
        Call{"Report", report({"bills"}), Command::Report}, Call{"ReportOfNoKind", report({}), Command::Wrong, "kind"},
        Call{"ReportOfAnotherKind", report({"ledger"}), Command::Wrong, "kind"},
        Call{"ReportOfTwoKinds", report({"bills", "tds"}), Command::Wrong, "kind"},
        Call{"ReportWithoutAnEnd", {"report", "tds", "--firm", "1", "--from", "2023-04-01"}, Command::Wrong, "--to"},
        Call{"ReportBackwards", report({"sac", "--to", "2023-03-31"}), Command::Wrong, "--from"},
        Call{"ReportOfNoService", report({"sac", "--sac", "99822"}), Command::Wrong, "--sac"},
        Call{"ReportWithNoSuchDetail", report({"bills", "--print", "gstin,bank"}), Command::Wrong, "--print"},
        Call{"ReportOfNoAmount", outstanding({"--amount", ">1,000"}), Command::Wrong, "--amount takes"},
        Call{"ReportOfThreeAmounts", outstanding({"--amount", ">1", "--amount", "<9", "--amount", "=4"}),
             Command::Wrong, "--amount is taken"},
        Call{"BillsOfAService", report({"bills", "--sac", "998221"}), Command::Wrong, "report bills takes no --sac"},
        Call{"ReceiptsOnADay", report({"receipts", "--as-on", "2024-03-01"}), Command::Wrong,
             "receipts takes no --as-on"},
        Call{"AccountUpToADay", report({"account", "--upto", "2024-03-01"}), Command::Wrong, "account takes no --upto"},
        Call{"TdsOfAnAmount", report({"tds", "--amount", ">1"}), Command::Wrong, "tds takes no --amount"},
        Call{"PendingOfEither", report({"pending", "--either"}), Command::Wrong, "pending takes no --either"},
        Call{"ServicesWithBills", report({"sac", "--bill-numbers"}), Command::Wrong, "sac takes no --bill-numbers"},
        Call{"OutstandingFrom", outstanding({"--from", "2024-03-01"}), Command::Wrong, "outstanding takes no --from"},
        Call{"OutstandingTo", outstanding({"--to", "2024-03-01"}), Command::Wrong, "outstanding takes no --to"},
        Call{"ReportIntoAnotherKindOfFile", report({"bills", "--out", "x.doc"}), Command::Wrong, "--out"},
        Call{"Outstanding", outstanding({}), Command::Report},
        Call{"HelpOfACommand", {"restore", "--help"}, Command::Help, "Usage: ledgora restore"},
        Call{"OptionWithoutItsValue", {"--data"}, Command::Wrong, "data"},
        Call{"Help", {"--help"}, Command::Help, "ledgora balance"},
        Call{"HelpOfACommandThatLacksItsOptions", {"demo", "-h"}, Command::Help, "--out"},
        Call{"Version", {"--version"}, Command::Version}),
    [](const auto &row) { return row.param.name; });

TEST(CommandLineTest, WordsOfAReportAreTaken)
{
    const CommandLine line = readCommandLine(
        QStringList{"ledgora"}
        + outstanding({"--as-on", "2024-02-29", "--upto", "28/02/2024", "--amount", ">= 1000.5", "--amount", "<>7",
                       "--either", "--party", "A,1", "--party", "B", "--print", "pan, phone"}));
    const auto &asked = line.report.asked;
    EXPECT_EQ(asked.asOn, "29/02/2024");
    EXPECT_EQ(asked.billsUpTo, "28/02/2024");
    EXPECT_EQ(asked.amounts[0].comparison, 3);
    EXPECT_EQ(asked.amounts[0].value, 1000.5);
    EXPECT_EQ(asked.amounts[1].comparison, 6);
    EXPECT_FALSE(asked.bothAmounts);
    EXPECT_EQ(line.report.parties, (QStringList{"A,1", "B"}));
    EXPECT_TRUE(asked.details.pan && asked.details.phone && !asked.details.gstin);
    const auto services = readCommandLine(QStringList{"ledgora"} + report({"sac", "--sac", "998231"})).report.asked;
    EXPECT_EQ(services.sac, 6);
    EXPECT_EQ(services.to, "31/03/2024");
    EXPECT_TRUE(
        readCommandLine(QStringList{"ledgora"} + report({"account", "--bill-numbers"})).report.asked.billNumbers);
}

TEST(CommandLineTest, ValuesAreTaken)
{
    const CommandLine line = readCommandLine({"ledgora", "balance", "--party", "LLP!~!A 1", "--data", "/tmp/my office",
                                              "--firm=12", "--today", "2024-02-29"});
    EXPECT_EQ(line.party, "LLP!~!A 1");
    EXPECT_EQ(line.dataFolder, "/tmp/my office");
    EXPECT_EQ(line.firm, 12);
    EXPECT_EQ(line.host, "") << "the office's own";
    EXPECT_EQ(readCommandLine({"ledgora", "--host", "T"}).host, "T");
    EXPECT_EQ(line.today, QDate(2024, 2, 29));
    EXPECT_EQ(readCommandLine({"ledgora", "demo", "--out", "x", "--today", "01/04/2023"}).today, QDate(2023, 4, 1));
    EXPECT_FALSE(readCommandLine({"ledgora"}).today.isValid());
}

TEST(CommandLineTest, DataFolderDefaultsToTheUsersOwn)
{
    const QByteArray former = qgetenv("XDG_DATA_HOME");
    qputenv("XDG_DATA_HOME", "/somewhere/else");
    EXPECT_EQ(readCommandLine({"ledgora"}).dataFolder, "/somewhere/else/ledgora");
    former.isNull() ? qunsetenv("XDG_DATA_HOME") : qputenv("XDG_DATA_HOME", former);
}

TEST(OutputPath, MayBeNoLinkOfAnotherUser)
{
    const QTemporaryDir folder;
    const QString link = folder.filePath("out");
    ASSERT_TRUE(QFile::link(folder.path(), link));
    EXPECT_EQ(linkFault(link), "") << "one's own";
    EXPECT_EQ(linkFault(folder.filePath("new")), "");
    constexpr uid_t nobody = 65534;
    if (::lchown(QFile::encodeName(link).constData(), nobody, nobody) != 0)
        GTEST_SKIP() << "not run: giving a link away needs root";
    EXPECT_EQ(linkFault(link + '/'), "[" + link + "/] is a link that another user has made.");
}

} // namespace
