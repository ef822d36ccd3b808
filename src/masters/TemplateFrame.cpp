// The frame of the home screen in which a company chooses what its documents are printed from: the common templates
// or its own copies of them, each in single or double copy.

#include "masters/frmMainGST.h"

#include "store/ErrorLog.h"
#include "store/Settings.h"
#include "ui_frmMainGST.h"
#include <QFile>
#include <algorithm>
#include <array>

namespace ledgora {

namespace {

constexpr int receiptTemplate = 3;
constexpr std::array templateWords{"NoTax_Bill", "Intra_Bill", "Inter_Bill", "Receipt"};

} // namespace

void frmMainGST::connectTemplates()
{
    const QStringList copies{QStringLiteral("Single Copy"), QStringLiteral("Double Copy (Original/Duplicate)")};
    for (ChoiceBox *list : {ui->cboCopyTmpl_0, ui->cboCopyTmpl_1})
        list->addItems(copies);
    enterMovesOn({ui->optSetupTmpl_0, ui->optSetupTmpl_1, ui->cboCopyTmpl_0, ui->cboCopyTmpl_1});
    command(ui->cmdTemplateSetup, [this] { CMDTEMPLATESETUP_CLICK(); });
    command(ui->cmdBackTmpl, [this] { CMDBACKTMPL_CLICK(); });
    const std::array buttons{ui->cmdSetupTmpl_0, ui->cmdSetupTmpl_1, ui->cmdSetupTmpl_2, ui->cmdSetupTmpl_3};
    for (size_t index = 0; index < buttons.size(); ++index)
        command(buttons.at(index), [this, index] { CMDSETUPTMPL_CLICK(int(index)); });
    // Only a company's own copies are set up one by one.
    on(ui->optSetupTmpl_1, &QRadioButton::toggled, [this, buttons](bool customized) {
        for (CommandButton *button : buttons)
            button->setVisible(customized);
        tellTemplateChoice();
    });
    for (CommandButton *button : buttons)
        button->setVisible(false);
}

void frmMainGST::CMDTEMPLATESETUP_CLICK()
{
    const ErrorSite site("frmMainGST", "CMDTEMPLATESETUP_CLICK");
    if (!hasChosenCompany())
        return;
    gFirmId = chosenCompany();
    READTMPLSETUP();
    showTemplateSetup();
}

void frmMainGST::showTemplateSetup()
{
    (gTmplCustom == 1 ? ui->optSetupTmpl_1 : ui->optSetupTmpl_0)->setChecked(true);
    ui->cboCopyTmpl_0->setCurrentIndex(gBillCopy);
    ui->cboCopyTmpl_1->setCurrentIndex(gRecpCopy);
    tellTemplateChoice();
    showFrame(ui->famTmplSetup);
    (gTmplCustom == 1 ? ui->optSetupTmpl_1 : ui->optSetupTmpl_0)->setFocus();
}

void frmMainGST::tellTemplateChoice()
{
    ui->lblTmplStatus->setText(
        ui->optSetupTmpl_1->isChecked()
            ? QStringLiteral("Choose single or double copy. Each button then makes the company's own copy of that "
                             "template, which any word processor opens. Back keeps the choice.")
            : QStringLiteral("Choose single or double copy, for bills and for receipts. Back keeps the choice."));
}

QString frmMainGST::templateFileName(int index) const
{
    const ChoiceBox *copies = index == receiptTemplate ? ui->cboCopyTmpl_1 : ui->cboCopyTmpl_0;
    return QStringLiteral("GST_") + QLatin1String(templateWords.at(size_t(index)))
           + (copies->currentIndex() == 1 ? QStringLiteral("_2Copy.doc") : QStringLiteral(".doc"));
}

QString frmMainGST::companyTemplateFolder() const
{
    return joinPath(gTmplPath, QString::number(gFirmId));
}

bool frmMainGST::hasCopyChoices()
{
    const std::array lists{ui->cboCopyTmpl_0, ui->cboCopyTmpl_1};
    const auto *const unchosen =
        std::ranges::find_if(lists, [](const ChoiceBox *copies) { return copies->currentIndex() < 0; });
    if (unchosen == lists.end())
        return true;
    inform(QStringLiteral("Please specify an Option !"), *unchosen);
    return false;
}

/// Makes the company's own copy of a template, unless it has one.
void frmMainGST::CMDSETUPTMPL_CLICK(int index)
{
    const ErrorSite site("frmMainGST", "CMDSETUPTMPL_CLICK");
    ChoiceBox *copies = index == receiptTemplate ? ui->cboCopyTmpl_1 : ui->cboCopyTmpl_0;
    if (copies->currentIndex() < 0)
        return inform(QStringLiteral("Please specify an Option !"), copies);
    const QString name = templateFileName(index);
    const QString common = findFile(gTmplPath, name);
    const QString own = findFile(companyTemplateFolder(), name);
    if (!QFile::exists(own) && !QFile::exists(common))
        return inform(QStringLiteral("Missing Template File [") + common + u']');
    if (!QFile::exists(own) && !QFile::copy(common, own))
        return alarm(QStringLiteral("The template could not be copied to [") + own + u']');
    ui->lblTmplStatus->setText(QStringLiteral("The company's own template: ") + own);
}

void frmMainGST::CMDBACKTMPL_CLICK()
{
    const ErrorSite site("frmMainGST", "CMDBACKTMPL_CLICK");
    if (!hasCopyChoices())
        return;
    const bool customized = ui->optSetupTmpl_1->isChecked();
    const std::array buttons{ui->cmdSetupTmpl_0, ui->cmdSetupTmpl_1, ui->cmdSetupTmpl_2, ui->cmdSetupTmpl_3};
    for (int index = 0; customized && index < int(buttons.size()); ++index) {
        if (QFile::exists(findFile(companyTemplateFolder(), templateFileName(index))))
            continue;
        CommandButton *button = buttons.at(size_t(index));
        const ChoiceBox *copies = index == receiptTemplate ? ui->cboCopyTmpl_1 : ui->cboCopyTmpl_0;
        return inform(
            QStringLiteral("Please Setup Template for '%1 - %2' !").arg(button->text(), copies->currentText()), button);
    }
    if (!saveTemplateSetup(customized, gTmplCustom == 1, ui->cboCopyTmpl_0->currentIndex(),
                           ui->cboCopyTmpl_1->currentIndex()))
        return alarm(QStringLiteral("The choice could not be written to [") + gTmplPath + u']');
    READTMPLSETUP();
    showHome(ui->cmdTemplateSetup);
}

} // namespace ledgora
