// The frame of the home screen for the settings of the whole installation, kept in Confg.ini.

#include "masters/frmMainGST.h"

#include "controls/ChoiceBox.h"
#include "host/WorkingState.h"
#include "store/ErrorLog.h"
#include "store/NumberFormat.h"
#include "store/Settings.h"
#include "ui_frmMainGST.h"

namespace ledgora {

namespace {

constexpr auto section = "Settings";

} // namespace

struct frmMainGST::Setting
{
    ChoiceBox *list;
    const char *key;
};

/// The settings that this host has: only host "G" knows the offices of individuals.
std::vector<frmMainGST::Setting> frmMainGST::settings() const
{
    std::vector<Setting> settings{{ui->cbosett_0, "NameAdd_BR"}};
    if (gHostCode == QLatin1String("G")) {
        settings.push_back({ui->cbosett_1, "AddrOpt"});
        settings.push_back({ui->cbosett_2, "AddrOffNm"});
    }
    return settings;
}

void frmMainGST::connectSettings()
{
    // The position of an entry is the stored value.
    ui->cbosett_0->addItems({QStringLiteral("Proper Case"), QStringLiteral("Upper Case")});
    ui->cbosett_1->addItems({QStringLiteral("Residential"), QStringLiteral("Office"),
                             QStringLiteral("Residential (If Blank, Office Address)"),
                             QStringLiteral("Office (If Blank, Residential Address)"),
                             QStringLiteral("Communication Address")});
    ui->cbosett_2->addItems({QStringLiteral("Yes"), QStringLiteral("No")});
    const bool hasOffices = gHostCode == QLatin1String("G");
    for (QWidget *widget : std::initializer_list<QWidget *>{ui->lblsett_1, ui->cbosett_1, ui->lblsettHint_1,
                                                            ui->lblsett_2, ui->cbosett_2, ui->lblsettHint_2})
        widget->setVisible(hasOffices);
    enterMovesOn({ui->cbosett_0, ui->cbosett_1, ui->cbosett_2});
    command(ui->cmdSettings, [this] { CMDSETTINGS_CLICK(); });
    command(ui->cmdSettSave, [this] { CMDSETTSAVE_CLICK(); });
    command(ui->cmdSettCancel, [this] { CMDSETTCANCEL_CLICK(); });
}

void frmMainGST::CMDSETTINGS_CLICK()
{
    const ErrorSite site("frmMainGST", "CMDSETTINGS_CLICK");
    for (const Setting &setting : settings()) {
        const double stored =
            Val(GETSETTININI(QLatin1String(section), QLatin1String(setting.key), QStringLiteral("0")));
        setting.list->setCurrentIndex(stored > 0 && stored < setting.list->count() ? int(stored) : 0);
    }
    showFrame(ui->famsett);
    ui->cbosett_0->setFocus();
}

void frmMainGST::CMDSETTSAVE_CLICK()
{
    const ErrorSite site("frmMainGST", "CMDSETTSAVE_CLICK");
    bool saved = true;
    for (const Setting &setting : settings())
        saved = SAVESETTININI(QLatin1String(section), QLatin1String(setting.key),
                              QString::number(setting.list->currentIndex()))
                && saved;
    if (!saved)
        return alarm(QStringLiteral("The settings could not be written to [") + joinPath(gAppPath, "Confg.ini") + u']');
    CMDSETTCANCEL_CLICK();
}

void frmMainGST::CMDSETTCANCEL_CLICK()
{
    showHome(ui->cmdSettings);
}

} // namespace ledgora
