#pragma once

#include <QImage>
#include <QRgb>
#include <QSizeF>
#include <QString>
#include <algorithm>
#include <array>
#include <memory>
#include <optional>
#include <variant>
#include <vector>

namespace ledgora::reporter {

// The document model: what stands between the template file and the page. Plain values, so that a parsed template is
// cloned by copying it (texts share their storage). Everything that measures a length is in twips, 1/1440 inch;
// colours are opaque RGB, none being "automatic": black for text and rules, no filling for areas.

using Twips = int;
using Colour = std::optional<QRgb>;

/// Lengths beyond this (22 inches) are cut on reading: no page is larger, and sums stay far from overflow.
constexpr Twips largestLength = 31680;

enum class LineStyle { None, Single, Double, Dotted, Dashed };

struct BorderLine
{
    LineStyle style = LineStyle::None;
    Twips width = 15;
    Colour colour;
    Twips space = 0; ///< distance to the text; paragraphs only

    bool operator==(const BorderLine &) const = default;
};

/// The sides of a box, in the order of the arrays below.
enum Side { Top, Left, Bottom, Right };

template<class Value>
using Sides = std::array<Value, 4>;

enum class Script { Normal, Super, Sub };

struct CharFormat
{
    QString font = QStringLiteral("Liberation Serif");
    int halfPoints = 24;
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strike = false;
    bool capitals = false; ///< shown in capitals, whatever the text holds
    bool hidden = false;   ///< takes no room and is not shown, but a save keeps it
    Script script = Script::Normal;
    Colour colour;
    Colour background;

    bool operator==(const CharFormat &) const = default;
};

/// A picture that stands in a line like a character. `data` is the file as it was embedded and is what a save writes
/// again; `image` is the same decoded once, shared by all clones of a document.
struct Picture
{
    enum Kind { Unknown, Png, Jpeg };
    Kind kind = Unknown;
    QByteArray data;
    QImage image;
    Twips width = 0; ///< of the whole picture, before it is cropped and scaled
    Twips height = 0;
    int scaleX = 100; ///< percent
    int scaleY = 100;
    Sides<Twips> crop = {}; ///< of the unscaled picture; negative adds empty room

    /// What it takes on paper.
    QSizeF shownSize() const
    {
        const auto shown = [](Twips whole, int scale) {
            return std::clamp<qreal>(static_cast<qreal>(whole) * scale / 100, 1, largestLength);
        };
        return {shown(width - crop[Left] - crop[Right], scaleX), shown(height - crop[Top] - crop[Bottom], scaleY)};
    }
    bool operator==(const Picture &other) const
    {
        return kind == other.kind && data == other.data && width == other.width && height == other.height
               && scaleX == other.scaleX && scaleY == other.scaleY && crop == other.crop;
    }
};

/// A stretch of RTF text, and behind it a word whose number is that of a font, or of a colour where `font` is "".
struct AnchorPart
{
    QByteArray rtf;
    QByteArray word; ///< "" in the last part
    QString font;
    Colour colour;

    bool operator==(const AnchorPart &) const = default;
};

/// What the model does not know, such as a drawing or a footnote: it is not shown, but a save writes it again where it
/// stood.
struct Anchor
{
    QString what; ///< its kind, in English
    int skip = 1; ///< characters that stand behind each `\u` for old readers
    std::vector<AnchorPart> parts;

    bool operator==(const Anchor &) const = default;
};

enum class Field { None, Page, PageCount, SectionPages };

/// In a run's text a TAB moves to the next tab stop and `lineBreak` begins a new line of the same paragraph; it holds
/// no other control characters.
constexpr QChar lineBreak(0x2028);

/// A stretch of text in one format, or one field, picture or anchor; these have a single U+FFFC as
/// text.
struct Run
{
    QString text;
    CharFormat format;
    Field field = Field::None;
    std::shared_ptr<const Picture> picture = nullptr;
    std::shared_ptr<const Anchor> anchor = nullptr;

    bool isText() const { return field == Field::None && !picture && !anchor; }
    bool operator==(const Run &other) const
    {
        const bool samePicture = picture == other.picture || (picture && other.picture && *picture == *other.picture);
        const bool sameAnchor = anchor == other.anchor || (anchor && other.anchor && *anchor == *other.anchor);
        return samePicture && sameAnchor && field == other.field && text == other.text && format == other.format;
    }
};

enum class Alignment { Left, Centre, Right, Justified };

/// `position` is measured from the left edge of the column of text, not from the paragraph's indent.
struct TabStop
{
    Twips position = 0;
    Alignment alignment = Alignment::Left;

    bool operator==(const TabStop &) const = default;
};

/// Automatic: the height of the fonts times `value`/240. Least and Exact: `value` in twips.
struct LineSpacing
{
    enum Rule { Automatic, Least, Exact };
    Rule rule = Automatic;
    Twips value = 240;

