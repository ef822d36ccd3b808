#pragma once

#include "controls/ChoiceBox.h"
#include "controls/LineField.h"
#include "host/WorkingState.h"
#include "receipts/frmRecpGST.h"
#include "tests/support/Screens.h"
#include <QLabel>

namespace ledgora::test {

/// The receipt screen of company 1 of Delhi, with two clients; the first has three bills: one of 1180 with 90 CGST and
/// 90 SGST, and two without tax.
class ReceiptScreen : public ScreenTest
{
protected:
    enum Client { Ashok = 1, Bharat };

    void SetUp() override
    {
        ScreenTest::SetUp();
        addCompany(1, "SHARMA & ASSOCIATES");
        addClient(Ashok, "ASHOK TRADERS", "DELHI");
        addClient(Bharat, "BHARAT MILLS", "MAHARASHTRA");
        addBill(1, 1, QDate(2024, 5, 1), Ashok, 1180);
        data().run("Update GST_BillD Set TaxServAmt=1000,CGST=90,SGST=90 Where BillId=1");
        addBill(2, 2, QDate(2024, 5, 2), Ashok, 500);
        addBill(3, 3, QDate(2024, 6, 1), Ashok, 300);
        chooseCompany();
    }

    void open() { show(new frmRecpGST); }
    bool isEditing() const { return find<QWidget>("famedit")->isEnabled(); }
    QString status() const { return find<QLabel>("lblStatus")->text(); }
    QString hidden(const char *box) const { return find<LineField>(box)->hiddenValue(); }
    /// Texts of the boxes of a row: "bill|amount|discount|TDS|CGST|SGST|IGST".
    QString row(int index) const
    {
        QStringList texts;
        for (const char *name : {"txtBillSN", "txtAMT", "txtDISC", "txtTDS", "txtCGST", "txtSGST", "txtIGST"})
            texts << (index == 10 && texts.isEmpty() ? QString()
                                                     : text(QString("%1_%2").arg(name).arg(index).toLatin1()));
        return texts.join('|');
    }
    /// Numbers of the bills that the pop-up shows.
    QStringList offered() const
    {
        const Cells &bills = find<Grid>("vsfbr")->cells();
        QStringList numbers;
        for (int i = 1; i < bills.rows(); ++i) {
            if (!bills.isHidden(i))
                numbers << bills.text(i, 1);
        }
        return numbers;
    }

    /// Add, and the party by the beginning of its name; Enter through series, number and date to the first row.
    void keyHead(const QString &party = "ASHOK")
    {
        alt('A');
        type(party);
        press(Qt::Key_Return, Qt::NoModifier, 4);
    }
    /// The bill and the amounts of the row whose bill box has the keys; they end in the next one.
    void keyRow(const QString &bill, const QString &amount, const QString &discount = {}, const QString &tds = {})
    {
        for (const QString &field : {bill, amount, discount, tds}) {
            type(field);
            press(Qt::Key_Return);
        }
    }
    void keyCash(const QString &cash)
    {
        retype("txtCash", cash);
        press(Qt::Key_Return);
    }
    static QStringList storedReceipts()
    {
        return data().rows(
            "Select RecpSrNo,FirmId,FYr,Code_No,RecpSerId,RecpNo,date(RecpDt),Cash,PayMode,OthAmt,BankNm,"
            "BankBr,ChqNo,ChqDt,Narr From GST_RecpM Order by RecpSrNo");
    }
    static QStringList storedLines() { return data().rows("Select * From GST_RecpD Order by RecpId,SrNo"); }
};

} // namespace ledgora::test
