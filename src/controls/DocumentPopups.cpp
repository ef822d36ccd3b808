// The pop-ups of the entry screens: the type-ahead on the party directory, and the lists of earlier texts.

#include "controls/ChoiceBox.h"
#include "controls/DocumentScreen.h"
#include "controls/Grid.h"
#include "controls/LineField.h"
#include "store/StateList.h"
#include <QKeyEvent>
#include <QLayout>
#include <QListWidget>

namespace ledgora {

namespace {

constexpr int popupRows = 12;

} // namespace

void DocumentScreen::connectParty()
{
    Field &party = field(m_fields.partyName);
    party.gotFocus = [this] { partyFocused(); };
    party.lostFocus = [this] { partyFieldLeft(); };
    party.keyDown = [this](QKeyEvent *key) { return partyKey(key); };
    on(m_fields.partyName, &QLineEdit::textEdited, [this](const QString &typed) { findParty(typed); });
    on(m_parties, &Grid::rowActivated, [this](int) { m_fields.series->setFocus(); });
}

void DocumentScreen::partyFocused()
{
    if (!isEditing())
        return;
    placePopup(m_parties, m_fields.partyName, {std::max(m_fields.partyName->width(), 760), 0});
    m_parties->show();
    m_parties->setFoundRow(m_parties->cells().find(partyCode(), PartyCode));
    m_parties->raise();
}

void DocumentScreen::findParty(const QString &typed)
{
    if (!isEditing() || !m_fields.partyName->hasFocus())
        return;
    m_parties->setFoundRow(typed.isEmpty() ? -1
                                           : m_parties->cells().find(typed, PartyName, 1, Cells::Match::BeginsAnyCase));
}

bool DocumentScreen::partyKey(QKeyEvent *key)
{
    if (!isEditing())
        return false;
    if (key->key() != Qt::Key_Return && key->key() != Qt::Key_Enter)
        return moveInList(*m_parties, *key);
    m_fields.series->setFocus();
    return true;
}

bool DocumentScreen::moveInList(Grid &list, const QKeyEvent &key)
{
    const Cells &cells = list.cells();
    const int end = cells.rows();
    /// The nearest row that shows from `row` on in a direction; -1 past the end.
    const auto shown = [&](int row, int step) {
        while (cells.isData(row) && cells.isHidden(row))
            row += step;
        return cells.isData(row) ? row : -1;
    };
    const int first = shown(cells.fixedRows(), 1);
    const int last = shown(end - 1, -1);
    const int row = list.row();
    const auto otherwise = [](int found, int instead) { return found >= 0 ? found : instead; };
    switch (key.key()) {
    case Qt::Key_Up:
        list.setRow(row < 0 ? last : otherwise(shown(row - 1, -1), last));
        return true;
    case Qt::Key_Down:
        list.setRow(row < 0 ? first : otherwise(shown(row + 1, 1), first));
        return true;
    case Qt::Key_PageDown:
        list.setRow(std::min(last, list.lastVisibleRow()));
        list.scrollTo(list.currentIndex(), QAbstractItemView::PositionAtTop);
        return true;
    case Qt::Key_PageUp:
        list.setRow(otherwise(shown(row - (list.lastVisibleRow() - row), -1), first));
        return true;
    default:
        return false;
    }
}

void DocumentScreen::partyFieldLeft()
{
    if (!isEditing() || !m_fields.partyName->isEnabled())
        return m_parties->hide();
    const int row = m_parties->row();
    clearParty();
    takeParty(row);
    partyLeft();
    m_parties->hide();
}

/// Fills the party fields from a row of the directory; nothing for no row.
void DocumentScreen::takeParty(int row)
{
    const Cells &parties = m_parties->cells();
    if (!parties.isData(row))
        return;
    m_fields.partyName->setHiddenValue(parties.text(row, PartyCode));
    m_fields.partyName->setText(parties.text(row, PartyName));
    m_fields.partyPan->setText(parties.text(row, PartyPan));
    m_fields.partyGstin->setText(parties.text(row, PartyGstin));
    m_fields.partyAddress->setHiddenValue(GETSTATECODEFORNAMEONLYGST(parties.text(row, PartyState)));
    m_fields.partyAddress->setText(parties.text(row, PartyAddress));
    m_fields.partyAddress->setCursorPosition(0);
}

void DocumentScreen::clearParty()
{
    for (LineField *line : {m_fields.partyName, m_fields.partyPan, m_fields.partyGstin, m_fields.partyAddress})
        line->clearBoth();
}

QString DocumentScreen::partyCode() const
{
    return m_fields.partyName->hiddenValue();
}

QString DocumentScreen::partyStateCode() const
{
    return m_fields.partyAddress->hiddenValue();
}

void DocumentScreen::placePopup(QWidget *popup, QWidget *under, QSize size)
{
    m_fields.editPanel->layout()->activate(); // fields that have just opened may still be moving
    const int rowHeight = popup->fontMetrics().height() + 8;
    const QPoint below = under->mapTo(this, QPoint(0, under->height() + 1));
    const int roomBelow = height() - below.y() - 4;
    const int roomAbove = below.y() - under->height() - 2;
    const int wanted = size.height() > 0 ? size.height() : (popupRows + 1) * rowHeight;
    const bool above = wanted > roomBelow && roomAbove > roomBelow;
    const int popupHeight = std::min(wanted, above ? roomAbove : roomBelow);
    const int width = std::clamp(size.width(), 320, this->width() - 8);
    popup->setGeometry(std::min(below.x(), this->width() - width - 4), above ? roomAbove - popupHeight : below.y(),
                       width, popupHeight);
}

void DocumentScreen::GETLISTN()
{
    if (m_narrations->count() == 0)
        m_narrations->addItems(narrationsUsed());
    showTexts(m_narrations, {}, m_fields.narration->text(), m_fields.narration, m_fields.narration->rect());
}

QListWidget *DocumentScreen::makeTextPopup(const QString &name, const QString &heading,
                                           const std::function<void(const QString &)> &take)
{
    auto *popup = new QListWidget(this);
    popup->setObjectName(name);
    popup->setAccessibleName(heading);
    popup->setFrameShape(QFrame::StyledPanel);
    popup->hide();
    const auto takeCurrent = [popup, take] {
        if (const QListWidgetItem *item = popup->currentItem())
            take(item->text());
    };
    on(popup, &QListWidget::itemDoubleClicked, [takeCurrent](QListWidgetItem *) { takeCurrent(); });
    field(popup).keyDown = [takeCurrent](QKeyEvent *key) {
        const bool enter = key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
        if (enter)
            takeCurrent();
        return enter;
    };
    field(popup).lostFocus = [popup] { popup->hide(); };
    return popup;
}

void DocumentScreen::showTexts(QListWidget *popup, const QStringList &texts, const QString &text, QWidget *under,
                               const QRect &at)
{
    if (popup->count() == 0)
        popup->addItems(texts);
    if (popup->count() == 0)
        return;
    popup->setCurrentRow(0);
    for (int row = 0; row < popup->count() && !text.isEmpty(); ++row) {
        if (popup->item(row)->text().compare(text, Qt::CaseInsensitive) == 0)
            popup->setCurrentRow(row);
    }
    const int rowHeight = popup->fontMetrics().height() + 6;
    const QSize size(std::max(360, at.width()), std::clamp(popup->count() + 1, 4, popupRows) * rowHeight);
    const QPoint corner = under->mapTo(this, at.bottomLeft());
    const int top =
        corner.y() + size.height() <= height() ? corner.y() : under->mapTo(this, at.topLeft()).y() - size.height();
    popup->setGeometry(std::clamp(corner.x(), 0, std::max(0, width() - size.width())), std::max(0, top), size.width(),
                       size.height());
    popup->show();
    popup->raise();
    popup->setFocus();
    popup->scrollToItem(popup->currentItem());
}

} // namespace ledgora
