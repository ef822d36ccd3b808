#pragma once

#include <QComboBox>

namespace ledgora {

/// A drop-down list. The mouse wheel changes it only while it has the focus. Keeps a hidden value beside its choice,
/// and tells every choice, also of the same entry, also by code: nothing hangs on a changed index.
class ChoiceBox : public QComboBox
{
    Q_OBJECT
public:
    explicit ChoiceBox(QWidget *parent = nullptr);

    QString hiddenValue() const { return m_hiddenValue; }
    void setHiddenValue(const QString &value) { m_hiddenValue = value; }

    /// Chooses an entry as if the user had clicked it.
    void choose(int index);
    /// Chooses the entry with the text, else `otherwise`.
    void chooseText(const QString &text, int otherwise = -1);

Q_SIGNALS:
    void chosen(int index);

protected:
    void wheelEvent(QWheelEvent *event) override;

private:
    QString m_hiddenValue;
};

} // namespace ledgora
