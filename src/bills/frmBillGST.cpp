#include "bills/frmBillGST.h"

#include "bills/BillList.h"
#include "bills/BillStore.h"
#include "bills/EntryRules.h"
#include "controls/StateChoice.h"
#include "platform/HostObject.h"
#include "platform/Reporter.h"
#include "store/Connection.h"
#include "store/ErrorLog.h"
#include "store/NumberFormat.h"
#include "store/StateList.h"
#include "ui_frmBillGST.h"
#include <QListWidget>
#include <utility>

namespace ledgora {

frmBillGST::frmBillGST(QWidget *parent) : DocumentScreen(parent), ui(std::make_unique<Ui::frmBillGST>())
{
    ui->setupUi(this);
    FORM_LOAD();
}

frmBillGST::~frmBillGST() = default;

void frmBillGST::FORM_LOAD()
{
    const ErrorSite site("frmBillGST", "FORM_LOAD");
    gHostObj->Resize_For_Resolution(*this);
    tellCompany();
    setUpDocument({ui->cbofyr,        ui->cbosr,       ui->txtbillno, ui->txtbilldt, ui->txtpartynm,    ui->txtpartyPAN,
                   ui->txtpartygstin, ui->txtpartyadd, ui->txtNarr,   ui->famedit,   ui->chkClientWise, ui->lblKeys,
                   ui->lblStatus,     ui->cmdnext,     ui->cmdprev,   ui->cmdshlist, ui->cmdAdd,        ui->cmdmodify,
                   ui->cmddelete,     ui->cmdupdate,   ui->cmdCancel, ui->cmdback,   ui->cmdPreview},
                  {.noun = QStringLiteral("Bill"),
                   .seriesKind = QStringLiteral("B"),
                   .list = billListKind,
                   .seriesColumn = ListBillSerId,
                   .narrationColumn = ListNarration,
                   .listName = QStringLiteral("vsListB"),
                   .f12Effect = "Lists the particulars or narrations used before",
                   .emptyList = emptyBillList()});
    LOADSTATELISTGST(*ui->cboPOS);
    ui->cboTaxType->addItems({QStringLiteral("Intra-State (CGST/SGST)"), QStringLiteral("Inter-State (IGST)"),
                              QStringLiteral("No Tax (Exempted)")});
    setUpLines();
    connectLines();
    Grid *list = documentList();
    for (const int hidden :
         {ListBillSrNo, ListPartyCode, ListBillSerId, ListGstin, ListPlace, ListTaxType, ListNarration})
        list->setColumnHidden(hidden, true);
    list->column(ListBillAmount).rightAligned = true;
    list->setWidths({0, 0, 0, 0.14, 0.16, 0, 0, 0, 0, 0, 0.2}, ListReceiverName);
    openYears();
}

void frmBillGST::setUpLines()
{
    Grid *lines = ui->vsB;
    lines->setMergedHeadingRows(2);
    for (const int amount : {SrNoColumn, AmountColumn, DiscountColumn, NetColumn, CgstRateColumn, CgstColumn,
                             SgstRateColumn, SgstColumn, IgstRateColumn, IgstColumn, TotalColumn}) {
        lines->column(amount).rightAligned = true;
        lines->column(amount).maxLength = wholeRupeeDigits;
    }
    for (const int computed : {SrNoColumn, NetColumn, TotalColumn})
        lines->column(computed).computed = true;
    lines->column(ParticularsColumn).maxLength = ui->txtNarr->maxLength();
    lines->column(EditTaxColumn).check = true;
    lines->column(SacColumn).picks = sacPicks();
    lines->column(PeriodColumn).picks = periodPicks();
    lines->setWidths(
        {0.044, 0, 0.054, 0.048, 0.072, 0.078, 0.066, 0.078, 0.04, 0.04, 0.074, 0.04, 0.074, 0.04, 0.074, 0.078},
        ParticularsColumn);
    lines->setEditRules(
        [this](int row, int column) { return isEditing() && isBillCellEditable(ui->vsB->cells(), row, column); },
        [this](int row, int column) { return isEditing() && isBillCellEditedOnEntry(ui->vsB->cells(), row, column); });
    lines->setCells(emptyBillLines());
    m_particulars =
        makeTextPopup(QStringLiteral("vsListP"), QStringLiteral("Earlier Particulars"), [this](const QString &text) {
            const int row = ui->vsB->row();
            ui->vsB->change([&](Cells &cells) { cells.setText(row, ParticularsColumn, text); });
            ui->vsB->setFocus();
        });
}

void frmBillGST::connectLines()
{
    enterMovesOn({ui->cboPOS, ui->cboTaxType});
    on(ui->vsB, &Grid::cellEdited, [this](int row, int column) { VSB_AFTEREDIT(row, column); });
    on(ui->vsB, &Grid::enterPressed, [this](int row, int column) { VSB_KEYPRESS_ENTER(row, column); });
    on(ui->vsB, &Grid::f12Pressed, [this](int row, int column) {
        if (isEditing() && column == ParticularsColumn && ui->vsB->cells().isData(row))
            GETLISTP();
    });
    on(ui->cboPOS, &ChoiceBox::chosen, [this](int) { CBOPOS_CLICK(); });
    on(ui->cboTaxType, &ChoiceBox::chosen, [this](int) { CBOTAXTYPE_CLICK(); });
}

void frmBillGST::LOADBILLGRID(int id)
{
    const ErrorSite site("frmBillGST", "LOADBILLGRID");
    const int remembered = documentList()->row();
    documentList()->change([&](Cells &bills) {
        loadBillList(*gCnn, bills, partyList()->cells(), gFirmId, year(), id, ui->chkClientWise->isChecked());
    });
    selectAfterRefresh(id, remembered);
}

void frmBillGST::CMDUPDATE_CLICK()
{
    const ErrorSite site("frmBillGST", "CMDUPDATE_CLICK");
    ui->txtbilldt->setDate(completedDate(ui->txtbilldt->text(), year()));
    if (const auto fault = headFault(read()))
        return pointAt(*fault);
    ui->txtbilldt->setDate(settledDate(ui->txtbilldt->text()));
    SETTAXCOLS();
    recomputeTotals();
    const BillDraft draft = read();
    if (const auto fault = lineFault(draft))
        return pointAt(*fault);
    if (const auto fault = storedFault(*gCnn, draft)) // receipts already taken, number in use
        return pointAt(*fault);
    if (!agreesToOutOfOrder(lowerWithLaterDate(*gCnn, draft), true)
        || !agreesToOutOfOrder(higherWithEarlierDate(*gCnn, draft), false))
        return;
    const bool overwritten = wasChangedByOthers();
    const SaveResult saved = saveBill(*gCnn, draft);
    if (!saved.whole())
        return keepEntry(saved);
    LOADBILLGRID(saved.id);
    CMDCANCEL_CLICK();
    say(QStringLiteral("Bill No. %1 saved, Rs. %2.")
            .arg(draft.number, FORMETGEN(draft.lines.text(billTotalRow, TotalColumn), QStringLiteral("#,##0")))
        + replacedNote(overwritten));
}

void frmBillGST::pointAt(const BillFault &fault)
{
    inform(fault.message, findChild<QWidget *>(fault.field));
    if (fault.row >= 0)
        ui->vsB->editRefusedCell(fault.row, fault.column);
}

BillDraft frmBillGST::read() const
{
    BillDraft draft;
    draft.id = editedId();
    draft.firmId = gFirmId;
    draft.year = year();
    draft.code = partyCode();
    draft.seriesId = seriesId();
    draft.number = ui->txtbillno->text();
    draft.date = ui->txtbilldt->text();
    draft.state = GETSTATENAMEFORNAMECODEGST(ui->cboPOS->currentText());
    draft.taxType = taxType();
    draft.narration = ui->txtNarr->text();
    draft.lines = ui->vsB->cells();
    return draft;
}

std::optional<TaxType> frmBillGST::taxType() const
{
    return taxTypeOfIndex(ui->cboTaxType->currentIndex());
}

void frmBillGST::clearPanel()
{
    ui->cboPOS->setCurrentIndex(0);
    ui->cboTaxType->setCurrentIndex(-1);
    ui->vsB->setCells(emptyBillLines());
    SETTAXCOLS();
}

void frmBillGST::showPanel(int listRow)
{
    const Cells &list = documentList()->cells();
    FILLCBOSTATEFORNAMEONLYGST(*ui->cboPOS, list.text(listRow, ListPlace));
    const TaxType type = taxTypeOfWord(list.text(listRow, ListTaxType));
    ui->cboTaxType->setCurrentIndex(int(type));
    ui->vsB->change([&](Cells &lines) { readBillLines(*gCnn, currentId(), type, lines); });
    SETTAXCOLS();
    recomputeTotals();
}

void frmBillGST::yearChanged(int year)
{
    ui->vsB->column(YearColumn).picks = yearPicks(year);
}

void frmBillGST::beginAdd()
{
    m_particulars->clear();
    ui->vsB->change([](Cells &lines) { ADDDEFROWSB(lines); });
    toFirstLine();
    ui->txtpartynm->setFocus();
}

void frmBillGST::beginModify()
{
    m_particulars->clear();
    ui->vsB->change([](Cells &lines) { ADDDEFROWSB(lines); });
    // A bill that was paid can not change hands or date.
    const bool paid = hasReceipts(*gCnn, editedId());
    ui->txtpartynm->setDisabled(paid);
    ui->txtbilldt->setDisabled(paid);
    toFirstLine();
    ui->vsB->setFocus();
}

void frmBillGST::toFirstLine()
{
    ui->vsB->setCursor(billFixedRows, ParticularsColumn);
}

int frmBillGST::highestNumber()
{
    return highestBillNumber(*gCnn, gFirmId, year());
}

bool frmBillGST::removeStored(int id)
{
    const ErrorSite site("frmBillGST", "CMDDELETE_CLICK");
    if (hasReceipts(*gCnn, id)) {
        inform(QStringLiteral("This bill can not be deleted as some Receipts have been Issued against this Bill."));
        return false;
    }
    if (!deleteBill(*gCnn, id))
        alarm(QStringLiteral(
            "The database did not delete the whole bill. The list shows what is left; please try again."));
    return true;
}

std::optional<StoredDocument> frmBillGST::asStored(int id)
{
    return billAsStored(*gCnn, id);
}

void frmBillGST::partyLeft()
{
    if (!partyCode().isEmpty())
        FILLCBOSTATEFORCODEONLYGST(*ui->cboPOS, partyStateCode());
}

QStringList frmBillGST::narrationsUsed()
{
    return earlierNarrations(*gCnn);
}

void frmBillGST::CBOPOS_CLICK()
{
    if (!isEditing() || ui->cboPOS->currentText().isEmpty() || taxType() == TaxType::None)
        return;
    const bool sameState = gFirmStateCode == GETSTATECODEFORNAMECODEGST(ui->cboPOS->currentText());
    ui->cboTaxType->choose(int(sameState ? TaxType::Intra : TaxType::Inter));
}

void frmBillGST::CBOTAXTYPE_CLICK()
{
    if (!isEditing())
        return;
    ui->vsB->change([this](Cells &lines) { SETDEFRATES(lines, taxType()); });
    SETTAXCOLS();
    recomputeTotals();
}

void frmBillGST::SETTAXCOLS()
{
    for (int column = EditTaxColumn; column < BillColumnCount; ++column)
        ui->vsB->setColumnHidden(column, isBillColumnHidden(column, taxType()));
    ui->vsB->sizeColumns();
}

void frmBillGST::recomputeTotals()
{
    ui->vsB->change([this](Cells &lines) { GETTOTSBILL(lines, taxType()); });
}

void frmBillGST::VSB_AFTEREDIT(int row, int column)
{
    if (!isEditing() || !ui->vsB->cells().isData(row) || column == SrNoColumn)
        return;
    std::optional<QString> message;
    const bool wasFilled = !ui->vsB->cells().text(row, column).isEmpty();
    ui->vsB->change([&](Cells &lines) { message = normaliseBillCell(lines, row, column); });
    if (wasFilled && !message && ui->vsB->cells().text(row, column).isEmpty())
        m_dropped = {row, column};
    if (changesBillTotals(column))
        recomputeTotals();
    if (message)
        post(*message, [this, row, column] { ui->vsB->editRefusedCell(row, column); });
}

void frmBillGST::VSB_KEYPRESS_ENTER(int row, int column)
{
    if (!ui->vsB->cells().isData(row) || column == SrNoColumn)
        return;
    if (std::exchange(m_dropped, {-1, -1}) == std::pair(row, column))
        return ui->vsB->editCell(row, column); // its typist takes the amount as entered and goes on with the next
    const EnterTarget target = billEnterTarget(ui->vsB->cells(), row, column, taxType());
    if (target.toNarration)
        ui->txtNarr->setFocus();
    else if (target.row >= 0)
        ui->vsB->setCursor(target.row, target.column);
}

void frmBillGST::GETLISTP()
{
    if (m_particulars->count() == 0)
        m_particulars->addItems(earlierParticulars(*gCnn));
    if (m_particulars->count() == 0)
        return; // what is being typed goes on
    ui->vsB->commitEditor();
    const QModelIndex cell = ui->vsB->currentIndex();
    showTexts(m_particulars, {}, ui->vsB->cells().text(cell.row(), cell.column()), ui->vsB->viewport(),
              ui->vsB->visualRect(cell));
}

bool frmBillGST::closeOwnPopup()
{
    if (!m_particulars->isVisible())
        return false;
    ui->vsB->setFocus(Qt::PopupFocusReason);
    return true;
}

void frmBillGST::placeList()
{
    const QRect panel = ui->famedit->geometry();
    documentList()->setGeometry(panel.adjusted(panel.width() / 3, 0, 0, 0));
}

} // namespace ledgora
