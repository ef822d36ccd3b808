// The harness itself: a helper that lets a wrong box or a missing server pass would make every screen test worthless.

#include "Boxes.h"
#include "Database.h"
#include "store/Dates.h"
#include <QDialog>
#include <QLineEdit>
#include <QTimer>
#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

using namespace ledgora;
using test::Boxes;
using test::Database;

namespace {

QMessageBox::StandardButton ask(const QString &text)
{
    return QMessageBox::question(nullptr, "Bills", text, QMessageBox::Yes | QMessageBox::No, QMessageBox::No);
}

TEST(BoxesTest, BoxesAreAnsweredInOrder)
{
    Boxes boxes;
    boxes.expect("First ?", QMessageBox::Yes).icon(QMessageBox::Question).defaultButton(QMessageBox::No).title("Bills");
    boxes.expect("Second ?", QMessageBox::No);
    EXPECT_EQ(ask("First ?"), QMessageBox::Yes);
    EXPECT_EQ(ask("Second ?"), QMessageBox::No);
    EXPECT_TRUE(boxes.allCame());
}

TEST(BoxesTest, BoxNobodyExpectedFailsAndIsClosed)
{
    EXPECT_NONFATAL_FAILURE(
        {
            const Boxes boxes;
            ask("Surprise !");
        },
        "Surprise !");
}

TEST(BoxesTest, OtherTextFailsAndStaysExpected)
{
    EXPECT_NONFATAL_FAILURE(
        {
            Boxes boxes;
            boxes.expect("Delete ?", QMessageBox::Yes);
            ask("Delete all ?");
            ask("Delete ?");
        },
        "Delete all ?");
}

TEST(BoxesTest, ExpectedBoxThatDidNotComeFails)
{
    EXPECT_NONFATAL_FAILURE(
        {
            Boxes boxes;
            boxes.expect("Never shown");
        },
        "Never shown");
}

TEST(BoxesTest, WrongIconFails)
{
    EXPECT_NONFATAL_FAILURE(
        {
            Boxes boxes;
            boxes.expect("Sure ?", QMessageBox::Yes).icon(QMessageBox::Critical);
            ask("Sure ?");
        },
        "Sure ?");
}

TEST(BoxesTest, PostedBoxIsWaitedFor)
{
    Boxes boxes;
    boxes.expect("Later", QMessageBox::Ok);
    QTimer::singleShot(0, [] { QMessageBox::information(nullptr, "Bills", "Later"); });
    EXPECT_TRUE(boxes.wait());
}

TEST(BoxesTest, DialogIsUsedAndMayOpenABox)
{
    QDialog dialog;
    auto *field = new QLineEdit(&dialog);
    QObject::connect(field, &QLineEdit::returnPressed, [&] {
        QMessageBox::critical(&dialog, "Bills", "Wrong password");
        dialog.accept();
    });
    Boxes boxes;
    boxes.expectDialog([](QWidget &window) {
        auto *line = window.findChild<QLineEdit *>();
        line->setText("secret");
        Q_EMIT line->returnPressed();
    });
    boxes.expect("Wrong password");
    EXPECT_EQ(dialog.exec(), QDialog::Accepted);
    EXPECT_EQ(field->text(), "secret");
}

TEST(DatabaseTest, EachDatabaseIsFreshAndSharedByItsUsers)
{
    Database first;
    Database second("C", Database::Tables::None);
    EXPECT_NE(first.name(), second.name());
    EXPECT_TRUE(first.rows("Show Tables Like 'gst_billm'").size() == 1);
    EXPECT_TRUE(second.rows("Show Tables").isEmpty());

    second.run("Create Table Notes (a int, b text)");
    EXPECT_TRUE(second.other().Execute("Insert Into Notes Values (1, NULL), (2, 'x')"));
    EXPECT_EQ(second.rows("Select * From Notes Order By a"), (QStringList{"1|NULL", "2|x"}));
    second.empty();
    EXPECT_TRUE(second.rows("Select * From Notes").isEmpty());
}

TEST(DatabaseTest, FailedStatementFailsTheTest)
{
    Database database("C", Database::Tables::None);
    EXPECT_NONFATAL_FAILURE(database.run("Select * From Nowhere"), "Nowhere");
}

TEST(DatabaseTest, MissingServerFailsInsteadOfSkipping)
{
    const QByteArray former = qgetenv("LEDGORA_TEST_SOCKET");
    qputenv("LEDGORA_TEST_SOCKET", "/nowhere/ledgora.sock");
    EXPECT_THROW(Database(), std::runtime_error);
    former.isEmpty() ? qunsetenv("LEDGORA_TEST_SOCKET") : qputenv("LEDGORA_TEST_SOCKET", former);
}

TEST(ClockTest, DayIsFixedAndATestsOwnDayDoesNotOutliveIt)
{
    EXPECT_EQ(today(), QDate(2024, 6, 15));
    setToday(QDate(2020, 1, 1));
}

TEST(ClockTest, DayIsFixedAgainInTheNextTest)
{
    EXPECT_EQ(today(), QDate(2024, 6, 15));
}

} // namespace
