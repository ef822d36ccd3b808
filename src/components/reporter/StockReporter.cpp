#include "components/reporter/StockReporter.h"

#include "components/reporter/Layout.h"
#include "components/reporter/PdfOutput.h"
#include "components/reporter/Viewer.h"
#include "host/WorkingState.h"
#include "platform/HostObject.h"
#include "store/ErrorLog.h"
#include <QFileInfo>

namespace ledgora::reporter {

namespace {

constexpr qint64 unreadableFile = 53;
constexpr qint64 faultyTemplate = 321;
constexpr qint64 unwritableFile = 75;
constexpr qint64 noReport = 91;

void log(qint64 number, const QString &description)
{
    WriteErrLog(number, description, QString::fromLatin1(Reporter::progId));
}

} // namespace

void StockReporter::newreportnew(const QString &templatePath)
{
    const ErrorSite site("REPORTER", "NEWREPORTNEW");
    m_report.reset();
    QString fault;
    const auto parsed = m_templates.load(templatePath, fault);
    if (!parsed) {
        log(unreadableFile, templatePath + QStringLiteral(": ") + fault);
        return;
    }
    if (!parsed->error.isEmpty())
        log(faultyTemplate, templatePath + QStringLiteral(": ") + parsed->error);
    m_name = QFileInfo(templatePath).completeBaseName();
    m_report = std::make_unique<Filling>(parsed->document);
}

void StockReporter::SetText(const QString &placeholder, const PlaceholderValue &value)
{
    if (!m_report)
        return; // told when the report was begun; a line for each placeholder would bury it
    m_report->setText(placeholder, value);
    noteName(placeholder, value);
}

/// A bill is best known by its number.
void StockReporter::noteName(const QString &placeholder, const PlaceholderValue &value)
{
    if (placeholder != QStringLiteral("#BILL_NO#"))
        return;
    const QString number = valueText(value).trimmed();
    if (!number.isEmpty())
        m_name = QStringLiteral("Bill ") + number;
}

void StockReporter::ShowReport(bool)
{
    const ErrorSite site("REPORTER", "SHOWREPORT");
    if (!m_report) {
        log(noReport, QStringLiteral("there is no report to show"));
        return;
    }
    auto *viewer = new Viewer(layoutDocument(m_report->document()), m_name); // deletes itself when it is closed
    if (gMdi)
        gMdi->showScreen(*viewer);
    else
        viewer->show();
}

void StockReporter::SaveToPDF(const QString &path, int)
{
    const ErrorSite site("REPORTER", "SAVETOPDF");
    if (!m_report) {
        log(noReport, QStringLiteral("there is no report to save"));
        return;
    }
    const QString fault = writePdf(layoutDocument(m_report->document()), path, m_name);
    if (!fault.isEmpty())
        log(unwritableFile, path + QStringLiteral(": ") + fault);
}

} // namespace ledgora::reporter
