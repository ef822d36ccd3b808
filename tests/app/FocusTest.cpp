// Where the keys are after a box, a question or a menu, and what a refused field does, in the program's window.

#include "controls/ChoiceBox.h"
#include "masters/frmMainGST.h"
#include "receipts/frmRecpGST.h"
#include "support/WindowTest.h"
#include <QApplication>
#include <QLineEdit>

namespace ledgora::test {
namespace {

constexpr auto overpaid = "Total Receipt Amount can not be Greater than Bill Amount.";

class Focus : public WindowTest
{
protected:
    /// The colours of fields: what is in focus, refused, or neither.
    QString colour(const char *field) const
    {
        const QString name = find<QWidget>(field)->palette().color(QPalette::Active, QPalette::Base).name();
        return name == "#ffe0c0" ? "focus" : name == "#ffc6c6" ? "refused" : name == "#ffffff" ? "" : name;
    }
    QString selected(const char *field) const { return find<QLineEdit>(field)->selectedText(); }
    /// A receipt for bill 1 (500) as far as its first amount.
    void enterReceipt()
    {
        addBill(1, 1, QDate(2024, 5, 1), Ashok, 500);
        open<frmRecpGST>();
        hands.press("alt+a");
        hands.type("ASHOK");
        hands.press("Return", 4);
        hands.type("1");
        hands.press("Return");
        EXPECT_EQ(focus(), "txtAMT_0");
    }
};

TEST_F(Focus, OverpaidBillIsRefusedEachTimeItsBoxIsLeft)
{
    enterReceipt();
    find<QWidget>("txtBillSN_0")->setFocus();
    hands.press("ctrl+a");
    hands.press("Delete");
    hands.press("Tab");
    hands.type("501");
    hands.press("Return");
    find<QWidget>("txtBillSN_0")->setFocus();
    hands.type("1");
    boxes.expect(overpaid);
    hands.press("Tab");
    for (const char *leaving : {"Tab", "shift+Tab", "alt+u"}) {
        EXPECT_EQ(focus(), "txtBillSN_0") << leaving;
        EXPECT_EQ(colour("txtBillSN_0"), "refused") << leaving;
        EXPECT_EQ(colour("txtAMT_0"), "") << leaving;
        EXPECT_TRUE(find<Grid>("vsfbr")->isVisible()) << leaving;
        boxes.expect(overpaid);
        hands.press(leaving);
    }
    boxes.expect(overpaid);
    hands.click(find<QWidget>("txtCash"));
    EXPECT_EQ(focus(), "txtBillSN_0");
    EXPECT_TRUE(data().rows("Select * From GST_RecpM").isEmpty());
}

TEST_F(Focus, WhatOthersReceivedMeanwhileIsSeenBeforeTheSave)
{
    enterReceipt();
    hands.type("500");
    find<QWidget>("txtCash")->setFocus();
    hands.type("500");
    addReceipt(7, 1, 100);
    boxes.expect(overpaid);
    hands.press("alt+u");
    EXPECT_EQ(focus(), "txtAMT_0");
    hands.type("400");
    find<QWidget>("txtCash")->setFocus();
    hands.press("ctrl+a");
    hands.type("400");
    hands.press("alt+u");
    EXPECT_EQ(data().rows("Select Amount From GST_RecpD Where RecpId<>7"), QStringList{"400"});
}

TEST_F(Focus, FieldThatABoxPointsAtIsTypedOver)
{
    open<frmMainGST>();
    hands.press("alt+c");
    hands.type("RAO");
    find<QWidget>("txtFirmGSTIN")->setFocus();
    hands.type("32ABCDE1234F1Z");
    boxes.expect("Invalid 'GSTIN' !");
    hands.press("Return");
    EXPECT_EQ(focus(), "txtFirmGSTIN");
    EXPECT_EQ(colour("txtFirmGSTIN"), "refused");
    hands.type("32ABCDE1234F1Z5");
    EXPECT_EQ(text("txtFirmGSTIN"), "32ABCDE1234F1Z5");
    EXPECT_EQ(colour("txtFirmGSTIN"), "focus");
    hands.press("Return");
    EXPECT_EQ(colour("txtFirmGSTIN"), "");
}

TEST_F(Focus, FieldBehindThePasswordIsTypedOver)
{
    data().run("Update GST_FirmMas Set Pass='X' Where FirmSrNo=1");
    open<frmMainGST>();
    boxes.expectDialog([this](QWidget &) {
        hands.type("X");
        hands.press("Return");
    });
    hands.click(find<QWidget>("cmdFirmAlter"));
    EXPECT_EQ(focus(), "txtFirmName");
    EXPECT_EQ(colour("txtFirmName"), "focus");
    hands.type("RAO AND CO");
    EXPECT_EQ(text("txtFirmName"), "RAO AND CO");
}

TEST_F(Focus, FieldIsAsBeforeAfterAMenuAndAQuestion)
{
    addBill(1, 1, QDate(2024, 5, 1), Ashok, 500);
    open<frmMainGST>();
    open<frmRecpGST>();
    const auto expectAsBefore = [this](const char *after) {
        EXPECT_EQ(focus(), "txtpartynm") << after;
        EXPECT_EQ(text("txtpartynm"), "BHA") << after;
        EXPECT_EQ(selected("txtpartynm"), "") << after;
        EXPECT_EQ(colour("txtpartynm"), "focus") << after;
        EXPECT_EQ(find<Grid>("vsListC")->row(), 2) << after;
        EXPECT_TRUE(find<Grid>("vsListC")->isVisible()) << after;
    };
    hands.press("alt+a");
    hands.type("BHA");
    expectAsBefore("typing");
    for (const char *menu : {"alt+g", "alt+w", "alt+n"}) {
        hands.press(menu);
        EXPECT_TRUE(QApplication::activePopupWidget()) << menu;
        hands.press("Escape");
        expectAsBefore(menu);
    }
    hands.press("alt+g");
    hands.press("Escape");
    hands.press("Tab");
    EXPECT_EQ(focus(), "cbosr");
    EXPECT_EQ(text("txtpartynm"), "BHARAT MILLS");
    find<QWidget>("txtNarr")->setFocus();
    hands.type("by");
    boxes.expect("Do you want to Cancel Entry?", QMessageBox::No);
    hands.press("Escape");
    EXPECT_EQ(focus(), "txtNarr");
    hands.type("x");
    EXPECT_EQ(text("txtNarr"), "byx");
    EXPECT_EQ(colour("txtNarr"), "focus");
}

TEST_F(Focus, ScreenBehindAClosedOneHasItsKeysBack)
{
    auto *home = open<frmMainGST>();
    hands.press("Tab", 2);
    const QString before = focus();
    open<frmRecpGST>();
    hands.press("Escape");
    EXPECT_EQ(focus(), before);
    EXPECT_TRUE(home->isAncestorOf(QApplication::focusWidget()));
}

} // namespace
} // namespace ledgora::test
