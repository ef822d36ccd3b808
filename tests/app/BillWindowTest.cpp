// The bill screen in the program's window, by real keys and mouse.

#include "bills/frmBillGST.h"
#include "controls/ChoiceBox.h"
#include "receipts/frmRecpGST.h"
#include "support/WindowTest.h"
#include <QAbstractItemView>
#include <QApplication>
#include <QRegularExpression>

namespace ledgora::test {
namespace {

class BillWindow : public WindowTest
{
protected:
    void SetUp() override
    {
        WindowTest::SetUp();
        open<frmBillGST>();
    }
};

TEST_F(BillWindow, ClientIsChosenWithTheMouse)
{
    hands.press("alt+a");
    clickCell("vsListC", 2, 1);
    EXPECT_EQ(focus(), "txtpartynm") << "a click only selects";
    EXPECT_TRUE(find<Grid>("vsListC")->isVisible());
    hands.press("Return");
    EXPECT_EQ(text("txtpartynm"), "BHARAT MILLS");
    EXPECT_EQ(choice("cboPOS"), "MAHARASHTRA (27)");

    hands.press("alt+c");
    hands.press("alt+a");
    clickCell("vsListC", 3, 1, 2);
    EXPECT_EQ(text("txtpartynm"), "CHETAK STORES");
    EXPECT_EQ(focus(), "cbosr");
    EXPECT_FALSE(find<Grid>("vsListC")->isVisible());
}

TEST_F(BillWindow, AltAndCtrlTypeNothing)
{
    hands.press("alt+a");
    hands.press("alt+a");
    EXPECT_EQ(find<Grid>("vsListC")->row(), -1) << "Add is off while a bill is added";
    hands.type("BH");
    hands.press("Return");
    EXPECT_EQ(text("txtpartynm"), "BHARAT MILLS");
    for (const char *field : {"txtbillno", "txtNarr"}) {
        find<QWidget>(field)->setFocus();
        const QString before = text(field);
        for (const char *keys : {"alt+f", "alt+e", "alt+p", "alt+7", "ctrl+alt+f", "ctrl+7"})
            hands.press(keys);
        EXPECT_EQ(text(field), before) << field;
    }
    find<QWidget>("cboTaxType")->setFocus();
    hands.press("alt+i");
    hands.press("ctrl+n");
    EXPECT_EQ(choice("cboTaxType"), "Inter-State (IGST)");
    find<QWidget>("cboPOS")->setFocus();
    hands.press("F4");
    EXPECT_TRUE(find<ChoiceBox>("cboPOS")->view()->isVisible());
    hands.press("alt+k");
    EXPECT_EQ(find<ChoiceBox>("cboPOS")->view()->currentIndex().data().toString(), "MAHARASHTRA (27)");
    hands.press("Escape");
    find<QWidget>("vsB")->setFocus();
    hands.type("Audit ");
    for (const char *keys : {"alt+f", "alt+e", "alt+p"})
        hands.press(keys);
    hands.press("Tab");
    EXPECT_EQ(find<Grid>("vsB")->cells().text(3, 1), "Audit ");
    hands.press("alt+p"); // the SAC list is open
    EXPECT_EQ(focus(), "vsB");
}

TEST_F(BillWindow, ListsLieBesideTheirFieldAndShowWhatFollowsAHit)
{
    for (int i = 10; i < 60; ++i)
        addClient(i, QString("M CLIENT %1").arg(i), "DELHI");
    open<frmBillGST>();
    hands.press("alt+a");
    const auto *parties = find<Grid>("vsListC");
    hands.type("M CLIENT 30");
    EXPECT_GE(parties->lastVisibleRow() - parties->row(), 9);
    hands.press("Return", 6);
    hands.press("F12"); // nothing was ever written: no list, and the cell stays open
    hands.type("Audit");
    hands.press("F12");
    hands.type(" work");
    hands.press("Tab");
    EXPECT_EQ(find<Grid>("vsB")->cells().text(3, 1), "Audit work");
    hands.press("Return");
    const QWidget *list = QApplication::activePopupWidget();
    ASSERT_TRUE(list);
    const auto *lines = find<Grid>("vsB");
    const QRect cell = lines->visualRect(lines->currentIndex());
    EXPECT_FALSE(list->geometry().intersects(QRect(lines->viewport()->mapToGlobal(cell.topLeft()), cell.size())));
}

TEST_F(BillWindow, NothingMovesBetweenBrowsingAndEntry)
{
    const auto places = [this] {
        QStringList all;
        const QRegularExpression names("^(txt|cbo|vsB$)");
        for (const QWidget *field : find<QWidget>("famedit")->findChildren<QWidget *>(names)) {
            const QPoint at = field->mapTo(screen(), QPoint());
            all << QString("%1 %2,%3").arg(field->objectName()).arg(at.x()).arg(at.y());
        }
        return all.join('\n').toStdString();
    };
    for (const bool receipts : {false, true}) {
        receipts ? show(new frmRecpGST) : show(new frmBillGST);
        const auto browsing = places();
        hands.press("alt+a");
        EXPECT_EQ(places(), browsing);
        hands.press("alt+c");
    }
}

TEST_F(BillWindow, CellIsAsBeforeBehindMenusListsAndQuestions)
{
    QWidget *bill = screen();
    open<frmRecpGST>(); // the menu lists more than one screen
    show(bill);
    addBill(1, 1, QDate(2024, 6, 1), Ashok, 100); // earlier particulars
    hands.press("alt+a");
    hands.type("ASH");
    hands.press("Return", 6);
    hands.type("Audt");
    hands.press("Left");
    for (const char *menu : {"alt+g", "alt+w"}) {
        hands.press(menu);
        hands.press("Escape");
        EXPECT_TRUE(find<Grid>("vsB")->isEditing()) << menu;
    }
    hands.press("F12");
    EXPECT_EQ(focus(), "vsListP");
    hands.press("Escape");
    boxes.expect("Do you want to Cancel Entry?", QMessageBox::No);
    hands.press("Escape");
    EXPECT_TRUE(boxes.wait());
    hands.type("i");
    hands.press("Tab");
    EXPECT_EQ(find<Grid>("vsB")->cells().text(3, 1), "Audit");
}

TEST_F(BillWindow, RefusedAmountStaysOpenInItsCell)
{
    hands.press("alt+a");
    hands.type("ASH");
    hands.press("Return", 6);
    hands.press("Tab", 4);
    hands.type("-50"); // no entry, and dropped without a word
    hands.press("Return");
    EXPECT_EQ(find<Grid>("vsB")->col(), 5);
    for (const char *leaving : {"Return", "Tab", "Down", "alt+u"}) {
        hands.type("1o0");
        boxes.expect("Please Specify Valid Amount. Numeric Only.");
        hands.press(leaving);
        EXPECT_EQ(focus(), "vsB") << leaving;
        EXPECT_EQ(find<Grid>("vsB")->col(), 5) << leaving;
        EXPECT_TRUE(find<Grid>("vsB")->isEditing()) << leaving;
        EXPECT_EQ(QApplication::focusWidget()->palette().color(QPalette::Base).name(), "#ffc6c6") << leaving;
    }
    hands.type("100");
    hands.press("Return");
    EXPECT_EQ(find<Grid>("vsB")->cells().text(3, 5), "100");
    EXPECT_EQ(text("txtNarr"), "");
}

} // namespace
} // namespace ledgora::test
