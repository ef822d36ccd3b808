#include "Hands.h"

#include "Keys.h"
#include <QApplication>
#include <QEvent>
#include <QHash>
#include <QKeyEvent>
#include <QTest>
#include <QWidget>
#include <stdexcept>

namespace ledgora::test {

namespace {

constexpr int patienceMs = 10'000;

/// A modifier's own press is part of another key's.
bool isKey(const QEvent &event)
{
    const auto &key = static_cast<const QKeyEvent &>(event);
    return key.key() != Qt::Key_Shift && key.key() != Qt::Key_Control && key.key() != Qt::Key_Alt;
}

std::string nameOf(const QWidget *window)
{
    return window ? window->metaObject()->className() : "(no window)";
}

QString nameOfKey(QChar c)
{
    static const QHash<QChar, QString> names{{' ', "space"}, {'.', "period"}, {'-', "minus"},
                                             {'/', "slash"}, {',', "comma"},  {'&', "ampersand"}};
    if (c.isLetterOrNumber() && c.unicode() < 128)
        return c;
    if (!names.contains(c))
        throw std::runtime_error("no key for " + QString(c).toStdString());
    return names.value(c);
}

void askForKeys()
{
    QWidget *window = QApplication::activeModalWidget();
    for (QWidget *each : QApplication::topLevelWidgets())
        window = !window && each->isVisible() ? each : window;
    if (window)
        window->activateWindow();
}

} // namespace

Hands::Hands()
{
    m_tool.start("xdotool", {"-"});
    if (!m_tool.waitForStarted())
        throw std::runtime_error("no hands: is xdotool installed?");
    qApp->installEventFilter(this);
}

Hands::~Hands()
{
    m_tool.closeWriteChannel();
    m_tool.waitForFinished();
}

bool Hands::eventFilter(QObject *watched, QEvent *event)
{
    // Windows get each event first, once; the widgets in them again. A key is offered as a command before all else;
    // its release may find a window that the press has opened and that has no keys yet.
    if (!watched->isWindowType() || !event->spontaneous())
        return false;
    if ((event->type() == QEvent::ShortcutOverride && isKey(*event)) || event->type() == QEvent::MouseButtonRelease)
        ++m_seen;
    return false;
}

void Hands::awaitKeys()
{
    const auto arrived = [] {
        const QWidget *modal = QApplication::activeModalWidget();
        return QApplication::focusWidget() && (!modal || modal->isActiveWindow());
    };
    do {
        // On a busy machine the window manager may give the keys to no window at all when a box goes as soon as it
        // came.
        if (!QTest::qWaitFor(arrived, patienceMs / 4) && !QApplication::activeWindow())
            askForKeys();
        if (!QTest::qWaitFor(arrived, patienceMs))
            throw std::runtime_error("nothing has the keys, not even " + nameOf(QApplication::activeWindow()) + ", "
                                     + nameOf(QApplication::activePopupWidget()) + " or "
                                     + nameOf(QApplication::activeModalWidget()));
        Keys::settle(); // may show a box that waited for the end of the event
    } while (!arrived());
}

void Hands::act(const QString &command, int times)
{
    awaitKeys();
    const int wanted = m_seen + times;
    m_tool.write(command.toLatin1() + '\n');
    if (!QTest::qWaitFor([&] { return m_seen >= wanted; }, patienceMs))
        throw std::runtime_error("the program did not get: " + command.toStdString());
    awaitKeys();
}

void Hands::press(const QString &keys, int times)
{
    for (int i = 0; i < times; ++i)
        act("key --delay 0 " + keys, 1);
}

void Hands::type(const QString &text)
{
    for (const QChar c : text)
        press(nameOfKey(c));
}

QPoint Hands::middle(const QWidget *widget)
{
    return widget->rect().center();
}

void Hands::press(const QWidget *widget, QPoint at, int clicks)
{
    const QPoint place = widget->mapToGlobal(at);
    act(QString("mousemove %1 %2 click --delay 20 --repeat %3 1").arg(place.x()).arg(place.y()).arg(clicks), clicks);
}

void Hands::click(const QWidget *widget, QPoint at)
{
    press(widget, at, 1);
}

void Hands::doubleClick(const QWidget *widget, QPoint at)
{
    press(widget, at, 2);
}

} // namespace ledgora::test
