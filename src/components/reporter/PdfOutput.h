#pragma once

#include "components/reporter/PageList.h"

namespace ledgora::reporter {

/// Writes the pages as one PDF file with real text. It is written beside the target under the name with ".part" behind
/// it and renamed at the end, so that a file of that name is either the former one or the whole new one. Answers ""
/// or, in English, what went wrong.
QString writePdf(const PageList &pages, const QString &path, const QString &title);

} // namespace ledgora::reporter
