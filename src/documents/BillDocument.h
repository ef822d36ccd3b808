#pragma once

#include "bills/TaxType.h"
#include "platform/Reporter.h"
#include "store/Recordset.h"
#include <QString>
#include <optional>
#include <vector>

namespace ledgora {

/// What a bill's document says of the billing company: columns of `GST_FirmMas`, NULL read as "".
struct FirmTexts
{
    QString name, designation, gstin, pan;
    QString addr1, addr2, city, pinCode, state;
    QString mobile, officePhone1, officePhone2, residencePhone1, residencePhone2, fax, email, website;
    QString bankAccountName, bankName, bankBranch, bankAccountNo, bankIfsc, paymentComments;
    QString signName, signDesignation;
};

/// One filled line of a bill document. Texts stand as their source gives them: the screen's SAC is trimmed where it
/// stands alone (`sacAlone`), the stored one is not; `yearShown` is the year range ("2017-18").
struct BillDocumentLine
{
    QString particulars, sac, sacAlone, yearType, yearShown;
    double year = 0;
    double amount = 0, discount = 0, net = 0;
    double cgstRate = 0, cgst = 0, sgstRate = 0, sgst = 0, igstRate = 0, igst = 0, total = 0;
};

/// Everything a bill's document shows, whatever its source: the entry screen as it stands, or the stored bill.
/// Amounts in rupees; rates in percent. `totals` are the bill's, which need not be the sum of the lines shown.
struct BillDocument
{
    TaxType taxType = TaxType::Intra;
    bool properCase = true; ///< names and party address in proper case, else upper case
    FirmTexts firm;
    QString partyName, partyGstin, partyPan, partyAddress;
    QString placeOfSupply; ///< "DELHI (07)"
    QString billDate;      ///< DD/MM/YYYY
    QString billNumber;    ///< as printed, series included
    QString narration;
    std::vector<BillDocumentLine> lines;
    struct Totals
    {
        double amount = 0, discount = 0, net = 0, cgst = 0, sgst = 0, igst = 0, total = 0;
    } totals;
};

struct Placeholder
{
    QString name; ///< with its "#" signs
    PlaceholderValue value;
};

/// The replacements in the order in which they are handed to the engine: a value is searched by the later ones, so
/// the order is part of the contract with customised templates. Rows left over up to the tenth are blanked. A bill
/// of more than ten lines can not be shown: nothing comes back.
std::optional<std::vector<Placeholder>> billPlaceholders(const BillDocument &bill);

/// The company row as document texts; an empty recordset gives empty texts. Advances to the first row.
FirmTexts firmTexts(Recordset &firmRow);

/// Address, contact, and e-mail and web texts of the company; only parts that are filled, with their separators.
QString firmAddressText(const FirmTexts &firm);
QString firmContactText(const FirmTexts &firm);
QString firmWebText(const FirmTexts &firm);

/// File of the bill template: "GST_Intra_Bill.doc", "GST_Intra_Bill_2Copy.doc" and so on in the template folder, or
/// in the company's sub-folder when its own templates are in use.
QString billTemplatePath(const QString &templateFolder, int firmId, bool customized, TaxType taxType, bool twoCopies);

} // namespace ledgora
