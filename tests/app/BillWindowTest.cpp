// The bill screen in the program's window, by real keys and mouse.

#include "bills/frmBillGST.h"
#include "support/WindowTest.h"

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

} // namespace
} // namespace ledgora::test
