#include "components/reporter/StockReporter.h"

#include "components/reporter/Layout.h"
#include "components/reporter/PdfOutput.h"
#include "components/reporter/ReportPages.h"
#include "components/reporter/RtfReader.h"
#include "components/reporter/RtfWriter.h"
#include "components/reporter/Viewer.h"
#include "host/WorkingState.h"
#include "platform/HostObject.h"
#include "reports/ReportCsv.h"
#include "reports/ReportText.h"
#include "store/ErrorLog.h"
#include <QFile>
#include <QFileInfo>
#include <utility>

namespace ledgora::reporter {

namespace {

constexpr qint64 unreadableFile = 53;
constexpr qint64 faultyTemplate = 321;
constexpr qint64 unwritableFile = 75;
constexpr qint64 noReport = 91;

/// A document is best known by its number.
void noteName(QString &name, const QString &placeholder, const PlaceholderValue &value)
{
    const bool isReceipt = placeholder == QStringLiteral("#RCPT_NO#");
    if (!isReceipt && placeholder != QStringLiteral("#BILL_NO#"))
        return;
    const QString number = valueText(value).trimmed();
    if (!number.isEmpty())
        name = (isReceipt ? QStringLiteral("Receipt ") : QStringLiteral("Bill ")) + number;
}

/// The viewer keeps the document, whatever becomes of the report.
Viewer::SaveAs rtfOf(const Document &document)
{
    return {QStringLiteral("&RTF"), QStringLiteral("rtf"), QStringLiteral("RTF documents (*.rtf)"),
            QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S),
            [document](const QString &path, const Progress &) { return writeWhole(writeRtf(document), path); }};
}

Viewer::SaveAs textOf(const std::shared_ptr<const ReportRows> &rows)
{
    return {QStringLiteral("&Text"), QStringLiteral("txt"), QStringLiteral("Plain text (*.txt)"),
            QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_T),
            [rows](const QString &path, const Progress &progress) { return saveReportText(*rows, path, progress); }};
}

Viewer::SaveAs csvOf(const std::shared_ptr<const ReportRows> &rows)
{
    return {QStringLiteral("CS&V"), QStringLiteral("csv"), QStringLiteral("Table for spreadsheets (*.csv)"),
            QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S),
            [rows](const QString &path, const Progress &progress) { return saveReportCsv(*rows, path, progress); }};
}

} // namespace

StockReporter::~StockReporter()
{
    for (const QPointer<Viewer> &viewer : m_viewers)
        delete viewer;
}

void StockReporter::fail(qint64 number, const QString &description)
{
    m_error = description;
    WriteErrLog(number, description, QString::fromLatin1(progId));
}

/// The template, or nothing when it can not be read whole.
std::shared_ptr<const TemplateCache::Template> StockReporter::load(const QString &path)
{
    m_error.clear();
    auto parsed = m_templates.load(path, m_error);
    if (parsed)
        m_error = parsed->error;
    if (m_error.isEmpty())
        return parsed;
    WriteErrLog(parsed ? faultyTemplate : unreadableFile, path + QStringLiteral(": ") + m_error,
                QString::fromLatin1(progId));
    return nullptr;
}

void StockReporter::newreportnew(const QString &templatePath)
{
    const ErrorSite site("REPORTER", "NEWREPORTNEW");
    m_combined.reset();
    m_single.reset();
    m_rows.reset();
    const auto parsed = load(templatePath);
    if (!parsed)
        return;
    m_name = QFileInfo(templatePath).completeBaseName();
    m_single = std::make_unique<Filling>(parsed->document);
}

void StockReporter::SetText(const QString &placeholder, const PlaceholderValue &value)
{
    if (!m_single)
        return; // told when the report was begun; a line for each placeholder would bury it
    m_single->setText(placeholder, value);
    noteName(m_name, placeholder, value);
}

const Document *StockReporter::report() const
{
    if (m_single)
        return &m_single->document();
    return m_combined && m_combined->count() > 0 ? &m_combined->document() : nullptr;
}

QString StockReporter::reportName() const
{
    if (m_rows)
        return titleOf(*m_rows);
    return m_single || !m_combined ? m_name : m_combined->name();
}

Pages StockReporter::pages() const
{
    if (m_rows)
        return Pages(std::make_shared<ReportPages>(m_rows));
    return report() ? layoutDocument(*report(), m_progress) : PageList();
}

std::vector<Viewer::SaveAs> StockReporter::saveKinds() const
{
    if (m_rows)
        return {textOf(m_rows), csvOf(m_rows)};
    return {rtfOf(*report())};
}

/// A report has at least one page: without any there is none, or its layout was ended. That is no failure to log.
void StockReporter::failWithoutPages()
{
    if (report())
        m_error = QString::fromLatin1(cancelledText);
    else
        fail(noReport, QStringLiteral("there is no report"));
}

void StockReporter::ShowReport(bool)
{
    const ErrorSite site("REPORTER", "SHOWREPORT");
    m_error.clear();
    const Pages shown = pages();
    if (shown.empty())
        return failWithoutPages();
    auto *viewer = new Viewer(shown, reportName(), saveKinds());
    m_viewers.removeAll(nullptr);
    m_viewers.append(viewer);
    if (m_rows)
        viewer->setNotice(m_rows->notice());
    if (gMdi)
        gMdi->showScreen(*viewer);
    else
        viewer->show();
}

