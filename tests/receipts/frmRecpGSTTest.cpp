// The receipt screen in use: type-ahead on bills, the rows and their taxes, the money block, keys.

#include "ReceiptScreen.h"
#include <QListWidget>

using namespace ledgora;
using namespace ledgora::test;

namespace {

constexpr auto overpaid = "Total Receipt Amount can not be Greater than Bill Amount.";
constexpr auto invalidAmount = "Please Specify Valid Amount. Numeric Only.";

TEST_F(ReceiptScreen, KeysAloneGoThroughAReceiptRowByRow)
{
    open();
    EXPECT_EQ(status(), "There is no receipt in this year yet. Press Alt+A to add one.");
    alt('A');
    EXPECT_EQ(focus(), "txtpartynm");
    EXPECT_EQ(text("txtrecpno"), "1");
    EXPECT_EQ(text("txtrecpdt"), "15/06/2024");
    type("ASHOK");
    QStringList way;
    for (int i = 0; i < 4; ++i) {
        press(Qt::Key_Return);
        way << focus();
    }
    EXPECT_EQ(way.join(' '), "cbosr txtrecpno txtrecpdt txtBillSN_0");
    EXPECT_TRUE(isShown("vsfbr"));
    EXPECT_EQ(offered(), (QStringList{"1", "2", "3"}));
    type("1");
    press(Qt::Key_Return);
    EXPECT_EQ(find<QWidget>("txtBillSN_0")->toolTip(), "1180, 01/05/2024");
    type("590");
    press(Qt::Key_Return);
    EXPECT_EQ(row(0), "1|590|||45|45|");
    press(Qt::Key_Return, Qt::NoModifier, 2);
    EXPECT_EQ(focus(), "txtBillSN_1");
    press(Qt::Key_Down, Qt::NoModifier, 2);
    press(Qt::Key_Return);
    type("500");
    press(Qt::Key_Return, Qt::NoModifier, 3);
    EXPECT_EQ(row(1), "2|500|||||");
    EXPECT_EQ(row(10), "|1090|||45|45|");
    EXPECT_EQ(offered(), (QStringList{"1", "3"})) << "the second is paid";
    press(Qt::Key_Up, Qt::NoModifier, 2);
    press(Qt::Key_Return);
    EXPECT_EQ(text("txtBillSN_2"), "1") << "Up goes past what is paid";
    retype("txtBillSN_2", "");
    press(Qt::Key_Return);
    EXPECT_EQ(focus(), "txtCash");
}

TEST_F(ReceiptScreen, PaidBillStaysInItsOwnRowAndTheSameBillCanStandInTwo)
{
    open();
    keyHead();
    keyRow("1", "1000");
    keyRow("1", "180");
    EXPECT_EQ(row(0), "1|1000|||76|76|");
    EXPECT_EQ(row(1), "1|180|||14|14|");
    click("txtBillSN_1");
    EXPECT_EQ(offered(), (QStringList{"1", "2", "3"}));
    press(Qt::Key_Tab);
    EXPECT_EQ(text("txtBillSN_1"), "1");
    find<QWidget>("txtBillSN_0")->setFocus(); // keys typed ahead: left before the screen heard that it was entered
    find<QWidget>("txtDISC_0")->setFocus();
    Keys::settle();
    EXPECT_EQ(row(0), "1|1000|||76|76|");
    boxes.expect(overpaid);
    retype("txtAMT_1", "181");
    press(Qt::Key_Return);
    EXPECT_EQ(focus(), "txtAMT_1");
    EXPECT_EQ(text("txtAMT_1"), "181") << "what was typed stays";
    retype("txtAMT_1", "80");
    press(Qt::Key_Return);
    boxes.expect(overpaid);
    type("101");
    press(Qt::Key_Return);
    EXPECT_EQ(focus(), "txtDISC_1") << "a discount pays too";
}

TEST_F(ReceiptScreen, AmountsThatArePastedAreRoundedOrRefused)
{
    struct Case
    {
        const char *box;
        QString pasted, kept, message;
    };
    open();
    keyHead();
    keyRow("1", "100");
    const Case cases[] = {{"txtAMT_0", "2.5", "2", ""},
                          {"txtAMT_0", "3.5", "4", ""},
                          {"txtAMT_0", "0", "", ""},
                          {"txtAMT_0", "1,000", "1,000", invalidAmount},
                          {"txtAMT_0", "-5", "-5", invalidAmount},
                          {"txtAMT_0", "1180", "1180", ""},
                          {"txtDISC_0", "'; Drop", "'; Drop", invalidAmount},
                          {"txtDISC_0", "0.5", "", ""},
                          {"txtTDS_0", "1181", "1181", "TDS Amount cannot be greater than Rs.1180"},
                          {"txtTDS_0", "1180.5", "1180.5", "TDS Amount cannot be greater than Rs.1180"},
                          {"txtTDS_0", "118.5", "118", ""},
                          {"txtCash", "12e3", "12e3", invalidAmount},
                          {"txtCash", "1500.5", "1500", ""}};
    for (const Case &c : cases) {
        if (!c.message.isEmpty())
            boxes.expect(c.message);
        repaste(c.box, c.pasted);
        press(Qt::Key_Return);
        EXPECT_EQ(text(c.box), c.kept) << c.pasted.toStdString();
        EXPECT_EQ(focus() == c.box, !c.message.isEmpty()) << c.pasted.toStdString();
        if (!c.message.isEmpty())
            repaste(c.box, "");
    }
    EXPECT_EQ(text("txtTotAmtRecd"), "1500");
    retype("txtAMT_0", "100");
    press(Qt::Key_Return);
    EXPECT_EQ(row(0), "1|100||100|8|8|") << "the TDS follows an amount below it";
    boxes.expect("Enter Numeric Value.");
    type("x");
}

struct ModeCase
{
    const char *name;
    int mode;
    QStringList open;
    QString stored; ///< PayMode|OthAmt|BankNm|BankBr|ChqNo|ChqDt
};

class PayModes : public ReceiptScreen, public testing::WithParamInterface<ModeCase>
{
};

TEST_P(PayModes, OpenTheirFieldsAndStoreOnlyThem)
{
    open();
    keyHead();
    keyRow("2", "500");
    const auto fields = {"txtOthModeAmt", "cboOthModeBankNm", "cboOthModeBankBr",
                         "txtOthModeNo",  "txtOthModeDt",     "txtOthModeDesc"};
    const auto choose = [&](int mode) {
        find<QWidget>("cboOthModeType")->setFocus();
        press(Qt::Key_Home);
        press(Qt::Key_Down, Qt::NoModifier, mode);
        QStringList isOpen;
        for (const char *field : fields) {
            if (find<QWidget>(field)->isEnabled())
                isOpen << field;
        }
        return isOpen;
    };
    EXPECT_EQ(choose(1).size(), 5);
    retype("txtOthModeAmt", "500");
    for (const auto &[field, typed] :
         {std::pair("cboOthModeBankNm", "O'Bank \\"), {"cboOthModeBankBr", "Main"}, {"txtOthModeNo", "007"}})
        retype(field, typed);
    click("txtOthModeDt");
    type("14062024");
    EXPECT_EQ(choose(7), (QStringList{"txtOthModeAmt", "txtOthModeDesc"}));
    retype("txtOthModeDesc", "by hand");
    EXPECT_EQ(choose(0), QStringList()) << "fields that go off keep their texts";
    EXPECT_EQ(choose(GetParam().mode), GetParam().open);
    keyCash(GetParam().open.isEmpty() ? "500" : "");
    EXPECT_EQ(text("txtTotAmtRecd"), "500");
    alt('U');
    EXPECT_FALSE(isEditing());
    EXPECT_EQ(data().rows("Select PayMode,OthAmt,BankNm,BankBr,ChqNo,ChqDt From GST_RecpM"),
              QStringList{GetParam().stored});
    EXPECT_EQ(text("txtOthModeDesc").isEmpty(), !GetParam().stored.contains("by hand"));
    EXPECT_EQ(choice("cboOthModeBankNm").isEmpty(), !GetParam().stored.contains("O'Bank"));
    EXPECT_EQ(text("txtTotAmtRecd"), "500");
}

const QStringList ofBank{"txtOthModeAmt", "cboOthModeBankNm", "cboOthModeBankBr", "txtOthModeNo", "txtOthModeDt"};
const QStringList ofTransfer{"txtOthModeAmt", "txtOthModeDesc"};
INSTANTIATE_TEST_SUITE_P(All, PayModes,
                         testing::Values(ModeCase{"None", 0, {}, "0|0||||"},
                                         ModeCase{"Cheque", 1, ofBank, "1|500|O'Bank \\|Main|007|14/06/2024"},
                                         ModeCase{"PayOrder", 3, ofBank, "3|500|O'Bank \\|Main|007|14/06/2024"},
                                         ModeCase{"Neft", 4, ofTransfer, "4|500|by hand|||"},
                                         ModeCase{"Other", 7, ofTransfer, "7|500|by hand|||"}),
                         [](const auto &mode) { return std::string(mode.param.name); });

TEST_F(ReceiptScreen, DateOfAPaperIsADayOfTheCalendarOrEmpty)
{
    open();
    keyHead();
    find<ChoiceBox>("cboOthModeType")->choose(1);
    for (const char *refused : {"31022024", "1506"}) {
        click("txtOthModeDt");
        press(Qt::Key_A, Qt::ControlModifier);
        boxes.expect("Please Specify a Valid Date.");
        type(refused);
        press(Qt::Key_Return);
        EXPECT_EQ(focus(), "txtOthModeDt") << refused;
    }
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_Delete);
    press(Qt::Key_Return);
    EXPECT_NE(focus(), "txtOthModeDt");
}

