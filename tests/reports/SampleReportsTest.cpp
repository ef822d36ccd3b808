// The reports of a sample office with some thousand documents, among them bills that are gone and clients that left the
// directory, recomputed by other roads: the database's own sums, and the split of each receipt for itself.

#include "ReportOffice.h"
#include "app/care/SampleData.h"
#include "host/Balance.h"
#include "receipts/PaymentSplit.h"
#include "store/DocumentNumber.h"
#include <QSet>
#include <mysql.h>
#include <sys/wait.h>
#include <unistd.h>

namespace ledgora::test {
namespace {

using enum ReportKind;

/// An amount as shown, read back: "-" and "" are 0, brackets negative.
double amount(QString shown)
{
    shown.remove(',').remove("^F");
    if (shown.startsWith('('))
        return -shown.mid(1).chopped(1).toDouble();
    return shown.toDouble();
}

class SampleReports : public ReportOffice
{
protected:
    static void SetUpTestSuite()
    {
        ReportOffice::SetUpTestSuite();
        database->empty();
        const app::SamplePlan plan = app::settledPlan(
            {.seed = 11, .companies = 2, .parties = 50, .bills = 2000, .from = 2021, .today = QDate(2024, 6, 15)});
        ASSERT_EQ(app::writeSample(db(), plan).fault, "");
        database->run(
            "Delete GST_BillD,GST_BillM From GST_BillM Join GST_BillD On BillId=BillSrNo Where BillSrNo%97=0");
        database->run("Delete From GST_OthCl Where OthClSrNo%9=0");
        database->run("Delete From GST_BillD Where BillId=(Select min(BillSrNo) From GST_BillM Where BillSrNo Not In "
                      "(Select BillId From GST_RecpD))");
        database->run("Update GST_RecpD Set BillId=0 Where RecpId%50=0");
    }
    void SetUp() override
    {
        request.firmId = 1;
        request.from = "01/10/2022";
        request.to = "31/03/2024";
        request.asOn = "31/12/2023";
        askForAll();
        database->run("Create Temporary Table If Not Exists Asked (Code varchar(60) Primary Key)");
        database->run("Delete From Asked");
        database->run("Insert Into Asked Values (" + codeList(request).replace(",", "),(") + ')');
    }

