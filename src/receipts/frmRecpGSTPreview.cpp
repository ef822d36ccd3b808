// The receipt on the screen as a document: filled from what stands in the fields at that moment, saved or not.

#include "controls/ChoiceBox.h"
#include "controls/CommandButton.h"
#include "controls/Grid.h"
#include "documents/Preview.h"
#include "documents/ReceiptDocument.h"
#include "masters/CompanyStore.h"
#include "platform/Reporter.h"
#include "receipts/OpenBills.h"
#include "receipts/frmRecpGST.h"
#include "store/Connection.h"
#include "store/DocumentNumber.h"
#include "store/ErrorLog.h"
#include "store/FailureWatch.h"
#include "store/NumberFormat.h"
#include "ui_frmRecpGST.h"

namespace ledgora {

namespace {

QString printedNumber(int seriesId, const QString &number)
{
    return seriesId > 0 ? COMBNOSERIESGST(*gCnn, seriesId, number) : number;
}

} // namespace

/// What each row settles; a row whose bill is not offered any more is not told.
std::vector<SettledBill> frmRecpGST::settledBills() const
{
    std::vector<SettledBill> settled;
    const Cells &bills = m_bills->cells();
    for (const ReceiptRow &row : readRows()) {
        const int listRow = row.isInUse() ? openBillRow(bills, row.billId) : -1;
        if (listRow < 0)
            continue;
        settled.push_back({printedNumber(int(bills.value(listRow, OpenBillSerId)), bills.text(listRow, OpenBillNo)),
                           bills.text(listRow, OpenBillDate), bills.value(listRow, OpenBillTotal), row.amount});
    }
    return settled;
}

ReceivedMoney frmRecpGST::moneyFromScreen() const
{
    return {.cash = ui->txtCash->text(),
            .mode = payMode(),
            .otherAmount = ui->txtOthModeAmt->text(),
            .paperNumber = ui->txtOthModeNo->text(),
            .paperDate = ui->txtOthModeDt->date(),
            .bankName = ui->cboOthModeBankNm->currentText(),
            .bankBranch = ui->cboOthModeBankBr->currentText(),
            .description = ui->txtOthModeDesc->text()};
}

ReceiptDocument frmRecpGST::documentFromScreen() const
{
    ReceiptDocument receipt;
    Recordset firm = companyRow(*gCnn, gFirmId);
    receipt.firm = firmTexts(firm, DocumentKind::Receipt);
    receipt.properCase = gNameCase == 0;
    receipt.partyName = ui->txtpartynm->text();
    receipt.partyGstin = ui->txtpartygstin->text();
    receipt.partyPan = ui->txtpartyPAN->text();
    receipt.partyAddress = ui->txtpartyadd->text();
    receipt.receiptDate = ui->txtrecpdt->text();
    receipt.receiptNumber = printedNumber(seriesId(), ui->txtrecpno->text());
    receipt.money = moneyFromScreen();
    receipt.amountReceived = ui->txtTotAmtRecd->text();
    receipt.bills = settledBills();
    const auto total = [this](LineField *ReceiptRowBoxes::*box) { return Val((m_rows[totalRow].*box)->text()); };
    receipt.sums = {total(&ReceiptRowBoxes::amount), total(&ReceiptRowBoxes::cgst), total(&ReceiptRowBoxes::sgst),
                    total(&ReceiptRowBoxes::igst), total(&ReceiptRowBoxes::tds)};
    receipt.narration = ui->txtNarr->text();
    return receipt;
}

void frmRecpGST::CMDPREVIEW_CLICK()
{
    const ErrorSite site("frmRecpGST", "CMDPREVIEW_CLICK");
    if (!hasCurrent())
        return say(QStringLiteral("There is no receipt to preview."));
    const FailureWatch watch(*gCnn);
    const ReceiptDocument receipt = documentFromScreen();
    if (watch.failed()) // it would lack the company's name or the number's series
        return inform(watch.fault());
    const QString path = receiptTemplatePath(gTmplPath, gFirmId, gTmplCustom == 1, gRecpCopy == 1);
    if (const QString fault = missingTemplateFault(path); !fault.isEmpty())
        return inform(fault);
    if (const QString fault = showFilled(*gReporter, path, receiptPlaceholders(receipt)); !fault.isEmpty())
        inform(fault);
}

} // namespace ledgora
