#pragma once

#include "components/reporter/Filling.h"
#include "components/reporter/PageList.h"
#include "components/reporter/TemplateCache.h"
#include "platform/Reporter.h"
#include <memory>

namespace ledgora::reporter {

/// The stock document engine: templates are RTF text. A template with a fault in it is filled and shown as far as it
/// could be read, and the fault logged; without a readable file there is no current report, and the operations on it
/// do nothing but log.
class StockReporter final : public Reporter
{
public:
    void newreportnew(const QString &templatePath) override;
    void SetText(const QString &placeholder, const PlaceholderValue &value) override;
    void ShowReport(bool flag) override;
    void SaveToPDF(const QString &path, int option) override;

private:
    void noteName(const QString &placeholder, const PlaceholderValue &value);

    TemplateCache m_templates;
    std::unique_ptr<Filling> m_report;
    QString m_name; ///< what the current report is called in titles and file names
};

} // namespace ledgora::reporter
