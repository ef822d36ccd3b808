#include "components/reporter/RtfWord.h"

#include <algorithm>
#include <cstdlib>
#include <string_view>
#include <unordered_map>

namespace ledgora::reporter {

namespace {

constexpr int mostColumns = 8;

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

template<Alignment alignment>
void align(Interpreter &i, int)
{
    i.paragraph().alignment = alignment;
}

/// Words about the document's page hold for the section that has begun as well, until it says otherwise itself.
template<Twips PageSetup::*member>
void documentPage(Interpreter &i, int value)
{
    i.documentPage().*member = i.page().*member = pageLength(value);
}

template<Twips PageSetup::*member>
void sectionPage(Interpreter &i, int value)
{
    i.page().*member = pageLength(value);
}

template<Side side>
void documentMargin(Interpreter &i, int value)
{
    i.documentPage().margins[side] = i.page().margins[side] = positiveLength(value);
}

template<Side side>
void sectionMargin(Interpreter &i, int value)
{
    i.page().margins[side] = positiveLength(value);
}

template<MarginText which>
void marginText(Interpreter &i, int)
{
    i.readMargin(which);
}

template<Side side>
void pageBorder(Interpreter &i, int)
{
    i.pageBorder(side);
}

template<Script position>
void script(Interpreter &i, int value)
{
    i.chars().script = value != 0 ? position : Script::Normal;
}

/// Bit 5: the borders keep their distance from the paper's edge and not from the text.
void borderOptions(Interpreter &i, int value)
{
    i.page().bordersFromEdge = (value & 32) != 0;
}

template<Side side>
void paragraphBorder(Interpreter &i, int)
{
    i.paragraphBorder(side);
}

template<LineStyle style>
void borderStyle(Interpreter &i, int)
{
    i.changeBorder([](BorderLine &border) { border.style = style; });
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
    {"widowctrl", {[](Interpreter &i, int) { i.setWidowControl(); }}},
    {"deff", {[](Interpreter &i, int v) { i.setDefaultFont(v); }}},
    {"fonttbl", {[](Interpreter &i, int) { i.readFonts(); }}},
    {"colortbl", {[](Interpreter &i, int) { i.readColours(); }}},
    {"red", {[](Interpreter &i, int v) { i.setColourPart(16, v); }}},
    {"green", {[](Interpreter &i, int v) { i.setColourPart(8, v); }}},
    {"blue", {[](Interpreter &i, int v) { i.setColourPart(0, v); }}},
    {"paperw", {documentPage<&PageSetup::width>, 11906}},
    {"paperh", {documentPage<&PageSetup::height>, 16838}},
    {"margl", {documentMargin<Left>, 1800}},
    {"margr", {documentMargin<Right>, 1800}},
    {"margt", {documentMargin<Top>, 1440}},
    {"margb", {documentMargin<Bottom>, 1440}},
    {"landscape", {[](Interpreter &i, int) { i.documentPage().landscape = i.page().landscape = true; }}},
    {"sectd", {[](Interpreter &i, int) { i.resetSection(); }}},
    {"sect", {[](Interpreter &i, int) { i.endSection(); }}},
    {"sbknone", {[](Interpreter &i, int) { i.section().newPage = false; }}},
    {"sbkpage", {[](Interpreter &i, int) { i.section().newPage = true; }}},
    {"sbkcol", {[](Interpreter &i, int) { i.section().newPage = true; }}},
    {"sbkeven", {[](Interpreter &i, int) { i.section().newPage = true; }}},
    {"sbkodd", {[](Interpreter &i, int) { i.section().newPage = true; }}},
    {"pgwsxn", {sectionPage<&PageSetup::width>, 11906}},
    {"pghsxn", {sectionPage<&PageSetup::height>, 16838}},
    {"marglsxn", {sectionMargin<Left>, 1800}},
    {"margrsxn", {sectionMargin<Right>, 1800}},
    {"margtsxn", {sectionMargin<Top>, 1440}},
    {"margbsxn", {sectionMargin<Bottom>, 1440}},
    {"lndscpsxn", {[](Interpreter &i, int) { i.page().landscape = true; }}},
    {"headery", {[](Interpreter &i, int v) { i.page().headerDistance = positiveLength(v); }, 720}},
    {"footery", {[](Interpreter &i, int v) { i.page().footerDistance = positiveLength(v); }, 720}},
    {"titlepg", {[](Interpreter &i, int) { i.page().titlePage = true; }}},
    {"pgnrestart", {[](Interpreter &i, int) { i.page().restartsPages = true; }}},
    {"pgncont", {[](Interpreter &i, int) { i.page().restartsPages = false; }}},
    {"cols", {[](Interpreter &i, int v) { i.page().columns = std::clamp(v, 1, mostColumns); }, 1}},
    {"colsx", {[](Interpreter &i, int v) { i.page().columnGap = positiveLength(v); }, 720}},
    {"upr", {[](Interpreter &i, int) { i.beginAlternative(); }}},
    {"pgbrdrt", {pageBorder<Top>}},
    {"pgbrdrl", {pageBorder<Left>}},
    {"pgbrdrb", {pageBorder<Bottom>}},
    {"pgbrdrr", {pageBorder<Right>}},
    {"pgbrdropt", {borderOptions}},
    {"header", {marginText<Header>}},
    {"headerr", {marginText<Header>}},
    {"headerf", {marginText<FirstHeader>}},
    {"footer", {marginText<Footer>}},
    {"footerr", {marginText<Footer>}},
    {"footerf", {marginText<FirstFooter>}},
    {"fldinst", {[](Interpreter &i, int) { i.readInstruction(); }}},
    {"fldrslt", {[](Interpreter &i, int) { i.readFieldResult(); }}},
    {"chpgn", {[](Interpreter &i, int) { i.insertField(Field::Page); }}},
    {"shppict", {[](Interpreter &, int) {}}},
    {"pict", {[](Interpreter &i, int) { i.readPicture(); }}},
    // Destinations whose text is not part of the page; the left pages are as the right ones.
    {"stylesheet", {skip}},
    {"info", {skip}},
    {"nonshppict", {skip}},
    {"nonesttables", {skip}},
    {"xe", {skip}},
    {"tc", {skip}},
    {"filetbl", {skip}},
    {"object", {[](Interpreter &i, int) { i.keepGroup("embedded object"); }}},
    {"shp", {[](Interpreter &i, int) { i.keepGroup("drawing"); }}},
    {"shpgrp", {[](Interpreter &i, int) { i.keepGroup("drawing"); }}},
    {"do", {[](Interpreter &i, int) { i.keepGroup("drawing"); }}},
    {"footnote", {[](Interpreter &i, int) { i.keepGroup("footnote"); }}},
    {"annotation", {[](Interpreter &i, int) { i.keepGroup("comment"); }}},
    {"headerl", {[](Interpreter &i, int) { i.omitGroup("header of left pages"); }}},
    {"footerl", {[](Interpreter &i, int) { i.omitGroup("footer of left pages"); }}},
};

const Words characterWords = {
    {"plain", {[](Interpreter &i, int) { i.resetChars(); }}},
    {"b", {[](Interpreter &i, int v) { i.chars().bold = v != 0; }, 1}},
    {"i", {[](Interpreter &i, int v) { i.chars().italic = v != 0; }, 1}},
    {"ul", {[](Interpreter &i, int v) { i.chars().underline = v != 0; }, 1}},
    {"ulnone", {[](Interpreter &i, int) { i.chars().underline = false; }}},
    {"strike", {[](Interpreter &i, int v) { i.chars().strike = v != 0; }, 1}},
    {"v", {[](Interpreter &i, int v) { i.chars().hidden = v != 0; }, 1}},
    {"caps", {[](Interpreter &i, int v) { i.chars().capitals = v != 0; }, 1}},
    {"super", {script<Script::Super>, 1}},
    {"sub", {script<Script::Sub>, 1}},
    {"nosupersub", {[](Interpreter &i, int) { i.chars().script = Script::Normal; }}},
    {"highlight", {[](Interpreter &i, int v) { i.chars().background = i.colour(v); }}},
    {"chcbpat", {[](Interpreter &i, int v) { i.chars().background = i.colour(v); }}},
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
    {"page", {[](Interpreter &i, int) { i.breakPage(); }}},
    {"pagebb", {[](Interpreter &i, int v) { i.paragraph().pageBreakBefore = v != 0; }, 1}},
    {"keep", {[](Interpreter &i, int v) { i.paragraph().keepTogether = v != 0; }, 1}},
    {"keepn", {[](Interpreter &i, int v) { i.paragraph().keepWithNext = v != 0; }, 1}},
    {"widctlpar", {[](Interpreter &i, int v) { i.paragraph().widowControl = v != 0; }, 1}},
    {"nowidctlpar", {[](Interpreter &i, int) { i.paragraph().widowControl = false; }}},
    {"intbl", {[](Interpreter &i, int v) { i.setInTable(v != 0); }, 1}},
    {"itap", {[](Interpreter &i, int v) { i.setTableLevel(v); }, 1}},
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
    {"brdrw",
     {[](Interpreter &i, int v) { i.changeBorder([v](BorderLine &b) { b.width = std::clamp(v, 1, 240); }); }, 15}},
    {"brdrcf", {[](Interpreter &i, int v) { i.changeBorder([c = i.colour(v)](BorderLine &b) { b.colour = c; }); }}},
    {"brsp", {[](Interpreter &i, int v) { i.changeBorder([v](BorderLine &b) { b.space = positiveLength(v); }); }}},
};

} // namespace

bool applyWord(RtfInterpreter &interpreter, QByteArrayView word, std::optional<int> parameter)
{
    const std::string_view name(word.data(), static_cast<std::size_t>(word.size()));
    for (const Words *words : {&characterWords, &paragraphWords, &borderWords, &documentWords}) {
        const auto found = words->find(name);
        if (found == words->end())
            continue;
        found->second.apply(interpreter, parameter.value_or(found->second.withoutNumber));
        return true;
    }
    return applyTableWord(interpreter, word, parameter);
}

} // namespace ledgora::reporter
