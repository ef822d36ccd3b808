#pragma once

#include "components/reporter/CombinedReport.h"
#include "components/reporter/Filling.h"
#include "components/reporter/PdfRun.h"
#include "components/reporter/TemplateCache.h"
#include "components/reporter/Viewer.h"
#include "platform/Reporter.h"
#include "reports/ReportRows.h"
#include <QPointer>
#include <memory>
#include <optional>

namespace ledgora::reporter {

/// The stock document engine: templates are RTF text. One with a fault in it (cut, blank, in another format) is
/// refused: half a bill looks like a whole one. There is then no current report or master, and the operations on it do
/// nothing but log.
class StockReporter final : public Reporter
{
public:
    StockReporter() = default;
    StockReporter(const StockReporter &) = delete;
    StockReporter &operator=(const StockReporter &) = delete;
    ~StockReporter() override;

    void newreportnew(const QString &templatePath) override;
    void SetText(const QString &placeholder, const PlaceholderValue &value) override;
    void ShowReport(bool flag) override;
    void SaveToPDF(const QString &path, int option) override;
    void SaveToRTF(const QString &path) override;
    void SetCol130(bool wide) override { m_nextWide = wide; }
    void WinModeReport(bool) override {}
    void NewReport() override;
    void WriteToReport(const ReportRow &row) override { rows().WriteToReport(row); }
    void PrintText(const QString &text) override { rows().PrintText(text); }
    void createtable(int first, int cells) override { rows().createtable(first, cells); }
    void SetNotice(const QString &text) override { rows().SetNotice(text); }
    void initReport(bool fresh, bool flag) override;
    void LoadPageSetup(const QString &templatePath) override;
    void SetFontSizeBeforeAppendFile(const QString &text, int fontSize) override;
    void OpenMasterFile(const QString &templatePath) override;
    bool LastMasFileOpenOK() const override { return m_masterOpened; }
    void NewSetText(const QString &placeholder, const PlaceholderValue &value) override;
    void SaveMasterFile(const QString &path) override;
    void AppendFile(const QString &path) override;
    void AbortReport() override;
    void BeginPdfRun() override;
    void AddMasterToPdf(const QString &path) override;
    std::vector<PdfFault> EndPdfRun() override;
    void SetProgress(Progress progress) override { m_progress = std::move(progress); }
    QString LastError() const override { return m_error; }

private:
    std::shared_ptr<const TemplateCache::Template> load(const QString &path);
    void fail(qint64 number, const QString &description);
    void failWithoutPages();
    void tellPdfFaults();
    void saveRtf(const Document &document, const QString &path);
    const Document *report() const;
    QString reportName() const;
    ReportRows &rows();
    Pages pages() const;
    std::vector<Viewer::SaveAs> saveKinds() const;

    TemplateCache m_templates;
    std::unique_ptr<Filling> m_single;        ///< the report of newreportnew
    std::optional<CombinedReport> m_combined; ///< the report of initReport
    std::unique_ptr<Filling> m_master;
    std::unique_ptr<PdfRun> m_pdfRun;
    std::shared_ptr<ReportRows> m_rows; ///< the text report of NewReport; viewers share it
    bool m_nextWide = false;
    std::size_t m_toldFaults = 0; ///< of the run, those that were logged
    Progress m_progress = unwatched();
    QList<QPointer<Viewer>> m_viewers; ///< those that are open; they go with the working period
    bool m_masterOpened = false;
    QString m_name; ///< what the document last filled is called in titles and file names
    QString m_error;
};

} // namespace ledgora::reporter
