#pragma once

#include "platform/Progress.h"
#include "reports/ReportRows.h"

class QIODevice;

namespace ledgora {

/// The report as plain text in UTF-8: one line a line of cells, wrapped as on paper, tables with drawn rules. Bold and
/// pitch are lost; pages are not parted. `progress` is told of the rows. False when it was cancelled, or when the
/// device does not take it, which then tells why.
bool writeReportText(const ReportRows &rows, QIODevice &out, const Progress &progress = unwatched());

/// The same into a file, which appears as a whole or not at all; answers "" or, in English, what went wrong.
QString saveReportText(const ReportRows &rows, const QString &path, const Progress &progress = unwatched());

} // namespace ledgora
