// Data folders as they should not be: of nobody, of a newer program, read-only, on a full disk, with templates that
// are missing, changed or damaged. Each ends with a clear text, and what is there stays as it is.

#include "app/Office.h"
#include "app/PrivateServer.h"
#include "bills/frmBillGST.h"
#include "components/StockComponents.h"
#include "components/reporter/Viewer.h"
#include "host/WorkingState.h"
#include "platform/Registry.h"
#include "store/Schema.h"
#include "tests/support/Log.h"
#include "tests/support/Screens.h"
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <array>
#include <grp.h>
#include <pwd.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace ledgora;
using ledgora::app::Office;

namespace {

struct Finished
{
    int status;
    QString output, errors;
};

Finished ledgoraProgram(const QStringList &arguments)
{
    QProcess process;
    process.start(LEDGORA_PROGRAM, arguments);
    if (!process.waitForFinished(60'000)) {
        process.kill();
        process.waitForFinished();
        return {-1, {}, process.errorString()};
    }
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            QString::fromUtf8(process.readAllStandardOutput()), QString::fromUtf8(process.readAllStandardError())};
}

Finished balance(const QString &folder)
{
    return ledgoraProgram({"balance", "--firm", "1", "--party", "C1", "--data", folder});
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
}

void write(const QString &path, const QByteArray &text)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
    ASSERT_EQ(file.write(text), text.size());
}

/// What `work` returns in a process of its own, as the user nobody when this one is root's: root may write everywhere.
QString asNobody(const std::function<QString()> &work)
{
    std::array<int, 2> ends{};
    if (::pipe(ends.data()) != 0)
        return "no pipe";
    const pid_t child = ::fork();
    if (child == 0) {
        const passwd *user = ::geteuid() == 0 ? ::getpwnam("nobody") : nullptr; // NOLINT(concurrency-mt-unsafe)
        if (user && (::setgroups(0, nullptr) != 0 || ::setgid(user->pw_gid) != 0 || ::setuid(user->pw_uid) != 0))
            ::_exit(1);
        const QByteArray answer = work().toUtf8();
        ::_exit(::write(ends[1], answer.constData(), size_t(answer.size())) == answer.size() ? 0 : 1);
    }
    ::close(ends[1]);
    QFile answer;
    QString text = answer.open(ends[0], QIODevice::ReadOnly, QFile::AutoCloseHandle)
                       ? QString::fromUtf8(answer.readAll())
                       : QStringLiteral("no answer");
    int status = 0;
    ::waitpid(child, &status, 0);
    return status == 0 ? text : QStringLiteral("the process failed");
}

class OfficeTest : public testing::Test
{
protected:
    QString folder() const { return m_folder.path() + "/office"; }
    static QStringList listing(const QString &folder)
    {
        return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
    }
    static void makeOffice(const QString &folder)
    {
        Office office(folder);
        ASSERT_TRUE(office.open()) << office.error().toStdString();
    }

    QTemporaryDir m_folder;
    const test::Log m_log;
};

TEST_F(OfficeTest, BalanceMakesNoOfficeOfAFolderThatIsNone)
{
    ASSERT_TRUE(QDir().mkpath(folder() + "/documents"));
    write(folder() + "/documents/letter.txt", "Dear client");
    write(m_folder.path() + "/file", "no folder");
    for (const QString &path : {folder(), QString(folder() + "/missing/deep"), QString(m_folder.path() + "/file")}) {
        const Finished told = balance(path);
        EXPECT_EQ(told.status, 1) << path.toStdString();
        EXPECT_EQ(told.output, "");
        EXPECT_EQ(told.errors, "ledgora: The folder [" + path + "] holds no office.\n");
    }
    EXPECT_EQ(listing(folder()), QStringList{"documents"});
    EXPECT_EQ(listing(m_folder.path()), (QStringList{"file", "office"}));
}

