#include "controls/ChoiceBox.h"

#include <QWheelEvent>

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

void ChoiceBox::wheelEvent(QWheelEvent *event)
{
    if (hasFocus())
        QComboBox::wheelEvent(event);
    else
        event->ignore();
}

} // namespace ledgora
