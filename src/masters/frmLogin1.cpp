#include "masters/frmLogin1.h"

#include "controls/KeyGuard.h"
#include "host/WorkingState.h"
#include "ui_frmLogin1.h"

namespace ledgora {

frmLogin1::frmLogin1(QWidget *parent) : QDialog(parent), ui(std::make_unique<Ui::frmLogin1>())
{
    ui->setupUi(this);
    keepCommandsOutOfText(*this);
    setWindowTitle(gPassAsk ? QStringLiteral("Validate Password") : QStringLiteral("Confirm Password"));
    connect(ui->cmdok, &QPushButton::clicked, this, [this] {
        gPassEntry = ui->tpassword->text();
        accept();
    });
    connect(ui->cmdcancel, &QPushButton::clicked, this, &QDialog::reject);
}

frmLogin1::~frmLogin1() = default;

} // namespace ledgora
