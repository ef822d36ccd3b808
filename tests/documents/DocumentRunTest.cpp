#include "DocumentOffice.h"

#include "documents/DocumentChoice.h"
#include "documents/DocumentRun.h"
#include "documents/MasterFile.h"
#include <QDir>
#include <QFileInfo>
#include <functional>

namespace ledgora {
namespace {

class DocumentRun : public test::DocumentOffice
{
protected:
    QString templateFile(const char *name) const { return folder() + "/GST_Templates/" + name; }
    /// What was asked of the engine but the replacements.
    static QStringList operations()
    {
        QStringList asked;
        for (const QString &operation : test::NotingReporter::asked()) {
            if (!operation.startsWith('#'))
                asked << operation;
        }
        return asked;
    }
    static QStringList namesOf(const QStringList &files)
    {
        QStringList names;
        for (const QString &file : files)
            names << QFileInfo(file).fileName();
        return names;
    }
    RunResult each(const QList<int> &ids, DocumentFiles::OnFailure onFailure = DocumentFiles::OnFailure::GoOn,
                   const Progress &progress = unwatched())
    {
        const DocumentFiles files{folder() + "/out", DocumentFormat::Pdf, true, onFailure};
        return writeEachDocument(data().db(), *gReporter, DocumentKind::Bill, ids, files, progress);
    }
    QStringList runFolders() const { return QDir(folder()).entryList({"B??????"}, QDir::Dirs); }
};

TEST_F(DocumentRun, CombinesDocumentsInTheOrderThatTheEngineAsksFor)
{
    const auto combine = [] {
        return combineDocuments(data().db(), *gReporter, DocumentKind::Bill, {1, 3}, unwatched());
    };
    EXPECT_EQ(combine().documents, 2);
    const QStringList made{"WinModeReport True",
                           "initReport True",
                           "LoadPageSetup GST_Intra_Bill.doc",
                           "OpenMasterFile GST_Intra_Bill.doc",
                           "SaveMasterFile Bill1.rtf",
                           "AppendFile Bill1.rtf",
                           "initReport False",
                           "SetFontSizeBeforeAppendFile 3 2",
                           "OpenMasterFile GST_NoTax_Bill.doc",
                           "SaveMasterFile Bill2.rtf",
                           "AppendFile Bill2.rtf"};
    EXPECT_EQ(operations(), made);
    EXPECT_EQ(runFolders(), QStringList());
    QFile::remove(templateFile("GST_NoTax_Bill.doc"));
    const RunResult failed = combine();
    EXPECT_EQ(failed.failures, QStringList{"Bill AB/9/24 dated 03/05/2024: Missing Template File ["
                                           + templateFile("GST_NoTax_Bill.doc") + "]"});
    EXPECT_EQ(operations().last(), "AbortReport");
    EXPECT_EQ(runFolders(), QStringList());
    gTmpPath = folder() + "/nowhere";
    EXPECT_TRUE(combine().fault.startsWith("Failed to Save to Directory [" + gTmpPath));
}

TEST_F(DocumentRun, GivesEachDocumentAFileOfItsOwnWhateverItsNameHolds)
{
    data().run("Update GST_BillM Set BillNo=7,BillDt='2024-05-01' Where BillSrNo=3");
    data().run("Update GST_OthCl Set Nm='A/B \\n\"MILLS\" CO.' Where OthClSrNo=2");
    const RunResult result = each({1, 2, 3});
    EXPECT_TRUE(result.whole());
    EXPECT_EQ(namesOf(result.files),
              (QStringList{"Bill-AB_7_24-01052024-Ashok Traders.pdf", "Bill-8-02052024-A_b __mills_ Co.pdf",
                           "Bill-AB_7_24-01052024-Ashok Traders-2.pdf"}));
    data().run("Update GST_OthCl Set Nm=Repeat('लि',60) Where OthClSrNo=2");
    EXPECT_LT(namesOf(each({2}).files).value(0).toUtf8().size(), 250);
}

TEST_F(DocumentRun, NamesWhatFailsAndEndsWhenItIsToldTo)
{
    data().run("Update GST_BillM Set AppTaxType='VAT' Where BillSrNo=1");
    const QStringList failures{"Bill AB/7/24 dated 01/05/2024: 'Tax Applicability' Not Available !"};
    const RunResult all = each({1, 2, 3});
    EXPECT_EQ(all.failures, failures);
    EXPECT_EQ(all.documents, 2);
    const RunResult stopped = each({1, 2, 3}, DocumentFiles::OnFailure::Stop);
    EXPECT_EQ(stopped.failures, failures);
    EXPECT_EQ(stopped.documents, 0);
    const RunResult cancelled =
        each({2, 3}, DocumentFiles::OnFailure::GoOn, [](qint64 done, qint64 total, const QString &what) {
            EXPECT_EQ(QString("%1/%2 ").arg(done).arg(total) + what, "1/2 Bill 8 dated 02/05/2024");
            return false;
        });
    EXPECT_EQ(cancelled.fault, "It was cancelled.");
    EXPECT_EQ(cancelled.documents, 1);
    test::NotingReporter::lastError() = "the disk is full";
    const RunResult unwritten = each({2});
    EXPECT_EQ(unwritten.failures, QStringList{"Bill 8 dated 02/05/2024: the disk is full"});
    EXPECT_EQ(unwritten.files, QStringList());
    EXPECT_EQ(unwritten.documents, 0);
}

TEST_F(DocumentRun, MakesNoDocumentThatLacksItsClientOrWhatCouldNotBeRead)
{
    failuresAreExpected();
    data().run("Update GST_BillM Set Code_No='GONE' Where BillSrNo=2");
    const RunResult gone = each({1, 2});
    EXPECT_EQ(gone.failures, QStringList{"Bill 8 dated 02/05/2024: its client is not there any more"});
    EXPECT_EQ(gone.documents, 1);
    for (const char *table : {"GST_BillD", "GST_FirmMas", "GST_Series", "GST_OthCl"}) {
        data().run(QString("Rename Table %1 To Away").arg(table));
        const RunResult unread = each({1});
        EXPECT_TRUE(unread.fault.startsWith("The database failed: ")) << table;
        EXPECT_EQ(unread.files, QStringList()) << table;
        data().run(QString("Rename Table Away To %1").arg(table));
    }
}

TEST_F(DocumentRun, MasterFileIsCheckedBeforeItIsFilled)
{
    const QString path = templateFile("GST_Receipt.doc");
    EXPECT_EQ(CHECKANDOPENMASTERFILE(*gReporter, path), "");
    test::NotingReporter::masterOpens() = false;
    EXPECT_EQ(CHECKANDOPENMASTERFILE(*gReporter, path), "Failed to Open File [" + path + "].");
    ASSERT_TRUE(QFile::resize(path, 0));
    EXPECT_EQ(CHECKANDOPENMASTERFILE(*gReporter, path), "Invalid File [" + path + "].");
    EXPECT_EQ(CHECKANDOPENMASTERFILE(*gReporter, folder()), "Invalid File [" + folder() + "].");
    EXPECT_EQ(CHECKANDOPENMASTERFILE(*gReporter, "/no/file"), "Missing File [/no/file].");
}

TEST_F(DocumentRun, ChoiceTakesWhatMeetsAllThatIsGiven)
{
    const QString ashok = clientCode(1);
    const QDate second(2024, 5, 2);
    struct Case
    {
        const char *name;
        std::function<void(DocumentChoice &)> choose;
        QList<int> ids;
    };
    const Case cases[] = {
        {"all", [](DocumentChoice &) {}, {1, 2, 3}},
        {"another company", [](DocumentChoice &c) { c.firmId = 2; }, {}},
        {"numbers", [](DocumentChoice &c) { c.numbers = {{7, 7}, {9, 12}}; }, {1, 3}},
        {"party and number",
         [&](DocumentChoice &c) {
             c.numbers = {{8, 9}};
             c.parties = QStringList{ashok};
         },
         {3}},
        {"a hostile party", [](DocumentChoice &c) { c.parties = QStringList{"x' Or '1'='1"}; }, {}},
        {"series", [](DocumentChoice &c) { c.seriesId = 4; }, {1, 3}},
        {"another year", [](DocumentChoice &c) { c.year = 2023; }, {}},
        {"one day", [&](DocumentChoice &c) { c.from = c.to = second; }, {2}},
    };
    for (const auto &c : cases) {
        DocumentChoice choice;
        choice.firmId = 1;
        c.choose(choice);
        EXPECT_EQ(chosenDocuments(data().db(), DocumentKind::Bill, choice), c.ids) << c.name;
    }
}

} // namespace
} // namespace ledgora
