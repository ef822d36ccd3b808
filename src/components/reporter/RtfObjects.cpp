#include "components/reporter/RtfInterpreter.h"

#include <QBuffer>
#include <QImageReader>
#include <algorithm>

namespace ledgora::reporter {

// The part of the interpreter that reads sections, headers and footers, fields and pictures.

namespace {

constexpr Twips twipsPerPixel = 15; ///< for a picture that does not say how large it is

bool isEmptyLine(const std::vector<Block> &blocks)
{
    if (blocks.size() != 1)
        return false;
    const auto *paragraph = std::get_if<Paragraph>(&blocks.front().content);
    return paragraph && paragraph->runs.empty();
}

int countParagraphs(const Section &section)
{
    int count = 0;
    for (const std::vector<Block> &text : section.margins)
        eachParagraph(text, [&count](const Paragraph &) { ++count; });
    return count;
}

/// Decodes a picture whose claimed size is within what is left of `pixels`; nothing otherwise.
QImage decoded(const Picture &picture, qint64 &pixels)
{
    QByteArray data = picture.data;
    QBuffer buffer(&data);
    QImageReader reader(&buffer, picture.kind == Picture::Png ? "png" : "jpeg");
    reader.setDecideFormatFromContent(false);
    const QSize size = reader.size();
    const qint64 claimed = static_cast<qint64>(size.width()) * size.height();
    if (!size.isValid() || claimed <= 0 || claimed > mostPixels - pixels)
        return {};
    pixels += claimed;
    return reader.read();
}

} // namespace

void RtfInterpreter::resetSection()
{
    if (m_body)
        return;
    page() = m_documentPage;
    section().newPage = true;
}

/// A new section begins as the former one was, texts in the margins included, until its own words say otherwise.
void RtfInterpreter::endSection()
{
    if (!inBody() || m_body)
        return;
    closeStory();
    m_story.pageBreak = false;
    section().blocks = std::move(m_story.blocks);
    m_story.blocks.clear();
    Section next;
    next.page = page();
    next.newPage = section().newPage;
    next.margins = section().margins;
    m_paragraphs += 1 + countParagraphs(next);
    m_read.document.sections.push_back(std::move(next));
}

void RtfInterpreter::readMargin(MarginText which)
{
    if (!inBody() || m_body || m_saved.empty()) {
        skipGroup();
        return;
    }
    m_margin = which;
    m_marginGroup = m_saved.size();
    m_body = std::move(m_story);
    m_story = Story();
    resetParagraph();
    resetChars();
}

void RtfInterpreter::endMargin()
{
    if (!m_body)
        return;
    m_state.destination = Destination::Body;
    closeStory();
    if (isEmptyLine(m_story.blocks))
        m_story.blocks.clear();
    section().margins[m_margin] = std::move(m_story.blocks);
    m_story = std::move(*m_body);
    m_body.reset();
}

void RtfInterpreter::insertObject(Run run)
{
    run.text = QChar(QChar::ObjectReplacementCharacter);
    ++m_characters;
    m_story.runs.push_back(std::move(run));
}

void RtfInterpreter::insertField(Field field)
{
    if (inBody())
        insertObject({{}, m_state.chars, field, nullptr});
}

void RtfInterpreter::readInstruction()
{
    if (!inBody())
        return skipGroup();
    m_state.destination = Destination::Instruction;
    m_instruction.clear();
    m_instructionFormat = m_state.chars;
}

namespace {

Field fieldOf(const QString &instruction)
{
    const QString name = instruction.trimmed().section(QLatin1Char(' '), 0, 0).toUpper();
    if (name == QStringLiteral("PAGE"))
        return Field::Page;
    if (name == QStringLiteral("SECTIONPAGES"))
        return Field::SectionPages;
    return name == QStringLiteral("NUMPAGES") ? Field::PageCount : Field::None;
}

} // namespace

/// Only page numbers are worked out here; of any other field the result stands that its writer left.
void RtfInterpreter::endInstruction()
{
    const Field field = fieldOf(m_instruction);
    m_instruction.clear();
    if (field == Field::None || !inBody())
        return;
    insertObject({{}, m_instructionFormat, field, nullptr});
    m_state.fieldShown = true;
}

void RtfInterpreter::readFieldResult()
{
    if (m_state.fieldShown)
        skipGroup();
}

void RtfInterpreter::omitGroup(const char *what)
{
    if (inBody())
        note(m_read.omitted, QString::fromLatin1(what));
    skipGroup();
}

/// Passes the group over, and puts it into the text as an anchor when it ends.
void RtfInterpreter::keepGroup(const char *what)
{
    if (inBody() && !m_kept)
        m_kept = std::make_unique<AnchorRecorder>(QString::fromLatin1(what), m_starred, m_word, m_state.unicodeSkip,
                                                  m_codePage);
    skipGroup();
}

void RtfInterpreter::insertAnchor()
{
    auto anchor = std::make_shared<const Anchor>(m_kept->finish());
    m_kept.reset();
    note(m_read.unseen, anchor->what);
    const State skipped = std::exchange(m_state, m_saved.back());
    insertObject({{}, m_state.chars, Field::None, nullptr, std::move(anchor)});
    m_state = skipped;
}

void RtfInterpreter::note(QStringList &kinds, const QString &what)
{
    if (!kinds.contains(what))
        kinds += what;
}

void RtfInterpreter::readPicture()
{
    if (!inBody())
        return skipGroup();
    m_state.destination = Destination::Picture;
    m_picture = Picture();
    m_highDigit = -1;
    m_pictureText = std::make_unique<AnchorRecorder>(QStringLiteral("picture of a kind that is not drawn"), m_starred,
                                                     m_word, m_state.unicodeSkip, m_codePage);
}

void RtfInterpreter::pictureText(QByteArrayView hex)
{
    for (const char c : hex) {
        const int value = hexValue(c);
        if (value < 0)
            continue;
        if (m_highDigit < 0) {
            m_highDigit = value;
            continue;
        }
        m_picture.data += static_cast<char>(m_highDigit * 16 + value);
        m_highDigit = -1;
    }
}

/// Kinds that we do not draw (metafiles) are kept as they stand.
void RtfInterpreter::endPicture()
{
    Picture picture = std::move(m_picture);
    m_picture = Picture();
    auto anchor = std::make_shared<const Anchor>(m_pictureText->finish());
    m_pictureText.reset();
    if (!inBody())
        return;
    if (picture.kind == Picture::Unknown) {
        note(m_read.unseen, anchor->what);
        return insertObject({{}, m_state.chars, Field::None, nullptr, std::move(anchor)});
    }
    picture.image = decoded(picture, m_pixels);
    if (picture.image.isNull()) {
        fail(QStringLiteral("a picture can not be read"));
        return;
    }
    if (picture.width <= 0)
        picture.width = std::min(largestLength, picture.image.width() * twipsPerPixel);
    if (picture.height <= 0)
        picture.height = std::min(largestLength, picture.image.height() * twipsPerPixel);
    insertObject({{}, m_state.chars, Field::None, std::make_shared<const Picture>(std::move(picture))});
}

} // namespace ledgora::reporter