    /// What a report's rows between heading and total say: cells joined with "|", those from `from` on as plain
    /// numbers.
    QStringList data(ReportKind kind, const char *lastHeading, int from)
    {
        QStringList rows;
        bool inData = false;
        for (const QString &line : lines(kind)) {
            QStringList cells = line.split('|');
            if (cells.first().startsWith("^E"))
                inData = false;
            for (qsizetype i = from; inData && i < cells.size(); ++i)
                cells[i] = QString::number(amount(cells.at(i)), 'f', 2);
            if (inData)
                rows << cells.join('|');
            inData = inData || line.startsWith(lastHeading);
        }
        return rows;
    }
    /// All tax inside a client's receipts up to a day, receipt by receipt: net, CGST, SGST, IGST, total.
    static std::array<double, 5> settled(const QString &code, const QString &upTo)
    {
        std::array<double, 5> sums{};
        Recordset receipts = db().Open("Select RecpSrNo,date_format(RecpDt,'%d/%m/%Y'),RecpNo From GST_RecpM Where "
                                       "FirmId=1 and Code_No='"
                                       + code + "' and RecpDt<='" + upTo + '\'');
        while (receipts.next()) {
            std::vector<PaymentRow> payments;
            Recordset stored = db().Open("Select BillId,Amount,Discount From GST_RecpD Where RecpId=" + receipts.text(0)
                                         + " Order by SrNo");
            while (stored.next())
                payments.push_back({int(stored.integer(0)), stored.number(1), stored.number(2)});
            const auto splits =
                splitOfReceipt(db(), int(receipts.integer(0)), receipts.text(1), int(receipts.integer(2)), payments);
            for (size_t i = 0; i < payments.size(); ++i) {
                const bool gone =
                    rows("Select 1 From GST_BillM Where BillSrNo=" + QString::number(payments[i].billId)).isEmpty();
                for (const TaxShare &share : {splits[i].amount, splits[i].discount}) {
                    const double taxes[] = {share.cgst.value_or(0), share.sgst.value_or(0), share.igst.value_or(0)};
                    sums[0] += share.applied.value_or(0) - taxes[0] - taxes[1] - taxes[2];
                    for (size_t tax = 0; tax < 3; ++tax)
                        sums[tax + 1] += taxes[tax];
                    sums[4] += share.applied.value_or(0);
                }
                const double untaxed = gone ? payments[i].amount + payments[i].discount : 0;
                sums[0] += untaxed;
                sums[4] += untaxed;
            }
        }
        return sums;
    }
};

constexpr auto asked = " Join Asked On Code=Code_No ";
constexpr auto billNumber = "if(BillSerId=0,BillNo,if(instr(Series,'##'),replace(Series,'##',BillNo),if(SP='S',"
                            "concat(BillNo,Series),concat(Series,BillNo))))";

TEST_F(SampleReports, AgreeWithTheDatabasesOwnSums)
{
    const QString ofPeriod = " FirmId=1 and BillDt Between '2022-10-01' and '2024-03-31' ";
    const QString money = "format(%1,2,'en_US')";
    const auto sum = [&money](const char *expression) {
        return QString("replace(" + money.arg(QString("ifnull(sum(%1),0)").arg(expression)) + ",',','')");
    };
    const QString bills =
        "Select concat_ws('|',date_format(BillDt,'%d/%m/%Y')," + QString(billNumber)
        + ",'',%1) From "
          "GST_BillM Left Join GST_Series On SeriesSrNo=BillSerId Left Join GST_BillD On BillId=BillSrNo"
        + asked + "Where" + ofPeriod + "Group by BillSrNo %2 Order by BillDt,BillNo,BillSrNo";
    const auto taxed = [&](const char *expression, const char *type) {
        return sum((QString("if(AppTaxType='") + type + "'," + expression + ",0)").toLatin1());
    };
    const auto nameless = [](QStringList rows, int column) {
        for (QString &row : rows) {
            QStringList cells = row.split('|');
            cells[column].clear();
            row = cells.join('|');
        }
        return rows;
    };
    EXPECT_EQ(
        nameless(data(Bills, "||||||No Tax", 4), 2),
        rows(bills.arg(QStringList{"PlaceOfServ", sum("ServAmt"), sum("DiscAmt"), taxed("TaxServAmt", "NO"),
                                   taxed("TaxServAmt", "INTRA"), taxed("TaxServAmt", "INTER"), taxed("CGST", "INTRA"),
                                   taxed("SGST", "INTRA"), taxed("IGST", "INTER"), sum("TotalAmt")}
                           .join(','),
                       "")));
    EXPECT_GT(report.size(), 300);
    const QString paid = "(Select ifnull(sum(%1),0) From GST_RecpD Where GST_RecpD.BillId=BillSrNo)";
    const auto plain = [&money](const QString &expression) {
        return QString("replace(" + money.arg(expression) + ",',','')");
    };
    const QString pending = "ifnull(sum(TotalAmt),0)-" + paid.arg("Amount+Discount");
    EXPECT_EQ(nameless(data(Pending, "Date|", 3), 2),
              rows(bills.arg(QStringList{sum("TotalAmt"), plain(paid.arg("Discount")), plain(paid.arg("TDS")),
                                         plain(paid.arg("Amount-TDS")), plain(pending)}
                                 .join(','),
                             "Having " + pending + ">0")));
    const QString discounts =
        "Select concat_ws('|','',%1,%2) From (Select Code_No,BillSrNo,sum(DiscAmt) d From GST_BillM "
        "Left Join GST_BillD On BillId=BillSrNo"
        + QString(asked) + "Where" + ofPeriod + "Group by BillSrNo) b Group by Code_No Having sum(d)<>0 Or sum("
        + paid.arg("Discount") + ")<>0";
    QStringList given = nameless(data(Discount, "Party Name", 1), 0);
    QStringList told = rows(discounts.arg(sum("d"), sum(paid.arg("Discount").toLatin1())));
    given.sort(), told.sort();
    EXPECT_EQ(given, told);
    QStringList deducted = nameless(data(Tds, "Party Name", 1), 0);
    QStringList stored =
        rows("Select concat('|'," + sum("TDS") + ") From GST_RecpM Join GST_RecpD On RecpId=RecpSrNo" + asked
             + "Where FirmId=1 and RecpDt Between '2022-10-01' and '2024-03-31' Group by "
               "Code_No Having sum(TDS)<>0");
    deducted.sort(), stored.sort();
    EXPECT_EQ(deducted, stored);
    request.sac = 6;
    EXPECT_EQ(nameless(data(Sac, "Date|", 3), 2),
              rows(bills
                       .arg(QStringList{sum("TaxServAmt"), sum("CGST"), sum("SGST"), sum("IGST"),
                                        sum("TaxServAmt+CGST+SGST+IGST")}
                                .join(','),
                            "")
                       .replace("On BillId=BillSrNo", "On BillId=BillSrNo and SAC='998231'")
                       .replace("Group by BillSrNo", "Group by BillSrNo Having sum(TotalAmt)>0")));
    EXPECT_TRUE(log.isEmpty());
}

TEST_F(SampleReports, ReceiptsAndOutstandingSplitAsEachReceiptForItself)
{
    std::array<double, 5> total{};
    for (const int row : request.rows) {
        const QString code = request.parties.text(row, ListedCode);
        const auto before = settled(code, "2022-09-30");
        const auto after = settled(code, "2024-03-31");
        for (size_t i = 0; i < total.size(); ++i)
            total[i] += after[i] - before[i];
    }
    QStringList discounts = rows(QString("Select sum(Discount) From GST_RecpM Join GST_RecpD On RecpId=RecpSrNo")
                                 + asked + "Where FirmId=1 and RecpDt Between '2022-10-01' and '2024-03-31'");
    const QStringList last = lines(Receipts).last().split('|');
    EXPECT_EQ(amount(last.at(7)), total[4] - discounts.first().toDouble());
    EXPECT_GT(data(Receipts, "Date|", 3).size(), 300);

    for (const int row : request.rows) {
        const QString code = request.parties.text(row, ListedCode);
        const QStringList billed =
            rows("Select ifnull(sum(TaxServAmt),0),ifnull(sum(CGST),0),ifnull(sum(SGST),0),ifnull(sum(IGST),0),"
                 "ifnull(sum(TotalAmt),0) From GST_BillM Join GST_BillD On BillId=BillSrNo Where FirmId=1 and "
                 "BillDt<='2023-12-31' and Code_No='"
                 + code + '\'')
                .first()
                .split('|');
        const auto paid = settled(code, "2023-12-31");
        request.rows = {row};
        const QStringList told = lines(Outstanding).at(5).split('|');
        for (qsizetype i = 0; i < 5 && billed.at(4).toDouble() - paid[4] > 0; ++i)
            EXPECT_EQ(amount(told.value(i + 1)), billed.at(i).toDouble() - paid[size_t(i)]) << code.toStdString();
    }
}

TEST_F(SampleReports, OutstandingAndAccountCloseWithTheBalance)
{
    request.asOn = request.to = "15/06/2024";
    int seen = 0;
    for (const int row : std::vector<int>(request.rows)) {
        const QString code = request.parties.text(row, ListedCode);
        const double balance = balanceOf(db(), 1, code);
        if (balance <= 0)
            continue;
        ++seen;
        request.rows = {row};
        EXPECT_EQ(amount(lines(Outstanding).last().section('|', -1)), balance) << code.toStdString();
        const QStringList account = lines(Account);
        EXPECT_TRUE(account.last().startsWith("||Closing Balance|")) << code.toStdString();
        EXPECT_EQ(amount(account.last().section('|', 3, 3)), balance) << code.toStdString();
    }
    EXPECT_GT(seen, 15);
}

TEST_F(SampleReports, KeepTwoUsersRunsApart)
{
    const auto halfOf = [this](bool odd) {
        std::vector<int> half;
        for (const int row : request.rows) {
            if ((row % 2 == 1) == odd)
                half.push_back(row);
        }
        return half;
    };
    const auto outstandingAndAccounts = [](Connection &connection, ReportRequest half) {
        ReportRows rowsOfRun;
        QStringList told;
        for (const ReportKind kind : {Outstanding, Account}) {
            half.kind = kind;
            told << makeReport(connection, half, rowsOfRun, unwatched()).fault << linesOf(rowsOfRun);
        }
        return told;
    };
    constexpr int rounds = 4;
    const std::vector<int> odd = halfOf(true);
    const std::vector<int> even = halfOf(false);
    request.rows = even;
    const QStringList ofEven = outstandingAndAccounts(db(), request);
    request.rows = odd;
    const QStringList ofOdd = outstandingAndAccounts(db(), request);
    ASSERT_NE(ofOdd, ofEven);
    const pid_t other = fork();
    if (other == 0) {
        Connection connection(connectToTestServer(database->name()));
        request.rows = even;
        int same = 0;
        for (int round = 0; round < rounds; ++round)
            same += outstandingAndAccounts(connection, request) == ofEven ? 1 : 0;
        _exit(same == rounds ? 0 : 1);
    }
    for (int round = 0; round < rounds; ++round)
        EXPECT_EQ(outstandingAndAccounts(db(), request), ofOdd);
    int status = -1;
    waitpid(other, &status, 0);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(rows("Show Tables Like 'TempCl%'"), QStringList());
}

TEST_F(SampleReports, SendNoMoreStatementsForMoreDocuments)
{
    const auto statements = [this](ReportKind kind) {
        const auto sent = [] { return rows("Show Session Status Like 'Questions'").first().section('|', 1).toInt(); };
        const int before = sent();
        lines(kind);
        return sent() - before - 1;
    };
    request.rows.resize(20);
    for (const ReportKind kind : {Bills, Receipts, Pending, Outstanding, Discount, Tds, Sac, Account}) {
        request.from = "01/03/2023";
        request.to = "31/03/2023";
        const int few = statements(kind);
        request.from = "01/04/2021";
        request.to = "15/06/2024";
        const int many = statements(kind);
        // Lines that settled nothing cost one look at their bills; an account takes its working table only when it has
        // anything to say.
        EXPECT_LE(many, few + (kind == Account ? 9 * 20 : 1)) << int(kind);
    }
}

} // namespace
} // namespace ledgora::test
