#include "receipts/frmRecpGST.h"

#include "bills/EntryRules.h"
#include "controls/CommandButton.h"
#include "controls/Grid.h"
#include "platform/HostObject.h"
#include "receipts/ReceiptList.h"
#include "receipts/ReceiptStore.h"
#include "store/ErrorLog.h"
#include "store/NumberFormat.h"
#include "ui_frmRecpGST.h"

namespace ledgora {

frmRecpGST::frmRecpGST(QWidget *parent) : DocumentScreen(parent), ui(std::make_unique<Ui::frmRecpGST>())
{
    ui->setupUi(this);
    makeRows();
    FORM_LOAD();
}

frmRecpGST::~frmRecpGST() = default;

void frmRecpGST::FORM_LOAD()
{
    const ErrorSite site("frmRecpGST", "FORM_LOAD");
    gHostObj->Resize_For_Resolution(*this);
    tellCompany();
    setUpDocument({ui->cbofyr,        ui->cbosr,       ui->txtrecpno, ui->txtrecpdt, ui->txtpartynm,    ui->txtpartyPAN,
                   ui->txtpartygstin, ui->txtpartyadd, ui->txtNarr,   ui->famedit,   ui->chkClientWise, ui->lblKeys,
                   ui->lblStatus,     ui->cmdnext,     ui->cmdprev,   ui->cmdshlist, ui->cmdAdd,        ui->cmdmodify,
                   ui->cmddelete,     ui->cmdupdate,   ui->cmdCancel, ui->cmdback,   ui->cmdPreview},
                  {.noun = QStringLiteral("Receipt"),
                   .seriesKind = QStringLiteral("R"),
                   .list = receiptListKind,
                   .seriesColumn = ListRecpSerId,
                   .narrationColumn = ListRecpNarration,
                   .listName = QStringLiteral("vsListR"),
                   .f12Effect = "Lists the narrations used before",
                   .emptyList = emptyReceiptList()});
    connectMoney();
    connectRows();
    setUpList();
    openYears();
}

void frmRecpGST::setUpList()
{
    Grid *list = documentList();
    for (int column = 0; column < ReceiptListColumnCount; ++column) {
        const bool shown = column == ListRecpNo || column == ListRecpDate || column >= ListPayerName;
        list->setColumnHidden(column, !shown);
    }
    list->column(ListRecpAmount).rightAligned = true;
    list->setWidths({0, 0, 0, 0.14, 0.16, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0.2}, ListPayerName);
}

void frmRecpGST::LOADRECPGRID(int id)
{
    const ErrorSite site("frmRecpGST", "LOADRECPGRID");
    const int remembered = documentList()->row();
    documentList()->change([&](Cells &receipts) {
        loadReceiptList(*gCnn, receipts, partyList()->cells(), gFirmId, year(), id, ui->chkClientWise->isChecked());
    });
    selectAfterRefresh(id, remembered);
}

void frmRecpGST::CMDUPDATE_CLICK()
{
    const ErrorSite site("frmRecpGST", "CMDUPDATE_CLICK");
    ui->txtrecpdt->setDate(settledDate(completedDate(ui->txtrecpdt->text(), year())));
    showReceived();
    const ReceiptDraft draft = read();
    if (const auto fault = receiptFault(draft))
        return pointAt(*fault);
    if (paysTooMuch())
        return;
    if (const auto fault = storedFault(*gCnn, draft)) // number in use
        return pointAt(*fault);
    if (!agreesToOutOfOrder(lowerWithLaterDate(*gCnn, draft), true)
        || !agreesToOutOfOrder(higherWithEarlierDate(*gCnn, draft), false))
        return;
    const bool overwritten = wasChangedByOthers();
    const SaveResult saved = saveReceipt(*gCnn, draft);
    if (!saved.whole())
        return keepEntry(saved);
    const QString total = m_rows[totalRow].amount->text();
    LOADRECPGRID(saved.id);
    CMDCANCEL_CLICK();
    say(QStringLiteral("Receipt No. %1 saved, Rs. %2.").arg(draft.number, FORMETGEN(total, QStringLiteral("#,##0")))
        + replacedNote(overwritten));
}

/// The fields refuse it, but what others have received meanwhile they do not know.
bool frmRecpGST::paysTooMuch()
{
    loadBills();
    for (int row = 0; row < receiptRowCount; ++row) {
        if (!checkOverpaid(row, m_rows[size_t(row)].amount))
            return true;
    }
    return false;
}

void frmRecpGST::pointAt(const ReceiptFault &fault)
{
    inform(fault.message, findChild<QWidget *>(fault.field));
}

ReceiptDraft frmRecpGST::read() const
{
    ReceiptDraft draft;
    draft.id = editedId();
    draft.firmId = gFirmId;
    draft.year = year();
    draft.code = partyCode();
    draft.seriesId = seriesId();
    draft.number = ui->txtrecpno->text();
    draft.date = ui->txtrecpdt->text();
    draft.cash = Val(ui->txtCash->text());
    draft.mode = payMode();
    draft.otherAmount = Val(ui->txtOthModeAmt->text());
    draft.bankName = ui->cboOthModeBankNm->currentText();
    draft.bankBranch = ui->cboOthModeBankBr->currentText();
    draft.paperNumber = ui->txtOthModeNo->text();
    draft.paperDate = ui->txtOthModeDt->text();
    draft.description = ui->txtOthModeDesc->text();
    draft.narration = ui->txtNarr->text();
    draft.rows = readRows();
    return draft;
}

void frmRecpGST::clearPanel()
{
    clearRows();
    clearMoney();
}

void frmRecpGST::showPanel(int listRow)
{
    showMoney(documentList()->cells(), listRow);
    showRows(currentId());
}

void frmRecpGST::beginAdd()
{
    LOADBANKDET();
    ui->txtpartynm->setFocus();
    billsChanged();
}

void frmRecpGST::beginModify()
{
    LOADBANKDET();
    m_rows.front().amount->setFocus(Qt::TabFocusReason);
}

int frmRecpGST::highestNumber()
{
    return highestReceiptNumber(*gCnn, gFirmId, year());
}

bool frmRecpGST::removeStored(int id)
{
    const ErrorSite site("frmRecpGST", "CMDDELETE_CLICK");
    if (!deleteReceipt(*gCnn, id))
        alarm(QStringLiteral(
            "The database did not delete the whole receipt. The list shows what is left; please try again."));
    return true;
}

QStringList frmRecpGST::narrationsUsed()
{
    return earlierReceiptNarrations(*gCnn);
}

std::optional<StoredDocument> frmRecpGST::asStored(int id)
{
    return receiptAsStored(*gCnn, id);
}

void frmRecpGST::placeList()
{
    const QRect panel = ui->famedit->geometry();
    documentList()->setGeometry(panel.adjusted(panel.width() / 3, 0, 0, 0));
}

} // namespace ledgora
