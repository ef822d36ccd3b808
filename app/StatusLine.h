#pragma once

#include <QLabel>
#include <QTimer>

namespace ledgora::app {

/// The text of the main window's status bar: what holds now, and for ten seconds what has just happened. It is no
/// message of the bar itself, which every menu would clear.
class StatusLine : public QLabel
{
    Q_OBJECT
public:
    explicit StatusLine(QWidget *parent = nullptr);

    void setStanding(const QString &text);
    void note(const QString &text);
    /// What happened before is over.
    void clearNote();

private:
    void showStanding() { setText(m_standing); }

    QString m_standing;
    QTimer m_noteEnds;
};

} // namespace ledgora::app
