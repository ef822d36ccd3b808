#pragma once

#include "controls/Screen.h"
#include "masters/FieldMap.h"
#include <memory>

class QRadioButton;

namespace ledgora {

class ChoiceBox;
class CommandButton;
class Grid;
struct SeriesEntry;

namespace Ui {
class frmMainGST;
}

/// The home screen of the GST side: the list of companies with its commands, and in its place, one at a time, the
/// frames in which companies, other clients and the choice of templates are edited.
class frmMainGST : public Screen
{
    Q_OBJECT
public:
    explicit frmMainGST(QWidget *parent = nullptr);
    ~frmMainGST() override;

private:
    void FORM_LOAD();
    void connectHome();
    void tellHomeKeys();
    void showFrame(QWidget *frame);
    void showHome(QWidget *focus);

    // The chosen company, and the gates before the screens that work for it.
    bool ISSELECTEDFIRM();
    bool CHECKTMPLSETUP();
    bool hasChosenCompany();
    bool passwordAgrees();
    int chosenCompany() const;
    void showChosenCompany();
    void CMDBILLS_CLICK();
    void CMDRECPS_CLICK();
    void CMDREPORTS_CLICK();

    // Companies (CompanyFrames.cpp).
    void connectCompanies();
    void LOADGRIDFIRM(int firmId);
    void CLEARDATAFIRM();
    void LOADDATAFIRM();
    void CMDFIRMCREATE_CLICK();
    void CMDFIRMALTER_CLICK();
    void CMDFIRMDELETE_CLICK();
    void CMDFIRMSAVE_CLICK();
    void CMDFIRMCANCEL_CLICK();
    void CMDIFSC_CLICK();
    bool TXTFIRMPASS_VALIDATE();

    // Other clients (OtherClientFrames.cpp).
    void connectOtherClients();
    void CMDOTHCLMAS_CLICK();
    void LOADGRIDOTHCL(int clientId);
    void CMDOTHCLADD_CLICK();
    void CMDOTHCLMODIFY_CLICK();
    void CMDOTHCLDELETE_CLICK();
    void CMDOTHCLSAVE_CLICK();
    void CMDOTHCLCANCEL_CLICK();
    bool hasChosenOtherClient();

    // Series (SeriesFrames.cpp).
    void connectSeries();
    void CMDSERIESMAS_CLICK();
    void LOADGRIDSERIES(int seriesId);
    void CMDSERIESADD_CLICK();
    void CMDSERIESMODIFY_CLICK();
    void CMDSERIESDELETE_CLICK();
    void CMDSERIESUPDATE_CLICK();
    void CMDSERIESCANCEL_CLICK();
    void setSeriesBrowsing(bool browse);
    void showSeries();
    void showSeriesSample();
    void writeSeries(const SeriesEntry &entry);
    SeriesEntry readSeries() const;
    bool hasChosenSeries();
    bool seriesIsFree(int id, bool ofReceipts, const QString &message);

    // Settings (SettingsFrame.cpp).
    struct Setting;
    std::vector<Setting> settings() const;
    void connectSettings();
    void CMDSETTINGS_CLICK();
    void CMDSETTSAVE_CLICK();
    void CMDSETTCANCEL_CLICK();

    // GSTINs of the host's clients (ClientGstinFrame.cpp).
    void connectClientGstins();
    void CMDUPDCLGSTIN_CLICK();
    void findClientOfGstin(const QString &typed);
    void VSCLGSTIN_VALIDATEEDIT(int row);
    bool UPDATECLGSTIN(bool askOnExit);
    bool gstinPasses(int row);
    void leaveClientGstins(bool askOnExit);

    // Choice of templates (TemplateFrame.cpp).
    void connectTemplates();
    void showTemplateSetup();
    void tellTemplateChoice();
    void CMDTEMPLATESETUP_CLICK();
    void CMDSETUPTMPL_CLICK(int index);
    void CMDBACKTMPL_CLICK();
    QString templateFileName(int index) const;
    QString companyTemplateFolder() const;
    bool hasCopyChoices();

    // Edit frames as rows of their masters.
    MasterRow readFields(std::span<const MasterField> fields) const;
    void writeFields(std::span<const MasterField> fields, const MasterRow &row);
    void connectIdentifiers(const QString &prefix);
    bool keepsEntry(bool saved, int id);

    void escapePressed() override;
    void closeEvent(QCloseEvent *event) override;

    std::unique_ptr<Ui::frmMainGST> ui;
    bool m_addMode = false;
    bool m_otherClientsLoaded = false;
    bool m_seriesLoaded = false;
    bool m_seriesBrowsing = true;
    bool m_gstinRefused = false;
    int m_editedId = 0;
};

} // namespace ledgora
