#pragma once

#include <QMessageBox>
#include <QObject>
#include <QPointer>
#include <QString>
#include <deque>
#include <functional>
#include <optional>
#include <vector>

namespace ledgora::test {

/// Answers the modal boxes and dialogs that the tested code opens, in the order in which a test expects them:
///
///     Boxes boxes;
///     boxes.expect("Do you want to Cancel Entry?", QMessageBox::Yes).icon(QMessageBox::Question);
///     QTest::keyClick(screen, Qt::Key_Escape);
///
/// A box that nobody expects fails the test with its text and is closed; one that was expected and did not come fails
/// it when the object goes. One object at a time. A box may open another one while it is being answered.
class Boxes
{
public:
    class Expected
    {
    public:
        Expected &icon(QMessageBox::Icon icon);
        Expected &defaultButton(QMessageBox::StandardButton button);
        Expected &title(const QString &title);

    private:
        friend class Boxes;
        QString m_text;
        QMessageBox::StandardButton m_answer = QMessageBox::NoButton;
        std::optional<QMessageBox::Icon> m_icon;
        std::optional<QMessageBox::StandardButton> m_default;
        std::optional<QString> m_title;
        std::function<void(QWidget &)> m_dialog; ///< set: a dialog that is no message box
    };

    Boxes();
    Boxes(const Boxes &) = delete;
    Boxes &operator=(const Boxes &) = delete;
    ~Boxes();

    /// The next box has this text and is answered with this button.
    Expected &expect(const QString &text, QMessageBox::StandardButton answer = QMessageBox::Ok);
    /// The next modal window is no message box; `use` gets it, and closes it or leaves it to a further expectation.
    void expectDialog(std::function<void(QWidget &)> use);

    /// Lets posted boxes come until all that was expected has come (true) or a second has passed (false).
    bool wait();
    bool allCame() const { return m_expected.empty(); }

private:
    void look();
    void answer(QMessageBox &box);
    void useDialog(QWidget &dialog);
    void refuse(QWidget &window, const QString &text);

    QObject m_context; ///< ends the looking with the object
    std::deque<Expected> m_expected;
    std::vector<QPointer<QWidget>> m_inHand;
};

} // namespace ledgora::test
