#include "components/reporter/RtfReader.h"
#include "components/reporter/RtfWriter.h"

#include "components/reporter/Layout.h"

#include <QFile>
#include <gtest/gtest.h>

namespace ledgora::reporter {

namespace {

Document read(const QByteArray &body)
{
    const QByteArray rtf = "{\\rtf1\\ansi{\\fonttbl{\\f0 Liberation Sans;}{\\f1\\fswiss{\\*\\falt Other;}Two Words;}}"
                           "{\\colortbl;\\red255\\green0\\blue0;\\red1\\green2\\blue3;}"
                           + body + "}";
    const RtfRead read = readRtf(rtf);
    EXPECT_EQ(read.error.toStdString(), "");
    return read.document;
}

/// The document as text: runs in <>, paragraphs in (), cells in [], rows in {}.
QString outline(const std::vector<Block> &blocks)
{
    QString text;
    for (const Block &block : blocks) {
        if (const auto *paragraph = std::get_if<Paragraph>(&block.content)) {
            text += u'(';
            for (const Run &run : paragraph->runs)
                text += u'<' + run.text + u'>';
            text += u')';
            continue;
        }
        for (const Row &row : std::get<Table>(block.content).rows) {
            text += u'{';
            for (const Cell &cell : row.cells)
                text += u'[' + outline(cell.blocks) + u']';
            text += u'}';
        }
    }
    return text;
}

/// A picture in PNG of one dot, as hexadecimal digits.
#define PNG_OF_ONE_DOT                                                                                                 \
    "89504e470d0a1a0a0000000d49484452000000010000000108060000001f"                                                     \
    "15c4890000000d49444154789c63f8cfc0d00000048101802c55ceb00000000049454e44ae426082"

struct TextCase
{
    const char *name;
    const char *rtf;
    const char *outline;
};

class RtfText : public testing::TestWithParam<TextCase>
{
};

TEST_P(RtfText, ReadsAs)
{
    EXPECT_EQ(outline(read(GetParam().rtf).sections.front().blocks).toStdString(), GetParam().outline);
}

INSTANTIATE_TEST_SUITE_P(
    Words, RtfText,
    testing::Values(
        TextCase{"one_blank_ends_a_word", "\\b a\\b0  b\\par", "(<a>< b>)"},
        TextCase{"line_ends_mean_nothing", "a\r\nb\nc\\par", "(<abc>)"},
        TextCase{"last_paragraph_needs_no_end", "a\\par b", "(<a>)(<b>)"},
        TextCase{"escaped_characters", "\\{a\\}\\\\b\\par", "(<{a}\\b>)"},
        TextCase{"bytes_of_the_code_page", "\\'80\\'93\\'e9\\par", "(<€“é>)"},
        TextCase{"another_code_page", "{\\ansicpg1251\\'cf\\'f0\\par}", "(<Пр>)"},
        TextCase{"unicode_replaces_what_follows", "\\u8377?x\\uc2\\u2325\\'41\\'42y\\uc0\\u65z\\par", "(<₹xकyAz>)"},
        TextCase{"negative_unicode", "\\u-10179?\\u-8704?\\par", "(<😀>)"},
        TextCase{"a_group_ends_the_skipping", "{\\uc3\\u65 a}bcd\\par", "(<Abcd>)"},
        TextCase{"control_characters_vanish", "a\\'01\\u2?b\x03 c\\par", "(<ab c>)"},
        TextCase{"typographic_words", "a\\endash b\\~c\\rquote\\par",
                 "(<a–b\xC2\xA0"
                 "c’>)"},
        TextCase{"formats_end_with_their_group", "a{\\b b}c\\par", "(<a><b><c>)"},
        TextCase{"same_format_is_one_run", "a{b}c\\par", "(<abc>)"},
        TextCase{"unknown_words_are_passed_over", "a\\frobnicate7 b\\par", "(<ab>)"},
        TextCase{"unknown_destinations_are_skipped", "a{\\*\\secret hidden{deep}}b{\\pict 00ff}\\par",
                 "(<ab><\uFFFC>)"},
        TextCase{"field_shows_its_result", "{\\field{\\*\\fldinst DATE}{\\fldrslt 3}}\\par", "(<3>)"},
        TextCase{"page_numbers_are_fields",
                 "{\\field{\\*\\fldinst { NUMPAGES \\\\* Arabic}}{\\fldrslt 12}}x\\chpgn\\par",
                 "(<\uFFFC><x><\uFFFC>)"},
        TextCase{"two_page_breaks_leave_a_page_empty", "a\\page\\page b\\par", "(<a>)()(<b>)"},
        TextCase{"nested_table",
                 "\\trowd\\cellx900\\intbl a\\par\\itap2 b\\nestcell "
                 "c\\nestcell{\\*\\nesttableprops\\trowd\\cellx10\\cellx20"
                 "\\nestrow}{\\nonesttables\\par}\\pard\\intbl d\\cell\\row",
                 "{[(<a>){[(<b>)][(<c>)]}(<d>)]}"},
        TextCase{"nested_row_never_ended", "\\trowd\\cellx900\\intbl\\itap2 b\\nestcell\\itap1 d\\cell\\row",
                 "{[{[(<b>)]}(<d>)]}"},
        TextCase{"a_picture_is_read_once",
                 "{\\*\\shppict{\\pict{\\*\\picprop{\\sp{\\sn n}}}\\pngblip " PNG_OF_ONE_DOT
                 "}}{\\nonshppict{\\pict\\wmetafile8 0102}}\\par",
                 "(<\uFFFC>)"},
        TextCase{"binary_is_skipped_whatever_it_holds", "a{\\pict\\bin4 }{\\x}b\\par", "(<a><\uFFFC><b>)"},
        TextCase{"table", "\\trowd\\cellx100\\cellx200\\intbl a\\cell b\\par c\\cell\\row\\pard d\\par",
                 "{[(<a>)][(<b>)(<c>)]}(<d>)"},
        TextCase{"rows_that_follow_are_one_table",
                 "\\trowd\\cellx9\\intbl a\\cell\\row\\trowd\\cellx9\\intbl b\\cell\\row", "{[(<a>)]}{[(<b>)]}"},
        TextCase{"definition_behind_the_cells", "\\intbl a\\cell\\trowd\\cellx9\\row\\pard b\\par", "{[(<a>)]}(<b>)"},
        TextCase{"cells_without_definition_are_kept", "\\trowd\\cellx9\\intbl a\\cell b\\cell\\row",
                 "{[(<a>)][(<b>)]}"},
        TextCase{"defined_cells_without_text_stay_empty", "\\trowd\\cellx9\\cellx20\\intbl a\\cell\\row",
                 "{[(<a>)][]}"},
        TextCase{"text_after_an_open_row_closes_it", "\\trowd\\cellx9\\intbl a\\cell\\pard b\\par", "{[(<a>)]}(<b>)"},
        TextCase{"empty_paragraphs_count", "\\par\\par a\\par", "()()(<a>)"}),
    [](const auto &test) { return std::string(test.param.name); });

const Paragraph &paragraphOf(const Document &document)
{
    return std::get<Paragraph>(document.sections.front().blocks.at(0).content);
}

TEST(RtfReader, CharacterWordsSetTheRun)
{
    const Document document = read(R"(\plain\f1\b\i\ul\fs17\cf2 x\par)");
    const CharFormat &format = paragraphOf(document).runs.at(0).format;
    EXPECT_EQ(format.font.toStdString(), "Two Words");
    EXPECT_TRUE(format.bold && format.italic && format.underline);
    EXPECT_EQ(format.halfPoints, 17);
    EXPECT_EQ(format.colour, Colour(0xff010203));
}

TEST(RtfReader, PlainAndPardGoBackToTheDefaults)
{
    const Document document = read(R"(\deff0\b\fs40\qr\li99\plain\pard x\par)");
    CharFormat expected;
    expected.font = QStringLiteral("Liberation Sans");
    expected.halfPoints = 24;
    EXPECT_EQ(paragraphOf(document).runs.at(0).format, expected);
    EXPECT_EQ(paragraphOf(document).format, ParagraphFormat());
}

TEST(RtfReader, ParagraphEndKeepsItsOwnFormat)
{
    const Document document = read(R"({\fs18 }\fs2\par)");
    EXPECT_TRUE(paragraphOf(document).runs.empty());
    EXPECT_EQ(paragraphOf(document).endFormat.halfPoints, 2);
}

TEST(RtfReader, ParagraphWordsSetTheParagraph)
{
    const Document document = read("\\qj\\li100\\ri200\\fi-50\\sb10\\sa20\\sl-300\\tqr\\tx900\\tx300\\cbpat1"
                                   "\\brdrb\\brdrdb\\brdrw30\\brsp40 x\\par");
    const ParagraphFormat &format = paragraphOf(document).format;
    EXPECT_EQ(format.alignment, Alignment::Justified);
    EXPECT_EQ(
        (std::vector{format.leftIndent, format.rightIndent, format.firstIndent, format.spaceBefore, format.spaceAfter}),
        (std::vector{100, 200, -50, 10, 20}));
    EXPECT_EQ(format.lineSpacing, (LineSpacing{LineSpacing::Exact, 300}));
    EXPECT_EQ(format.tabs, (std::vector<TabStop>{{300, Alignment::Left}, {900, Alignment::Right}}));
    EXPECT_EQ(format.shading, Colour(0xffff0000));
    EXPECT_EQ(format.borders[Bottom], (BorderLine{LineStyle::Double, 30, {}, 40}));
    EXPECT_EQ(format.borders[Top].style, LineStyle::None);
}

struct SpacingCase
{
    const char *rtf;
    LineSpacing expected;
};

TEST(RtfReader, LineSpacingHasThreeRules)
{
    for (const SpacingCase &c : {SpacingCase{"\\sl360\\slmult1", {LineSpacing::Automatic, 360}},
                                 SpacingCase{"\\sl360\\slmult0", {LineSpacing::Least, 360}},
                                 SpacingCase{"\\sl-360", {LineSpacing::Exact, 360}}, SpacingCase{"\\sl0", {}}}) {
        const Document document = read(QByteArray(c.rtf) + " x\\par");
        EXPECT_EQ(paragraphOf(document).format.lineSpacing, c.expected) << c.rtf;
    }
}

TEST(RtfReader, RowAndCellWordsSetTheTable)
{
    const Document document = read("\\trowd\\trgaph70\\trleft-70\\trrh-400\\trhdr\\trkeep\\trpaddt30\\trpaddft3"
                                   "\\clvmgf\\clvertalc\\clcbpat1\\clbrdrt\\brdrs\\brdrw5\\brdrcf2\\cellx1000"
                                   "\\clmgf\\clpadl20\\cellx2000\\clmrg\\cellx3000\\intbl a\\cell\\cell\\cell\\row");
    const Row &row = std::get<Table>(document.sections.front().blocks.at(0).content).rows.at(0);
    EXPECT_EQ(row.format.gap, 70);
    EXPECT_EQ(row.format.leftEdge, -70);
    EXPECT_EQ(row.format.height, (RowHeight{RowHeight::Exact, 400}));
    EXPECT_TRUE(row.format.heading && row.format.keepTogether);
    EXPECT_EQ(row.format.padding[Top], 30);
    const CellFormat &first = row.cells.at(0).format;
    EXPECT_EQ(first.acrossRows, Merge::First);
    EXPECT_EQ(first.verticalAlignment, VerticalAlignment::Centre);
    EXPECT_EQ(first.shading, Colour(0xffff0000));
    EXPECT_EQ(first.borders[Top], (BorderLine{LineStyle::Single, 5, Colour(0xff010203), 0}));
    EXPECT_EQ(row.cells.at(1).format.acrossCells, Merge::First);
    EXPECT_EQ(row.cells.at(1).format.padding[Left], 20);
    EXPECT_EQ(row.cells.at(2).format.acrossCells, Merge::Continued);
    EXPECT_EQ(row.cells.at(2).format.rightEdge, 3000);
    EXPECT_EQ(row.cells.at(2).format.borders[Top].style, LineStyle::None);
}

TEST(RtfReader, PageHasSizeAndMargins)
{
    const PageSetup page = read(R"(\paperw8000\paperh9000\margl1\margr2\margt3\margb4 x\par)").sections.front().page;
    EXPECT_EQ(page, (PageSetup{8000, 9000, {3, 1, 4, 2}}));
}

TEST(RtfReader, ASectionIsAsTheFormerOneUnlessItSaysOtherwise)
{
    const Document document =
        read("\\paperw8000\\margl100\\sectd\\titlepg\\marglsxn50{\\header h\\par}{\\footerf f\\par}a\\par"
             "\\sect b\\par\\sect\\sectd\\sbknone\\pgwsxn9000\\cols2{\\header\\par}c");
    ASSERT_EQ(document.sections.size(), 3U);
    const auto &[first, second, third] = std::tie(document.sections[0], document.sections[1], document.sections[2]);
    EXPECT_EQ(outline(first.blocks).toStdString(), "(<a>)");
    EXPECT_EQ(outline(first.margins[Header]).toStdString(), "(<h>)");
    EXPECT_TRUE(first.page.titlePage && first.newPage);
    EXPECT_EQ(second.page, first.page);
    EXPECT_EQ(second.margins, first.margins);
    EXPECT_FALSE(third.newPage || third.page.titlePage);
    EXPECT_EQ((std::vector{third.page.width, third.page.margins[Left], third.page.columns}),
              (std::vector{9000, 100, 2}));
    EXPECT_EQ(outline(third.margins[Header]).toStdString(), "");
    EXPECT_EQ(outline(third.margins[FirstFooter]).toStdString(), "(<f>)");
    EXPECT_EQ(outline(third.blocks).toStdString(), "(<c>)");
}

/// What is written is read as the same document: every word that the writer knows stands in one of these.
TEST(RtfWriter, WhatIsWrittenIsReadAsTheSame)
{
    for (const char *body :
         {"a{\\b b}{\\v w}{\\i\\ul\\strike\\caps\\super\\fs18\\f1\\cf1\\highlight2 c}\\sub d\\fs2\\par",
          "\\'80\\u8377?\\u-10179?\\u-8704?\\u2325?\\{\\\\\\}\\~\\-\\_\\tab x\\line y;\\par",
          "\\qj\\li100\\ri200\\fi-50\\sb10\\sa20\\sl-"
          "300\\tqr\\tx900\\tx300\\tqc\\tx99\\cbpat1\\brdrb\\brdrdb\\brdrw30\\brsp40 x\\par"
          "\\pard\\keep\\keepn\\widctlpar\\sl360\\slmult1\\brdrt\\brdrdash\\brdrcf2 y\\page\\pard\\qc\\sl300 "
          "z\\par\\par",
          "\\trowd\\trgaph70\\trleft-70\\trqc\\trrh-"
          "400\\trhdr\\trkeep\\trpaddt30\\clvmgf\\clvertalc\\clcbpat1\\clbrdrt\\brdrdot\\brdrw5"
          "\\brdrcf2\\cellx1000\\clmgf\\clpadl20\\clvertalb\\cellx2000\\clmrg\\cellx3000\\intbl a\\cell b\\par "
          "c\\cell\\cell\\row"
          "\\trowd\\trqr\\trrh200\\clvmrg\\cellx1000\\intbl\\cell\\row\\pard d\\par",
          "\\trowd\\cellx900\\intbl a\\par\\itap2 b\\nestcell\\itap3 "
          "e\\nestcell{\\*\\nesttableprops\\trowd\\cellx5\\nestrow}"
          "\\itap2 c\\nestcell{\\*\\nesttableprops\\trowd\\clbrdrl\\brdrs\\cellx10\\cellx20\\nestrow}\\itap1 "
          "d\\cell\\row",
          "{\\field{\\*\\fldinst SECTIONPAGES}{\\fldrslt 3}}{\\field{\\*\\fldinst PAGE}{\\fldrslt 3}} of "
          "{\\b{\\field{\\*\\fldinst\\i numpages}{\\fldrslt 3}}}\\par",
          "{\\pict\\pngblip\\picwgoal300\\pichgoal200\\picscalex50\\piccropl10\\piccropb-5 " PNG_OF_ONE_DOT "}x\\par",
          "\\landscape\\paperw9000\\margb7\\sectd\\headery1\\footery2\\titlepg\\pgnrestart\\cols3\\colsx4\\pgbrdropt32"
          "\\pgbrdrt\\br"
          "drs\\brsp9"
          "{\\header h\\par}{\\footer f\\par}{\\headerf "
          "i\\par}a\\par\\sect\\sectd\\sbknone\\pgwsxn8000{\\header\\par}{\\footerf g\\par}b\\par"}) {
        const Document document = read(body);
        const QByteArray rtf = writeRtf(document);
        EXPECT_TRUE(std::all_of(rtf.begin(), rtf.end(), [](char c) { return c > 0; }));
        const RtfRead again = readRtf(rtf);
        EXPECT_EQ(again.error.toStdString(), "");
        EXPECT_TRUE(again.document == document) << body << "\n" << rtf.toStdString();
    }
}

TEST(RtfReader, WhatIsNotShownIsKeptForASave)
{
    const QByteArray rtf =
        R"({\rtf1\ansicpg1250{\fonttbl{\f0 Arial;}{\f7 Courier;}}{\colortbl;\red255;\blue9;}{\stylesheet x}{\headerl left}a)"
        R"({\shp{\*\shpinst s\cf2 {\f7 \'b3 {n}}\{}{\shprslt t}}b{\pict{\*\new {n}}\wmetafile8 00ff}{\*\shppict{\pict\emfblip 0}})"
        R"({\nonshppict{\pict\wmetafile8 00}}{\b c{\uc2{\*\footnote f\u322 xx\bin3 }}{}}d}\par}{\footer{\do e}\par})";
    RtfRead before = readRtf(rtf);
    EXPECT_EQ(before.unseen.join(u',').toStdString(), "drawing,picture of a kind that is not drawn,footnote");
    EXPECT_EQ(before.omitted.join(u',').toStdString(), "header of left pages");
    EXPECT_EQ(outline(before.document.sections.front().blocks).toStdString(),
              "(<a><\uFFFC><b><\uFFFC><\uFFFC><c><\uFFFC><d>)");
    const QByteArray saved = writeRtf(before.document);
    EXPECT_TRUE(saved.contains("\\u322 ?") && saved.contains("00ff") && saved.contains("\\uc2{\\*\\footnote f"))
        << saved.toStdString();
    const RtfRead again = readRtf(saved);
    EXPECT_EQ(again.error.toStdString(), "");
    EXPECT_EQ(again.unseen, before.unseen);
    EXPECT_EQ(outline(again.document.sections.front().blocks), outline(before.document.sections.front().blocks));
    EXPECT_EQ(writeRtf(again.document).toStdString(), saved.toStdString()) << "nothing is lost by saving again";
    for (const char *word : {"Courier", "\\blue9"})
        EXPECT_TRUE(saved.contains(word)) << word;
    EXPECT_EQ(layoutDocument(before.document).front().drawing.texts.size(), 4U);
    EXPECT_EQ(readRtf("{\\rtf1{\\info i}{\\*\\new n}a\\par}").unseen, QStringList());
}

TEST(RtfReader, PageBreakFallsOnTheNextParagraph)
{
    const Document document = read("a\\page b\\par");
    ASSERT_EQ(document.sections.front().blocks.size(), 2U);
    EXPECT_TRUE(std::get<Paragraph>(document.sections.front().blocks[1].content).format.pageBreakBefore);
}

struct BrokenCase
{
    const char *name;
    QByteArray rtf;
    const char *outline;
    const char *error;
};

class BrokenRtf : public testing::TestWithParam<BrokenCase>
{
};

TEST_P(BrokenRtf, GivesWhatCouldBeReadAndSaysWhy)
{
    const RtfRead read = readRtf(GetParam().rtf);
    EXPECT_EQ(outline(read.document.sections.front().blocks).toStdString(), GetParam().outline);
    EXPECT_EQ(read.error.toStdString(), GetParam().error);
}

INSTANTIATE_TEST_SUITE_P(
    Files, BrokenRtf,
    testing::Values(
        BrokenCase{"empty", "", "", "the file is empty"},
        BrokenCase{"something_else", "\xD0\xCF\x11\xE0", "", "not an RTF document"},
        BrokenCase{"cut_in_a_paragraph", "{\\rtf1 abc", "(<abc>)", "the document ends inside of a group"},
        BrokenCase{"cut_in_a_row", "{\\rtf1\\trowd\\cellx9\\intbl a\\cell b", "{[(<a>)][(<b>)]}",
                   "the document ends inside of a group"},
        BrokenCase{"hex_without_digits", "{\\rtf1 a\\'g1b\\par}", "(<ag1b>)",
                   "two hexadecimal digits are missing at byte 10"},
        BrokenCase{"binary_longer_than_the_file", "{\\rtf1 a\\par{\\pict\\bin99999999 x}}", "(<a>)",
                   "binary data is cut short at byte 31"},
        BrokenCase{"binary_of_negative_length", "{\\rtf1 a\\bin-5 b\\par}", "(<ab>)",
                   "binary data is cut short at byte 15"},
        BrokenCase{"backslash_at_the_end", "{\\rtf1 a\\", "(<a>)", "the text ends after a backslash at byte 9"},
        BrokenCase{"too_deep", "{\\rtf1 a\\par" + QByteArray(100000, '{'), "(<a>)", "groups are nested too deeply"},
        BrokenCase{"litter_behind_the_end", "{\\rtf1 a\\par}}}b", "(<a>)", ""},
        BrokenCase{"ended_in_the_midst", "{\\rtf1 a\\par}}b\\par}", "(<a>)", "the document goes on behind its end"},
        BrokenCase{
            "picture_of_two_thousand_million_dots",
            "{\\rtf1 a{\\pict\\pngblip 89504e470d0a1a0a0000000d494844527fffffff000000010806000000a03633dd}\\par}",
            "(<a>)", "a picture can not be read"},
        BrokenCase{"header_never_ended", "{\\rtf1 a\\par{\\header b\\par{\\b", "(<a>)",
                   "the document ends inside of a group"},
        BrokenCase{"numbers_out_of_range", "{\\rtf1\\li99999999999999999999\\fs-3\\f7\\cf-1\\uc-4\\paperw-1 a\\par}",
                   "(<a>)", ""}),
    [](const auto &test) { return std::string(test.param.name); });

TEST(RtfReader, TooManyCellsShareTheLast)
{
    QByteArray body = "\\trowd";
    for (int i = 0; i < 300; ++i)
        body += "\\cellx" + QByteArray::number(i * 10);
    body += "\\intbl";
    for (int i = 0; i < 300; ++i)
        body += " x\\cell";
    const Document document = read(body + "\\row");
    const Row &row = std::get<Table>(document.sections.front().blocks.at(0).content).rows.at(0);
    EXPECT_EQ(row.cells.size(), 200U);
    EXPECT_EQ(row.cells.back().blocks.size(), 101U);
}

TEST(RtfReader, AFewBytesCanNotClaimAllMemory)
{
    QByteArray definition = "\\trowd";
    for (int i = 0; i < 200; ++i)
        definition += "\\cellx" + QByteArray::number(i * 10);
    const QByteArray table = "{\\rtf1" + definition + QByteArray("\\row").repeated(1'000'000) + "}";
    const RtfRead rows = readRtf(table);
    EXPECT_EQ(rows.error.toStdString(), "the document is too large");
    EXPECT_LT(std::get<Table>(rows.document.sections.front().blocks.at(0).content).rows.size(), 1100U);
    const Document tabs = read("\\pard" + QByteArray("\\tx9").repeated(1'000'000) + " a\\par");
    EXPECT_EQ(paragraphOf(tabs).format.tabs.size(), 100U);
    const QByteArray breaks = "{\\rtf1{\\header " + QByteArray("a\\par ").repeated(1000) + "}"
                              + QByteArray("\\sect").repeated(1'000'000) + "}";
    const RtfRead sections = readRtf(breaks);
    EXPECT_LT(sections.document.sections.size(), 200U);
}

TEST(RtfReader, ATemplateCutAtAnyByteIsReadWithoutFail)
{
    QFile file(QStringLiteral(LEDGORA_TEMPLATES "/GST_NoTax_Bill.doc"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray whole = file.readAll();
    EXPECT_EQ(readRtf(whole).error.toStdString(), "");
    const qsizetype content = whole.lastIndexOf('}');
    for (qsizetype length = 0; length < content; ++length)
        ASSERT_NE(readRtf(QByteArrayView(whole).first(length)).error.toStdString(), "") << "cut at " << length;
}

} // namespace

} // namespace ledgora::reporter
