#include "store/Settings.h"

#include "host/WorkingState.h"
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace ledgora {
namespace {

void writeFile(const QString &path, const QByteArray &content)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
}

std::string readFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : "(missing)";
}

class SettingsFiles : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_folder.isValid());
        gAppPath = m_folder.path();
        gTmplPath = m_folder.filePath("GST_Templates");
        gLogPath = m_folder.filePath("errors.log");
        gFirmId = 7;
    }
    void TearDown() override
    {
        gAppPath.clear();
        gTmplPath.clear();
        gLogPath.clear();
        CompanyState().apply();
    }
    QString ini() const { return m_folder.filePath("Confg.ini"); }
    QString common() const { return m_folder.filePath("GST_Templates/Settings.txt"); }
    QString ofCompany() const { return m_folder.filePath("GST_Templates/7/Settings.txt"); }

private:
    QTemporaryDir m_folder;
};

TEST_F(SettingsFiles, IniValueComesFromItsSectionWhateverTheCase)
{
    writeFile(ini(),
              "; office\r\n[Other]\r\nAddrOpt=9\r\n[settings]\r\n  addropt = 4 \r\nEmpty=\r\nQuoted=\" a=b \"\r\n"
              "AddrOpt=5\r\n[Later]\r\nBill_F=1\r\n");
    EXPECT_EQ(GETSETTININI("Settings", "AddrOpt", "0").toStdString(), "4");
    EXPECT_EQ(GETSETTININI("OTHER", "AddrOpt", "0").toStdString(), "9");
    EXPECT_EQ(GETSETTININI("Settings", "Empty", "0").toStdString(), "");
    EXPECT_EQ(GETSETTININI("Settings", "Quoted", "0").toStdString(), " a=b ");
    EXPECT_EQ(GETSETTININI("Settings", "Bill_F", "0").toStdString(), "0");
    EXPECT_EQ(GETSETTININI("Missing", "AddrOpt", "d").toStdString(), "d");
}

TEST_F(SettingsFiles, IniValueHasAtMost255Characters)
{
    SAVESETTININI("Settings", "Long", QString(300, u'x'));
    EXPECT_EQ(GETSETTININI("Settings", "Long", "").size(), 255);
}

TEST_F(SettingsFiles, IniIsMadeAndTheRestOfItKept)
{
    EXPECT_EQ(GETSETTININI("Settings", "AddrOpt", "0").toStdString(), "0");
    SAVESETTININI("", "AddrOpt", "1");
    EXPECT_EQ(readFile(ini()), "(missing)");
    SAVESETTININI("Settings", "AddrOpt", "1");
    EXPECT_EQ(readFile(ini()), "[Settings]\nAddrOpt=1\n");

    writeFile(ini(), "\xEF\xBB\xBF; caf\xE9\r\n[Settings]\r\nMine=x\r\nAddrOpt=0\r\n\r\n[Other]\r\nAddrOpt=9");
    SAVESETTININI("Settings", "addropt", "3");
    SAVESETTININI("Settings", "AddrOffNm", "1");
    SAVESETTININI("New", "Key", "two\nlines");
    EXPECT_EQ(readFile(ini()), "\xEF\xBB\xBF; caf\xE9\r\n[Settings]\r\nMine=x\r\naddropt=3\r\nAddrOffNm=1\r\n\r\n"
                               "[Other]\r\nAddrOpt=9\r\n[New]\r\nKey=two lines\r\n");
    EXPECT_EQ(readFile(gLogPath), "(missing)");
}

TEST_F(SettingsFiles, UnreadableIniIsNeverOverwrittenAndLogged)
{
    QDir().mkpath(ini()); // a folder in its place
    SAVESETTININI("Settings", "AddrOpt", "1");
    EXPECT_EQ(GETSETTININI("Settings", "AddrOpt", "0").toStdString(), "0");
    EXPECT_TRUE(QFileInfo(ini()).isDir());
    EXPECT_NE(readFile(gLogPath).find("SAVESETTININI"), std::string::npos);
}

struct SetupCase
{
    const char *name;
    const char *company, *common, *ini; ///< contents, nullptr for no file
    int customized, billCopy, receiptCopy, nameCase;
};

class TemplateSetup : public SettingsFiles, public testing::WithParamInterface<SetupCase>
{
};

TEST_P(TemplateSetup, IsReadFromTheFileThatCounts)
{
    const SetupCase &c = GetParam();
    if (c.company)
        writeFile(ofCompany(), c.company);
    if (c.common)
        writeFile(common(), c.common);
    if (c.ini)
        writeFile(ini(), c.ini);
    gTmplCustom = 1; // left over from another company
    gBillCopy = gRecpCopy = gNameCase = 1;
    READTMPLSETUP();
    EXPECT_EQ(gTmplCustom, c.customized);
    EXPECT_EQ(gBillCopy, c.billCopy);
    EXPECT_EQ(gRecpCopy, c.receiptCopy);
    EXPECT_EQ(gNameCase, c.nameCase);
    EXPECT_TRUE(QFileInfo(gTmplPath + "/7").isDir());
}

