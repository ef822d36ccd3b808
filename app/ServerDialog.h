#pragma once

#include "OfficeChoice.h"
#include <QDialog>
#include <memory>

class QLineEdit;

namespace ledgora::app {

namespace Ui {
class ServerDialog;
}

/// Which server holds the office's data: chosen here, tried, and saved for the next start.
class ServerDialog : public QDialog
{
    Q_OBJECT
public:
    explicit ServerDialog(QString dataFolder, QWidget *parent = nullptr);
    ~ServerDialog() override;

private:
    void show(const ServerChoice &choice);
    ServerChoice read() const;
    bool hasFault();
    void chooseFile(QLineEdit *field);
    void tryServer();
    void save();

    std::unique_ptr<Ui::ServerDialog> ui;
    QString m_dataFolder;
};

/// Asks for the password of a user of a shared server in a box.
std::optional<QByteArray> askInWindow(const ServerAddress &address, bool again);

} // namespace ledgora::app
