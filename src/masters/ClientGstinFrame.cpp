// The frame of the home screen in which the GSTINs of the host's clients are registered.

#include "masters/frmMainGST.h"

#include "masters/ClientGstins.h"
#include "store/Connection.h"
#include "store/ErrorLog.h"
#include "store/Identifiers.h"
#include "ui_frmMainGST.h"
#include <QKeyEvent>
#include <algorithm>

namespace ledgora {

namespace {

constexpr int longestGstin = 30; ///< more is cut; fifteen characters are right

} // namespace

void frmMainGST::connectClientGstins()
{
    Grid *clients = ui->vsClGSTIN;
    clients->setCells(emptyClientGstins());
    clients->setColumnHidden(ClientGstinLoaded, true);
    clients->setWidths({0.16, 0, 0.2, 0.13, 0, 0.2}, ClientGstinName);
    clients->column(ClientGstin).upperCase = true;
    clients->column(ClientGstin).maxLength = longestGstin;
    const auto isGstinCell = [](int, int column) { return column == ClientGstin; };
    clients->setEditRules(isGstinCell, isGstinCell);
    clients->setStepsOverEditableOnly(true);
    on(clients, &Grid::editFinished, [this](int row, int) { VSCLGSTIN_VALIDATEEDIT(row); });
    on(clients, &Grid::enterPressed, [this](int row, int) {
        if (!ui->vsClGSTIN->cells().isData(row + 1))
            return ui->cmdSaveClGSTIN->setFocus();
        ui->vsClGSTIN->setCursor(row + 1, ClientGstin);
    });
    on(ui->txtClGSTINSearch, &QLineEdit::textEdited, [this](const QString &typed) { findClientOfGstin(typed); });
    field(ui->txtClGSTINSearch).keyDown = [this](const QKeyEvent *key) {
        const bool found = ui->vsClGSTIN->cells().isData(ui->vsClGSTIN->row());
        const bool enters = key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter || key->key() == Qt::Key_Down;
        if (enters && found)
            ui->vsClGSTIN->editCell(ui->vsClGSTIN->row(), ClientGstin);
        return enters;
    };
    command(ui->cmdUpdClGSTIN, [this] { CMDUPDCLGSTIN_CLICK(); });
    command(ui->cmdSaveClGSTIN, [this] { leaveClientGstins(false); });
    command(ui->cmdBackClGSTIN, [this] { leaveClientGstins(true); });
}

void frmMainGST::CMDUPDCLGSTIN_CLICK()
{
    ui->vsClGSTIN->change([](Cells &clients) { LOADGRIDUPDCLGSTIN(*gCnn, gHostCode, clients); });
    const Cells &clients = ui->vsClGSTIN->cells();
    ui->txtClGSTINSearch->clear();
    ui->lblClGSTINHint->setText(QStringLiteral("The office has no clients yet whose GSTIN could be registered here."));
    ui->lblClGSTINHint->setVisible(!clients.hasData());
    showFrame(ui->famUpdClGSTIN);
    ui->vsClGSTIN->setFocus();
    if (clients.hasData())
        ui->vsClGSTIN->editCell(clients.fixedRows(), ClientGstin);
    else
        ui->cmdBackClGSTIN->setFocus();
}

void frmMainGST::findClientOfGstin(const QString &typed)
{
    const Cells &clients = ui->vsClGSTIN->cells();
    for (const int column : {ClientGstinName, ClientGstinCode}) {
        const int row =
            typed.isEmpty() ? -1 : clients.find(typed, column, clients.fixedRows(), Cells::Match::BeginsAnyCase);
        if (row >= 0)
            return ui->vsClGSTIN->setRow(row);
    }
}

void frmMainGST::VSCLGSTIN_VALIDATEEDIT(int row)
{
    const QString gstin = ui->vsClGSTIN->cells().text(row, ClientGstin);
    const bool frameLeft = !ui->vsClGSTIN->isVisible() || leavesUnchecked();
    if (gstin.isEmpty() || IsGstinShape(gstin) || frameLeft || m_gstinRefused)
        return;
    m_gstinRefused = true; // until it was told: a cell is left more than once on the way to the next
    post(QStringLiteral("Invalid 'GSTIN' !"), [this, row] {
        ui->vsClGSTIN->editRefusedCell(row, ClientGstin); // leaves the cell that was opened meanwhile
        m_gstinRefused = false;
    });
}

void frmMainGST::leaveClientGstins(bool askOnExit)
{
    if (UPDATECLGSTIN(askOnExit))
        showHome(ui->cmdUpdClGSTIN);
}

/// True when the frame may be left: nothing was changed, all was saved, or the user gives the changes up.
bool frmMainGST::UPDATECLGSTIN(bool askOnExit)
{
    const ErrorSite site("frmMainGST", "UPDATECLGSTIN");
    if (changedGstins(ui->vsClGSTIN->cells()).empty())
        return true;
    constexpr auto buttons = QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    for (;;) {
        const auto save = choose(QStringLiteral("Do you want to Save?"), buttons, QMessageBox::Cancel);
        if (save == QMessageBox::Yes)
            break;
        if (save == QMessageBox::Cancel || !askOnExit)
            return false;
        const auto exit =
            choose(QStringLiteral("Do you really want to exit without saving the changes?"), buttons, QMessageBox::No);
        if (exit != QMessageBox::No)
            return exit == QMessageBox::Yes;
    }
    const Cells &clients = ui->vsClGSTIN->cells();
    for (int row = clients.fixedRows(); row < clients.rows(); ++row) {
        if (!gstinPasses(row))
            return false;
    }
    bool whole = false;
    ui->vsClGSTIN->change([&whole](Cells &cells) { whole = saveClientGstins(*gCnn, cells); });
    if (!whole)
        alarm(QStringLiteral("The database did not take every GSTIN. What was typed is still here; press Save to try "
                             "again."));
    return whole;
}

bool frmMainGST::gstinPasses(int row)
{
    const Cells &clients = ui->vsClGSTIN->cells();
    const auto findings = gstinFindings(clients.text(row, ClientGstin), clients.text(row, ClientGstinState),
                                        clients.text(row, ClientGstinPan));
    return std::ranges::all_of(findings, [&](const GstinFinding &finding) {
        if (finding.isQuestion && ask(finding.text, QMessageBox::No))
            return true;
        ui->vsClGSTIN->setCursor(row, ClientGstin);
        if (const QString message = finding.isQuestion ? finding.messageAfterNo : finding.text; !message.isEmpty())
            inform(message);
        ui->vsClGSTIN->editCell(row, ClientGstin);
        return false;
    });
}

} // namespace ledgora
