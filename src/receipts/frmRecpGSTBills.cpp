// The pop-up of the party's bills, and the bill of each row.

#include "controls/ChoiceBox.h"
#include "controls/CommandButton.h"
#include "controls/Grid.h"
#include "receipts/OpenBills.h"
#include "receipts/ReceiptStore.h"
#include "receipts/frmRecpGST.h"
#include "store/ErrorLog.h"
#include "ui_frmRecpGST.h"
#include <QHeaderView>
#include <QKeyEvent>

namespace ledgora {

void frmRecpGST::setUpBills()
{
    m_bills = new Grid(this);
    m_bills->setObjectName(QStringLiteral("vsfbr"));
    m_bills->setAccessibleName(QStringLiteral("Bills of the Client"));
    m_bills->setListMode();
    m_bills->setFocusPolicy(Qt::NoFocus); // the row's box goes on taking keys while the list shows
    m_bills->setCells(emptyOpenBills());
    for (const int hidden : {OpenBillSrNo, OpenBillSerId, OpenBillTotal, OpenBillReceived, OpenBillReceivedHere})
        m_bills->setColumnHidden(hidden, true);
    m_bills->column(OpenBillPending).rightAligned = true;
    m_bills->setWidths({0, 0.3, 0.34}, OpenBillPending);
    m_bills->hide();
    on(m_bills, &Grid::rowActivated, [this](int) {
        if (m_servedRow >= 0)
            m_rows[size_t(m_servedRow)].amount->setFocus(Qt::TabFocusReason);
    });
}

void frmRecpGST::setHint(const ReceiptRowBoxes &boxes, const QString &hint)
{
    boxes.bill->setToolTip(hint);
    boxes.bill->setAccessibleDescription(hint);
    boxes.hint->setText(hint);
}

/// Puts a bill of the list into a row; none for -1.
void frmRecpGST::showBill(int row, int listRow)
{
    const ReceiptRowBoxes &boxes = m_rows[size_t(row)];
    boxes.bill->setHiddenValue(m_bills->cells().text(listRow, OpenBillSrNo));
    boxes.bill->setText(m_bills->cells().text(listRow, OpenBillNo));
    setHint(boxes, openBillHint(m_bills->cells(), listRow));
}

void frmRecpGST::loadBills()
{
    const ErrorSite site("frmRecpGST", "LOADBILLLIST");
    m_bills->change(
        [this](Cells &bills) { LOADBILLLIST(*gCnn, bills, gFirmId, partyCode(), ui->txtrecpdt->text(), receiptId()); });
}

void frmRecpGST::refreshBills()
{
    m_bills->change([this](Cells &bills) { REFRESHBILLLIST(bills, readRows()); });
}

/// Another party or date: other bills are offered.
void frmRecpGST::billsChanged()
{
    loadBills();
    CHECKRECPS();
    GETTAXAMTS();
    GETTOTSR();
}

/// A bill that is no longer offered leaves its row; the amounts stay.
void frmRecpGST::CHECKRECPS()
{
    for (int row = 0; row < receiptRowCount; ++row) {
        const int billId = m_rows[size_t(row)].bill->hiddenValue().toInt();
        if (billId != 0 && openBillRow(m_bills->cells(), billId) < 0)
            showBill(row, -1);
    }
}

void frmRecpGST::TXTBILLSN_GOTFOCUS(int row)
{
    if (isEditing())
        serve(row);
}

/// Puts the pop-up at a row's box, on the bill that the row has.
void frmRecpGST::serve(int row)
{
    if (m_servedRow == row)
        return;
    m_servedRow = row;
    LineField *box = m_rows[size_t(row)].bill;
    const int billId = box->hiddenValue().toInt();
    m_bills->change([this, billId](Cells &bills) {
        REFRESHBILLLIST(bills, readRows());
        bills.setHidden(openBillRow(bills, billId), false); // its own bill, even a paid one
    });
    placePopup(m_bills, box, {popupWidth, 0});
    m_bills->show();
    m_bills->raise();
    m_bills->setFoundRow(openBillRow(m_bills->cells(), billId));
    const bool any = m_bills->verticalHeader()->length() > 0;
    say(any ? QString() : QStringLiteral("This client has no open bill up to the receipt's date."));
}

void frmRecpGST::TXTBILLSN_CHANGE(int row, const QString &typed)
{
    if (!isEditing() || !m_rows[size_t(row)].bill->hasFocus())
        return;
    serve(row);
    const Cells &bills = m_bills->cells();
    m_bills->setFoundRow(
        typed.isEmpty() ? -1 : bills.find(typed, OpenBillNo, bills.fixedRows(), Cells::Match::BeginsAnyCase, true));
    m_bills->show(); // Esc may have closed it
}

bool frmRecpGST::TXTBILLSN_KEYDOWN(int row, QKeyEvent *key)
{
    if (!isEditing())
        return false;
    if (!settle()) // a key typed ahead: the field before is left first
        return true;
    if (key->key() != Qt::Key_Return && key->key() != Qt::Key_Enter)
        return moveInList(*m_bills, *key);
    const ReceiptRowBoxes &boxes = m_rows[size_t(row)];
    const bool isLast = m_bills->row() < 0 && boxes.bill->text().isEmpty() && !readRows()[size_t(row)].isInUse();
    (isLast ? ui->txtCash : boxes.amount)->setFocus(Qt::TabFocusReason);
    return true;
}

/// The row takes the bill that is selected in the list, or none. False, and the focus stays, when that bill would be
/// overpaid. A box that was only passed keeps its bill.
bool frmRecpGST::TXTBILLSN_LOSTFOCUS(int row)
{
    if (m_servedRow != row)
        return true;
    showBill(row, m_bills->row());
    stopServing();
    const bool valid = checkOverpaid(row, m_rows[size_t(row)].bill);
    GETTAXAMTS();
    GETTOTSR();
    return valid;
}

void frmRecpGST::stopServing()
{
    m_bills->hide();
    m_servedRow = -1;
}

bool frmRecpGST::closeOwnPopup()
{
    if (!m_bills->isVisible())
        return false;
    showBill(m_servedRow, -1);
    m_bills->setRow(-1);
    m_bills->hide();
    return true;
}

} // namespace ledgora
