#include "FindingsDialog.h"

#include "store/Dates.h"
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QHeaderView>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QSaveFile>
#include <QTableWidget>
#include <QVBoxLayout>

namespace ledgora::app {

namespace {

QTableWidget *listOf(const Findings &findings)
{
    auto *list = new QTableWidget(int(findings.size()), 5);
    list->setObjectName(QStringLiteral("lstFindings"));
    list->setHorizontalHeaderLabels({QStringLiteral("Company"), QStringLiteral("Document"), QStringLiteral("Date"),
                                     QStringLiteral("Client"), QStringLiteral("Finding")});
    list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    list->setSelectionBehavior(QAbstractItemView::SelectRows);
    list->setTabKeyNavigation(false);
    list->verticalHeader()->hide();
    list->verticalHeader()->setDefaultSectionSize(list->fontMetrics().height() + 4);
    for (int row = 0; row < list->rowCount(); ++row) {
        const Finding &finding = findings[size_t(row)];
        const QString date =
            finding.date.isValid() ? formatDate(finding.date, QStringLiteral("DD/MM/YYYY")) : QString();
        int column = 0;
        for (const QString &text : {finding.company, finding.document, date, finding.party, finding.sentence})
            list->setItem(row, column++, new QTableWidgetItem(text.simplified()));
    }
    list->resizeColumnsToContents();
    list->horizontalHeader()->setStretchLastSection(true);
    return list;
}

} // namespace

FindingsDialog::FindingsDialog(const CheckResult &result, QWidget *parent)
    : QDialog(parent)
    , m_findings(result.findings)
{
    setObjectName(QStringLiteral("findingsDialog"));
    setWindowTitle(QStringLiteral("Check the Data"));
    resize(1000, 500);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel(QStringLiteral("Bills and receipts checked: %1. Findings: %2. Nothing was changed.")
                                     .arg(result.bills + result.receipts)
                                     .arg(m_findings.size())));
    layout->addWidget(listOf(m_findings));
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    QPushButton *saving = buttons->addButton(QStringLiteral("&Save as Text..."), QDialogButtonBox::ActionRole);
    saving->setObjectName(QStringLiteral("cmdSaveFindings"));
    connect(saving, &QPushButton::clicked, this, &FindingsDialog::save);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addWidget(buttons);
}

void FindingsDialog::save()
{
    const QString path = QFileDialog::getSaveFileName(this, QStringLiteral("Save as Text"),
                                                      QStringLiteral("findings.txt"), QStringLiteral("Text (*.txt)"));
    if (path.isEmpty())
        return;
    QSaveFile file(path);
    bool written = file.open(QIODevice::WriteOnly);
    for (const Finding &finding : m_findings)
        written = written && file.write(findingText(finding).toUtf8() + '\n') > 0;
    if (!written || !file.commit())
        QMessageBox::warning(this, windowTitle(),
                             QStringLiteral("The file [") + path + QStringLiteral("] could not be written."));
}

} // namespace ledgora::app
