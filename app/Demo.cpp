#include "Demo.h"

#include "Clerk.h"
#include "DemoReceipts.h"
#include "DemoReports.h"
#include "MainWindow.h"
#include "Office.h"
#include "ServerFolder.h"
#include "bills/EntryRules.h"
#include "host/WorkingState.h"
#include "store/Dates.h"
#include "store/NumberFormat.h"
#include "store/Settings.h"
#include "store/SqlText.h"
#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <cstdio>

namespace ledgora::app {

namespace {

struct DemoLine
{
    const char *particulars;
    int sac;            ///< entry of the pick list, 0 for none
    const char *period; ///< "F" or "A" picks FY or AY, "" none
    const char *amount;
    const char *discount;
};

struct DemoBill
{
    const char *party; ///< as far as it is typed
    char taxType;      ///< typed in the list of tax types; 0 leaves what the place of supply gave
    std::vector<DemoLine> lines;
    const char *narration;
    double expectedTotal; ///< worked out by hand
    const char *pdf;
};

const DemoBill demoBills[] = {
    {"GUPTA",
     0,
     {{"Statutory audit for the year", 1, "F", "25000", ""},
      {"Income tax return of the firm", 5, "A", "7500", "500"},
      {"Certificates u/s 15CB (3 nos.)", 4, "", "1050", ""}},
     "Payable within 15 days",
     39000,
     "Bill_1_Intra-State.pdf"},
    {"KULKARNI",
     0,
     {{"GST returns, April to June", 4, "F", "12345", ""}, {"Book-keeping charges", 2, "F", "9000", "750"}},
     "",
     24302,
     "Bill_2_Inter-State.pdf"},
    {"GUPTA",
     'N',
     {{"Reimbursement of filing fees", 0, "", "1500", ""}, {"Stamp paper", 0, "", "200", ""}},
     "Exempted supply",
     1700,
     "Bill_3_No-Tax.pdf"},
};

/// One run of the demonstration over an open office.
class Demo
{
public:
    Demo(Office &office, MainWindow &window, QString outFolder, Look look)
        : m_office(office)
        , m_clerk(window)
        , m_window(window)
        , m_out(std::move(outFolder))
        , m_look(std::move(look))
    {
    }

    QString run();

private:
    void step(const QString &what, const std::function<void()> &keys);
    void check(bool holds, const QString &what);
    void createCompany();
    void addOtherClient(const QStringList &fields, const QString &state, const QStringList &rest);
    void chooseTemplates();
    void keyInBill(const DemoBill &bill);
    void keyInLine(const DemoLine &line);
    void savePdf(const DemoBill &bill);
    void modifyBill();
    void outOfOrderBill();
    void deleteBill();
    void refusedBill();
    void browse();
    void look(const char *name);
    void tellFiguresAndFiles();
    double stored(const QString &query);

