#pragma once

#include "components/reporter/PageList.h"
#include <QListView>

namespace ledgora::reporter {

/// The pages as small pictures, one below the other with their numbers; only those in sight are drawn. The page that
/// the user moves to, with keys or the mouse, is told by `pageChosen`.
class PageStrip : public QListView
{
    Q_OBJECT

public:
    explicit PageStrip(const Pages &pages, QWidget *parent = nullptr);

    /// Marks the page that is read now, without choosing it.
    void follow(int page);

Q_SIGNALS:
    void pageChosen(int page);

protected:
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;

private:
    bool m_following = false;
};

} // namespace ledgora::reporter
