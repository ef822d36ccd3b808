#pragma once

#include <QString>

namespace ledgora {

class Reporter;

/// Opens a template as the master document of a run. "" when that worked; else what to tell the user: the file is
/// missing, empty, or can not be read as a template.
QString CHECKANDOPENMASTERFILE(Reporter &reporter, const QString &path);

} // namespace ledgora
