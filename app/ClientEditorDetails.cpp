// The part of the client editor that host "G" alone has: an individual's office and the address for letters, groups.

#include "ClientEditor.h"

#include "bills/EntryRules.h"
#include "controls/StateChoice.h"
#include "host/WorkingState.h"
#include "masters/EditFields.h"
#include "store/Dates.h"
#include "ui_ClientEditor.h"

namespace ledgora::app {

namespace {

enum Letters { NotTold, ToResidence, ToOffice };

} // namespace

void ClientEditor::connectDetails()
{
    const bool isG = gHostCode == QLatin1String("G");
    ui->lblClientGroup->setVisible(isG);
    ui->cboClientGroup->setVisible(isG);
    LOADSTATELISTGST(*ui->cboOfficeState);
    ui->cboLettersTo->addItems({QStringLiteral("(not told)"), QStringLiteral("Residence"), QStringLiteral("Office")});
    enterMovesOn({ui->cboClientGroup, ui->cboOfficeState, ui->cboLettersYear, ui->cboLettersTo});
    on(ui->cboLettersYear, &ChoiceBox::chosen, [this](int) { showLetters(); });
    on(ui->cboLettersTo, &ChoiceBox::chosen, [this](int choice) {
        const QString year = ui->cboLettersYear->currentText();
        m_lettersToOffice.remove(year);
        if (choice != NotTold)
            m_lettersToOffice.insert(year, choice == ToOffice);
    });
}

/// An assessment year begins when its financial year has ended, so the latest one offered is one ahead.
void ClientEditor::showDetails(const ClientDetails &details)
{
    if (gHostCode != QLatin1String("G"))
        return;
    m_details = details;
    m_lettersToOffice = details.lettersToOffice;
    writeEditFields(*this, officeFields(), details.office);
    QStringList years = financialYears(qint16(gRegYr + 1));
    for (auto stored = details.lettersToOffice.cbegin(); stored != details.lettersToOffice.cend(); ++stored) {
        if (!years.contains(stored.key()))
            years << stored.key();
    }
    years.sort();
    ui->cboLettersYear->clear();
    ui->cboLettersYear->addItems(years);
    ui->cboLettersYear->setCurrentIndex(int(years.size()) - 1);
    showLetters();

    Cells groups = emptyGroupList();
    loadGroupList(*gCnn, groups);
    ui->cboClientGroup->clear();
    ui->cboClientGroup->addItem(QStringLiteral("(None)"), QString());
    for (int row = groups.fixedRows(); row < groups.rows(); ++row)
        ui->cboClientGroup->addItem(groups.text(row, GroupName), groups.text(row, GroupCode));
    if (ui->cboClientGroup->findData(details.group) < 0) // its group is gone; saving must not lose it unseen
        ui->cboClientGroup->addItem(details.group, details.group);
    ui->cboClientGroup->setCurrentIndex(ui->cboClientGroup->findData(details.group));
}

void ClientEditor::showLetters()
{
    const auto told = m_lettersToOffice.constFind(ui->cboLettersYear->currentText());
    int choice = NotTold;
    if (told != m_lettersToOffice.cend())
        choice = *told ? ToOffice : ToResidence;
    ui->cboLettersTo->setCurrentIndex(choice);
}

/// Only an individual has an office; what other programs noted of another client stays.
ClientDetails ClientEditor::readDetails() const
{
    ClientDetails details = m_details;
    details.group = ui->cboClientGroup->currentData().toString();
    if (shownKind() == ClientKind::Individual) {
        details.office = readEditFields(*this, officeFields());
        details.lettersToOffice = m_lettersToOffice;
    }
    return details;
}

bool ClientEditor::storesDetails()
{
    if (gHostCode != QLatin1String("G"))
        return true;
    const ClientDetails present = readDetails();
    if (storeDetails(*gCnn, m_client.code, m_details, present))
        return true;
    alarm(QStringLiteral("The client is saved, but the database did not take its office or group. Press Save to try "
                         "again."));
    return false;
}

} // namespace ledgora::app
