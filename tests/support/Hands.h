#pragma once

#include <QObject>
#include <QPoint>
#include <QProcess>
#include <QString>

class QWidget;

namespace ledgora::test {

/// Real keys and a real mouse on the display of the test: the window manager, the window that has the keys and an open
/// list take them as a clerk's. A call returns when the program has handled the key or button and something has the
/// keys again; it throws std::runtime_error when that does not happen within ten seconds.
class Hands : public QObject
{
    Q_OBJECT
public:
    Hands();
    ~Hands() override;

    /// Keys by the names of the display: "Return", "F12", "shift+Tab", "alt+u".
    void press(const QString &keys, int times = 1);
    void type(const QString &text);
    /// Clicks into a widget, at its middle or at a place of it.
    void click(const QWidget *widget) { click(widget, middle(widget)); }
    void click(const QWidget *widget, QPoint at);
    void doubleClick(const QWidget *widget, QPoint at);

    /// Waits until something of the program has the keys, in the box that is open if there is one.
    static void awaitKeys();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    static QPoint middle(const QWidget *widget);
    void press(const QWidget *widget, QPoint at, int clicks);
    void act(const QString &command, int times);

    QProcess m_tool;
    int m_seen = 0; ///< keys and clicks that the program has seen
};

} // namespace ledgora::test
