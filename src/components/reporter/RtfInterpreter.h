#pragma once

#include "components/reporter/Document.h"
#include "components/reporter/RtfReader.h"
#include "components/reporter/RtfTokens.h"
#include <QHash>

namespace ledgora::reporter {

/// Gives the tokens of RTF text their meaning. The words themselves stand in a table (RtfWords.cpp) whose entries call
/// the operations below; here is what they act on: the state that groups save and restore, the tables of fonts and
/// colours, and the paragraph, cell and row that are being put together.
class RtfInterpreter
{
public:
    RtfRead read(QByteArrayView text);

    // What the table of words uses.
    CharFormat &chars() { return m_state.chars; }
    ParagraphFormat &paragraph() { return m_state.paragraph; }
    PageSetup &page() { return m_read.document.page; }
    RowFormat &row() { return m_row; }
    CellFormat &cell() { return m_cell; }
    /// The border that the words of style, width and colour speak of; a scratch value when it is one we do not draw.
    BorderLine &border();
    Colour colour(int index) const;

    void setCodePage(int codePage) { m_codePage = codePage; }
    void setUnicodeSkip(int count) { m_state.unicodeSkip = count; }
    void setDefaultFont(int number) { m_defaultFont = number; }
    void setFont(int number);
    void setInTable(bool inTable) { m_state.inTable = inTable; }
    void setColourPart(int shift, int value);
    void setTabAlignment(Alignment alignment) { m_tabAlignment = alignment; }
    void addTab(int position);
    void paragraphBorder(Side side);
    void paragraphBox();
    void cellBorder(Side side);
    void noBorder() { m_borderOwner = BorderOwner::None; }
    void resetChars();
    void resetParagraph();
    void resetRow();
    void endCellFormat(int rightEdge);
    void endParagraph();
    void endCell();
    void endRow();
    void breakPage();
    void insert(QChar character);
    void insertUnicode(int value);
    void readFonts() { m_state.destination = Destination::Fonts; }
    void readColours();
    void skipGroup() { m_state.destination = Destination::Skipped; }

private:
    enum class Destination { Body, Fonts, Colours, Skipped };
    enum class BorderOwner { None, Paragraph, Cell };
    struct State
    {
        CharFormat chars;
        ParagraphFormat paragraph;
        bool inTable = false;
        Destination destination = Destination::Body;
        int unicodeSkip = 1;
    };

    bool take(const RtfToken &token);
    bool beginGroup();
    bool endGroup();
    void word(const RtfToken &token);
    void symbol(char character);
    void bytes(QByteArrayView text);
    void flushBytes();
    void bodyText(const QString &text);
    void fontText(const QString &text);
    void colourText(const QString &text);
    Paragraph takeParagraph();
    void closeCell();
    void closeOpenRow();
    bool withinLimits();
    void finish(const RtfTokens &tokens, bool closed);
    void fail(const QString &what);

    RtfRead m_read;
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
    BorderOwner m_borderOwner = BorderOwner::None;
    Side m_borderSide = Top;
    BorderLine m_scratchBorder;

    std::vector<Run> m_runs;
    std::vector<Block> m_cellBlocks;
    std::vector<std::vector<Block>> m_cells;
    RowFormat m_row;
    CellFormat m_cell;
    std::vector<CellFormat> m_cellFormats;
    bool m_tableOpen = false;
    bool m_pageBreak = false;
    qsizetype m_characters = 0;
    int m_paragraphs = 0;
};

/// Carries out a control word; false when the table does not know it.
bool applyWord(RtfInterpreter &interpreter, QByteArrayView word, std::optional<int> parameter);

/// Bytes of a Windows code page as text; an unknown page is read as 1252, the page of most writers.
QString decodeCodePage(const QByteArray &bytes, int codePage);

} // namespace ledgora::reporter
