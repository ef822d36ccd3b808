#pragma once

#include <QWidget>

class QLabel;
class QLineEdit;

namespace ledgora::reporter {

/// The row in which words to look for are typed: Enter goes to the next place, Shift+Enter to the one before.
class FindBar : public QWidget
{
    Q_OBJECT

public:
    explicit FindBar(QWidget *parent = nullptr);

    /// Shows the row and takes the focus, with the former words chosen.
    void open();
    QString words() const;
    /// Tells which place of how many is shown; none of none when nothing was found.
    void tell(int place, int places);

Q_SIGNALS:
    void wordsChanged();
    void nextWanted(bool backwards);

private:
    void addStep(const QString &objectName, const QString &caption, bool backwards);

    QLineEdit *m_words = nullptr;
    QLabel *m_found = nullptr;
};

} // namespace ledgora::reporter
