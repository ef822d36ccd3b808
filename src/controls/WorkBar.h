#pragma once

#include "platform/Progress.h"
#include <QProgressDialog>

namespace ledgora {

/// The bar that long work on the data shows: what is done, how much is left, Cancel; after 300 ms, not before. Holds
/// other input back.
class WorkBar : public QProgressDialog
{
    Q_OBJECT
public:
    WorkBar(QWidget *parent, const QString &title);

    /// To hand to the work, which must end before the bar goes.
    Progress progress();
};

} // namespace ledgora
