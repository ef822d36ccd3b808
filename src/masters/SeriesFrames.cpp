// The frame of the home screen for series: texts that are added to the numbers of bills and receipts, by financial
// year, shared by all companies. List and edit fields stand side by side; one of them is open at a time.

#include "masters/frmMainGST.h"

#include "bills/EntryRules.h"
#include "host/WorkingState.h"
#include "masters/EditFields.h"
#include "masters/SeriesStore.h"
#include "store/Connection.h"
#include "store/DocumentNumber.h"
#include "store/ErrorLog.h"
#include "ui_frmMainGST.h"
#include <QButtonGroup>

namespace ledgora {

namespace {

/// Tab leads to the option that is chosen; Qt sees to that only for a choice that the user made.
void chooseOption(QRadioButton &option)
{
    option.setChecked(true);
    for (QAbstractButton *each : option.group()->buttons())
        each->setFocusPolicy(each == &option ? Qt::StrongFocus : Qt::ClickFocus);
}

} // namespace

void frmMainGST::connectSeries()
{
    ui->cboSeriesFY->addItems(financialYears(gRegYr));
    ui->vsSeries->setListMode();
    ui->vsSeries->setCells(emptySeriesList());
    ui->vsSeries->setColumnHidden(SeriesId, true);
    ui->vsSeries->setWidths({0, 0.18, 0.16, 0, 0.2}, SeriesText);
    enterMovesOn({ui->optSeriesB, ui->optSeriesR, ui->cboSeriesFY, ui->optSeriesPrefix, ui->optSeriesSuffix});
    on(ui->vsSeries, &Grid::rowChanged, [this](int) { showSeries(); });
    on(ui->vsSeries, &Grid::rowActivated, [this](int) { CMDSERIESMODIFY_CLICK(); });
    on(ui->txtSeriesStr, &QLineEdit::textChanged, [this](const QString &) { showSeriesSample(); });
    on(ui->optSeriesSuffix, &QRadioButton::toggled, [this](bool) { showSeriesSample(); });
    command(ui->cmdSeriesMas, [this] { CMDSERIESMAS_CLICK(); });
    command(ui->cmdSeriesAdd, [this] { CMDSERIESADD_CLICK(); });
    command(ui->cmdSeriesModify, [this] { CMDSERIESMODIFY_CLICK(); });
    command(ui->cmdSeriesDelete, [this] { CMDSERIESDELETE_CLICK(); });
    command(ui->cmdSeriesUpdate, [this] { CMDSERIESUPDATE_CLICK(); });
    command(ui->cmdSeriesCancel, [this] { CMDSERIESCANCEL_CLICK(); });
    command(ui->cmdBackSeries, [this] { showHome(ui->cmdSeriesMas); });
}

void frmMainGST::CMDSERIESMAS_CLICK()
{
    if (!m_seriesLoaded)
        LOADGRIDSERIES(0);
    m_seriesLoaded = true;
    setSeriesBrowsing(true);
    showFrame(ui->famSeriesMain);
    ui->vsSeries->setFocus();
}

void frmMainGST::LOADGRIDSERIES(int seriesId)
{
    const ErrorSite site("frmMainGST", "LOADGRIDSERIES");
    ui->vsSeries->change([seriesId](Cells &series) { loadSeriesList(*gCnn, series, seriesId); });
    const Cells &series = ui->vsSeries->cells();
    const int row = seriesId != 0 ? series.find(QString::number(seriesId), SeriesId) : -1;
    ui->vsSeries->setRow(row >= 0 ? row : series.fixedRows());
    ui->lblSeriesHint->setText(QStringLiteral("There is no series yet. Press Alt+A to add one."));
    ui->lblSeriesHint->setVisible(!series.hasData());
    showSeries();
}

/// Either the list and its commands can be used, or the fields and theirs.
void frmMainGST::setSeriesBrowsing(bool browse)
{
    m_seriesBrowsing = browse;
    for (QWidget *widget :
         std::initializer_list<QWidget *>{ui->vsSeries, ui->cmdSeriesAdd, ui->cmdSeriesModify, ui->cmdSeriesDelete})
        widget->setEnabled(browse);
    for (QWidget *widget :
         std::initializer_list<QWidget *>{ui->famSeriesEdit, ui->cmdSeriesUpdate, ui->cmdSeriesCancel})
        widget->setEnabled(!browse);
    ui->cmdBackSeries->setEnabled(browse);
    showAsDocument(*ui->famSeriesEdit, browse);
}

void frmMainGST::showSeries()
{
    writeSeries(seriesOfRow(ui->vsSeries->cells(), ui->vsSeries->row()));
}

void frmMainGST::writeSeries(const SeriesEntry &entry)
{
    chooseOption(*(entry.ofReceipts ? ui->optSeriesR : ui->optSeriesB));
    chooseOption(*(entry.suffix ? ui->optSeriesSuffix : ui->optSeriesPrefix));
    ui->cboSeriesFY->chooseText(entry.year);
    ui->txtSeriesStr->setText(entry.text);
}

SeriesEntry frmMainGST::readSeries() const
{
    return {.ofReceipts = ui->optSeriesR->isChecked(),
            .year = ui->cboSeriesFY->currentText(),
            .text = ui->txtSeriesStr->text(),
            .suffix = ui->optSeriesSuffix->isChecked()};
}

void frmMainGST::showSeriesSample()
{
    const SeriesEntry entry = readSeries();
    const QString position = entry.suffix ? QStringLiteral("S") : QStringLiteral("P");
    ui->lblSeriesSample->setText(entry.text.isEmpty() ? QString()
                                                      : QStringLiteral("No. 25 prints as ")
                                                            + joinSeries(entry.text, position, QStringLiteral("25")));
}

bool frmMainGST::hasChosenSeries()
{
    if (ui->vsSeries->cells().isData(ui->vsSeries->row()))
        return true;
    inform(QStringLiteral("Please Select a Series."), ui->vsSeries);
    return false;
}

/// Whether no document bears the series; else `message` is shown.
bool frmMainGST::seriesIsFree(int id, bool ofReceipts, const QString &message)
{
    switch (seriesUse(*gCnn, id, ofReceipts)) {
    case SeriesUse::Unused:
        return true;
    case SeriesUse::Used:
        inform(message);
        return false;
    case SeriesUse::Unknown:
        alarm(QStringLiteral("The database did not tell whether the series has been used. Please try again."));
        return false;
    }
    return false;
}

void frmMainGST::CMDSERIESADD_CLICK()
{
    m_addMode = true;
    m_editedId = 0;
    writeSeries({});
    setSeriesBrowsing(false);
    ui->optSeriesB->setFocus();
}

void frmMainGST::CMDSERIESMODIFY_CLICK()
{
    if (!hasChosenSeries())
        return;
    // A series can not change between bills and receipts: documents of one kind may bear it.
    ui->optSeriesB->setEnabled(false);
    ui->optSeriesR->setEnabled(false);
    m_addMode = false;
    m_editedId = int(ui->vsSeries->cells().value(ui->vsSeries->row(), SeriesId));
    setSeriesBrowsing(false);
    ui->cboSeriesFY->setFocus();
}

void frmMainGST::CMDSERIESUPDATE_CLICK()
{
    const ErrorSite site("frmMainGST", "CMDSERIESUPDATE_CLICK");
    const SeriesEntry entry = readSeries();
    if (entry.text.trimmed().isEmpty())
        return inform(QStringLiteral("Please Specify Series Specification."), ui->txtSeriesStr);
    if (entry.year.isEmpty())
        return inform(QStringLiteral("Please Specify Financial Year."), ui->cboSeriesFY);
    InsertResult result{m_editedId, false};
    if (m_addMode) {
        result = insertSeries(*gCnn, entry);
    } else {
        const SeriesEntry stored = seriesOfRow(ui->vsSeries->cells(), ui->vsSeries->row());
        if (entry.year != stored.year
            && !seriesIsFree(m_editedId, entry.ofReceipts,
                             QStringLiteral("This Series has been Used. You can't Modify the 'F.Y.' in the Series.")))
            return;
        result.inserted = updateSeries(*gCnn, m_editedId, entry);
    }
    if (tellsUnsaved(*this, result.inserted, result.id, QStringLiteral("Update")))
        return;
    LOADGRIDSERIES(result.id);
    CMDSERIESCANCEL_CLICK();
}

void frmMainGST::CMDSERIESCANCEL_CLICK()
{
    setSeriesBrowsing(true);
    ui->optSeriesB->setEnabled(true);
    ui->optSeriesR->setEnabled(true);
    showSeries();
    (m_addMode ? ui->cmdSeriesAdd : ui->cmdSeriesModify)->setFocus();
}

void frmMainGST::CMDSERIESDELETE_CLICK()
{
    const ErrorSite site("frmMainGST", "CMDSERIESDELETE_CLICK");
    if (!hasChosenSeries())
        return;
    const Cells &series = ui->vsSeries->cells();
    const int id = int(series.value(ui->vsSeries->row(), SeriesId));
    if (!seriesIsFree(id, seriesOfRow(series, ui->vsSeries->row()).ofReceipts,
                      QStringLiteral("This Series has been Used. You can't Delete the Series.")))
        return;
    if (!deleteSeries(*gCnn, id))
        alarm(QStringLiteral("The database did not delete the series. Please try again."));
    LOADGRIDSERIES(id);
}

} // namespace ledgora
