#include "Clerk.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <QWindow>

namespace ledgora::app {

namespace {

constexpr int lookEveryMilliseconds = 2;
constexpr int searchMilliseconds = 20; // keys of one search in a list come this close together

} // namespace

Clerk::Clerk(QWidget &mainWindow) : m_mainWindow(mainWindow)
{
    QApplication::setKeyboardInputInterval(searchMilliseconds);
    auto *timer = new QTimer(this);
    connect(timer, &QTimer::timeout, this, &Clerk::look);
    timer->start(lookEveryMilliseconds);
}

QWindow *Clerk::target() const
{
    QWidget *widget = QApplication::activePopupWidget();
    if (!widget)
        widget = QApplication::activeModalWidget();
    if (!widget && !m_mainWindow.isActiveWindow()) {
        m_mainWindow.activateWindow(); // without a window manager nobody gives the focus back after a dialog
        settle();
    }
    return (widget ? widget : &m_mainWindow)->window()->windowHandle();
}

void Clerk::press(Qt::Key key, Qt::KeyboardModifiers modifiers, int times)
{
    for (int i = 0; i < times; ++i) {
        QTest::keyClick(target(), key, modifiers);
        settle();
    }
}

void Clerk::alt(char letter)
{
    press(Qt::Key(Qt::Key_A + (letter - 'A')), Qt::AltModifier);
}

void Clerk::altOfTwo(char letter, const char *button)
{
    const auto hasKeys = [button] {
        const QWidget *focus = QApplication::focusWidget();
        return focus && focus->objectName() == QLatin1String(button);
    };
    for (int times = 0; times < 2 && !hasKeys(); ++times)
        alt(letter);
    if (!hasKeys())
        return noteFault(QStringLiteral("the access key does not lead to ") + QLatin1String(button));
    press(Qt::Key_Return);
}

void Clerk::type(const QString &text)
{
    for (const QChar c : text) {
        QTest::keyClick(target(), c.toLatin1());
        settle();
    }
}

void Clerk::enter(const QString &text)
{
    type(text);
    press(Qt::Key_Return);
}

void Clerk::choose(const QString &beginning)
{
    QTest::qWait(searchMilliseconds + 5);
    type(beginning);
}

void Clerk::settle()
{
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
}

void Clerk::expect(std::function<void(QWidget &)> use)
{
    m_expected.push_back(std::move(use));
}

void Clerk::expectBox(const QString &text, QMessageBox::StandardButton answer)
{
    expect([this, text, answer](QWidget &window) {
        const auto *box = qobject_cast<QMessageBox *>(&window);
        if (!box || box->text() != text || !box->button(answer)) {
            noteFault(QStringLiteral("expected the message \"%1\", came \"%2\"")
                          .arg(text, box ? box->text() : window.windowTitle()));
            window.close();
            return;
        }
        QTest::keyClick(box->button(answer), Qt::Key_Space);
    });
}

void Clerk::expectFileDialog(const QString &path)
{
    expect([this, path](QWidget &window) {
        auto *name = window.findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
        if (!name)
            return noteFault(QStringLiteral("expected a file dialog, came \"") + window.windowTitle() + u'"');
        name->selectAll();
        QTest::keyClicks(name, path);
        QTest::keyClick(name, Qt::Key_Return);
        if (window.isVisible()) // the list of known names took that key
            QTest::keyClick(name, Qt::Key_Return);
    });
}

void Clerk::look()
{
    QWidget *window = QApplication::activeModalWidget();
    if (!window || window == m_inHand || !window->isVisible())
        return;
    m_inHand = window;
    connect(window, &QObject::destroyed, this, [this, window] {
        if (m_inHand == window)
            m_inHand = nullptr;
    });
    if (m_expected.empty()) {
        const auto *box = qobject_cast<QMessageBox *>(window);
        noteFault(QStringLiteral("nobody expected \"") + (box ? box->text() : window->windowTitle()) + u'"');
        window->close();
        return;
    }
    const auto use = m_expected.front();
    m_expected.pop_front();
    use(*window);
}

void Clerk::noteFault(const QString &fault)
{
    if (m_fault.isEmpty())
        m_fault = fault;
}

} // namespace ledgora::app
