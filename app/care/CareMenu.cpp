#include "CareMenu.h"

#include "FindingsDialog.h"
#include "Restore.h"
#include "app/Office.h"
#include "controls/WorkBar.h"
#include "host/WorkingState.h"
#include "store/Dates.h"
#include "store/Settings.h"
#include <QAction>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>

namespace ledgora::app {

namespace {

const QString &fileKind()
{
    static const QString kind = QStringLiteral("Backup of Ledgora (*.ledgora)");
    return kind;
}

OfficeData dataOf(Office &office)
{
    return {office.connection(), gHostCode, office.dataFolder()};
}

void check(QWidget &window, Office &office)
{
    const QString title = QStringLiteral("Check the Data");
    const CheckResult result = withWorkBar(&window, title, [&office](const Progress &progress) {
        return checkData(office.connection(), gHostCode, 0, progress);
    });
    if (!result.fault.isEmpty())
        QMessageBox::warning(&window, title, result.fault);
    else if (result.findings.empty())
        QMessageBox::information(
            &window, title,
            QStringLiteral("%1 bills and %2 receipts checked, nothing found.").arg(result.bills).arg(result.receipts));
    else
        FindingsDialog(result, &window).exec();
}

void backUp(QWidget &window, Office &office)
{
    const QString title = QStringLiteral("Backup");
    const QString name = QStringLiteral("ledgora-") + today().toString(Qt::ISODate) + QStringLiteral(".ledgora");
    const QString path = QFileDialog::getSaveFileName(&window, title, joinPath(QDir::homePath(), name), fileKind());
    if (path.isEmpty())
        return;
    const QString fault = withWorkBar(
        &window, title, [&](const Progress &progress) { return makeBackup(dataOf(office), path, progress); });
    if (fault.isEmpty())
        QMessageBox::information(&window, title,
                                 QStringLiteral("The backup [") + path + QStringLiteral("] is written and proved."));
    else
        QMessageBox::warning(&window, title, fault);
}

bool isAgreed(QWidget &window, const QString &title, const QString &path)
{
    return QMessageBox::question(
               &window, title,
               QStringLiteral("Put the data of [") + path
                   + QStringLiteral("] in place of the present data?\n\nThe present data is kept in a "
                                    "backup file first."),
               QMessageBox::Yes | QMessageBox::No, QMessageBox::No)
           == QMessageBox::Yes;
}

/// True when the office has other data now.
bool restore(QWidget &window, Office &office, const std::function<bool()> &closeScreens)
{
    const QString title = QStringLiteral("Restore");
    const QString path = QFileDialog::getOpenFileName(
        &window, title, joinPath(office.dataFolder(), QStringLiteral("backups")), fileKind());
    if (path.isEmpty() || !isAgreed(window, title, path) || !closeScreens())
        return false;
    const RestoreResult result = withWorkBar(
        &window, title, [&](const Progress &progress) { return restoreBackup(dataOf(office), path, progress); });
    if (!result.fault.isEmpty()) {
        QMessageBox::warning(&window, title, result.fault);
        return false;
    }
    QString text = QStringLiteral("The data is restored.");
    if (!result.former.isEmpty())
        text += QStringLiteral("\n\nThe former data is kept in the folder [") + QFileInfo(result.former).path()
                + QStringLiteral("].");
    QMessageBox::information(&window, title, text);
    return true;
}

} // namespace

void addCareMenu(QMenuBar &bar, QWidget &window, Office &office, const std::function<bool()> &closeScreens,
                 const std::function<void()> &restored)
{
    QMenu *menu = bar.addMenu(QStringLiteral("Data Safet&y"));
    menu->addAction(QStringLiteral("&Check the Data"), &window, [&window, &office] { check(window, office); })
        ->setObjectName(QStringLiteral("actCheck"));
    menu->addAction(QStringLiteral("&Backup..."), &window, [&window, &office] { backUp(window, office); })
        ->setObjectName(QStringLiteral("actBackup"));
    menu->addAction(QStringLiteral("&Restore..."), &window,
                    [&window, &office, closeScreens, restored] {
                        if (restore(window, office, closeScreens))
                            restored();
                    })
        ->setObjectName(QStringLiteral("actRestore"));
}

} // namespace ledgora::app
