#pragma once

#include "components/reporter/Document.h"
#include <QByteArray>

namespace ledgora::reporter {

/// The document as RTF text, 7-bit throughout: what `readRtf` reads of it is the same document again, with two
/// exceptions that RTF can not express: neighbouring runs of one format come back joined, and a cell, or the room
/// between two tables, is never without a paragraph (it gets an empty one of the smallest type).
QByteArray writeRtf(const Document &document);

} // namespace ledgora::reporter
