// The money block: how the money of a receipt came.

#include "bills/BillLines.h"
#include "controls/CommandButton.h"
#include "controls/Grid.h"
#include "controls/OneLine.h"
#include "receipts/ReceiptList.h"
#include "receipts/ReceiptStore.h"
#include "receipts/frmRecpGST.h"
#include "store/NumberFormat.h"
#include "ui_frmRecpGST.h"
#include <QAbstractItemView>

namespace ledgora {

namespace {

constexpr int longestBankText = 250;
constexpr int longestPaperNumber = 50;

/// Clears the list of a combo and fills it anew; its text stays.
void refill(ChoiceBox &combo, const QStringList &texts)
{
    const QString kept = combo.currentText();
    combo.clear();
    combo.addItems(texts);
    combo.setEditText(kept);
}

} // namespace

void frmRecpGST::connectMoney()
{
    for (const char *name : payModeNames)
        ui->cboOthModeType->addItem(QLatin1String(name));
    for (ChoiceBox *combo : {ui->cboOthModeBankNm, ui->cboOthModeBankBr}) {
        combo->setCompleter(nullptr); // a bank that begins like an earlier one must not become that one
        combo->lineEdit()->setMaxLength(longestBankText);
        keepOneLine(*combo->lineEdit());
        const QString caption = (combo == ui->cboOthModeBankNm ? ui->lblOthModeBankNm : ui->lblOthModeBankBr)->text();
        combo->lineEdit()->setAccessibleName(caption);
        combo->view()->setAccessibleName(caption);
    }
    ui->txtOthModeDesc->setMaxLength(longestBankText);
    ui->txtOthModeNo->setMaxLength(longestPaperNumber);
    for (LineField *amount : {ui->txtCash, ui->txtOthModeAmt})
        amount->setMaxLength(wholeRupeeDigits);
    connectAmount(ui->txtCash, [this] { return TXTCASH_VALIDATE(); });
    connectAmount(ui->txtOthModeAmt, [this] { return TXTOTHMODEAMT_VALIDATE(); });
    digitsOnly(ui->txtOthModeNo);
    field(ui->txtOthModeDt).validate = [this] { return TXTOTHMODEDT_VALIDATE(); };
    enterMovesOn({ui->cboOthModeType, ui->cboOthModeBankNm, ui->cboOthModeBankBr, ui->txtOthModeNo, ui->txtOthModeDt,
                  ui->txtOthModeDesc});
    on(ui->cboOthModeType, &ChoiceBox::chosen, [this](int) { CBOOTHMODETYPE_CLICK(); });
}

void frmRecpGST::LOADBANKDET()
{
    refill(*ui->cboOthModeBankNm, earlierBankNames(*gCnn));
    refill(*ui->cboOthModeBankBr, earlierBankBranches(*gCnn));
}

PayMode frmRecpGST::payMode() const
{
    return payModeOfIndex(ui->cboOthModeType->currentIndex());
}

void frmRecpGST::choosePayMode(PayMode mode)
{
    ui->cboOthModeType->setHiddenValue(QStringLiteral("-1"));
    ui->cboOthModeType->choose(int(mode));
}

void frmRecpGST::clearMoney()
{
    for (LineField *line : {ui->txtCash, ui->txtOthModeAmt, ui->txtOthModeNo, ui->txtOthModeDesc})
        line->clear();
    ui->cboOthModeBankNm->setEditText({});
    ui->cboOthModeBankBr->setEditText({});
    ui->txtOthModeDt->setDate({});
    choosePayMode(PayMode::None);
}

/// Shows what is stored for the mode; `BankNm` holds the description of a mode without a bank.
void frmRecpGST::showMoney(const Cells &list, int listRow)
{
    const auto stored = [&](int column) { return list.text(listRow, column); };
    ui->txtCash->setText(amountText(list.value(listRow, ListCash)));
    const PayMode mode = payModeOfText(stored(ListPayMode));
    if (mode != PayMode::None)
        ui->txtOthModeAmt->setText(amountText(list.value(listRow, ListOtherAmount)));
    if (hasBank(mode)) {
        ui->cboOthModeBankNm->setEditText(stored(ListBankName));
        ui->cboOthModeBankBr->setEditText(stored(ListBankBranch));
        ui->txtOthModeNo->setText(stored(ListPaperNumber));
        ui->txtOthModeDt->setDate(stored(ListPaperDate));
    }
    if (hasDescription(mode))
        ui->txtOthModeDesc->setText(stored(ListBankName));
    choosePayMode(mode);
}

void frmRecpGST::CBOOTHMODETYPE_CLICK()
{
    const QString index = QString::number(ui->cboOthModeType->currentIndex());
    if (ui->cboOthModeType->hiddenValue().isEmpty() || ui->cboOthModeType->hiddenValue() == index)
        return;
    ui->cboOthModeType->setHiddenValue(index);
    const PayMode mode = payMode();
    const struct
    {
        QWidget *field, *label;
        bool on;
    } fields[] = {{ui->txtOthModeAmt, ui->lblOthModeAmt, mode != PayMode::None},
                  {ui->cboOthModeBankNm, ui->lblOthModeBankNm, hasBank(mode)},
                  {ui->cboOthModeBankBr, ui->lblOthModeBankBr, hasBank(mode)},
                  {ui->txtOthModeNo, ui->lblOthModeNo, hasBank(mode)},
                  {ui->txtOthModeDt, ui->lblOthModeDt, hasBank(mode)},
                  {ui->txtOthModeDesc, ui->lblOthModeDesc, hasDescription(mode)}};
    for (const auto &[field, label, isOn] : fields) {
        field->setEnabled(isOn);
        label->setEnabled(isOn);
    }
    showReceived();
}

bool frmRecpGST::TXTCASH_VALIDATE()
{
    const bool valid = settleAmount(ui->txtCash);
    if (valid)
        showReceived();
    return valid;
}

bool frmRecpGST::TXTOTHMODEAMT_VALIDATE()
{
    const bool valid = settleAmount(ui->txtOthModeAmt);
    if (valid)
        showReceived();
    return valid;
}

bool frmRecpGST::TXTOTHMODEDT_VALIDATE()
{
    if (!isEditing() || ui->txtOthModeDt->date().isEmpty())
        return true;
    const QString settled = settledPaperDate(ui->txtOthModeDt->text());
    if (settled.isEmpty()) {
        inform(QStringLiteral("Please Specify a Valid Date."), ui->txtOthModeDt);
        return false;
    }
    ui->txtOthModeDt->setDate(settled);
    return true;
}

void frmRecpGST::showReceived()
{
    ui->txtTotAmtRecd->setText(amountText(read().received()));
}

} // namespace ledgora
