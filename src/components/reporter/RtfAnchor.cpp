#include "components/reporter/RtfAnchor.h"

#include "components/reporter/RtfInterpreter.h"
#include "components/reporter/RtfTables.h"
#include <algorithm>
#include <utility>

namespace ledgora::reporter {

namespace {

bool isColourWord(QByteArrayView word)
{
    constexpr std::array<const char *, 10> words = {"cf",    "cb",    "highlight", "chcbpat", "chcfpat",
                                                    "cbpat", "cfpat", "clcbpat",   "clcfpat", "brdrcf"};
    return std::any_of(words.begin(), words.end(), [word](const char *colour) { return word == colour; });
}

} // namespace

AnchorRecorder::AnchorRecorder(const QString &what, bool starred, QByteArrayView word, int skip, int codePage)
    : m_codePage(codePage)
    , m_skip(skip)
{
    m_anchor.what = what;
    m_anchor.skip = skip;
    m_text = starred ? "{\\*\\" : "{\\";
    m_text += word;
    m_text += ' ';
}

bool AnchorRecorder::take(const RtfToken &token, const RtfInterpreter &document)
{
    switch (token.kind) {
    case RtfToken::GroupBegin:
        ++m_depth;
        m_text += '{';
        break;
    case RtfToken::GroupEnd:
        m_text += '}';
        return --m_depth >= 0;
    case RtfToken::Word:
        word(token, document);
        break;
    case RtfToken::Symbol:
        m_text += '\\';
        m_text += token.text;
        break;
    case RtfToken::Byte:
        characters(QByteArray(1, static_cast<char>(token.parameter.value_or(0))));
        break;
    case RtfToken::Text:
        characters(token.text.toByteArray());
        break;
    case RtfToken::Binary:
        m_text += rtfWord("\\bin", static_cast<int>(token.text.size())) + ' ';
        m_text += token.text;
        break;
    case RtfToken::End:
        break;
    }
    return true;
}

void AnchorRecorder::word(const RtfToken &token, const RtfInterpreter &document)
{
    const int number = token.parameter.value_or(0);
    if (token.parameter && token.text == "f") {
        breakPart(token);
        m_anchor.parts.back().font = document.fontName(number);
        return;
    }
    if (token.parameter && isColourWord(token.text)) {
        breakPart(token);
        m_anchor.parts.back().colour = document.colour(number);
        return;
    }
    m_text += '\\';
    m_text += token.text;
    if (token.parameter)
        m_text += QByteArray::number(number);
    m_text += ' ';
    m_pass = std::max(0, m_pass - 1);
    if (token.text == "uc")
        m_skip = std::clamp(token.parameter.value_or(1), 0, 100);
    else if (token.text == "u")
        m_pass = m_skip;
}

/// Bytes of the document's code page become those of the one that is written, or a `\u`.
void AnchorRecorder::characters(const QByteArray &bytes)
{
    for (const char byte : bytes) {
        const bool passed = m_pass > 0;
        m_pass = std::max(0, m_pass - 1);
        if (byte > 0) {
            m_text += byte;
            continue;
        }
        const QString text = decodeCodePage(QByteArray(1, byte), m_codePage);
        const int written = text.size() == 1 ? byteOf1252(text[0]) : -1;
        if (written >= 0)
            m_text += "\\'" + QByteArray(1, static_cast<char>(written)).toHex();
        else if (passed || text.size() != 1)
            m_text += '?';
        else
            m_text += rtfWord("\\u", static_cast<qint16>(text[0].unicode())) + ' ' + QByteArray(m_skip, '?');
    }
}

void AnchorRecorder::breakPart(const RtfToken &token)
{
    m_anchor.parts.push_back({std::exchange(m_text, {}), token.text.toByteArray(), {}, {}});
}

Anchor AnchorRecorder::finish()
{
    m_anchor.parts.push_back({m_text, {}, {}, {}});
    return std::move(m_anchor);
}

} // namespace ledgora::reporter
