#include "Keys.h"

#include <QApplication>
#include <QTest>
#include <QWindow>
#include <stdexcept>

namespace ledgora::test {

void Keys::settle()
{
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
}

QWindow *Keys::target() const
{
    QWidget *widget = QApplication::activePopupWidget();
    if (!widget)
        widget = QApplication::activeModalWidget();
    if (!widget && m_window && !m_window->isActiveWindow()) {
        m_window->activateWindow(); // no window manager gives the keys back after a box
        if (!QTest::qWaitForWindowActive(m_window))
            throw std::runtime_error("the screen does not get the keys");
        settle();
    }
    if (!widget)
        widget = m_window;
    if (!widget)
        throw std::runtime_error("no window takes the keys");
    return widget->window()->windowHandle();
}

void Keys::press(Qt::Key key, Qt::KeyboardModifiers modifiers, int times) const
{
    for (int i = 0; i < times; ++i) {
        QTest::keyClick(target(), key, modifiers);
        settle();
    }
}

void Keys::alt(char letter) const
{
    press(Qt::Key(Qt::Key_A + (letter - 'A')), Qt::AltModifier);
}

void Keys::type(const QString &text) const
{
    for (const QChar c : text) {
        QTest::keyClick(target(), c.toLatin1());
        settle();
    }
}

void Keys::click(QWidget *field) const
{
    target();
    QTest::mouseClick(field, Qt::LeftButton);
    settle();
}

void Keys::retype(QWidget *field, const QString &text) const
{
    click(field);
    press(Qt::Key_A, Qt::ControlModifier);
    text.isEmpty() ? press(Qt::Key_Delete) : type(text);
}

} // namespace ledgora::test
