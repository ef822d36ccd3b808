#pragma once

#include <QLineEdit>

namespace ledgora {

/// A plain text box of one line that keeps a hidden value (an id, a code) beside its text.
class LineField : public QLineEdit
{
    Q_OBJECT
    Q_PROPERTY(bool upperCase READ isUpperCase WRITE setUpperCase)
public:
    explicit LineField(QWidget *parent = nullptr);

    QString hiddenValue() const { return m_hiddenValue; }
    void setHiddenValue(const QString &value) { m_hiddenValue = value; }
    void clearBoth();

    bool isUpperCase() const { return m_upperCase; }
    void setUpperCase(bool upperCase) { m_upperCase = upperCase; }

protected:
    /// Letters typed into an upper-case field become capitals.
    void keyPressEvent(QKeyEvent *event) override;

private:
    QString m_hiddenValue;
    bool m_upperCase = false;
};

/// A date as DD/MM/YYYY under the mask "##/##/####", shown "__/__/____" when empty. "-" and "." go on to the next part
/// as
/// "/" does.
class DateField : public QLineEdit
{
    Q_OBJECT
public:
    explicit DateField(QWidget *parent = nullptr);

    /// The text as typed, without the blanks of the mask; "" when nothing was typed.
    QString date() const;
    void setDate(const QString &date);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
};

} // namespace ledgora
