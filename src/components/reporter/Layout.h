#pragma once

#include "components/reporter/PageList.h"

namespace ledgora::reporter {

/// Lays a document out into pages; always at least one. Text breaks at words, or inside of one that is wider than its
/// line. A table row that does not fit on the rest of a page moves to the next one as a whole, behind the table's
/// heading rows; only a row taller than a page is split. Needs a QGuiApplication for its fonts.
PageList layoutDocument(const Document &document);

} // namespace ledgora::reporter
