#include "controls/LineField.h"

#include "controls/OneLine.h"
#include <QKeyEvent>
#include <QTimer>

namespace ledgora {

LineField::LineField(QWidget *parent) : QLineEdit(parent)
{
    keepOneLine(*this);
}

void LineField::clearBoth()
{
    clear();
    m_hiddenValue.clear();
}

void LineField::keyPressEvent(QKeyEvent *event)
{
    const QString typed = event->text();
    if (!m_upperCase || typed.isEmpty() || typed.toUpper() == typed) {
        QLineEdit::keyPressEvent(event);
        return;
    }
    QKeyEvent capital(event->type(), event->key(), event->modifiers(), typed.toUpper(), event->isAutoRepeat());
    QLineEdit::keyPressEvent(&capital);
    event->setAccepted(capital.isAccepted());
}

DateField::DateField(QWidget *parent) : QLineEdit(parent)
{
    setInputMask(QStringLiteral("99/99/9999;_"));
}

QString DateField::date() const
{
    QString typed = text();
    return typed.remove(u'/').trimmed().isEmpty() ? QString() : text();
}

void DateField::setDate(const QString &date)
{
    setText(date);
}

void DateField::keyPressEvent(QKeyEvent *event)
{
    if (event->text() != QLatin1String("-") && event->text() != QLatin1String("."))
        return QLineEdit::keyPressEvent(event);
    QKeyEvent slash(event->type(), Qt::Key_Slash, event->modifiers(), QStringLiteral("/"), event->isAutoRepeat());
    QLineEdit::keyPressEvent(&slash);
    event->setAccepted(slash.isAccepted());
}

void DateField::focusInEvent(QFocusEvent *event)
{
    QLineEdit::focusInEvent(event);
    const bool back = event->reason() == Qt::PopupFocusReason || event->reason() == Qt::ActiveWindowFocusReason
                      || event->reason() == Qt::MenuBarFocusReason;
    // A click would set the cursor where it fell, between the blanks of the mask.
    if (!back)
        QTimer::singleShot(0, this, [this] { setCursorPosition(0); });
}

} // namespace ledgora
