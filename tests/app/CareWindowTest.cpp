// Care of the data from the window: check, backup and restore by keys, and the day's backup beside the work.

#include "app/MainWindow.h"
#include "app/Office.h"
#include "app/care/DailyBackup.h"
#include "app/care/Restore.h"
#include "tests/support/Log.h"
#include "tests/support/Screens.h"
#include <QAction>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QMdiArea>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>

using namespace ledgora;
using namespace ledgora::test;

namespace {

class CareWindow : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_office.open()) << m_office.error().toStdString();
        run("Insert Into GST_FirmMas (FirmSrNo,Nm) Values (1,'SHARMA & ASSOCIATES')");
        run("Insert Into GST_BillM Values (1,1,2024,'',0,1,'2024-06-01','DELHI','NO','')");
    }
    void run(const QString &sql)
    {
        ASSERT_TRUE(m_office.connection().Execute(sql)) << m_office.connection().lastError().toStdString();
    }
    int count(const QString &table)
    {
        Recordset rows = m_office.connection().Open("Select Count(*) From " + table);
        return rows.next() ? int(rows.integer(0)) : -1;
    }
    QString folder() const { return m_folder.path() + "/office"; }
    QStringList backups() const { return QDir(folder() + "/backups").entryList(QDir::Files, QDir::Name); }

    QTemporaryDir m_folder{QFileInfo("/dev/shm").isWritable() ? QString("/dev/shm/ledgora-XXXXXX")
                                                              : QDir::tempPath() + "/ledgora-XXXXXX"};
    const Log m_log;
    app::Office m_office{folder()};
};

/// A file dialog in which a path is typed.
std::function<void(QWidget &)> typed(const QString &path)
{
    return [path](QWidget &dialog) {
        auto *name = dialog.findChild<QLineEdit *>("fileNameEdit");
        ASSERT_NE(name, nullptr) << dialog.windowTitle().toStdString();
        name->setText(path);
        QTest::keyClick(name, Qt::Key_Return);
        if (dialog.isVisible()) // the list of known names took that key
            QTest::keyClick(name, Qt::Key_Return);
    };
}

TEST_F(CareWindow, ChecksBacksUpAndRestores)
{
    app::MainWindow window(m_office);
    window.show();
    const auto press = [&](const char *action) { window.findChild<QAction *>(action)->trigger(); };
    Boxes boxes;
    const QString findings = m_folder.path() + "/findings.txt";
    boxes.expectDialog([&](QWidget &dialog) {
        const auto *list = dialog.findChild<QTableWidget *>("lstFindings");
        ASSERT_NE(list, nullptr);
        EXPECT_EQ(list->rowCount(), 2);
        EXPECT_EQ(list->item(0, 0)->text() + '|' + list->item(0, 1)->text() + '|' + list->item(0, 2)->text() + '|'
                      + list->item(0, 4)->text(),
                  "SHARMA & ASSOCIATES|Bill 1|01/06/2024|has no lines");
        boxes.expectDialog(typed(findings));
        dialog.findChild<QPushButton *>("cmdSaveFindings")->click();
        dialog.close();
    });
    press("actCheck");
    QFile text(findings);
    ASSERT_TRUE(text.open(QIODevice::ReadOnly));
    EXPECT_EQ(text.readLine(), "SHARMA & ASSOCIATES: Bill 1 of 01/06/2024 has no lines.\n");

    const QString copy = m_folder.path() + "/copy.ledgora";
    boxes.expectDialog(typed(copy));
    boxes.expect("The backup [" + copy + "] is written and proved.").icon(QMessageBox::Information);
    press("actBackup");

    run("Insert Into GST_FirmMas (FirmSrNo,Nm) Values (2,'LATER')");
    const QString question = "Put the data of [" + copy
                             + "] in place of the present data?\n\nThe present data is kept in a backup file first.";
    boxes.expectDialog(typed(copy));
    boxes.expect(question, QMessageBox::No).defaultButton(QMessageBox::No);
    press("actRestore");
    EXPECT_EQ(count("GST_FirmMas"), 2);

    window.openGst();
    boxes.expectDialog(typed(copy));
    boxes.expect(question, QMessageBox::Yes);
    boxes.expect("The data is restored.\n\nThe former data is kept in the folder [" + folder() + "/backups].");
    press("actRestore");
    EXPECT_EQ(count("GST_FirmMas"), 1);
    EXPECT_TRUE(window.findChild<QMdiArea *>()->subWindowList().isEmpty());
    EXPECT_EQ(backups().size(), 1);
}

