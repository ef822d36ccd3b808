#pragma once

#include "components/reporter/Document.h"
#include "components/reporter/RtfTokens.h"

namespace ledgora::reporter {

class RtfInterpreter;

/// Keeps a group of RTF text as it stands while its tokens go by, from behind its first word to its last brace. Numbers
/// of fonts and colours are kept as what they stand for, other characters than ASCII as themselves, so that the group
/// can be put into a document with other tables and another code page.
class AnchorRecorder
{
public:
    /// `word` is the group's first, which says what it is; `skip` the characters that stand behind each `\u`.
    AnchorRecorder(const QString &what, bool starred, QByteArrayView word, int skip, int codePage);

    /// False when the token is the group's last brace.
    bool take(const RtfToken &token, const RtfInterpreter &document);
    int depth() const { return m_depth; }
    Anchor finish();

private:
    void word(const RtfToken &token, const RtfInterpreter &document);
    void characters(const QByteArray &bytes);
    void breakPart(const RtfToken &token);

    Anchor m_anchor;
    QByteArray m_text; ///< of the part that is open
    int m_codePage;
    int m_skip;     ///< characters behind each `\u`, as told last
    int m_pass = 0; ///< of them, those still to come
    int m_depth = 0;
};

} // namespace ledgora::reporter
