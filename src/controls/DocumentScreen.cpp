#include "controls/DocumentScreen.h"

#include "bills/EntryRules.h"
#include "controls/ChoiceBox.h"
#include "controls/CommandButton.h"
#include "controls/Grid.h"
#include "controls/LineField.h"
#include "controls/OneLine.h"
#include "masters/PartyDirectory.h"
#include "masters/PartyHistory.h"
#include "masters/SeriesStore.h"
#include "store/Connection.h"
#include "store/Dates.h"
#include "store/ErrorLog.h"
#include "store/StateList.h"
#include <QCheckBox>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>

namespace ledgora {

namespace {

constexpr auto showListCaption = "S&how List";
constexpr auto hideListCaption = "&Hide List";

/// Host "C" knows names and addresses of former years: its directory is read when a year is chosen.
bool directoryHangsOnYear()
{
    return gHostCode == QLatin1String("C");
}

} // namespace

DocumentScreen::DocumentScreen(QWidget *parent) : CompanyScreen(parent) {}

void DocumentScreen::setUpDocument(const DocumentFields &fields, Kind kind)
{
    m_fields = fields;
    m_kind = std::move(kind);
    m_fields.number->setMaxLength(documentNumberDigits);
    keepOneLine(*m_fields.narration);

    m_list = new Grid(this);
    m_list->setObjectName(m_kind.listName);
    m_list->setAccessibleName(m_kind.noun + QStringLiteral("s of the Year"));
    m_list->setListMode();
    m_list->setCells(m_kind.emptyList);
    m_list->hide();

    m_parties = new Grid(this);
    m_parties->setObjectName(QStringLiteral("vsListC"));
    m_parties->setListMode();
    m_parties->setFocusPolicy(Qt::NoFocus); // the name field goes on taking keys while the list shows
    m_parties->setCells(emptyPartyDirectory());
    m_parties->setColumnHidden(PartyState, true);
    m_parties->setColumnHidden(PartyAddress, true);
    m_parties->setWidths({0.2, 0, 0.16, 0.22, 0, 0}, PartyName);
    m_parties->hide();

    m_parties->setAccessibleName(QStringLiteral("Clients"));
    m_narrations =
        makeTextPopup(QStringLiteral("vsListN"), QStringLiteral("Earlier Narrations"), [this](const QString &text) {
            m_fields.narration->setText(text);
            m_fields.narration->setFocus();
        });
    connectCommands();
    connectFields();
    connectParty();
    tellKeys({
        {m_fields.editPanel, "Enter", "Goes to the next field or cell"},
        {m_fields.editPanel, "Up, Down, Page Up, Page Down", "Move in the list of clients while a name is typed"},
        {m_fields.editPanel, "F12", m_kind.f12Effect},
        {m_fields.editPanel, "Esc", "Closes a list, else cancels the entry"},
        {m_fields.add, "Esc", "Closes the list, else the screen"},
    });
}

void DocumentScreen::connectCommands()
{
    command(m_fields.next, [this] { CMDNEXT_CLICK(); });
    command(m_fields.previous, [this] { CMDPREV_CLICK(); });
    command(m_fields.showList, [this] { CMDSHLIST_CLICK(); });
    command(m_fields.add, [this] { CMDADD_CLICK(); });
    command(m_fields.modify, [this] { CMDMODIFY_CLICK(); });
    command(m_fields.remove, [this] { CMDDELETE_CLICK(); });
    command(m_fields.update, [this] { updatePressed(); });
    command(m_fields.cancel, [this] { CMDCANCEL_CLICK(); });
    if (m_fields.preview)
        command(m_fields.preview, [this] { previewPressed(); });
    command(m_fields.back, [this] { close(); });
}

void DocumentScreen::connectFields()
{
    enterMovesOn({m_fields.year, m_fields.series, m_fields.date, m_fields.narration, m_fields.number});
    on(m_fields.year, &ChoiceBox::chosen, [this](int) { CBOFYR_CLICK(); });
    on(m_fields.clientWise, &QCheckBox::toggled, [this](bool) { sortClientWise(); });

    field(m_fields.number).validate = [this] {
        return !isEditing() || m_fields.number->text().isEmpty() || checkNumber();
    };
    digitsOnly(m_fields.number);
    field(m_fields.date).validate = [this] {
        if (!isEditing())
            return true;
        const bool valid = m_fields.date->date().isEmpty() || checkDate();
        if (valid)
            dateLeft();
        return valid;
    };
    field(m_fields.narration).keyDown = [this](QKeyEvent *key) {
        const bool list = key->key() == Qt::Key_F12 && key->modifiers() == Qt::NoModifier && isEditing();
        if (list)
            GETLISTN();
        return list;
    };

    on(m_list, &Grid::rowActivated, [this](int) {
        showCurrent();
        leaveDocumentList();
    });
    field(m_list).lostFocus = [this] {
        if (m_list->isVisible() && !m_fields.showList->hasFocus())
            hideDocumentList();
    };
}

void DocumentScreen::digitsOnly(QLineEdit *line)
{
    field(line).keyDown = [this](const QKeyEvent *key) {
        const QString typed = key->text();
        const bool digit = typed.size() == 1 && typed.at(0) >= u'0' && typed.at(0) <= u'9'; // no other script's
        const bool refused = isTypedCharacter(typed) && !digit && !key->modifiers().testFlag(Qt::ControlModifier);
        if (refused)
            inform(QStringLiteral("Enter Numeric Value."));
        return refused;
    };
}

void DocumentScreen::openYears()
{
    SETBUTTONS(true);
    if (!directoryHangsOnYear())
        fillParties();
    m_fields.year->setHiddenValue({});
    m_fields.year->clear();
    m_fields.year->addItems(financialYears(gRegYr));
    m_fields.year->setCurrentIndex(openingYearIndex(gRegYr, today()));
    m_fields.year->setHiddenValue(QStringLiteral("-2"));
    CBOFYR_CLICK();
}

void DocumentScreen::CBOFYR_CLICK()
{
    const QString index = QString::number(m_fields.year->currentIndex());
    if (m_fields.year->hiddenValue().isEmpty() || m_fields.year->hiddenValue() == index)
        return;
    m_fields.year->setHiddenValue(index);
    if (directoryHangsOnYear())
        fillParties();
    fillSeries();
    yearChanged(year());
    loadList(0);
    m_list->setRow(m_list->cells().hasData() ? m_list->cells().fixedRows() : -1);
    showCurrent();
}

void DocumentScreen::bringUpToDate()
{
    const QString shown = m_fields.number->hiddenValue();
    fillParties();
    fillSeries();
    loadList(0);
    const Cells &list = m_list->cells();
    const int row = shown.isEmpty() ? -1 : list.find(shown, m_kind.list.columns.id);
    m_list->setRow(row < 0 && list.hasData() ? list.fixedRows() : row);
    showCurrent();
}

void DocumentScreen::fillParties()
{
    m_parties->change([this](Cells &parties) {
        LOADCLLIST(*gCnn, gHostCode, parties);
        if (directoryHangsOnYear())
            CEF_UPDATEADDRESS(*gCnn, year(), parties);
    });
}

void DocumentScreen::fillSeries()
{
    m_fields.series->clear();
    m_fields.series->addItem(QStringLiteral("(None)"), 0);
    for (const Series &series : seriesOfYear(*gCnn, m_kind.seriesKind, year()))
        m_fields.series->addItem(series.text, series.id);
}

void DocumentScreen::SETBUTTONS(bool browse)
{
    const std::initializer_list<QWidget *> browsing{
        m_fields.year,       m_fields.add,      m_fields.modify, m_fields.remove,  m_fields.showList,
        m_fields.clientWise, m_fields.previous, m_fields.next,   m_fields.preview, m_fields.back};
    for (QWidget *widget : browsing) {
        if (widget)
            widget->setEnabled(browse);
    }
    for (QWidget *widget : std::initializer_list<QWidget *>{m_fields.editPanel, m_fields.update, m_fields.cancel})
        widget->setEnabled(!browse);
    m_fields.keysHint->setVisible(!browse);
    showAsDocument(*m_fields.editPanel, browse);
}

void DocumentScreen::CMDADD_CLICK()
{
    clearParty();
    m_fields.status->clear();
    m_fields.series->setCurrentIndex(0);
    m_fields.number->clearBoth();
    m_fields.narration->clear();
    clearPanel();
    m_narrations->clear();
    m_fields.number->setText(QString::number(highestNumber() + 1));
    m_fields.date->setDate(proposedDate(year(), today()));
    m_isAdding = true;
    m_editedId = 0;
    SETBUTTONS(false);
    if (!m_parties->cells().hasData())
        say(QStringLiteral("There is no client yet. Esc, and make one first."));
    beginAdd();
}

void DocumentScreen::CMDMODIFY_CLICK()
{
    if (!hasCurrent())
        return;
    m_fields.status->clear();
    m_narrations->clear();
    m_isAdding = false;
    SETBUTTONS(false);
    noteModified();
    beginModify();
}

void DocumentScreen::CMDDELETE_CLICK()
{
    if (!hasCurrent())
        return;
    const QString number = m_list->cells().text(m_list->row(), m_kind.list.columns.number);
    if (!ask(QStringLiteral("Do you want to Delete the Selected %1 No. %2?").arg(m_kind.noun, number), QMessageBox::No))
        return;
    const int id = currentId();
    if (!removeStored(id))
        return;
    loadList(id);
    showCurrent();
}

void DocumentScreen::CMDCANCEL_CLICK()
{
    SETBUTTONS(true);
    m_fields.partyName->setEnabled(true);
    m_parties->hide();
    showCurrent();
    (m_isAdding ? m_fields.add : m_fields.modify)->setFocus();
    m_fields.date->setEnabled(true);
    entryEnded();
}

void DocumentScreen::CMDSHLIST_CLICK()
{
    if (m_fields.showList->text() != QLatin1String(showListCaption)) {
        hideDocumentList();
        return;
    }
    m_list->setRow(m_list->cells().find(m_fields.number->hiddenValue(), m_kind.list.columns.id));
    placeList();
    m_list->show();
    m_list->raise();
    m_list->setFocus();
    m_fields.showList->setText(QLatin1String(hideListCaption));
}

/// The cursor goes back to the document on show, and the list away.
void DocumentScreen::hideDocumentList()
{
    m_list->setRow(m_list->cells().find(m_fields.number->hiddenValue(), m_kind.list.columns.id));
    m_list->hide();
    m_fields.showList->setText(QLatin1String(showListCaption));
}

void DocumentScreen::leaveDocumentList()
{
    m_fields.showList->setFocus();
    hideDocumentList();
}

void DocumentScreen::moveTo(int delta)
{
    const int row = m_list->row() + delta;
    if (!m_list->cells().isData(row))
        return;
    m_list->setRow(row);
    showCurrent();
}

void DocumentScreen::sortClientWise()
{
    const QString shown = m_fields.number->hiddenValue();
    m_list->change([this](Cells &list) { sortDocuments(list, m_kind.list.columns, m_fields.clientWise->isChecked()); });
    m_list->setRow(m_list->cells().find(shown, m_kind.list.columns.id));
    m_fields.previous->setEnabled(!isEditing() && m_list->cells().isData(m_list->row() - 1));
    m_fields.next->setEnabled(!isEditing() && m_list->cells().isData(m_list->row() + 1));
    if (m_fields.showList->text() != QLatin1String(hideListCaption))
        return;
    m_fields.showList->setText(QLatin1String(showListCaption));
    CMDSHLIST_CLICK();
}

void DocumentScreen::selectAfterRefresh(int id, int rememberedRow)
{
    m_list->setRow(rowAfterRefresh(m_list->cells(), m_kind.list.columns.id, id, rememberedRow));
}

void DocumentScreen::showCurrent()
{
    clearParty();
    m_fields.series->setCurrentIndex(0);
    m_fields.number->clearBoth();
    m_fields.date->setDate({});
    m_fields.narration->clear();
    clearPanel();
    const Cells &list = m_list->cells();
    const int row = m_list->row();
    say(list.hasData()
            ? QString()
            : QStringLiteral("There is no %1 in this year yet. Press Alt+A to add one.").arg(m_kind.noun.toLower()));
    m_fields.previous->setEnabled(!isEditing() && list.isData(row - 1));
    m_fields.next->setEnabled(!isEditing() && hasCurrent() && list.isData(row + 1));
    if (!hasCurrent())
        return;
    m_fields.number->setHiddenValue(list.text(row, m_kind.list.columns.id));
    takeParty(m_parties->cells().find(list.text(row, m_kind.list.columns.party), PartyCode));
    m_fields.series->setCurrentIndex(GETSRINDEX(int(list.value(row, m_kind.seriesColumn))));
    m_fields.number->setText(list.text(row, m_kind.list.columns.number));
    m_fields.date->setDate(CONVERTDATE(list.text(row, m_kind.list.columns.date)));
    m_fields.narration->setText(list.text(row, m_kind.narrationColumn));
    showPanel(row);
    noteStored();
}

bool DocumentScreen::checkNumber()
{
    const QString fault = documentNumberFault(m_fields.number->text(), m_kind.noun);
    if (!fault.isEmpty())
        inform(fault, m_fields.number);
    return fault.isEmpty();
}

bool DocumentScreen::checkDate()
{
    m_fields.date->setDate(completedDate(m_fields.date->text(), year()));
    const QString fault = documentDateFault(m_fields.date->text(), year(), m_kind.noun);
    if (!fault.isEmpty()) {
        inform(fault, m_fields.date);
        return false;
    }
    m_fields.date->setDate(settledDate(m_fields.date->text()));
    return true;
}

int DocumentScreen::GETSRINDEX(int seriesId) const
{
    return std::max(0, m_fields.series->findData(seriesId));
}

int DocumentScreen::year() const
{
    return m_fields.year->currentText().left(4).toInt();
}

int DocumentScreen::seriesId() const
{
    return m_fields.series->currentData().toInt();
}

int DocumentScreen::currentId() const
{
    return hasCurrent() ? int(m_list->cells().value(m_list->row(), m_kind.list.columns.id)) : 0;
}

bool DocumentScreen::hasCurrent() const
{
    return m_list->cells().isData(m_list->row());
}

bool DocumentScreen::isEditing() const
{
    return m_fields.editPanel->isEnabled();
}

void DocumentScreen::say(const QString &status) const
{
    m_fields.status->setText(status);
}

void DocumentScreen::escapePressed()
{
    if (closeOwnPopup())
        return;
    if (m_narrations->isVisible())
        return m_fields.narration->setFocus();
    if (m_parties->isVisible()) {
        clearParty();
        m_parties->setRow(-1);
        return m_parties->hide();
    }
    if (m_list->isVisible())
        return leaveDocumentList();
    if (!isEditing()) {
        close();
        return;
    }
    if (ask(QStringLiteral("Do you want to Cancel Entry?"), QMessageBox::No))
        CMDCANCEL_CLICK();
}

/// A window can be closed in the middle of an entry, by its frame or with the whole program.
void DocumentScreen::closeEvent(QCloseEvent *event)
{
    bool mayClose = !isEditing();
    if (!mayClose)
        run([&] { mayClose = ask(QStringLiteral("Do you want to Cancel Entry?"), QMessageBox::No); });
    if (!mayClose)
        event->ignore();
    else
        CompanyScreen::closeEvent(event);
}

void DocumentScreen::resizeEvent(QResizeEvent *event)
{
    CompanyScreen::resizeEvent(event);
    if (m_list && m_list->isVisible())
        placeList();
}

} // namespace ledgora