TEST(Rotation, KeepsSevenDaysEightWeeksAndWhatIsNotOurs)
{
    QStringList names{"ledgora-2020-01-01.ledgora", "daily-2020-01-01.ledgora.part", "daily-mine.ledgora"};
    for (int day = 1; day <= 9; ++day)
        names.prepend(QString("daily-2024-06-0%1.ledgora").arg(day));
    for (int week = 0; week < 10; ++week)
        names << app::weeklyBackupName(QDate(2024, 1, 3).addDays(qint64(7) * week));
    for (int hour = 0; hour < 4; ++hour)
        names << QString("before-restore-2024-06-15-%1.ledgora").arg(120000 + hour);
    for (int day = 1; day <= 8; ++day) // a clock that was wrong
        names << QString("daily-2099-01-0%1.ledgora").arg(day);
    QStringList outdated = app::outdatedBackups(names, QDate(2024, 6, 15));
    outdated.sort();
    EXPECT_EQ(outdated, (QStringList{"before-restore-2024-06-15-120000.ledgora", "daily-2024-06-01.ledgora",
                                     "daily-2024-06-02.ledgora", "daily-2099-01-01.ledgora",
                                     "weekly-2024-01-01.ledgora", "weekly-2024-01-08.ledgora"}));
}

TEST_F(CareWindow, DaysBackupIsMadeOnceAndKeptForTheWeek)
{
    const app::OfficeData data{m_office.connection(), "C", folder()};
    for (int day = 14; day <= 24; ++day) // a Friday to a Monday
        ASSERT_EQ(app::makeDailyBackup(data, QDate(2024, 6, day)), "");
    EXPECT_EQ(backups(),
              (QStringList{"daily-2024-06-18.ledgora", "daily-2024-06-19.ledgora", "daily-2024-06-20.ledgora",
                           "daily-2024-06-21.ledgora", "daily-2024-06-22.ledgora", "daily-2024-06-23.ledgora",
                           "daily-2024-06-24.ledgora", "weekly-2024-06-10.ledgora", "weekly-2024-06-17.ledgora",
                           "weekly-2024-06-24.ledgora"}));
    const QString path = folder() + "/backups/daily-2024-06-24.ledgora";
    const QDateTime made = QFileInfo(path).lastModified();
    ASSERT_EQ(app::makeDailyBackup(data, QDate(2024, 6, 24)), "");
    EXPECT_EQ(QFileInfo(path).lastModified(), made);
    EXPECT_EQ(app::lookAtBackup(path, unwatched()).fault, "");
}

TEST_F(CareWindow, DaysBackupIsMadeBesideTheWorkAndAFailureIsTold)
{
    QStringList told;
    const auto tell = [&](const QString &text) { told << text; };
    app::dailyBackup(m_office, QDate(2024, 6, 15), tell, LEDGORA_PROGRAM);
    const QString made = folder() + "/backups/daily-2024-06-15.ledgora";
    EXPECT_TRUE(QTest::qWaitFor([&] { return QFile::exists(made) || !told.isEmpty(); }, 60'000));
    EXPECT_EQ(told, QStringList());

    const size_t logged = m_log.lines().size();
    ASSERT_TRUE(QDir(folder() + "/backups").removeRecursively());
    QFile obstacle(folder() + "/backups");
    ASSERT_TRUE(obstacle.open(QIODevice::WriteOnly));
    app::dailyBackup(m_office, QDate(2024, 6, 16), tell, LEDGORA_PROGRAM);
    app::dailyBackup(m_office, QDate(2024, 6, 16), tell, "/no/such/program");
    EXPECT_TRUE(QTest::qWaitFor([&] { return told.size() == 2; }, 60'000));
    ASSERT_EQ(m_log.lines().size(), logged + 2);
    for (const QString &text : told)
        EXPECT_TRUE(text.startsWith("Today's backup was not made: ")) << text.toStdString();
    EXPECT_EQ(told.value(1), "Today's backup was not made: The folder [" + folder() + "/backups] can not be made.");
}

} // namespace
