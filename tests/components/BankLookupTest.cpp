// The stock bank look-up: its file, its search and its list.

#include "components/banklookup/BranchList.h"
#include "components/banklookup/StockBankLookup.h"
#include "controls/Grid.h"
#include "support/Boxes.h"
#include "support/Log.h"
#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <gtest/gtest.h>

namespace ledgora::banklookup {
namespace {

QString joined(const BranchList &list)
{
    QStringList lines;
    for (const Branch &branch : list.branches)
        lines << branch.bank + QString('|' + branch.branch + '|' + branch.city + '|' + branch.ifsCode);
    return lines.join('\n');
}

struct CsvCase
{
    const char *name;
    QString csv;
    std::string branches;
};

class BranchFile : public testing::TestWithParam<CsvCase>
{
};

TEST_P(BranchFile, GivesTheWholeLinesOfTheFourColumns)
{
    EXPECT_EQ(joined(branchesOf(GetParam().csv)).toStdString(), GetParam().branches);
}

const QString heading = "BANK,BRANCH,CITY,IFSC\n";
const char *const fort = "CITY BANK|FORT|MUMBAI|CITY0000001";

INSTANTIATE_TEST_SUITE_P(
    Lines, BranchFile,
    testing::Values(
        CsvCase{"Plain", heading + "CITY BANK,FORT,MUMBAI,CITY0000001\n", fort},
        CsvCase{"LastLineWithoutAnEnd", heading + "CITY BANK,FORT,MUMBAI,CITY0000001", fort},
        CsvCase{"OtherLineEndsAndMark",
                QString(QChar(QChar::ByteOrderMark)) + "BANK,BRANCH,CITY,IFSC\r\nCITY BANK,FORT,MUMBAI,CITY0000001\r\n",
                fort},
        CsvCase{"OtherOrderCaseAndColumns",
                "Ifsc,MICR,City, bank ,State,Branch\nCITY0000001,400,MUMBAI,CITY BANK,MH,FORT\n", fort},
        CsvCase{"Quoted", heading + "\"CITY BANK\",\"FORT, \"\"OLD\"\"\",\"MUM\nBAI\",CITY0000001\n",
                "CITY BANK|FORT, \"OLD\"|MUM BAI|CITY0000001"},
        CsvCase{"TooFewFields", heading + "CITY BANK,FORT,CITY0000001\nCITY BANK,FORT,MUMBAI,CITY0000001\n", fort},
        CsvCase{"TooManyFields", heading + "A,B,C,CITY0000009,E\nCITY BANK,FORT,MUMBAI,CITY0000001\n", fort},
        CsvCase{"EmptyLines", heading + "\n\nCITY BANK,FORT,MUMBAI,CITY0000001\n\n", fort},
        CsvCase{"WrongIfsCodes", heading + "A,B,C,CITY1000001\nA,B,C,\nCITY BANK,FORT,MUMBAI,CITY0000001\n", fort},
        CsvCase{"NoBank", heading + " ,B,C,CITY0000002\nCITY BANK,FORT,MUMBAI,CITY0000001\n", fort},
        CsvCase{"LostQuote", heading + "\"A,B,C,CITY0000002\nCITY BANK,FORT,MUMBAI,CITY0000001\n", fort},
        CsvCase{"LostQuoteBeforeAWholeOne", heading + "\"A,B,C,CITY0000002\n\"CITY BANK\",FORT,MUMBAI,CITY0000001\n",
                fort},
        CsvCase{"QuoteInsideAField", heading + "A,B\"C,D,CITY0000002\nCITY BANK,FORT,MUMBAI,CITY0000001\n", fort},
        CsvCase{"TextBehindAQuote", heading + "A,\"B\"C,D,CITY0000002\nCITY BANK,FORT,MUMBAI,CITY0000001\n", fort},
        CsvCase{"TooLongForTheFields",
                heading + QString(256, 'A') + ",B,C,CITY0000002\nCITY BANK,FORT,MUMBAI,CITY0000001\n", fort},
        CsvCase{"NoHeading", "CITY BANK,FORT,MUMBAI,CITY0000001\n", ""}, CsvCase{"Nothing", "", ""}),
    [](const auto &each) { return std::string(each.param.name); });

/// A lost quote costs its own line, not a walk to the end of the file for each.
TEST(BranchFile, IsReadInOneGoWhateverItHolds)
{
    QString csv = heading;
    for (int i = 0; i < 50000; ++i)
        csv += "\"A,B,C,CITY0000002\n";
    EXPECT_EQ(joined(branchesOf(csv + "CITY BANK,FORT,MUMBAI,CITY0000001\n")).toStdString(), fort);
}

TEST(BranchSearch, WantsEveryWordInWhateverFieldAndCase)
{
    const BranchList list = branchesOf(heading
                                       + "CITY BANK,FORT,MUMBAI,CITY0000001\nCITY BANK,CAMP,PUNE,CITY0000002\n"
                                         "RIVER BANK,CAMP,MUMBAI,RIVR0000003\n");
    const struct
    {
        const char *words;
        qsizetype found;
        const char *first;
    } cases[] = {{"", 3, "CITY0000001"},        {"camp", 2, "CITY0000002"},    {"mumbai river", 1, "RIVR0000003"},
                 {"Ban ity", 2, "CITY0000001"}, {"0000003", 1, "RIVR0000003"}, {" bank  CAMP ", 2, "CITY0000002"},
                 {"camp delhi", 0, nullptr},    {"bankfort", 0, nullptr}};
    for (const auto &c : cases) {
        qsizetype found = -1;
        const auto hits = list.find(c.words, 1, found);
        EXPECT_EQ(found, c.found) << c.words;
        EXPECT_EQ(hits.empty() ? "" : hits.front()->ifsCode.toStdString(), c.first ? c.first : "") << c.words;
    }
}

/// The look-up over a folder of its own.
class StockLookup : public testing::Test
{
protected:
    void write(const QByteArray &csv)
    {
        QFile file(m_folder.filePath("IFSC.CSV")); // found whatever its case
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(csv) == csv.size());
    }
    std::string look(const QString &bank, const QString &city)
    {
        StockBankLookup lookup;
        Connection *none = nullptr;
        lookup.InitMe(m_folder.path(), none, "log", 1, 1, 1);
        BankChoice choice;
        choice[ChosenBank] = BankLookup::noData;
        lookup.GetMICRIFSC(choice, bank, city, {});
        return QStringList{choice[ChosenBank], choice[ChosenBranch], choice[ChosenIfsCode]}.join('|').toStdString();
    }

