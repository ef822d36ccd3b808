#include "components/reporter/Filling.h"

#include <gtest/gtest.h>

namespace ledgora::reporter {

namespace {

using Runs = std::vector<Run>;

CharFormat sized(int halfPoints)
{
    CharFormat format;
    format.halfPoints = halfPoints;
    return format;
}

Document documentOf(std::vector<Run> runs)
{
    Document document;
    document.sections.front().blocks.push_back({Paragraph{std::move(runs), {}, {}}});
    return document;
}

const std::vector<Run> &runsOf(const Filling &filling)
{
    return std::get<Paragraph>(filling.document().sections.front().blocks.at(0).content).runs;
}

QString textOf(const Filling &filling)
{
    return std::get<Paragraph>(filling.document().sections.front().blocks.at(0).content).text();
}

struct ValueCase
{
    const char *name;
    const char *text;
    PlaceholderValue value; ///< for "#A#"
    QString expected;
    int count;
};

class FilledText : public testing::TestWithParam<ValueCase>
{
};

TEST_P(FilledText, IsReplaced)
{
    Filling filling(documentOf({{QString::fromUtf8(GetParam().text), {}}}));
    EXPECT_EQ(filling.setText(QStringLiteral("#A#"), GetParam().value), GetParam().count);
    EXPECT_EQ(textOf(filling).toStdString(), GetParam().expected.toStdString());
}

QString text(const char *utf8)
{
    return QString::fromUtf8(utf8);
}

INSTANTIATE_TEST_SUITE_P(
    Values, FilledText,
    testing::Values(ValueCase{"all_occurrences", "#A# and #A#", text("x"), text("x and x"), 2},
                    ValueCase{"not_a_part_of_a_name", "#A1#", text("x"), text("#A1#"), 0},
                    ValueCase{"case_counts", "#a#", text("x"), text("#a#"), 0},
                    ValueCase{"empty_value", "a#A#b", text(""), text("ab"), 1},
                    ValueCase{"own_name_is_not_searched_again", "#A#", text("#A##A#"), text("#A##A#"), 1},
                    ValueCase{"markup_is_text", "#A#", text("{\\b x}\\par \\'41"), text("{\\b x}\\par \\'41"), 1},
                    ValueCase{"line_ends_break_the_line", "#A#", text("a\r\nb\nc\rd"), text("a\u2028b\u2028c\u2028d"),
                              1},
                    ValueCase{"control_characters_go", "#A#", QString(text("a\x1b\x01") + QChar(0) + text("b\tc")),
                              text("ab\tc"), 1},
                    ValueCase{"whole_number", "#A#", 1180.0, text("1180"), 1},
                    ValueCase{"fraction", "#A#", 1180.5, text("1180.5"), 1},
                    ValueCase{"crores_stay_plain", "#A#", 1234567890.0, text("1234567890"), 1}),
    [](const auto &test) { return std::string(test.param.name); });

TEST(Filling, APlaceholderSplitOverRunsTakesTheFirstFormat)
{
    Filling filling(documentOf({{"a#F", sized(10)}, {"IRM", sized(20)}, {"#b", sized(30)}}));
    EXPECT_EQ(filling.setText(QStringLiteral("#FIRM#"), QStringLiteral("X")), 1);
    EXPECT_EQ(runsOf(filling), (Runs{{"aX", sized(10)}, {"b", sized(30)}}));
}

TEST(Filling, TwoOccurrencesThatShareARunAreBothReplaced)
{
    Filling filling(documentOf({{"#A", sized(10)}, {"##A", sized(20)}, {"#", sized(30)}}));
    EXPECT_EQ(filling.setText(QStringLiteral("#A#"), QStringLiteral("X")), 2);
    EXPECT_EQ(runsOf(filling), (Runs{{"X", sized(10)}, {"X", sized(20)}}));
}

TEST(Filling, MarksInAValueSwitchBoldOnAndOff)
{
    Filling filling(documentOf({{"<#A#>", sized(10)}}));
    EXPECT_EQ(filling.setText(QStringLiteral("#A#"), QStringLiteral("Rs. \x1b"
                                                                    "E90\x1b"
                                                                    "F and \x1b"
                                                                    "E5")),
              1);
    CharFormat bold = sized(10);
    bold.bold = true;
    EXPECT_EQ(runsOf(filling),
              (Runs{{"<Rs. ", sized(10)}, {"90", bold}, {" and ", sized(10)}, {"5", bold}, {">", sized(10)}}));
}

TEST(Filling, AValueIsSearchedByLaterReplacements)
{
    Filling filling(documentOf({{"#PARTY#", {}}}));
    filling.setText(QStringLiteral("#PARTY#"), QStringLiteral("c/o #FIRM#"));
    filling.setText(QStringLiteral("#FIRM#"), QStringLiteral("Mehta"));
    EXPECT_EQ(textOf(filling).toStdString(), "c/o Mehta");
}

TEST(Filling, AnOptionalParagraphWithoutAnyValueKeepsNoLabel)
{
    CharFormat hidden;
    hidden.hidden = true;
    for (const auto &[one, two, expected] : {std::tuple{"", "", ""},
                                             {"", " ", ""},
                                             {"", "b", "GSTIN  PAN b[optional]"},
                                             {"0", "", "GSTIN 0 PAN [optional]"}}) {
        Document document = documentOf({{"GSTIN #A# PAN #B#", {}}, {"[optional]", hidden}});
        auto &paragraph = std::get<Paragraph>(document.sections.front().blocks.front().content);
        paragraph.format.spaceBefore = 90;
        Filling filling(document);
        filling.setText("#A#", QString(one));
        EXPECT_NE(textOf(filling), "") << "not before the last of its values is known";
        filling.setText("#B#", QString(two));
        EXPECT_EQ(textOf(filling).toStdString(), expected);
    }
    Filling plain(documentOf({{"GSTIN #A#", {}}}));
    plain.setText("#A#", QString());
    EXPECT_EQ(textOf(plain), "GSTIN ");
}

TEST(Filling, ValuesMayJoinToAPlaceholder)
{
    Filling filling(documentOf({{"#A##B#", {}}}));
    filling.setText(QStringLiteral("#A#"), QStringLiteral("#"));
    filling.setText(QStringLiteral("#B#"), QStringLiteral("C#"));
    EXPECT_EQ(textOf(filling).toStdString(), "#C#");
    filling.setText(QStringLiteral("#C#"), QStringLiteral("done"));
    EXPECT_EQ(textOf(filling).toStdString(), "done");
}

TEST(Filling, ReachesCellsOfTablesAndLeavesTheTemplateAlone)
{
    Document parsed = documentOf({{"#A#", {}}});
    Cell cell;
    cell.blocks = parsed.sections.front().blocks;
    parsed.sections.front().blocks.push_back({Table{{Row{{}, {cell, cell}}}}});
    const Document before = parsed;
    Filling filling(parsed);
    EXPECT_EQ(filling.setText(QStringLiteral("#A#"), QStringLiteral("x")), 3);
    EXPECT_EQ(parsed, before);
}

TEST(Filling, AnEmptyPlaceholderOccursNowhere)
{
    Filling filling(documentOf({{"#A#", {}}}));
    EXPECT_EQ(filling.setText(QString(), QStringLiteral("x")), 0);
    EXPECT_EQ(textOf(filling).toStdString(), "#A#");
}

} // namespace

} // namespace ledgora::reporter
