#pragma once

#include "bills/BillLines.h"
#include "bills/frmBillGST.h"
#include "host/WorkingState.h"
#include "tests/support/Screens.h"
#include <QLineEdit>
#include <QListWidget>

namespace ledgora::test {

/// The bill screen of company 1 of Delhi, with three clients: two of the company's state, one of another.
class BillScreen : public ScreenTest
{
protected:
    enum Client { Ashok = 1, Bharat, Chetak };
    static constexpr int firstLine = 3; ///< rows 0 to 2 are headings and totals

    void SetUp() override
    {
        ScreenTest::SetUp();
        addCompany(1, "SHARMA & ASSOCIATES");
        addClient(Ashok, "ASHOK TRADERS", "DELHI");
        addClient(Bharat, "BHARAT MILLS", "MAHARASHTRA");
        addClient(Chetak, "CHETAK STORES", "DELHI");
        chooseCompany();
    }

    void open() { show(new frmBillGST); }
    bool isEditing() const { return find<QWidget>("famedit")->isEnabled(); }
    const Cells &lines() const { return find<Grid>("vsB")->cells(); }
    const Cells &list() const { return find<Grid>("vsListB")->cells(); }
    QString cell(int row, int column) const { return lines().text(row, column); }

    /// Add, the party by the beginning of its name, and Enter through series, number, date, place and tax type.
    void keyHead(const QString &party)
    {
        alt('A');
        type(party);
        press(Qt::Key_Return, Qt::NoModifier, 6);
    }
    /// Particulars and amount of the line that the cursor is on; the cursor stays in the amount.
    void keyLine(const QString &particulars, const QString &amount)
    {
        type(particulars);
        press(Qt::Key_Tab, Qt::NoModifier, 4);
        type(amount);
    }
    /// A new bill as far as the amount of its first line, where the cursor stays.
    void enterBill(const QString &party, const QString &particulars, const QString &amount)
    {
        open();
        keyHead(party);
        keyLine(particulars, amount);
    }
    static QStringList storedBills()
    {
        return data().rows(
            "Select BillNo,date(BillDt),Code_No,PlaceOfServ,AppTaxType,Narr From GST_BillM Order by BillSrNo");
    }
    static QStringList storedLines()
    {
        return data().rows("Select BillId,SrNo,part,ServAmt,TotalAmt From GST_BillD Order by BillId,SrNo");
    }
};

} // namespace ledgora::test
