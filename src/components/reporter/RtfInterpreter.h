#pragma once

#include "components/reporter/Document.h"
#include "components/reporter/RtfAnchor.h"
#include "components/reporter/RtfReader.h"
#include "components/reporter/RtfTokens.h"
#include <QHash>

namespace ledgora::reporter {

/// Gives the tokens of RTF text their meaning. The words themselves stand in tables (RtfWords.cpp, RtfTableWords.cpp)
/// whose entries call the operations below; here is what they act on: the state that groups save and restore, the
/// tables of fonts and colours, and the section, paragraph, cell and row that are being put together.
class RtfInterpreter
{
public:
    RtfRead read(QByteArrayView text);

    // What the tables of words use.
    CharFormat &chars() { return m_state.chars; }
    ParagraphFormat &paragraph() { return m_state.paragraph; }
    Section &section() { return m_read.document.sections.back(); }
    PageSetup &page() { return section().page; }
    PageSetup &documentPage() { return m_documentPage; }
    RowFormat &row() { return definition().row; }
    CellFormat &cell() { return definition().cell; }
    Picture &picture() { return m_picture; }
    /// The border that the words of style, width and colour speak of; a scratch value when it is one we do not draw.
    /// Changes the border that the words before have named; all four of a box.
    template<class Change>
    void changeBorder(Change change)
    {
        if (m_borderOwner != BorderOwner::Box)
            return change(border());
        for (BorderLine &side : m_state.paragraph.borders)
            change(side);
    }
    void beginAlternative();
    Colour colour(int index) const;
    /// The name of a font of the document's table, else that of the default one.
    QString fontName(int number) const;

    void setCodePage(int codePage) { m_codePage = codePage; }
    void setUnicodeSkip(int count) { m_state.unicodeSkip = count; }
    void setDefaultFont(int number) { m_defaultFont = number; }
    void setFont(int number);
    void setInTable(bool inTable) { m_state.inTable = inTable; }
    void setTableLevel(int level) { m_state.level = std::clamp(level, 0, mostTableLevels); }
    void setColourPart(int shift, int value);
    void setTabAlignment(Alignment alignment) { m_tabAlignment = alignment; }
    void addTab(int position);
    void paragraphBorder(Side side);
    void paragraphBox();
    void cellBorder(Side side);
    void pageBorder(Side side);
    void noBorder() { m_borderOwner = BorderOwner::None; }
    void resetChars();
    void resetParagraph();
    void setWidowControl();
    void resetRow();
    void resetSection();
    void endCellFormat(int rightEdge);
    void endParagraph();
    void endCell();
    void endNestedCell();
    void endRow();
    void endNestedRow();
    void nestedRow() { m_state.nestedRow = true; }
    void endSection();
    void breakPage();
    void insert(QChar character);
    void insertUnicode(int value);
    void insertField(Field field);
    void readFonts() { m_state.destination = Destination::Fonts; }
    void readColours();
    void readMargin(MarginText which);
    void readInstruction();
    void readFieldResult();
    void readPicture();
    void omitGroup(const char *what);
    void keepGroup(const char *what);
    void skipGroup() { m_state.destination = Destination::Skipped; }

private:
    /// Alternative: text for readers that know no Unicode, with the real one in a group inside it.
    enum class Destination { Body, Fonts, Colours, Instruction, Picture, Alternative, Skipped };
    enum class BorderOwner { None, Paragraph, Box, Cell, Page };
    struct State
    {
        CharFormat chars;
        ParagraphFormat paragraph;
        bool inTable = false;
        int level = 1;          ///< depth of the table, when in one
        bool nestedRow = false; ///< the words of rows and cells speak of a nested table
        bool fieldShown = false;
        Destination destination = Destination::Body;
        int unicodeSkip = 1;
    };
    BorderLine &border();
    /// What `\trowd` and the words behind it have said.
    struct RowDefinition
    {
        RowFormat row;
        CellFormat cell;
        std::vector<CellFormat> cells;
    };
    /// What a row holds that has not ended yet.
    struct OpenRow
    {
        std::vector<Block> blocks; ///< of the cell that has not ended yet
        std::vector<std::vector<Block>> cells;
    };
    /// Text that runs by itself: the body, or a header or footer, which may stand in the midst of it.
    struct Story
    {
        std::vector<Block> blocks;
        std::array<RowDefinition, mostTableLevels> definitions;
        std::vector<OpenRow> rows; ///< outermost table first
        std::vector<Run> runs;
        bool pageBreak = false;
    };

