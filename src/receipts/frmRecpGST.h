#pragma once

#include "controls/DocumentScreen.h"
#include "receipts/ReceiptChecks.h"
#include <array>
#include <memory>
#include <vector>

namespace ledgora {

namespace Ui {
class frmRecpGST;
}

struct ReceiptDocument;
struct ReceivedMoney;
struct SettledBill;

/// The boxes of a row. The row of totals has no bill, and nothing is typed into it.
struct ReceiptRowBoxes
{
    LineField *bill = nullptr; ///< the bill's number, its id as hidden value
    QLabel *hint = nullptr;    ///< amount and date of the bill
    LineField *amount = nullptr, *discount = nullptr, *tds = nullptr;
    LineField *cgst = nullptr, *sgst = nullptr, *igst = nullptr;
};

/// Entry, browsing, changing and deleting of the money that one company received against its bills in a financial
/// year. Ten rows each settle one bill; the tax inside a row is worked out and shown, never stored.
class frmRecpGST : public DocumentScreen
{
    Q_OBJECT
public:
    explicit frmRecpGST(QWidget *parent = nullptr);
    ~frmRecpGST() override;

private:
    static constexpr int totalRow = receiptRowCount;
    static constexpr int popupWidth = 380;

    void FORM_LOAD();
    void setUpList();
    void LOADRECPGRID(int id);
    void LOADBANKDET();
    void CMDUPDATE_CLICK();
    ReceiptDraft read() const;
    bool paysTooMuch();
    void pointAt(const ReceiptFault &fault);

    // The money block (frmRecpGSTMoney.cpp).
    void connectMoney();
    void clearMoney();
    void showMoney(const Cells &list, int listRow);
    void CBOOTHMODETYPE_CLICK();
    void choosePayMode(PayMode mode);
    bool TXTCASH_VALIDATE();
    bool TXTOTHMODEAMT_VALIDATE();
    bool TXTOTHMODEDT_VALIDATE();
    void showReceived();
    PayMode payMode() const;

    // The ten rows and the tax inside each (frmRecpGSTRows.cpp).
    void makeRows();
    void makeRow(int row);
    LineField *makeBox(const char *name, const QString &heading, int row, int column);
    void connectRows();
    void connectAmount(LineField *box, const std::function<bool()> &validate);
    void clearRows();
    void showRows(int receiptId);
    ReceiptRows readRows() const;
    bool TXTAMT_VALIDATE(int row);
    bool TXTDISC_VALIDATE(int row);
    bool TXTTDS_VALIDATE(int row);
    bool settleAmount(LineField *box);
    bool checkOverpaid(int row, LineField *field);
    void GETTAXAMTS();
    void GETTOTSR();

    // The bills that the rows settle, and their pop-up (frmRecpGSTBills.cpp).
    void setUpBills();
    static void setHint(const ReceiptRowBoxes &boxes, const QString &hint);
    void showBill(int row, int listRow);
    void loadBills();
    void refreshBills();
    void billsChanged();
    void CHECKRECPS();
    void serve(int row);
    void stopServing();
    void TXTBILLSN_GOTFOCUS(int row);
    void TXTBILLSN_CHANGE(int row, const QString &typed);
    bool TXTBILLSN_KEYDOWN(int row, QKeyEvent *key);
    bool TXTBILLSN_LOSTFOCUS(int row);
    int receiptId() const; ///< of the receipt on show, 0 for a new one

    // The document of what stands on the screen (frmRecpGSTPreview.cpp).
    void CMDPREVIEW_CLICK();
    ReceiptDocument documentFromScreen() const;
    std::vector<SettledBill> settledBills() const;
    ReceivedMoney moneyFromScreen() const;

    void loadList(int id) override { LOADRECPGRID(id); }
    void clearPanel() override;
    void showPanel(int listRow) override;
    void beginAdd() override;
    void beginModify() override;
    int highestNumber() override;
    bool removeStored(int id) override;
    void partyLeft() override { billsChanged(); }
    void dateLeft() override { billsChanged(); }
    QStringList narrationsUsed() override;
    void updatePressed() override { CMDUPDATE_CLICK(); }
    void previewPressed() override { CMDPREVIEW_CLICK(); }
    std::optional<StoredDocument> asStored(int id) override;
    void placeList() override;
    bool closeOwnPopup() override;

    std::unique_ptr<Ui::frmRecpGST> ui;
    std::array<ReceiptRowBoxes, receiptRowCount + 1> m_rows;
    Grid *m_bills = nullptr; ///< `vsfbr`
    int m_servedRow = -1;    ///< the row that `vsfbr` serves, -1 for none
};

} // namespace ledgora
