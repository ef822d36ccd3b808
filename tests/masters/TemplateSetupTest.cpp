// The frame in which a company chooses its templates, and what it writes.

#include "HomeScreen.h"
#include <QAbstractButton>
#include <QDir>
#include <QFile>
#include <QRadioButton>

using namespace ledgora;
using namespace ledgora::test;

namespace {

/// The frame of company 7, opened, with common templates that have a word in them.
class TemplateSetup : public HomeScreen
{
protected:
    void SetUp() override
    {
        HomeScreen::SetUp();
        addCompany(7, "ALPHA");
    }
    QString templates() const { return folder() + "/GST_Templates"; }
    QStringList linesOf(const QString &name) const
    {
        QFile file(templates() + '/' + name);
        if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
            return {"no file"};
        return QString::fromUtf8(file.readAll()).split('\n', Qt::SkipEmptyParts);
    }
    void write(const QString &name, const QByteArray &text) const
    {
        QFile file(templates() + '/' + name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }
    QStringList companyFiles() const { return QDir(templates() + "/7").entryList({"*.doc"}, QDir::Files, QDir::Name); }
};

TEST_F(TemplateSetup, NothingChosenIsRefusedAtTheFirstListThatLacksAChoice)
{
    open();
    alt('T');
    EXPECT_EQ(frame(), "famTmplSetup");
    EXPECT_TRUE(find<QRadioButton>("optSetupTmpl_0")->isChecked());
    EXPECT_EQ(find<ChoiceBox>("cboCopyTmpl_0")->currentIndex(), -1);
    EXPECT_FALSE(isShown("cmdSetupTmpl_0"));
    boxes.expect("Please specify an Option !").icon(QMessageBox::Information);
    alt('B');
    EXPECT_EQ(focus(), "cboCopyTmpl_0");
    choose("cboCopyTmpl_0", "Double Copy (Original/Duplicate)");
    boxes.expect("Please specify an Option !");
    press(Qt::Key_Escape); // as Back does
    EXPECT_EQ(focus(), "cboCopyTmpl_1");
    EXPECT_EQ(frame(), "famTmplSetup");
    choose("cboCopyTmpl_1", "Single Copy");
    alt('B');
    EXPECT_EQ(frame(), "famFirmMain");
    EXPECT_EQ(linesOf("Settings.txt"), (QStringList{"B_COPY=1", "R_COPY=0"}));
    EXPECT_EQ(linesOf("7/Settings.txt"), QStringList{"no file"});
    EXPECT_EQ(gBillCopy, 1);
    alt('T');
    EXPECT_EQ(choice("cboCopyTmpl_0"), "Double Copy (Original/Duplicate)");
    EXPECT_EQ(choice("cboCopyTmpl_1"), "Single Copy");
}

TEST_F(TemplateSetup, CustomizedSetupIsCompleteWithAllFourTemplates)
{
    for (const char *name : {"GST_NoTax_Bill_2Copy.doc", "GST_Intra_Bill_2Copy.doc", "GST_Inter_Bill_2Copy.doc"})
        write(name, "common");
    open();
    alt('T');
    press(Qt::Key_Down); // to "Customized"
    choose("cboCopyTmpl_0", "Double Copy (Original/Duplicate)");
    choose("cboCopyTmpl_1", "Single Copy");
    const auto lacks = [&](const QString &what, const char *button) {
        boxes.expect("Please Setup Template for '" + what + "' !").icon(QMessageBox::Information);
        alt('B');
        EXPECT_EQ(focus(), button);
        EXPECT_EQ(frame(), "famTmplSetup");
    };
    lacks("No Tax - Double Copy (Original/Duplicate)", "cmdSetupTmpl_0");
    press(Qt::Key_Space);
    EXPECT_EQ(companyFiles(), QStringList{"GST_NoTax_Bill_2Copy.doc"});
    lacks("Intra-State (CGST/SGST) - Double Copy (Original/Duplicate)", "cmdSetupTmpl_1");
    press(Qt::Key_Space);
    lacks("Inter-State (IGST) - Double Copy (Original/Duplicate)", "cmdSetupTmpl_2");
    press(Qt::Key_Space);
    lacks("Receipt - Single Copy", "cmdSetupTmpl_3");
    boxes.expect("Missing Template File [" + templates() + "/GST_Receipt.doc]").icon(QMessageBox::Information);
    press(Qt::Key_Space);
    write("GST_Receipt.doc", "common");
    click("cmdSetupTmpl_3");
    alt('B');
    EXPECT_EQ(frame(), "famFirmMain");
    EXPECT_EQ(companyFiles().size(), 4);
    EXPECT_EQ(linesOf("7/Settings.txt"), (QStringList{"CUSTOMIZED=Y", "B_COPY=1", "R_COPY=0"}));
    EXPECT_EQ(linesOf("Settings.txt"), QStringList{"no file"});
    EXPECT_EQ(gTmplCustom, 1);
}

TEST_F(TemplateSetup, CompanysOwnTemplateIsNeverOverwritten)
{
    write("GST_Intra_Bill.doc", "common");
    ASSERT_TRUE(QDir(templates()).mkpath("7"));
    write("7/GST_Intra_Bill.doc", "own");
    open();
    alt('T');
    press(Qt::Key_Down); // to "Customized"
    choose("cboCopyTmpl_0", "Single Copy");
    click("cmdSetupTmpl_1");
    EXPECT_EQ(linesOf("7/GST_Intra_Bill.doc"), QStringList{"own"});
}

TEST_F(TemplateSetup, GoingBackToTheDefaultKeepsTheCompanysTemplates)
{
    ASSERT_TRUE(QDir(templates()).mkpath("7"));
    write("7/Settings.txt", "CUSTOMIZED=Y\r\nB_COPY=1\r\nR_COPY=1\r\n");
    write("7/GST_Intra_Bill.doc", "own");
    open();
    alt('T');
    EXPECT_TRUE(find<QRadioButton>("optSetupTmpl_1")->isChecked());
    press(Qt::Key_Up); // to "Default"
    choose("cboCopyTmpl_0", "Single Copy");
    alt('B');
    EXPECT_EQ(linesOf("7/Settings.txt"), QStringList{"CUSTOMIZED=N"});
    EXPECT_EQ(linesOf("Settings.txt"), (QStringList{"B_COPY=0", "R_COPY=1"}));
    EXPECT_EQ(companyFiles(), QStringList{"GST_Intra_Bill.doc"});
    EXPECT_EQ(gTmplCustom, 0);
}

} // namespace
