#pragma once

#include "components/reporter/Document.h"
#include <QByteArrayView>
#include <QStringList>

namespace ledgora::reporter {

struct RtfRead
{
    Document document;
    QStringList unseen;  ///< what the document holds that is not shown, but kept as anchors, by kind, in English
    QStringList omitted; ///< what the document holds beyond the model, by kind, in English: a save would lose it
    QString error;       ///< "" when the text was read whole; else what is wrong with it, in English
};

/// Reads RTF text (RTF 1.9; a template is RTF under the name ".doc") into the model: sections with headers and footers,
/// paragraphs, runs, page number fields, pictures in PNG and JPEG, tables. What the model does not know is skipped, or
/// kept as an anchor when it is part of what a reader of the document sees. Broken or hostile text gives what could be
/// read before the fault and an error; the work is bounded: groups nest up to `deepestGroup`, and the text, its
/// paragraphs and the cells of a row have the limits below, behind which reading stops (cells: joins the last one).
RtfRead readRtf(QByteArrayView text);

constexpr int deepestGroup = 200;
constexpr qsizetype largestInput = 64LL * 1024 * 1024;
constexpr qsizetype mostCharacters = 4LL * 1024 * 1024;
constexpr int mostParagraphs = 100'000;
constexpr int mostCellsInRow = 200;
constexpr int mostCells = 200'000;
constexpr std::size_t mostTabs = 100; ///< in a paragraph; more are passed over
constexpr int mostTableLevels = 8;    ///< tables inside of tables; deeper ones are joined to the last
constexpr qint64 mostPixels =
    40LL * 1000 * 1000; ///< of all pictures together, so that a claim of a few bytes can not fill the memory

} // namespace ledgora::reporter
