#include "masters/frmMainGST.h"

#include "bills/frmBillGST.h"
#include "controls/StateChoice.h"
#include "masters/CompanyStore.h"
#include "masters/EditFields.h"
#include "masters/OlderTables.h"
#include "masters/OtherClientStore.h"
#include "masters/frmLogin1.h"
#include "platform/HostObject.h"
#include "receipts/frmRecpGST.h"
#include "reports/frmReportsGST.h"
#include "store/Connection.h"
#include "store/ErrorLog.h"
#include "store/Identifiers.h"
#include "store/Settings.h"
#include "store/StateList.h"
#include "ui_frmMainGST.h"
#include <QCloseEvent>

namespace ledgora {

frmMainGST::frmMainGST(QWidget *parent) : Screen(parent), ui(std::make_unique<Ui::frmMainGST>())
{
    ui->setupUi(this);
    FORM_LOAD();
}

frmMainGST::~frmMainGST() = default;

void frmMainGST::FORM_LOAD()
{
    const ErrorSite site("frmMainGST", "FORM_LOAD");
    gHostObj->Resize_For_Resolution(*this);
    LOADSTATELISTGST(*ui->cboFirmState);
    LOADSTATELISTGST(*ui->cboOthClState);
    connectHome();
    connectCompanies();
    connectOtherClients();
    connectSeries();
    connectSettings();
    connectClientGstins();
    connectTemplates();
    LOADGRIDFIRM(0);
    if (!ui->vsFirm->cells().hasData() && IMPORTOLDBILLFIRMS(*gCnn))
        LOADGRIDFIRM(0);
}

void frmMainGST::connectHome()
{
    ui->vsFirm->setListMode();
    ui->vsFirm->setCells(emptyCompanyList());
    for (const int hidden : {CompanyId, CompanyPass, CompanyStateName})
        ui->vsFirm->setColumnHidden(hidden, true);
    ui->vsFirm->setWidths({0, 0, 0, 1}, CompanyName);
    QFont bold = ui->lblFirm->font();
    bold.setBold(true);
    bold.setPointSizeF(bold.pointSizeF() * 1.3);
    ui->lblFirm->setFont(bold);
    on(ui->vsFirm, &Grid::rowChanged, [this](int) { showChosenCompany(); });
    on(ui->vsFirm, &Grid::rowActivated, [this](int) { CMDBILLS_CLICK(); });
    command(ui->cmdBills, [this] { CMDBILLS_CLICK(); });
    command(ui->cmdRecps, [this] { CMDRECPS_CLICK(); });
    command(ui->cmdReports, [this] { CMDREPORTS_CLICK(); });
    command(ui->cmdBackMain, [this] { escapePressed(); });
    tellHomeKeys();
}

void frmMainGST::tellHomeKeys()
{
    constexpr auto nextField = "Goes to the next field";
    constexpr auto cancels = "Cancels the entry";
    constexpr auto goesBack = "Goes back";
    tellKeys({
        {ui->vsFirm, "Enter", "Opens the bills of the company under the cursor"},
        {ui->famFirmMain, "Esc", "Closes the screen"},
        {ui->famFirmEdit, "Enter", nextField},
        {ui->famFirmEdit, "F12", "Looks up the bank, from its name or IFS code"},
        {ui->famFirmEdit, "Esc", cancels},
        {ui->vsOthCl, "Enter", "Modifies the client under the cursor"},
        {ui->famOthClMain, "Esc", goesBack},
        {ui->famOthClEdit, "Enter", nextField},
        {ui->famOthClEdit, "Esc", cancels},
        {ui->vsSeries, "Enter", "Modifies the series under the cursor"},
        {ui->vsSeries, "Esc", goesBack},
        {ui->famSeriesEdit, "Enter", nextField},
        {ui->famSeriesEdit, "Esc", cancels},
        {ui->vsClGSTIN, "Enter", "Takes the GSTIN and goes to the next client"},
        {ui->vsClGSTIN, "Esc", "Takes back what is being typed, else goes back"},
        {ui->famsett, "Enter", nextField},
        {ui->famsett, "Esc", "Goes back without saving"},
        {ui->famTmplSetup, "Enter", nextField},
        {ui->famTmplSetup, "Esc", "Keeps the choice and goes back"},
    });
}

void frmMainGST::showFrame(QWidget *frame)
{
    QWidget *page = frame;
    while (page->parentWidget() != ui->frames)
        page = page->parentWidget();
    ui->frames->setCurrentWidget(page);
}

void frmMainGST::showHome(QWidget *focus)
{
    showFrame(ui->famFirmMain);
    focus->setFocus();
}

int frmMainGST::chosenCompany() const
{
    return int(ui->vsFirm->cells().value(ui->vsFirm->row(), CompanyId));
}

void frmMainGST::showChosenCompany()
{
    const bool any = ui->vsFirm->cells().hasData();
    ui->lblFirm->setText(ui->vsFirm->cells().text(ui->vsFirm->row(), CompanyName));
    ui->lblFirm->setVisible(any);
    ui->lblFirmHint->setText(any ? QStringLiteral("Enter opens the bills of the chosen company. F1 shows all keys.")
                                 : QStringLiteral("There is no company yet. Press Alt+C to create the first one."));
}

bool frmMainGST::hasChosenCompany()
{
    if (ui->vsFirm->cells().isData(ui->vsFirm->row()))
        return true;
    inform(QStringLiteral("Please Select a Company."), ui->vsFirm);
    return false;
}

bool frmMainGST::passwordAgrees()
{
    gPassEntry.clear();
    const QString password = ui->vsFirm->cells().text(ui->vsFirm->row(), CompanyPass);
    if (password.isEmpty())
        return true;
    gPassAsk = true;
    frmLogin1(this).exec();
    gPassAsk = false;
    if (gPassEntry == password)
        return true;
    if (!gPassEntry.isEmpty())
        inform(QStringLiteral("Invalid Password."));
    return false;
}

bool frmMainGST::ISSELECTEDFIRM()
{
    if (!hasChosenCompany())
        return false;
    const Cells &companies = ui->vsFirm->cells();
    const int row = ui->vsFirm->row();
    gFirmStateCode = GETSTATECODEFORNAMEONLYGST(companies.text(row, CompanyStateName));
    if (gFirmStateCode.isEmpty()) {
        // Companies taken over without a state, or with an old spelling, are mended at their first use.
        inform(QStringLiteral("Please specify valid 'State' !"));
        CMDFIRMALTER_CLICK();
        if (ui->famFirmEdit->isVisible())
            ui->cboFirmState->setFocus();
        return false;
    }
    if (!passwordAgrees())
        return false;
    gFirmId = chosenCompany();
    gFirmName = companies.text(row, CompanyName);
    return true;
}

bool frmMainGST::CHECKTMPLSETUP()
{
    READTMPLSETUP();
    if (gBillCopy != -1 && gRecpCopy != -1)
        return true;
    showTemplateSetup();
    inform(QStringLiteral("Please specify 'Template' Type !"), ui->cboCopyTmpl_0);
    return false;
}

void frmMainGST::CMDBILLS_CLICK()
{
    const ErrorSite site("frmMainGST", "CMDBILLS_CLICK");
    if (ISSELECTEDFIRM() && CHECKTMPLSETUP())
        CompanyScreen::open<frmBillGST>();
}

void frmMainGST::CMDRECPS_CLICK()
{
    const ErrorSite site("frmMainGST", "CMDRECPS_CLICK");
    if (ISSELECTEDFIRM() && CHECKTMPLSETUP())
        CompanyScreen::open<frmRecpGST>();
}

void frmMainGST::CMDREPORTS_CLICK()
{
    const ErrorSite site("frmMainGST", "CMDREPORTS_CLICK");
    if (!ISSELECTEDFIRM())
        return;
    READTMPLSETUP(); // the case of names; which templates are chosen is no matter of reports
    CompanyScreen::open<frmReportsGST>();
}

void frmMainGST::escapePressed()
{
    if (ui->famUpdClGSTIN->isVisible())
        return leaveClientGstins(true);
    if (ui->famTmplSetup->isVisible())
        return CMDBACKTMPL_CLICK();
    if (ui->famsett->isVisible())
        return CMDSETTCANCEL_CLICK();
    if (ui->famSeriesMain->isVisible())
        return m_seriesBrowsing ? showHome(ui->cmdSeriesMas) : CMDSERIESCANCEL_CLICK();
    if (ui->famOthClEdit->isVisible())
        return CMDOTHCLCANCEL_CLICK();
    if (ui->famOthClMain->isVisible())
        return showHome(ui->cmdOthClMas);
    if (ui->famFirmEdit->isVisible())
        return CMDFIRMCANCEL_CLICK();
    close();
}

void frmMainGST::closeEvent(QCloseEvent *event)
{
    // A window can be closed in the middle of the register, by its frame or with the whole program.
    bool mayClose = true;
    if (ui->famUpdClGSTIN->isVisible())
        run([&] { mayClose = settle() && UPDATECLGSTIN(true); });
    if (!mayClose)
        return event->ignore();
    Screen::closeEvent(event);
    if (event->isAccepted() && gHostCode == QLatin1String("C") && gMdi)
        gMdi->ReloadMenu();
}

MasterRow frmMainGST::readFields(std::span<const MasterField> fields) const
{
    return readEditFields(*this, fields);
}

void frmMainGST::writeFields(std::span<const MasterField> fields, const MasterRow &row)
{
    writeEditFields(*this, fields, row);
}

void frmMainGST::connectIdentifiers(const QString &prefix)
{
    auto *pan = findChild<QLineEdit *>(prefix + QStringLiteral("PAN"));
    auto *gstin = findChild<QLineEdit *>(prefix + QStringLiteral("GSTIN"));
    field(pan).validate = [this, pan] { return panFieldIsValid(*this, *pan); };
    field(gstin).validate = [this, gstin] {
        const bool valid = gstin->text().isEmpty() || IsGstinShape(gstin->text());
        if (!valid)
            inform(QStringLiteral("Invalid 'GSTIN' !"), gstin);
        return valid;
    };
}

bool frmMainGST::keepsEntry(bool saved, int id)
{
    return tellsUnsaved(*this, saved, id);
}

} // namespace ledgora
