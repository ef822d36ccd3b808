// The program's window around its screens: menus, status line, size.

#include "bills/frmBillGST.h"
#include "receipts/frmRecpGST.h"
#include "support/WindowTest.h"
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QScreen>

namespace ledgora::test {
namespace {

class MainWindow : public WindowTest
{
protected:
    void SetUp() override
    {
        WindowTest::SetUp();
        open<frmBillGST>();
        open<frmRecpGST>();
    }
    QString inFront()
    {
        const auto *window = area()->currentSubWindow();
        return window ? window->widget()->objectName() : QString();
    }
    QMdiArea *area() { return window().findChild<QMdiArea *>("screens"); }
};

TEST_F(MainWindow, ListsItsScreensAndTheKeysOfTheOneInFront)
{
    hands.press("alt+w");
    hands.press("1");
    EXPECT_EQ(inFront(), "frmBillGST");
    hands.press("alt+w");
    hands.press("2");
    EXPECT_EQ(inFront(), "frmRecpGST");
    hands.press("Tab", 2);
    const QString field = focus();
    hands.press("ctrl+Tab");
    EXPECT_EQ(inFront(), "frmBillGST");
    hands.press("ctrl+Tab");
    EXPECT_EQ(inFront() + ' ' + focus(), "frmRecpGST " + field) << "the keys are where they were";
    boxes.expectDialog([](QWidget &keys) {
        EXPECT_EQ(keys.windowTitle(), "Keys");
        keys.close();
    });
    hands.press("alt+l");
    hands.press("k");
    EXPECT_TRUE(boxes.wait());
}

TEST_F(MainWindow, StatusLineKeepsWhatHoldsAndForgetsWhatIsOver)
{
    const auto *line = window().findChild<QLabel *>("lblStatusLine");
    ASSERT_NE(line, nullptr);
    const QString place = line->text();
    EXPECT_TRUE(place.startsWith("Office: ")) << place.toStdString();
    hands.press("alt+w");
    hands.press("Down");
    hands.press("Escape");
    EXPECT_EQ(line->text(), place);
    window().note("Billing is ready.");
    EXPECT_EQ(line->text(), "Billing is ready.");
    window().ReloadMenu();
    EXPECT_EQ(line->text(), place);
}

TEST_F(MainWindow, TilingDoesNotMakeItLargerThanTheDisplay)
{
    const QSize before = window().frameGeometry().size();
    hands.press("alt+w");
    hands.press("t");
    EXPECT_EQ(area()->subWindowList().at(0)->isMaximized(), false);
    EXPECT_EQ(window().frameGeometry().size(), before);
    EXPECT_TRUE(window().screen()->geometry().contains(window().frameGeometry()));
}

} // namespace
} // namespace ledgora::test
