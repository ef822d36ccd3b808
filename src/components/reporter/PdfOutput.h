#pragma once

#include "components/reporter/PageList.h"
#include "platform/Progress.h"

namespace ledgora::reporter {

/// Writes the pages as one PDF file with real text; answers "" or, in English, what went wrong. `progress` is told of
/// each page; when it ends the work there is no file.
QString writePdf(const Pages &pages, const QString &path, const QString &title, const Progress &progress = unwatched());

/// Writes the file beside its place under the name with ".part" behind it and renames it at the end, so that a file of
/// that name is either the former one or the whole new one. Answers "" or what went wrong.
QString writeWhole(const QByteArray &content, const QString &path);

} // namespace ledgora::reporter
