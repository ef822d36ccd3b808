// The program itself, as a user starts it: the demonstration makes an office and documents, and other programs and
// later runs read them back.

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <memory>

namespace {

struct Finished
{
    int status;
    QString output, errors;
};

Finished run(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished(120'000)) {
        process.kill();
        process.waitForFinished();
        return {-1, {}, process.errorString()};
    }
    const int status = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    return {status, QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}

Finished ledgora(const QStringList &arguments)
{
    return run(LEDGORA_PROGRAM, arguments);
}

/// The words of a PDF file as another program reads them, single blanks between them.
QString textOf(const QString &pdf)
{
    const Finished read = run("pdftotext", {"-layout", pdf, "-"});
    EXPECT_EQ(read.status, 0) << pdf.toStdString() << ": " << read.errors.toStdString();
    return read.output.simplified();
}

/// One office for the whole journey: the demonstration is its first stage, the rest reads what it left.
class Journey : public testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        s_out = std::make_unique<QTemporaryDir>();
        s_demo = ledgora({"demo", "--out", s_out->path(), "--today", "15/06/2024"});
    }
    static void TearDownTestSuite() { s_out.reset(); }
    void SetUp() override { ASSERT_EQ(s_demo.status, 0) << s_demo.errors.toStdString(); }

    static QString out(const QString &name) { return s_out->filePath(name); }
    static Finished balance(const QString &party)
    {
        return ledgora({"balance", "--firm", "1", "--party", party, "--data", out("office")});
    }

    static inline std::unique_ptr<QTemporaryDir> s_out;
    static inline Finished s_demo;
};

TEST_F(Journey, DocumentsSayWhatWasKeyedIn)
{
    struct Document
    {
        const char *file;
        std::initializer_list<const char *> says;
        const char *saysNot;
    };
    const Document documents[] = {
        {"Bill_1_Intra-State.pdf",
         {"Gupta Trading Company", "Place of supply DELHI (07)", "15/06/2024", "25000 0 25000 9% 2250 9% 2250 29500",
          "7500 500 7000 9% 630 9% 630 8260", "1050 0 1050 9% 95 9% 95 1240", "SAC : 998221", "A.Y.",
          "Rupees Thirty Nine Thousand Only", "Payable within 15 days"},
         "IGST"},
        {"Bill_2_Inter-State.pdf",
         {"Kulkarni Foods Pvt. Ltd.", "MAHARASHTRA (27)", "12345 0 12345 18% 2222 14567", "9000 750 8250 18% 1485 9735",
          "Rupees Twenty Four Thousand Three Hundred Two Only"},
         "CGST"},
        {"Bill_3_No-Tax.pdf",
         {"1600 0 1600", "200 0 200", "Rupees One Thousand Eight Hundred Only", "Exempted supply"},
         "CGST"},
        {"Receipt_4.pdf",
         {"example RECEIPT GSTIN", "Cheque No. 771203 Dated 15/06/2024 Drawn on",
          "Bill No. 1 Dated 15/06/2024 Amounting Rs. 39000",
          "Bill No. 3 Dated 15/06/2024 Amounting Rs. 1800 : Rs. 1000"},
         "VOUCHER"},
    };
    for (const Document &document : documents) {
        const QString text = textOf(out(document.file));
        for (const char *words : document.says)
            EXPECT_TRUE(text.contains(words)) << document.file << " lacks \"" << words << "\": " << text.toStdString();
        EXPECT_FALSE(text.contains(document.saysNot)) << document.file;
        EXPECT_FALSE(text.contains(QRegularExpression("#[A-Z_0-9]+#"))) << document.file << " shows a placeholder";
    }
}

TEST_F(Journey, BalanceIsTheSumOfTheBillsLessWhatCameIn)
{
    for (const auto &[party, owed] :
         {std::pair{"BILL~OTHCL-000001", "800\n"}, {"BILL~OTHCL-000002", "0\n"}, {"nobody' Or '1'='1", "0\n"}}) {
        const Finished told = balance(party);
        EXPECT_EQ(told.status, 0) << told.errors.toStdString();
        EXPECT_EQ(told.output.toStdString(), owed) << party;
        EXPECT_EQ(told.errors.toStdString(), "");
    }
}

TEST_F(Journey, CommandsWriteWhatThePreviewsShowed)
{
    const QStringList office{"--data", out("office"), "--firm", "1", "--number"};
    EXPECT_EQ(ledgora(QStringList{"bills"} + office + QStringList{"1-2", "--out", out("papers")}).status, 0);
    EXPECT_EQ(ledgora(QStringList{"receipts"} + office + QStringList{"4", "--one", "--out", out("all.pdf")}).status, 0);
    const std::pair<const char *, const char *> files[] = {
        {"papers/Bill-1-15062024-Gupta Trading Company.pdf", "Bill_1_Intra-State.pdf"},
        {"papers/Bill-2-15062024-Kulkarni Foods Pvt. Ltd.pdf", "Bill_2_Inter-State.pdf"},
        {"all.pdf", "Receipt_4.pdf"}};
    for (const auto &[written, previewed] : files)
        EXPECT_EQ(textOf(out(written)).toStdString(), textOf(out(previewed)).toStdString());
    EXPECT_EQ(QDir(out("papers")).entryList(QDir::Files).size(), 2);
    const QStringList asRtf{"1-2", "--one", "--format", "rtf", "--out", out("all.rtf")};
    EXPECT_EQ(ledgora(QStringList{"bills"} + office + asRtf).status, 0);
    QFile rtf(out("all.rtf"));
    ASSERT_TRUE(rtf.open(QIODevice::ReadOnly));
    const QByteArray both = rtf.readAll();
    EXPECT_TRUE(both.startsWith("{\\rtf1"));
    EXPECT_LT(both.indexOf("Gupta Trading Company"), both.indexOf("Kulkarni Foods Pvt. Ltd."));
    EXPECT_GT(both.indexOf("Gupta Trading Company"), 0);
    EXPECT_EQ(ledgora(QStringList{"bills"} + office + QStringList{"77", "--out", out("none")}).status, 1);
    EXPECT_EQ(ledgora({"template", "check", out("office/GST_Templates/GST_Inter_Bill_2Copy.doc")}).status, 0);
    const Finished wrongKind =
        ledgora({"template", "check", out("office/GST_Templates/GST_Receipt.doc"), "--kind", "notax"});
    EXPECT_EQ(wrongKind.status, 1);
    EXPECT_TRUE(wrongKind.output.contains("\"#RCPT_NO#\" is not filled")) << wrongKind.output.toStdString();
}

