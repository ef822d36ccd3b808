// The party of a bill: type-ahead, and what the choice brings along.

#include "BillScreen.h"
#include "controls/ChoiceBox.h"
#include <QAbstractButton>
#include <QApplication>
#include <QTest>

using namespace ledgora;
using namespace ledgora::test;

namespace {

TEST_F(BillScreen, TypeAheadFollowsTypingAndArrowsWrap)
{
    open();
    alt('A');
    const auto row = [this] { return find<Grid>("vsListC")->row(); };
    EXPECT_EQ(row(), -1);
    struct Step
    {
        Qt::Key key;
        int row;
    };
    for (const Step &step : {Step{Qt::Key_Down, 1},
                             {Qt::Key_Down, 2},
                             {Qt::Key_Down, 3},
                             {Qt::Key_Down, 1},
                             {Qt::Key_Up, 3},
                             {Qt::Key_Up, 2}}) {
        press(step.key);
        EXPECT_EQ(row(), step.row);
    }
    type("ch");
    EXPECT_EQ(text("txtpartynm"), "CH");
    EXPECT_EQ(row(), 3);
    type("x");
    EXPECT_EQ(row(), -1) << "no name begins so";
    press(Qt::Key_Up);
    EXPECT_EQ(row(), 3) << "from none to the last";
}

TEST_F(BillScreen, TypeAheadPageKeysGoByWhatIsVisible)
{
    for (int id = 10; id < 90; ++id)
        addClient(id, QStringLiteral("PARTY %1").arg(id), "DELHI");
    open();
    alt('A');
    const auto *parties = find<Grid>("vsListC");
    const int lastVisible = parties->lastVisibleRow();
    ASSERT_EQ(lastVisible, 12);
    press(Qt::Key_Down, Qt::NoModifier, lastVisible - 2);
    press(Qt::Key_PageUp);
    EXPECT_EQ(parties->row(), lastVisible - 4) << "up by the distance to the last visible row";
    press(Qt::Key_PageUp);
    EXPECT_EQ(parties->row(), lastVisible - 8);
    press(Qt::Key_PageUp);
    EXPECT_EQ(parties->row(), 1);
    press(Qt::Key_PageDown);
    EXPECT_EQ(parties->row(), lastVisible);
    press(Qt::Key_PageDown, Qt::NoModifier, 20);
    EXPECT_EQ(parties->row(), parties->cells().rows() - 1);
}

TEST_F(BillScreen, PageDownWithoutASelectionGoesToTheLastVisibleRowToo)
{
    open();
    alt('A');
    ASSERT_EQ(find<Grid>("vsListC")->row(), -1);
    press(Qt::Key_PageDown);
    EXPECT_EQ(find<Grid>("vsListC")->row(), 3);
}

TEST_F(BillScreen, PartyIsTakenOnLeavingTheFieldAndSetsPlaceAndTaxType)
{
    open();
    alt('A');
    type("bh");
    press(Qt::Key_Return);
    EXPECT_EQ(focus(), "cbosr");
    EXPECT_FALSE(isShown("vsListC"));
    EXPECT_EQ(text("txtpartynm"), "BHARAT MILLS");
    EXPECT_EQ(choice("cboPOS"), "MAHARASHTRA (27)");
    EXPECT_EQ(choice("cboTaxType"), "Inter-State (IGST)");

    retype("txtpartynm", "ASHOK");
    press(Qt::Key_Tab);
    EXPECT_EQ(text("txtpartynm"), "ASHOK TRADERS");
    EXPECT_EQ(choice("cboTaxType"), "Intra-State (CGST/SGST)");

    retype("txtpartynm", "NOBODY");
    press(Qt::Key_Tab);
    EXPECT_EQ(text("txtpartynm"), "") << "a name that is not in the list does not stay";
}

TEST_F(BillScreen, ExemptBillStaysExemptWhateverThePlaceOfSupply)
{
    open();
    keyHead("ASHOK");
    find<QWidget>("cboTaxType")->setFocus();
    press(Qt::Key_End);
    EXPECT_EQ(choice("cboTaxType"), "No Tax (Exempted)");
    find<QWidget>("cboPOS")->setFocus();
    press(Qt::Key_Down);
    EXPECT_NE(choice("cboPOS"), "DELHI (07)");
    EXPECT_EQ(choice("cboTaxType"), "No Tax (Exempted)");
    find<QWidget>("cboTaxType")->setFocus();
    press(Qt::Key_Home);
    find<QWidget>("cboPOS")->setFocus();
    press(Qt::Key_Down);
    EXPECT_EQ(choice("cboTaxType"), "Inter-State (IGST)");
}

TEST_F(BillScreen, PartyJustTypedIsTakenByTheCommand)
{
    open();
    alt('A');
    type("BHARAT");
    boxes.expect("Please specify atleast one 'Particular'.");
    alt('U');
    EXPECT_EQ(text("txtpartynm"), "BHARAT MILLS");
    EXPECT_EQ(choice("cboTaxType"), "Inter-State (IGST)");
    EXPECT_FALSE(isShown("vsListC"));
}

} // namespace
