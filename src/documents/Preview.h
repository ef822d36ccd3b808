#pragma once

#include "documents/Placeholders.h"
#include "platform/Reporter.h"

namespace ledgora {

/// "" for a template file that is there, else the message.
QString missingTemplateFault(const QString &path);

/// Shows the template filled with the values, in their order, in the viewer. "" or, when it can not be read whole as a
/// template, the message; nothing is shown then.
QString showFilled(Reporter &reporter, const QString &templatePath, const std::vector<Placeholder> &values);

} // namespace ledgora
