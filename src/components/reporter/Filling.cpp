#include "components/reporter/Filling.h"

#include "store/NumberFormat.h"
#include <algorithm>
#include <ranges>

namespace ledgora::reporter {

namespace {

constexpr QChar escape(0x1B);
// ESC E and ESC F of a value while it is being put in: codes that no text may hold, and no paragraph keeps.
constexpr QChar boldOn(0xFDD0);
constexpr QChar boldOff(0xFDD1);

bool isMark(QChar c)
{
    return c == boldOn || c == boldOff;
}

/// Bold that is not switched off again ends with the value.
QString lineText(const QString &value)
{
    QString text;
    text.reserve(value.size());
    bool bold = false;
    for (qsizetype i = 0; i < value.size(); ++i) {
        const QChar c = value[i];
        const QChar next = i + 1 < value.size() ? value[i + 1] : QChar();
        if (c == escape && (next == u'E' || next == u'F')) {
            bold = next == u'E';
            text += bold ? boldOn : boldOff;
            ++i;
        } else if (c == u'\r' || c == u'\n' || c == QChar(0x2028) || c == QChar(0x2029)) {
            text += lineBreak;
            if (c == u'\r' && next == u'\n')
                ++i;
        } else if (c == u'\t' || (c.category() != QChar::Other_Control && c != QChar(0xFFFC) && !isMark(c))) {
            text += c;
        }
    }
    if (bold)
        text += boldOff;
    return text;
}

/// Cuts runs at the marks in them; between the marks they are bold.
void applyMarks(std::vector<Run> &runs)
{
    std::vector<Run> cut;
    for (const Run &run : runs) {
        Run part = run;
        part.text.clear();
        for (const QChar c : run.text) {
            if (!isMark(c)) {
                part.text += c;
                continue;
            }
            cut.push_back(part);
            part.text.clear();
            part.format.bold = c == boldOn || run.format.bold;
        }
        cut.push_back(part);
    }
    runs = std::move(cut);
}

/// Removes `length` characters from position `at` of the paragraph's text; the first run they touch gets `text` in
/// their place.
void replaceSpan(std::vector<Run> &runs, qsizetype at, qsizetype length, const QString &text)
{
    bool inserted = false;
    for (Run &run : runs) {
        const qsizetype size = run.text.size();
        if (at >= size) {
            at -= size;
            continue;
        }
        const qsizetype taken = std::min(length, size - at);
        run.text.replace(at, taken, inserted ? QString() : text);
        inserted = true;
        length -= taken;
        at = 0;
        if (length == 0)
            return;
    }
}

/// Most paragraphs hold one or two placeholders, and most placeholders stand in one or two paragraphs: it pays to look
/// only where a "#" is.
bool holds(QStringView text, QStringView placeholder)
{
    if (!placeholder.startsWith(u'#'))
        return text.contains(placeholder);
    for (qsizetype at = text.indexOf(u'#'); at >= 0; at = text.indexOf(u'#', at + 1))
        if (text.sliced(at).startsWith(placeholder))
            return true;
    return false;
}

} // namespace

QString valueText(const PlaceholderValue &value)
{
    if (const auto *number = std::get_if<double>(&value))
        return plainNumber(*number);
    return lineText(std::get<QString>(value));
}

int replaceInParagraph(Paragraph &paragraph, const QString &placeholder, const QString &text)
{
    if (placeholder.isEmpty())
        return 0;
    const QString all = paragraph.text();
    std::vector<qsizetype> found;
    for (qsizetype at = all.indexOf(placeholder); at >= 0; at = all.indexOf(placeholder, at + placeholder.size()))
        found.push_back(at);
    // From the last to the first, so that the positions found stay right and what goes in is not searched again.
    for (const qsizetype at : std::views::reverse(found))
        replaceSpan(paragraph.runs, at, placeholder.size(), text);
    if (text.contains(boldOn) || text.contains(boldOff))
        applyMarks(paragraph.runs);
    if (!found.empty())
        std::erase_if(paragraph.runs, [](const Run &run) { return run.text.isEmpty(); });
    return static_cast<int>(found.size());
}

namespace {

/// Stands as hidden text in a paragraph that is not wanted without a value.
constexpr auto optionalMark = "[optional]";

bool isOptional(const Paragraph &paragraph)
{
    QString hidden;
    for (const Run &run : paragraph.runs) {
        if (run.format.hidden)
            hidden += run.text;
    }
    return hidden.contains(QLatin1String(optionalMark), Qt::CaseInsensitive);
}

/// Takes no more room than its end, which a template can make as small as it likes.
void clear(Paragraph &paragraph)
{
    paragraph.runs.clear();
    paragraph.format.spaceBefore = paragraph.format.spaceAfter = 0;
    paragraph.format.lineSpacing = {};
}

} // namespace

Filling::Filling(Document document) : m_document(std::move(document))
{
    everyParagraph(m_document, [this](Paragraph &paragraph) {
        const auto &runs = paragraph.runs;
        if (std::any_of(runs.begin(), runs.end(), [](const Run &run) { return run.text.contains(u'#'); }))
            m_open.push_back({&paragraph, paragraph.text(), isOptional(paragraph)});
    });
}

/// Paragraphs without a further "#" are done.
void Filling::closeFilled()
{
    std::erase_if(m_open, [](const Open &open) {
        if (open.text.contains(u'#'))
            return false;
        if (open.optional && !open.filled)
            clear(*open.paragraph);
        return true;
    });
}

int Filling::setText(const QString &placeholder, const PlaceholderValue &value)
{
    const QString text = valueText(value);
    int count = 0;
    for (Open &open : m_open) {
        if (!holds(open.text, placeholder))
            continue;
        count += replaceInParagraph(*open.paragraph, placeholder, text);
        open.filled = open.filled || !text.trimmed().isEmpty();
        open.text = open.paragraph->text();
    }
    if (count > 0)
        closeFilled();
    return count;
}

} // namespace ledgora::reporter
