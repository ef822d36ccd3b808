#include "StatusLine.h"

namespace ledgora::app {

namespace {

constexpr auto noteLasts = std::chrono::seconds(10);

} // namespace

StatusLine::StatusLine(QWidget *parent) : QLabel(parent)
{
    setObjectName(QStringLiteral("lblStatusLine"));
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed); // a long path is cut, it does not widen the window
    m_noteEnds.setSingleShot(true);
    m_noteEnds.setInterval(noteLasts);
    connect(&m_noteEnds, &QTimer::timeout, this, &StatusLine::showStanding);
}

void StatusLine::setStanding(const QString &text)
{
    m_standing = text;
    if (!m_noteEnds.isActive())
        showStanding();
}

void StatusLine::note(const QString &text)
{
    setText(text);
    m_noteEnds.start();
}

void StatusLine::clearNote()
{
    m_noteEnds.stop();
    showStanding();
}

} // namespace ledgora::app
