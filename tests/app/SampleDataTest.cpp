// The sample office: its rows obey the rules of the trade, are the same for the same seed, and its bills are those that
// the bill screen would have stored.

#include "app/care/SampleData.h"
#include "app/care/Check.h"
#include "app/care/SampleNames.h"
#include "controls/ChoiceBox.h"
#include "tests/bills/BillScreen.h"
#include <QRegularExpression>

using namespace ledgora;
using namespace ledgora::test;
using app::SamplePlan;

namespace {

SamplePlan smallPlan()
{
    return app::settledPlan({.seed = 7, .companies = 2, .parties = 60, .bills = 300, .from = 2022, .today = {}});
}

class SampleData : public BillScreen
{
protected:
    void SetUp() override
    {
        BillScreen::SetUp();
        data().empty();
    }
};

TEST_F(SampleData, ObeysTheRulesOfTheTrade)
{
    ASSERT_EQ(app::writeSample(data().db(), smallPlan()).fault, "");
    struct Rule
    {
        const char *name, *breaches;
    };
    const Rule rules[] = {
        {"numbers run from 1 without gaps in company, year and series",
         "Select 1 From GST_BillM Group by FirmId,FYr,BillSerId Having min(BillNo)<>1 Or max(BillNo)<>count(*) Or "
         "count(distinct BillNo)<>count(*)"},
        {"a higher number has no earlier date",
         "Select 1 From GST_BillM a Join GST_BillM b Using (FirmId,FYr,BillSerId) Where a.BillNo<b.BillNo And "
         "a.BillDt>b.BillDt"},
        {"the date lies in the year and not after today",
         "Select 1 From GST_BillM Where Year(BillDt-Interval 3 Month)<>FYr Or BillDt>'2024-06-15'"},
        {"the series is one of bills and of the year", "Select 1 From GST_BillM Left Join GST_Series On "
                                                       "SeriesSrNo=BillSerId And BR='B' And FY=FYr Where BillSerId<>0 "
                                                       "And SeriesSrNo Is Null"},
        {"tax is that of the place of supply",
         "Select 1 From GST_BillM,GST_FirmMas Where FirmId=FirmSrNo And AppTaxType<>'NO' And "
         "(PlaceOfServ=StateNm)<>(AppTaxType='INTRA')"},
        {"serials run from 1",
         "Select 1 From GST_BillM Left Join GST_BillD On BillId=BillSrNo Group by BillSrNo Having "
         "min(SrNo) Is Null Or min(SrNo)<>1 Or max(SrNo)<>count(*)"},
        {"PANs have their shape",
         "Select 1 From (Select PAN From GST_OthCl Union All Select PAN From Comp_Master Union "
         "All Select PAN From LLP_Master Union All Select PAN From GST_FirmMas) p Where PAN "
         "Not Regexp Binary '^[A-Z]{3}[PHCFAT][A-Z][0-9]{4}[A-Z]$'"},
        {"GSTINs hold the PAN",
         "Select 1 From GST_OthCl Where GSTIN<>'' And substr(GSTIN,3,10)<>PAN Union All Select 1 "
         "From GST_ClRegNo g Join Comp_Master On Code=Code_No Where substr(GSTIN,3,10)<>PAN"},
        {"no two clients have one name",
         "Select 1 From (Select Nm From GST_OthCl Union All Select Nm From Comp_Master Union All Select Nm From "
         "LLP_Master) n Group by Nm Having count(*)>1"},
    };
    const Rule receiptRules[] = {
        {"numbers run from 1 without gaps",
         "Select 1 From GST_RecpM Group by FirmId,FYr,RecpSerId Having min(RecpNo)<>1 Or max(RecpNo)<>count(*) Or "
         "count(distinct RecpNo)<>count(*)"},
        {"a higher number has no earlier date",
         "Select 1 From GST_RecpM a Join GST_RecpM b Using (FirmId,FYr,RecpSerId) Where a.RecpNo<b.RecpNo And "
         "a.RecpDt>b.RecpDt"},
        {"the date lies in the year and not after today",
         "Select 1 From GST_RecpM Where Year(RecpDt-Interval 3 Month)<>FYr Or RecpDt>'2024-06-15'"},
        {"rows settle bills of the client and company, not before their day",
         "Select 1 From GST_RecpM m Join GST_RecpD On RecpId=RecpSrNo Left Join GST_BillM b On BillSrNo=BillId And "
         "b.Code_No=m.Code_No And b.FirmId=m.FirmId And BillDt<=RecpDt Where BillSrNo Is Null"},
        {"nothing is settled beyond its total",
         "Select 1 From (Select BillId,sum(Amount+Discount) s From GST_RecpD Group by BillId) r Where s>(Select "
         "sum(TotalAmt) From GST_BillD d Where d.BillId=r.BillId)"},
        {"the money is what the rows say, of one to ten",
         "Select 1 From GST_RecpM Left Join GST_RecpD On RecpId=RecpSrNo Group by RecpSrNo Having max(Cash+OthAmt)<>"
         "sum(Amount-TDS) Or max(SrNo) Not Between 1 And 10 Or max(SrNo)<>count(*) Or min(TDS)<0 Or min(Amount-TDS)<0 "
         "Or min(Amount+Discount)<=0"},
        {"what the mode does not have is empty",
         "Select 1 From GST_RecpM Where (PayMode='0' And (OthAmt<>0 Or BankNm<>'')) Or (PayMode='7' And BankNm='') Or "
         "(PayMode In ('1','2','3'))<>(ChqNo<>'') Or (PayMode Not In ('1','2','3') And concat(BankBr,ChqDt)<>'')"},
    };
    for (const Rule &rule : receiptRules)
        EXPECT_EQ(data().rows(QLatin1String(rule.breaches)).size(), 0) << "receipts: " << rule.name;
    const char *kinds[] = {"Select distinct PayMode From GST_RecpM Where PayMode<>'0' Limit 7",
                           "Select 1 From GST_RecpD Where Discount>0 Limit 3",
                           "Select 1 From GST_RecpD Where TDS>0 Limit 3",
                           "Select 1 From GST_RecpM Where Cash>0 And OthAmt>0 Limit 3",
                           "Select distinct RecpId From GST_RecpD a Join GST_RecpD b Using (RecpId) Where "
                           "a.BillId<>b.BillId Limit 3",
                           "Select 1 From GST_RecpD,GST_RecpM,GST_BillM Where RecpId=RecpSrNo And BillId=BillSrNo And "
                           "RecpDt>BillDt+Interval 1 Year Limit 3",
                           "Select 1 From GST_RecpD Group by BillId Having count(*)>2 Limit 3",
                           "Select 1 From GST_BillM Where BillDt<'2023-04-01' And BillSrNo Not In (Select BillId From "
                           "GST_RecpD) Limit 3"};
    for (const char *kind : kinds)
        EXPECT_EQ(data().rows(QLatin1String(kind)).size(), QByteArray(kind).back() - '0') << kind;
    for (const Rule &rule : rules)
        EXPECT_EQ(data().rows(QLatin1String(rule.breaches)).size(), 0) << rule.name;
    EXPECT_EQ(data().rows("Select count(distinct AppTaxType),count(distinct FirmId),count(distinct FYr),count(*) From "
                          "GST_BillM"),
              QStringList{"3|2|3|300"});
}

TEST(SampleOfHosts, FillsTheClientTablesOfItsHost)
{
    const struct
    {
        const char *host, *clients;
        int count;
    } cases[] = {{"G", "Select Count(*) From Owner1 Where l_nm<>'' And State<>''", 12},
                 {"G", "Select Count(*) From Main_Info1 Where Nm<>'' And PAN<>''", 36},
                 {"T", "Select Count(*) From Main_Info Where Name<>'' And PIN<>''", 36}};
    for (const auto &c : cases) {
        test::Database database(c.host);
        SamplePlan plan = smallPlan();
        plan.host = c.host;
        ASSERT_EQ(app::writeSample(database.db(), plan).fault, "");
        EXPECT_EQ(database.rows(c.clients), QStringList{QString::number(c.count)}) << c.clients;
        const app::CheckResult checked = app::checkData(database.db(), c.host, 0, unwatched());
        EXPECT_TRUE(checked.fault.isEmpty() && checked.findings.empty()) << "bills know their clients";
    }
}

TEST_F(SampleData, IsTheSameForTheSameSeedAndGoesIntoAnEmptyOfficeOnly)
{
    const QString sum =
        "Checksum Table "
        "gst_firmmas,gst_othcl,gst_series,gst_billm,gst_billd,gst_recpm,gst_recpd,comp_master,llp_master";
    const auto sums = [&] { return data().rows(sum).replaceInStrings(QRegularExpression("^.*\\|"), ""); };
    ASSERT_EQ(app::writeSample(data().db(), smallPlan()).fault, "");
    const QStringList first = sums();
    EXPECT_EQ(
        data().rows("Select Count(*) From mysql.innodb_table_stats Where database_name=Database() And n_rows>0 And "
                    "table_name In ('gst_billm','gst_billd','gst_recpm','gst_recpd')"),
        QStringList{"4"})
        << "the server knows how many rows there are";
    EXPECT_EQ(app::writeSample(data().db(), smallPlan()).fault,
              "Sample data goes into an empty office only, and this one has rows in gst_firmmas.");
    EXPECT_EQ(sums(), first);
    data().empty();
    ASSERT_EQ(app::writeSample(data().db(), smallPlan()).fault, "");
    EXPECT_EQ(sums(), first);
    data().empty();
    SamplePlan other = smallPlan();
    other.seed = 8;
    ASSERT_EQ(app::writeSample(data().db(), other).fault, "");
    EXPECT_NE(sums(), first);
}

TEST(SampleNames, CheckCharacterOfAGstinIsThatOfRealOnes)
{
    EXPECT_EQ(app::sampleGstin("27", "AAPFU0939F"), "27AAPFU0939F1ZV");
}

class SampleBillOnTheScreen : public SampleData
{
protected:
    static QStringList row(const QString &sql) { return data().rows(sql).value(0).split('|'); }

