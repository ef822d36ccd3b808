#pragma once

#include "components/reporter/PageList.h"
#include "platform/Progress.h"

namespace ledgora::reporter {

/// Lays a document out into pages; always at least one. Text breaks at words, or inside of one that is wider than its
/// line. Paragraphs that keep with what follows move to the next page together with it, unless they fill one alone. A
/// table row that does not fit on the rest of a page moves to the next one as a whole, behind the table's heading rows;
/// only a row taller than a page is split. Headers and footers push the text away when they are taller than the margin.
/// A page number in the body is that of the page on which its paragraph or table begins. Needs a QGuiApplication for
/// its fonts. `progress` is told of the paragraphs and tables; when it ends the work there are no pages.
PageList layoutDocument(const Document &document, const Progress &progress = unwatched());

} // namespace ledgora::reporter
