// The ten rows of a receipt: their boxes, their amounts and the tax inside each.

#include "bills/BillLines.h"
#include "bills/EntryRules.h"
#include "controls/ChoiceBox.h"
#include "controls/CommandButton.h"
#include "controls/Grid.h"
#include "receipts/OpenBills.h"
#include "receipts/PaymentSplit.h"
#include "receipts/ReceiptStore.h"
#include "receipts/frmRecpGST.h"
#include "store/ErrorLog.h"
#include "store/NumberFormat.h"
#include "ui_frmRecpGST.h"

namespace ledgora {

namespace {

enum RowColumn { BillBox, HintBox, AmountBox, DiscountBox, TdsBox, CgstBox, SgstBox, IgstBox };

struct AmountOfRow
{
    int column;
    const char *name;
    const char *heading;
    LineField *ReceiptRowBoxes::*box;
};
constexpr std::array amountsOfRow{AmountOfRow{AmountBox, "txtAMT", "Amount", &ReceiptRowBoxes::amount},
                                  AmountOfRow{DiscountBox, "txtDISC", "Discount", &ReceiptRowBoxes::discount},
                                  AmountOfRow{TdsBox, "txtTDS", "TDS", &ReceiptRowBoxes::tds},
                                  AmountOfRow{CgstBox, "txtCGST", "CGST", &ReceiptRowBoxes::cgst},
                                  AmountOfRow{SgstBox, "txtSGST", "SGST", &ReceiptRowBoxes::sgst},
                                  AmountOfRow{IgstBox, "txtIGST", "IGST", &ReceiptRowBoxes::igst}};
constexpr auto billHeading = "Bill No.";
constexpr int hintWidth = 150;

void makeBold(QWidget &widget)
{
    QFont bold = widget.font();
    bold.setBold(true);
    widget.setFont(bold);
}

/// A computed field: read, never typed into.
void showOnly(QLineEdit &line)
{
    line.setReadOnly(true);
    line.setFocusPolicy(Qt::NoFocus);
}

} // namespace

LineField *frmRecpGST::makeBox(const char *name, const QString &headingText, int row, int column)
{
    auto *box = new LineField(ui->famedit);
    box->setObjectName(QStringLiteral("%1_%2").arg(QLatin1String(name)).arg(row));
    box->setAccessibleName(row == totalRow ? QString(QStringLiteral("Total ") + headingText)
                                           : QStringLiteral("%1, row %2").arg(headingText).arg(row + 1));
    box->setMaxLength(column == BillBox ? documentNumberDigits : wholeRupeeDigits);
    if (column != BillBox)
        box->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    if (row == totalRow || column >= CgstBox)
        showOnly(*box);
    ui->rowsGrid->addWidget(box, row + 1, column);
    return box;
}

void frmRecpGST::makeRows()
{
    ui->rowsGrid->addWidget(new QLabel(QLatin1String(billHeading), ui->famedit), 0, BillBox);
    for (const AmountOfRow &amount : amountsOfRow) {
        auto *label = new QLabel(QLatin1String(amount.heading), ui->famedit);
        ui->rowsGrid->addWidget(label, 0, amount.column, Qt::AlignRight);
    }
    for (int row = 0; row <= totalRow; ++row)
        makeRow(row);
    for (const AmountOfRow &amount : amountsOfRow)
        makeBold(*(m_rows[totalRow].*amount.box));
    showOnly(*ui->txtTotAmtRecd);
    makeBold(*ui->txtTotAmtRecd);
    QWidget *before = ui->txtrecpdt;
    for (int row = 0; row < receiptRowCount; ++row) {
        const ReceiptRowBoxes &boxes = m_rows[size_t(row)];
        for (QWidget *box : {boxes.bill, boxes.amount, boxes.discount, boxes.tds}) {
            setTabOrder(before, box);
            before = box;
        }
    }
}

void frmRecpGST::makeRow(int row)
{
    ReceiptRowBoxes &boxes = m_rows[size_t(row)];
    boxes.hint = new QLabel(row == totalRow ? QStringLiteral("Total") : QString(), ui->famedit);
    boxes.hint->setTextFormat(Qt::PlainText);
    boxes.hint->setMinimumWidth(hintWidth);
    ui->rowsGrid->addWidget(boxes.hint, row + 1, HintBox);
    if (row == totalRow) {
        boxes.hint->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        makeBold(*boxes.hint);
    } else
        boxes.bill = makeBox("txtBillSN", QLatin1String(billHeading), row, BillBox);
    for (const AmountOfRow &amount : amountsOfRow)
        boxes.*amount.box = makeBox(amount.name, QLatin1String(amount.heading), row, amount.column);
}

void frmRecpGST::connectAmount(LineField *box, const std::function<bool()> &validate)
{
    digitsOnly(box);
    field(box).validate = [this, validate] { return !isEditing() || validate(); };
    field(box).enterMovesOn = true;
}

void frmRecpGST::connectRows()
{
    setUpBills();
    for (int row = 0; row < receiptRowCount; ++row) {
        const ReceiptRowBoxes &boxes = m_rows[size_t(row)];
        Field &bill = field(boxes.bill);
        bill.gotFocus = [this, row] { TXTBILLSN_GOTFOCUS(row); };
        bill.validate = [this, row] { return !isEditing() || TXTBILLSN_LOSTFOCUS(row); };
        bill.lostFocus = [this] { stopServing(); };
        bill.keyDown = [this, row](QKeyEvent *key) { return TXTBILLSN_KEYDOWN(row, key); };
        on(boxes.bill, &QLineEdit::textEdited, [this, row](const QString &typed) { TXTBILLSN_CHANGE(row, typed); });
        connectAmount(boxes.amount, [this, row] { return TXTAMT_VALIDATE(row); });
        connectAmount(boxes.discount, [this, row] { return TXTDISC_VALIDATE(row); });
        connectAmount(boxes.tds, [this, row] { return TXTTDS_VALIDATE(row); });
    }
    tellKeys({{ui->famedit, "Up, Down, Page Up, Page Down", "Move in the list of bills while a bill number is typed"},
              {ui->famedit, "Enter", "In a row without a bill: goes on to the money received"}});
}

void frmRecpGST::clearRows()
{
    for (ReceiptRowBoxes &boxes : m_rows) {
        for (LineField *box :
             {boxes.bill, boxes.amount, boxes.discount, boxes.tds, boxes.cgst, boxes.sgst, boxes.igst}) {
            if (box)
                box->clearBoth();
        }
        if (boxes.bill)
            setHint(boxes, {});
    }
}

/// The stored lines, each in the row of its number. A bill that left the list keeps its id and shows nothing.
void frmRecpGST::showRows(int receiptId)
{
    const ErrorSite site("frmRecpGST", "LOADDATAR");
    loadBills();
    for (const auto &[serial, row] : receiptLines(*gCnn, receiptId)) {
        if (serial < 1 || serial > receiptRowCount)
            continue;
        const ReceiptRowBoxes &boxes = m_rows[size_t(serial - 1)];
        showBill(serial - 1, openBillRow(m_bills->cells(), row.billId));
        boxes.bill->setHiddenValue(QString::number(row.billId));
        boxes.amount->setText(amountText(row.amount));
        boxes.discount->setText(amountText(row.discount));
        boxes.tds->setText(amountText(row.tds));
    }
    refreshBills();
    GETTAXAMTS();
    GETTOTSR();
}

ReceiptRows frmRecpGST::readRows() const
{
    ReceiptRows rows;
    for (size_t i = 0; i < rows.size(); ++i)
        rows[i] = {m_rows[i].bill->hiddenValue().toInt(), Val(m_rows[i].amount->text()),
                   Val(m_rows[i].discount->text()), Val(m_rows[i].tds->text())};
    return rows;
}

int frmRecpGST::receiptId() const
{
    return ui->txtrecpno->hiddenValue().toInt();
}

bool frmRecpGST::checkOverpaid(int row, LineField *field)
{
    refreshBills();
    const bool valid = VALIDBILLAMT(m_bills->cells(), readRows()[size_t(row)]);
    if (!valid)
        inform(QLatin1String(overpaidMessage), field);
    return valid;
}

void frmRecpGST::GETTAXAMTS()
{
    std::vector<PaymentRow> payments;
    for (const ReceiptRow &row : readRows())
        payments.push_back({row.billId, row.amount, row.discount});
    const QString date = ui->txtrecpdt->text();
    const auto splits = splitOfReceipt(*gCnn, receiptId(), isWholeDate(date) ? date : QString(),
                                       int(Val(ui->txtrecpno->text())), payments);
    for (size_t i = 0; i < splits.size(); ++i) {
        const TaxShare &inside = splits[i].amount; // the tax inside the discount is not shown
        m_rows[i].cgst->setText(amountText(inside.cgst.value_or(0)));
        m_rows[i].sgst->setText(amountText(inside.sgst.value_or(0)));
        m_rows[i].igst->setText(amountText(inside.igst.value_or(0)));
    }
}

void frmRecpGST::GETTOTSR()
{
    for (const AmountOfRow &amount : amountsOfRow) {
        double total = 0;
        for (int row = 0; row < receiptRowCount; ++row)
            total += Val((m_rows[size_t(row)].*amount.box)->text());
        (m_rows[totalRow].*amount.box)->setText(amountText(total));
    }
}

/// The check that all amounts share; False leaves the text as it was typed.
bool frmRecpGST::settleAmount(LineField *box)
{
    const auto settled = normalisedAmount(box->text());
    if (settled)
        box->setText(*settled);
    else
        inform(QLatin1String(invalidAmountMessage), box);
    return settled.has_value();
}

bool frmRecpGST::TXTAMT_VALIDATE(int row)
{
    const ReceiptRowBoxes &boxes = m_rows[size_t(row)];
    if (!settleAmount(boxes.amount) || !checkOverpaid(row, boxes.amount))
        return false;
    if (Val(boxes.amount->text()) < Val(boxes.tds->text()))
        boxes.tds->setText(boxes.amount->text());
    GETTAXAMTS();
    GETTOTSR();
    return true;
}

bool frmRecpGST::TXTDISC_VALIDATE(int row)
{
    const ReceiptRowBoxes &boxes = m_rows[size_t(row)];
    if (!settleAmount(boxes.discount) || !checkOverpaid(row, boxes.discount))
        return false;
    GETTAXAMTS();
    GETTOTSR();
    return true;
}

bool frmRecpGST::TXTTDS_VALIDATE(int row)
{
    const ReceiptRowBoxes &boxes = m_rows[size_t(row)];
    const QString typed = boxes.tds->text();
    const auto settled = normalisedAmount(typed);
    const QString fault =
        settled ? tdsFault(Val(boxes.amount->text()), Val(typed)) : QLatin1String(invalidAmountMessage);
    if (!settled || !fault.isEmpty()) { // what was typed stays in the box, not yet rounded
        inform(fault, boxes.tds);
        return false;
    }
    boxes.tds->setText(*settled);
    GETTOTSR();
    return true;
}

} // namespace ledgora
