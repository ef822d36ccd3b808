#include "DemoReports.h"

#include "Clerk.h"
#include "DemoReceipts.h"
#include "store/Settings.h"
#include <QFile>
#include <QFileInfo>

namespace ledgora::app {

void printAccounts(const DemoDesk &desk)
{
    Clerk &clerk = desk.clerk;
    desk.step(QStringLiteral("report screen opened"), [&] {
        clerk.altOfTwo('R', "cmdReports");
        desk.look("reports");
    });
    desk.step(QStringLiteral("accounts of both clients saved as ") + QLatin1String(accountPdf), [&] {
        clerk.press(Qt::Key_Down, Qt::NoModifier, 7); // the last report
        clerk.alt('P');
        clerk.press(Qt::Key_A, Qt::ControlModifier);
        desk.look("reports-clients");
        const QString path = joinPath(desk.out, QLatin1String(accountPdf));
        QFile::remove(path);
        clerk.expectFileDialog(path);
        clerk.alt('P');
        desk.look("report-viewer");
        clerk.press(Qt::Key_S, Qt::ControlModifier);
        clerk.press(Qt::Key_Escape, Qt::NoModifier, 3); // the viewer, the clients, the screen
        desk.check(QFileInfo(path).size() > 0, QStringLiteral("the PDF file is there"));
    });
}

} // namespace ledgora::app
