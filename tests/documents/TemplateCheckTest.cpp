#include "documents/TemplateCheck.h"

#include "components/TemplateText.h"
#include "tests/support/Print.h"
#include <QDir>
#include <gtest/gtest.h>

namespace ledgora {
namespace {

const QString templates = QStringLiteral(LEDGORA_TEMPLATES);

TEST(TemplateCheck, DefaultTemplatesAreInOrder)
{
    const QStringList files = QDir(templates).entryList({"*.doc"});
    EXPECT_EQ(files.size(), 8);
    for (const QString &file : files) {
        const TemplateUse use = templateUseOf(file).value_or(TemplateUse{TemplateKind::Intra, 0});
        EXPECT_EQ(use.copies, file.contains("2Copy") ? 2 : 1);
        QString fault;
        EXPECT_EQ(templateFindings(use, templateText(templates + '/' + file, fault)), QStringList())
            << file.toStdString();
        EXPECT_EQ(fault, "");
    }
}

TEST(TemplateCheck, NamesEachFaultOfATemplate)
{
    const QString inter = "GST_Inter_Bill.doc";
    const struct
    {
        const char *name;
        QString file, from, to, finding;
    } cases[] = {
        {"misspelt", inter, "#FIRM_DESIG#", "#FRIM_DESIG#",
         "\"#FRIM_DESIG#\" is no field; did you mean \"#FIRM_DESIG#\"?"},
        {"small letters", inter, "#NOTE#", "#note#", "\"#note#\" is no field; did you mean \"#NOTE#\"?"},
        {"not closed", inter, "#PARTY_PAN#", "#PARTY_PAN .",
         "\"#PARTY_PAN\" is no field: it lacks a \"#\"; did you mean \"#PARTY_PAN#\"?"},
        {"not opened", inter, "#PARTY_PAN#", "PARTY_PAN#",
         "\"PARTY_PAN#\" is no field: it lacks a \"#\"; did you mean \"#PARTY_PAN#\"?"},
        {"nothing like it", inter, "#NOTE#", "#WEATHER_TODAY#", "\"#WEATHER_TODAY#\" is no field"},
        {"beyond the tenth row", inter, "#NOTE#", "#AMT_11#", "\"#AMT_11#\" is no field; did you mean \"#AMT_1#\"?"},
        {"another kind's", inter, "#NOTE#", "#GTCAMT#",
         "\"#GTCAMT#\" is not filled in this kind of document; its name would be printed"},
        {"misspelt on further pages", inter, "page ", "page #BIL_NO# ",
         "\"#BIL_NO#\" is no field; did you mean \"#BILL_NO#\"?"},
        {"a row left out", inter, "#DISC_7#", "", "\"#DISC_n#\" is missing in row 7"},
        {"a copy left out", "GST_Receipt_2Copy.doc", "#AMOUNT#\n", "\n", "\"#AMOUNT#\" does not stand in every copy"},
        {"no number", inter, "#BILL_NO#", "", "\"#BILL_NO#\" is missing: a tax invoice must show its number (rule 46)"},
        {"no words on reverse charge", inter, "reverse charge", "",
         "The words \"reverse charge\" are missing: a tax invoice must show whether tax is payable on reverse charge "
         "(rule 46)"},
        {"no place", inter, "#PLACE_OF_SUPPLY#", "",
         "\"#PLACE_OF_SUPPLY#\" is missing: a tax invoice must show the place of supply (rule 46)"},
        {"no signature", "GST_NoTax_Bill.doc", "#AUTHSIGN_NAME#", "",
         "\"#AUTHSIGN_NAME#\" is missing: a bill of supply must show the name of who signs (rule 49)"},
    };
    for (const auto &c : cases) {
        QString fault;
        QString text = templateText(templates + '/' + c.file, fault);
        ASSERT_TRUE(text.contains(c.from)) << c.name;
        text.replace(text.indexOf(c.from), c.from.size(), c.to);
        EXPECT_EQ(templateFindings(templateUseOf(c.file).value_or(TemplateUse()), text), QStringList{c.finding})
            << c.name;
    }
}

TEST(TemplateCheck, FileThatIsNoTemplateIsAFault)
{
    QString fault;
    EXPECT_EQ(templateText(templates + "/make_templates.py", fault), "");
    EXPECT_NE(fault, "");
}

} // namespace
} // namespace ledgora
