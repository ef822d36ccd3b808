#pragma once

#include "documents/FirmTexts.h"
#include "platform/Progress.h"
#include <QList>
#include <QStringList>

namespace ledgora {

class Connection;

// Many stored bills or receipts of the company of the working state, written through the engine in one run. Progress
// is told after each document, and of the one file of all also while its pages are written. The engine writes a file
// beside its place and renames it, so that nothing half-written ever bears a document's name.

/// What came of a run.
struct RunResult
{
    QStringList files;    ///< written, with their folder, in the order of the documents
    int documents = 0;    ///< made: files, or documents in the one report
    QStringList failures; ///< documents that could not be made, each with the reason: "Bill 7 dated 01/05/2024: ..."
    QString fault;        ///< "" or what ended the run; `cancelledText` when the user did
    bool whole() const { return failures.isEmpty() && fault.isEmpty(); }
};

enum class DocumentFormat { Pdf, Rtf };

/// Where a run puts a file for each document, and what it does when one can not be made.
struct DocumentFiles
{
    QString folder; ///< made when it is not there
    DocumentFormat format = DocumentFormat::Pdf;
    bool partyInName = false; ///< "Bill-7-01052024-Gupta Traders.pdf" instead of "Bill-7-01052024.pdf"
    enum class OnFailure { GoOn, Stop } onFailure = OnFailure::GoOn;
};

/// Writes each document into a file of its own. Two documents of one run never share a file: the second gets "-2"
/// behind its name. A file of an earlier run makes room. Files already written stay when the run ends early.
RunResult writeEachDocument(Connection &db, Reporter &reporter, DocumentKind kind, const QList<int> &ids,
                            const DocumentFiles &files, const Progress &progress);

/// Puts all documents into one report, each on a page of its own, which the engine then holds, to be shown or saved;
/// the page set-up is that of the first one's template. The first document that can not be made ends the run, and the
/// report is discarded.
RunResult combineDocuments(Connection &db, Reporter &reporter, DocumentKind kind, const QList<int> &ids,
                           const Progress &progress);

/// The same, saved as one file; a file of that name is replaced when the new one is whole.
RunResult writeOneDocument(Connection &db, Reporter &reporter, DocumentKind kind, const QList<int> &ids,
                           const QString &file, DocumentFormat format, const Progress &progress);

} // namespace ledgora
