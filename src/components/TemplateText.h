#pragma once

#include <QString>

namespace ledgora {

/// All that is seen of a template file, headers and footers included: one line a paragraph or cell, the runs of a
/// paragraph joined, and behind a form feed what stands in the margins from the second page on alone. Nothing and a
/// `fault`, in English, when the file can not be read or is no template.
QString templateText(const QString &path, QString &fault);

} // namespace ledgora
