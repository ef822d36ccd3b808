// The register of the clients' GSTINs under a user's keys, and the older side's first day on the home screen.

#include "HomeScreen.h"

using namespace ledgora;
using namespace ledgora::test;

namespace {

class ClientGstinFrame : public HomeScreen
{
protected:
    void openFrame()
    {
        data().run("Insert Into Comp_Master (CompSrNo,Code,Nm,PAN,State) Values "
                   "(1,'A1','ALPHA LTD','AAAFS1234K','DELHI'),(2,'B1','BETA LTD','','GOA'),(3,'C1','CETA LTD','','')");
        data().run("Insert Into GST_ClRegNo Values ('B1','30AAAFS1234K1Z5','')");
        open();
        alt('U');
        ASSERT_EQ(frame(), "famUpdClGSTIN");
        ASSERT_EQ(focus(), "vsClGSTIN");
    }
    static QStringList stored() { return data().rows("Select Code_No,GSTIN From GST_ClRegNo Order by Code_No"); }
    QString gstin(int row) const { return find<Grid>("vsClGSTIN")->cells().text(row, 5); }
    int row() const { return find<Grid>("vsClGSTIN")->row(); }
    void asked(const char *question, QMessageBox::StandardButton answer, QMessageBox::StandardButton byDefault)
    {
        boxes.expect(question, answer).icon(QMessageBox::Question).defaultButton(byDefault);
    }
    static constexpr auto saveQuestion = "Do you want to Save?";
    static constexpr auto exitQuestion = "Do you really want to exit without saving the changes?";
};

TEST_F(ClientGstinFrame, GstinsAreKeyedInDownTheColumn)
{
    openFrame();
    type("07aaafs1234k1z5");
    press(Qt::Key_Return);
    EXPECT_EQ(row(), 2);
    press(Qt::Key_Delete); // the text of an opened cell is marked
    press(Qt::Key_Tab);
    EXPECT_EQ(row(), 3) << "Tab too passes over what can not be edited";
    type("30DELA12345B1Z5");
    asked(saveQuestion, QMessageBox::Yes, QMessageBox::Cancel);
    asked("Whether GSTIN for Assessee 'Registered as Tax Deductor with TAN' ?", QMessageBox::Yes, QMessageBox::No);
    alt('S');
    EXPECT_EQ(frame(), "famFirmMain");
    EXPECT_EQ(focus(), "cmdUpdClGSTIN");
    EXPECT_EQ(stored(), (QStringList{"A1|07AAAFS1234K1Z5", "C1|30DELA12345B1Z5"}));
    alt('U');
    EXPECT_EQ(gstin(2), "");
    alt('R');
    type("ceta");
    press(Qt::Key_Return);
    EXPECT_EQ(row(), 3);
    alt('B'); // unchanged: nothing is asked
    EXPECT_EQ(frame(), "famFirmMain");
}

TEST_F(ClientGstinFrame, WrongShapeKeepsTheCell)
{
    openFrame();
    press(Qt::Key_Down);
    type("30AB");
    for (const auto leave : {Qt::Key_Return, Qt::Key_Up, Qt::Key_Down, Qt::Key_Tab}) {
        boxes.expect("Invalid 'GSTIN' !").icon(QMessageBox::Information);
        press(leave);
        ASSERT_TRUE(boxes.wait());
        EXPECT_EQ(row(), 2);
        EXPECT_TRUE(find<Grid>("vsClGSTIN")->isEditing());
        EXPECT_EQ(gstin(2), "30AB");
        type("30AB");
    }
    boxes.expect("Invalid 'GSTIN' !");
    alt('S'); // no question before the cell is right
    asked(saveQuestion, QMessageBox::No, QMessageBox::Cancel);
    asked(exitQuestion, QMessageBox::Yes, QMessageBox::No);
    press(Qt::Key_Escape); // checks nothing
    EXPECT_EQ(frame(), "famFirmMain");
    EXPECT_EQ(stored(), QStringList{"B1|30AAAFS1234K1Z5"});
}

TEST_F(ClientGstinFrame, LeavingAsksUntilItIsAnswered)
{
    openFrame();
    type("07AAAFS1234L1Z5"); // another PAN than the client's
    asked(saveQuestion, QMessageBox::Cancel, QMessageBox::Cancel);
    alt('S');
    asked(saveQuestion, QMessageBox::No, QMessageBox::Cancel);
    alt('S'); // Save asks no second question
    asked(saveQuestion, QMessageBox::Cancel, QMessageBox::Cancel);
    screen()->close();
    EXPECT_EQ(frame(), "famUpdClGSTIN");
    asked(saveQuestion, QMessageBox::No, QMessageBox::Cancel);
    asked(exitQuestion, QMessageBox::No, QMessageBox::No);
    asked(saveQuestion, QMessageBox::No, QMessageBox::Cancel);
    asked(exitQuestion, QMessageBox::Cancel, QMessageBox::No);
    press(Qt::Key_Escape);
    EXPECT_EQ(frame(), "famUpdClGSTIN");
    asked(saveQuestion, QMessageBox::Yes, QMessageBox::Cancel);
    boxes.expect("Invalid 'GSTIN' ! Should contain PAN [AAAFS1234K] from 3rd to 12th Character.");
    press(Qt::Key_Escape);
    EXPECT_EQ(row(), 1);
    type("30AAAFS1234K1Z5");
    const QString state = "Invalid 'GSTIN' ! First 2-Digit shoule be State Code [07] for State [DELHI].\n\n"
                          "Do you want to still want to save ?";
    for (const auto answer : {QMessageBox::No, QMessageBox::Yes}) {
        asked(saveQuestion, QMessageBox::Yes, QMessageBox::Cancel);
        asked(qPrintable(state), answer, QMessageBox::No);
        alt('S');
    }
    EXPECT_EQ(frame(), "famFirmMain");
    EXPECT_EQ(stored(), (QStringList{"A1|30AAAFS1234K1Z5", "B1|30AAAFS1234K1Z5"}));
}

TEST_F(HomeScreen, FirstDayTakesOverTheOlderSide)
{
    data().run("Insert Into Table3 (Name) Values ('OLD & CO')");
    data().run("Insert Into biller (nm,State) Values ('ASHOK','GOA')");
    open();
    EXPECT_EQ(companies(), QStringList{"1|OLD & CO||"});
    boxes.expect("Please specify valid 'State' !");
    alt('B');
    EXPECT_EQ(text("txtFirmName"), "OLD & CO");
    press(Qt::Key_Escape);
    alt('O');
    EXPECT_EQ(find<Grid>("vsOthCl")->cells().text(1, 2), "ASHOK");
}

} // namespace
