#include "reports/ReportCells.h"

#include "SampleReport.h"
#include "support/Print.h"
#include <gtest/gtest.h>

namespace ledgora {

namespace {

/// Lines joined by "|"; what is bold stands in braces.
QString told(const std::vector<CellLine> &lines)
{
    QStringList texts;
    for (const CellLine &line : lines) {
        QString text;
        for (const CellPiece &piece : line)
            text += piece.bold ? QString(u'{' + piece.text + u'}') : piece.text;
        texts << text;
    }
    return texts.join(u'|');
}

struct WrapCase
{
    const char *name;
    QString cell;
    int width;
    const char *lines;
};

TEST(WrapCell, BreaksByWordsAndNeverInsideOfASign)
{
    using test::boldOff;
    using test::boldOn;
    for (const WrapCase &c : {WrapCase{"fits exactly", "Pending Amount", 14, "Pending Amount"},
                              {"at a blank", "Pending Amount", 13, "Pending|Amount"},
                              {"a blank at the edge", "abc def", 3, "abc|def"},
                              {"several blanks", "ab   cd", 4, "ab|cd"},
                              {"blanks ahead stay", "  ab cd", 5, "  ab|cd"},
                              {"a long word", "abcdefgh ij", 3, "abc|def|gh|ij"},
                              {"a long word behind another", "a bcdefgh", 4, "a|bcde|fgh"},
                              {"line breaks", "a\r\nb\n\nc\r", 5, "a|b||c|"},
                              {"nothing", "", 5, ""},
                              {"blanks alone", "      ", 3, ""},
                              {"bold across the break", boldOn + "one two" + boldOff + " x", 4, "{one}|{two}|x"},
                              {"bold inside of a word", "a" + boldOn + "b" + boldOff + "c", 9, "a{b}c"},
                              {"pitch codes and other controls", test::condensed + "a\ab\x1b" + "Q", 9, "abQ"},
                              {"marks stay with their sign", QString::fromUtf8("किकिकि"), 4, "किकि|कि"},
                              {"conjuncts stay whole", QString::fromUtf8("र्कर्क"), 3, "र्क|र्क"},
                              {"signs of two cells", QString::fromUtf8("日本語"), 4, "日本|語"},
                              {"a halved character", QString(QChar(0xD83D)) + "a", 1, "?|a"}}) {
        PrintState state;
        EXPECT_EQ(told(wrapCell(c.cell, c.width, state)).toStdString(), c.lines) << c.name;
        PrintState measured;
        PrintState again;
        EXPECT_EQ(wrappedLines(c.cell, c.width, measured), int(wrapCell(c.cell, c.width, again).size())) << c.name;
        EXPECT_TRUE(state == measured) << c.name;
    }
}

TEST(WrapCell, BoldAndPitchGoOnBehindTheCell)
{
    PrintState state;
    wrapCell(QString(test::boldOn + test::condensed + "Date"), 10, state);
    EXPECT_TRUE(state.bold && state.condensed);
    EXPECT_EQ(told(wrapCell(u"next", 10, state)).toStdString(), "{next}");
    wrapCell(QString(test::boldOff + test::normal), 10, state);
    EXPECT_TRUE(state == PrintState());
}

} // namespace

} // namespace ledgora
