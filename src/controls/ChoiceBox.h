#pragma once

#include <QComboBox>

namespace ledgora {

/// A drop-down list. The mouse wheel changes it only while it has the focus. Keeps a hidden value beside its choice,
/// and tells every choice, also of the same entry, also by code: nothing hangs on a changed index. What is typed finds
/// an entry by its beginning, however slowly; the list lies beside the box, never on it.
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

    /// Shows the choice as a text, without the look of a box.
    void showAsText(bool asText);
    void showPopup() override;
    void hidePopup() override;

Q_SIGNALS:
    void chosen(int index);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    bool search(const QKeyEvent &key);
    int find(const QString &text, int from) const;

    QString m_typed; ///< of the search that goes on
    bool m_asText = false;
    QString m_hiddenValue;
};

} // namespace ledgora