INSTANTIATE_TEST_SUITE_P(
    Cases, TemplateSetup,
    testing::Values(
        SetupCase{"NoFiles", nullptr, nullptr, nullptr, 0, -1, -1, 0},
        SetupCase{"DefaultTakesTheCommonChoice", "CUSTOMIZED=N\nB_COPY=1\n", "B_COPY=0\nR_COPY=1\n", nullptr, 0, 0, 1,
                  0},
        SetupCase{"CustomizedKeepsItsOwn", "CUSTOMIZED=Y\r\nB_COPY=1\r\nR_COPY=0\r\n", "B_COPY=0\nR_COPY=1\n", nullptr,
                  1, 1, 0, 0},
        SetupCase{"CommonLeavesWhatItDoesNotName", "B_COPY=1\nR_COPY=1\n", "R_COPY=0\n", nullptr, 0, 1, 0, 0},
        SetupCase{"CommonFileCustomizesNobody", nullptr, "CUSTOMIZED=Y\nB_COPY=1\nR_COPY=1\n", nullptr, 0, 1, 1, 0},
        SetupCase{"OtherLinesAreIgnored", nullptr, "hello\nXB_COPY=1\nb_copy=1\nR_COPY=\n", nullptr, 0, -1, 0, 0},
        SetupCase{"UpperCaseNames", nullptr, nullptr, "[Settings]\nNameAdd_BR=1\n", 0, -1, -1, 1},
        SetupCase{"NameCaseThatIsNoNumber", nullptr, nullptr, "[Settings]\nNameAdd_BR=upper\n", 0, -1, -1, 0},
        SetupCase{"NumberOutOfRange", nullptr, "B_COPY=99999\nR_COPY=1x\n", nullptr, 0, -1, 1, 0}),
    [](const auto &setup) { return std::string(setup.param.name); });

TEST_F(SettingsFiles, ChoiceOfThePanelIsWrittenAndReadBack)
{
    READTMPLSETUP();
    ASSERT_TRUE(saveTemplateSetup(true, false, 1, 0));
    EXPECT_EQ(readFile(ofCompany()), "CUSTOMIZED=Y\nB_COPY=1\nR_COPY=0\n");
    EXPECT_EQ(readFile(common()), "(missing)");

    ASSERT_TRUE(saveTemplateSetup(false, true, 0, 1));
    EXPECT_EQ(readFile(ofCompany()), "CUSTOMIZED=N\n");
    EXPECT_EQ(readFile(common()), "B_COPY=0\nR_COPY=1\n");
    READTMPLSETUP();
    EXPECT_EQ(gTmplCustom, 0);
    EXPECT_EQ(gBillCopy, 0);
    EXPECT_EQ(gRecpCopy, 1);
}

TEST_F(SettingsFiles, DefaultOfACompanyThatNeverWasCustomizedLeavesItsFileAlone)
{
    writeFile(ofCompany(), "note\n");
    writeFile(common(), "PAPER=A4\nB_COPY=1\n");
    ASSERT_TRUE(saveTemplateSetup(false, false, 0, 0));
    EXPECT_EQ(readFile(ofCompany()), "note\n");
    EXPECT_EQ(readFile(common()), "B_COPY=0\nR_COPY=0\nPAPER=A4\n");
}

TEST_F(SettingsFiles, ChoiceThatCanNotBeWrittenSaysSo)
{
    QDir().mkpath(ofCompany());
    EXPECT_FALSE(saveTemplateSetup(true, false, 1, 1));
    EXPECT_NE(readFile(gLogPath), "(missing)");
}

TEST_F(SettingsFiles, FilesAreFoundWithoutRegardToCase)
{
    writeFile(gTmplPath + "/gst_intra_bill.DOC", "x");
    EXPECT_EQ(findFile(gTmplPath, "GST_Intra_Bill.doc"), gTmplPath + "/gst_intra_bill.DOC");
    writeFile(gTmplPath + "/GST_Intra_Bill.doc", "x");
    EXPECT_EQ(findFile(gTmplPath, "GST_Intra_Bill.doc"), gTmplPath + "/GST_Intra_Bill.doc");
    EXPECT_EQ(findFile(gTmplPath, "GST_Inter_Bill.doc"), gTmplPath + "/GST_Inter_Bill.doc");
}

TEST(JoinPath, KeepsOneSeparator)
{
    const struct
    {
        const char *folder, *name, *path;
    } cases[] = {{"/a", "b", "/a/b"}, {"/a/", "/b", "/a/b"}, {"/", "b", "/b"}, {"", "b", "b"},
                 {"/a", "", "/a"},    {"", "/b", "/b"},      {"", "", ""}};
    for (const auto &c : cases)
        EXPECT_EQ(joinPath(c.folder, c.name).toStdString(), c.path);
}

} // namespace
} // namespace ledgora
