// Backup and restore of an office: nothing changes on the way, nothing damaged or hostile is taken, and whatever ends
// the work half-way, the office has its former data or the new, and a former backup file stays.

#include "app/Office.h"
#include "app/PrivateServer.h"
#include "app/care/Restore.h"
#include "tests/support/HostileTexts.h"
#include "tests/support/Log.h"
#include "tests/support/Print.h"
#include "tests/support/StatementProxy.h"
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>

using namespace ledgora;
using namespace ledgora::test;
using app::Office;

namespace {

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
}

void write(const QString &path, const QByteArray &text)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
    ASSERT_EQ(file.write(text), text.size());
}

class Backup : public testing::Test
{
protected:
    QString folder() const { return m_folder.path() + "/office"; }
    QString file() const { return m_folder.path() + "/copy.ledgora"; }

    static void run(Office &office, const QString &sql)
    {
        ASSERT_TRUE(office.connection().Execute(sql)) << office.connection().lastError().toStdString();
    }
    static app::OfficeData dataOf(Office &office) { return {office.connection(), "C", office.dataFolder()}; }
    static QString backUp(Office &office, const QString &path)
    {
        return app::makeBackup(dataOf(office), path, unwatched());
    }
    static QString restore(Office &office, const QString &path)
    {
        return app::restoreBackup(dataOf(office), path, unwatched()).fault;
    }

    /// Rows and files of a time: two companies more each time, settings, a template of a company.
    static void fill(Office &office, const QString &time)
    {
        run(office, "Delete From GST_FirmMas");
        run(office, "Delete From GST_BillM");
        for (int id = 1; id <= 3; ++id) {
            run(office, QStringLiteral("Insert Into GST_FirmMas (FirmSrNo,Nm) Values (%1,'%2')").arg(id).arg(time));
            run(office, QStringLiteral("Insert Into GST_BillM (BillSrNo,Narr) Values (%1,'%2')").arg(id).arg(time));
        }
        write(office.dataFolder() + "/Confg.ini", "[Host]\nTime=" + time.toUtf8());
        write(office.dataFolder() + "/GST_Templates/1/GST_Intra_Bill.doc", time.toUtf8());
    }
    /// The time that rows and files of the office are of; "mixed" when they are not of one.
    static QString timeOf(Office &office)
    {
        QStringList times;
        for (const char *query : {"Select Distinct Nm From GST_FirmMas", "Select Distinct Narr From GST_BillM"}) {
            Recordset rows = office.connection().Open(query);
            while (rows.next())
                times << rows.text(0);
        }
        times << QString::fromUtf8(contentOf(office.dataFolder() + "/GST_Templates/1/GST_Intra_Bill.doc"))
              << QString::fromUtf8(contentOf(office.dataFolder() + "/Confg.ini")).section('=', 1);
        times.removeDuplicates();
        return times.size() == 1 ? times.front() : "mixed: " + times.join(' ');
    }
    static QStringList leftovers(Office &office)
    {
        QStringList left;
        Recordset rows = office.connection().Open("Show Databases Like 'ledgora%'");
        while (rows.next())
            left << rows.text(0);
        left << QDir(office.dataFolder()).entryList({"restore*"}, QDir::AllEntries);
        return left;
    }

    /// In memory where there is such a folder: what the server forces to the disk at each step would take minutes.
    QTemporaryDir m_folder{QFileInfo("/dev/shm").isWritable() ? QString("/dev/shm/ledgora-XXXXXX")
                                                              : QDir::tempPath() + "/ledgora-XXXXXX"};
    const Log m_log;
};

