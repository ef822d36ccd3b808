#include "store/StateList.h"

#include <QSet>
#include <gtest/gtest.h>

namespace ledgora {
namespace {

TEST(StateList, HasThirtySevenStatesInItsOwnOrder)
{
    const QStringList forms = stateDisplayForms();
    ASSERT_EQ(forms.size(), 37);
    EXPECT_EQ(forms.front().toStdString(), "ANDAMAN & NICOBAR ISLANDS (35)");
    EXPECT_EQ(forms.at(9).toStdString(), "DELHI (07)");
    EXPECT_EQ(forms.at(35).toStdString(), "WEST BENGAL (19)");
    EXPECT_EQ(forms.back().toStdString(), "OTHER TERRITORY (98)");
    QSet<QString> codes;
    for (const QString &form : forms)
        codes.insert(GETSTATECODEFORNAMECODEGST(form));
    EXPECT_EQ(codes.size(), 37);
    for (int code = 1; code <= 37; ++code) // 28 was given up when its state was divided; 98 takes its place
        EXPECT_EQ(codes.contains(QString("%1").arg(code, 2, 10, QChar(u'0'))), code != 28) << code;
    EXPECT_EQ(DOPROCSTATELISTGST("FILLCBO", "x"), '|' + forms.join('|'));
}

TEST(StateList, EveryFormLeadsToNameAndCodeAndBack)
{
    for (const QString &form : stateDisplayForms()) {
        const QString name = GETSTATENAMEFORNAMECODEGST(' ' + form.toLower() + ' ');
        const QString code = GETSTATECODEFORNAMECODEGST(form);
        EXPECT_EQ(QString(name + " (" + code + ")"), form);
        EXPECT_EQ(GETSTATENAMEFORCODEONLYGST(code), name);
        EXPECT_EQ(GETSTATECODEFORNAMEONLYGST(name), code);
        EXPECT_EQ(stateEntryForCode(code), form);
        EXPECT_EQ(stateEntryForName(name.toLower()), form);
    }
}

TEST(StateList, OldSpellingsCountOnlyForTheCodeOfAName)
{
    const struct
    {
        const char *name, *code;
    } cases[] = {{"UTTARANCHAL", "05"}, {" orissa ", "21"},    {"Chhatishgarh", "22"},
                 {"LAKSHDWEEP", "31"},  {"LAKHSWADEEP", "31"}, {"TAMILNADU", "33"},
                 {"PONDICHERRY", "34"}, {"TELENGANA", "36"},   {"ANDAMAN AND NICOBAR ISLANDS", "35"}};
    for (const auto &c : cases) {
        EXPECT_EQ(GETSTATECODEFORNAMEONLYGST(c.name).toStdString(), c.code) << c.name;
        EXPECT_EQ(stateEntryForName(c.name).toStdString(), "") << c.name;
        EXPECT_EQ(GETSTATENAMEFORNAMECODEGST(QString(c.name) + " (" + c.code + ")").toStdString(), "") << c.name;
    }
    EXPECT_EQ(GETSTATENAMEFORCODEONLYGST("21").toStdString(), "ODISHA");
    EXPECT_EQ(GETSTATENAMEFORCODEONLYGST("98").toStdString(), "OTHER TERRITORY");
}

TEST(StateList, UnknownAndEmptyGiveNothing)
{
    for (const char *operation : {"NAME_FOR_NAMECODE", "CODE_FOR_NAMECODE", "NAME_FOR_CODE", "CODE_FOR_NAME", "OTHER"})
        for (const char *value : {"", "ATLANTIS", "ATLANTIS (99)", "28", " 07"})
            EXPECT_EQ(DOPROCSTATELISTGST(operation, value).toStdString(), "") << operation << ' ' << value;
    for (const char *value : {"", "28", "DELHI"})
        EXPECT_EQ(stateEntryForCode(value).toStdString(), "") << value;
}

} // namespace
} // namespace ledgora