    void pick(int line, int column, int entry)
    {
        clickCell("vsB", line, column);
        press(Qt::Key_Return);
        press(Qt::Key_Home);
        press(Qt::Key_Down, Qt::NoModifier, entry);
        press(Qt::Key_Return);
    }
    void over(int line, int column, const QString &value)
    {
        clickCell("vsB", line, column);
        press(Qt::Key_A, Qt::ControlModifier);
        value == "0" ? press(Qt::Key_Delete) : type(value);
        press(Qt::Key_Tab);
    }
    void choose(const char *list, const QString &entry)
    {
        find<QWidget>(list)->setFocus();
        press(Qt::Key_Home);
        for (int i = 0; i < find<ChoiceBox>(list)->count() && choice(list) != entry; ++i)
            press(Qt::Key_Down);
        ASSERT_EQ(choice(list), entry);
    }

    /// part, SAC, YrType, Yr, ServAmt, DiscAmt, FlagEdit, and rate and amount of the three taxes
    void keyLine(int line, int year, const QStringList &stored)
    {
        over(line, ParticularsColumn, stored[0]);
        const QStringList codes{"", "998221", "998222", "998223", "998224", "998231", "998232", "998240"};
        pick(line, SacColumn, int(codes.indexOf(stored[1])));
        pick(line, PeriodColumn, int(QStringList{"", "FY", "AY"}.indexOf(stored[2])));
        if (!stored[2].isEmpty())
            pick(line, YearColumn, year - stored[3].toInt());
        over(line, AmountColumn, stored[4]);
        over(line, DiscountColumn, stored[5]);
        const auto *grid = find<Grid>("vsB");
        for (int column = CgstRateColumn; column <= IgstColumn; column += 2) {
            if (!grid->isColumnHidden(column) && cell(line, column) != stored[column - 2])
                over(line, column, stored[column - 2]);
        }
        if (stored[6] != "Y")
            return;
        clickCell("vsB", line, EditTaxColumn);
        for (int column = CgstColumn; column <= IgstColumn; column += 2) {
            if (!grid->isColumnHidden(column))
                over(line, column, stored[column - 2]);
        }
    }

