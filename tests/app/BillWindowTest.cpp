// The bill screen in the program's window, by real keys and mouse.

#include "bills/frmBillGST.h"
#include "controls/ChoiceBox.h"
#include "support/WindowTest.h"
#include <QAbstractItemView>

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

} // namespace
} // namespace ledgora::test
