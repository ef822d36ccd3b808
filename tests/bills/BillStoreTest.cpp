#include "bills/BillStore.h"

#include "Draft.h"
#include "store/Connection.h"
#include "store/ErrorLog.h"
#include "tests/support/Print.h"
#include "tests/support/StoreTest.h"
#include <gtest/gtest.h>

namespace ledgora {
namespace {

using test::draftOf;

class BillStore : public test::StoreTest
{
protected:
    static QStringList storedLines(int id)
    {
        return rows("Select * From GST_BillD Where BillId=" + QString::number(id) + " Order By SrNo");
    }
    /// A bill of company 1 in 2024 put there by hand.
    static void putBill(int id, int series, int billNo, const QString &date, int firm = 1, int year = 2024)
    {
        database->run(
            QStringLiteral("Insert Into GST_BillM Values (%1,%2,%3,'C1',%4,%5,'%6 00:00:00','GUJARAT','INTRA','')")
                .arg(id)
                .arg(firm)
                .arg(year)
                .arg(series)
                .arg(billNo)
                .arg(date));
        database->run(
            QStringLiteral("Insert Into GST_BillD Values (%1,1,'Put','','',0,100,0,100,'N',9,9,9,9,0,0,118)").arg(id));
    }
};

/// Three lines with a blank row among them: plain, blank, tax by hand, a period.
BillDraft threeLines(TaxType type)
{
    BillDraft bill = draftOf({{{1, "  Audit fee "}, {2, "998221"}, {5, "1000"}, {6, "100"}, {9, "2.5"}, {13, "0.1235"}},
                              {},
                              {{1, "Return"}, {5, "150"}, {8, "Y"}, {10, "13"}, {12, "14"}, {14, "28"}},
                              {{1, "Books"}, {3, "AY"}, {4, "2023"}, {5, "50"}}},
                             type);
    bill.seriesId = 3;
    bill.number = "12";
    bill.narration = "Thank you";
    return bill;
}

struct SavedCase
{
    TaxType type;
    const char *word;
    QStringList lines;
};

TEST_F(BillStore, SaveWritesHeaderAndLinesOfItsTaxType)
{
    const SavedCase cases[] = {
        {TaxType::Intra,
         "INTRA",
         {"1|1|Audit fee|998221||0|1000|100|900|N|2.5|23|9|81|0|0|1004", "1|2|Return|||0|150|0|150|Y|9|13|9|14|0|0|177",
          "1|3|Books||AY|2023|50|0|50|N|9|5|9|5|0|0|60"}},
        {TaxType::Inter,
         "INTER",
         {"1|1|Audit fee|998221||0|1000|100|900|N|0|0|0|0|0.1235|1|901", "1|2|Return|||0|150|0|150|Y|0|0|0|0|18|28|178",
          "1|3|Books||AY|2023|50|0|50|N|0|0|0|0|18|9|59"}},
        {TaxType::None,
         "NO",
         {"1|1|Audit fee|998221||0|1000|100|900|N|0|0|0|0|0|0|900", "1|2|Return|||0|150|0|150|Y|0|0|0|0|0|0|150",
          "1|3|Books||AY|2023|50|0|50|N|0|0|0|0|0|0|50"}},
    };
    for (const SavedCase &c : cases) {
        database->empty();
        const SaveResult saved = saveBill(db(), threeLines(c.type));
        EXPECT_TRUE(saved.whole());
        EXPECT_EQ(saved.id, 1);
        EXPECT_EQ(rows("Select * From GST_BillM"),
                  QStringList{QStringLiteral("1|1|2024|C1|3|12|2024-05-01 00:00:00|GUJARAT|%1|Thank you").arg(c.word)});
        EXPECT_EQ(storedLines(1), c.lines);
    }
    EXPECT_TRUE(log.isEmpty());
}

TEST_F(BillStore, YearWithoutAPeriodIsNotStored)
{
    saveBill(db(), draftOf({{{1, "Audit"}, {4, "2023"}, {5, "10"}}}));
    EXPECT_EQ(rows("Select YrType,Yr From GST_BillD"), QStringList{"|0"});
}

TEST_F(BillStore, NewBillTakesTheNextIdAndTouchesNoOther)
{
    putBill(7, 0, 1, "2024-04-01");
    const QStringList former = storedLines(7);
    const SaveResult saved = saveBill(db(), draftOf());
    EXPECT_EQ(saved.id, 8);
    EXPECT_EQ(storedLines(7), former);
    EXPECT_EQ(storedLines(8).size(), 1);
    EXPECT_TRUE(database->other().Execute("Update GST_BillM Set Narr='free' Where BillSrNo=8")) << "no lock is left";
}

TEST_F(BillStore, HostileTextsAreStoredAsTheyAre)
{
    QString controls;
    for (char16_t c = 1; c < 32; ++c)
        controls += QChar(c);
    const QString texts[] = {
        "O'Neil & Sons' books",
        "back\\slash\\",
        "\\'; Drop Table GST_BillM; -- ",
        "')),(('",
        "\u0930\u092E\u0947\u0936 \u0936\u0930\u094D\u092E\u093E \u20B9 500",
        "\U0001F600 \U00020000",
        "{\\rtf1 \\par} #FIRM_NAME# %1 %s ?",
        QString(10000, QChar(0x0930)),
        "x" + controls + "x",
        QString::fromUtf8("nul\0inside", 10),
    };
    for (const QString &text : texts) {
        database->empty();
        BillDraft bill = draftOf({{{1, text}, {5, "10"}}});
        bill.narration = text;
        EXPECT_TRUE(saveBill(db(), bill).whole());
        EXPECT_EQ(rows("Select Narr From GST_BillM"), QStringList{text});
        EXPECT_EQ(rows("Select part From GST_BillD"), QStringList{text.trimmed()});
        // The same text comes back on the screen, and once in the list of earlier ones.
        Cells lines = emptyBillLines();
        readBillLines(db(), 1, TaxType::Intra, lines);
        EXPECT_EQ(lines.text(billFixedRows, ParticularsColumn), text.trimmed());
        EXPECT_EQ(earlierNarrations(db()), QStringList{text});
    }
    database->empty();
    BillDraft bill = draftOf();
    bill.code = "LLP!~!O'B\\1";
    EXPECT_TRUE(saveBill(db(), bill).whole());
    EXPECT_EQ(rows("Select Code_No From GST_BillM"), QStringList{"LLP!~!O'B\\1"});
    EXPECT_TRUE(log.isEmpty());
}

TEST_F(BillStore, ModifyReplacesLinesAndKeepsCompanyAndYear)
{
    putBill(1, 0, 1, "2024-04-01");
    putBill(2, 0, 2, "2024-04-02");
    const QStringList former = storedLines(2);
    BillDraft bill = threeLines(TaxType::Inter);
    bill.id = 1;
    bill.firmId = 9;
    bill.year = 2023;
    bill.code = "C2";
    for (int again = 0; again < 2; ++again) {
        const SaveResult saved = saveBill(db(), bill);
        EXPECT_TRUE(saved.whole()) << "also when nothing changed";
        EXPECT_EQ(saved.id, 1);
    }
    EXPECT_EQ(rows("Select * From GST_BillM Where BillSrNo=1"),
              QStringList{"1|1|2024|C2|3|12|2024-05-01 00:00:00|GUJARAT|INTER|Thank you"});
    EXPECT_EQ(storedLines(1).size(), 3);
    EXPECT_EQ(storedLines(2), former);
}

TEST_F(BillStore, ModifyOfABillThatIsGoneWritesNothing)
{
    putBill(1, 0, 1, "2024-04-01");
    database->run("Delete From GST_BillM");
    const QStringList former = storedLines(1);
    BillDraft bill = draftOf();
    bill.id = 1;
    const SaveResult saved = saveBill(db(), bill);
    EXPECT_FALSE(saved.whole());
    EXPECT_FALSE(saved.headerIn);
    EXPECT_FALSE(saved.notIn.isEmpty());
    EXPECT_EQ(storedLines(1), former) << "no line is touched";
    EXPECT_EQ(rows("Select Count(*) From GST_BillM"), QStringList{"0"});
}

TEST_F(BillStore, LockOfAnotherUserStopsTheSaveBeforeAnyLine)
{
    putBill(1, 0, 1, "2024-04-01");
    const QStringList header = rows("Select * From GST_BillM");
    const QStringList former = storedLines(1);
    for (const QString kind : {"Write", "Read"}) {
        for (const int id : {0, 1}) {
            BillDraft bill = threeLines(TaxType::Intra);
            bill.id = id;
            ASSERT_TRUE(database->other().Execute("Lock Table GST_BillM " + kind));
            const SaveResult saved = saveBill(db(), bill);
            ASSERT_TRUE(database->other().Execute("Unlock Tables"));
            EXPECT_EQ(saved.id, id);
            EXPECT_FALSE(saved.headerIn);
            EXPECT_FALSE(saved.whole());
            EXPECT_EQ(rows("Select * From GST_BillM"), header);
            EXPECT_EQ(storedLines(1), former) << "bill 1 keeps its lines";
        }
    }
    EXPECT_FALSE(log.isEmpty());
}

TEST_F(BillStore, LineThatFailsIsNamedAndLoggedWhileTheOthersGoIn)
{
    database->run("Create Trigger Refuse Before Insert On GST_BillD For Each Row Begin If NEW.SrNo=2 Then "
                  "Signal SqlState '45000' Set Message_Text='refused'; End If; End");
    {
        const ErrorSite site("frmBillGST", "CMDUPDATE_CLICK");
        const SaveResult saved = saveBill(db(), threeLines(TaxType::Intra));
        EXPECT_TRUE(saved.headerIn);
        EXPECT_FALSE(saved.whole());
        ASSERT_EQ(saved.notIn.size(), 1);
        EXPECT_TRUE(saved.notIn.constFirst().contains('2'));
    }
    EXPECT_EQ(rows("Select SrNo,part From GST_BillD Order By SrNo"), (QStringList{"1|Audit fee", "3|Books"}));
    EXPECT_EQ(log.sites(), QStringList{"frmBillGST CMDUPDATE_CLICK"});
    database->run("Drop Trigger Refuse");
}

TEST_F(BillStore, MissingLineTableNamesEveryLine)
{
    database->run("Rename Table GST_BillD To Away");
    const SaveResult saved = saveBill(db(), threeLines(TaxType::Intra));
    database->run("Rename Table Away To GST_BillD");
    EXPECT_EQ(saved.id, 1);
    EXPECT_TRUE(saved.headerIn) << "from here on it is a Modify of this bill";
    EXPECT_EQ(saved.notIn.size(), 4);
    EXPECT_EQ(log.lines().size(), 4U);
    BillDraft again = threeLines(TaxType::Intra);
    again.id = saved.id;
    EXPECT_TRUE(saveBill(db(), again).whole());
    EXPECT_EQ(storedLines(1).size(), 3);
}

TEST_F(BillStore, HeaderThatFailsLeavesTheLinesAlone)
{
    putBill(1, 0, 1, "2024-04-01");
    database->run(
        "Create Trigger Refuse Before Insert On GST_BillM For Each Row Signal SqlState '45000' Set Message_Text='no'");
    const SaveResult saved = saveBill(db(), threeLines(TaxType::Intra));
    database->run("Drop Trigger Refuse");
    EXPECT_FALSE(saved.headerIn);
    EXPECT_FALSE(saved.whole());
    EXPECT_EQ(rows("Select Count(*) From GST_BillD"), QStringList{"1"});
    EXPECT_EQ(log.lines().size(), 1U);
    EXPECT_TRUE(database->other().Execute("Update GST_BillM Set Narr='free'"));
}

TEST_F(BillStore, NumberIsTakenOnlyInItsCompanyYearAndSeries)
{
    putBill(5, 3, 12, "2024-05-01");
    const struct
    {
        const char *rule;
        int id, firm, year, series;
        const char *number;
        bool taken;
    } cases[] = {
        {"the same", 0, 1, 2024, 3, "12", true},         {"another number", 0, 1, 2024, 3, "13", false},
        {"another series", 0, 1, 2024, 0, "12", false},  {"another year", 0, 1, 2025, 3, "12", false},
        {"another company", 0, 2, 2024, 3, "12", false}, {"itself", 5, 1, 2024, 3, "12", false},
        {"another bill", 6, 1, 2024, 3, "12", true},
    };
    for (const auto &c : cases) {
        BillDraft bill = draftOf();
        bill.id = c.id;
        bill.firmId = c.firm;
        bill.year = c.year;
        bill.seriesId = c.series;
        bill.number = c.number;
        const auto fault = storedFault(db(), bill);
        ASSERT_EQ(fault.has_value(), c.taken) << c.rule;
        if (!fault)
            continue;
        EXPECT_EQ(fault->message, "Duplicate Bill No.");
        EXPECT_EQ(fault->field, "txtbillno");
    }
}

TEST_F(BillStore, BillIsNotReducedBelowWhatWasReceived)
{
    putBill(5, 0, 1, "2024-05-01");
    putBill(6, 0, 2, "2024-05-01");
    database->run("Insert Into GST_RecpD Values (1,1,5,500,200,900),(2,1,5,300,0,0),(2,2,6,5000,0,0)");
    for (const auto &[amount, id, refused] :
         {std::tuple("1000", 5, false), {"999", 5, true}, {"999", 0, false}, {"999", 7, false}}) {
        BillDraft bill = draftOf({{{1, "Audit"}, {5, amount}}}, TaxType::None);
        bill.id = id;
        bill.number = "9";
        const auto fault = storedFault(db(), bill);
        ASSERT_EQ(fault.has_value(), refused) << amount << ' ' << id;
        if (fault) {
            EXPECT_EQ(fault->message, "Bill amount is less than Total Amount of Receipt Issued against this Bill.");
        }
    }
    BillDraft both = draftOf({{{1, "Audit"}, {5, "1"}}}, TaxType::None);
    both.id = 5;
    both.number = "2";
    EXPECT_TRUE(storedFault(db(), both).value_or(BillFault{}).message.startsWith("Bill amount"))
        << "before the duplicate number";
    EXPECT_TRUE(hasReceipts(db(), 5));
    EXPECT_FALSE(hasReceipts(db(), 7));
}

TEST_F(BillStore, NeighboursOutOfOrderAreTheNearestOfTheSeries)
{
    putBill(1, 3, 3, "2024-05-20");
    putBill(2, 3, 4, "2024-05-10");
    putBill(3, 3, 5, "2024-05-05");
    putBill(4, 3, 6, "2024-04-30");
    putBill(5, 3, 7, "2024-04-20");
    putBill(6, 0, 4, "2024-06-01");          // another series
    putBill(7, 3, 4, "2024-06-01", 2);       // another company
    putBill(8, 3, 6, "2024-04-01", 1, 2023); // another year
    const auto said = [](const std::optional<Neighbour> &found) {
        return found ? QString(found->number + ' ' + found->date) : QString();
    };
    const struct
    {
        const char *rule;
        int id;
        const char *number, *date, *lower, *higher;
    } cases[] = {
        {"both sides", 3, "5", "01/05/2024", "4 10/05/2024", "6 30/04/2024"},
        {"in order", 3, "5", "10/05/2024", "3 20/05/2024", "6 30/04/2024"},
        {"the same day is in order", 0, "8", "20/05/2024", "", ""},
        {"its own row does not count", 4, "8", "30/04/2024", "5 05/05/2024", ""},
        {"a new bill counts every row", 0, "8", "25/04/2024", "6 30/04/2024", ""},
        {"first of all", 0, "1", "01/04/2024", "", ""},
        {"last of all", 0, "9", "31/03/2025", "", ""},
        {"the lowest of the higher ones", 0, "2", "31/03/2025", "", "3 20/05/2024"},
    };
    for (const auto &c : cases) {
        BillDraft bill = draftOf();
        bill.id = c.id;
        bill.seriesId = 3;
        bill.number = c.number;
        bill.date = c.date;
        EXPECT_EQ(said(lowerWithLaterDate(db(), bill)), c.lower) << c.rule;
        EXPECT_EQ(said(higherWithEarlierDate(db(), bill)), c.higher) << c.rule;
    }
}

TEST_F(BillStore, DeletingTakesTheBillWithItsLinesAlone)
{
    putBill(1, 0, 1, "2024-04-01");
    putBill(2, 0, 2, "2024-04-02");
    EXPECT_TRUE(deleteBill(db(), 1));
    EXPECT_EQ(rows("Select BillSrNo From GST_BillM"), QStringList{"2"});
    EXPECT_EQ(rows("Select BillId From GST_BillD"), QStringList{"2"});
    database->run("Rename Table GST_BillD To Away");
    EXPECT_FALSE(deleteBill(db(), 2)) << "what failed is told";
    database->run("Rename Table Away To GST_BillD");
    EXPECT_EQ(rows("Select Count(*) From GST_BillM"), QStringList{"0"}) << "and the next statement ran";
}

TEST_F(BillStore, HighestNumberIsThatOfCompanyAndYearOverAllSeries)
{
    EXPECT_EQ(highestBillNumber(db(), 1, 2024), 0);
    putBill(1, 0, 4, "2024-04-01");
    putBill(2, 3, 17, "2024-04-01");
    putBill(3, 0, 90, "2025-04-01", 1, 2025);
    putBill(4, 0, 99, "2024-04-01", 2);
    EXPECT_EQ(highestBillNumber(db(), 1, 2024), 17);
}

TEST_F(BillStore, StoredLinesComeBackWithTheTaxOfTheTypeAlone)
{
    database->run("Insert Into GST_BillD Values (1,2,'Second','','',0,10,0,10,'',9,1,9,1,18,2,12)");
    database->run("Insert Into GST_BillD Values "
                  "(1,1,'First','998221','FY',2023,1000,NULL,1000,'Y',2.5,25,NULL,NULL,18,180,1050)");
    database->run("Insert Into GST_BillD Values (2,1,'Other bill','','',0,1,0,1,'N',0,0,0,0,0,0,1)");
    const struct
    {
        TaxType type;
        const char *first, *second;
    } cases[] = {
        {TaxType::Intra, "1|First|998221|FY|2023|1000|0|1000|Y|2.5|25|0|0|||1050",
         "2|Second||||10|0|10|N|9|1|9|1|||12"},
        {TaxType::Inter, "1|First|998221|FY|2023|1000|0|1000|Y|||||18|180|1050", "2|Second||||10|0|10|N|||||18|2|12"},
        {TaxType::None, "1|First|998221|FY|2023|1000|0|1000|Y|||||||1050", "2|Second||||10|0|10|N|||||||12"},
    };
    for (const auto &c : cases) {
        Cells lines = emptyBillLines();
        readBillLines(db(), 1, c.type, lines);
        ASSERT_EQ(lines.rows(), 5);
        const auto joined = [&lines](int row) {
            QStringList cells;
            for (int column = 0; column < BillColumnCount; ++column)
                cells << lines.text(row, column);
            return cells.join('|');
        };
        EXPECT_EQ(joined(3), c.first);
        EXPECT_EQ(joined(4), c.second);
    }
}

TEST_F(BillStore, EarlierTextsAreOfferedOnceFromAllCompanies)
{
    putBill(1, 0, 1, "2024-04-01");
    putBill(2, 0, 1, "2017-07-01", 2, 2017);
    database->run("Update GST_BillD Set part='Zeta' Where BillId=1");
    database->run("Insert Into GST_BillD (BillId,part) Values (2,'Zeta'),(2,''),(2,NULL),(2,'Audit')");
    database->run("Update GST_BillM Set Narr=NULL Where BillSrNo=1");
    database->run("Update GST_BillM Set Narr='Thanks' Where BillSrNo=2");
    EXPECT_EQ(earlierParticulars(db()), (QStringList{"Audit", "Put", "Zeta"}));
    EXPECT_EQ(earlierNarrations(db()), QStringList{"Thanks"});
}

} // namespace
} // namespace ledgora