    /// Keys a stored bill in again from its columns.
    void keyIn(int id)
    {
        const QStringList head = row("Select FYr,(Select Nm From (Select Code,Nm From Comp_Master Union Select "
                                     "concat('LLP!~!',Code),Nm From LLP_Master Union Select OthClCode,Nm From "
                                     "GST_OthCl) p Where Code=Code_No),BillSerId,BillNo,date_format(BillDt,'%d%m%Y'),"
                                     "AppTaxType,Narr From GST_BillM Where BillSrNo="
                                     + QString::number(id));
        const QStringList lines = data().rows(
            "Select part,SAC,YrType,Yr,ServAmt,DiscAmt,FlagEdit,RtCGST,CGST,RtSGST,SGST,RtIGST,IGST From GST_BillD "
            "Where BillId="
            + QString::number(id) + " Order by SrNo");
        data().run("Delete From GST_BillM Where BillSrNo=" + QString::number(id));
        data().run("Delete From GST_BillD Where BillId=" + QString::number(id));
        open();
        choose("cbofyr", head[0] + '-' + QString::number(head[0].toInt() + 1).right(2));
        alt('A');
        type(head[1]);
        press(Qt::Key_Return);
        if (head[2] != "0")
            choose("cbosr", row("Select Series From GST_Series Where SeriesSrNo=" + head[2])[0]);
        retype("txtbillno", head[3]);
        retype("txtbilldt", head[4]);
        if (head[5] == "NO")
            choose("cboTaxType", "No Tax (Exempted)");
        for (int i = 0; i < lines.size(); ++i)
            keyLine(firstLine + i, head[0].toInt(), lines[i].split('|'));
        retype("txtNarr", head[6]);
        alt('U');
        ASSERT_FALSE(isEditing());
    }
};

TEST_F(SampleBillOnTheScreen, IsStoredAsTheSampleHasIt)
{
    ASSERT_EQ(app::writeSample(data().db(), smallPlan()).fault, "");
    CompanyState company = CompanyState::current();
    company.firmId = 1;
    company.firmStateCode = row("Select substr(GSTIN,1,2) From GST_FirmMas Where FirmSrNo=1")[0];
    company.apply();
    const QString columns =
        "Select m.FYr,Code_No,BillSerId,BillNo,BillDt,PlaceOfServ,AppTaxType,Narr,d.SrNo,part,SAC,"
        "YrType,Yr,ServAmt,DiscAmt,TaxServAmt,FlagEdit,RtCGST,CGST,RtSGST,SGST,RtIGST,IGST,TotalAmt "
        "From GST_BillM m Join GST_BillD d On BillId=BillSrNo Where BillSrNo=%1 Order by d.SrNo";
    const char *kinds[] = {"AppTaxType='INTRA' And DiscAmt>0 And Narr<>'' And SrNo>1",
                           "AppTaxType='INTER' And BillSerId<>0 And SrNo=1",
                           "AppTaxType='NO' And YrType='AY'",
                           "AppTaxType='INTRA' And FlagEdit='Y' And FYr=2023",
                           "AppTaxType='INTER' And FlagEdit='Y'",
                           "AppTaxType='INTRA' And RtCGST=2.5",
                           "AppTaxType<>'NO' And RtIGST+RtCGST=0"};
    for (const char *kind : kinds) {
        SCOPED_TRACE(kind);
        const int id = row("Select min(BillSrNo) From GST_BillM,GST_BillD Where FirmId=1 And BillId=BillSrNo And "
                           + QLatin1String(kind))[0]
                           .toInt();
        ASSERT_GT(id, 0) << "the sample has no such bill";
        const QStringList sampled = data().rows(columns.arg(id));
        keyIn(id);
        EXPECT_EQ(data().rows(columns.arg(row("Select Max(BillSrNo) From GST_BillM")[0])), sampled);
        delete screen();
    }
}

} // namespace
