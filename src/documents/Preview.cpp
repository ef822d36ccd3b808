#include "documents/Preview.h"

#include <QFileInfo>

namespace ledgora {

QString missingTemplateFault(const QString &path)
{
    return QFileInfo::exists(path) ? QString() : "Missing Template File [" + path + ']';
}

void showFilled(Reporter &reporter, const QString &templatePath, const std::vector<Placeholder> &values)
{
    reporter.newreportnew(templatePath);
    for (const Placeholder &value : values)
        reporter.SetText(value.name, value.value);
    reporter.ShowReport(false);
}

} // namespace ledgora
