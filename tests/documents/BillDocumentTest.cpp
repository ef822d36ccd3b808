#include "documents/BillDocument.h"

#include <QFile>
#include <QStringList>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace ledgora {
namespace {

BillDocumentLine auditLine()
{
    BillDocumentLine line;
    line.particulars = "Audit fee\r\nfor the year";
    line.sac = " 998221 ";
    line.sacAlone = "998221";
    line.yearType = "AY";
    line.yearShown = "2017-18";
    line.year = 2017;
    line.amount = 1100;
    line.discount = 100;
    line.net = 1000;
    line.cgstRate = line.sgstRate = 9;
    line.cgst = 90;
    line.sgst = 91;
    line.igstRate = 2.5;
    line.igst = 25;
    line.total = 1181;
    return line;
}

BillDocument billOf(TaxType taxType, std::size_t lines)
{
    BillDocument bill;
    bill.taxType = taxType;
    bill.lines.assign(lines, auditLine());
    bill.totals = {1100, 100, 1000, 90, 91, 25, 1250.75};
    return bill;
}

QStringList namesOf(const BillDocument &bill)
{
    QStringList names;
    const auto list = billPlaceholders(bill);
    for (const Placeholder &placeholder : list.value_or(std::vector<Placeholder>()))
        names += placeholder.name;
    return names;
}

/// What the document shows for a placeholder; numbers marked, "(untouched)" when nothing replaces it.
std::string shown(const BillDocument &bill, const QString &name)
{
    const auto list = billPlaceholders(bill);
    for (const Placeholder &placeholder : list.value_or(std::vector<Placeholder>())) {
        if (placeholder.name != name)
            continue;
        if (const auto *text = std::get_if<QString>(&placeholder.value))
            return text->toStdString();
        return "number " + QString::number(std::get<double>(placeholder.value)).toStdString();
    }
    return "(untouched)";
}

struct OrderCase
{
    const char *name;
    TaxType taxType;
    const char *line, *totals; ///< names of the tax kind, in their order
};

class BillPlaceholders : public testing::TestWithParam<OrderCase>
{
};

// A value is searched by the later replacements, so templates of offices rely on the order.
TEST_P(BillPlaceholders, ComeInTheOrderThatTemplatesRelyOn)
{
    const QString taxOfLine = GetParam().line;
    const QString totals = GetParam().totals;
    QString expected = "#FIRM_NAME# #FIRM_DESIG# #FIRM_GSTIN# #FIRM_PAN# #PARTY_NAME# #PARTY_GSTIN# #PARTY_PAN# "
                       "#PARTY_ADDRESS# #PLACE_OF_SUPPLY# #BILL_DT# #BILL_NO# ";
    for (int row = 1; row <= 2; ++row)
        expected +=
            QString("#SN_N# #PARTICULARS_N# #SAC_N# #PARTICULARS_SAC_N# #YR_N# #AMT_N# #DISC_N# #NAMT_N# " + taxOfLine)
                .replace("_N#", QString("_%1#").arg(row));
    for (int row = 3; row <= 10; ++row)
        expected += QString("#SN_N# #PARTICULARS_N# #SAC_N# #PARTICULARS_SAC_N# #YR_N# #AMT_N# #DISC_N# #NAMT_N# "
                            "#CRT_N# #CAMT_N# #SRT_N# #SAMT_N# #IRT_N# #IAMT_N# #TAMT_N# ")
                        .replace("_N#", QString("_%1#").arg(row));
    expected += "#GTAMT# #GTDISC# #GTNAMT# " + totals
                + "#TOTFIGS# #TOTWORDS# #PAYTERMS_INFAVOF# #PAYTERMS_BANKNM# #PAYTERMS_BANKBR# "
                  "#PAYTERMS_BANKNM_BRADD# #PAYTERMS_ACNO# #PAYTERMS_IFSC# #PAYTERMS_COMMENTS# #NOTE# "
                  "#AUTHSIGN_NAME# #AUTHSIGN_DESIG# #FIRM_ADDRESS# #FIRM_CONTDET# #FIRM_EMLWEB#";
    EXPECT_EQ(namesOf(billOf(GetParam().taxType, 2)).join(' ').toStdString(), expected.toStdString());
}

INSTANTIATE_TEST_SUITE_P(
    TaxTypes, BillPlaceholders,
    testing::Values(OrderCase{"Intra", TaxType::Intra, "#CRT_N# #CAMT_N# #SRT_N# #SAMT_N# #TAMT_N# ",
                              "#GTCAMT# #GTSAMT# #GTTAMT# "},
                    OrderCase{"Inter", TaxType::Inter, "#IRT_N# #IAMT_N# #TAMT_N# ", "#GTIAMT# #GTTAMT# "},
                    OrderCase{"None", TaxType::None, "", ""}),
    [](const auto &order) { return std::string(order.param.name); });

struct ValueCase
{
    TaxType taxType;
    const char *name, *value;
};

TEST(BillDocument, LineAndTotalsShowTheTaxOfTheirKindOnly)
{
    const ValueCase cases[] = {
        {TaxType::Intra, "#SN_1#", "1."},
        {TaxType::Intra, "#PARTICULARS_1#", "Audit fee\r\nfor the year"},
        {TaxType::Intra, "#SAC_1#", "998221"},
        {TaxType::Intra, "#PARTICULARS_SAC_1#", "Audit fee\r\nfor the year\r\nSAC :  998221 "},
        {TaxType::Intra, "#YR_1#", "A.Y.\r\n2017-18"},
        {TaxType::Intra, "#AMT_1#", "number 1100"},
        {TaxType::Intra, "#DISC_1#", "number 100"},
        {TaxType::Intra, "#NAMT_1#", "number 1000"},
        {TaxType::Intra, "#CRT_1#", "9%"},
        {TaxType::Intra, "#CAMT_1#", "number 90"},
        {TaxType::Intra, "#SRT_1#", "9%"},
        {TaxType::Intra, "#SAMT_1#", "number 91"},
        {TaxType::Intra, "#TAMT_1#", "number 1181"},
        {TaxType::Intra, "#IRT_1#", "(untouched)"},
        {TaxType::Intra, "#SN_2#", ""},
        {TaxType::Intra, "#IAMT_10#", ""},
        {TaxType::Intra, "#GTCAMT#", "number 90"},
        {TaxType::Intra, "#GTSAMT#", "number 91"},
        {TaxType::Intra, "#GTIAMT#", "(untouched)"},
        {TaxType::Intra, "#GTTAMT#", "number 1250.75"},
        {TaxType::Inter, "#IRT_1#", "2.5%"},
        {TaxType::Inter, "#IAMT_1#", "number 25"},
        {TaxType::Inter, "#TAMT_1#", "number 1181"},
        {TaxType::Inter, "#CRT_1#", "(untouched)"},
        {TaxType::Inter, "#GTIAMT#", "number 25"},
        {TaxType::Inter, "#GTSAMT#", "(untouched)"},
        {TaxType::None, "#TAMT_1#", "(untouched)"},
        {TaxType::None, "#TAMT_2#", ""},
        {TaxType::None, "#GTTAMT#", "(untouched)"},
        {TaxType::None, "#GTAMT#", "number 1100"},
        {TaxType::None, "#GTDISC#", "number 100"},
        {TaxType::None, "#GTNAMT#", "number 1000"},
        {TaxType::None, "#TOTFIGS#", "number 1250.75"},
        {TaxType::None, "#TOTWORDS#", "Rupees One Thousand Two Hundred Fifty And Seventy Five Paisa Only"},
    };
    for (const auto &c : cases)
        EXPECT_EQ(shown(billOf(c.taxType, 1), c.name), c.value) << c.name << " of kind " << int(c.taxType);
}

TEST(BillDocument, YearNeedsAKnownKindAndAYear)
{
    const struct
    {
        const char *kind;
        double year;
        const char *text;
    } cases[] = {{"FY", 2017, "F.Y.\r\n2017-18"}, {"FY", 0, ""}, {"AY", -1, ""}, {"", 2017, ""}, {"fy", 2017, ""}};
    for (const auto &c : cases) {
        BillDocument bill = billOf(TaxType::None, 1);
        bill.lines[0].yearType = c.kind;
        bill.lines[0].year = c.year;
        EXPECT_EQ(shown(bill, "#YR_1#"), c.text) << c.kind << ' ' << c.year;
    }
}

TEST(BillDocument, SacOfBlanksAddsNoLine)
{
    BillDocument bill = billOf(TaxType::None, 1);
    bill.lines[0].sac = "  ";
    EXPECT_EQ(shown(bill, "#PARTICULARS_SAC_1#"), "Audit fee\r\nfor the year");
}

TEST(BillDocument, TenLinesLeaveNothingBlankAndElevenShowNothing)
{
    EXPECT_EQ(shown(billOf(TaxType::Intra, 10), "#SN_10#"), "10.");
    EXPECT_EQ(shown(billOf(TaxType::Intra, 10), "#IRT_10#"), "(untouched)");
    EXPECT_EQ(namesOf(billOf(TaxType::Intra, 10)).filter("#SN_").size(), 10);
    EXPECT_FALSE(billPlaceholders(billOf(TaxType::Intra, 11)).has_value());
    EXPECT_EQ(shown(billOf(TaxType::Intra, 0), "#SN_1#"), "");
}

TEST(BillDocument, FiveNamesFollowTheNameCase)
{
    BillDocument bill = billOf(TaxType::Intra, 0);
    bill.firm.name = bill.firm.designation = bill.partyName = bill.partyAddress = "aBC dEF";
    bill.firm.signName = bill.firm.signDesignation = bill.firm.addr1 = bill.narration = "aBC dEF";
    for (const char *name : {"#FIRM_NAME#", "#PARTY_NAME#", "#PARTY_ADDRESS#", "#AUTHSIGN_NAME#", "#AUTHSIGN_DESIG#"}) {
        bill.properCase = true;
        EXPECT_EQ(shown(bill, name), "Abc Def") << name;
        bill.properCase = false;
        EXPECT_EQ(shown(bill, name), "ABC DEF") << name;
    }
    for (const char *name : {"#FIRM_DESIG#", "#FIRM_ADDRESS#", "#NOTE#"})
        EXPECT_EQ(shown(bill, name), "aBC dEF") << name;
}

TEST(BillDocument, FirmTextsOfTheHeadAndPaymentTermsKeepTheirPlaces)
{
    BillDocument bill = billOf(TaxType::Intra, 0);
    bill.firm.gstin = "g";
    bill.firm.pan = "p";
    bill.firm.bankAccountName = "an";
    bill.firm.bankAccountNo = "no";
    bill.firm.bankIfsc = "if";
    bill.firm.paymentComments = "co";
    bill.partyGstin = "pg";
    bill.partyPan = "pp";
    bill.placeOfSupply = "DELHI (07)";
    bill.billDate = "01/06/2018";
    bill.billNumber = "A/1";
    const std::pair<const char *, const char *> cases[] = {{"#FIRM_GSTIN#", "g"},
                                                           {"#FIRM_PAN#", "p"},
                                                           {"#PARTY_GSTIN#", "pg"},
                                                           {"#PARTY_PAN#", "pp"},
                                                           {"#BILL_NO#", "A/1"},
                                                           {"#BILL_DT#", "01/06/2018"},
                                                           {"#PAYTERMS_IFSC#", "if"},
                                                           {"#PAYTERMS_ACNO#", "no"},
                                                           {"#PAYTERMS_INFAVOF#", "an"},
                                                           {"#PAYTERMS_COMMENTS#", "co"},
                                                           {"#PLACE_OF_SUPPLY#", "DELHI (07)"}};
    for (const auto &[name, value] : cases)
        EXPECT_EQ(shown(bill, name), value) << name;
}

TEST(BillDocument, BankAndBranchHaveACommaOnlyBetweenThem)
{
    for (const auto &[bank, branch, both] : {std::tuple("SBI", "Fort", "SBI, Fort"), std::tuple("SBI", "", "SBI"),
                                             std::tuple("", "Fort", "Fort"), std::tuple("", "", "")}) {
        BillDocument bill = billOf(TaxType::Intra, 0);
        bill.firm.bankName = bank;
        bill.firm.bankBranch = branch;
        EXPECT_EQ(shown(bill, "#PAYTERMS_BANKNM_BRADD#"), both);
    }
}

TEST(FirmTexts, AddressHasSeparatorsOnlyBehindSomething)
{
    const struct
    {
        const char *addr1, *addr2, *city, *pin, *state, *text;
    } cases[] = {
        {"1 MG Road", "Fort", "Mumbai", "400001", "MAHARASHTRA", "1 MG Road\r\nFort, Mumbai-400001 (MAHARASHTRA)"},
        {"", "Fort", "", "", "", "Fort"},
        {"", "", "Mumbai", "", "", "Mumbai"},
        {"1 MG Road", "", "", "400001", "", "1 MG Road-400001"},
        {"", "", "", "", "DELHI", "(DELHI)"},
        {"", "", "", "", "", ""}};
    for (const auto &c : cases) {
        FirmTexts firm;
        firm.addr1 = c.addr1;
        firm.addr2 = c.addr2;
        firm.city = c.city;
        firm.pinCode = c.pin;
        firm.state = c.state;
        EXPECT_EQ(firmAddressText(firm).toStdString(), c.text);
    }
}

TEST(FirmTexts, ContactNamesOnlyWhatIsFilled)
{
    const struct
    {
        const char *mobile, *office1, *office2, *home1, *home2, *fax, *text;
    } cases[] = {{"98", "1", "2", "3", "4", "5", "Mobile: 98; Phone(O): 1, 2; Phone(R): 3, 4; Fax: 5"},
                 {"", "", "2", "", "", "", "Phone(O): 2"},
                 {"", "1", "", "", "4", "", "Phone(O): 1; Phone(R): 4"},
                 {"", "", "", "", "", "5", "Fax: 5"},
                 {"", "", "", "", "", "", ""}};
    for (const auto &c : cases) {
        FirmTexts firm;
        firm.mobile = c.mobile;
        firm.officePhone1 = c.office1;
        firm.officePhone2 = c.office2;
        firm.residencePhone1 = c.home1;
        firm.residencePhone2 = c.home2;
        firm.fax = c.fax;
        EXPECT_EQ(firmContactText(firm).toStdString(), c.text);
    }
}

TEST(FirmTexts, MailAndWebAreJoined)
{
    FirmTexts firm;
    EXPECT_EQ(firmWebText(firm).toStdString(), "");
    firm.website = "w.in";
    EXPECT_EQ(firmWebText(firm).toStdString(), "Website: w.in");
    firm.email = "a@w.in";
    EXPECT_EQ(firmWebText(firm).toStdString(), "E-mail: a@w.in; Website: w.in");
}

TEST(BillTemplate, IsNamedByTaxKindCopiesAndCompany)
{
    const struct
    {
        bool customized;
        TaxType taxType;
        bool twoCopies;
        const char *path;
    } cases[] = {{false, TaxType::Intra, false, "/t/GST_Intra_Bill.doc"},
                 {false, TaxType::Inter, true, "/t/GST_Inter_Bill_2Copy.doc"},
                 {true, TaxType::None, false, "/t/12/GST_NoTax_Bill.doc"},
                 {true, TaxType::Intra, true, "/t/12/GST_Intra_Bill_2Copy.doc"}};
    for (const auto &c : cases)
        EXPECT_EQ(billTemplatePath("/t", 12, c.customized, c.taxType, c.twoCopies).toStdString(), c.path);
}

} // namespace
} // namespace ledgora
