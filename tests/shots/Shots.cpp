// Pictures of all screens: the demonstration, photographed where a screen is worth a look. A picture shows the window
// with whatever list or box stands over it.

#include "Papers.h"
#include "app/Clerk.h"
#include "app/Demo.h"
#include "app/MainWindow.h"
#include "app/Office.h"
#include "app/ServerDialog.h"
#include "controls/WorkBar.h"
#include "host/WorkingState.h"
#include "store/Connection.h"
#include "store/Dates.h"
#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QPainter>
#include <QPixmap>
#include <QRadioButton>
#include <QTableView>
#include <QWidget>
#include <cstdio>

using namespace ledgora::app;

namespace {

QPixmap pictureOf(QWidget &window)
{
    QPixmap picture = window.grab();
    QPainter painter(&picture);
    for (QWidget *over : {QApplication::activePopupWidget(), QApplication::activeModalWidget()}) {
        if (over && over != &window)
            painter.drawPixmap(over->mapToGlobal(QPoint()) - window.mapToGlobal(QPoint()), over->grab());
    }
    return picture;
}

bool writeBranches(const QString &folder)
{
    QFile list(QDir(folder).filePath(QStringLiteral("ifsc.csv")));
    const QByteArray rows = "BANK,IFSC,BRANCH,ADDRESS,CITY,STATE\n"
                            "Gomti Co-operative Bank,GOMT0000001,Hazratganj,12 Mall Road,Lucknow,Uttar Pradesh\n"
                            "Gomti Co-operative Bank,GOMT0000002,Aliganj,Sector B,Lucknow,Uttar Pradesh\n"
                            "State Bank of India,SBIN0000691,Parliament Street,11 Sansad Marg,New Delhi,Delhi\n"
                            "State Bank of India,SBIN0001067,Connaught Circus,C Block,New Delhi,Delhi\n";
    return list.open(QIODevice::WriteOnly) && list.write(rows) == rows.size();
}

/// The list of bank branches, from the company's edit frame.
void visitBranches(Clerk &clerk, QWidget &window, const Look &look)
{
    clerk.alt('A');
    window.findChild<QWidget *>(QStringLiteral("txtFirmBankNm"))->setFocus();
    Clerk::settle();
    clerk.expect([&](QWidget &dialog) {
        look(QStringLiteral("company-bank-branches"), window);
        dialog.close();
    });
    clerk.press(Qt::Key_F12);
    clerk.press(Qt::Key_Escape);
}

/// The host's clients: empty, a frame, a client whose name changed, the list.
void visitClients(Clerk &clerk, QWidget &window, const Look &look)
{
    clerk.press(Qt::Key_L, Qt::ControlModifier);
    look(QStringLiteral("clients-first-start"), window);
    for (const char *name : {"NARMADA TEXTILES PRIVATE LIMITED", "KAVERI ENGINEERING WORKS"}) {
        clerk.alt('A');
        clerk.enter();
        clerk.enter(QString::fromLatin1(name).left(3));
        clerk.enter(QString::fromLatin1(name));
        look(QStringLiteral("client-edit"), window);
        window.findChild<QWidget *>(QStringLiteral("cboClientState"))->setFocus();
        clerk.choose(QStringLiteral("GUJ"));
        clerk.alt('S');
    }
    clerk.alt('M');
    look(QStringLiteral("client-modify"), window);
    clerk.press(Qt::Key_Escape);
    look(QStringLiteral("clients"), window);
}

/// Series, register of GSTINs and settings; with host "G" for a moment, which has all settings.
void visitMasters(Clerk &clerk, Office &office, MainWindow &window, const Look &look)
{
    const auto lookAs = [&](const char *name) { look(QLatin1String(name), window); };
    const auto lookAtKeys = [&](const char *name) {
        clerk.expect([&look, &window, name](QWidget &keys) {
            look(QLatin1String(name), window);
            keys.close();
        });
        clerk.press(Qt::Key_F1);
    };
    lookAtKeys("keys-home");
    clerk.alt('S');
    lookAs("series-first-start");
    const std::pair<const char *, int> series[] = {{"SA/24-25/", 1}, {"/R", 2}, {"TAX-##/24", 1}};
    for (const auto &[text, kind] : series) {
        clerk.alt('A');
        clerk.press(Qt::Key_Right, Qt::NoModifier, kind - 1);
        clerk.press(Qt::Key_Return);
        clerk.press(Qt::Key_End);
        clerk.press(Qt::Key_Return);
        clerk.type(QLatin1String(text));
        clerk.press(Qt::Key_Return);
        clerk.press(Qt::Key_Right, Qt::NoModifier, kind - 1);
        lookAs("series-edit");
        clerk.alt('U');
    }
    lookAs("series");
    clerk.press(Qt::Key_Escape);
    clerk.alt('U');
    lookAs("client-gstins-first-start");
    clerk.press(Qt::Key_Escape);
    office.connection().Execute(
        QStringLiteral("Insert Into Comp_Master (CompSrNo,Code,Nm,PAN,State) Values "
                       "(1,'ALPHA-01','ALPHA TEXTILES PVT. LTD.','AAACA1234C','GUJARAT'),"
                       "(2,'BHARAT-7','BHARAT STEEL ROLLING AND TRADING COMPANY (INDIA) LTD.','AABCB4321D','DELHI'),"
                       "(3,'C100','CHANDRA EXPORTS LTD.','','ANDAMAN & NICOBAR ISLANDS')"));
    office.connection().Execute(QStringLiteral("Insert Into GST_ClRegNo Values ('ALPHA-01','24AAACA1234C1Z5','')"));
    clerk.alt('U');
    clerk.press(Qt::Key_Down);
    clerk.type(QStringLiteral("07aabcb4321d1z"));
    lookAs("client-gstins");
    clerk.expect([&](QWidget &box) {
        lookAs("client-gstin-refused");
        box.close();
    });
    clerk.press(Qt::Key_Return);
    lookAtKeys("keys-client-gstins");
    clerk.expectBox(QStringLiteral("Do you want to Save?"), QMessageBox::No);
    clerk.expectBox(QStringLiteral("Do you really want to exit without saving the changes?"), QMessageBox::Yes);
    clerk.press(Qt::Key_Escape);
    clerk.alt('I');
    lookAs("settings");
    clerk.press(Qt::Key_Escape, Qt::NoModifier, 2);
    ledgora::gHostCode = QStringLiteral("G");
    clerk.press(Qt::Key_G, Qt::ControlModifier);
    clerk.alt('I');
    lookAs("settings-of-a-host-with-offices");
    clerk.press(Qt::Key_Escape, Qt::NoModifier, 2);
    ledgora::gHostCode = QStringLiteral("C");
    clerk.press(Qt::Key_G, Qt::ControlModifier);
}

/// The dialogs behind the window's menu: the choice of the server, and what the check finds.
void visitMenu(Clerk &clerk, Office &office, QWidget &window, const Look &look)
{
    office.connection().Execute(QStringLiteral("Update GST_BillD Set TotalAmt=TotalAmt+1 Where BillId=1 and SrNo=1"));
    office.connection().Execute(QStringLiteral("Delete From GST_BillD Where BillId=2"));
    const std::pair<const char *, const char *> dialogs[] = {{"actServer", "database-server"},
                                                             {"actCheck", "check-findings"}};
    for (const auto &[action, name] : dialogs) {
        clerk.expect([&look, &window, name = name](QWidget &dialog) {
            look(QLatin1String(name), window);
            dialog.close();
        });
        window.findChild<QAction *>(QLatin1String(action))->trigger();
        Clerk::settle();
    }
}

/// What stands before the window while it waits: the server's bar, the bar of long work, the question for a password.
void visitWaiting(Clerk &clerk, Office &office, QWidget &window, const Look &look)
{
    clerk.expect([&look, &window](QWidget &dialog) {
        dialog.findChild<QRadioButton *>(QStringLiteral("optServerShared"))->click();
        const std::pair<const char *, const char *> texts[] = {{"txtServerHost", "accounts.office.example"},
                                                               {"txtServerUser", "ledgora"},
                                                               {"txtServerDatabase", "ledgora"}};
        for (const auto &[name, text] : texts) {
            if (auto *field = dialog.findChild<QLineEdit *>(QLatin1String(name)))
                field->setText(QLatin1String(text));
        }
        look(QStringLiteral("database-server-shared"), window);
        dialog.close();
    });
    window.findChild<QAction *>(QStringLiteral("actServer"))->trigger();
    Clerk::settle();
    clerk.expect([&look, &window](QWidget &dialog) {
        look(QStringLiteral("server-password"), window);
        dialog.close();
    });
    ServerAddress address;
    address.host = QStringLiteral("accounts.office.example");
    address.user = address.database = QStringLiteral("ledgora");
    askInWindow(address, true);
    clerk.expect([&look, &window](QWidget &) { look(QStringLiteral("waiting-for-the-server"), window); });
    office.connection().Open(QStringLiteral("Select Sleep(1)"));
    clerk.expect([](QWidget &) {});
    ledgora::WorkBar bar(&window, QStringLiteral("Backup"));
    bar.show();
    bar.progress()(41, 100, QStringLiteral("GST_BillD"));
    Clerk::settle();
    look(QStringLiteral("long-work"), window);
}

/// The selection of reports: each panel that asks for something else, a refused date, the clients found and ticked.
void visitReports(Clerk &clerk, QWidget &window, const Look &look)
{
    const auto lookAs = [&](const char *name) { look(QLatin1String(name), window); };
    clerk.press(Qt::Key_G, Qt::ControlModifier);
    clerk.altOfTwo('R', "cmdReports");
    clerk.press(Qt::Key_Down, Qt::NoModifier, 3);
    auto *limit = window.findChild<QAbstractButton *>(QStringLiteral("chkDt3"));
    limit->click();
    lookAs("reports-outstanding");
    limit->click();
    clerk.press(Qt::Key_Down, Qt::NoModifier, 3);
    lookAs("reports-services");
    clerk.press(Qt::Key_Down);
    auto *from = window.findChild<QLineEdit *>(QStringLiteral("txtdt_0"));
    from->setText(QStringLiteral("01/04/2023"));
    clerk.expect([&](QWidget &box) {
        lookAs("reports-date-refused");
        box.close();
    });
    clerk.alt('P');
    from->setText(QStringLiteral("01/04/2024"));
    clerk.alt('P');
    clerk.press(Qt::Key_Space);
    clerk.type(QStringLiteral("kul"));
    lookAs("reports-client-found");
    clerk.expect([&](QWidget &keys) {
        lookAs("keys-reports");
        keys.close();
    });
    clerk.press(Qt::Key_Return);
    clerk.press(Qt::Key_F1);
    clerk.press(Qt::Key_Escape, Qt::NoModifier, 2);
}

/// An office of host "G": its clients and groups.
QString visitHostG(const QString &folder, const Look &look)
{
    Office office(folder + QStringLiteral("-g"), QStringLiteral("G"));
    if (!office.open())
        return office.error();
    office.connection().Execute(
        QStringLiteral("Insert Into Owner1 (Code,F_nm,M_nm,l_nm,h_no,street,city,State,PIN,PAN) Values "
                       "('R1','RAMESH','K','IYER','12/A','MG ROAD','PUNE','MAHARASHTRA','411001','ABCPI1234K')"));
    office.connection().Execute(
        QStringLiteral("Insert Into GST_FirmMas (FirmSrNo,Nm,StateNm) Values (1,'SHARMA & ASSOCIATES','DELHI')"));
    office.connection().Execute(QStringLiteral("Insert Into Grp_M Values ('1','IYER FAMILY')"));
    office.connection().Execute(QStringLiteral("Insert Into Grp_Trans Values ('1','R1')"));
    MainWindow window(office);
    window.resize(1280, 720);
    window.show();
    window.activateWindow();
    Clerk clerk(window);
    clerk.press(Qt::Key_L, Qt::ControlModifier);
    look(QStringLiteral("host-g-clients"), window);
    clerk.alt('M');
    look(QStringLiteral("host-g-client-modify"), window);
    clerk.press(Qt::Key_Escape);
    window.findChild<QAction *>(QStringLiteral("actGroups"))->trigger();
    Clerk::settle();
    look(QStringLiteral("host-g-groups"), window);
    clerk.press(Qt::Key_Escape);
    clerk.press(Qt::Key_G, Qt::ControlModifier);
    clerk.altOfTwo('R', "cmdReports");
    auto *group = window.findChild<QTableView *>(QStringLiteral("vsfg"));
    group->setFocus();
    Clerk::settle();
    clerk.press(Qt::Key_Return);
    look(QStringLiteral("host-g-reports-group"), window);
    return clerk.fault();
}

/// What the demonstration does not visit: the masters, the password dialog, questions, earlier narrations, own
/// templates, the host's clients.
QString visitTheRest(const QString &folder, const Look &look)
{
    Office office(folder);
    if (!office.open())
        return office.error();
    MainWindow window(office);
    window.resize(1280, 720);
    window.show();
    window.activateWindow();
    Clerk clerk(window);
    const auto lookAtBox = [&](const char *name) {
        clerk.expect([&look, &window, name](QWidget &box) {
            look(QLatin1String(name), window);
            box.close();
        });
    };
    clerk.press(Qt::Key_G, Qt::ControlModifier);
    if (!writeBranches(folder))
        return QStringLiteral("the list of bank branches could not be written");
    visitBranches(clerk, window, look);
    visitMasters(clerk, office, window, look);
    lookAtBox("company-delete-question");
    clerk.alt('D');
    clerk.alt('T');
    clerk.press(Qt::Key_Down);
    look(QStringLiteral("template-setup-customized"), window);
    clerk.press(Qt::Key_Up);
    clerk.alt('B');
    clerk.alt('A');
    clerk.press(Qt::Key_Tab, Qt::NoModifier, 25);
    clerk.type(QStringLiteral("secret"));
    lookAtBox("company-password");
    clerk.press(Qt::Key_Tab);
    clerk.press(Qt::Key_Escape);
    clerk.alt('B');
    clerk.alt('M');
    clerk.press(Qt::Key_Tab, Qt::ControlModifier);
    window.findChild<QWidget *>(QStringLiteral("txtNarr"))->setFocus();
    Clerk::settle();
    clerk.press(Qt::Key_F12);
    look(QStringLiteral("bill-earlier-narrations"), window);
    clerk.press(Qt::Key_Escape);
    lookAtBox("bill-cancel-question");
    clerk.press(Qt::Key_Escape);
    clerk.alt('C');
    visitReports(clerk, window, look);
    visitClients(clerk, window, look);
    visitMenu(clerk, office, window, look);
    visitWaiting(clerk, office, window, look);
    return clerk.fault();
}

} // namespace

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    const QStringList words = QApplication::arguments();
    const qsizetype option = words.indexOf(QStringLiteral("--out"));
    if (option < 0 || option + 1 >= words.size()) {
        std::fputs("usage: ledgora_shots --out DIR\n", stderr);
        return 2;
    }
    QDir out(words.at(option + 1));
    out.mkpath(QStringLiteral("."));
    for (const QString &old : out.entryList({QStringLiteral("*.png")}))
        out.remove(old);
    ledgora::setToday(QDate(2024, 6, 15));
    int count = 0;
    const Look look = [&](const QString &name, QWidget &window) {
        pictureOf(window).save(
            out.filePath(QStringLiteral("%1-%2.png").arg(++count, 2, 10, QLatin1Char('0')).arg(name)));
    };
    QString fault = runDemo(out.path(), look);
    if (fault.isEmpty())
        fault = picturePapers(out.filePath(QStringLiteral("office")), out.path());
    if (fault.isEmpty())
        fault = visitTheRest(out.filePath(QStringLiteral("office")), look);
    if (fault.isEmpty())
        fault = visitHostG(out.filePath(QStringLiteral("office")), look);
    if (!fault.isEmpty())
        std::fprintf(stderr, "ledgora_shots: %s\n", qPrintable(fault));
    return fault.isEmpty() ? 0 : 1;
}
