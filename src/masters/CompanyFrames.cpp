// The company frames of the home screen: list, edit, password, save, delete.

#include "masters/frmMainGST.h"

#include "controls/CompanyScreen.h"
#include "masters/CompanyStore.h"
#include "masters/frmLogin1.h"
#include "platform/BankLookup.h"
#include "platform/HostObject.h"
#include "platform/Registry.h"
#include "store/Connection.h"
#include "store/ErrorLog.h"
#include "store/Identifiers.h"
#include "store/Settings.h"
#include "store/StateList.h"
#include "ui_frmMainGST.h"
#include <QDir>
#include <QFileInfo>
#include <QKeyEvent>

namespace ledgora {

void frmMainGST::connectCompanies()
{
    enterMovesOn({ui->cboFirmState, ui->txtFirmPass, ui->txtFirmEmail, ui->txtFirmWebURL});
    connectIdentifiers(QStringLiteral("txtFirm"));
    field(ui->txtFirmBankIFSC).validate = [this] {
        const bool valid = isIfsCode(ui->txtFirmBankIFSC->text());
        if (!valid)
            inform(ifsCodeMessage(), ui->txtFirmBankIFSC);
        return valid;
    };
    field(ui->txtFirmPass).validate = [this] { return TXTFIRMPASS_VALIDATE(); };
    for (VTxt *bankField : {ui->txtFirmBankNm, ui->txtFirmBankIFSC})
        field(bankField).keyDown = [this](const QKeyEvent *key) {
            if (key->key() == Qt::Key_F12)
                CMDIFSC_CLICK();
            return key->key() == Qt::Key_F12;
        };
    command(ui->cmdIFSC, [this] { CMDIFSC_CLICK(); });
    command(ui->cmdFirmCreate, [this] { CMDFIRMCREATE_CLICK(); });
    command(ui->cmdFirmAlter, [this] { CMDFIRMALTER_CLICK(); });
    command(ui->cmdFirmDelete, [this] { CMDFIRMDELETE_CLICK(); });
    command(ui->cmdFirmSave, [this] { CMDFIRMSAVE_CLICK(); });
    command(ui->cmdFirmCancel, [this] { CMDFIRMCANCEL_CLICK(); });
}

void frmMainGST::LOADGRIDFIRM(int firmId)
{
    const ErrorSite site("frmMainGST", "LOADGRIDFIRM");
    ui->vsFirm->change([firmId](Cells &companies) { loadCompanyList(*gCnn, companies, firmId); });
    const Cells &companies = ui->vsFirm->cells();
    const int row = firmId != 0 ? companies.find(QString::number(firmId), CompanyId) : -1;
    ui->vsFirm->setRow(row >= 0 ? row : companies.fixedRows());
    showChosenCompany();
}

void frmMainGST::CLEARDATAFIRM()
{
    writeFields(companyFields(), {});
}

void frmMainGST::LOADDATAFIRM()
{
    Recordset stored = companyRow(*gCnn, chosenCompany());
    if (!stored.next())
        return;
    MasterRow row;
    for (const MasterField &field : companyFields())
        row.insert(QLatin1String(field.column), stored.text(QLatin1String(field.column)));
    writeFields(companyFields(), row);
}

void frmMainGST::CMDFIRMCREATE_CLICK()
{
    gPassAsk = false;
    gPassEntry.clear();
    m_addMode = true;
    m_editedId = 0;
    CLEARDATAFIRM();
    showFrame(ui->famFirmEdit);
    ui->txtFirmName->setFocus();
}

void frmMainGST::CMDFIRMALTER_CLICK()
{
    const ErrorSite site("frmMainGST", "CMDFIRMALTER_CLICK");
    if (!hasChosenCompany() || !passwordAgrees())
        return;
    m_addMode = false;
    m_editedId = chosenCompany();
    CLEARDATAFIRM();
    LOADDATAFIRM();
    showFrame(ui->famFirmEdit);
    ui->txtFirmName->setFocus();
}

/// A new password is typed twice; that of the company as it was opened counts as confirmed.
bool frmMainGST::TXTFIRMPASS_VALIDATE()
{
    const QString password = ui->txtFirmPass->text();
    if (password.isEmpty() || gPassEntry == password)
        return true;
    gPassEntry.clear();
    gPassAsk = false;
    frmLogin1(this).exec();
    if (gPassEntry == password)
        return true;
    if (!gPassEntry.isEmpty())
        inform(QStringLiteral("Invalid Password."), ui->txtFirmPass);
    gPassEntry.clear();
    return false;
}

void frmMainGST::CMDFIRMSAVE_CLICK()
{
    const ErrorSite site("frmMainGST", "CMDFIRMSAVE_CLICK");
    const MasterRow company = readFields(companyFields());
    if (const FieldFault fault = companyFault(company, ui->cboFirmState->currentText()); !fault.message.isEmpty())
        return inform(fault.message, findChild<QWidget *>(fault.field));
    if (isCompanyNameTaken(*gCnn, company.value(QStringLiteral("Nm")), m_editedId))
        return inform(QStringLiteral("'Name' Already Exists."), ui->txtFirmName);
    InsertResult result{m_editedId, false};
    if (m_addMode)
        result = insertCompany(*gCnn, company);
    else
        result.inserted = updateCompany(*gCnn, m_editedId, company);
    if (keepsEntry(result.inserted, result.id))
        return;
    LOADGRIDFIRM(result.id);
    CompanyScreen::renewOf(result.id, company.value(QStringLiteral("Nm")),
                           GETSTATECODEFORNAMEONLYGST(company.value(QStringLiteral("StateNm"))));
    CMDFIRMCANCEL_CLICK();
}

void frmMainGST::CMDFIRMCANCEL_CLICK()
{
    showHome(m_addMode ? ui->cmdFirmCreate : ui->cmdFirmAlter);
}

void frmMainGST::CMDIFSC_CLICK()
{
    const ErrorSite site("frmMainGST", "CMDIFSC_CLICK");
    BankChoice choice;
    choice[ChosenBank] = BankLookup::noData;
    if (const auto lookup = Registry::instance().create<BankLookup>(QLatin1String(BankLookup::progId))) {
        lookup->InitMe(gAppPath, gCnn, QFileInfo(gLogPath).fileName(), gHostObj->vScreenRatX(), gHostObj->vScreenRatY(),
                       gHostObj->vScreenRatFS());
        lookup->GetMICRIFSC(choice, ui->txtFirmBankNm->text().trimmed(), ui->txtFirmCity->text().trimmed(), {});
    } else {
        WriteErrLog(429, QStringLiteral("No component is registered as ") + QLatin1String(BankLookup::progId),
                    QStringLiteral("frmMainGST"));
    }
    ui->txtFirmBankIFSC->setFocus();
    if (choice[ChosenBank] == BankLookup::noData)
        return inform(QStringLiteral("Missing Latest Update File ! Please update the software again."));
    if (choice[ChosenBank].isEmpty())
        return;
    ui->txtFirmBankNm->setText(choice[ChosenBank]);
    ui->txtFirmBankBr->setText(choice[ChosenBranch]);
    ui->txtFirmBankIFSC->setText(choice[ChosenIfsCode]);
}

void frmMainGST::CMDFIRMDELETE_CLICK()
{
    const ErrorSite site("frmMainGST", "CMDFIRMDELETE_CLICK");
    if (!hasChosenCompany() || !passwordAgrees())
        return;
    if (!ask(QStringLiteral(
                 "All the bills and receipts of the selected 'Company' will be deleted. Do you really want to "
                 "Delete the selected 'Company' ?"),
             QMessageBox::No, QMessageBox::Critical))
        return;
    const int id = chosenCompany();
    CompanyScreen::dismissOf(id); // ids are allotted anew, and what they still saved would belong to nobody
    QDir templates(joinPath(gTmplPath, QString::number(id)));
    if (templates.exists() && !templates.removeRecursively())
        WriteErrLog(75, QStringLiteral("The template folder of the company could not be deleted"),
                    QStringLiteral("frmMainGST"));
    if (!deleteCompany(*gCnn, id))
        alarm(QStringLiteral("The database did not delete everything of this company. Please try again."));
    LOADGRIDFIRM(id);
}

} // namespace ledgora