TEST_F(OfficeTest, SampleCanBeBilledAtOnceAndKeepsAChoiceOfTemplates)
{
    const QString choice = folder() + "/GST_Templates/Settings.txt";
    const auto sample = [this] {
        return ledgoraProgram({"sample", "--bills", "1", "--parties", "1", "--companies", "1", "--data", folder()});
    };
    EXPECT_EQ(sample().status, 0);
    EXPECT_EQ(contentOf(choice).simplified(), "B_COPY=0 R_COPY=0");
    ASSERT_TRUE(QDir(folder() + "/server").removeRecursively()); // its data is empty again
    write(choice, "B_COPY=1\r\nR_COPY=1\r\n");
    EXPECT_EQ(sample().status, 0);
    EXPECT_EQ(contentOf(choice).simplified(), "B_COPY=1 R_COPY=1");
}

TEST_F(OfficeTest, DataOfANewerVersionIsRefusedAndLeftAlone)
{
    {
        Office office(folder());
        ASSERT_TRUE(office.open()) << office.error().toStdString();
        ASSERT_TRUE(office.connection().Execute("Update Ledgora_Schema Set Version=7"));
        ASSERT_TRUE(office.connection().Execute("Drop Table GST_Series"));
    }
    ASSERT_TRUE(QFile::remove(folder() + "/GST_Templates/GST_Intra_Bill.doc"));
    const QString text = "The data was last used by a newer version of Ledgora (data version 7, this program knows 1). "
                         "Please update Ledgora on this machine.";
    {
        Office office(folder());
        EXPECT_FALSE(office.open());
        EXPECT_EQ(office.error(), text);
        EXPECT_EQ(office.connection().Open("Show Tables Like 'gst_series'").recordCount(), 0) << "nothing is made";
    }
    EXPECT_FALSE(QFile::exists(folder() + "/GST_Templates/GST_Intra_Bill.doc"));
    const Finished told = balance(folder());
    EXPECT_EQ(told.status, 1);
    EXPECT_EQ(told.errors, "ledgora: " + text + '\n');
}

TEST_F(OfficeTest, TemplatesThatAnOfficeChangedAreKeptAndMissingOnesComeBack)
{
    makeOffice(folder());
    const QString templates = folder() + "/GST_Templates";
    write(templates + "/GST_Intra_Bill.doc", "of the office");
    const QByteArray stock = contentOf(templates + "/GST_Inter_Bill.doc");
    ASSERT_TRUE(QFile::remove(templates + "/GST_Inter_Bill.doc"));
    makeOffice(folder());
    EXPECT_EQ(contentOf(templates + "/GST_Intra_Bill.doc"), "of the office");
    EXPECT_EQ(contentOf(templates + "/GST_Inter_Bill.doc"), stock);
    EXPECT_TRUE(stock.startsWith("{\\rtf"));
}