    QTemporaryDir m_folder;
    test::Log m_log;
    test::Boxes m_boxes;
    const QByteArray threeBranches =
        "BANK,BRANCH,CITY,IFSC\nCITY BANK,FORT,MUMBAI,CITY0000001\nCITY BANK,CAMP,PUNE,CITY0000002\n"
        "CITY BANK,DADAR,MUMBAI,CITY0000003\n";
};

TEST_F(StockLookup, WithoutTheFileHasNothingToLookIn)
{
    EXPECT_EQ(look("CITY BANK", ""), "?||");
    EXPECT_TRUE(m_log.isEmpty());
}

TEST_F(StockLookup, FileThatCanNotBeUsedIsLogged)
{
    write("Name,Code\nCITY BANK,CITY0000001\n");
    EXPECT_EQ(look("CITY BANK", ""), "?||");
    EXPECT_EQ(m_log.lines().size(), 1U);
}

TEST_F(StockLookup, OneBranchIsTakenAtOnce)
{
    write(threeBranches);
    EXPECT_EQ(look("city bank", "pune"), "CITY BANK|CAMP|CITY0000002");
}

TEST_F(StockLookup, ListIsNarrowedByTypingAndChosenFromWithTheKeys)
{
    write(threeBranches);
    m_boxes.expectDialog([](QWidget &dialog) {
        auto *words = dialog.findChild<QLineEdit *>("txtBankWords");
        auto *branches = dialog.findChild<Grid *>("vsBankBranches");
        EXPECT_EQ(words->text(), "CITY BANK");
        EXPECT_EQ(branches->cells().rows(), 4);
        QTest::keyClicks(words, " mumbai");
        EXPECT_EQ(branches->cells().rows(), 3);
        QTest::keyClick(words, Qt::Key_Down);
        QTest::keyClick(words, Qt::Key_Return);
    });
    EXPECT_EQ(look("CITY BANK", ""), "CITY BANK|DADAR|CITY0000003");
}

TEST_F(StockLookup, NothingFoundLetsTheWordsBeMended)
{
    write(threeBranches);
    m_boxes.expectDialog([](QWidget &dialog) {
        auto *words = dialog.findChild<QLineEdit *>("txtBankWords");
        QTest::keyClick(words, Qt::Key_Return); // there is nothing to take yet
        EXPECT_TRUE(dialog.isVisible());
        words->selectAll();
        QTest::keyClicks(words, "fort");
        QTest::keyClick(words, Qt::Key_Return);
    });
    EXPECT_EQ(look("RIVER", "DELHI"), "CITY BANK|FORT|CITY0000001");
}

TEST_F(StockLookup, EscBacksOut)
{
    write(threeBranches);
    m_boxes.expectDialog(
        [](QWidget &dialog) { QTest::keyClick(dialog.findChild<QLineEdit *>("txtBankWords"), Qt::Key_Escape); });
    EXPECT_EQ(look("", ""), "||");
}

} // namespace
} // namespace ledgora::banklookup