void StockReporter::SaveToPDF(const QString &path, int)
{
    const ErrorSite site("REPORTER", "SAVETOPDF");
    m_error.clear();
    const Pages saved = pages();
    if (saved.empty())
        return failWithoutPages();
    const QString fault = writePdf(saved, path, reportName(), m_progress);
    if (fault == QLatin1String(cancelledText))
        m_error = fault;
    else if (!fault.isEmpty())
        fail(unwritableFile, path + QStringLiteral(": ") + fault);
}

void StockReporter::SaveToRTF(const QString &path)
{
    const ErrorSite site("REPORTER", "SAVETORTF");
    m_error.clear();
    if (const Document *document = report())
        saveRtf(*document, path);
    else
        failWithoutPages();
}

void StockReporter::NewReport()
{
    m_error.clear();
    m_single.reset();
    m_combined.reset();
    m_rows = std::make_shared<ReportRows>();
    m_rows->SetCol130(std::exchange(m_nextWide, false));
    m_rows->NewReport();
}

/// A report that is written on after it was shown is another one: what the viewer holds stays as it is.
ReportRows &StockReporter::rows()
{
    if (!m_rows)
        NewReport();
    if (m_rows.use_count() > 1) {
        auto own = std::make_shared<ReportRows>();
        m_rows->writeTo(*own);
        m_rows = std::move(own);
    }
    return *m_rows;
}

void StockReporter::initReport(bool fresh, bool)
{
    m_error.clear();
    m_single.reset();
    m_rows.reset();
    if (fresh || !m_combined)
        m_combined.emplace();
}

void StockReporter::LoadPageSetup(const QString &templatePath)
{
    const ErrorSite site("REPORTER", "LOADPAGESETUP");
    const auto parsed = load(templatePath);
    if (parsed && m_combined)
        m_combined->setPage(parsed->document.sections.front().page);
}

void StockReporter::SetFontSizeBeforeAppendFile(const QString &text, int fontSize)
{
    if (m_combined)
        m_combined->putBeforeNext(text, fontSize);
}

void StockReporter::OpenMasterFile(const QString &templatePath)
{
    const ErrorSite site("REPORTER", "OPENMASTERFILE");
    m_master.reset();
    const auto parsed = load(templatePath);
    m_masterOpened = parsed != nullptr;
    if (!parsed)
        return;
    m_name = QFileInfo(templatePath).completeBaseName();
    m_master = std::make_unique<Filling>(parsed->document);
}

void StockReporter::NewSetText(const QString &placeholder, const PlaceholderValue &value)
{
    if (!m_master)
        return; // told when it was opened
    m_master->setText(placeholder, value);
    noteName(m_name, placeholder, value);
}

void StockReporter::SaveMasterFile(const QString &path)
{
    const ErrorSite site("REPORTER", "SAVEMASTERFILE");
    m_error.clear();
    if (!m_master) {
        fail(noReport, QStringLiteral("there is no master document to save"));
        return;
    }
    saveRtf(m_master->document(), path);
}

void StockReporter::saveRtf(const Document &document, const QString &path)
{
    const QString fault = writeWhole(writeRtf(document), path);
    if (!fault.isEmpty())
        fail(unwritableFile, path + QStringLiteral(": ") + fault);
}

void StockReporter::AppendFile(const QString &path)
{
    const ErrorSite site("REPORTER", "APPENDFILE");
    m_error.clear();
    if (!m_combined) {
        fail(noReport, QStringLiteral("there is no report to append to"));
        return;
    }
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        fail(unreadableFile, path + QStringLiteral(": ") + file.errorString());
        return;
    }
    RtfRead read = readRtf(file.read(largestInput + 1));
    if (read.error.isEmpty())
        m_combined->append(std::move(read.document), m_name);
    else
        fail(faultyTemplate, path + QStringLiteral(": ") + read.error);
}

void StockReporter::AbortReport()
{
    m_error.clear();
    m_single.reset();
    m_combined.reset();
    m_rows.reset();
    m_master.reset();
    m_pdfRun.reset();
}

void StockReporter::BeginPdfRun()
{
    m_error.clear();
    m_pdfRun = std::make_unique<PdfRun>();
    m_toldFaults = 0;
}

void StockReporter::AddMasterToPdf(const QString &path)
{
    const ErrorSite site("REPORTER", "ADDMASTERTOPDF");
    m_error.clear();
    if (!m_master || !m_pdfRun) {
        fail(noReport, QStringLiteral("there is no master document to save"));
        return;
    }
    m_pdfRun->add(layoutDocument(m_master->document()), path, m_name);
    tellPdfFaults();
}

std::vector<PdfFault> StockReporter::EndPdfRun()
{
    const ErrorSite site("REPORTER", "ENDPDFRUN");
    m_error.clear();
    if (!m_pdfRun)
        return {};
    m_pdfRun->finish();
    tellPdfFaults();
    const std::unique_ptr<PdfRun> run = std::move(m_pdfRun);
    return run->faults();
}

void StockReporter::tellPdfFaults()
{
    const auto &faults = m_pdfRun->faults();
    for (; m_toldFaults < faults.size(); ++m_toldFaults)
        fail(unwritableFile, faults[m_toldFaults].path + QStringLiteral(": ") + faults[m_toldFaults].reason);
}

} // namespace ledgora::reporter