    bool operator==(const LineSpacing &) const = default;
};

struct ParagraphFormat
{
    Alignment alignment = Alignment::Left;
    Twips leftIndent = 0;
    Twips rightIndent = 0;
    Twips firstIndent = 0; ///< added to `leftIndent` in the first line; negative for a hanging indent
    Twips spaceBefore = 0;
    Twips spaceAfter = 0;
    LineSpacing lineSpacing;
    std::vector<TabStop> tabs; ///< in rising order
    Sides<BorderLine> borders;
    Colour shading;
    bool pageBreakBefore = false;
    bool keepTogether = false; ///< its lines stay on one page
    bool keepWithNext = false; ///< no page ends between it and what follows; in the first cell of a row, the next row
    bool widowControl = false; ///< no page ends behind its first line or ahead of its last one

    bool operator==(const ParagraphFormat &) const = default;
};

struct Paragraph
{
    std::vector<Run> runs;
    ParagraphFormat format;
    /// The format of the paragraph's end. It gives an empty paragraph its height, so that a row whose values are all
    /// empty can be made to shrink.
    CharFormat endFormat;

    QString text() const
    {
        QString all;
        for (const Run &run : runs)
            all += run.text;
        return all;
    }
    bool operator==(const Paragraph &) const = default;
};

struct Block;

enum class VerticalAlignment { Top, Centre, Bottom };

/// Part of a merge across cells or rows: the first cell holds the content, the others continue it.
enum class Merge { None, First, Continued };

struct CellFormat
{
    Twips rightEdge = 0; ///< measured as `RowFormat::leftEdge` is
    Sides<BorderLine> borders;
    Sides<std::optional<Twips>> padding; ///< where the cell differs from its row
    Colour shading;
    VerticalAlignment verticalAlignment = VerticalAlignment::Top;
    Merge acrossCells = Merge::None;
    Merge acrossRows = Merge::None;

    bool operator==(const CellFormat &) const = default;
};

struct Cell
{
    CellFormat format;
    std::vector<Block> blocks;

    bool operator==(const Cell &other) const;
};

struct RowHeight
{
    enum Rule { Least, Exact };
    Rule rule = Least;
    Twips value = 0;

    bool operator==(const RowHeight &) const = default;
};

struct RowFormat
{
    Twips leftEdge = 0; ///< from the left edge of the column of text; negative hangs out into the margin
    Twips gap = 0;      ///< default distance of a cell's text from its left and right edge
    Sides<std::optional<Twips>> padding;
    Alignment alignment = Alignment::Left; ///< of the table in its column; the edges are used when it is Left
    RowHeight height;
    bool heading = false; ///< repeated on each page that the table reaches; only at the top of a table
    bool keepTogether = false;

    bool operator==(const RowFormat &) const = default;
};

struct Row
{
    RowFormat format;
    std::vector<Cell> cells;

    bool operator==(const Row &) const = default;
};

struct Table
{
    std::vector<Row> rows;

    bool operator==(const Table &) const = default;
};

struct Block
{
    std::variant<Paragraph, Table> content;

    bool operator==(const Block &) const = default;
};

inline bool Cell::operator==(const Cell &other) const
{
    return format == other.format && blocks == other.blocks;
}

struct PageSetup
{
    Twips width = 11906; ///< A4; of a landscape page the longer side
    Twips height = 16838;
    Sides<Twips> margins = {1440, 1440, 1440, 1440};
    bool landscape = false;
    Twips headerDistance = 720; ///< from the paper's edge
    Twips footerDistance = 720;
    bool titlePage = false;     ///< the first page has its own header and footer
    bool restartsPages = false; ///< its pages are numbered from 1
    int columns = 1;
    Twips columnGap = 720;
    Sides<BorderLine> borders = {}; ///< around the text, or along the paper's edge
    bool bordersFromEdge = false;

    bool operator==(const PageSetup &) const = default;
};

/// The texts in a page's margins, in the order of the array below.
enum MarginText { Header, Footer, FirstHeader, FirstFooter };

struct Section
{
    PageSetup page;
    bool newPage = true; ///< else it goes on below the section before, on the same page
    std::array<std::vector<Block>, 4> margins;
    std::vector<Block> blocks;

    bool operator==(const Section &) const = default;
};

/// Always at least one section.
struct Document
{
    std::vector<Section> sections = std::vector<Section>(1);

    bool operator==(const Document &) const = default;
};

/// Calls `visit(Paragraph &)` for every paragraph in reading order, those inside of tables included; on const blocks
/// with a const one.
template<class Blocks, class Visitor>
void eachParagraph(Blocks &blocks, Visitor &&visit)
{
    for (auto &block : blocks) {
        if (auto *paragraph = std::get_if<Paragraph>(&block.content)) {
            visit(*paragraph);
            continue;
        }
        for (auto &row : std::get<Table>(block.content).rows)
            for (auto &cell : row.cells)
                eachParagraph(cell.blocks, visit);
    }
}

/// The same for a whole document, headers and footers included.
template<class AnyDocument, class Visitor>
void everyParagraph(AnyDocument &document, Visitor &&visit)
{
    for (auto &section : document.sections) {
        for (auto &text : section.margins)
            eachParagraph(text, visit);
        eachParagraph(section.blocks, visit);
    }
}

} // namespace ledgora::reporter
