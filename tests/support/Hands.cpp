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

bool isModifier(int key)
{
    return key == Qt::Key_Shift || key == Qt::Key_Control || key == Qt::Key_Alt;
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
    // Windows get each event first, once; the widgets in them again.
    if (!watched->isWindowType() || !event->spontaneous())
        return false;
    const bool key = event->type() == QEvent::KeyRelease && !isModifier(static_cast<QKeyEvent *>(event)->key());
    if (key || event->type() == QEvent::MouseButtonRelease)
        ++m_released;
    return false;
}

void Hands::awaitKeys()
{
    const bool came = QTest::qWaitFor(
        [] {
            const QWidget *modal = QApplication::activeModalWidget();
            return modal ? modal->isActiveWindow() : QApplication::activeWindow() != nullptr;
        },
        patienceMs);
    if (!came)
        throw std::runtime_error("no window has the keys");
    Keys::settle();
}

void Hands::act(const QString &command, int releases)
{
    awaitKeys();
    const int wanted = m_released + releases;
    m_tool.write(command.toLatin1() + '\n');
    if (!QTest::qWaitFor([&] { return m_released >= wanted; }, patienceMs))
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
