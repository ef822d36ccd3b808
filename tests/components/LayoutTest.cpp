#include "components/reporter/Layout.h"

#include "components/reporter/RtfReader.h"
#include <QBuffer>
#include <algorithm>
#include <gtest/gtest.h>

namespace ledgora::reporter {

namespace {

// A page of 6000 x 4000 twips with 500 around the text leaves a column of 5000 x 3000. Exact line heights make the
// places computable by hand whatever the fonts are.
const QByteArray head = "{\\rtf1\\deff0{\\fonttbl{\\f0 Liberation Sans;}}{\\colortbl;\\red200\\green0\\blue0;}"
                        "\\paperw6000\\paperh4000\\margl500\\margr500\\margt500\\margb500\\plain\\fs20 ";

PageList layout(const QByteArray &body)
{
    const QByteArray rtf = head + body + "}";
    const RtfRead read = readRtf(rtf);
    EXPECT_EQ(read.error.toStdString(), "");
    return layoutDocument(read.document);
}

std::vector<QString> words(const Page &page)
{
    std::vector<QString> words;
    words.reserve(page.drawing.texts.size());
    for (const TextPiece &piece : page.drawing.texts)
        words.push_back(piece.text);
    return words;
}

using Words = std::vector<QString>;

const TextPiece &piece(const PageList &pages, const QString &text)
{
    for (const Page &page : pages)
        for (const TextPiece &piece : page.drawing.texts)
            if (piece.text.trimmed() == text)
                return piece;
    ADD_FAILURE() << "not on paper: " << text.toStdString();
    static const TextPiece none;
    return none;
}

qreal rightOf(const TextPiece &piece)
{
    return piece.baseline.x() + piece.width;
}

QByteArray repeated(const QByteArray &text, int count)
{
    QByteArray all;
    for (int i = 1; i <= count; ++i)
        all += QByteArray(text).replace("%", QByteArray::number(i));
    return all;
}

TEST(ParagraphLayout, AlignmentSetsTheEdges)
{
    const PageList pages = layout("\\pard\\ql l\\par\\pard\\qr r\\par\\pard\\qc c\\par\\pard\\li300\\ri200 i\\par"
                                  "\\pard\\qr\\ri200 j\\par\\pard\\li400\\fi-100 f\\par");
    EXPECT_NEAR(piece(pages, "l").baseline.x(), 500, 1);
    EXPECT_NEAR(rightOf(piece(pages, "r")), 5500, 1);
    EXPECT_NEAR(piece(pages, "c").baseline.x() + piece(pages, "c").width / 2, 3000, 1);
    EXPECT_NEAR(piece(pages, "i").baseline.x(), 800, 1);
    EXPECT_NEAR(rightOf(piece(pages, "j")), 5300, 1);
    EXPECT_NEAR(piece(pages, "f").baseline.x(), 800, 1);
}

TEST(ParagraphLayout, TabsStandWhereTheyAreSet)
{
    const PageList pages =
        layout(R"(\pard\tx1000\tqr\tx3000 a\tab b\tab c\par\pard\li1200\fi-1200\tx1200 d\tab e\par)");
    EXPECT_NEAR(piece(pages, "b").baseline.x(), 1500, 1);
    EXPECT_NEAR(rightOf(piece(pages, "c")), 3500, 1);
    EXPECT_NEAR(piece(pages, "e").baseline.x(), 1700, 1);
}

TEST(ParagraphLayout, ALongWordBreaksInsideOfTheColumn)
{
    const PageList pages = layout("\\pard " + QByteArray(200, 'W') + "\\par");
    QString all;
    for (const TextPiece &piece : pages[0].drawing.texts) {
        all += piece.text;
        EXPECT_LE(rightOf(piece), 5501);
    }
    EXPECT_EQ(all, QString(200, QLatin1Char('W')));
}

TEST(ParagraphLayout, JustifiedLinesReachBothEdgesButNotTheLast)
{
    const PageList pages = layout("\\pard\\qj " + QByteArray("lorem ipsum dolor sit amet ").repeated(6) + "end\\par");
    const auto &texts = pages[0].drawing.texts;
    const qreal first = texts.front().baseline.y();
    const auto next =
        std::find_if(texts.begin(), texts.end(), [=](const TextPiece &t) { return t.baseline.y() > first; });
    ASSERT_NE(next, texts.end());
    EXPECT_NEAR(rightOf(*std::prev(next)), 5500, 2);
    EXPECT_LT(rightOf(piece(pages, "end")), 5000);
}

TEST(ParagraphLayout, SpacesAndLineHeightsAddUp)
{
    const PageList pages = layout(R"(\pard\sl-400 a\par\pard\sl-400\sb100\sa50 b\line c\par\pard\sl-400 d\par)");
    const qreal top = piece(pages, "a").baseline.y();
    EXPECT_NEAR(piece(pages, "b").baseline.y() - top, 500, 1);
    EXPECT_NEAR(piece(pages, "c").baseline.y() - top, 900, 1);
    EXPECT_NEAR(piece(pages, "d").baseline.y() - top, 1350, 1);
}

TEST(ParagraphLayout, HiddenTextTakesNoRoom)
{
    const PageList pages =
        layout(R"(\pard a{\v\fs99 not {\field{\*\fldinst PAGE}} this}b\par\pard{\v gone}\fs2\par c\par)");
    EXPECT_EQ(words(pages[0]), (Words{"a", "b", "c"}));
    const PageList plain = layout(R"(\pard a\par\pard\fs2\par c\par)");
    EXPECT_NEAR(piece(pages, "c").baseline.y(), piece(plain, "c").baseline.y(), 1);
}

TEST(ParagraphLayout, AnEmptyParagraphIsAsTallAsItsEnd)
{
    const PageList small = layout(R"(\pard a\par{\fs2\par}b\par)");
    const PageList large = layout(R"(\pard a\par{\fs60\par}b\par)");
    const auto distance = [](const PageList &pages) {
        return piece(pages, "b").baseline.y() - piece(pages, "a").baseline.y();
    };
    EXPECT_NEAR(distance(large) - distance(small), 29 * 23, 10); // a font's line is about 23 twips a point tall
}

TEST(Paging, LinesFlowOnAndGapsVanishAtThePageTop)
{
    const PageList pages = layout(repeated(R"(\pard\sl-1000\sb100 p%\par)", 6));
    ASSERT_EQ(pages.size(), 3U);
    EXPECT_EQ(words(pages[0]), (Words{"p1", "p2"}));
    EXPECT_EQ(words(pages[2]), (Words{"p5", "p6"}));
    EXPECT_NEAR(pages[1].drawing.texts[0].baseline.y() + 100, pages[0].drawing.texts[0].baseline.y(), 1);
}

TEST(Paging, APageBreakBeginsAPage)
{
    const PageList pages = layout(R"(\pard a\par\page b\par\pard\pagebb c\par)");
    ASSERT_EQ(pages.size(), 3U);
    EXPECT_EQ(words(pages[1]), Words{"b"});
}

TEST(Paging, NothingIsStillAPage)
{
    EXPECT_EQ(layout("").size(), 1U);
}

TEST(TableLayout, ARowThatDoesNotFitBreaksBetweenLinesUnlessItKeepsTogether)
{
    const auto rows = [](const QByteArray &kept) -> QByteArray {
        return "\\trowd\\trrh2000\\cellx5000\\intbl a\\cell\\row"
               "\\trowd"
               + kept + "\\cellx2500\\cellx5000\\intbl\\sl-400 b\\line c\\line d\\cell e\\cell\\row";
    };
    const PageList moved = layout(rows("\\trkeep"));
    ASSERT_EQ(moved.size(), 2U);
    EXPECT_EQ(words(moved[0]), Words{"a"});
    EXPECT_EQ(words(moved[1]), (Words{"b", "c", "d", "e"}));
    const PageList broken = layout(rows(""));
    ASSERT_EQ(broken.size(), 2U);
    EXPECT_EQ(words(broken[0]), (Words{"a", "b", "c", "e"}));
    EXPECT_EQ(words(broken[1]), Words{"d"});
}

TEST(TableLayout, HeadingRowsAreRepeated)
{
    const PageList pages = layout("\\trowd\\trhdr\\trrh-500\\cellx5000\\intbl h1\\cell\\row"
                                  "\\trowd\\trhdr\\trrh-500\\cellx5000\\intbl h2\\cell\\row"
                                  + repeated(R"(\trowd\trrh-900\cellx5000\intbl r%\cell\row)", 5));
    ASSERT_EQ(pages.size(), 3U);
    EXPECT_EQ(words(pages[0]), (Words{"h1", "h2", "r1", "r2"}));
    EXPECT_EQ(words(pages[1]), (Words{"h1", "h2", "r3", "r4"}));
    EXPECT_EQ(words(pages[2]), (Words{"h1", "h2", "r5"}));
}

TEST(TableLayout, ARowTallerThanThePageIsSplitBetweenLines)
{
    const PageList pages = layout("\\trowd\\trhdr\\trrh-500\\cellx5000\\intbl h\\cell\\row"
                                  "\\trowd\\trkeep\\cellx2500\\cellx5000\\intbl\\sl-500 "
                                  + repeated("l%\\line ", 7) + R"(l8\cell x\cell\row\pard z\par)");
    ASSERT_EQ(pages.size(), 2U);
    EXPECT_EQ(words(pages[0]), (Words{"h", "l1", "l2", "l3", "l4", "l5", "x"}));
    EXPECT_EQ(words(pages[1]), (Words{"h", "l6", "l7", "l8", "z"}));
}

struct HeightCase
{
    const char *name;
    const char *words;
    double height;
};

TEST(TableLayout, RowHeightsFollowTheirRule)
{
    for (const HeightCase &c :
         {HeightCase{"by content", "", 800}, HeightCase{"least, content is taller", "\\trrh300", 800},
          HeightCase{"least", "\\trrh1200", 1200}, HeightCase{"exact", "\\trrh-300", 300},
          HeightCase{"padding adds", "\\trpaddt100\\trpaddb50", 950}}) {
        const PageList pages = layout("\\trowd" + QByteArray(c.words)
                                      + R"(\clbrdrl\brdrs\brdrw10\cellx5000\intbl\sl-400 a\line b\cell\row)");
        ASSERT_FALSE(pages[0].drawing.rules.empty()) << c.name;
        const Rule &left = pages[0].drawing.rules[0];
        EXPECT_NEAR(left.to.y() - left.from.y(), c.height, 0.5) << c.name;
    }
}

TEST(TableLayout, AnUpperBorderAddsItsWidthToTheRow)
{
    const PageList pages = layout(R"(\trowd\clbrdrt\brdrs\brdrw40\clbrdrl\brdrs\cellx5000\intbl\sl-400 a\cell\row)");
    const Rule &left = pages[0].drawing.rules.back();
    EXPECT_NEAR(left.to.y() - left.from.y(), 440, 0.5);
}

TEST(TableLayout, EdgesThatAlmostAgreeAreOne)
{
    const PageList pages = layout("\\trowd\\cellx2000\\cellx5000\\intbl a\\cell b\\cell\\row"
                                  "\\trowd\\trleft10\\cellx2012\\cellx5000\\intbl c\\cell d\\cell\\row"
                                  "\\trowd\\cellx2013\\cellx5000\\intbl e\\cell f\\cell\\row");
    EXPECT_EQ(piece(pages, "b").baseline.x(), 2500);
    EXPECT_EQ(piece(pages, "c").baseline.x(), 500);
    EXPECT_EQ(piece(pages, "d").baseline.x(), 2500);
    EXPECT_EQ(piece(pages, "f").baseline.x(), 2513);
}

TEST(TableLayout, MergedCellsSpanColumnsAndRows)
{
    const PageList pages = layout(
        "\\trowd\\trrh-500\\clvmgf\\clvertalb\\clcbpat1\\cellx1000\\clmgf\\cellx2000\\clmrg\\cellx5000"
        "\\intbl\\sl-300 v\\cell\\qr wide\\cell\\cell\\row"
        "\\trowd\\trrh-500\\clvmrg\\clcbpat1\\cellx1000\\cellx2000\\cellx5000\\intbl\\ql \\cell x\\cell y\\cell\\row");
    EXPECT_NEAR(rightOf(piece(pages, "wide")), 5500, 1);
    EXPECT_NEAR(piece(pages, "x").baseline.x(), 1500, 1);
    // At the bottom of both rows, 500 + 2 * 500, and not of the first.
    EXPECT_GT(piece(pages, "v").baseline.y(), 1300);
    EXPECT_LT(piece(pages, "v").baseline.y(), 1500);
}

TEST(TableLayout, AMergedCellThatNeedsMoreMakesItsLastRowTaller)
{
    const PageList pages =
        layout("\\trowd\\clvmgf\\cellx1000\\cellx5000\\intbl\\sl-500 a\\line b\\line c\\cell x\\cell\\row"
               "\\trowd\\clvmrg\\cellx1000\\cellx5000\\intbl \\cell y\\cell\\row\\pard\\sl-500 z\\par");
    EXPECT_NEAR(piece(pages, "z").baseline.y() - piece(pages, "c").baseline.y(), 500, 1);
    EXPECT_NEAR(piece(pages, "y").baseline.y() - piece(pages, "x").baseline.y(), 500, 1);
}

TEST(TableLayout, HostileGeometryStillEnds)
{
    const PageList pages = layout(
        "\\trowd\\trgaph31680\\cellx-31680\\cellx0\\cellx0\\cellx-5\\intbl some text\\cell b\\cell c\\cell d\\cell\\row"
        "\\trowd\\clmrg\\cellx1\\clvmrg\\cellx9\\intbl e\\cell f\\cell\\row");
    const QString all = textOf(pages.front());
    EXPECT_TRUE(all.contains(QLatin1Char('b')));
    EXPECT_TRUE(all.contains(QLatin1Char('e')));
}

TEST(Sections, MarginsTellThePageAndItsFirstPageHasItsOwn)
{
    const PageList pages = layout(
        "\\sectd\\titlepg\\headery100\\footery100{\\headerf first\\par}{\\header\\pard\\qr {\\field{\\*\\fldinst PAGE}}"
        "/{\\field{\\*\\fldinst NUMPAGES}}\\par}{\\footer\\pard foot\\par}\\pard a\\par\\page b of "
        "{\\field{\\*\\fldinst NUMPAGES}}\\par\\page c\\par");
    ASSERT_EQ(pages.size(), 3U);
    EXPECT_EQ(words(pages[0]), (Words{"first", "a"}));
    EXPECT_EQ(words(pages[1]), (Words{"2", "/", "3", "b of ", "3", "foot"}));
    EXPECT_LT(piece(pages, "first").baseline.y(), 400);
    EXPECT_GT(piece(pages, "foot").baseline.y(), 3600);
    EXPECT_LT(piece(pages, "foot").baseline.y(), 3900);
}

TEST(Sections, AHeaderTallerThanItsMarginPushesTheTextDown)
{
    const PageList pages =
        layout("\\sectd\\headery200\\footery300{\\header\\pard\\fs20\\sl-1000 h\\par}{\\footer\\pard\\sl-900 f\\par}"
               + repeated("\\pard\\sl-800 p%\\par", 3));
    ASSERT_EQ(pages.size(), 2U); // 4000 - 1200 - 1200 leave room for two lines of 800
    EXPECT_EQ(words(pages[0]), (Words{"h", "p1", "p2", "f"}));
    EXPECT_NEAR(piece(pages, "p1").baseline.y() - piece(pages, "h").baseline.y(), 800, 1);
}

TEST(Sections, EachHasItsPaperAndColumns)
{
    const PageList pages = layout(
        "\\sectd\\pard\\sl-500 a\\par\\sect\\sectd\\sbknone\\cols2\\colsx200" + repeated("\\pard\\sl-1000 c%\\par", 5)
        + "\\sect\\sectd\\pgwsxn4000\\pghsxn6000\\marglsxn700\\pgbrdrl\\brdrs\\brsp100 d\\par");
    ASSERT_EQ(pages.size(), 3U);
    EXPECT_EQ(words(pages[0]), (Words{"a", "c1", "c2", "c3", "c4"}));
    EXPECT_NEAR(piece(pages, "c2").baseline.y() - piece(pages, "a").baseline.y(), 2000, 1);
    EXPECT_NEAR(piece(pages, "c3").baseline.x(), 500 + 2400 + 200, 1);
    EXPECT_NEAR(piece(pages, "c3").baseline.y(), piece(pages, "c1").baseline.y(), 1);
    EXPECT_EQ(pages[2].size, QSizeF(4000, 6000));
    EXPECT_NEAR(piece(pages, "d").baseline.x(), 700, 1);
    EXPECT_EQ(pages[2].drawing.rules.at(0).from.x(), 600);
}

struct KeepCase
{
    const char *name;
    QByteArray body;
    Words first; ///< what stays on the first page
};

TEST(Paging, ParagraphsThatKeepTogetherMoveTogether)
{
    const QByteArray two = repeated("\\pard\\sl-1000 p%\\par", 2);
    const QByteArray row = "\\trowd\\trrh-900\\cellx5000\\intbl r\\cell\\row";
    for (const KeepCase &c :
         {KeepCase{"with the next", two + "\\pard\\sl-500\\keepn k\\par\\pard\\sl-600 n\\par", {"p1", "p2"}},
          KeepCase{
              "a next that fits", two + "\\pard\\sl-500\\keepn k\\par\\pard\\sl-400 n\\par", {"p1", "p2", "k", "n"}},
          KeepCase{"with a table", two + "\\pard\\sl-500\\keepn k\\par" + row, {"p1", "p2"}},
          KeepCase{"more than a page", repeated("\\pard\\sl-1000\\keepn p%\\par", 4), {"p1", "p2", "p3"}},
          KeepCase{"rows", two + "\\trowd\\trrh-400\\cellx5000\\intbl\\keepn r\\cell\\row" + row, {"p1", "p2"}},
          KeepCase{"a last line alone",
                   two + "\\pard\\sl-300\\widctlpar k\\line l\\line m\\line n\\par",
                   {"p1", "p2", "k", "l"}},
          KeepCase{"a first line alone", two + "\\pard\\sl-900\\widctlpar k\\line l\\line m\\par", {"p1", "p2"}},
          KeepCase{"a line of three", "\\widowctrl" + two + "\\pard\\sl-400 k\\line l\\line m\\par", {"p1", "p2"}},
          KeepCase{"no control", "\\widowctrl" + two + "\\pard\\nowidctlpar\\sl-900 k\\line l\\par", {"p1", "p2", "k"}},
          KeepCase{"lines", two + "\\pard\\sl-400\\keep k\\line l\\line m\\par", {"p1", "p2"}},
          KeepCase{"lines that need not", two + "\\pard\\sl-400 k\\line l\\line m\\par", {"p1", "p2", "k", "l"}}})
        EXPECT_EQ(words(layout(c.body).at(0)), c.first) << c.name;
}

TEST(TableLayout, ANestedTableStandsInItsCell)
{
    const PageList pages =
        layout("\\trowd\\trpaddt100\\cellx1000\\cellx5000\\intbl a\\cell\\itap2 b\\nestcell c\\nestcell"
               "{\\*\\nesttableprops\\trowd\\trrh-700\\cellx800\\cellx1600\\nestrow}\\itap1\\sl-400 d\\cell\\row"
               "\\trowd\\trqc\\cellx1000\\intbl\\sl-400 e\\cell\\row");
    EXPECT_NEAR(piece(pages, "b").baseline.x(), 1500, 1);
    EXPECT_NEAR(piece(pages, "c").baseline.x(), 2300, 1);
    EXPECT_NEAR(piece(pages, "e").baseline.y() - piece(pages, "d").baseline.y(), 400, 1);
    EXPECT_GT(piece(pages, "d").baseline.y(), 500 + 100 + 700);
}

TEST(TableLayout, ACentredTableLeavesTheSameRoomOnBothSides)
{
    const PageList pages = layout("\\trowd\\trqc\\trleft-70\\cellx1930\\intbl a\\cell\\row");
    EXPECT_NEAR(piece(pages, "a").baseline.x(), 500 + 1500, 1);
}

/// A picture of two dots beside one another, red and blue, as RTF reads it.
QByteArray redAndBlue(const QByteArray &words)
{
    QImage image(2, 1, QImage::Format_RGB32);
    image.setPixel(0, 0, 0xffff0000);
    image.setPixel(1, 0, 0xff0000ff);
    QByteArray data;
    QBuffer buffer(&data);
    EXPECT_TRUE(buffer.open(QIODevice::WriteOnly) && image.save(&buffer, "png"));
    return "{\\pict\\pngblip" + words + " " + data.toHex() + "}";
}

TEST(ParagraphLayout, APictureStandsOnTheLineAndMakesItAsTall)
{
    const PageList pages = layout("\\pard a" + redAndBlue("\\picwgoal2000\\pichgoal800\\picscalex50\\piccropl1000")
                                  + "b\\par\\pard c\\par");
    const DrawnPicture &picture = pages[0].drawing.pictures.at(0);
    EXPECT_EQ(picture.area.size(), QSizeF(500, 800));
    EXPECT_NEAR(picture.area.bottom(), piece(pages, "a").baseline.y(), 1);
    EXPECT_NEAR(piece(pages, "b").baseline.x() - picture.area.right(), 0, 3);
    EXPECT_EQ(picture.part, QRectF(1, 0, 1, 1)) << "the blue half";
    EXPECT_GT(piece(pages, "c").baseline.y() - piece(pages, "a").baseline.y(), 100);
    EXPECT_GT(picture.area.top(), 499);
}

TEST(ParagraphLayout, RaisedAndMarkedText)
{
    const PageList pages = layout("\\pard a{\\super b}{\\sub c}{\\highlight1 d}{\\caps w}e\\par");
    const qreal line = piece(pages, "a").baseline.y();
    EXPECT_LT(piece(pages, "b").baseline.y(), line - 50);
    EXPECT_GT(piece(pages, "c").baseline.y(), line + 10);
    EXPECT_LT(piece(pages, "b").font.pixelSize(), 150);
    EXPECT_EQ(pages[0].drawing.areas.at(0).colour, 0xffc80000);
    EXPECT_NEAR(rightOf(piece(pages, "W")), piece(pages, "e").baseline.x(), 1);
}

} // namespace

} // namespace ledgora::reporter
