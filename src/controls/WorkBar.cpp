#include "controls/WorkBar.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <limits>

namespace ledgora {

namespace {

constexpr int steps = 1000;
constexpr int narrowest = 360; // the word for what is done changes, the bar stays

} // namespace

WorkBar::WorkBar(QWidget *parent, const QString &title)
    : QProgressDialog(title, QStringLiteral("&Cancel"), 0, steps, parent)
    , m_window(QApplication::activeWindow())
{
    setObjectName(QStringLiteral("workBar"));
    setWindowTitle(title);
    setWindowModality(Qt::ApplicationModal);
    setMinimumWidth(narrowest);
    setMinimumDuration(std::numeric_limits<int>::max()); // the work shows it
    setAutoReset(false);                                 // a stage that has come to its end is followed by the next
    setAutoClose(false);
    m_running.start();
}

WorkBar::~WorkBar()
{
    if (!isVisible())
        return;
    hide();
    giveKeysBack(m_window);
}

Progress WorkBar::progress()
{
    return [this](qint64 done, qint64 total, const QString &what) {
        if (labelText() != what)
            setLabelText(what);
        if (m_running.hasExpired(quietMilliseconds))
            forceShow();
        setValue(total > 0 ? int(done * steps / total) : 0); // lets Cancel's click come
        return !wasCanceled();
    };
}

void giveKeysBack(const QPointer<QWidget> &window)
{
    constexpr int patienceMilliseconds = 500;
    if (!window)
        return;
    window->activateWindow();
    const QDeadlineTimer limit(patienceMilliseconds);
    while (window && !window->isActiveWindow() && !limit.hasExpired())
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents, 1);
}

} // namespace ledgora
