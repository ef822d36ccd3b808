#include "documents/Preview.h"

#include <QFileInfo>

namespace ledgora {

QString missingTemplateFault(const QString &path)
{
    return QFileInfo::exists(path) ? QString() : "Missing Template File [" + path + ']';
}

QString showFilled(Reporter &reporter, const QString &templatePath, const std::vector<Placeholder> &values)
{
    reporter.newreportnew(templatePath);
    if (const QString fault = reporter.LastError(); !fault.isEmpty())
        return "Failed to Open File [" + templatePath + "].\nIt can not be used as a template: " + fault + '.';
    for (const Placeholder &value : values)
        reporter.SetText(value.name, value.value);
    reporter.ShowReport(false);
    return {};
}

} // namespace ledgora
