#include "controls/KeyGuard.h"

#include "controls/CommandButton.h"
#include "controls/OneLine.h"
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QPointer>

namespace ledgora {

namespace {

bool wouldBeText(const QWidget &widget, const QKeyEvent &key)
{
    if (!isTypedCharacter(key.text()))
        return false;
    if (key.modifiers() & (Qt::AltModifier | Qt::MetaModifier))
        return true;
    // With Ctrl alone only a drop-down list searches; fields and grids have commands of their own there.
    const auto *box = qobject_cast<const QComboBox *>(&widget);
    return key.modifiers().testFlag(Qt::ControlModifier) && box && !box->isEditable();
}

/// Looks at keys before what has the focus does. What comes this far is no command of the window: those were looked
/// for before, save in an open list, which is a window of its own.
class KeyGuard : public QObject
{
public:
    explicit KeyGuard(QWidget &window) : QObject(&window), m_window(window)
    {
        connect(qApp, &QApplication::focusChanged, this, [this](QWidget *, QWidget *now) { follow(now); });
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() != QEvent::KeyPress)
            return false;
        auto *widget = static_cast<QWidget *>(watched);
        const auto &key = *static_cast<QKeyEvent *>(event);
        if (!wouldBeText(*widget, key))
            return false;
        if (widget->window()->windowType() == Qt::Popup)
            commandFromList(*widget, key);
        return true;
    }

private:
    void follow(QWidget *now)
    {
        if (m_watched)
            m_watched->removeEventFilter(this);
        m_watched = isOfWindow(now) ? now : nullptr;
        if (m_watched)
            m_watched->installEventFilter(this);
    }

    /// A drop-down list belongs to the window of its field.
    bool isOfWindow(const QWidget *widget) const
    {
        while (widget && widget != &m_window)
            widget = widget->parentWidget();
        return widget;
    }

    void commandFromList(QWidget &list, const QKeyEvent &key) const
    {
        const QKeySequence pressed(key.keyCombination());
        for (CommandButton *button : m_window.findChildren<CommandButton *>()) {
            if (button->shortcut() != pressed || !button->isVisible() || !button->isEnabled())
                continue;
            QKeyEvent take(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
            QApplication::sendEvent(&list, &take);
            button->setFocus(Qt::ShortcutFocusReason);
            QMetaObject::invokeMethod(button, &QAbstractButton::click, Qt::QueuedConnection);
            return;
        }
    }

    QWidget &m_window;
    QPointer<QWidget> m_watched;
};

} // namespace

void keepCommandsOutOfText(QWidget &window)
{
    new KeyGuard(window); // owned by the window
}

} // namespace ledgora
