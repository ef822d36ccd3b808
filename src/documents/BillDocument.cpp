#include "documents/BillDocument.h"

#include "store/NumberFormat.h"
#include "store/Words.h"

namespace ledgora {

namespace {

constexpr int templateRows = 10;
constexpr auto newLine = "\r\n";

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
    QString bankAndBranch = firm.bankName;
    appendPart(bankAndBranch, ", ", firm.bankBranch);
    list.add("PAYTERMS_INFAVOF", firm.bankAccountName);
    list.add("PAYTERMS_BANKNM", firm.bankName);
    list.add("PAYTERMS_BANKBR", firm.bankBranch);
    list.add("PAYTERMS_BANKNM_BRADD", bankAndBranch);
    list.add("PAYTERMS_ACNO", firm.bankAccountNo);
    list.add("PAYTERMS_IFSC", firm.bankIfsc);
    list.add("PAYTERMS_COMMENTS", firm.paymentComments);
    list.add("NOTE", bill.narration);
    addSignature(list, bill);
    addFirmTexts(list, firm);
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
    list.add("PLACE_OF_SUPPLY", bill.placeOfSupply);
    list.add("BILL_DT", bill.billDate);
    list.add("BILL_NO", bill.billNumber);
    int row = 0;
    for (const BillDocumentLine &line : bill.lines)
        addLine(list, ++row, bill.taxType, line);
    while (row != templateRows)
        blankLine(list, ++row);
    addTotals(list, bill);
    addFoot(list, bill);
    return list.take();
}

QString billTemplatePath(const QString &templateFolder, int firmId, bool customized, TaxType taxType, bool twoCopies)
{
    return templatePath(templateFolder, firmId, customized, "GST_" + templateWord(taxType) + "_Bill", twoCopies);
}

} // namespace ledgora