/// The server's data is there, tables and templates are still to be made.
TEST_F(OfficeTest, ProgramsThatAreStartedAtOnceAllComeUp)
{
    app::PrivateServer server({.dataFolder = folder()});
    ASSERT_TRUE(server.start()) << server.error().toStdString();
    std::array<QProcess, 5> programs;
    for (QProcess &program : programs)
        program.start(LEDGORA_PROGRAM, {"balance", "--all", "--data", folder()});
    for (QProcess &program : programs) {
        ASSERT_TRUE(program.waitForFinished(60'000));
        EXPECT_EQ(program.readAllStandardError(), "");
        EXPECT_EQ(program.readAllStandardOutput(), "Total\t0\n");
    }
    EXPECT_EQ(listing(folder() + "/GST_Templates").size(), 8);
    EXPECT_TRUE(contentOf(folder() + "/BrindleLogger.log").count('\n') <= 1) << "the first look at a new office";
}

TEST_F(OfficeTest, TemplateFolderThatIsAFileIsNamed)
{
    makeOffice(folder());
    ASSERT_TRUE(QDir(folder() + "/GST_Templates").removeRecursively());
    write(folder() + "/GST_Templates", "a file");
    Office office(folder());
    EXPECT_FALSE(office.open());
    EXPECT_EQ(office.error(), "The folder [" + folder() + "/GST_Templates] could not be made.");
}

TEST_F(OfficeTest, FolderThatItsUserCanNotWriteToIsRefused)
{
    const QString stranger = m_folder.path() + "/new";
    const QByteArray above = QFile::encodeName(m_folder.path());
    ASSERT_EQ(::chmod(above.constData(), 0555), 0);
    const QString text = asNobody([&] {
        Office office(stranger);
        return office.open() ? QStringLiteral("opened") : office.error();
    });
    EXPECT_EQ(text, "The folder " + stranger + " can not be made: Permission denied.");
    ASSERT_EQ(::chmod(above.constData(), 0777), 0);

    // An office of this user's own, whose server folder was made read-only.
    const QString fault = asNobody([&] {
        {
            Office office(stranger);
            if (!office.open())
                return office.error();
        }
        ::chmod(QFile::encodeName(stranger + "/server").constData(), 0500);
        Office office(stranger);
        const QString said = office.open() ? QStringLiteral("opened") : office.error();
        ::chmod(QFile::encodeName(stranger + "/server").constData(), 0700);
        Office again(stranger);
        return again.open() ? said : again.error();
    });
    EXPECT_EQ(fault, "The folder " + stranger + "/server can not be written to: Permission denied.");

    // The templates alone.
    const QString templates = asNobody([&] {
        QFile::remove(stranger + "/GST_Templates/GST_Inter_Bill.doc");
        ::chmod(QFile::encodeName(stranger + "/GST_Templates").constData(), 0500);
        Office office(stranger);
        return office.open() ? QStringLiteral("opened") : office.error();
    });
    EXPECT_EQ(templates, "The template [" + stranger + "/GST_Templates/GST_Inter_Bill.doc] could not be written.");
    ASSERT_EQ(::chmod(above.constData(), 0700), 0);
}

/// On a disk of 128 MB that fills up while bills are stored. The server may answer with an error, or end; the program
/// starts it again before the next command.
TEST_F(OfficeTest, FullDiskLosesNothingThatWasStoredAndGoesOnWhenThereIsRoom)
{
    ASSERT_TRUE(QDir().mkpath(folder()));
    const QByteArray disk = QFile::encodeName(folder());
    if (::mount("tmpfs", disk.constData(), "tmpfs", 0, "size=128m,mode=0700") != 0)
        GTEST_SKIP() << "not run: mounting a small disk needs root";
    const auto unmount = qScopeGuard([disk] { ::umount2(disk.constData(), MNT_DETACH); });
    Office office(folder());
    ASSERT_TRUE(office.open()) << office.error().toStdString();
    Connection &db = office.connection();
    const auto insert = [&db](int id) {
        return db.Execute(QStringLiteral("Insert Into GST_BillM Values (%1,1,2024,'C',0,%1,'2024-06-01','','NO','%2')")
                              .arg(id)
                              .arg(QString(60'000, 'n')));
    };
    int bills = 0;
    while (bills < 2'000 && insert(bills + 1))
        ++bills;
    ASSERT_GT(bills, 0);
    ASSERT_LT(bills, 2'000) << "the disk is never full";
    EXPECT_FALSE(db.lastError().isEmpty());
    EXPECT_FALSE(m_log.lines().empty()) << "it stands in the error log";
    ASSERT_EQ(::mount("tmpfs", disk.constData(), "tmpfs", MS_REMOUNT, "size=224m"), 0);
    ASSERT_TRUE(office.keepConnected() != app::Office::Server::Away);
    Recordset rows =
        db.Open("Select Count(*),Sum(Length(Narr)) From GST_BillM Where BillSrNo<=" + QString::number(bills));
    ASSERT_TRUE(rows.next()) << db.lastError().toStdString();
    EXPECT_EQ(rows.integer(0), bills);
    EXPECT_EQ(rows.number(1), 60'000.0 * bills);
    EXPECT_TRUE(insert(bills + 2)) << db.lastError().toStdString();
}

/// The bill screen over the real report engine, with a template of the office's making.
class OfficeTemplates : public test::ScreenTest
{
protected:
    void SetUp() override
    {
        ScreenTest::SetUp();
        registerStockComponents(Registry::instance());
        gst().ObjMdi(nullptr);
        ASSERT_TRUE(gst().CallBilling("ZoRbItWaLkErX", "C", 2));
        addCompany(1, "SHARMA & ASSOCIATES");
        addClient(1, "ASHOK TRADERS", "DELHI");
        addBill(1, 1, QDate(2024, 6, 1), 1, 100);
        test::chooseCompany();
        show(new frmBillGST);
    }
    void TearDown() override
    {
        delete viewer();
        ScreenTest::TearDown();
    }
    QString templatePath() const { return folder() + "/GST_Templates/GST_NoTax_Bill.doc"; }
    static reporter::Viewer *viewer()
    {
        for (QWidget *window : QApplication::topLevelWidgets()) {
            if (auto *shown = qobject_cast<reporter::Viewer *>(window); shown && shown->isVisible())
                return shown;
        }
        return nullptr;
    }
};

TEST_F(OfficeTemplates, MissingTemplateIsNamed)
{
    boxes.expect("Missing Template File [" + templatePath() + ']').icon(QMessageBox::Information);
    alt('P');
    EXPECT_EQ(viewer(), nullptr);
}

TEST_F(OfficeTemplates, ATemplateThatIsNoneIsToldAndNothingIsShown)
{
    struct Case
    {
        const char *why;
        QByteArray content;
    };
    const QByteArray whole = R"({\rtf1\ansi\pard For #PARTY_NAME#\par {\b bold}\par})";
    const Case cases[] = {
        {"the document ends inside of a group", whole.chopped(1)},
        {"the document ends inside of a group", whole.first(whole.size() / 2)},
        {"the document goes on behind its end", QByteArray(whole).replace("bold}", "bold}}")},
        {"not an RTF document", QByteArray("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1\0\0", 10)}, // an older word processor's
        {"not an RTF document", QByteArray("PK\3\4\x14\0\6\0", 8)},
        {"not an RTF document", "%PDF-1.7\n"},
        {"not an RTF document", "For #PARTY_NAME#\n"},
        {"the file is empty", ""},
        {"it holds no text", R"({\rtf1\ansi})"},
        {"it holds no text", R"({\rtf1\ansi{\header  \par}\par \tab{\v hidden}\trowd\cellx99\intbl\cell\row\par})"},
    };
    failuresAreExpected();
    const auto refused = [&](const char *why) {
        SCOPED_TRACE(why);
        QFile::remove(gLogPath);
        boxes
            .expect("Failed to Open File [" + templatePath()
                    + "].\nIt can not be used as a template: " + QLatin1String(why) + '.')
            .icon(QMessageBox::Information);
        alt('P');
        EXPECT_EQ(viewer(), nullptr);
        EXPECT_EQ(errorLog().count(templatePath()), 1) << errorLog().toStdString();
    };
    for (const Case &c : cases) {
        write(templatePath(), c.content);
        refused(c.why);
        EXPECT_EQ(contentOf(templatePath()), c.content) << "the template stays as it is";
    }
    QFile::remove(templatePath());
    ASSERT_TRUE(QDir().mkpath(templatePath()));
    refused("it is a folder");
    ASSERT_TRUE(QDir().rmdir(templatePath()));
    ASSERT_EQ(::mkfifo(QFile::encodeName(templatePath()).constData(), 0600), 0);
    refused("it is no file");
    ASSERT_TRUE(QFile::remove(templatePath()));
    write(templatePath(), whole);
    alt('P');
    EXPECT_NE(viewer(), nullptr);
}

} // namespace
