// The bill on the screen as a document: filled from what stands in the fields at that moment, saved or not.

#include "bills/frmBillGST.h"

#include "controls/ChoiceBox.h"
#include "controls/Grid.h"
#include "controls/LineField.h"
#include "documents/BillDocument.h"
#include "documents/Preview.h"
#include "masters/CompanyStore.h"
#include "platform/Reporter.h"
#include "store/Connection.h"
#include "store/DocumentNumber.h"
#include "store/ErrorLog.h"
#include "store/FailureWatch.h"
#include "ui_frmBillGST.h"

namespace ledgora {

namespace {

bool isFilledLine(const Cells &lines, int row)
{
    return lines.value(row, AmountColumn) != 0 && !lines.text(row, ParticularsColumn).isEmpty();
}

BillDocumentLine documentLine(const Cells &lines, int row, const QString &yearShown)
{
    const auto value = [&](int column) { return lines.value(row, column); };
    BillDocumentLine line;
    line.particulars = lines.text(row, ParticularsColumn);
    line.sac = lines.text(row, SacColumn);
    line.sacAlone = line.sac.trimmed();
    line.yearType = lines.text(row, PeriodColumn);
    line.year = value(YearColumn);
    line.yearShown = yearShown;
    line.amount = value(AmountColumn);
    line.discount = value(DiscountColumn);
    line.net = value(NetColumn);
    line.cgstRate = value(CgstRateColumn);
    line.cgst = value(CgstColumn);
    line.sgstRate = value(SgstRateColumn);
    line.sgst = value(SgstColumn);
    line.igstRate = value(IgstRateColumn);
    line.igst = value(IgstColumn);
    line.total = value(TotalColumn);
    return line;
}

BillDocument::Totals totalsOf(const Cells &lines)
{
    const auto total = [&](int column) { return lines.value(billTotalRow, column); };
    return {total(AmountColumn), total(DiscountColumn), total(NetColumn),  total(CgstColumn),
            total(SgstColumn),   total(IgstColumn),     total(TotalColumn)};
}

} // namespace

BillDocument frmBillGST::documentFromScreen() const
{
    BillDocument bill;
    Recordset firm = companyRow(*gCnn, gFirmId);
    bill.firm = firmTexts(firm, DocumentKind::Bill);
    bill.taxType = taxType().value_or(TaxType::Intra);
    bill.properCase = gNameCase == 0;
    bill.partyName = ui->txtpartynm->text();
    bill.partyGstin = ui->txtpartygstin->text();
    bill.partyPan = ui->txtpartyPAN->text();
    bill.partyAddress = ui->txtpartyadd->text();
    bill.placeOfSupply = ui->cboPOS->currentText();
    bill.billDate = ui->txtbilldt->text();
    bill.billNumber =
        seriesId() > 0 ? COMBNOSERIESGST(*gCnn, seriesId(), ui->txtbillno->text()) : ui->txtbillno->text();
    bill.narration = ui->txtNarr->text();
    const Cells &lines = ui->vsB->cells();
    for (int row = billFixedRows; row < lines.rows(); ++row) {
        if (isFilledLine(lines, row))
            bill.lines.push_back(
                documentLine(lines, row, ui->vsB->model()->index(row, YearColumn).data(Qt::DisplayRole).toString()));
    }
    bill.totals = totalsOf(lines);
    return bill;
}

void frmBillGST::CMDPREVIEW_CLICK()
{
    const ErrorSite site("frmBillGST", "CMDPREVIEW_CLICK");
    const FailureWatch watch(*gCnn);
    const BillDocument bill = documentFromScreen();
    if (watch.failed()) // it would lack the company's name or the number's series
        return inform(watch.fault());
    if (!taxType())
        return inform(QStringLiteral("'Tax Applicability' Not Available !"));
    const QString path = billTemplatePath(gTmplPath, gFirmId, gTmplCustom == 1, bill.taxType, gBillCopy == 1);
    if (const QString fault = missingTemplateFault(path); !fault.isEmpty())
        return inform(fault);
    const auto placeholders = billPlaceholders(bill);
    if (!placeholders)
        return WriteErrLog(6, QStringLiteral("A bill document has ten lines at the most"),
                           QStringLiteral("frmBillGST"));
    if (const QString fault = showFilled(*gReporter, path, *placeholders); !fault.isEmpty())
        inform(fault);
}

} // namespace ledgora
