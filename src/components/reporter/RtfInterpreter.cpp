#include "components/reporter/RtfInterpreter.h"

#include <algorithm>

namespace ledgora::reporter {

namespace {

/// Control characters mean nothing on paper and would confuse the layout; those that have a meaning in running text
/// are kept or translated.
QString withoutControls(const QString &text)
{
    QString clean;
    clean.reserve(text.size());
    for (const QChar c : text) {
        if (c == QChar(0x2029))
            clean += lineBreak;
        else if (c == u'\t' || (c.category() != QChar::Other_Control && c != QChar(0xFFFC)))
            clean += c;
    }
    return clean;
}

} // namespace

RtfRead readRtf(QByteArrayView text)
{
    return RtfInterpreter().read(text);
}

void RtfInterpreter::fail(const QString &what)
{
    if (m_read.error.isEmpty())
        m_read.error = what;
}

RtfRead RtfInterpreter::read(QByteArrayView text)
{
    if (!text.startsWith("{\\rtf")) {
        fail(text.isEmpty() ? QStringLiteral("the file is empty") : QStringLiteral("not an RTF document"));
        return m_read;
    }
    if (text.size() > largestInput) {
        fail(QStringLiteral("the document is too large"));
        return m_read;
    }
    RtfTokens tokens(text);
    bool closed = false;
    for (RtfToken token = tokens.next(); token.kind != RtfToken::End; token = tokens.next()) {
        if (!take(token) || !withinLimits())
            break;
        if (m_saved.empty()) {
            closed = true;
            if (tokens.rest().contains('\\')) // a brace too many would hide the rest; other litter is none of ours
                fail(QStringLiteral("the document goes on behind its end"));
            break;
        }
    }
    finish(tokens, closed);
    return m_read;
}

bool RtfInterpreter::withinLimits()
{
    if (m_characters <= mostCharacters && m_paragraphs <= mostParagraphs && m_cells <= mostCells)
        return true;
    fail(QStringLiteral("the document is too large"));
    return false;
}

void RtfInterpreter::finish(const RtfTokens &tokens, bool closed)
{
    flushBytes();
    if (m_body)
        endMargin();
    m_state.destination = Destination::Body;
    closeStory();
    section().blocks = std::move(m_story.blocks);
    if (!tokens.error().isEmpty())
        fail(tokens.error());
    if (!closed)
        fail(QStringLiteral("the document ends inside of a group"));
}

bool RtfInterpreter::take(const RtfToken &token)
{
    if (m_kept && keep(token))
        return withinDepth(m_kept->depth());
    if (m_pictureText)
        m_pictureText->take(token, *this);
    if (m_skip > 0
        && (token.kind == RtfToken::Byte || token.kind == RtfToken::Word || token.kind == RtfToken::Symbol
            || token.kind == RtfToken::Binary)) {
        --m_skip;
        return true;
    }
    if (token.kind == RtfToken::Byte) {
        m_bytes += static_cast<char>(token.parameter.value_or(0));
        return true;
    }
    const bool inPicture = m_state.destination == Destination::Picture;
    if (token.kind == RtfToken::Text) {
        if (inPicture)
            pictureText(token.text);
        else
            bytes(token.text);
        return true;
    }
    if (token.kind == RtfToken::Binary && inPicture)
        m_picture.data += token.text;
    flushBytes();
    const bool starred = m_starred;
    switch (token.kind) {
    case RtfToken::GroupBegin:
        return beginGroup();
    case RtfToken::GroupEnd:
        return endGroup();
    case RtfToken::Word:
        word(token);
        break;
    case RtfToken::Symbol:
        symbol(token.text[0]);
        break;
    default:
        break;
    }
    if (starred)
        m_starred = false;
    return true;
}

/// Gives the token to the group that is kept; False for its last brace, which is then carried out as any other.
bool RtfInterpreter::keep(const RtfToken &token)
{
    if (m_kept->take(token, *this))
        return true;
    insertAnchor();
    return false;
}

bool RtfInterpreter::withinDepth(int deeper)
{
    if (m_saved.size() + static_cast<std::size_t>(deeper) < deepestGroup)
        return true;
    fail(QStringLiteral("groups are nested too deeply"));
    return false;
}

bool RtfInterpreter::beginGroup()
{
    m_skip = 0;
    m_starred = false;
    if (!withinDepth(0))
        return false;
    m_saved.push_back(m_state);
    return true;
}

bool RtfInterpreter::endGroup()
{
    m_skip = 0;
    m_starred = false;
    if (m_saved.empty())
        return false;
    const Destination left = m_state.destination;
    if (m_body && m_saved.size() == m_marginGroup)
        endMargin();
    m_state = std::move(m_saved.back());
    m_saved.pop_back();
    if (left != m_state.destination)
        leaveDestination(left);
    return true;
}

void RtfInterpreter::leaveDestination(Destination left)
{
    if (left == Destination::Instruction)
        endInstruction();
    else if (left == Destination::Picture)
        endPicture();
}

void RtfInterpreter::word(const RtfToken &token)
{
    if (m_state.destination == Destination::Skipped)
        return;
    if (m_state.destination == Destination::Alternative) {
        if (token.text == "ud")
            m_state.destination = Destination::Body;
        return;
    }
    m_word = token.text.toByteArray();
    // Only a picture's own words: any other would speak of the text around it, again each time that a kept one is read.
    const bool foreign =
        m_state.destination == Destination::Picture && !token.text.startsWith("pic") && !token.text.endsWith("blip");
    if (foreign) {
        if (m_starred)
            skipGroup();
        return;
    }
    if (!applyWord(*this, token.text, token.parameter) && m_starred)
        skipGroup();
}

void RtfInterpreter::symbol(char character)
{
    switch (character) {
    case '*':
        m_starred = true;
        break;
    case '~':
        insert(QChar::Nbsp);
        break;
    case '_':
        insert(QChar(0x2011));
        break;
    case '-':
        insert(QChar::SoftHyphen);
        break;
    case '\\':
    case '{':
    case '}':
        insert(QLatin1Char(character));
        break;
    case '\r':
    case '\n':
        endParagraph();
        break;
    case '\t':
        insert(QLatin1Char('\t'));
        break;
    default:
        break;
    }
}

void RtfInterpreter::bytes(QByteArrayView text)
{
    const qsizetype passed = std::min<qsizetype>(m_skip, text.size());
    m_skip -= static_cast<int>(passed);
    m_bytes += text.sliced(passed);
}

void RtfInterpreter::flushBytes()
{
    if (m_bytes.isEmpty())
        return;
    const QString text = decodeCodePage(m_bytes, m_codePage);
    m_bytes.clear();
    m_starred = false;
    switch (m_state.destination) {
    case Destination::Body:
        bodyText(text);
        break;
    case Destination::Fonts:
        fontText(text);
        break;
    case Destination::Colours:
        colourText(text);
        break;
    case Destination::Instruction:
        m_instruction += text;
        m_instructionFormat = m_state.chars;
        break;
    case Destination::Picture:
    case Destination::Alternative:
    case Destination::Skipped:
        break;
    }
}

void RtfInterpreter::bodyText(const QString &text)
{
    const QString clean = withoutControls(text);
    if (clean.isEmpty())
        return;
    m_characters += clean.size();
    std::vector<Run> &runs = m_story.runs;
    if (!runs.empty() && runs.back().isText() && runs.back().format == m_state.chars)
        runs.back().text += clean;
    else
        runs.push_back({clean, m_state.chars});
}

void RtfInterpreter::fontText(const QString &text)
{
    for (const QChar c : text) {
        if (c != u';') {
            m_fontName += c;
            continue;
        }
        m_fonts.insert(m_fontRead, m_fontName.trimmed());
        m_fontName.clear();
    }
}

void RtfInterpreter::readColours()
{
    m_state.destination = Destination::Colours;
    m_colours.clear();
    m_colourGiven = false;
}

void RtfInterpreter::colourText(const QString &text)
{
    for (const QChar c : text) {
        if (c != u';' || m_colours.size() > 1000)
            continue;
        m_colours.push_back(m_colourGiven ? Colour(m_colourRead | 0xff000000U) : Colour());
        m_colourRead = 0;
        m_colourGiven = false;
    }
}

void RtfInterpreter::setColourPart(int shift, int value)
{
    const auto part = static_cast<QRgb>(std::clamp(value, 0, 255));
    m_colourRead = (m_colourRead & ~(0xffU << shift)) | (part << shift);
    m_colourGiven = true;
}

Colour RtfInterpreter::colour(int index) const
{
    return index >= 0 && index < static_cast<int>(m_colours.size()) ? m_colours[index] : Colour();
}

void RtfInterpreter::setFont(int number)
{
    if (m_state.destination == Destination::Fonts) {
        m_fontRead = number;
        m_fontName.clear();
        return;
    }
    const QString name = m_fonts.value(number);
    if (!name.isEmpty())
        m_state.chars.font = name;
}

QString RtfInterpreter::fontName(int number) const
{
    const QString name = m_fonts.value(number);
    return name.isEmpty() ? m_fonts.value(m_defaultFont, CharFormat().font) : name;
}

void RtfInterpreter::addTab(int position)
{
    if (m_state.paragraph.tabs.size() < mostTabs)
        m_state.paragraph.tabs.push_back({position, m_tabAlignment});
    std::sort(m_state.paragraph.tabs.begin(), m_state.paragraph.tabs.end(),
              [](const TabStop &a, const TabStop &b) { return a.position < b.position; });
    m_tabAlignment = Alignment::Left;
}

void RtfInterpreter::paragraphBorder(Side side)
{
    m_borderOwner = BorderOwner::Paragraph;
    m_borderSide = side;
    border() = BorderLine();
}

void RtfInterpreter::paragraphBox()
{
    m_borderOwner = BorderOwner::Box;
    m_state.paragraph.borders.fill(BorderLine());
}

void RtfInterpreter::cellBorder(Side side)
{
    m_borderOwner = BorderOwner::Cell;
    m_borderSide = side;
}

void RtfInterpreter::pageBorder(Side side)
{
    m_borderOwner = BorderOwner::Page;
    m_borderSide = side;
    border() = BorderLine();
}

BorderLine &RtfInterpreter::border()
{
    switch (m_borderOwner) {
    case BorderOwner::Paragraph:
        return m_state.paragraph.borders[m_borderSide];
    case BorderOwner::Cell:
        return cell().borders[m_borderSide];
    case BorderOwner::Page:
        return page().borders[m_borderSide];
    default:
        return m_scratchBorder;
    }
}

void RtfInterpreter::beginAlternative()
{
    if (inBody())
        m_state.destination = Destination::Alternative;
}

void RtfInterpreter::insert(QChar character)
{
    flushBytes();
    if (inBody())
        bodyText(QString(character));
}

void RtfInterpreter::insertUnicode(int value)
{
    if (inBody())
        bodyText(QString(QChar(static_cast<char16_t>(value))));
    else if (m_state.destination == Destination::Fonts)
        m_fontName += QChar(static_cast<char16_t>(value));
    m_skip = m_state.unicodeSkip;
}

} // namespace ledgora::reporter
