#pragma once

#include <QLineEdit>

namespace ledgora {

/// What a field lets through while it is typed in, and what it demands when it is left. No widget is needed to ask it.
struct TextRule
{
    /// Keys that are let through; the values are those of the `ValidateData` property.
    enum Mode {
        Any = 0,
        Number = 1,           ///< "+", "-" and digits
        Letters = 2,          ///< blank and A to Z
        LettersAndDigits = 3, ///< A to Z and digits
        Amount = 4,           ///< "+", "-", "." and digits, at most two decimals
        LongDate = 5,         ///< digits and "-", dd-mm-yyyy
        ShortDate = 6,        ///< digits and "-", dd-mm-yy
    };
    int mode = Any;
    int maxLength = 50;
    int minLength = 0; ///< 0 for none
    QString include;   ///< always let through, past any limit; the first 50 characters count
    QString exclude;   ///< always refused; the first 50 characters count

    enum class Verdict {
        Passed,     ///< goes in, and the screen hears of it
        PassedMute, ///< goes in, and nobody hears of it
        Refused,
    };
    struct Answer
    {
        Verdict verdict = Verdict::Passed;
        QString message; ///< to be shown with a refusal; "" refuses in silence
    };

    /// The answer to one typed character, already a capital. `standing` is the text that it would join: without the
    /// selected part, which gives way to it. The limit is tested before the character joins, so that a text can come
    /// to one character more than `maxLength`; the tests of the screens then refuse it.
    Answer answer(const QString &standing, QChar key) const;

    /// Fault of the finished text as the message to show, or "". An empty text passes everything.
    QString fault(const QString &text) const;

    /// The text as it stands after leaving: an amount with two decimals.
    QString finished(const QString &text) const;
};

/// The validated text box: refuses wrong keys as they are typed, makes letters capitals, checks date or length on
/// leaving and shows the field in focus in a colour of its own. `textChanged` tells every change; setting the text by
/// code runs no check and keeps small letters. What is pasted, dropped or composed passes the same filter.
class VTxt : public QLineEdit
{
    Q_OBJECT
    Q_PROPERTY(int ValidateData READ ValidateData WRITE setValidateData)
    Q_PROPERTY(int MaxLength READ MaxLength WRITE setMaxLength)
    Q_PROPERTY(int MinLength READ MinLength WRITE setMinLength)
    Q_PROPERTY(QString include READ include WRITE setInclude)
    Q_PROPERTY(QString Exclude READ Exclude WRITE setExclude)
    Q_PROPERTY(QString hiddenValue READ hiddenValue WRITE setHiddenValue)
public:
    explicit VTxt(QWidget *parent = nullptr);

    int ValidateData() const { return m_rule.mode; }
    void setValidateData(int mode) { m_rule.mode = mode; }
    /// Limit while typing; the box's own limit is left alone, as it would cut what code puts in.
    int MaxLength() const { return m_rule.maxLength; }
    void setMaxLength(int length) { m_rule.maxLength = length; }
    int MinLength() const { return m_rule.minLength; }
    void setMinLength(int length) { m_rule.minLength = length; }
    QString include() const { return m_rule.include; }
    void setInclude(const QString &characters) { m_rule.include = characters; }
    QString Exclude() const { return m_rule.exclude; }
    void setExclude(const QString &characters) { m_rule.exclude = characters; }

    /// The id or code that a screen keeps beside the shown text.
    QString hiddenValue() const { return m_hiddenValue; }
    void setHiddenValue(const QString &value) { m_hiddenValue = value; }

    /// Tests the text as leaving does; shows the fault in a box and returns False.
    bool Check_M();

    /// Finishes a leaving that is still queued; False when the text was refused and the focus came back. A screen
    /// asks it before it runs a command.
    bool settle();

Q_SIGNALS:
    /// A typed character that passed (as a capital, before it joins the text), and 13 for Enter.
    void keyPressed(int key);

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    QString withoutSelection(qsizetype *cursor) const;
    void typeCharacter(QKeyEvent *event);
    QString filtered(const QString &text, QString *message) const;
    void enterText(const QString &text);
    void pressEnter();
    void focusMoved(const QWidget *now);
    bool finishLeaving();
    void say(const QString &message);

    TextRule m_rule;
    QString m_hiddenValue;
    bool m_entered = false;       ///< has the keys, or will have them when they come back from a box, menu or window
    bool m_leaving = false;       ///< left, and not yet tested
    bool m_selectOnPress = false; ///< the mouse press that gave the focus must not take the selection away
};

} // namespace ledgora
