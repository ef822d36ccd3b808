#include "ServerDialog.h"

#include "controls/KeyGuard.h"
#include "ui_ServerDialog.h"
#include <QFileDialog>
#include <QInputDialog>
#include <QIntValidator>
#include <QMessageBox>

namespace ledgora::app {

namespace {

constexpr int lastPort = 65535;

} // namespace

ServerDialog::ServerDialog(QString dataFolder, QWidget *parent)
    : QDialog(parent)
    , ui(std::make_unique<Ui::ServerDialog>())
    , m_dataFolder(std::move(dataFolder))
{
    ui->setupUi(this);
    keepCommandsOutOfText(*this);
    ui->txtServerPort->setValidator(new QIntValidator(1, lastPort, this));
    const auto showKind = [this] {
        ui->famServer->setEnabled(ui->optServerShared->isChecked());
        ui->cmdServerTry->setEnabled(ui->optServerShared->isChecked());
    };
    connect(ui->optServerShared, &QRadioButton::toggled, this, showKind);
    connect(ui->cmdServerCa, &QPushButton::clicked, this, [this] { chooseFile(ui->txtServerCa); });
    connect(ui->cmdServerPassword, &QPushButton::clicked, this, [this] { chooseFile(ui->txtServerPassword); });
    connect(ui->cmdServerTry, &QPushButton::clicked, this, &ServerDialog::tryServer);
    connect(ui->cmdServerSave, &QPushButton::clicked, this, &ServerDialog::save);
    connect(ui->cmdServerCancel, &QPushButton::clicked, this, &QDialog::reject);
    show(ServerChoice::saved(m_dataFolder));
    showKind();
}

ServerDialog::~ServerDialog() = default;

void ServerDialog::show(const ServerChoice &choice)
{
    ServerAddress address;
    readAddress(choice.address, address);
    (choice.address.isEmpty() ? ui->optServerPrivate : ui->optServerShared)->setChecked(true);
    ui->txtServerHost->setText(address.host);
    ui->txtServerPort->setText(QString::number(address.port));
    ui->txtServerDatabase->setText(address.database.isEmpty() ? QStringLiteral("ledgora") : address.database);
    ui->txtServerUser->setText(address.user);
    ui->chkServerTls->setChecked(address.tlsRequired);
    ui->txtServerCa->setText(address.caFile);
    ui->txtServerPassword->setText(choice.passwordFile);
}

ServerChoice ServerDialog::read() const
{
    if (ui->optServerPrivate->isChecked())
        return {};
    const ServerAddress address{.user = ui->txtServerUser->text().trimmed(),
                                .host = ui->txtServerHost->text().trimmed(),
                                .database = ui->txtServerDatabase->text().trimmed(),
                                .port = ui->txtServerPort->text().toUInt(),
                                .tlsRequired = ui->chkServerTls->isChecked(),
                                .caFile = ui->txtServerCa->text().trimmed()};
    return {address.text(), ui->txtServerPassword->text().trimmed()};
}

bool ServerDialog::hasFault()
{
    if (ui->optServerPrivate->isChecked())
        return false;
    const struct
    {
        QLineEdit *field;
        const char *message;
    } needed[] = {{ui->txtServerHost, "Please specify the name or address of the server."},
                  {ui->txtServerPort, "Please specify the port of the server."},
                  {ui->txtServerDatabase, "Please specify the name of the database."},
                  {ui->txtServerUser, "Please specify the user of the database."}};
    for (const auto &[field, message] : needed) {
        if (!field->text().trimmed().isEmpty() && field->hasAcceptableInput())
            continue;
        QMessageBox::information(this, windowTitle(), QLatin1String(message));
        field->setFocus();
        return true;
    }
    ServerAddress address;
    const QString fault = readAddress(read().address, address);
    if (!fault.isEmpty())
        QMessageBox::information(this, windowTitle(), fault);
    return !fault.isEmpty();
}

void ServerDialog::chooseFile(QLineEdit *field)
{
    const QString path = QFileDialog::getOpenFileName(this, windowTitle(), field->text());
    if (!path.isEmpty())
        field->setText(path);
}

void ServerDialog::tryServer()
{
    if (hasFault())
        return;
    ui->lblServerState->setText(QStringLiteral("Trying ..."));
    ui->lblServerState->repaint();
    QString place;
    const QString fault = tryShared(read(), askInWindow, place);
    ui->lblServerState->setText(fault.isEmpty() ? QStringLiteral("The server can be used: ") + place : fault);
}

void ServerDialog::save()
{
    if (hasFault())
        return;
    const ServerChoice choice = read();
    if (!choice.save(m_dataFolder)) {
        QMessageBox::critical(this, windowTitle(), QStringLiteral("The choice could not be saved in the data folder."));
        return;
    }
    QMessageBox::information(this, windowTitle(),
                             QStringLiteral("The choice holds when Ledgora is started the next time."));
    accept();
}

std::optional<QByteArray> askInWindow(const ServerAddress &address, bool again)
{
    bool given = false;
    const QString question = (again ? QStringLiteral("The server refused that password.\n") : QString())
                             + QStringLiteral("Password of user %1 for %2:").arg(address.user, address.place());
    const QString typed = QInputDialog::getText(QApplication::activeWindow(), QStringLiteral("Ledgora"), question,
                                                QLineEdit::Password, QString(), &given);
    return given ? std::optional(typed.toUtf8()) : std::nullopt;
}

} // namespace ledgora::app