TEST_F(ReceiptScreen, EscBacksOutOfOneThingAtATime)
{
    open();
    keyHead();
    keyRow("1", "100");
    click("txtBillSN_0");
    press(Qt::Key_Escape);
    EXPECT_FALSE(isShown("vsfbr"));
    EXPECT_EQ(text("txtBillSN_0") + hidden("txtBillSN_0"), "");
    press(Qt::Key_Tab);
    EXPECT_EQ(row(0), "|100|||||") << "without a bill no tax";
    data().run("Insert Into GST_RecpM (RecpSrNo,Narr) Values (9,'Earlier'),(8,'')");
    click("txtNarr");
    press(Qt::Key_F12);
    EXPECT_EQ(find<QListWidget>("vsListN")->count(), 1);
    press(Qt::Key_Return);
    EXPECT_EQ(text("txtNarr"), "Earlier");
    boxes.expect("Do you want to Cancel Entry?", QMessageBox::No);
    press(Qt::Key_Escape);
    EXPECT_TRUE(isEditing());
    click("txtpartynm");
    press(Qt::Key_Escape);
    click("txtBillSN_1");
    EXPECT_EQ(offered(), QStringList()) << "no party, no bills";
    boxes.expect("Do you want to Cancel Entry?", QMessageBox::Yes);
    press(Qt::Key_Escape, Qt::NoModifier, 2);
    EXPECT_FALSE(isEditing());
    EXPECT_EQ(focus(), "cmdAdd");
}

TEST_F(ReceiptScreen, DateBeforeItsBillTakesTheBillAndLeavesTheAmounts)
{
    open();
    keyHead();
    keyRow("1", "590");
    keyRow("3", "300");
    click("txtrecpdt");
    type("02052024");
    press(Qt::Key_Return);
    EXPECT_EQ(row(0), "1|590|||45|45|");
    EXPECT_EQ(row(1), "|300|||||");
    keyCash("890");
    boxes.expect("Please Select a Bill.");
    alt('U');
    EXPECT_EQ(focus(), "txtBillSN_1");
    EXPECT_EQ(offered(), (QStringList{"1", "2"}));
    EXPECT_EQ(storedReceipts(), QStringList());
}

} // namespace
