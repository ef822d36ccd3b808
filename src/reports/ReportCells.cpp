#include "reports/ReportCells.h"

#include <algorithm>
#include <array>

namespace ledgora {

namespace {

constexpr char16_t escape = 0x1B;
constexpr char16_t condensedPitch = 0x0F;
constexpr char16_t normalPitch = 0x12;
constexpr char16_t lineEnd = u'\n';

/// A cell's text without its codes, its lines parted by `lineEnd`, and where the weight changes.
struct Plain
{
    QString text;
    std::vector<std::pair<qsizetype, bool>> weights; ///< from that position on bold, or no longer
};

/// Takes the code at `at`, if one stands there; answers how many characters it has.
qsizetype takeCode(QStringView cell, qsizetype at, PrintState &state)
{
    const char16_t first = cell[at].unicode();
    const bool escaped = first == escape;
    const char16_t behind = at + 1 < cell.size() ? cell[at + 1].unicode() : u'\0';
    const char16_t c = escaped ? behind : first;
    if (c == condensedPitch || c == normalPitch)
        state.condensed = c == condensedPitch;
    else if (escaped && (c == u'E' || c == u'F'))
        state.bold = c == u'E';
    else
        return escaped && c == u'P' ? 2 : 0; // the pitch proper was told by the code before
    return escaped ? 2 : 1;
}

/// Line breaks of all kinds; answers how many characters one has.
qsizetype lineBreakAt(QStringView cell, qsizetype at)
{
    const char16_t c = cell[at].unicode();
    if (c == u'\r')
        return at + 1 < cell.size() && cell[at + 1] == u'\n' ? 2 : 1;
    return c == u'\n' || c == u'\v' || c == 0x2028 || c == 0x2029 ? 1 : 0;
}

Plain plainOf(QStringView cell, PrintState &state)
{
    Plain plain;
    plain.text.reserve(cell.size());
    for (qsizetype at = 0; at < cell.size();) {
        if (const qsizetype code = takeCode(cell, at, state); code > 0) {
            if (plain.weights.empty() || plain.weights.back().second != state.bold)
                plain.weights.emplace_back(plain.text.size(), state.bold);
            at += code;
            continue;
        }
        if (const qsizetype ending = lineBreakAt(cell, at); ending > 0) {
            plain.text += QChar(lineEnd);
            at += ending;
            continue;
        }
        const QChar c = cell[at++];
        if (c == u'\t')
            plain.text += u' ';
        else if (c.category() != QChar::Other_Control)
            plain.text += c;
    }
    return plain;
}

/// Nothing but signs of one cell each, no blank to care for and no codes: most cells of a report are so.
bool isSimple(QStringView cell)
{
    return std::all_of(cell.begin(), cell.end(), [](QChar c) {
        return c.unicode() >= 0x20 && c.unicode() < 0x300 && c.unicode() != 0xAD
               && (c.unicode() < 0x7F || c.unicode() > 0x9F);
    });
}

char32_t signAt(QStringView text, qsizetype at)
{
    const QChar c = text[at];
    if (c.isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate())
        return QChar::surrogateToUcs4(c, text[at + 1]);
    return c.unicode();
}

qsizetype unitsOf(char32_t sign)
{
    return QChar::requiresSurrogates(sign) ? 2 : 1;
}

bool takesTwoCells(char32_t sign)
{
    constexpr std::array<std::pair<char32_t, char32_t>, 14> wide{{{0x1100, 0x115F},
                                                                  {0x2E80, 0x303E},
                                                                  {0x3041, 0x33FF},
                                                                  {0x3400, 0x4DBF},
                                                                  {0x4E00, 0x9FFF},
                                                                  {0xA000, 0xA4CF},
                                                                  {0xAC00, 0xD7A3},
                                                                  {0xF900, 0xFAFF},
                                                                  {0xFE30, 0xFE6F},
                                                                  {0xFF00, 0xFF60},
                                                                  {0xFFE0, 0xFFE6},
                                                                  {0x1F300, 0x1F64F},
                                                                  {0x1F900, 0x1F9FF},
                                                                  {0x20000, 0x3FFFD}}};
    return std::any_of(wide.begin(), wide.end(),
                       [sign](const auto &range) { return sign >= range.first && sign <= range.second; });
}

int widthOf(char32_t sign)
{
    if (sign < 0x300)
        return sign == 0xAD ? 0 : 1;
    switch (QChar::category(sign)) {
    case QChar::Mark_NonSpacing:
    case QChar::Mark_Enclosing:
    case QChar::Other_Format:
        return 0;
    default:
        return takesTwoCells(sign) ? 2 : 1;
    }
}

/// A sign with the marks on it, and in Indian scripts with the consonants that are bound to it.
struct Cluster
{
    qsizetype end;
    int width;
};

bool bindsToBefore(char32_t sign)
{
    const QChar::Category category = QChar::category(sign);
    return category == QChar::Mark_NonSpacing || category == QChar::Mark_Enclosing
           || category == QChar::Mark_SpacingCombining || category == QChar::Other_Format;
}

Cluster clusterAt(QStringView text, qsizetype at)
{
    constexpr int virama = 9; // the combining class of signs that bind the next consonant
    char32_t sign = signAt(text, at);
    Cluster cluster{at + unitsOf(sign), widthOf(sign)};
    while (cluster.end < text.size()) {
        const char32_t next = signAt(text, cluster.end);
        const bool bound = QChar::combiningClass(sign) == virama && QChar::isLetter(next);
        if (next < 0x300 || !(bound || bindsToBefore(next)))
            break;
        cluster.end += unitsOf(next);
        cluster.width += widthOf(next);
        sign = next;
    }
    return cluster;
}

qsizetype behindBlanks(QStringView text, qsizetype at, qsizetype to)
{
    while (at < to && text[at] == u' ')
        ++at;
    return at;
}

/// Calls `emit(from, to)` for each line of the stretch [from, to), which holds no line end.
template<class Emit>
void breakLines(QStringView text, qsizetype from, qsizetype to, int width, Emit &&emit)
{
    qsizetype begin = from;
    qsizetype blank = -1; // the last one behind a word in this line
    int taken = 0;
    for (qsizetype at = from; at < to;) {
        const Cluster cluster = clusterAt(text.first(to), at);
        if (taken + cluster.width > width && at > begin) {
            const qsizetype end = text[at] == u' ' || blank < 0 ? at : blank;
            emit(begin, end);
            begin = behindBlanks(text, end, to);
            at = std::max(at, begin);
            taken = at > begin ? cellsWide(text.sliced(begin, at - begin)) : 0;
            blank = -1;
            if (begin == to)
                return;
            continue;
        }
        if (text[at] == u' ' && at > begin && text[at - 1] != u' ')
            blank = at;
        taken += cluster.width;
        at = cluster.end;
    }
    emit(begin, to);
}

CellLine piecesOf(const Plain &plain, qsizetype from, qsizetype to, bool bold)
{
    while (to > from && plain.text[to - 1] == u' ')
        --to;
    CellLine line;
    int column = 0;
    const auto add = [&](qsizetype end) {
        if (end <= from)
            return;
        const QString text = plain.text.sliced(from, end - from);
        const int width = cellsWide(text);
        line.push_back({text, bold, column, width});
        column += width;
        from = end;
    };
    for (const auto &[at, weight] : plain.weights) {
        if (at >= to)
            break;
        if (weight != bold)
            add(at);
        bold = weight;
    }
    add(to);
    return line;
}

} // namespace

int widthOf(const CellLine &line)
{
    return line.empty() ? 0 : line.back().column + line.back().width;
}

int cellsWide(QStringView text)
{
    if (isSimple(text))
        return int(text.size());
    int width = 0;
    for (qsizetype at = 0; at < text.size();) {
        const char32_t sign = signAt(text, at);
        width += widthOf(sign);
        at += unitsOf(sign);
    }
    return width;
}

QString shownText(QStringView cell)
{
    if (isSimple(cell))
        return cell.toString();
    PrintState state;
    return plainOf(cell, state).text.replace(QChar(lineEnd), QStringLiteral("\r\n"));
}

std::vector<CellLine> wrapCell(QStringView cell, int width, PrintState &state)
{
    if (cell.size() <= width && isSimple(cell)) {
        while (cell.endsWith(u' '))
            cell.chop(1);
        return {cell.isEmpty() ? CellLine() : CellLine{{cell.toString(), state.bold, 0, int(cell.size())}}};
    }
    std::vector<CellLine> lines;
    const bool bold = state.bold;
    const Plain plain = plainOf(cell, state);
    const auto emit = [&](qsizetype from, qsizetype to) { lines.push_back(piecesOf(plain, from, to, bold)); };
    for (qsizetype from = 0; from <= plain.text.size();) {
        qsizetype to = plain.text.indexOf(QChar(lineEnd), from);
        if (to < 0)
            to = plain.text.size();
        breakLines(plain.text, from, to, std::max(1, width), emit);
        from = to + 1;
    }
    return lines;
}

int wrappedLines(QStringView cell, int width, PrintState &state)
{
    if (cell.size() <= width && isSimple(cell))
        return 1;
    return int(wrapCell(cell, width, state).size());
}

PrintState afterLeadingCodes(QStringView cell, PrintState state)
{
    for (qsizetype at = 0; at < cell.size();) {
        const qsizetype code = takeCode(cell, at, state);
        if (code == 0)
            break;
        at += code;
    }
    return state;
}

} // namespace ledgora
