// The test of a client's Code No., on a real server.

#include "store/Identifiers.h"

#include "host/WorkingState.h"
#include "support/Database.h"
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace ledgora {
namespace {

using test::Database;

const char *const signs = "Only Numbers '0 to 9' , Characters 'A to Z' , '-' are allowed in Code No.";

struct CodeNoCase
{
    const char *name;
    const char *host;
    const char *code;
    CodeNoTests tests;
    std::string message;
};

class CodeNo : public testing::TestWithParam<CodeNoCase>
{
protected:
    /// Each host's clients lie in a table of its own; one code stands in each.
    static void SetUpTestSuite()
    {
        s_database = new Database("C");
        for (const char *table : {"main_info1", "FBT_Info", "Main_Info", "Owner1"})
            s_database->run(QStringLiteral("Create Table %1 (code varchar(50), code_no varchar(50))").arg(table));
        s_database->run("Insert Into Comp_Master (CompSrNo,Code) Values (1,'C-1'),(2,'O''X')");
        s_database->run("Insert Into main_info1 (code_no) Values ('G-1')");
        s_database->run("Insert Into Owner1 (code) Values ('G-2')");
        s_database->run("Insert Into FBT_Info (code_no) Values ('F-1')");
        s_database->run("Insert Into Main_Info (code_no) Values ('M-1')");
        s_database->run("Insert Into biller (code_no) Values ('B-1')");
    }
    static void TearDownTestSuite() { delete s_database; }

    static Database *s_database;
};
Database *CodeNo::s_database = nullptr;

TEST_P(CodeNo, IsTestedInOrder)
{
    const CodeNoCase &c = GetParam();
    EXPECT_EQ(VALIDATECODENO(s_database->db(), c.host, c.code, c.tests).toStdString(), c.message);
}

const CodeNoTests shortCode{.maxLength = 4};
const CodeNoTests anything{.required = false, .onlyAllowed = false, .reservedWords = false, .unique = false};
const CodeNoTests anySign{.onlyAllowed = false};

std::string allotted(const std::string &code)
{
    return "Code No. [" + code + "] has already been allotted.";
}

std::string reserved(const std::string &code)
{
    return "Code No. [" + code + "] is not allowed (Reserved word by Windows).";
}

INSTANTIATE_TEST_SUITE_P(
    Rules, CodeNo,
    testing::Values(
        CodeNoCase{"Free", "C", "C-2", {}, ""}, CodeNoCase{"Empty", "C", "", {}, "Please Specify Code No."},
        CodeNoCase{"EmptyWhereNotRequired", "C", "", anything, ""},
        CodeNoCase{"TooLong", "C", "ab-12", shortCode, "Code No. length can not exceed 4 characters."},
        CodeNoCase{"JustFits", "C", "AB-1", shortCode, ""}, CodeNoCase{"SmallLetter", "C", "c-1", {}, signs},
        CodeNoCase{"Accent", "C", "\u00c9", {}, signs}, CodeNoCase{"Blank", "C", "C 2", {}, signs},
        CodeNoCase{"Quote", "C", "O'X", {}, signs},
        CodeNoCase{"QuoteIsLookedUpAsItIs", "C", "O'X", anySign, allotted("O'X")},
        CodeNoCase{"InjectionFindsNothing", "C", "' or ''='", anySign, ""},
        CodeNoCase{"DeviceName", "C", "NUL", {}, reserved("NUL")},
        CodeNoCase{"PortOne", "C", "COM1", {}, reserved("COM1")},
        CodeNoCase{"PortNine", "C", "LPT9", {}, reserved("LPT9")}, CodeNoCase{"PortZeroIsNone", "C", "COM0", {}, ""},
        CodeNoCase{"PortTail", "C", "COM12", {}, ""}, CodeNoCase{"Clock", "C", "CLOCK$", anySign, reserved("CLOCK$")},
        CodeNoCase{"AnythingGoes", "C", "nul$", anything, ""}, CodeNoCase{"TakenInC", "C", "C-1", {}, allotted("C-1")},
        CodeNoCase{"TakenElsewhere", "C", "G-1", {}, ""}, CodeNoCase{"TakenInG", "G", "G-1", {}, allotted("G-1")},
        CodeNoCase{"TakenByAnOwner", "G", "G-2", {}, allotted("G-2")},
        CodeNoCase{"TakenInF", "F", "F-1", {}, allotted("F-1")},
        CodeNoCase{"TakenInS", "S", "M-1", {}, allotted("M-1")},
        CodeNoCase{"TakenInT", "T", "M-1", {}, allotted("M-1")},
        CodeNoCase{"TakenInR", "R", "M-1", {}, allotted("M-1")},
        CodeNoCase{"TakenByAnOlderOtherClient", "C", "B-1", {}, allotted("B-1")}),
    [](const auto &each) { return std::string(each.param.name); });

TEST(CodeNoWithoutOlderSide, LogsNothing)
{
    const QTemporaryDir folder;
    gLogPath = folder.filePath("log");
    Database database("C");
    EXPECT_EQ(VALIDATECODENO(database.db(), "C", "C-1").toStdString(), "");
    EXPECT_FALSE(QFile::exists(gLogPath));
    gLogPath.clear();
}

} // namespace
} // namespace ledgora
