#include "DemoReceipts.h"

#include "Clerk.h"
#include "store/Dates.h"
#include "store/NumberFormat.h"
#include "store/Settings.h"
#include <QFile>
#include <QFileInfo>
#include <QLineEdit>
#include <vector>

namespace ledgora::app {

namespace {

struct DemoRow
{
    const char *bill, *amount, *discount, *tds;
};

struct DemoReceipt
{
    const char *what;
    const char *party; ///< as far as it is typed
    std::vector<DemoRow> rows;
    const char *cash;
    const char *mode;                ///< typed in the list of modes, "" for none
    std::vector<const char *> other; ///< the fields that the mode opens; behind them a cheque's date, the receipt's
    const char *narration;
    double tax; ///< inside its amounts, worked out by hand
};

const DemoReceipt demoReceipts[] = {
    {"a part payment in cash", "GUPTA", {{"1", "20000", "", ""}}, "20000", "", {}, "On account", 3052},
    {"a cheque less TDS",
     "KULKARNI",
     {{"2", "24302", "", "2060"}},
     "",
     "Ch",
     {"22242", "BANK OF MAHARASHTRA", "DECCAN GYMKHANA", "004512"},
     "TDS at 10 percent",
     3707},
    {"a transfer with a discount", "GUPTA", {{"1", "9000", "1000", ""}}, "", "NEFT", {"9000", "UTR 5521"}, "", 1374},
    {"one receipt over two bills",
     "GUPTA",
     {{"1", "9000", "", ""}, {"3", "1000", "", ""}},
     "1000",
     "Ch",
     {"9000", "STATE BANK OF INDIA", "NEHRU PLACE", "771203"},
     "Cash and cheque",
     1372},
};

class ReceiptClerk
{
public:
    explicit ReceiptClerk(const DemoDesk &desk) : m_desk(desk), m_clerk(desk.clerk) {}

    void keyIn(const DemoReceipt &receipt)
    {
        keyHead(receipt.party);
        for (const DemoRow &row : receipt.rows) {
            m_clerk.type(QLatin1String(row.bill));
            m_desk.look("receipt-bills-offered");
            m_clerk.press(Qt::Key_Return);
            for (const char *amount : {row.amount, row.discount, row.tds})
                m_clerk.enter(QLatin1String(amount));
        }
        m_clerk.press(Qt::Key_Return); // a row without a bill ends the rows
        m_clerk.enter(QLatin1String(receipt.cash));
        if (*receipt.mode)
            m_clerk.choose(QLatin1String(receipt.mode));
        m_clerk.press(Qt::Key_Return);
        for (const char *field : receipt.other)
            m_clerk.enter(QLatin1String(field));
        if (qstrcmp(receipt.mode, "Ch") == 0)
            m_clerk.enter(today().toString(QStringLiteral("ddMMyyyy")));
        m_clerk.type(QLatin1String(receipt.narration));
        m_desk.look("receipt-entry");
        m_desk.check(taxShown() == receipt.tax, QStringLiteral("the tax inside is Rs. ") + plainNumber(receipt.tax));
        m_clerk.alt('U');
        m_desk.look("receipt-saved");
        ++m_count;
        m_desk.check(m_desk.stored(QStringLiteral("Select count(*) from GST_RecpM")) == m_count,
                     QStringLiteral("the receipt is stored"));
    }

    /// A bill can not be paid more than it charges.
    void overpay()
    {
        keyHead("GUPTA");
        m_clerk.enter(QStringLiteral("3"));
        m_clerk.type(QStringLiteral("1801"));
        m_clerk.expectBox(QStringLiteral("Total Receipt Amount can not be Greater than Bill Amount."));
        m_clerk.press(Qt::Key_Return);
        m_clerk.expectBox(QStringLiteral("Do you want to Cancel Entry?"), QMessageBox::Yes);
        m_clerk.press(Qt::Key_Escape);
    }

    void savePdf()
    {
        const QString path = joinPath(m_desk.out, QLatin1String(receiptPdf));
        QFile::remove(path);
        m_clerk.expectFileDialog(path);
        m_clerk.alt('P');
        m_desk.look("receipt-preview");
        m_clerk.press(Qt::Key_S, Qt::ControlModifier);
        m_clerk.press(Qt::Key_Escape);
        m_desk.check(QFileInfo(path).size() > 0, QStringLiteral("the PDF file is there"));
    }

    void browse()
    {
        m_clerk.alt('H');
        m_desk.look("receipt-list");
        m_clerk.press(Qt::Key_Up);
        m_clerk.press(Qt::Key_Return);
        m_clerk.alt('M');
        m_desk.look("receipt-modify");
        m_clerk.alt('C');
    }

private:
    void keyHead(const char *party)
    {
        m_clerk.alt('A');
        m_clerk.enter(QLatin1String(party));
        m_clerk.press(Qt::Key_Return, Qt::NoModifier, 3); // series, number, date
    }

    double taxShown() const
    {
        double tax = 0;
        for (const char *total : {"txtCGST_10", "txtSGST_10", "txtIGST_10"})
            tax += Val(m_desk.window.findChild<QLineEdit *>(QLatin1String(total))->text());
        return tax;
    }

    const DemoDesk &m_desk;
    Clerk &m_clerk;
    int m_count = 0;
};

} // namespace

void keyInReceipts(const DemoDesk &desk)
{
    ReceiptClerk clerk(desk);
    desk.step(QStringLiteral("receipt screen opened"), [&] {
        desk.clerk.altOfTwo('R', "cmdRecps");
        desk.look("receipt-screen-first-start");
    });
    desk.step(QStringLiteral("a receipt refused that would overpay its bill"), [&] { clerk.overpay(); });
    int number = 0;
    for (const DemoReceipt &receipt : demoReceipts)
        desk.step(QStringLiteral("receipt %1 keyed in: %2").arg(++number).arg(QLatin1String(receipt.what)),
                  [&] { clerk.keyIn(receipt); });
    desk.step(QStringLiteral("its preview saved as ") + QLatin1String(receiptPdf), [&] { clerk.savePdf(); });
    desk.step(QStringLiteral("receipts browsed in the list"), [&] { clerk.browse(); });
}

} // namespace ledgora::app
