#include "controls/WorkBar.h"

namespace ledgora {

namespace {

constexpr int quietMilliseconds = 300;
constexpr int steps = 1000;
constexpr int narrowest = 360; // the word for what is done changes, the bar stays

} // namespace

WorkBar::WorkBar(QWidget *parent, const QString &title)
    : QProgressDialog(title, QStringLiteral("&Cancel"), 0, steps, parent)
{
    setObjectName(QStringLiteral("workBar"));
    setWindowTitle(title);
    setWindowModality(Qt::ApplicationModal);
    setMinimumWidth(narrowest);
    setMinimumDuration(quietMilliseconds);
    setAutoReset(false); // a stage that has come to its end is followed by the next
    setAutoClose(false);
}

Progress WorkBar::progress()
{
    return [this](qint64 done, qint64 total, const QString &what) {
        if (labelText() != what)
            setLabelText(what);
        setValue(total > 0 ? int(done * steps / total) : 0); // lets Cancel's click come
        return !wasCanceled();
    };
}

} // namespace ledgora
