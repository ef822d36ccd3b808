#pragma once

#include <QDialog>
#include <memory>

namespace ledgora {

namespace Ui {
class frmLogin1;
}

/// The password dialog. `gPassAsk` chooses its question; OK puts the entry into `gPassEntry`, Cancel and Esc leave it.
/// The caller empties `gPassEntry` before: "" afterwards means that the user cancelled.
class frmLogin1 : public QDialog
{
    Q_OBJECT
public:
    explicit frmLogin1(QWidget *parent = nullptr);
    ~frmLogin1() override;

private:
    std::unique_ptr<Ui::frmLogin1> ui;
};

} // namespace ledgora