    Office &m_office;
    Clerk m_clerk;
    MainWindow &m_window;
    QString m_out;
    Look m_look;
    QString m_fault;
    int m_bills = 0;
};

QString Demo::run()
{
    step(QStringLiteral("home screen opened"), [this] {
        m_clerk.press(Qt::Key_G, Qt::ControlModifier);
        look("home-first-start");
    });
    step(QStringLiteral("company SHARMA & ASSOCIATES created"), [this] { createCompany(); });
    step(QStringLiteral("two other clients added"), [this] {
        m_clerk.alt('O');
        look("other-clients-first-start");
        addOtherClient({"GUPTA TRADING COMPANY", "14", "GUPTA HOUSE", "CHANDNI CHOWK", "OLD DELHI", "DELHI", "110006"},
                       "DEL",
                       {"23456789", "", "", "9810012345", "accounts@gupta.example", "AABFG1234C", "07AABFG1234C1Z5"});
        addOtherClient(
            {"KULKARNI FOODS PVT. LTD.", "7/2", "SHREE APARTMENTS", "F C ROAD", "SHIVAJINAGAR", "PUNE", "411004"},
            "MAH", {"", "", "", "9822054321", "", "AADCK4321F", "27AADCK4321F1Z8"});
        look("other-clients");
        m_clerk.press(Qt::Key_Escape);
        check(stored(QStringLiteral("Select count(*) from GST_OthCl")) == 2,
              QStringLiteral("two other clients are stored"));
    });
    step(QStringLiteral("templates chosen"), [this] { chooseTemplates(); });
    step(QStringLiteral("bill screen opened"), [this] {
        m_clerk.alt('B');
        look("bill-screen-first-start");
    });
    for (const DemoBill &bill : demoBills) {
        step(QStringLiteral("bill %1 keyed in and saved").arg(m_bills + 1), [&] { keyInBill(bill); });
        step(QStringLiteral("its preview saved as ") + QLatin1String(bill.pdf), [&] { savePdf(bill); });
    }
    step(QStringLiteral("bill 3 modified"), [this] { modifyBill(); });
    step(QStringLiteral("its preview saved again"), [this] { savePdf(*std::rbegin(demoBills)); });
    step(QStringLiteral("bill 4 refused for its number, then for its date, then saved"), [this] { outOfOrderBill(); });
    step(QStringLiteral("bill 4 deleted"), [this] { deleteBill(); });
    step(QStringLiteral("bills browsed, by key and in the list"), [this] { browse(); });
    step(QStringLiteral("a bill refused by a check, and cancelled"), [this] { refusedBill(); });
    m_clerk.press(Qt::Key_G, Qt::ControlModifier);
    const DemoDesk desk{.clerk = m_clerk,
                        .window = m_window,
                        .step = [this](const QString &what, const std::function<void()> &keys) { step(what, keys); },
                        .check = [this](bool holds, const QString &what) { check(holds, what); },
                        .stored = [this](const QString &query) { return stored(query); },
                        .look = [this](const char *name) { look(name); },
                        .out = m_out};
    keyInReceipts(desk);
    m_clerk.press(Qt::Key_G, Qt::ControlModifier);
    printAccounts(desk);
    if (m_fault.isEmpty())
        tellFiguresAndFiles();
    return m_fault;
}

void Demo::step(const QString &what, const std::function<void()> &keys)
{
    if (!m_fault.isEmpty())
        return;
    QElapsedTimer clock;
    clock.start();
    keys();
    if (!m_clerk.fault().isEmpty())
        m_fault = m_clerk.fault(); // what came first explains what did not come after
    check(m_clerk.allBoxesCame(), QStringLiteral("every expected message came"));
    if (m_fault.isEmpty())
        std::printf("%7lld ms  %s\n", static_cast<long long>(clock.elapsed()), qPrintable(what));
    else
        m_fault = what + QStringLiteral(": ") + m_fault;
    std::fflush(stdout);
}

void Demo::check(bool holds, const QString &what)
{
    if (!holds && m_fault.isEmpty())
        m_fault = QStringLiteral("it does not hold that ") + what;
}

void Demo::look(const char *name)
{
    if (m_look)
        m_look(QLatin1String(name), m_window);
}

double Demo::stored(const QString &query)
{
    Recordset rows = m_office.connection().Open(query);
    return rows.next() ? rows.number(0) : -1;
}

void Demo::createCompany()
{
    m_clerk.alt('C');
    for (const char *text :
         {"SHARMA & ASSOCIATES", "CHARTERED ACCOUNTANTS", "305, NEHRU PLACE", "", "NEW DELHI", "110019"})
        m_clerk.enter(QLatin1String(text));
    m_clerk.choose(QStringLiteral("DEL"));
    m_clerk.press(Qt::Key_Return);
    for (const char *text :
         {"26412345", "", "", "", "", "9810098100", "office@sharma.example", "www.sharma.example", "AAAFS1234K",
          "07AAAFS1234K1Z5", "SHARMA & ASSOCIATES", "STATE BANK OF INDIA", "NEHRU PLACE", "30123456789", "SBIN0001234",
          "BY CHEQUE OR NEFT", "R K SHARMA", "PARTNER", ""})
        m_clerk.enter(QLatin1String(text));
    look("company-edit");
    m_clerk.alt('S');
    look("home");
    check(stored(QStringLiteral("Select count(*) from GST_FirmMas Where StateNm='DELHI' and GSTIN='07AAAFS1234K1Z5'"))
              == 1,
          QStringLiteral("the company is stored"));
}

void Demo::addOtherClient(const QStringList &fields, const QString &state, const QStringList &rest)
{
    m_clerk.alt('A');
    for (const QString &text : fields)
        m_clerk.enter(text);
    m_clerk.choose(state);
    m_clerk.press(Qt::Key_Return);
    for (const QString &text : rest)
        m_clerk.enter(text);
    look("other-client-edit");
    m_clerk.alt('S');
}

void Demo::chooseTemplates()
{
    m_clerk.alt('T');
    m_clerk.press(Qt::Key_Return);       // the common templates
    m_clerk.choose(QStringLiteral("S")); // single copy of bills
    m_clerk.press(Qt::Key_Return);
    m_clerk.choose(QStringLiteral("S")); // and of receipts
    look("template-setup");
    m_clerk.alt('B');
    check(QFileInfo(joinPath(joinPath(m_office.dataFolder(), QStringLiteral("GST_Templates")),
                             QStringLiteral("Settings.txt")))
                  .size()
              > 0,
          QStringLiteral("the choice of templates is stored"));
}

void Demo::keyInLine(const DemoLine &line)
{
    const auto pick = [this](int entry) {
        m_clerk.press(Qt::Key_Return); // opens the list
        if (entry > 0)
            look("bill-pick-list");
        m_clerk.press(Qt::Key_Home);
        m_clerk.press(Qt::Key_Down, Qt::NoModifier, entry);
        m_clerk.press(Qt::Key_Return);
    };
    m_clerk.enter(QLatin1String(line.particulars));
    line.sac > 0 ? pick(line.sac) : m_clerk.press(Qt::Key_Tab);
    if (*line.period) {
        pick(*line.period == 'F' ? 1 : 2);
        pick(0); // the latest year
    } else {
        m_clerk.press(Qt::Key_Tab, Qt::NoModifier, 2);
    }
    m_clerk.enter(QLatin1String(line.amount));
    m_clerk.enter(QLatin1String(line.discount));
    m_clerk.press(Qt::Key_Down);
    m_clerk.press(Qt::Key_Home);
    m_clerk.press(Qt::Key_Right);
}

void Demo::keyInBill(const DemoBill &bill)
{
    m_clerk.alt('A');
    m_clerk.type(QLatin1String(bill.party)); // the list follows; Enter takes the row
    look("bill-type-ahead");
    m_clerk.press(Qt::Key_Return);
    m_clerk.press(Qt::Key_Return, Qt::NoModifier, 4); // series, number, date, place of supply
    if (bill.taxType)
        m_clerk.choose(QString(QLatin1Char(bill.taxType)));
    m_clerk.press(Qt::Key_Return);
    for (const DemoLine &line : bill.lines)
        keyInLine(line);
    m_clerk.press(Qt::Key_Tab, Qt::NoModifier, 4);
    m_clerk.press(Qt::Key_Return); // an empty amount ends the lines
    m_clerk.type(QLatin1String(bill.narration));
    look("bill-entry");
    m_clerk.alt('U');
    ++m_bills;
    look("bill-saved");
    check(stored(QStringLiteral("Select count(*) from GST_BillM")) == m_bills, QStringLiteral("the bill is stored"));
    check(stored("Select sum(TotalAmt) from GST_BillD Where BillId=" + number(m_bills)) == bill.expectedTotal,
          QStringLiteral("its total is ") + plainNumber(bill.expectedTotal));
}

void Demo::savePdf(const DemoBill &bill)
{
    const QString path = joinPath(m_out, QLatin1String(bill.pdf));
    QFile::remove(path);
    m_clerk.expectFileDialog(path);
    m_clerk.alt('P');
    look("preview");
    m_clerk.press(Qt::Key_S, Qt::ControlModifier);
    m_clerk.press(Qt::Key_Escape);
    check(QFileInfo(path).size() > 0, QStringLiteral("the PDF file is there"));
}

void Demo::modifyBill()
{
    m_clerk.alt('M');
    m_clerk.press(Qt::Key_Return);
    m_clerk.press(Qt::Key_Tab, Qt::NoModifier, 3);
    m_clerk.type(QStringLiteral("1600"));
    m_clerk.alt('U'); // the amount is still being typed
    check(stored(QStringLiteral("Select sum(TotalAmt) from GST_BillD Where BillId=3")) == 1800,
          QStringLiteral("the changed bill comes to 1800"));
}

/// A number in use is refused; a date before that of a lower number is asked about.
void Demo::outOfOrderBill()
{
    const int year = financialYearOf(today());
    const QString firstDay = QStringLiteral("01/04/%1").arg(year);
    const QString question =
        outOfOrderQuestion(QStringLiteral("Bill"), true, QStringLiteral("3"),
                           formatDate(today(), QStringLiteral("DD/MM/YYYY")), QStringLiteral("4"), firstDay);
    m_clerk.alt('A');
    m_clerk.enter(QStringLiteral("KULKARNI"));
    m_clerk.press(Qt::Key_Return); // series
    m_clerk.press(Qt::Key_A, Qt::ControlModifier);
    m_clerk.enter(QStringLiteral("2"));
    m_clerk.press(Qt::Key_Home);
    m_clerk.enter(QStringLiteral("0104%1").arg(year));
    m_clerk.press(Qt::Key_Return, Qt::NoModifier, 2);
    keyInLine({"Appeal before the tribunal", 5, "A", "40000", ""});
    m_clerk.expectBox(QStringLiteral("Duplicate Bill No."));
    m_clerk.alt('U');
    m_clerk.type(QStringLiteral("4"));
    const bool earlier = today() > QDate(year, 4, 1); // on the first day itself nothing is out of order
    if (earlier) {
        m_clerk.expectBox(question, QMessageBox::No);
        m_clerk.alt('U');
        check(stored(QStringLiteral("Select count(*) from GST_BillM")) == m_bills, QStringLiteral("No stores nothing"));
        m_clerk.expectBox(question, QMessageBox::Yes);
    }
    m_clerk.alt('U');
    look("bill-out-of-order");
    check(stored(QStringLiteral("Select count(*) from GST_BillM Where BillNo=4")) == 1,
          QStringLiteral("Yes stores the bill"));
}

void Demo::deleteBill()
{
    m_clerk.expectBox(QStringLiteral("Do you want to Delete the Selected Bill No. 4?"), QMessageBox::Yes);
    m_clerk.alt('D');
    check(stored(QStringLiteral("Select count(*) from GST_BillM")) == m_bills, QStringLiteral("the bill is gone"));
    check(stored(QStringLiteral("Select count(*) from GST_BillD Where BillId>3")) == 0,
          QStringLiteral("and its lines"));
}

void Demo::browse()
{
    m_clerk.alt('V');
    look("bill-browsed");
    m_clerk.alt('H');
    look("bill-list");
    m_clerk.press(Qt::Key_Up);
    m_clerk.press(Qt::Key_Return);
    m_clerk.press(Qt::Key_M, Qt::AltModifier);
    m_clerk.press(Qt::Key_F12);
    look("bill-earlier-particulars");
    m_clerk.press(Qt::Key_Escape);
    look("bill-modify");
    m_clerk.alt('C');
}

void Demo::refusedBill()
{
    m_clerk.alt('A');
    m_clerk.enter(QStringLiteral("GUPTA"));
    m_clerk.press(Qt::Key_Return, Qt::NoModifier, 5);
    m_clerk.type(QStringLiteral("Consultation without an amount"));
    m_clerk.expectBox(QStringLiteral("Please specify Valid 'Amount' !"));
    m_clerk.alt('U');
    m_clerk.expectBox(QStringLiteral("Do you want to Cancel Entry?"), QMessageBox::Yes);
    m_clerk.press(Qt::Key_Escape);
    check(stored(QStringLiteral("Select count(*) from GST_BillM")) == m_bills,
          QStringLiteral("the refused bill is not stored"));
}

void Demo::tellFiguresAndFiles()
{
    Connection &db = m_office.connection();
    std::printf("\nBills stored: %d, receipts stored: %d\n", m_bills,
                int(stored(QStringLiteral("Select count(*) from GST_RecpM"))));
    Recordset parties = db.Open(QStringLiteral("Select OthClCode,Nm from GST_OthCl Order by Nm"));
    while (parties.next())
        std::printf("Balance of %s (%s): Rs. %s\n", qPrintable(parties.text(1)), qPrintable(parties.text(0)),
                    qPrintable(plainNumber(m_window.gst().GetAmt(1, parties.text(0)))));
    for (const DemoBill &bill : demoBills)
        std::printf("%s\n", qPrintable(joinPath(m_out, QLatin1String(bill.pdf))));
    for (const char *pdf : {receiptPdf, accountPdf})
        std::printf("%s\n", qPrintable(joinPath(m_out, QLatin1String(pdf))));
    std::printf("The office: %s\n", qPrintable(m_office.dataFolder()));
    check(QFileInfo(gLogPath).size() == 0, QStringLiteral("nothing stands in the error log ") + gLogPath);
}

/// An earlier demonstration's office makes room, when it is one and nobody works in it.
QString clearOffice(const QString &folder)
{
    if (!QFileInfo::exists(folder))
        return {};
    const bool begun = QFileInfo::exists(joinPath(folder, QStringLiteral("server/start.lock"))); // perhaps not whole
    if (!begun && !Office::exists(folder))
        return QStringLiteral("the folder [") + folder
               + QStringLiteral("] is there and is no office; it is left alone");
    ServerFolder server(folder);
    if (const QString fault = server.open(); !fault.isEmpty())
        return fault;
    if (server.serverLives())
        return QStringLiteral("the office in [") + folder + QStringLiteral("] is open in another program");
    return QDir(folder).removeRecursively()
               ? QString()
               : QStringLiteral("the folder [") + folder + QStringLiteral("] could not be replaced");
}

} // namespace

QString runDemo(const QString &outFolder, const Look &look)
{
    QElapsedTimer clock;
    clock.start();
    const QString out = QDir(outFolder).absolutePath();
    if (!QDir().mkpath(out))
        return QStringLiteral("the folder [") + out + QStringLiteral("] could not be made");
    const QString folder = joinPath(out, QStringLiteral("office"));
    if (const QString fault = clearOffice(folder); !fault.isEmpty())
        return fault;
    Office office(folder);
    if (!office.open())
        return office.error();
    std::printf("%7lld ms  new office, its database server started\n", static_cast<long long>(clock.restart()));
    MainWindow window(office);
    if (!window.isBillingOpen())
        return QStringLiteral("the billing library could not be opened");
    window.resize(1280, 720);
    window.show();
    window.activateWindow();
    Clerk::settle();
    std::printf("%7lld ms  window\n", static_cast<long long>(clock.elapsed()));
    return Demo(office, window, out, look).run();
}

} // namespace ledgora::app
