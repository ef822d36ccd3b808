// Commands whose connection ends at each of their statements in turn: none may pass for one that worked.

#include "app/Office.h"
#include "app/PrivateServer.h"
#include "tests/support/Log.h"
#include "tests/support/StatementProxy.h"
#include <QDirIterator>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace ledgora;
using namespace ledgora::test;

namespace {

struct Command
{
    const char *name;
    QStringList words; ///< "OUT" stands for the file or folder of the run
};

class LostStatement : public testing::TestWithParam<Command>
{
protected:
    static void SetUpTestSuite()
    {
        s_folder = std::make_unique<QTemporaryDir>();
        run({"sample", "--bills", "12", "--parties", "4", "--companies", "1"});
        s_server = std::make_unique<app::PrivateServer>(app::PrivateServer::Settings{.dataFolder = s_folder->path()});
        ASSERT_TRUE(s_server->start()) << s_server->error().toStdString();
        ASSERT_TRUE(QFile::rename(socket(), socket() + ".real"));
        s_road = std::make_unique<StatementProxy>(socket(), socket() + ".real");
    }
    static void TearDownTestSuite()
    {
        s_road.reset();
        QFile::rename(socket() + ".real", socket());
        s_server.reset();
        s_folder.reset();
    }
    static QString socket() { return s_folder->filePath("server/ledgora.sock"); }

    struct Finished
    {
        int status;
        QString output, errors;
    };
    static Finished run(const QStringList &words)
    {
        QProcess program;
        program.start(LEDGORA_PROGRAM, words + QStringList{"--data", s_folder->path(), "--today", "2024-06-15"});
        program.waitForFinished(60'000);
        return {program.exitStatus() == QProcess::NormalExit ? program.exitCode() : -1,
                QString::fromUtf8(program.readAllStandardOutput()), QString::fromUtf8(program.readAllStandardError())};
    }

    /// What the files below the folder hold; they are removed.
    static QByteArrayList takeFiles(const QString &folder)
    {
        QByteArrayList contents;
        for (QDirIterator found(folder, QDir::Files, QDirIterator::Subdirectories); found.hasNext();) {
            QFile file(found.next());
            contents << (file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable"));
            file.remove();
        }
        std::ranges::sort(contents);
        return contents;
    }

    static inline std::unique_ptr<QTemporaryDir> s_folder;
    static inline std::unique_ptr<app::PrivateServer> s_server;
    static inline std::unique_ptr<StatementProxy> s_road;
};

/// A program that mends its connection while it starts may go on, but only to what it does undisturbed.
TEST_P(LostStatement, EndsInAFailureWithoutAFileOrInTheWholeResult)
{
    const QTemporaryDir place;
    QStringList words = GetParam().words;
    words.replaceInStrings("OUT", place.filePath("out"));
    const Finished whole = run(words);
    ASSERT_EQ(whole.status, 0) << whole.errors.toStdString();
    const QByteArrayList files = takeFiles(place.path());
    int failures = 0;
    for (int nth = 1;; ++nth) {
        SCOPED_TRACE(nth);
        s_road->stopAt(StatementProxy::Stop::Drop, "", nth);
        const Finished told = run(words);
        const bool met = s_road->waitForStop(std::chrono::milliseconds(0));
        EXPECT_EQ(takeFiles(place.path()), told.status == 0 ? files : QByteArrayList());
        EXPECT_TRUE(told.output == whole.output || (told.status == 1 && told.output.isEmpty()))
            << told.output.toStdString();
        EXPECT_EQ(told.errors.count('\n'), told.status == 0 ? 0 : 1) << told.errors.toStdString();
        failures += told.status == 1 ? 1 : 0;
        if (!met)
            break;
    }
    EXPECT_GT(failures, 3);
}

INSTANTIATE_TEST_SUITE_P(Commands, LostStatement,
                         testing::Values(Command{"Balance", {"balance", "--firm", "1", "--party", "BILL~OTHCL-000001"}},
                                         Command{"Balances", {"balance", "--all"}},
                                         Command{"Report",
                                                 {"report", "outstanding", "--firm", "1", "--out", "OUT.csv"}},
                                         Command{"Bills", {"bills", "--firm", "1", "--format", "rtf", "--out", "OUT"}},
                                         Command{"Check", {"check"}}),
                         [](const auto &row) { return row.param.name; });

} // namespace
