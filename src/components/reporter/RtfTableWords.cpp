#include "components/reporter/RtfWord.h"

#include <algorithm>
#include <cstdlib>
#include <string_view>
#include <unordered_map>

namespace ledgora::reporter {

namespace {

template<Alignment alignment>
void alignTable(Interpreter &i, int)
{
    i.row().alignment = alignment;
}

void rowHeight(Interpreter &i, int value)
{
    i.row().height = {value < 0 ? RowHeight::Exact : RowHeight::Least, std::abs(length(value))};
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
void cellBorder(Interpreter &i, int)
{
    i.cellBorder(side);
}

void noBorder(Interpreter &i, int)
{
    i.noBorder();
}

template<Side side>
void crop(Interpreter &i, int value)
{
    i.picture().crop[side] = length(value);
}

template<Twips Picture::*member>
void pictureLength(Interpreter &i, int value)
{
    i.picture().*member = positiveLength(value);
}

template<int Picture::*member>
void pictureScale(Interpreter &i, int value)
{
    i.picture().*member = std::clamp(value, 1, 10000);
}

template<Picture::Kind kind>
void pictureKind(Interpreter &i, int)
{
    i.picture().kind = kind;
}

using Words = std::unordered_map<std::string_view, Word>;

const Words tableWords = {
    {"trowd", {[](Interpreter &i, int) { i.resetRow(); }}},
    {"cell", {[](Interpreter &i, int) { i.endCell(); }}},
    {"row", {[](Interpreter &i, int) { i.endRow(); }}},
    {"cellx", {[](Interpreter &i, int v) { i.endCellFormat(length(v)); }}},
    {"nestcell", {[](Interpreter &i, int) { i.endNestedCell(); }}},
    {"nestrow", {[](Interpreter &i, int) { i.endNestedRow(); }}},
    {"nesttableprops", {[](Interpreter &i, int) { i.nestedRow(); }}},
    {"trql", {alignTable<Alignment::Left>}},
    {"trqc", {alignTable<Alignment::Centre>}},
    {"trqr", {alignTable<Alignment::Right>}},
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

const Words pictureWords = {
    {"pngblip", {pictureKind<Picture::Png>}},
    {"jpegblip", {pictureKind<Picture::Jpeg>}},
    {"picwgoal", {pictureLength<&Picture::width>}},
    {"pichgoal", {pictureLength<&Picture::height>}},
    {"picscalex", {pictureScale<&Picture::scaleX>, 100}},
    {"picscaley", {pictureScale<&Picture::scaleY>, 100}},
    {"piccropt", {crop<Top>}},
    {"piccropl", {crop<Left>}},
    {"piccropb", {crop<Bottom>}},
    {"piccropr", {crop<Right>}},
};

} // namespace

bool applyTableWord(RtfInterpreter &interpreter, QByteArrayView word, std::optional<int> parameter)
{
    const std::string_view name(word.data(), static_cast<std::size_t>(word.size()));
    for (const Words *words : {&tableWords, &pictureWords}) {
        const auto found = words->find(name);
        if (found == words->end())
            continue;
        found->second.apply(interpreter, parameter.value_or(found->second.withoutNumber));
        return true;
    }
    return false;
}

} // namespace ledgora::reporter
