#pragma once

#include "controls/CompanyScreen.h"
#include "reports/ReportChoice.h"
#include "reports/ReportRequest.h"
#include <memory>

class QAbstractButton;

namespace ledgora {

namespace Ui {
class frmReportsGST;
}

/// Where a report of one company is chosen: on the first panel which one, its period and what is printed with the
/// names, on the second the parties. It can run any number of them, and keeps all choices.
class frmReportsGST : public CompanyScreen
{
    Q_OBJECT
public:
    explicit frmReportsGST(QWidget *parent = nullptr);
    ~frmReportsGST() override;

private:
    void FORM_LOAD();

    // First panel.
    void fillLists();
    void fillGroups();
    void connectChoice();
    void OPTREPORTS_CLICK();
    void CBOFYR_CLICK();
    bool TXTDT_VALIDATE(int index);
    void CMDPROCEEDM_CLICK();
    bool groupCodes(QString &codes);
    void showParties(const QString &codes);
    QString groupName() const; ///< as shown, "" when none is chosen
    QString reportNumber() const;
    ReportChoice choice() const;

    // Second panel (frmReportsGSTParties.cpp).
    void connectParties();
    void tellPartyKeys();
    bool VSFC_KEYDOWN(const QKeyEvent &key);
    bool TXTFIND_KEYDOWN(const QKeyEvent &key);
    void findParty(const QString &typed);
    void tickRow(int row);
    void tickShown();
    void VSFC_HEADERCLICK(int column);
    void showTicked();
    void CMDPROCEEDC_CLICK();
    ReportRequest request() const;
    PartyDetails details() const;

    bool onSecondPanel() const;
    bool hasOpenEntry() const override { return onSecondPanel(); }
    void bringUpToDate() override;
    void escapePressed() override;

    template<class Control>
    Control *member(const char *array, int index) const
    {
        return findChild<Control *>(QStringLiteral("%1_%2").arg(QLatin1String(array)).arg(index));
    }

    std::unique_ptr<Ui::frmReportsGST> ui;
    QString m_partiesFault; ///< "" or why parties may be missing in the list
};

} // namespace ledgora
