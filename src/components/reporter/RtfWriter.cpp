#include "components/reporter/RtfWriter.h"

#include "components/reporter/RtfTables.h"
#include <algorithm>

namespace ledgora::reporter {

namespace {

struct SideWord
{
    Side side;
    const char *word;
};

constexpr std::array sideLetters = {SideWord{Top, "t"}, SideWord{Left, "l"}, SideWord{Bottom, "b"},
                                    SideWord{Right, "r"}};

class Writer
{
public:
    QByteArray write(const Document &document);

private:
    void section(const Section &section, const Section *former);
    void page(const PageSetup &page);
    void marginTexts(const Section &section, const Section *former);
    void blocks(const std::vector<Block> &blocks, int level, const char *lastEnd);
    void filler(int level, const char *end);
    void paragraph(const Paragraph &paragraph, int level, const char *end);
    void format(const ParagraphFormat &format);
    void format(const CharFormat &format);
    void border(const QByteArray &word, const BorderLine &border);
    void run(const Run &run);
    void field(const Run &run);
    void anchor(const Anchor &anchor);
    void picture(const Picture &picture);
    void table(const Table &table, int level);
    void definition(const Row &row);
    void padding(const QByteArray &word, const char *letter, const std::optional<Twips> &value);
    void cellFormat(const CellFormat &format);
    void words(std::initializer_list<std::pair<const char *, int>> pairs); ///< those whose value is not 0
    void flag(bool set, const char *word) { m_text += set ? word : ""; }

