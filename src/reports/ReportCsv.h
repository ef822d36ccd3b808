#pragma once

#include "platform/Progress.h"
#include "reports/ReportRows.h"

class QIODevice;

namespace ledgora {

/// The report as csv (RFC 4180, UTF-8, records end with CR LF): one record a row of a table with as many fields as the
/// row has cells, also those that others span; a free line is a record of the cells that exist in it. Cells are as
/// shown, without printer codes, their line breaks kept. Where a spreadsheet would take a text for a formula, since it
/// begins with = + - @ and is no number, an apostrophe goes before it. Results as for `writeReportText`.
bool writeReportCsv(const ReportRows &rows, QIODevice &out, const Progress &progress = unwatched());

/// The same into a file, which appears as a whole or not at all; answers "" or, in English, what went wrong.
QString saveReportCsv(const ReportRows &rows, const QString &path, const Progress &progress = unwatched());

} // namespace ledgora
