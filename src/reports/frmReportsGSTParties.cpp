// The second panel of the selection screen: the parties of a report, and its run.

#include "reports/frmReportsGST.h"

#include "controls/CommandButton.h"
#include "controls/Grid.h"
#include "controls/WorkBar.h"
#include "platform/Reporter.h"
#include "reports/ReportFrame.h"
#include "reports/ReportParties.h"
#include "reports/Reports.h"
#include "store/Connection.h"
#include "store/ErrorLog.h"
#include "store/NumberFormat.h"
#include "ui_frmReportsGST.h"
#include <QKeyEvent>

namespace ledgora {

namespace {

const QString &tickText(bool ticked)
{
    static const QString yes = QStringLiteral("Y");
    static const QString no = QStringLiteral("N");
    return ticked ? yes : no;
}

bool isTicked(const Cells &parties, int row)
{
    return parties.text(row, ListedTick) == tickText(true);
}

} // namespace

void frmReportsGST::connectParties()
{
    Grid *list = ui->vsfc;
    list->setCells(emptyReportParties());
    list->setListMode();
    for (int column = 0; column < ListedColumnCount; ++column) {
        const bool shown = column == ListedCode || column == ListedState || column == ListedName
                           || column == ListedGstin || column == ListedPan || column == ListedTick;
        list->setColumnHidden(column, !shown);
    }
    list->setWidths({0, 0.18, 0.15, 0, 0, 0, 0, 0, 0, 0, 0, 0.15, 0.11, 0.06}, ListedName);
    list->horizontalHeader()->moveSection(ListedName, 0); // what a clerk looks for
    list->column(ListedTick).check = true;
    list->setEditRules([](int, int column) { return column == ListedTick; }, {});
    list->horizontalHeader()->setSectionsClickable(true);
    on(list->horizontalHeader(), &QHeaderView::sectionClicked, [this](int column) { VSFC_HEADERCLICK(column); });
    on(list, &Grid::cellEdited, [this](int, int) { showTicked(); });
    on(list, &Grid::rowActivated, [this](int row) {
        if (ui->vsfc->col() != ListedTick) // there the click itself has ticked
            tickRow(row);
    });
    field(list).keyDown = [this](const QKeyEvent *key) { return VSFC_KEYDOWN(*key); };
    field(ui->txtFind).keyDown = [this](const QKeyEvent *key) { return TXTFIND_KEYDOWN(*key); };
    on(ui->txtFind, &QLineEdit::textEdited, [this](const QString &typed) { findParty(typed); });
    enterMovesOn({ui->chkBillNo});
    command(ui->cmdProceedC, [this] { CMDPROCEEDC_CLICK(); });
    command(ui->cmdBackC, [this] { escapePressed(); });
    tellPartyKeys();
}

void frmReportsGST::tellPartyKeys()
{
    tellKeys({
        {ui->vsfc, "Space", "Ticks the client under the cursor"},
        {ui->vsfc, "Ctrl+A", "Ticks all clients shown; when all are ticked, none"},
        {ui->vsfc, "Letters", "Find a client by the beginning of its name or code"},
        {ui->vsfc, "Enter", "Goes to Proceed; from Find back to the list"},
        {ui->vsfc, "Esc", "Goes back; ticks are kept"},
    });
}

bool frmReportsGST::VSFC_KEYDOWN(const QKeyEvent &key)
{
    const bool plain = !(key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
    if (key.key() == Qt::Key_Space && plain) {
        tickRow(ui->vsfc->row());
    } else if (key.key() == Qt::Key_A && key.modifiers() == Qt::ControlModifier) {
        tickShown();
    } else if (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter) {
        (ui->chkBillNo->isVisible() ? static_cast<QWidget *>(ui->chkBillNo) : ui->cmdProceedC)->setFocus();
    } else if (plain && !key.text().isEmpty() && key.text().at(0).isPrint()) {
        ui->txtFind->setFocus();
        ui->txtFind->setText(key.text());
        findParty(key.text());
    } else {
        return false;
    }
    return true;
}

bool frmReportsGST::TXTFIND_KEYDOWN(const QKeyEvent &key)
{
    switch (key.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Up:
    case Qt::Key_Down:
        ui->vsfc->setFocus();
        return true;
    default:
        return false;
    }
}

void frmReportsGST::findParty(const QString &typed)
{
    const Cells &parties = ui->vsfc->cells();
    for (const int column : {int(ListedName), int(ListedCode)}) {
        const int row =
            typed.isEmpty() ? -1 : parties.find(typed, column, parties.fixedRows(), Cells::Match::BeginsAnyCase, true);
        if (row >= 0)
            return ui->vsfc->setRow(row);
    }
}

void frmReportsGST::tickRow(int row)
{
    if (!ui->vsfc->cells().isData(row))
        return;
    ui->vsfc->change([row](Cells &parties) { parties.setText(row, ListedTick, tickText(!isTicked(parties, row))); });
    showTicked();
}

void frmReportsGST::tickShown()
{
    ui->vsfc->change([](Cells &parties) {
        bool all = true;
        for (int row = parties.fixedRows(); row < parties.rows(); ++row)
            all = all && (parties.isHidden(row) || isTicked(parties, row));
        for (int row = parties.fixedRows(); row < parties.rows(); ++row) {
            if (!parties.isHidden(row))
                parties.setText(row, ListedTick, tickText(!all));
        }
    });
    showTicked();
}

/// All rows, those of other groups too, become what the first row is not.
void frmReportsGST::VSFC_HEADERCLICK(int column)
{
    if (column != ListedTick)
        return;
    ui->vsfc->change([](Cells &parties) {
        const bool tick = !isTicked(parties, parties.fixedRows());
        for (int row = parties.fixedRows(); row < parties.rows(); ++row)
            parties.setText(row, ListedTick, tickText(tick));
    });
    showTicked();
}

void frmReportsGST::showTicked()
{
    const Cells &parties = ui->vsfc->cells();
    if (!m_partiesFault.isEmpty()) {
        ui->lblTicked->setText("Clients may be missing here; please open the reports again. " + m_partiesFault);
        return;
    }
    if (!parties.hasData()) {
        ui->lblTicked->setText(QStringLiteral("There is no client yet. Clients are made in the home screen, or in the "
                                              "program that opened it."));
        return;
    }
    int shown = 0;
    for (int row = parties.fixedRows(); row < parties.rows(); ++row)
        shown += parties.isHidden(row) ? 0 : 1;
    ui->lblTicked->setText(
        QStringLiteral("%1 of %2 clients ticked. Space ticks, Ctrl+A ticks all, letters find a client.")
            .arg(groupedAmount(double(tickedRows(parties).size())), groupedAmount(shown)));
}

PartyDetails frmReportsGST::details() const
{
    return {.gstin = ui->chkGSTIN->isChecked(),
            .pan = ui->chkPAN->isChecked(),
            .address = ui->chkadd->isChecked(),
            .phone = ui->chkph->isChecked(),
            .fax = ui->chkfax->isChecked(),
            .mobile = ui->chkmob->isChecked(),
            .email = ui->chkemail->isChecked()};
}

ReportRequest frmReportsGST::request() const
{
    const ReportChoice chosen = choice();
    ReportRequest asked;
    asked.kind = ReportKind(chosen.report.toInt());
    asked.firmId = gFirmId;
    asked.firmName = gFirmName;
    asked.from = chosen.from;
    asked.to = chosen.to;
    asked.asOn = chosen.asOn;
    asked.billsUpTo = chosen.limitsBills ? chosen.billsUpTo : QString();
    asked.groupName = groupName();
    asked.parties = ui->vsfc->cells();
    asked.partiesFault = m_partiesFault;
    asked.rows = tickedRows(asked.parties);
    asked.details = details();
    asked.properCase = gNameCase == 0;
    asked.sac = ui->cboSAC->currentIndex();
    asked.amounts = {{{ui->cboOutAmt_0->currentIndex(), Val(ui->txtOutAmt_0->text())},
                      {ui->cboOutAmt_1->currentIndex(), Val(ui->txtOutAmt_1->text())}}};
    asked.bothAmounts = ui->optsOutAmt_0->isChecked();
    asked.billNumbers = ui->chkBillNo->isChecked();
    return asked;
}

void frmReportsGST::CMDPROCEEDC_CLICK()
{
    const ErrorSite site("frmReportsGST", "CMDPROCEEDC_CLICK");
    const ReportRequest asked = request();
    if (asked.rows.empty())
        return inform(QStringLiteral("No Client Selection !"), ui->vsfc);
    const ReportResult made = withWorkBar(this, ui->lblReport->text(), [&asked](const Progress &progress) {
        return makeReport(*gCnn, asked, *gReporter, progress);
    });
    if (made.fault.isEmpty() || made.isPartly)
        return gReporter->ShowReport(false);
    gReporter->AbortReport();
    if (made.fault != QLatin1String(cancelledText))
        inform(made.fault, ui->vsfc);
}

} // namespace ledgora