TEST_F(Journey, ReportsComeAsPaperTextAndTable)
{
    const QString account = textOf(out("Client_Accounts.pdf"));
    for (const char *words : {"Client Accounts for the Period From 01/04/2024 to 31/03/2025", "Gupta Trading Company",
                              "15-Jun-24 B 1 39,000", "Closing Balance 800"})
        EXPECT_TRUE(account.contains(words)) << words << ": " << account.toStdString();
    const auto report = [](const QStringList &words, const QString &file) {
        return ledgora(
            QStringList{"report", "--data", out("office"), "--firm", "1", "--today", "15/06/2024", "--out", file}
            + words);
    };
    const QStringList year{"--from", "01/04/2024", "--to", "31/03/2025"};
    EXPECT_EQ(report(QStringList{"account"} + year, out("again.pdf")).status, 0);
    EXPECT_EQ(textOf(out("again.pdf")).toStdString(), account.toStdString());
    EXPECT_EQ(report({"outstanding", "--amount", ">500"}, out("due.csv")).status, 0);
    QFile due(out("due.csv"));
    ASSERT_TRUE(due.open(QIODevice::ReadOnly));
    const QByteArray rows = due.readAll();
    EXPECT_TRUE(rows.endsWith(",800\r\n")) << rows.constData();
    EXPECT_TRUE(rows.contains("\r\nOutstanding Details As on Date 15/06/2024\r\n")) << rows.constData();
    EXPECT_EQ(report(QStringList{"account", "--party", "nobody"} + year, out("none.txt")).status, 1);
    EXPECT_FALSE(QFile::exists(out("none.txt")));
    ASSERT_TRUE(QDir().mkpath(out("folder.txt")));
    for (const char *path : {"folder.txt", "no/such/folder.csv", "no/such/folder.pdf"}) {
        const Finished refused = report({"outstanding"}, out(path));
        EXPECT_EQ(refused.status, 1) << path;
        EXPECT_EQ(refused.errors.count(out(path)), 1) << refused.errors.toStdString();
    }
}

TEST_F(Journey, OfficeIsTheUsersAlone)
{
    for (const char *folder : {"office/server", "office/server/data"}) {
        const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup | QFile::ReadOther
                            | QFile::WriteOther | QFile::ExeOther;
        EXPECT_TRUE(QFile::exists(out(folder))) << folder;
        EXPECT_EQ(QFile::permissions(out(folder)) & others, QFile::Permissions()) << folder;
    }
}

TEST_F(Journey, SecondDemonstrationReplacesTheFirst)
{
    const Finished again = ledgora({"demo", "--out", s_out->path(), "--today", "2024-06-15"});
    EXPECT_EQ(again.status, 0) << again.errors.toStdString();
    EXPECT_EQ(balance("BILL~OTHCL-000001").output.toStdString(), "800\n") << "not twice as much";
}

TEST(Program, FolderThatIsNoOfficeIsLeftAlone)
{
    const QTemporaryDir out;
    ASSERT_TRUE(QDir(out.path()).mkdir("office"));
    QFile letter(out.filePath("office/letter.txt"));
    ASSERT_TRUE(letter.open(QIODevice::WriteOnly));
    letter.write("Dear Sir");
    letter.close();
    const Finished refused = ledgora({"demo", "--out", out.path()});
    EXPECT_EQ(refused.status, 1);
    EXPECT_EQ(refused.errors.count('\n'), 1) << refused.errors.toStdString();
    EXPECT_TRUE(refused.errors.contains(out.filePath("office"))) << refused.errors.toStdString();
    EXPECT_EQ(QDir(out.filePath("office")).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
              QStringList{"letter.txt"});
}

TEST(Program, WrongUsageIsStatusTwoAndMakesNothing)
{
    const QTemporaryDir out;
    const QDir::Filters all = QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot;
    for (const QStringList &words : {QStringList{"demo"},
                                     {"balance", "--firm", "1", "--data", out.filePath("office")},
                                     {"dmeo", "--out", out.filePath("office")},
                                     {"demo", "--out"}}) {
        const Finished refused = ledgora(words);
        EXPECT_EQ(refused.status, 2) << words.join(' ').toStdString();
        EXPECT_EQ(refused.output.toStdString(), "");
        EXPECT_TRUE(refused.errors.startsWith("ledgora: ")) << refused.errors.toStdString();
    }
    EXPECT_TRUE(QDir(out.path()).entryList(all).isEmpty());
}

TEST(Program, HelpAndVersionNeedNoOffice)
{
    for (const QStringList &words : {QStringList{"--help"}, {"demo", "--help"}, {"balance", "-h"}, {"--version"}}) {
        const Finished told = ledgora(words);
        EXPECT_EQ(told.status, 0) << words.join(' ').toStdString();
        EXPECT_FALSE(told.output.isEmpty());
        EXPECT_EQ(told.errors.toStdString(), "");
    }
}

} // namespace
