#include "documents/BillDocument.h"

#include "store/NumberFormat.h"
#include "store/Settings.h"
#include "store/Words.h"
#include <initializer_list>
#include <utility>

namespace ledgora {

namespace {

constexpr int templateRows = 10;
constexpr auto newLine = "\r\n";

/// The list of replacements as it grows.
class Placeholders
{
public:
    void add(const char *name, const PlaceholderValue &value)
    {
        m_list.push_back({'#' + QString::fromLatin1(name) + '#', value});
    }
    void add(const char *name, int row, const PlaceholderValue &value)
    {
        m_list.push_back({'#' + QString::fromLatin1(name) + '_' + QString::number(row) + '#', value});
    }
    std::vector<Placeholder> take() { return std::move(m_list); }

private:
    std::vector<Placeholder> m_list;
};

/// Puts a part behind a text, its separator only where something stands already.
void append(QString &text, const QString &separator, const QString &part)
{
    if (part.isEmpty())
        return;
    if (!text.isEmpty())
        text += separator;
    text += part;
}

/// A part with its label, nothing when the part is empty.
QString labelled(const char *label, const QString &part)
{
    return part.isEmpty() ? QString() : QString(label + part);
}

QString pairOf(const QString &first, const QString &second)
{
    QString pair = first;
    append(pair, ", ", second);
    return pair;
}

QString inNameCase(const BillDocument &bill, const QString &name)
{
    return bill.properCase ? properCase(name) : name.toUpper();
}

void addHead(Placeholders &list, const BillDocument &bill)
{
    list.add("FIRM_NAME", inNameCase(bill, bill.firm.name));
    list.add("FIRM_DESIG", bill.firm.designation);
    list.add("FIRM_GSTIN", bill.firm.gstin);
    list.add("FIRM_PAN", bill.firm.pan);
    list.add("PARTY_NAME", inNameCase(bill, bill.partyName));
    list.add("PARTY_GSTIN", bill.partyGstin);
    list.add("PARTY_PAN", bill.partyPan);
    list.add("PARTY_ADDRESS", inNameCase(bill, bill.partyAddress));
    list.add("PLACE_OF_SUPPLY", bill.placeOfSupply);
    list.add("BILL_DT", bill.billDate);
    list.add("BILL_NO", bill.billNumber);
}

QString withSac(const BillDocumentLine &line)
{
    return line.sac.trimmed().isEmpty() ? line.particulars : QString(line.particulars + newLine + "SAC : " + line.sac);
}

QString yearText(const BillDocumentLine &line)
{
    const bool assessment = line.yearType == "AY";
    if ((!assessment && line.yearType != "FY") || line.year <= 0)
        return {};
    return (assessment ? "A.Y." : "F.Y.") + QString(newLine) + line.yearShown;
}

QString rateText(double rate)
{
    return plainNumber(rate) + '%';
}

void addLineTax(Placeholders &list, int row, TaxType taxType, const BillDocumentLine &line)
{
    if (taxType == TaxType::None)
        return;
    if (taxType == TaxType::Intra) {
        list.add("CRT", row, rateText(line.cgstRate));
        list.add("CAMT", row, line.cgst);
        list.add("SRT", row, rateText(line.sgstRate));
        list.add("SAMT", row, line.sgst);
    } else {
        list.add("IRT", row, rateText(line.igstRate));
        list.add("IAMT", row, line.igst);
    }
    list.add("TAMT", row, line.total);
}

void addLine(Placeholders &list, int row, TaxType taxType, const BillDocumentLine &line)
{
    list.add("SN", row, QString::number(row) + '.');
    list.add("PARTICULARS", row, line.particulars);
    list.add("SAC", row, line.sacAlone);
    list.add("PARTICULARS_SAC", row, withSac(line));
    list.add("YR", row, yearText(line));
    list.add("AMT", row, line.amount);
    list.add("DISC", row, line.discount);
    list.add("NAMT", row, line.net);
    addLineTax(list, row, taxType, line);
}

/// Every placeholder of a row, whatever the kind of tax.
void blankLine(Placeholders &list, int row)
{
    for (const char *name : {"SN", "PARTICULARS", "SAC", "PARTICULARS_SAC", "YR", "AMT", "DISC", "NAMT", "CRT", "CAMT",
                             "SRT", "SAMT", "IRT", "IAMT", "TAMT"})
        list.add(name, row, QString());
}

/// Grand totals of the kind of tax alone: a template of another kind keeps the names of its own in sight.
void addTotals(Placeholders &list, const BillDocument &bill)
{
    list.add("GTAMT", bill.totals.amount);
    list.add("GTDISC", bill.totals.discount);
    list.add("GTNAMT", bill.totals.net);
    if (bill.taxType == TaxType::Intra) {
        list.add("GTCAMT", bill.totals.cgst);
        list.add("GTSAMT", bill.totals.sgst);
    } else if (bill.taxType == TaxType::Inter) {
        list.add("GTIAMT", bill.totals.igst);
    }
    if (bill.taxType != TaxType::None)
        list.add("GTTAMT", bill.totals.total);
    list.add("TOTFIGS", bill.totals.total);
    list.add("TOTWORDS", "Rupees " + CONVERTTOWORD(plainNumber(bill.totals.total)));
}

void addFoot(Placeholders &list, const BillDocument &bill)
{
    const FirmTexts &firm = bill.firm;
    list.add("PAYTERMS_INFAVOF", firm.bankAccountName);
    list.add("PAYTERMS_BANKNM", firm.bankName);
    list.add("PAYTERMS_BANKBR", firm.bankBranch);
    list.add("PAYTERMS_BANKNM_BRADD", pairOf(firm.bankName, firm.bankBranch));
    list.add("PAYTERMS_ACNO", firm.bankAccountNo);
    list.add("PAYTERMS_IFSC", firm.bankIfsc);
    list.add("PAYTERMS_COMMENTS", firm.paymentComments);
    list.add("NOTE", bill.narration);
    list.add("AUTHSIGN_NAME", inNameCase(bill, firm.signName));
    list.add("AUTHSIGN_DESIG", inNameCase(bill, firm.signDesignation));
    list.add("FIRM_ADDRESS", firmAddressText(firm));
    list.add("FIRM_CONTDET", firmContactText(firm));
    list.add("FIRM_EMLWEB", firmWebText(firm));
}

QString templateWord(TaxType taxType)
{
    switch (taxType) {
    case TaxType::Intra:
        return "Intra";
    case TaxType::Inter:
        return "Inter";
    case TaxType::None:
        break;
    }
    return "NoTax";
}

} // namespace

std::optional<std::vector<Placeholder>> billPlaceholders(const BillDocument &bill)
{
    if (bill.lines.size() > templateRows)
        return std::nullopt;
    Placeholders list;
    addHead(list, bill);
    int row = 0;
    for (const BillDocumentLine &line : bill.lines)
        addLine(list, ++row, bill.taxType, line);
    while (row != templateRows)
        blankLine(list, ++row);
    addTotals(list, bill);
    addFoot(list, bill);
    return list.take();
}

FirmTexts firmTexts(Recordset &firmRow)
{
    FirmTexts firm;
    if (!firmRow.next())
        return firm;
    for (const auto &[text, column] :
         std::initializer_list<std::pair<QString *, const char *>>{{&firm.name, "Nm"},
                                                                   {&firm.designation, "Desig"},
                                                                   {&firm.gstin, "GSTIN"},
                                                                   {&firm.pan, "PAN"},
                                                                   {&firm.addr1, "Addr1"},
                                                                   {&firm.addr2, "Addr2"},
                                                                   {&firm.city, "City"},
                                                                   {&firm.pinCode, "PinCode"},
                                                                   {&firm.state, "StateNm"},
                                                                   {&firm.mobile, "MobNo"},
                                                                   {&firm.officePhone1, "PhNoO1"},
                                                                   {&firm.officePhone2, "PhNoO2"},
                                                                   {&firm.residencePhone1, "PhNoR1"},
                                                                   {&firm.residencePhone2, "PhNoR2"},
                                                                   {&firm.fax, "FaxNo"},
                                                                   {&firm.email, "Email"},
                                                                   {&firm.website, "WebURL"},
                                                                   {&firm.bankAccountName, "BankAcName"},
                                                                   {&firm.bankName, "BankName"},
                                                                   {&firm.bankBranch, "BankBrAdd"},
                                                                   {&firm.bankAccountNo, "BankAcNo"},
                                                                   {&firm.bankIfsc, "BankIFSC"},
                                                                   {&firm.paymentComments, "PayComments"},
                                                                   {&firm.signName, "SignName"},
                                                                   {&firm.signDesignation, "SignDesig"}})
        *text = firmRow.text(QString::fromLatin1(column));
    return firm;
}

QString firmAddressText(const FirmTexts &firm)
{
    QString text = firm.addr1;
    append(text, newLine, firm.addr2);
    append(text, ", ", firm.city);
    append(text, "-", firm.pinCode);
    append(text, " ", firm.state.isEmpty() ? QString() : QString('(' + firm.state + ')'));
    return text;
}

QString firmContactText(const FirmTexts &firm)
{
    QString text = labelled("Mobile: ", firm.mobile);
    append(text, "; ", labelled("Phone(O): ", pairOf(firm.officePhone1, firm.officePhone2)));
    append(text, "; ", labelled("Phone(R): ", pairOf(firm.residencePhone1, firm.residencePhone2)));
    append(text, "; ", labelled("Fax: ", firm.fax));
    return text;
}

QString firmWebText(const FirmTexts &firm)
{
    QString text = labelled("E-mail: ", firm.email);
    append(text, "; ", labelled("Website: ", firm.website));
    return text;
}

QString billTemplatePath(const QString &templateFolder, int firmId, bool customized, TaxType taxType, bool twoCopies)
{
    const QString folder = customized ? joinPath(templateFolder, QString::number(firmId)) : templateFolder;
    return findFile(folder, "GST_" + templateWord(taxType) + "_Bill" + (twoCopies ? "_2Copy" : "") + ".doc");
}

} // namespace ledgora
