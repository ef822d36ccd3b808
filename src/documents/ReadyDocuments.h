#pragma once

#include "documents/DocumentParties.h"
#include <QList>

namespace ledgora {

/// A stored document ready to be handed to the engine.
struct ReadyDocument
{
    QString name;     ///< as a user is told of it: "Bill AB/7 dated 01/05/2024"
    QString fileName; ///< without folder and suffix: "Bill-AB_7-01052024", whatever its number holds
    QString partyName;
    QString templatePath;
    std::vector<Placeholder> placeholders;
    QString fault; ///< "" or why it can not be written

    void fail(const QString &why); ///< the first reason counts
};

/// Makes stored bills or receipts of one company ready. What all of them share is read once, when it is made: company
/// texts, the directory of parties; templates and name case are those of the working state, which must be the
/// company's.
class ReadyDocuments
{
public:
    ReadyDocuments(Connection &db, DocumentKind kind);

    /// In the order of the ids; one that is not there any more is left out. Some hundred at once: the rows of all are
    /// held.
    std::vector<ReadyDocument> make(const QList<int> &ids);

private:
    std::vector<ReadyDocument> bills(const QList<int> &ids);
    std::vector<ReadyDocument> receipts(const QList<int> &ids);

    Connection &m_db;
    DocumentKind m_kind;
    FirmTexts m_firm;
    DocumentParties m_parties;
};

/// A text as part of a file's name on any system: separators, control characters and what other systems forbid become
/// "_"; blanks and dots at its end go, since some systems drop them.
QString safeInFileName(const QString &text);

/// "Bill", "Receipt".
QString documentNoun(DocumentKind kind);

} // namespace ledgora
