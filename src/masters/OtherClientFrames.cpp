// The frames of the home screen for other clients: parties that the host's own tables do not hold.

#include "masters/frmMainGST.h"

#include "masters/OlderTables.h"
#include "masters/OtherClientStore.h"
#include "store/Connection.h"
#include "store/ErrorLog.h"
#include "ui_frmMainGST.h"

namespace ledgora {

void frmMainGST::connectOtherClients()
{
    ui->vsOthCl->setListMode();
    ui->vsOthCl->setCells(emptyOtherClientList());
    ui->vsOthCl->setColumnHidden(OtherClientId, true);
    ui->vsOthCl->setColumnHidden(OtherClientCode, true);
    ui->vsOthCl->setWidths({0, 0, 1}, OtherClientName);
    enterMovesOn({ui->cboOthClState, ui->txtOthClEmail});
    connectIdentifiers(QStringLiteral("txtOthCl"));
    on(ui->vsOthCl, &Grid::rowActivated, [this](int) { CMDOTHCLMODIFY_CLICK(); });
    command(ui->cmdOthClMas, [this] { CMDOTHCLMAS_CLICK(); });
    command(ui->cmdOthClAdd, [this] { CMDOTHCLADD_CLICK(); });
    command(ui->cmdOthClModify, [this] { CMDOTHCLMODIFY_CLICK(); });
    command(ui->cmdOthClDelete, [this] { CMDOTHCLDELETE_CLICK(); });
    command(ui->cmdOthClSave, [this] { CMDOTHCLSAVE_CLICK(); });
    command(ui->cmdOthClCancel, [this] { CMDOTHCLCANCEL_CLICK(); });
    command(ui->cmdBackOthCl, [this] { showHome(ui->cmdOthClMas); });
}

void frmMainGST::CMDOTHCLMAS_CLICK()
{
    if (!m_otherClientsLoaded) {
        LOADGRIDOTHCL(0);
        if (!ui->vsOthCl->cells().hasData() && IMPORTOLDBILLOTHCLS(*gCnn))
            LOADGRIDOTHCL(0);
    }
    m_otherClientsLoaded = true;
    showFrame(ui->famOthClMain);
    ui->vsOthCl->setFocus();
}

void frmMainGST::LOADGRIDOTHCL(int clientId)
{
    const ErrorSite site("frmMainGST", "LOADGRIDOTHCL");
    ui->vsOthCl->change([clientId](Cells &clients) { loadOtherClientList(*gCnn, clients, clientId); });
    const Cells &clients = ui->vsOthCl->cells();
    const int row = clientId != 0 ? clients.find(QString::number(clientId), OtherClientId) : -1;
    ui->vsOthCl->setRow(row >= 0 ? row : clients.fixedRows());
    ui->lblOthClHint->setText(QStringLiteral("There is no other client yet. Press Alt+A to add one."));
    ui->lblOthClHint->setVisible(!clients.hasData());
}

bool frmMainGST::hasChosenOtherClient()
{
    if (ui->vsOthCl->cells().isData(ui->vsOthCl->row()))
        return true;
    inform(QStringLiteral("Please Select a Client."), ui->vsOthCl);
    return false;
}

void frmMainGST::CMDOTHCLADD_CLICK()
{
    m_addMode = true;
    m_editedId = 0;
    writeFields(otherClientFields(), {});
    showFrame(ui->famOthClEdit);
    ui->txtOthClName->setFocus();
}

void frmMainGST::CMDOTHCLMODIFY_CLICK()
{
    const ErrorSite site("frmMainGST", "CMDOTHCLMODIFY_CLICK");
    if (!hasChosenOtherClient())
        return;
    m_addMode = false;
    m_editedId = int(ui->vsOthCl->cells().value(ui->vsOthCl->row(), OtherClientId));
    Recordset stored = otherClientRow(*gCnn, m_editedId);
    MasterRow row;
    if (stored.next()) {
        for (const MasterField &field : otherClientFields())
            row.insert(QLatin1String(field.column), stored.text(QLatin1String(field.column)));
    }
    writeFields(otherClientFields(), row);
    showFrame(ui->famOthClEdit);
    ui->txtOthClName->setFocus();
}

void frmMainGST::CMDOTHCLSAVE_CLICK()
{
    const ErrorSite site("frmMainGST", "CMDOTHCLSAVE_CLICK");
    const MasterRow client = readFields(otherClientFields());
    if (const FieldFault fault = otherClientFault(client, ui->cboOthClState->currentText()); !fault.message.isEmpty())
        return inform(fault.message, findChild<QWidget *>(fault.field));
    InsertResult result{m_editedId, false};
    if (m_addMode)
        result = insertOtherClient(*gCnn, client);
    else
        result.inserted = updateOtherClient(*gCnn, m_editedId, client);
    if (keepsEntry(result.inserted, result.id))
        return;
    LOADGRIDOTHCL(result.id);
    CMDOTHCLCANCEL_CLICK();
}

void frmMainGST::CMDOTHCLCANCEL_CLICK()
{
    showFrame(ui->famOthClMain);
    (m_addMode ? ui->cmdOthClAdd : ui->cmdOthClModify)->setFocus();
}

void frmMainGST::CMDOTHCLDELETE_CLICK()
{
    const ErrorSite site("frmMainGST", "CMDOTHCLDELETE_CLICK");
    if (!hasChosenOtherClient())
        return;
    if (!ask(QStringLiteral(
                 "All the bills and receipts of the selected 'Other Client' will be deleted. Do you really want to "
                 "delete the selected 'Other Client' ?"),
             QMessageBox::No, QMessageBox::Critical))
        return;
    const Cells &clients = ui->vsOthCl->cells();
    const int id = int(clients.value(ui->vsOthCl->row(), OtherClientId));
    if (!deleteOtherClient(*gCnn, id, clients.text(ui->vsOthCl->row(), OtherClientCode)))
        alarm(QStringLiteral("The database did not delete everything of this client. Please try again."));
    LOADGRIDOTHCL(id);
}

} // namespace ledgora
