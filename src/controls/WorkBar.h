#pragma once

#include "platform/Progress.h"
#include <QElapsedTimer>
#include <QPointer>
#include <QProgressDialog>

namespace ledgora {

/// Long work shows a bar only when it takes longer than this.
inline constexpr int quietMilliseconds = 300;

/// The bar that long work on the data shows: what is done, how much is left, Cancel. It comes when the work has run for
/// 300 ms, holds other input back, and gives the keys back where they were. It knows no timer, so that it can not come
/// up over the answer when the work is over: see `withWorkBar`.
class WorkBar : public QProgressDialog
{
    Q_OBJECT
public:
    WorkBar(QWidget *parent, const QString &title);
    ~WorkBar() override;

    /// To hand to the work, which must end before the bar goes.
    Progress progress();

private:
    QElapsedTimer m_running;
    QPointer<QWidget> m_window; ///< that had the keys
};

/// Runs `work`, which gets the bar's progress, and answers what it answers. The bar has gone by then.
template<class Work>
auto withWorkBar(QWidget *parent, const QString &title, Work work)
{
    WorkBar bar(parent, title);
    return work(bar.progress());
}

/// The window that had the keys gets them back before the next key arrives: an access key finds its button only there.
void giveKeysBack(const QPointer<QWidget> &window);

} // namespace ledgora