TEST_F(Backup, BringsEveryValueBack)
{
    const QString sums = "Checksum Table gst_othcl,gst_billm,gst_billd,llp_master,table3,gst_clregno";
    const auto checksums = [&](Office &office) {
        QStringList texts;
        Recordset rows = office.connection().Open(sums);
        while (rows.next())
            texts << rows.text(1);
        return texts;
    };
    Office office(folder());
    ASSERT_TRUE(office.open()) << office.error().toStdString();
    fill(office, "first");
    int id = 0;
    for (const HostileText &text : hostileTexts()) {
        const auto value = [](const QString &raw) { return QString(raw).replace("\\", "\\\\").replace("'", "''"); };
        run(office,
            QString("Insert Into GST_BillM (BillSrNo,Narr) Values (%1,'").arg(100 + ++id) + value(text.pasted) + "')");
        run(office, "Insert Into LLP_Master (Code,Nm) Values ('','" + value(text.pasted.left(90)) + "')");
    }
    run(office, "Insert Into GST_BillD (BillId,part,ServAmt,DiscAmt,TaxServAmt,CGST) Values "
                "(1,Null,0.1+0.2,1/3,123456789012345.67,-1e-300),(Null,'',1e300,0,-0.0,5),(2147483647,'z',2,3,4,5)");
    run(office, "Insert Into GST_BillM (BillSrNo,BillDt,Narr) Values (9,'0000-00-00',Repeat('n',60000))");
    run(office, "Insert Into Table3 (Name,SrNo) Values ('older side',0)");
    run(office, "Insert Into GST_BillD (BillId,SrNo) Select a.seq,b.seq From seq_1_to_15000 a,seq_1_to_3 b");
    write(folder() + "/ifsc.csv", QByteArray("a\0b\xff", 4));
    const QStringList stored = checksums(office);
    ASSERT_EQ(stored.size(), 6);

    ASSERT_EQ(backUp(office, file()), "");
    struct stat status{};
    ASSERT_EQ(::stat(QFile::encodeName(file()).constData(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0600U);
    run(office, "Delete From GST_BillD");
    run(office, "Delete From LLP_Master");
    write(folder() + "/ifsc.csv", "changed");
    fill(office, "second");
    const app::RestoreResult restored = app::restoreBackup(dataOf(office), file(), unwatched());
    ASSERT_EQ(restored.fault, "");
    EXPECT_EQ(checksums(office), stored);
    Recordset known = office.connection().Open("Select n_rows From mysql.innodb_table_stats Where "
                                               "database_name='ledgora' And table_name='gst_billd'");
    EXPECT_TRUE(known.next() && known.integer(0) > 1000) << "the server knows how many rows there are";
    EXPECT_EQ(contentOf(folder() + "/ifsc.csv"), QByteArray("a\0b\xff", 4));
    EXPECT_EQ(leftovers(office), QStringList{"ledgora"});
    EXPECT_EQ(m_log.sites(), QStringList{"SCHEMA SCHEMAFAULT"}) << "the first look at a new office";
    ASSERT_EQ(restore(office, restored.former), "") << "the former data is kept";
    EXPECT_EQ(timeOf(office), "second");
}

/// What `ledgora` with these words says, with its exit status in front.
QString said(const QStringList &words)
{
    QProcess program;
    program.start(LEDGORA_PROGRAM, words);
    program.waitForFinished(60'000);
    return QString::number(program.exitCode()) + ' '
           + QString::fromUtf8(program.readAllStandardOutput() + program.readAllStandardError()).trimmed();
}

/// Every table and template of an office comes back, whatever its host, which nobody tells the commands.
TEST_F(Backup, OfficeOfAnyHostIsKeptWholeAndRefusesTheCommandsOfAnother)
{
    struct Case
    {
        const char *host, *clients, *templates, *other;
        QStringList foreign; ///< client tables of other hosts
    };
    const Case cases[] = {
        {"C", "llp_master", "GST_Templates", "G", {"grp_m", "main_info", "main_info1", "owner1"}},
        {"G", "owner1", "GST_Templates", "C", {"comp_master", "llp_master", "main_info"}},
        {"T", "main_info", "MiscSoftData/GST_Templates", "C", {"comp_master", "main_info1", "owner1"}},
    };
    const auto contents = [](Office &office) {
        QStringList texts;
        Recordset tables = office.connection().Open("Show Tables");
        while (tables.next()) {
            Recordset sum = office.connection().Open("Checksum Table " + tables.text(0));
            texts << tables.text(0) + (sum.next() ? ' ' + sum.text(1) : QString());
        }
        return texts;
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.host);
        const QString own = folder() + c.host;
        const QString copy = own + ".ledgora";
        const QString ownTemplate = '/' + QLatin1String(c.templates) + "/1/GST_Receipt.doc";
        QStringList before;
        {
            Office office(own, c.host);
            ASSERT_TRUE(office.open()) << office.error().toStdString();
            Recordset columns = office.connection().Open(
                "Select table_name,column_name From information_schema.columns Where table_schema=Database() And "
                "ordinal_position=1 And table_name Not Like 'ledgora%'");
            while (columns.next())
                run(office, "Insert Into " + columns.text(0) + " (" + columns.text(1) + ") Values ('7')");
            write(own + ownTemplate, "of the office");
            before = contents(office);
            ASSERT_FALSE(before.filter(QRegularExpression('^' + QLatin1String(c.clients) + ' ')).isEmpty());
        }
        EXPECT_FALSE(said({"check", "--data", own}).contains("ledgora:"));
        EXPECT_EQ(said({"check", "--data", own, "--host", c.other}),
                  QString("1 ledgora: This is an office of host %1. It can not be opened as one of host %2.")
                      .arg(c.host, c.other));
        EXPECT_TRUE(said({"backup", "--data", own, "--out", copy}).startsWith("0 "));
        EXPECT_TRUE(said({"restore", "--data", own + "2", "--from", copy}).startsWith("0 "));
        EXPECT_TRUE(said({"restore", "--data", own, "--from", copy}).startsWith("0 ")) << "by way of the former data";
        for (const QString &restored : {QString(own + "2"), own}) {
            Office office(restored);
            ASSERT_TRUE(office.open()) << office.error().toStdString();
            EXPECT_EQ(office.hostCode(), c.host);
            EXPECT_EQ(contents(office), before);
            for (const QString &table : c.foreign)
                EXPECT_EQ(office.connection().Open("Show Tables Like '" + table + '\'').recordCount(), 0);
            EXPECT_EQ(contentOf(restored + ownTemplate), "of the office");
        }
    }
}

TEST_F(Backup, DamagedForeignAndHostileFilesAreRefusedAndChangeNothing)
{
    Office office(folder());
    ASSERT_TRUE(office.open()) << office.error().toStdString();
    fill(office, "first");
    ASSERT_EQ(backUp(office, file()), "");
    const QByteArray whole = contentOf(file());
    const QString damaged = "The file [" + file() + "] is damaged or not complete. Nothing was taken from it.";
    const auto refused = [&](const char *name, const QString &fault) {
        EXPECT_EQ(restore(office, file()), fault) << name;
        EXPECT_EQ(timeOf(office), "first") << name;
        EXPECT_EQ(leftovers(office), QStringList{"ledgora"}) << name;
    };
    for (const qsizetype length : {qsizetype(0), qsizetype(7), qsizetype(12), whole.size() / 2, whole.size() - 1}) {
        write(file(), whole.first(length));
        refused("cut short", length < 8 ? "The file [" + file() + "] is no backup of Ledgora." : damaged);
    }
    for (qsizetype place = 8; place < whole.size(); place += whole.size() / 40) {
        QByteArray changed = whole;
        changed[place] = char(changed[place] ^ 0x10);
        write(file(), changed);
        EXPECT_NE(app::lookAtBackup(file(), unwatched()).fault, "") << place;
    }
    write(file(), whole + "x");
    refused("something behind the end", damaged);

    struct Made
    {
        const char *name;
        app::BackupHead head;
        const char *table, *column, *path;
        QString fault;
    };
    const Made made[] = {
        {"of a newer version",
         {99, "C", "", ""},
         "gst_billm",
         "Narr",
         "Confg.ini",
         "The backup was made by a newer version of Ledgora (data version 99, this program knows 1). Please update "
         "Ledgora on this machine."},
        {"of another host",
         {1, "G", "", ""},
         "gst_billm",
         "Narr",
         "Confg.ini",
         "The backup is of an office of host G, this one is of host C."},
        {"with a table of another database",
         {1, "C", "", ""},
         "user` (x)",
         "Narr",
         "Confg.ini",
         "The backup holds the column Narr of the table user` (x), which this program does not know."},
        {"with an unknown column",
         {1, "C", "", ""},
         "gst_billm",
         "Narr`) Select",
         "Confg.ini",
         "The backup holds the column Narr`) Select of the table gst_billm, which this program does not know."},
        {"with a path that leads out",
         {1, "C", "", ""},
         "gst_billm",
         "Narr",
         "GST_Templates/../../evil",
         "The backup holds the file [GST_Templates/../../evil], which is none of an office."},
        {"with the server's own file",
         {1, "C", "", ""},
         "gst_billm",
         "Narr",
         "server/server.cnf",
         "The backup holds the file [server/server.cnf], which is none of an office."},
    };
    for (const Made &m : made) {
        app::BackupWriter writer(file(), m.head);
        writer.beginTable(m.table, {m.column});
        writer.addRow(QByteArray("\0\0\0\1x", 5));
        writer.addFile(m.path, "evil");
        writer.finish();
        writer.rename();
        refused(m.name, m.fault);
    }
    EXPECT_FALSE(QFile::exists(m_folder.path() + "/evil"));
}

/// A few megabytes that say they unpack to 256 bytes, and unpack to 700 MB.
TEST_F(Backup, BombIsRefusedWithoutUnpackingIt)
{
    const char *const script = "import sys,zlib\n"
                               "packed=b'\\0\\0\\1\\0'+zlib.compress(bytes(700<<20),1)\n"
                               "sys.stdout.buffer.write(b'LEDGORA\\nH'+len(packed).to_bytes(4,'big')+packed)";
    QProcess python;
    python.setStandardOutputFile(file());
    python.start("python3", {"-c", script});
    ASSERT_TRUE(python.waitForFinished(60'000) && python.exitCode() == 0);
    QProcess program;
    program.start(LEDGORA_PROGRAM, {"restore", "--data", folder(), "--from", file()});
    ASSERT_TRUE(program.waitForStarted());
    rusage used{};
    int status = 0;
    ASSERT_EQ(::wait4(pid_t(program.processId()), &status, 0, &used), program.processId());
    EXPECT_EQ(WEXITSTATUS(status), 1);
    EXPECT_LT(used.ru_maxrss, 300'000) << "kilobytes";
    EXPECT_FALSE(QFile::exists(folder()));
}

TEST_F(Backup, IsOfOneMomentKeepsNoSaveWaitingAndCanBeCancelled)
{
    Office office(folder());
    Office clerk(folder());
    ASSERT_TRUE(office.open() && clerk.open());
    fill(office, "first");
    run(office, "Insert Into GST_BillD (BillId) Values (1),(2),(3)");
    for (const char *stage : {"Reading the data", "Loading the data", "Comparing the data"}) {
        const QString fault = app::makeBackup(
            dataOf(office), file(), [&](qint64, qint64, const QString &what) { return what != QLatin1String(stage); });
        EXPECT_EQ(fault, "It was cancelled.") << stage;
        EXPECT_EQ(QDir(m_folder.path()).entryList(QDir::Files), QStringList()) << stage;
    }
    int bill = 10;
    ASSERT_EQ(app::makeBackup(dataOf(office), file(),
                              [&](qint64, qint64, const QString &) {
                                  run(clerk, "Set lock_wait_timeout=1");
                                  run(clerk, "Lock Table GST_BillM Write");
                                  run(clerk, QString("Insert Into GST_BillM (BillSrNo) Values (%1)").arg(++bill));
                                  run(clerk, "Unlock Tables");
                                  run(clerk, "Flush Tables");
                                  run(clerk, QString("Insert Into GST_BillD (BillId) Values (%1)").arg(bill));
                                  return true;
                              }),
              "");
    quint64 rows = 0;
    for (const app::TableSum &sum : app::readBackup(file(), {}).tables)
        rows += sum.table.startsWith("gst_bill") ? sum.rows : 0;
    EXPECT_EQ(rows, 3U + 3U);
    EXPECT_EQ(restore(office, file()), "The office is open in another program. Close it there first.");
}

/// The program is killed at a statement, or the server is while it has the statement.
TEST_F(Backup, KilledOneLeavesTheFormerDataOrTheNewAndTheFormerFile)
{
    struct Case
    {
        const char *statement;
        QStringList after;
        StatementProxy::Stop stop = StatementProxy::Stop::KillClient; // else held for the kill of the server
        int nth = 1;
        bool backup = false; // instead of a restore, over the former file
    };
    const QStringList either{"first", "second"};
    using Stop = StatementProxy::Stop;
    const Case cases[] = {
        {"Create Database `ledgora_scratch`", {"second"}},
        {"Insert Into `ledgora_restore`", {"second"}},
        {"Insert Into `ledgora_scratch`", {"second"}, Stop::KillClient, 1, true},
        {"Rename Table", {"second"}},
        {"Select 1 From information_schema.tables", {"first"}, Stop::KillClient, 2}, // swapped, files still to come
        {"Drop Table `ledgora_restored`", {"first"}},
        {"Drop Database If Exists `ledgora_former`", {"first"}, Stop::KillClient, 2},
        {"Rename Table", {"second"}, Stop::HoldStatement},
        {"Rename Table", either, Stop::HoldAnswer},
    };
    {
        Office office(folder());
        ASSERT_TRUE(office.open()) << office.error().toStdString();
        fill(office, "first");
        ASSERT_EQ(backUp(office, file()), "");
    }
    const QByteArray whole = contentOf(file());
    const QString socket = folder() + "/server/ledgora.sock";
    app::PrivateServer server({.dataFolder = folder()}); // stays up between the programs
    ASSERT_TRUE(server.start()) << server.error().toStdString();
    for (const Case &c : cases) {
        SCOPED_TRACE(c.statement);
        {
            Office office(folder());
            ASSERT_TRUE(office.open()) << office.error().toStdString();
            fill(office, "second");
        }
        ASSERT_TRUE(QFile::rename(socket, socket + ".real"));
        {
            StatementProxy proxy(socket, socket + ".real");
            proxy.stopAt(c.stop, c.statement, c.nth);
            QProcess restoring;
            restoring.start(LEDGORA_PROGRAM, {c.backup ? "backup" : "restore", "--data", folder(),
                                              c.backup ? "--out" : "--from", file()});
            ASSERT_TRUE(proxy.waitForStop()) << restoring.readAllStandardError().toStdString();
            if (c.stop != StatementProxy::Stop::KillClient) {
                ASSERT_EQ(::kill(pid_t(server.processId()), SIGKILL), 0);
                restoring.kill();
            }
            ASSERT_TRUE(restoring.waitForFinished());
        }
        QFile::remove(socket);
        ASSERT_TRUE(QFile::rename(socket + ".real", socket));
        ASSERT_TRUE(server.start()) << server.error().toStdString();
        Office office(folder());
        ASSERT_TRUE(office.open()) << office.error().toStdString();
        EXPECT_TRUE(c.after.contains(timeOf(office))) << timeOf(office).toStdString();
        EXPECT_EQ(leftovers(office), QStringList{"ledgora"}) << "opening it has cleared what was left";
        EXPECT_EQ(contentOf(file()), whole);
        EXPECT_EQ(restore(office, file()), "") << "and it can be done again";
        EXPECT_EQ(timeOf(office), "first");
        EXPECT_EQ(leftovers(office), QStringList{"ledgora"});
    }
}

TEST_F(Backup, FullDiskLeavesTheFormerBackupAndTheFormerData)
{
    const QString small = m_folder.path() + "/small";
    ASSERT_TRUE(QDir().mkpath(small) && QDir().mkpath(folder()));
    const QByteArray disk = QFile::encodeName(folder());
    const QByteArray smallDisk = QFile::encodeName(small);
    if (::mount("tmpfs", smallDisk.constData(), "tmpfs", 0, "size=256k,mode=0700") != 0)
        GTEST_SKIP() << "not run: mounting a small disk needs root";
    ASSERT_EQ(::mount("tmpfs", disk.constData(), "tmpfs", 0, "size=300m,mode=0700"), 0);
    const auto unmount = qScopeGuard([&] {
        ::umount2(disk.constData(), MNT_DETACH);
        ::umount2(smallDisk.constData(), MNT_DETACH);
    });
    Office office(folder());
    ASSERT_TRUE(office.open()) << office.error().toStdString();
    fill(office, "first");
    ASSERT_EQ(backUp(office, small + "/copy.ledgora"), "");
    const QByteArray former = contentOf(small + "/copy.ledgora");
    fill(office, "second");
    run(office, "Insert Into GST_BillD (BillId,SrNo,part) Select seq,1,sha2(seq,512) From seq_1_to_60000");
    EXPECT_TRUE(backUp(office, small + "/copy.ledgora").endsWith("No space left on device."));
    EXPECT_EQ(contentOf(small + "/copy.ledgora"), former);
    EXPECT_EQ(QDir(small).entryList(QDir::Files), QStringList{"copy.ledgora"});

    ASSERT_EQ(backUp(office, file()), "");
    run(office, "Delete From GST_BillD");
    fill(office, "third");
    write(folder() + "/filler", {});
    QFile filler(folder() + "/filler");
    ASSERT_TRUE(filler.open(QIODevice::WriteOnly));
    while (filler.write(QByteArray(1'000'000, 'x')) == 1'000'000 && filler.flush()) {
    }
    EXPECT_NE(restore(office, file()), "");
    filler.close();
    filler.remove();
    ASSERT_TRUE(office.keepConnected() != Office::Server::Away);
    EXPECT_EQ(timeOf(office), "third");
    EXPECT_EQ(restore(office, file()), "");
    EXPECT_EQ(timeOf(office), "second");
}

} // namespace
