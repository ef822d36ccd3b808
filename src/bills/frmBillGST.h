#pragma once

#include "bills/BillStore.h"
#include "controls/DocumentScreen.h"
#include <memory>
#include <utility>

namespace ledgora {

namespace Ui {
class frmBillGST;
}

struct BillFault;
struct BillDocument;

/// Entry, browsing, changing and deleting of one company's tax invoices of a financial year.
class frmBillGST : public DocumentScreen
{
    Q_OBJECT
public:
    explicit frmBillGST(QWidget *parent = nullptr);
    ~frmBillGST() override;

private:
    void FORM_LOAD();
    void setUpLines();
    void connectLines();

    void LOADBILLGRID(int id);
    void CMDUPDATE_CLICK();
    void CMDPREVIEW_CLICK();
    void GETLISTP();
    void VSB_AFTEREDIT(int row, int column);
    void VSB_KEYPRESS_ENTER(int row, int column);
    void CBOPOS_CLICK();
    void CBOTAXTYPE_CLICK();
    void SETTAXCOLS();
    void recomputeTotals();

    BillDraft read() const;
    BillDocument documentFromScreen() const;
    void pointAt(const BillFault &fault);
    std::optional<TaxType> taxType() const;
    void toFirstLine();

    void loadList(int id) override { LOADBILLGRID(id); }
    void clearPanel() override;
    void showPanel(int listRow) override;
    void yearChanged(int year) override;
    void beginAdd() override;
    void beginModify() override;
    int highestNumber() override;
    bool removeStored(int id) override;
    void partyLeft() override;
    QStringList narrationsUsed() override;
    void updatePressed() override { CMDUPDATE_CLICK(); }
    void previewPressed() override { CMDPREVIEW_CLICK(); }
    std::optional<StoredDocument> asStored(int id) override;
    void placeList() override;
    bool closeOwnPopup() override;

    std::unique_ptr<Ui::frmBillGST> ui;
    QListWidget *m_particulars = nullptr;
    std::pair<int, int> m_dropped{-1, -1}; ///< row and column in which what was typed last was no entry
};

} // namespace ledgora