    bool take(const RtfToken &token);
    bool keep(const RtfToken &token);
    bool withinDepth(int deeper);
    void insertAnchor();
    bool beginGroup();
    bool endGroup();
    void leaveDestination(Destination left);
    void word(const RtfToken &token);
    void symbol(char character);
    void bytes(QByteArrayView text);
    void flushBytes();
    void bodyText(const QString &text);
    void fontText(const QString &text);
    void colourText(const QString &text);
    void pictureText(QByteArrayView hex);
    void endInstruction();
    void endPicture();
    void endMargin();
    void insertObject(Run run);
    static void note(QStringList &kinds, const QString &what);

    bool inBody() const { return m_state.destination == Destination::Body; }
    int tableLevel() const { return m_state.inTable ? std::max(1, m_state.level) : 0; }
    int nestedLevel() const;
    RowDefinition &definition();
    std::vector<Block> &blocksAt(int level);
    Paragraph takeParagraph();
    void endCellAt(int level);
    void closeCell(OpenRow &row);
    void endRowAt(int level);
    void closeRow(int level);
    void closeRowsBelow(int level);
    void closeStory();
    bool withinLimits();
    void finish(const RtfTokens &tokens, bool closed);
    void fail(const QString &what);

    RtfRead m_read;
    PageSetup m_documentPage;
    State m_state;
    std::vector<State> m_saved;
    QByteArray m_bytes;     ///< read but not decoded yet: a character may take several bytes
    bool m_starred = false; ///< `\*` stood just before: an unknown destination is skipped
    int m_skip = 0;         ///< characters still to be passed over behind `\u`
    int m_codePage = 1252;
    int m_defaultFont = 0;
    int m_fontRead = 0;
    QString m_fontName;
    QHash<int, QString> m_fonts;
    QRgb m_colourRead = 0;
    bool m_colourGiven = false;
    std::vector<Colour> m_colours;
    Alignment m_tabAlignment = Alignment::Left;
    bool m_widowControl = false;
    BorderOwner m_borderOwner = BorderOwner::None;
    Side m_borderSide = Top;
    BorderLine m_scratchBorder;

    Story m_story;
    std::optional<Story> m_body; ///< kept aside while a header or footer is read
    MarginText m_margin = Header;
    std::size_t m_marginGroup = 0; ///< depth of the group that holds it
    QString m_instruction;
    CharFormat m_instructionFormat;
    Picture m_picture;
    std::optional<AnchorRecorder> m_kept;        ///< the group that is kept and else passed over
    std::optional<AnchorRecorder> m_pictureText; ///< the picture that is read
    QByteArray m_word;                           ///< the one that is carried out
    int m_highDigit = -1;                        ///< first half of a byte of the picture, or -1
    qint64 m_pixels = 0;
    qsizetype m_characters = 0;
    int m_paragraphs = 0;
    int m_cells = 0;
};

/// Carries out a control word; false when no table knows it.
bool applyWord(RtfInterpreter &interpreter, QByteArrayView word, std::optional<int> parameter);
bool applyTableWord(RtfInterpreter &interpreter, QByteArrayView word, std::optional<int> parameter);

/// Bytes of a Windows code page as text; an unknown page is read as 1252, the page of most writers.
QString decodeCodePage(const QByteArray &bytes, int codePage);

/// The byte of code page 1252 for a character, or -1.
int byteOf1252(QChar character);

} // namespace ledgora::reporter
