#pragma once

#include <QMessageBox>
#include <QObject>
#include <QString>
#include <deque>
#include <functional>

class QWidget;

namespace ledgora::app {

/// Works the program as a clerk does: with keys only, sent to whatever window has them at that moment, boxes answered
/// as they come.
class Clerk : public QObject
{
    Q_OBJECT
public:
    explicit Clerk(QWidget &mainWindow);

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier, int times = 1);
    void alt(char letter);
    /// A command whose access key another one has too: the key goes from one to the other, Enter gives the command.
    void altOfTwo(char letter, const char *button);
    void type(const QString &text);
    /// Types a field and leaves it with Enter.
    void enter(const QString &text = {});

    /// Types the beginning of an entry into a closed list; what was typed into it before is over by then.
    void choose(const QString &beginning);

    /// The next box is to say `text` and is answered by a key on the button; any other box is noted as a fault and
    /// closed.
    void expectBox(const QString &text, QMessageBox::StandardButton answer = QMessageBox::Ok);
    /// The next box or dialog is used as `use` does, which leaves it closed.
    void expect(std::function<void(QWidget &)> use);
    /// The next dialog asks for a file: its name is typed there.
    void expectFileDialog(const QString &path);

    /// "" or the first thing that went otherwise than expected.
    QString fault() const { return m_fault; }
    bool allBoxesCame() const { return m_expected.empty(); }

    /// Lets what was posted happen.
    static void settle();

private:
    void look();
    void noteFault(const QString &fault);
    class QWindow *target() const;

    QWidget &m_mainWindow;
    std::deque<std::function<void(QWidget &)>> m_expected;
    QWidget *m_inHand = nullptr;
    QString m_fault;
};

} // namespace ledgora::app
