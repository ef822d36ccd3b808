#include "reports/frmReportsGST.h"

#include "controls/CommandButton.h"
#include "controls/Grid.h"
#include "masters/ClientGroups.h"
#include "platform/HostObject.h"
#include "reports/ReportParties.h"
#include "store/Connection.h"
#include "store/Dates.h"
#include "store/ErrorLog.h"
#include "store/FailureWatch.h"
#include "ui_frmReportsGST.h"

namespace ledgora {

namespace {

constexpr int reportCount = 8;
constexpr int groupRow = 1;
constexpr auto selectEntry = "(Select)";

} // namespace

frmReportsGST::frmReportsGST(QWidget *parent) : CompanyScreen(parent), ui(std::make_unique<Ui::frmReportsGST>())
{
    ui->setupUi(this);
    FORM_LOAD();
}

frmReportsGST::~frmReportsGST() = default;

void frmReportsGST::FORM_LOAD()
{
    const ErrorSite site("frmReportsGST", "FORM_LOAD");
    gHostObj->Resize_For_Resolution(*this);
    tellCompany();
    ui->lblFirm->setText(gFirmName);
    const FailureWatch watch(*gCnn);
    connectChoice();
    connectParties();
    fillGroups();
    fillLists();
    ui->vsfc->change([](Cells &parties) { loadReportParties(*gCnn, gHostCode, parties); });
    m_partiesFault = watch.fault();
    ui->txtdt_2->setDate(formatDate(today(), QStringLiteral("DD/MM/YYYY")));
    ui->txtdt_3->setDate(ui->txtdt_2->date());
    ui->txtdt_3->setEnabled(false);
    ui->OptReports_0->setChecked(true);
    OPTREPORTS_CLICK();
}

void frmReportsGST::fillLists()
{
    for (const char *entry : sacEntries)
        ui->cboSAC->addItem(QLatin1String(entry));
    const QStringList years = reportYears(gRegYr);
    ui->cbofyr->addItems(years);
    ui->cbofyr->choose(openingReportYear(int(years.size()), gRegYr, today()));
    for (ChoiceBox *list : {ui->cboOutAmt_0, ui->cboOutAmt_1})
        list->addItems({QLatin1String(selectEntry), QStringLiteral("> (Greater Than)"), QStringLiteral("< (Less Than)"),
                        QStringLiteral(">= (Greater Than Or Equal To)"), QStringLiteral("<= (Less Than Or Equal To)"),
                        QStringLiteral("= (Equal To)"), QStringLiteral("!= (Not Equal To)")});
}

void frmReportsGST::bringUpToDate()
{
    ui->lblFirm->setText(gFirmName);
    const QString group = ui->vsfg->cells().text(groupRow, 0);
    fillGroups();
    const auto &offered = ui->vsfg->column(0).picks;
    if (std::ranges::any_of(offered, [&group](const Pick &pick) { return pick.key == group; }))
        ui->vsfg->change([&group](Cells &choice) { choice.setText(groupRow, 0, group); });
    ui->vsfc->change([](Cells &parties) { reloadReportParties(*gCnn, gHostCode, parties); });
}

/// Only the clients of host "G" are in groups.
void frmReportsGST::fillGroups()
{
    const QString none = QLatin1String(selectEntry);
    std::vector<Pick> groups{{none, none, none}};
    for (const ClientGroup &group : clientGroups(*gCnn, gHostCode))
        groups.push_back({group.code, group.name, group.name});
    Cells group(1, groupRow);
    group.setText(0, 0, QStringLiteral("Group"));
    group.addRow({none});
    ui->vsfg->setCells(std::move(group));
    ui->vsfg->column(0).picks = std::move(groups);
    ui->vsfg->setEditRules([](int, int) { return true; }, {});
    ui->vsfg->setWidths({1}, 0);
    ui->vsfg->setFixedHeight(2 * ui->vsfg->verticalHeader()->defaultSectionSize() + 2 * ui->vsfg->frameWidth());
    ui->vsfg->setEnabled(gHostCode == QLatin1String("G"));
    ui->vsfg->setCursor(groupRow, 0);
}

void frmReportsGST::connectChoice()
{
    for (int i = 0; i < reportCount; ++i)
        on(member<QRadioButton>("OptReports", i), &QRadioButton::toggled, [this](bool) { OPTREPORTS_CLICK(); });
    on(ui->cbofyr, &ChoiceBox::chosen, [this](int) { CBOFYR_CLICK(); });
    on(ui->chkDt3, &QCheckBox::toggled, [this](bool ticked) { ui->txtdt_3->setEnabled(ticked); });
    on(ui->vsfg, &Grid::enterPressed, [this](int, int) { ui->cmdProceedM->setFocus(); });
    for (int i = 0; i < 4; ++i)
        field(member<DateField>("txtdt", i)).validate = [this, i] { return TXTDT_VALIDATE(i); };
    for (QWidget *widget : ui->famM->findChildren<QWidget *>()) {
        if (!qobject_cast<QPushButton *>(widget) && !qobject_cast<Grid *>(widget)
            && widget->focusPolicy() != Qt::NoFocus)
            enterMovesOn({widget});
    }
    command(ui->cmdProceedM, [this] { CMDPROCEEDM_CLICK(); });
    command(ui->cmdBackM, [this] { escapePressed(); });
    tellKeys({
        {ui->famM, "Up, Down", "Chooses the report"},
        {ui->famM, "Space", "Ticks what is printed with the names"},
        {ui->famM, "Enter", "Goes to the next field"},
        {ui->famM, "Esc", "Closes the screen"},
    });
}

QString frmReportsGST::reportNumber() const
{
    for (int i = 0; i < reportCount; ++i) {
        if (member<QRadioButton>("OptReports", i)->isChecked())
            return QString::number(i);
    }
    return {};
}

ReportChoice frmReportsGST::choice() const
{
    return {.report = reportNumber(),
            .year = ui->cbofyr->currentIndex() >= 1 ? ui->cbofyr->currentText() : QString(),
            .from = ui->txtdt_0->text(),
            .to = ui->txtdt_1->text(),
            .asOn = ui->txtdt_2->text(),
            .billsUpTo = ui->txtdt_3->text(),
            .limitsBills = ui->chkDt3->isChecked()};
}

void frmReportsGST::OPTREPORTS_CLICK()
{
    const ReportChoice chosen = choice();
    ui->famPrd->setVisible(!chosen.report.isEmpty() && !chosen.isOutstanding());
    ui->famOutAmt->setVisible(chosen.isOutstanding());
    ui->famSAC->setVisible(chosen.isServices());
}

void frmReportsGST::CBOFYR_CLICK()
{
    if (ui->cbofyr->currentIndex() < 1)
        return;
    const ReportPeriod period = periodOfYear(ui->cbofyr->currentText());
    ui->txtdt_0->setDate(period.from);
    ui->txtdt_1->setDate(period.to);
}

bool frmReportsGST::TXTDT_VALIDATE(int index)
{
    auto *field = member<DateField>("txtdt", index);
    if (field->date().isEmpty())
        return true;
    const QString date = wholeDate(field->text());
    if (date.isEmpty()) {
        inform(QStringLiteral("Please Specify a Valid Date."), field);
        return false;
    }
    field->setDate(date);
    return true;
}

void frmReportsGST::CMDPROCEEDM_CLICK()
{
    const ErrorSite site("frmReportsGST", "CMDPROCEEDM_CLICK");
    const ReportChoice chosen = choice();
    ui->chkBillNo->setVisible(chosen.isAccount());
    if (const auto fault = choiceFault(chosen))
        return inform(fault->message, findChild<QWidget *>(fault->field));
    QString codes;
    if (groupCodes(codes))
        showParties(codes);
}

/// The codes of the chosen group, "" when none is chosen. False for a group without members, which was told.
bool frmReportsGST::groupCodes(QString &codes)
{
    const QString group = ui->vsfg->cells().text(groupRow, 0);
    if (group == QLatin1String(selectEntry))
        return true;
    const FailureWatch watch(*gCnn);
    codes = GETGROUPCLS(*gCnn, group);
    if (watch.failed()) {
        inform(watch.fault(), ui->vsfg);
        return false;
    }
    if (codes.isEmpty())
        inform("No Client in Group '" + groupName() + "' !", ui->vsfg);
    return !codes.isEmpty();
}

QString frmReportsGST::groupName() const
{
    const QString group = ui->vsfg->cells().text(groupRow, 0);
    return group == QLatin1String(selectEntry) ? QString()
                                               : ui->vsfg->model()->index(groupRow, 0).data(Qt::DisplayRole).toString();
}

void frmReportsGST::showParties(const QString &codes)
{
    int first = -1;
    ui->vsfc->change([&](Cells &parties) { first = showGroup(parties, codes); });
    ui->lblReport->setText(member<QRadioButton>("OptReports", reportNumber().toInt())->text().remove(u'&'));
    ui->txtFind->clear();
    ui->panels->setCurrentWidget(ui->famC);
    ui->vsfc->setFocus();
    ui->vsfc->setRow(first);
    showTicked();
}

bool frmReportsGST::onSecondPanel() const
{
    return ui->panels->currentWidget() == ui->famC;
}

void frmReportsGST::escapePressed()
{
    if (!onSecondPanel()) {
        close();
        return;
    }
    ui->panels->setCurrentWidget(ui->pageM);
    ui->cmdProceedM->setFocus();
    entryEnded();
}

} // namespace ledgora
