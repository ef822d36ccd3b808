#include "controls/CommandButton.h"

#include <QKeyEvent>
#include <QShortcutEvent>

namespace ledgora {

bool CommandButton::event(QEvent *event)
{
    if (event->type() == QEvent::Shortcut) {
        const auto *shortcut = static_cast<QShortcutEvent *>(event);
        setFocus(Qt::ShortcutFocusReason);
        if (!shortcut->isAmbiguous())
            click();
        return true;
    }
    return QPushButton::event(event);
}

void CommandButton::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QPushButton::keyPressEvent(event);
}

} // namespace ledgora
