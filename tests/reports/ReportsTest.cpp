// Each report of a small office, row by row; which rows count, and what a report says when it can not be read.

#include "ReportOffice.h"

#include "app/SessionModes.h"
#include "tests/support/StatementProxy.h"
#include <QTemporaryDir>
#include <mysql.h>

namespace ledgora::test {
namespace {

using enum ReportKind;

class Reports : public ReportOffice
{
protected:
    void SetUp() override
    {
        ReportOffice::SetUp();
        fill();
        askForAll();
    }
};

struct Expected
{
    const char *name;
    ReportKind kind;
    QStringList lines;  ///< below the company's name
    QStringList shapes; ///< below that of free lines
};

TEST_F(Reports, AreWrittenRowByRow)
{
    const QString billHeading =
        "Date|Bill No.|Party Name|Place of Supply|Value of Service|Discount|Net Amount~(Tax Applicability "
        "Wise)|||Tax "
        "under Intra-State||Tax under Inter-State|Total Amount";
    const QString twoBills =
        "01/06/2024|2/R|Ashok Traders|1148.5|76|76|-|1300.5|1 dated 10/04/2024 - Rs. 1000.5~INV/9 dated 13/05/2024 - "
        "Rs. 300";
    const Expected cases[] = {
        {"bills",
         Bills,
         {"", "Bill Details for the Period From 01/04/2024 to 31/03/2025", "condensed", "table 10", billHeading,
          "table 13", "||||||No Tax|Intra-State|Inter-State|CGST|SGST|IGST|",
          "10/04/2024|1|Ashok Traders|DELHI|1,000|-|-|1,000|-|90|90|-|1,180",
          "12/05/2024|INV/7|Bharat Mills|GOA|2,00,500|20,000|-|-|1,80,500|-|-|32,490|2,12,990",
          "13/05/2024|INV/9|Ashok Traders|DELHI|300|-|300|-|-|-|-|-|300",
          "20/05/2024|12|Chetan|DELHI|-|-|-|-|-|-|-|-|-",
          "^E||Grand Total||2,01,800|20,000|300|1,000|1,80,500|90|90|32,490|2,14,470^F"},
         {"14,20,50,20,12,12,36,0,0,24,0,12,12 CCCCCCCCCCCCC 1111111111111 0000000000001 1111111111111 0 table",
          "14,20,50,20,12,12,12,12,12,12,12,12,12 CCCCCCCCCCCCC 1111111111111 0000000000001 0000001111100 "
          "1111111111111 "
          "table",
          "14,20,50,20,12,12,12,12,12,12,12,12,12 CLLLRRRRRRRRR 1111111111111 0000000000001 0 0 table",
          "14,20,50,20,12,12,12,12,12,12,12,12,12 CLLLRRRRRRRRR 1111111111111 0000000000001 1111111111111 "
          "1111111111111 "
          "table"}},
        {"receipts",
         Receipts,
         {"", "Receipt Details for the Period From 01/04/2024 to 31/03/2025", "condensed", "table 9",
          "Date|Receipt No.|Party Name|Amount|CGST|SGST|IGST|Total Amount|Bill Nos.",
          "01/05/2024|1/R|Ashok Traders|500|45|45|-|590|3 dated 01/04/2023 - Rs. 590", twoBills,
          "02/06/2024|3|Bharat Mills|5700|-|-|-|5700|", "^E||Total|7348.5|121|121||7590.5|^F"},
         {"12,20,28,10,10,10,10,10,20 CCCCCCCCC 111111111 000000001 111111111 111111111 table",
          "12,20,28,10,10,10,10,10,20 CLLRRRRRL 111111111 000000001 0 0 table",
          "12,20,28,10,10,10,10,10,20 CLLRRRRRL 111111111 000000001 111111111 111111111 table"}},
        {"pending bills",
         Pending,
         {"", "Pending Bill Details for the Period From 01/04/2024 to 31/03/2025", "condensed", "table 8",
          "Date|Bill No.|Party Name|Bill Amount|Discount|TDS|Receipt Amount|Pending Amount",
          "10/04/2024|1|Ashok Traders|1,180|100|100|901|80", "12/05/2024|INV/7|Bharat Mills|2,12,990|-|-|-|2,12,990",
          "^E||Grand Total|2,14,170|100|100|901|2,13,070^F"},
         {"14,24,42,14,14,14,14,14 CCCCCCCC 11111111 00000001 11111111 11111111 table",
          "14,24,42,14,14,14,14,14 CLLRRRRR 11111111 00000001 0 0 table",
          "14,24,42,14,14,14,14,14 CLLRRRRR 11111111 00000001 11111111 11111111 table"}},
        {"outstanding",
         Outstanding,
         {"", "Outstanding Details As on Date 31/05/2024", "table 6", "Party Name|Amount|CGST|SGST|IGST|Total",
          "Ashok Traders|1,800|135|135|-|2,070", "Bharat Mills|1,80,500|-|-|32,490|2,12,990",
          "^ETotal|1,82,300|135|135|32,490|2,15,060^F"},
         {"28,10,10,10,10,10 CCCCCC 111111 000001 111111 111111 table",
          "28,10,10,10,10,10 LRRRRR 111111 000001 0 0 table",
          "28,10,10,10,10,10 LRRRRR 111111 000001 111111 111111 table"}},
        {"discount",
         Discount,
         {"", "Discount Details - Party Wise for the Period From 01/04/2024 to 31/03/2025", "table 3",
          "Party Name|Amount (Bill)|Amount (Receipt)", "Ashok Traders|-|100", "Bharat Mills|20,000|-",
          "^ETotal|20,000|100^F"},
         {"50,14,14 CCC 111 001 111 111 table", "50,14,14 LRR 111 001 0 0 table",
          "50,14,14 LRR 111 001 111 111 table"}},
        {"TDS",
         Tds,
         {"", "TDS Details - Party Wise for the Period From 01/04/2024 to 31/03/2025", "table 2", "Party Name|Amount",
          "Ashok Traders|150", "^ETotal|150^F"},
         {"64,14 CC 11 01 11 11 table", "64,14 LR 11 01 0 0 table", "64,14 LR 11 01 11 11 table"}},
        {"services",
         Sac,
         {"",
          "SAC Wise Bill Details for the Period From 01/04/2024 to 31/03/2025",
          "normal",
          "(Blank)",
          "condensed",
          "table 8",
          "Date|Bill No.|Party Name|Amount|CGST|SGST|IGST|Total",
          "12/05/2024|INV/7|Bharat Mills|500|-|-|90|590",
          "^E||Total|500|||90|590^F",
          "normal",
          "998221 - Financial auditing services",
          "condensed",
          "table 8",
          "Date|Bill No.|Party Name|Amount|CGST|SGST|IGST|Total",
          "10/04/2024|1|Ashok Traders|1000|90|90|-|1180",
          "13/05/2024|INV/9|Ashok Traders|300|-|-|-|300",
          "^E||Total|1300|90|90||1480^F",
          "normal",
          "998222 - Accounting and bookkeeping services",
          "condensed",
          "table 8",
          "Date|Bill No.|Party Name|Amount|CGST|SGST|IGST|Total",
          "12/05/2024|INV/7|Bharat Mills|180000|-|-|32400|212400",
          "^E||Total|180000|||32400|212400^F"},
         {"12,20,50,12,12,12,12,12 CCCCCCCC 11111111 00000001 11111111 11111111 table",
          "12,20,50,12,12,12,12,12 CLLRRRRR 11111111 00000001 0 0 table",
          "12,20,50,12,12,12,12,12 CLLRRRRR 11111111 00000001 11111111 11111111 table"}},
    };
    for (const Expected &expected : cases) {
        EXPECT_EQ(lines(expected.kind), QStringList{"^ESHARMA & ASSOCIATES^F"} + expected.lines) << expected.name;
        EXPECT_EQ(shapesOf(report), QStringList{"78 C 0 0 0 0 free"} + expected.shapes) << expected.name;
        EXPECT_EQ(report.wide(), expected.kind == Bills) << expected.name;
    }
    EXPECT_TRUE(log.isEmpty());
    EXPECT_EQ(rows("Show Tables Like 'TempCl%'"), QStringList());
}

TEST_F(Reports, TellClientAccountsFromOpeningToClosing)
{
    request.billNumbers = true;
    const QStringList head = {"condensed", "table 10",
                              "^EDate|B/R|No.|Amount||Net Value of Service|CGST|SGST|IGST|Discount on Receipt|TDS",
                              "table 11", "|||Dr.|Cr.||||||^F"};
    const QStringList ashok = {"||Opening Balance|1,180||1,000|90|90|||",
                               "10-Apr-24|B|1|1,180||1,000|90|90|||",
                               "01-May-24|R|1/R (3)||590|(500)|(45)|(45)|||50",
                               "13-May-24|B|INV/9|300||300|||||",
                               "01-Jun-24|R|2/R (1/INV/9)||1,301|(1,149)|(76)|(76)||100|100",
                               "||Total Discount||100|(84)|(8)|(8)|||",
                               "||Total|2,660|1,991|||||100|150",
                               "||Closing Balance|670||568|51|51|||"};
    const QStringList bharat = {"12-May-24|B|INV/7|2,12,990||1,80,500|||32,490||",
                                "02-Jun-24|R|3||5,700|(5,700)||||50|", "||Total Discount||50|(50)|||||",
                                "||Total|2,12,990|5,750|||||50|", "||Closing Balance|2,07,240||1,74,750|||32,490||"};
    const QStringList chetan = {"20-May-24|B|12||||||||", "||Total||||||||"};
    const QStringList told =
        QStringList{"^ESHARMA & ASSOCIATES^F", "Client Accounts for the Period From 01/04/2024 to 31/03/2025", "normal",
                    "^EAshok Traders^F"}
        + head + ashok + QStringList{"normal", "^EBharat Mills^F"} + head + bharat + QStringList{"normal", "^EChetan^F"}
        + head + chetan;
    EXPECT_EQ(lines(Account), told);
    const QString widths = "12,8,26,12,12,12,12,12,12,12,12 ";
    EXPECT_EQ(shapesOf(report),
              QStringList({"78 C 0 0 0 0 free",
                           "12,8,26,24,0,12,12,12,12,12,12 CCCCCCCCCCC 11111111111 00000000001 11111111111 0 table",
                           widths + "CCCCCCCCCCC 11111111111 00000000001 00011000000 11111111111 table",
                           widths + "CCLRRRRRRRR 11111111111 00000000001 0 0 table",
                           widths + "CCLRRRRRRRR 11111111111 00000000001 11111111111 11111111111 table",
                           widths + "CCLRRRRRRRR 0 0 0 0 table"}));

    // The working table serves one party; a run of very many does without, and says the same.
    const QStringList few = linesOf(report);
    for (int copy = 0; copy < 40; ++copy)
        request.rows.insert(request.rows.end(), {1, 2, 3});
    const QStringList many = lines(Account);
    EXPECT_EQ(many.mid(0, few.size()), few);
    EXPECT_EQ(many.size(), 2 + 41 * (few.size() - 2));

    // What date, number and kind leave open the id decides, not the series nor the chance of the table.
    database->run("Insert Into GST_Series Values (8,'B',2024,'A/','P'),(9,'B',2024,'Z/','P')");
    database->run("Insert Into GST_BillM Values (21,1,2024,'B',8,70,'2024-07-01','GOA','NO',''),"
                  "(20,1,2024,'B',9,70,'2024-07-01','GOA','NO','')");
    database->run("Insert Into GST_BillD Values (20,1,'','','',0,3,0,3,'N',0,0,0,0,0,0,3),"
                  "(21,1,'','','',0,4,0,4,'N',0,0,0,0,0,0,4)");
    for (const size_t parties : {size_t(123), size_t(1)}) {
        request.rows.resize(parties, 2);
        request.rows.front() = 2;
        const QStringList tied = lines(Account).filter("/70|");
        EXPECT_EQ(tied.mid(0, 2), (QStringList{"01-Jul-24|B|Z/70|3||3|||||", "01-Jul-24|B|A/70|4||4|||||"}));
    }
    database->run("Delete From GST_BillM Where BillSrNo>=20");

    // Of what came before the period only the balance: a party in balance and without entries has no account.
    request.rows = {1, 2, 3};
    request.from = "01/07/2024";
    const QStringList later = lines(Account);
    EXPECT_TRUE(later.contains("||Opening Balance|670||568|51|51|||")) << later.join('\n').toStdString();
    EXPECT_FALSE(later.contains("^EChetan^F"));
    EXPECT_TRUE(log.isEmpty());
}

TEST_F(Reports, LimitOutstandingByAmountAndByBills)
{
    struct Case
    {
        const char *name;
        AmountTest first, second;
        bool both;
        QStringList parties;
    };
    const Case cases[] = {
        {"more than", {1, 2070}, {}, true, {"Bharat Mills"}},
        {"at least", {3, 2070}, {}, true, {"Ashok Traders", "Bharat Mills"}},
        {"the second alone", {}, {2, 2071}, true, {"Ashok Traders"}},
        {"both", {1, 2000}, {4, 2070}, true, {"Ashok Traders"}},
        {"either", {5, 2070}, {1, 200000}, false, {"Ashok Traders", "Bharat Mills"}},
        {"not equal", {6, 2070}, {}, true, {"Bharat Mills"}},
        {"never in credit", {2, -1}, {}, true, {}},
    };
    database->run("Insert Into GST_RecpM (RecpSrNo,FirmId,Code_No,RecpNo,RecpDt) Values (4,1,'C',4,'2024-05-01')");
    database->run("Insert Into GST_RecpD Values (4,1,0,500,0,0)");
    for (const Case &c : cases) {
        request.amounts = {c.first, c.second};
        request.bothAmounts = c.both;
        QStringList parties;
        for (const QString &line : lines(Outstanding).mid(5))
            parties << line.section('|', 0, 0);
        EXPECT_EQ(parties, c.parties + QStringList{"^ETotal"}) << c.name;
    }
    request.amounts = {};
    request.asOn = "30/06/2024";
    request.billsUpTo = "30/04/2024";
    // Only what was paid on the bills of the report counts; on account and on other bills does not.
    EXPECT_EQ(lines(Outstanding).mid(2),
              QStringList({"Outstanding Details As on Date 30/06/2024 (For Bills Issued Upto Date: 30/04/2024)",
                           "table 6", "Party Name|Amount|CGST|SGST|IGST|Total", "Ashok Traders|568|51|51|-|670",
                           "^ETotal|568|51|51||670^F"}));
    request.billsUpTo = request.asOn;
    EXPECT_EQ(lines(Outstanding).mid(2),
              QStringList({"Outstanding Details As on Date 30/06/2024", "table 6",
                           "Party Name|Amount|CGST|SGST|IGST|Total", "Ashok Traders|568|51|51|-|670",
                           "Bharat Mills|1,74,750|-|-|32,490|2,07,240", "^ETotal|1,75,318|51|51|32,490|2,07,910^F"}));
}

TEST_F(Reports, PrintWithThePartysNameWhatIsAskedFor)
{
    struct Case
    {
        const char *name;
        bool properCase;
        PartyDetails details;
        const char *cell;
    };
    const PartyDetails all{true, true, true, true, true, true, true};
    const Case cases[] = {
        {"name alone", false, {}, "ASHOK TRADERS"},
        {"proper case", true, all,
         "^EAshok Traders^F~GSTIN: 07AAAPA1234B1Z5~PAN: AAAPA1234B~1, Mg Road, Delhi, Delhi-110001~Ph.No.: 011-1, "
         "011-2~Mobile: 98100~E-mail: a@b.in"},
        {"upper case, labels too",
         false,
         {.phone = true, .email = true},
         "^EASHOK TRADERS^F~PH.NO.: 011-1, 011-2~E-MAIL: A@B.IN"},
        {"nothing to print", true, {.fax = true}, "Ashok Traders"},
    };
    request.rows = {1};
    for (const Case &c : cases) {
        request.properCase = c.properCase;
        request.details = c.details;
        const QStringList told = lines(Tds);
        EXPECT_EQ(told.at(5), QString(c.cell) + "|150") << c.name;
        EXPECT_EQ(told.at(6) == "|", QString(c.cell).startsWith('^')) << c.name; // the row that keeps parties apart
    }
    request.details = {.pan = true};
    EXPECT_EQ(lines(Account).at(3), "^EAshok Traders^F~PAN: AAAPA1234B");
    request.groupName = "MINE";
    EXPECT_EQ(linesOf((make(Account), report)).at(1),
              "Client Accounts for the Period From 01/04/2024 to 31/03/2025 (Group : MINE)");
    EXPECT_EQ(lines(Sac).at(2), "SAC Wise Bill Details for the Period From 01/04/2024 to 31/03/2025 (Group : MINE)");
}

TEST_F(Reports, CountTheTickedRowsOfTheGroup)
{
    Cells &parties = request.parties;
    database->run("Update GST_OthCl Set OthClCode='B''\\\\,' Where OthClSrNo=2");
    askForAll();
    for (const int row : {1, 2})
        parties.setText(row, ListedTick, "Y");
    EXPECT_EQ(tickedRows(parties), (std::vector<int>{1, 2}));
    EXPECT_EQ(showGroup(parties, "'C','none','B''\\\\,'"), 3); // first found, not first in the list
    EXPECT_EQ(tickedRows(parties), std::vector<int>{2});
    EXPECT_EQ(showGroup(parties, ""), 1);
    EXPECT_EQ(tickedRows(parties), (std::vector<int>{1, 2}));
    request.rows = tickedRows(parties);
    request.sac = 2;
    EXPECT_EQ(lines(Sac).filter("20").size(), 3); // title and Ashok's two
    EXPECT_TRUE(log.isEmpty());
}

TEST_F(Reports, EmptyTheTotalOfASectionWithoutAmounts)
{
    database->run("Update GST_BillD Set TaxServAmt=0,CGST=0,SGST=0,IGST=0 Where SAC='998221'");
    request.sac = 2;
    EXPECT_EQ(lines(Sac).last(), "^E||Total|||||^F");
}

TEST_F(Reports, ShowHeadingAndTotalWhenNothingCouldBeRead)
{
    const std::pair<ReportKind, QStringList> cases[] = {
        {Bills, {"REPBILLS", "^E||Grand Total||0|0|0|0|0|0|0|0|0^F"}},
        {Receipts, {"REPRECEIPTS", "^E||Total||||||^F"}},
        {Pending, {"REPPENDINGBILLS", "^E||Grand Total|0|0|0|0|0^F"}},
        {Outstanding, {"REPOUTSTANDING", "^ETotal|||||^F"}},
        {Discount, {"REPDISCOUNT", "^ETotal||^F"}},
        {Tds, {"REPTDS", "^ETotal|^F"}},
        {Sac, {"REPSAC", "SAC Wise Bill Details for the Period From 01/04/2024 to 31/03/2025"}},
        {Account, {"GETACCOUNT", "Client Accounts for the Period From 01/04/2024 to 31/03/2025"}},
    };
    request.rows = {1};
    database->run("Delete From GST_BillM");
    database->run("Delete From GST_RecpM");
    for (const auto &[kind, expected] : cases)
        EXPECT_EQ(lines(kind).last(), expected.last());
    EXPECT_TRUE(log.isEmpty());
    database->run("Rename Table GST_BillM To Away1, GST_RecpM To Away2");
    for (const auto &[kind, expected] : cases) {
        const auto before = log.sites().size();
        EXPECT_NE(make(kind), "");
        EXPECT_EQ(linesOf(report).at(report.size() - 2), expected.last());
        QStringList sites = log.sites().mid(before);
        sites.removeDuplicates();
        EXPECT_EQ(sites, QStringList("frmReportsGST " + expected.first()));
    }
    database->run("Rename Table Away1 To GST_BillM, Away2 To GST_RecpM");
}

/// The connection ends at each statement in turn, until the report needs no further one.
TEST_F(Reports, NeverPassAsCompleteWhenAStatementFails)
{
    const QTemporaryDir folder;
    StatementProxy road(folder.filePath("road"), database->handle()->unix_socket);
    for (const ReportKind kind : {Bills, Receipts, Pending, Outstanding, Discount, Tds, Sac, Account}) {
        request.kind = kind;
        const QStringList whole = lines(kind);
        for (int nth = 1; nth > 0; ++nth) {
            const std::unique_ptr<MYSQL, decltype(&mysql_close)> handle(app::newHandle(1), &mysql_close);
            ASSERT_TRUE(mysql_real_connect(handle.get(), nullptr, "root", nullptr,
                                           database->name().toUtf8().constData(), 0,
                                           road.address().toLocal8Bit().constData(), app::connectFlags()))
                << mysql_error(handle.get());
            Connection db(handle.get());
            road.stopAt(StatementProxy::Stop::Drop, "", nth);
            const ReportResult made = makeReport(db, request, report, unwatched());
            if (!road.waitForStop(std::chrono::milliseconds(0))) {
                EXPECT_EQ(made.fault, "");
                EXPECT_EQ(linesOf(report), whole);
                EXPECT_GT(nth, 3) << int(kind);
                road.stopAt(StatementProxy::Stop::Drop, "not again");
                break;
            }
            const QString said = "This report is incomplete. The database failed: ";
            EXPECT_TRUE(made.isPartly && made.fault.startsWith(said)) << int(kind) << ' ' << nth;
            EXPECT_EQ(report.notice(), made.fault);
            EXPECT_EQ(linesOf(report).last(), "^E" + made.fault + "^F");
        }
    }
}

TEST_F(Reports, EndWhereTheUserEndsThem)
{
    for (const ReportKind kind : {Outstanding, Discount, Tds, Account, Bills}) {
        request.kind = kind;
        for (int last = 1; last < 4; ++last) {
            int told = 0;
            const QString fault =
                makeReport(db(), request, report, [&](qint64, qint64, const QString &) { return ++told < last; }).fault;
            EXPECT_EQ(fault, told < last ? "" : "It was cancelled.");
            EXPECT_EQ(rows("Show Tables Like 'TempCl%'"), QStringList());
        }
    }
    EXPECT_EQ(lines(Tds).last(), "^ETotal|150^F"); // the name of the table is free again
}

} // namespace
} // namespace ledgora::test
