#include "components/reporter/Filling.h"

#include "store/NumberFormat.h"
#include <algorithm>
#include <ranges>

namespace ledgora::reporter {

namespace {

QString lineText(const QString &value)
{
    QString text;
    text.reserve(value.size());
    for (qsizetype i = 0; i < value.size(); ++i) {
        const QChar c = value[i];
        if (c == u'\r' || c == u'\n' || c == QChar(0x2028) || c == QChar(0x2029)) {
            text += lineBreak;
            if (c == u'\r' && i + 1 < value.size() && value[i + 1] == u'\n')
                ++i;
        } else if (c == u'\t' || (c.category() != QChar::Other_Control && c != QChar(0xFFFC))) {
            text += c;
        }
    }
    return text;
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
    if (!found.empty())
        std::erase_if(paragraph.runs, [](const Run &run) { return run.text.isEmpty(); });
    return static_cast<int>(found.size());
}

Filling::Filling(Document document) : m_document(std::move(document))
{
    eachParagraph(m_document.blocks, [this](Paragraph &paragraph) {
        const auto &runs = paragraph.runs;
        if (std::any_of(runs.begin(), runs.end(), [](const Run &run) { return run.text.contains(u'#'); }))
            m_open.push_back(&paragraph);
    });
}

int Filling::setText(const QString &placeholder, const PlaceholderValue &value)
{
    const QString text = valueText(value);
    int count = 0;
    for (Paragraph *paragraph : m_open)
        count += replaceInParagraph(*paragraph, placeholder, text);
    if (count > 0)
        std::erase_if(m_open, [](const Paragraph *paragraph) { return !paragraph->text().contains(u'#'); });
    return count;
}

} // namespace ledgora::reporter
