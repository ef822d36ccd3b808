#pragma once

#include "Check.h"
#include <QDialog>

namespace ledgora::app {

/// What a check of the data found, one row a finding; can be saved as a text file.
class FindingsDialog : public QDialog
{
    Q_OBJECT
public:
    FindingsDialog(const CheckResult &result, QWidget *parent);

private:
    void save();
    Findings m_findings;
};

} // namespace ledgora::app
