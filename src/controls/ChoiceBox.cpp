#include "controls/ChoiceBox.h"

#include "controls/OneLine.h"
#include <QAbstractItemView>
#include <QKeyEvent>
#include <QScreen>
#include <QStylePainter>
#include <QWheelEvent>
#include <algorithm>

namespace ledgora {

ChoiceBox::ChoiceBox(QWidget *parent) : QComboBox(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    connect(this, &QComboBox::activated, this, &ChoiceBox::chosen);
}

void ChoiceBox::choose(int index)
{
    setCurrentIndex(index);
    Q_EMIT chosen(currentIndex());
}

void ChoiceBox::chooseText(const QString &text, int otherwise)
{
    const int index = text.isEmpty() ? -1 : findText(text);
    choose(index >= 0 ? index : otherwise);
}

void ChoiceBox::showAsText(bool asText)
{
    m_asText = asText;
    update();
}

void ChoiceBox::showPopup()
{
    QComboBox::showPopup();
    view()->installEventFilter(this);
    QWidget *list = view()->window();
    const QRect field(mapToGlobal(QPoint()), size());
    if (!list->geometry().intersects(field))
        return;
    const QRect room = screen()->availableGeometry();
    const int below = room.bottom() - field.bottom();
    const int above = field.top() - room.top();
    const bool under = list->height() <= below || below >= above;
    const int height = std::min(list->height(), under ? below : above);
    list->setGeometry(list->x(), under ? field.bottom() + 1 : field.top() - height, list->width(), height);
}

void ChoiceBox::hidePopup()
{
    m_typed.clear();
    QComboBox::hidePopup();
}

bool ChoiceBox::eventFilter(QObject *watched, QEvent *event)
{
    return (event->type() == QEvent::KeyPress && watched == view() && search(*static_cast<QKeyEvent *>(event)))
           || QComboBox::eventFilter(watched, event);
}

void ChoiceBox::keyPressEvent(QKeyEvent *event)
{
    if (isEditable() || !search(*event))
        QComboBox::keyPressEvent(event);
}

void ChoiceBox::focusInEvent(QFocusEvent *event)
{
    m_typed.clear();
    QComboBox::focusInEvent(event);
}

/// The toolkit's own search begins anew after a moment, and a code typed slowly ends at another entry.
bool ChoiceBox::search(const QKeyEvent &key)
{
    if (!isTypedCharacter(key.text()) || (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier))) {
        m_typed.clear();
        return false;
    }
    const bool listed = view()->isVisible();
    const int row = listed ? view()->currentIndex().row() : currentIndex();
    QString typed = m_typed + key.text();
    int found = find(typed, std::max(0, row));
    if (found < 0) {
        typed = key.text();
        found = find(typed, row + 1);
    }
    if (found < 0)
        return true;
    m_typed = typed;
    if (listed) {
        view()->setCurrentIndex(model()->index(found, modelColumn(), rootModelIndex()));
    } else if (found != row) {
        setCurrentIndex(found);
        Q_EMIT activated(found);
    }
    return true;
}

/// The entry from a row on, round the end, that begins with a text; -1 for none.
int ChoiceBox::find(const QString &text, int from) const
{
    for (int i = 0; i < count(); ++i) {
        const int row = (from + i) % count();
        if (itemText(row).startsWith(text, Qt::CaseInsensitive))
            return row;
    }
    return -1;
}

void ChoiceBox::paintEvent(QPaintEvent *event)
{
    if (!m_asText || isEnabled())
        return QComboBox::paintEvent(event);
    if (isEditable())
        return; // the field in it shows the text
    QStyleOptionComboBox option;
    initStyleOption(&option);
    QStylePainter(this).drawControl(QStyle::CE_ComboBoxLabel, option);
}

void ChoiceBox::wheelEvent(QWheelEvent *event)
{
    if (hasFocus())
        QComboBox::wheelEvent(event);
    else
        event->ignore();
}

} // namespace ledgora
