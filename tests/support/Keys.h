#pragma once

#include <QPointer>
#include <QString>
#include <QWidget>

class QWindow;

namespace ledgora::test {

/// The hands of a user on one window: keys go to the window that has them at that moment, a list that is open, a box,
/// else the window itself. What a key has posted has happened when the call returns.
class Keys
{
public:
    explicit Keys(QWidget *window) : m_window(window) {}

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier, int times = 1) const;
    void alt(char letter) const;
    void type(const QString &text) const;
    /// Clicks into a field of the window.
    void click(QWidget *field) const;
    /// Clicks into a field, and types over what it holds.
    void retype(QWidget *field, const QString &text) const;

    /// The window that the keys reach; throws std::runtime_error when there is none.
    QWindow *target() const;
    static void settle();

private:
    QPointer<QWidget> m_window;
};

} // namespace ledgora::test