    QByteArray m_text;
    RtfTables m_tables;
};

const char *alignWord(Alignment alignment)
{
    switch (alignment) {
    case Alignment::Centre:
        return "\\qc";
    case Alignment::Right:
        return "\\qr";
    case Alignment::Justified:
        return "\\qj";
    default:
        return "\\ql";
    }
}

const char *styleWord(LineStyle style)
{
    switch (style) {
    case LineStyle::Double:
        return "\\brdrdb";
    case LineStyle::Dotted:
        return "\\brdrdot";
    case LineStyle::Dashed:
        return "\\brdrdash";
    default:
        return "\\brdrs";
    }
}

QByteArray Writer::write(const Document &document)
{
    m_tables.font(CharFormat().font); // number 0, what \plain goes back to
    const PageSetup &first = document.sections.front().page;
    m_text += rtfWord("\\paperw", first.width) + rtfWord("\\paperh", first.height);
    const auto &margins = first.margins;
    m_text += rtfWord("\\margl", margins[Left]) + rtfWord("\\margr", margins[Right]) + rtfWord("\\margt", margins[Top])
              + rtfWord("\\margb", margins[Bottom]) + "\n";
    const Section *former = nullptr;
    for (const Section &each : document.sections) {
        if (former)
            m_text += "\\pard\\plain\\fs2\\sect\n";
        section(each, former);
        former = &each;
    }
    return "{\\rtf1\\ansi\\ansicpg1252\\uc1\\deff0\n" + m_tables.text() + m_text + "}\n";
}

void Writer::words(std::initializer_list<std::pair<const char *, int>> pairs)
{
    for (const auto &[word, value] : pairs)
        if (value != 0)
            m_text += rtfWord(word, value);
}

void Writer::section(const Section &section, const Section *former)
{
    m_text += "\\sectd";
    m_text += section.newPage ? "\\sbkpage" : "\\sbknone";
    page(section.page);
    m_text += "\n";
    marginTexts(section, former);
    blocks(section.blocks, 0, "\\par");
}

void Writer::page(const PageSetup &page)
{
    const auto &margins = page.margins;
    m_text += rtfWord("\\pgwsxn", page.width) + rtfWord("\\pghsxn", page.height) + rtfWord("\\marglsxn", margins[Left])
              + rtfWord("\\margrsxn", margins[Right]) + rtfWord("\\margtsxn", margins[Top])
              + rtfWord("\\margbsxn", margins[Bottom]) + rtfWord("\\headery", page.headerDistance)
              + rtfWord("\\footery", page.footerDistance) + rtfWord("\\cols", page.columns)
              + rtfWord("\\colsx", page.columnGap);
    flag(page.landscape, "\\lndscpsxn");
    flag(page.titlePage, "\\titlepg");
    flag(page.restartsPages, "\\pgnrestart");
    flag(page.bordersFromEdge, "\\pgbrdropt32");
    for (const auto &[side, letter] : sideLetters)
        border(QByteArray("\\pgbrdr") + letter, page.borders[side]);
}

/// A section without a text of its own takes the former one's, so an empty one is written out when that had any.
void Writer::marginTexts(const Section &section, const Section *former)
{
    static constexpr std::array words = {"\\header", "\\footer", "\\headerf", "\\footerf"};
    for (std::size_t i = 0; i < words.size(); ++i) {
        const auto &text = section.margins[i];
        if (text.empty() && (!former || former->margins[i].empty()))
            continue;
        m_text += QByteArray("{") + words[i] + "\n";
        blocks(text, 0, "\\par");
        if (text.empty())
            m_text += "\\pard\\plain\\par";
        m_text += "}\n";
    }
}

/// The last paragraph ends as told; behind a table there must be one to do so.
void Writer::blocks(const std::vector<Block> &blocks, int level, const char *lastEnd)
{
    const Block *former = nullptr;
    for (const Block &block : blocks) {
        const bool last = &block == &blocks.back();
        if (const auto *text = std::get_if<Paragraph>(&block.content)) {
            paragraph(*text, level, last ? lastEnd : "\\par");
        } else {
            if (former && std::holds_alternative<Table>(former->content))
                filler(level, "\\par");
            table(std::get<Table>(block.content), level + 1);
        }
        former = &block;
    }
    if (level > 0 && (!former || std::holds_alternative<Table>(former->content)))
        filler(level, lastEnd);
}

void Writer::filler(int level, const char *end)
{
    Paragraph empty;
    empty.endFormat.halfPoints = 2;
    paragraph(empty, level, end);
}

void Writer::paragraph(const Paragraph &paragraph, int level, const char *end)
{
    m_text += "\\pard\\plain";
    if (level > 0)
        m_text += "\\intbl" + rtfWord("\\itap", level);
    format(paragraph.format);
    format(paragraph.endFormat);
    m_text += " ";
    for (const Run &each : paragraph.runs)
        run(each);
    m_text += QByteArray(end) + "\n";
}

void Writer::format(const ParagraphFormat &format)
{
    m_text += alignWord(format.alignment);
    flag(format.pageBreakBefore, "\\pagebb");
    flag(format.keepTogether, "\\keep");
    flag(format.keepWithNext, "\\keepn");
    flag(format.widowControl, "\\widctlpar");
    words({{"\\li", format.leftIndent},
           {"\\ri", format.rightIndent},
           {"\\fi", format.firstIndent},
           {"\\sb", format.spaceBefore},
           {"\\sa", format.spaceAfter}});
    if (format.lineSpacing != LineSpacing()) {
        const LineSpacing &spacing = format.lineSpacing;
        m_text += rtfWord("\\sl", spacing.rule == LineSpacing::Exact ? -spacing.value : spacing.value)
                  + rtfWord("\\slmult", spacing.rule == LineSpacing::Automatic ? 1 : 0);
    }
    for (const TabStop &tab : format.tabs) {
        flag(tab.alignment == Alignment::Right, "\\tqr");
        flag(tab.alignment == Alignment::Centre, "\\tqc");
        m_text += rtfWord("\\tx", tab.position);
    }
    for (const auto &[side, letter] : sideLetters)
        border(QByteArray("\\brdr") + letter, format.borders[side]);
    words({{"\\cbpat", m_tables.colour(format.shading)}});
}

void Writer::border(const QByteArray &word, const BorderLine &border)
{
    if (border == BorderLine())
        return;
    m_text += word;
    m_text += border.style == LineStyle::None ? "\\brdrnone" : styleWord(border.style);
    m_text += rtfWord("\\brdrw", border.width);
    words({{"\\brsp", border.space}, {"\\brdrcf", m_tables.colour(border.colour)}});
}

void Writer::format(const CharFormat &format)
{
    m_text += rtfWord("\\f", m_tables.font(format.font)) + rtfWord("\\fs", format.halfPoints);
    flag(format.bold, "\\b");
    flag(format.italic, "\\i");
    flag(format.underline, "\\ul");
    flag(format.strike, "\\strike");
    flag(format.capitals, "\\caps");
    flag(format.hidden, "\\v");
    flag(format.script == Script::Super, "\\super");
    flag(format.script == Script::Sub, "\\sub");
    words({{"\\cf", m_tables.colour(format.colour)}, {"\\chcbpat", m_tables.colour(format.background)}});
}

void Writer::run(const Run &run)
{
    if (run.field != Field::None)
        return field(run);
    m_text += "{\\plain";
    format(run.format);
    m_text += " ";
    if (run.picture)
        picture(*run.picture);
    else if (run.anchor)
        anchor(*run.anchor);
    else
        m_text += rtfText(run.text);
    m_text += "}";
}

QByteArray fieldName(Field field)
{
    switch (field) {
    case Field::PageCount:
        return QByteArrayLiteral("NUMPAGES");
    case Field::SectionPages:
        return QByteArrayLiteral("SECTIONPAGES");
    default:
        return QByteArrayLiteral("PAGE");
    }
}

void Writer::field(const Run &run)
{
    m_text += "{\\field{\\*\\fldinst{\\plain";
    format(run.format);
    m_text += ' ' + fieldName(run.field) + " }}{\\fldrslt{\\plain";
    format(run.format);
    m_text += " 1}}}";
}

void Writer::anchor(const Anchor &anchor)
{
    if (anchor.skip != 1)
        m_text += rtfWord("\\uc", anchor.skip);
    for (const AnchorPart &part : anchor.parts) {
        m_text += part.rtf;
        if (part.word.isEmpty())
            continue;
        const int number = part.font.isEmpty() ? m_tables.colour(part.colour) : m_tables.font(part.font);
        m_text += rtfWord('\\' + part.word, number) + ' ';
    }
}

void Writer::picture(const Picture &picture)
{
    constexpr qsizetype bytesInLine = 64;
    m_text += "{\\*\\shppict{\\pict";
    m_text += picture.kind == Picture::Png ? "\\pngblip" : "\\jpegblip";
    m_text += rtfWord("\\picw", picture.image.width()) + rtfWord("\\pich", picture.image.height())
              + rtfWord("\\picwgoal", picture.width) + rtfWord("\\pichgoal", picture.height)
              + rtfWord("\\picscalex", picture.scaleX) + rtfWord("\\picscaley", picture.scaleY);
    words({{"\\piccropt", picture.crop[Top]},
           {"\\piccropl", picture.crop[Left]},
           {"\\piccropb", picture.crop[Bottom]},
           {"\\piccropr", picture.crop[Right]}});
    for (qsizetype at = 0; at < picture.data.size(); at += bytesInLine)
        m_text += "\n" + picture.data.mid(at, bytesInLine).toHex();
    m_text += "}}";
}

/// The definition of a row stands before its cells, that of a nested one behind them.
void Writer::table(const Table &table, int level)
{
    for (const Row &row : table.rows) {
        if (level == 1)
            definition(row);
        for (const Cell &cell : row.cells)
            blocks(cell.blocks, level, level == 1 ? "\\cell" : "\\nestcell");
        if (level == 1) {
            m_text += "\\row\n";
            continue;
        }
        m_text += "{\\*\\nesttableprops";
        definition(row);
        m_text += "\\nestrow}{\\nonesttables\\par}\n";
    }
}

void Writer::definition(const Row &row)
{
    const RowFormat &format = row.format;
    m_text += "\\trowd" + rtfWord("\\trgaph", format.gap) + rtfWord("\\trleft", format.leftEdge);
    flag(format.alignment == Alignment::Centre, "\\trqc");
    flag(format.alignment == Alignment::Right, "\\trqr");
    flag(format.heading, "\\trhdr");
    flag(format.keepTogether, "\\trkeep");
    words({{"\\trrh", format.height.rule == RowHeight::Exact ? -format.height.value : format.height.value}});
    for (const auto &[side, letter] : sideLetters)
        padding("\\trpadd", letter, format.padding[side]);
    m_text += "\n";
    for (const Cell &cell : row.cells)
        cellFormat(cell.format);
}

/// The unit of a padding is a word of its own; 3 stands for twips.
void Writer::padding(const QByteArray &word, const char *letter, const std::optional<Twips> &value)
{
    if (value)
        m_text += rtfWord(word + letter, *value) + word + "f" + letter + "3";
}

void Writer::cellFormat(const CellFormat &format)
{
    flag(format.acrossRows == Merge::First, "\\clvmgf");
    flag(format.acrossRows == Merge::Continued, "\\clvmrg");
    flag(format.acrossCells == Merge::First, "\\clmgf");
    flag(format.acrossCells == Merge::Continued, "\\clmrg");
    flag(format.verticalAlignment == VerticalAlignment::Centre, "\\clvertalc");
    flag(format.verticalAlignment == VerticalAlignment::Bottom, "\\clvertalb");
    for (const auto &[side, letter] : sideLetters) {
        border(QByteArray("\\clbrdr") + letter, format.borders[side]);
        padding("\\clpad", letter, format.padding[side]);
    }
    words({{"\\clcbpat", m_tables.colour(format.shading)}});
    m_text += rtfWord("\\cellx", format.rightEdge) + "\n";
}

} // namespace

QByteArray writeRtf(const Document &document)
{
    return Writer().write(document);
}

} // namespace ledgora::reporter
