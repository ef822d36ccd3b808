#include "store/Identifiers.h"

#include <gtest/gtest.h>

namespace ledgora {
namespace {

TEST(Pan, ShapeAndKindOfHolder)
{
    const struct
    {
        const char *pan;
        PanFault fault;
    } cases[] = {{"", PanFault::None},
                 {"ABCPE1234F", PanFault::None},
                 {"panapplied", PanFault::None},
                 {"PanNotAvbl", PanFault::None},
                 {"PANINVALID", PanFault::None},
                 {"abcpe1234f", PanFault::Shape},
                 {"ABCP51234F", PanFault::Shape},
                 {"ABCXE1234F", PanFault::FourthCharacter},
                 {"ABCX51234F", PanFault::Shape},
                 {"ABCPE1234", PanFault::Shape},
                 {"ABCPE1234FG", PanFault::Shape},
                 {"ABCPE12345", PanFault::Shape},
                 {"ABCPEO234F", PanFault::Shape},
                 {"ABCP\u00c91234F", PanFault::Shape}};
    for (const auto &c : cases)
        EXPECT_EQ(panFault(c.pan), c.fault) << c.pan;
    for (const char kind : std::string("ABCDEFGHIJKLMNOPQRSTUVWXYZ"))
        EXPECT_EQ(panFault("ABC" + QString(QChar(kind)) + "E1234F") == PanFault::None,
                  std::string("PHCJFATBLG").find(kind) != std::string::npos)
            << kind;
}

TEST(Gstin, IsFifteenCapitalsAndDigitsWithoutCheckDigit)
{
    for (const char last : std::string("0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ"))
        EXPECT_TRUE(IsGstinShape("07ABCPE1234F1Z" + QString(QChar(last))));
    for (const char *bad : {"", "07ABCPE1234F1Z", "07ABCPE1234F1Z55", "07abcpe1234f1z5", "07ABCPE1234F1-5"})
        EXPECT_FALSE(IsGstinShape(bad)) << bad;
}

TEST(Gstin, AgreesWithStateAndPanOfItsHolder)
{
    EXPECT_EQ(gstinStateFault("07ABCPE1234F1Z5", "07", "DELHI").toStdString(), "");
    EXPECT_EQ(gstinStateFault("", "07", "DELHI").toStdString(), "");
    EXPECT_EQ(gstinStateFault("07ABCPE1234F1Z5", "", "ORISA").toStdString(), "");
    EXPECT_EQ(gstinStateFault("07ABCPE1234F1Z5", "24", "GUJARAT").toStdString(),
              "Invalid 'GSTIN' ! First 2-Digit shoule be State Code [24] for State [GUJARAT].");
    EXPECT_EQ(gstinPanFault("07ABCPE1234F1Z5", "ABCPE1234F").toStdString(), "");
    EXPECT_EQ(gstinPanFault("07ABCPE1234F1Z5", "").toStdString(), "");
    EXPECT_EQ(gstinPanFault("", "ABCPE1234F").toStdString(), "");
    EXPECT_EQ(gstinPanFault("07ABCPE1234F1Z5", "ABCPE1234G").toStdString(),
              "Invalid 'GSTIN' ! Should contain PAN [ABCPE1234G] from 3rd to 12th Character.");
}

TEST(Gstin, ItsMiddleIsAPanOrATan)
{
    const struct
    {
        const char *text;
        bool pan, tan;
    } cases[] = {{"ABCPE1234F", true, false},  {"DELA12345B", false, true},   {"ABCX51234F", false, true},
                 {"abcpe1234f", false, false}, {"ABCPE1234", false, false},   {"ABCPE12345", false, false},
                 {"", false, false},           {"DELAA2345B", true, false},   {"DELA1234BB", false, false},
                 {"DELA12345", false, false},  {"DELA12345BC", false, false}, {"1ELA12345B", false, false}};
    for (const auto &c : cases) {
        EXPECT_EQ(hasPanShape(QString(c.text)), c.pan) << c.text;
        EXPECT_EQ(hasTanShape(QString(c.text)), c.tan) << c.text;
    }
}

TEST(Email, NeedsACharacterBetweenTheAtAndTheNextPoint)
{
    for (const char *good : {"", "  ", "a@b.c", "@b.", "first.last@office.example", "a@b.c@d", " a@b.c "})
        EXPECT_TRUE(isEmailAddress(good)) << good;
    for (const char *bad : {"a", "a.b", "a@b", "a@.c", "a.b@c", "a@.b.c"})
        EXPECT_FALSE(isEmailAddress(bad)) << bad;
    EXPECT_EQ(emailMessage().toStdString(), "Insert a valid E-mail address.");
}

TEST(IfsCode, IsFourLettersAZeroAndSixLettersOrDigits)
{
    for (const char *good : {"", "SBIN0001234", "sbin0AbC12z"})
        EXPECT_TRUE(isIfsCode(good)) << good;
    for (const char *bad : {"SBIN1001234", "SBI00001234", "SBIN000123", "SBIN00012345", "SBIN000-234", "SBINO001234"})
        EXPECT_FALSE(isIfsCode(bad)) << bad;
    EXPECT_EQ(ifsCodeMessage().toStdString(),
              "Invalid IFS Code !\nShould be exactly 11 in Length and Format should be First 4 Alphabets [A-Z], Fifth "
              "[0], Next 6 AlphaNumerics [A-Z] or [0-9].");
}

} // namespace
} // namespace ledgora
