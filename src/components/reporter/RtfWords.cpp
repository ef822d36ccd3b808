#include "components/reporter/RtfInterpreter.h"

#include <algorithm>
#include <cstdlib>
#include <string_view>
#include <unordered_map>

namespace ledgora::reporter {

namespace {

using Interpreter = RtfInterpreter;

struct Word
{
    void (*apply)(Interpreter &, int);
    int withoutNumber = 0; ///< the parameter that a word without one means
};

int length(int value)
{
    return std::clamp(value, -largestLength, largestLength);
}

int positiveLength(int value)
{
    return std::clamp(value, 0, largestLength);
}

/// Pages below an inch would leave no room for text at all.
int pageLength(int value)
{
    return std::clamp(value, 1440, largestLength);
}

void lineSpacing(Interpreter &i, int value)
{
    LineSpacing &spacing = i.paragraph().lineSpacing;
    if (value == 0)
        spacing = LineSpacing();
    else
        spacing = {value > 0 ? LineSpacing::Least : LineSpacing::Exact, std::abs(length(value))};
}

void lineSpacingIsMultiple(Interpreter &i, int multiple)
{
    if (multiple == 1 && i.paragraph().lineSpacing.rule == LineSpacing::Least)
        i.paragraph().lineSpacing.rule = LineSpacing::Automatic;
}

void rowHeight(Interpreter &i, int value)
{
    i.row().height = {value < 0 ? RowHeight::Exact : RowHeight::Least, std::abs(length(value))};
}

template<Alignment alignment>
void align(Interpreter &i, int)
{
    i.paragraph().alignment = alignment;
}

template<Side side>
void rowPadding(Interpreter &i, int value)
{
    i.row().padding[side] = positiveLength(value);
}

template<Side side>
void cellPadding(Interpreter &i, int value)
{
    i.cell().padding[side] = positiveLength(value);
}

template<Side side>
void margin(Interpreter &i, int value)
{
    i.page().margins[side] = positiveLength(value);
}

template<Side side>
void paragraphBorder(Interpreter &i, int)
{
    i.paragraphBorder(side);
}

template<Side side>
void cellBorder(Interpreter &i, int)
{
    i.cellBorder(side);
}

template<LineStyle style>
void borderStyle(Interpreter &i, int)
{
    i.border().style = style;
}

template<char16_t code>
void character(Interpreter &i, int)
{
    i.insert(QChar(code));
}

void skip(Interpreter &i, int)
{
    i.skipGroup();
}

void noBorder(Interpreter &i, int)
{
    i.noBorder();
}

using Words = std::unordered_map<std::string_view, Word>;

const Words documentWords = {
    {"rtf", {[](Interpreter &, int) {}}},
    {"ansicpg", {[](Interpreter &i, int v) { i.setCodePage(v); }, 1252}},
    {"uc", {[](Interpreter &i, int v) { i.setUnicodeSkip(std::clamp(v, 0, 100)); }, 1}},
    {"u", {[](Interpreter &i, int v) { i.insertUnicode(v); }}},
    {"deff", {[](Interpreter &i, int v) { i.setDefaultFont(v); }}},
    {"fonttbl", {[](Interpreter &i, int) { i.readFonts(); }}},
    {"colortbl", {[](Interpreter &i, int) { i.readColours(); }}},
    {"red", {[](Interpreter &i, int v) { i.setColourPart(16, v); }}},
    {"green", {[](Interpreter &i, int v) { i.setColourPart(8, v); }}},
    {"blue", {[](Interpreter &i, int v) { i.setColourPart(0, v); }}},
    {"paperw", {[](Interpreter &i, int v) { i.page().width = pageLength(v); }, 11906}},
    {"paperh", {[](Interpreter &i, int v) { i.page().height = pageLength(v); }, 16838}},
    {"margl", {margin<Left>, 1800}},
    {"margr", {margin<Right>, 1800}},
    {"margt", {margin<Top>, 1440}},
    {"margb", {margin<Bottom>, 1440}},
    {"pgwsxn", {[](Interpreter &i, int v) { i.page().width = pageLength(v); }, 11906}},
    {"pghsxn", {[](Interpreter &i, int v) { i.page().height = pageLength(v); }, 16838}},
    {"marglsxn", {margin<Left>, 1800}},
    {"margrsxn", {margin<Right>, 1800}},
    {"margtsxn", {margin<Top>, 1440}},
    {"margbsxn", {margin<Bottom>, 1440}},
    // Destinations whose text is not part of the page, or not yet.
    {"stylesheet", {skip}},
    {"info", {skip}},
    {"pict", {skip}},
    {"object", {skip}},
    {"nonshppict", {skip}},
    {"nonesttables", {skip}},
    {"header", {skip}},
    {"headerl", {skip}},
    {"headerr", {skip}},
    {"headerf", {skip}},
    {"footer", {skip}},
    {"footerl", {skip}},
    {"footerr", {skip}},
    {"footerf", {skip}},
    {"footnote", {skip}},
    {"fldinst", {skip}},
    {"xe", {skip}},
    {"tc", {skip}},
    {"filetbl", {skip}},
};

const Words characterWords = {
    {"plain", {[](Interpreter &i, int) { i.resetChars(); }}},
    {"b", {[](Interpreter &i, int v) { i.chars().bold = v != 0; }, 1}},
    {"i", {[](Interpreter &i, int v) { i.chars().italic = v != 0; }, 1}},
    {"ul", {[](Interpreter &i, int v) { i.chars().underline = v != 0; }, 1}},
    {"ulnone", {[](Interpreter &i, int) { i.chars().underline = false; }}},
    {"f", {[](Interpreter &i, int v) { i.setFont(v); }}},
    {"fs", {[](Interpreter &i, int v) { i.chars().halfPoints = std::clamp(v, 1, 3276); }, 24}},
    {"cf", {[](Interpreter &i, int v) { i.chars().colour = i.colour(v); }}},
    {"tab", {character<u'\t'>}},
    {"line", {character<0x2028>}},
    {"emdash", {character<0x2014>}},
    {"endash", {character<0x2013>}},
    {"emspace", {character<0x2003>}},
    {"enspace", {character<0x2002>}},
    {"lquote", {character<0x2018>}},
    {"rquote", {character<0x2019>}},
    {"ldblquote", {character<0x201C>}},
    {"rdblquote", {character<0x201D>}},
    {"bullet", {character<0x2022>}},
};

const Words paragraphWords = {
    {"pard", {[](Interpreter &i, int) { i.resetParagraph(); }}},
    {"par", {[](Interpreter &i, int) { i.endParagraph(); }}},
    {"nestcell", {[](Interpreter &i, int) { i.endParagraph(); }}},
    {"page", {[](Interpreter &i, int) { i.breakPage(); }}},
    {"pagebb", {[](Interpreter &i, int v) { i.paragraph().pageBreakBefore = v != 0; }, 1}},
    {"intbl", {[](Interpreter &i, int v) { i.setInTable(v != 0); }, 1}},
    {"ql", {align<Alignment::Left>}},
    {"qc", {align<Alignment::Centre>}},
    {"qr", {align<Alignment::Right>}},
    {"qj", {align<Alignment::Justified>}},
    {"li", {[](Interpreter &i, int v) { i.paragraph().leftIndent = length(v); }}},
    {"ri", {[](Interpreter &i, int v) { i.paragraph().rightIndent = length(v); }}},
    {"fi", {[](Interpreter &i, int v) { i.paragraph().firstIndent = length(v); }}},
    {"sb", {[](Interpreter &i, int v) { i.paragraph().spaceBefore = positiveLength(v); }}},
    {"sa", {[](Interpreter &i, int v) { i.paragraph().spaceAfter = positiveLength(v); }}},
    {"sl", {lineSpacing}},
    {"slmult", {lineSpacingIsMultiple}},
    {"tx", {[](Interpreter &i, int v) { i.addTab(positiveLength(v)); }}},
    {"tqr", {[](Interpreter &i, int) { i.setTabAlignment(Alignment::Right); }}},
    {"tqc", {[](Interpreter &i, int) { i.setTabAlignment(Alignment::Centre); }}},
    {"cbpat", {[](Interpreter &i, int v) { i.paragraph().shading = i.colour(v); }}},
    {"brdrt", {paragraphBorder<Top>}},
    {"brdrl", {paragraphBorder<Left>}},
    {"brdrb", {paragraphBorder<Bottom>}},
    {"brdrr", {paragraphBorder<Right>}},
    {"box", {[](Interpreter &i, int) { i.paragraphBox(); }}},
    {"brdrbtw", {noBorder}},
    {"brdrbar", {noBorder}},
};

const Words borderWords = {
    {"brdrs", {borderStyle<LineStyle::Single>}},
    {"brdrth", {borderStyle<LineStyle::Single>}},
    {"brdrhair", {borderStyle<LineStyle::Single>}},
    {"brdrdb", {borderStyle<LineStyle::Double>}},
    {"brdrdot", {borderStyle<LineStyle::Dotted>}},
    {"brdrdash", {borderStyle<LineStyle::Dashed>}},
    {"brdrnone", {borderStyle<LineStyle::None>}},
    {"brdrnil", {borderStyle<LineStyle::None>}},
    {"brdrw", {[](Interpreter &i, int v) { i.border().width = std::clamp(v, 1, 240); }, 15}},
    {"brdrcf", {[](Interpreter &i, int v) { i.border().colour = i.colour(v); }}},
    {"brsp", {[](Interpreter &i, int v) { i.border().space = positiveLength(v); }}},
};

const Words tableWords = {
    {"trowd", {[](Interpreter &i, int) { i.resetRow(); }}},
    {"cell", {[](Interpreter &i, int) { i.endCell(); }}},
    {"row", {[](Interpreter &i, int) { i.endRow(); }}},
    {"cellx", {[](Interpreter &i, int v) { i.endCellFormat(length(v)); }}},
    {"trgaph", {[](Interpreter &i, int v) { i.row().gap = positiveLength(v); }}},
    {"trleft", {[](Interpreter &i, int v) { i.row().leftEdge = length(v); }}},
    {"trrh", {rowHeight}},
    {"trhdr", {[](Interpreter &i, int) { i.row().heading = true; }}},
    {"trkeep", {[](Interpreter &i, int) { i.row().keepTogether = true; }}},
    {"trpaddt", {rowPadding<Top>}},
    {"trpaddl", {rowPadding<Left>}},
    {"trpaddb", {rowPadding<Bottom>}},
    {"trpaddr", {rowPadding<Right>}},
    {"trbrdrt", {noBorder}},
    {"trbrdrl", {noBorder}},
    {"trbrdrb", {noBorder}},
    {"trbrdrr", {noBorder}},
    {"trbrdrh", {noBorder}},
    {"trbrdrv", {noBorder}},
    {"clbrdrt", {cellBorder<Top>}},
    {"clbrdrl", {cellBorder<Left>}},
    {"clbrdrb", {cellBorder<Bottom>}},
    {"clbrdrr", {cellBorder<Right>}},
    {"cldglu", {noBorder}},
    {"cldgll", {noBorder}},
    {"clpadt", {cellPadding<Top>}},
    {"clpadl", {cellPadding<Left>}},
    {"clpadb", {cellPadding<Bottom>}},
    {"clpadr", {cellPadding<Right>}},
    {"clvertalt", {[](Interpreter &i, int) { i.cell().verticalAlignment = VerticalAlignment::Top; }}},
    {"clvertalc", {[](Interpreter &i, int) { i.cell().verticalAlignment = VerticalAlignment::Centre; }}},
    {"clvertalb", {[](Interpreter &i, int) { i.cell().verticalAlignment = VerticalAlignment::Bottom; }}},
    {"clcbpat", {[](Interpreter &i, int v) { i.cell().shading = i.colour(v); }}},
    {"clmgf", {[](Interpreter &i, int) { i.cell().acrossCells = Merge::First; }}},
    {"clmrg", {[](Interpreter &i, int) { i.cell().acrossCells = Merge::Continued; }}},
    {"clvmgf", {[](Interpreter &i, int) { i.cell().acrossRows = Merge::First; }}},
    {"clvmrg", {[](Interpreter &i, int) { i.cell().acrossRows = Merge::Continued; }}},
};

} // namespace

bool applyWord(RtfInterpreter &interpreter, QByteArrayView word, std::optional<int> parameter)
{
    const std::string_view name(word.data(), static_cast<std::size_t>(word.size()));
    for (const Words *words : {&characterWords, &paragraphWords, &tableWords, &borderWords, &documentWords}) {
        const auto found = words->find(name);
        if (found == words->end())
            continue;
        found->second.apply(interpreter, parameter.value_or(found->second.withoutNumber));
        return true;
    }
    return false;
}

} // namespace ledgora::reporter
