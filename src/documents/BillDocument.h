#pragma once

#include "bills/TaxType.h"
#include "documents/FirmTexts.h"
#include <optional>

namespace ledgora {

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
struct BillDocument : DocumentHead
{
    TaxType taxType = TaxType::Intra;
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

/// The replacements in their order. Rows left over up to the tenth are blanked. A bill of more than ten lines can not
/// be shown: nothing comes back.
std::optional<std::vector<Placeholder>> billPlaceholders(const BillDocument &bill);

/// File of the bill template: "GST_Intra_Bill.doc", "GST_Intra_Bill_2Copy.doc" and so on in the template folder, or
/// in the company's sub-folder when its own templates are in use.
QString billTemplatePath(const QString &templateFolder, int firmId, bool customized, TaxType taxType, bool twoCopies);

} // namespace ledgora
