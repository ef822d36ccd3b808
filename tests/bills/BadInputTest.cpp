// What nobody should type or paste into a bill, and what becomes of it: kept whole, cut where a limit is told, or
// refused with the message that is told. Other bills are never touched, and nothing reaches the error log.

#include "BillScreen.h"
#include "tests/support/HostileTexts.h"
#include <QLabel>

using namespace ledgora;
using namespace ledgora::test;

namespace {

/// A bill of another day stands beside the one that is keyed in; it must be the same at the end of every test.
class BadInput : public BillScreen
{
protected:
    void SetUp() override
    {
        BillScreen::SetUp();
        addBill(70, 70, QDate(2024, 4, 1), Chetak, 700);
        m_before = neighbour();
    }
    void TearDown() override
    {
        EXPECT_EQ(neighbour(), m_before);
        BillScreen::TearDown();
    }
    static QStringList neighbour()
    {
        return data().rows("Select GST_BillM.*,GST_BillD.* From GST_BillM,GST_BillD Where BillSrNo=70 and BillId=70")
               + data().rows("Select * From GST_OthCl Order by OthClSrNo");
    }
    static QString stored(const char *column)
    {
        return data()
            .rows(QStringLiteral("Select %1 From GST_BillM,GST_BillD Where BillSrNo=71 and BillId=71")
                      .arg(QLatin1String(column)))
            .join('\n');
    }

private:
    QStringList m_before;
};

class BadText : public BadInput, public testing::WithParamInterface<HostileText>
{
};

TEST_P(BadText, PastedIntoParticularsAndNarrationComesBackFromTheDatabase)
{
    const auto &[name, pasted, kept] = GetParam();
    open();
    keyHead("ASHOK");
    paste(pasted);
    press(Qt::Key_Tab, Qt::NoModifier, 4);
    type("1000");
    repaste("txtNarr", pasted);
    alt('U');
    ASSERT_FALSE(isEditing());
    EXPECT_EQ(stored("part"), kept);
    EXPECT_EQ(stored("Narr"), kept);
    EXPECT_EQ(cell(firstLine, ParticularsColumn), kept);
    EXPECT_EQ(text("txtNarr"), kept);
    alt('M');
    clickCell("vsB", firstLine, ParticularsColumn);
    alt('U');
    EXPECT_EQ(stored("part"), kept) << "changed and saved again";
    EXPECT_EQ(stored("Narr"), kept);
    alt('M');
    clickCell("vsB", firstLine + 1, ParticularsColumn);
    press(Qt::Key_F12);
    ASSERT_TRUE(isShown("vsListP"));
    boxes.expect("Please specify Valid 'Amount' !");
    find<QListWidget>("vsListP")->setCurrentItem(
        find<QListWidget>("vsListP")->findItems(kept, Qt::MatchExactly).value(0));
    press(Qt::Key_Return);
    EXPECT_EQ(cell(firstLine + 1, ParticularsColumn), kept) << "from the list of earlier ones";
    alt('U');
    alt('C');
}

TEST_P(BadText, PastedAsReceiverNameIsNoReceiver)
{
    open();
    alt('A');
    paste(GetParam().pasted);
    press(Qt::Key_Tab);
    EXPECT_EQ(text("txtpartynm"), "");
    boxes.expect("Please Select a 'Receiver'.");
    alt('U');
    EXPECT_EQ(storedBills().size(), 1);
    alt('C');
}

INSTANTIATE_TEST_SUITE_P(Texts, BadText, testing::ValuesIn(hostileTexts()),
                         [](const auto &row) { return row.param.name; });

TEST_F(BadInput, TextBeyondTheLimitIsCutBetweenCharacters)
{
    open();
    keyHead("ASHOK");
    paste("x" + QStringLiteral("😀").repeated(20'000));
    press(Qt::Key_Tab, Qt::NoModifier, 4);
    type("1000");
    repaste("txtNarr", QString(40'000, QChar(0x0915)));
    alt('U');
    ASSERT_FALSE(isEditing());
    EXPECT_EQ(stored("part"), "x" + QStringLiteral("😀").repeated(4'999));
    EXPECT_EQ(stored("Narr"), QString(10'000, QChar(0x0915)));
}

TEST_F(BadInput, TextsStoredElsewhereStayAsTheyAreUntilTheyAreTypedIn)
{
    data().run("Update GST_BillM Set Narr='Two\nlines' Where BillSrNo=70");
    data().run("Update GST_BillD Set part='Two\nlines' Where BillId=70");
    open();
    alt('M');
    clickCell("vsB", firstLine, ParticularsColumn);
    click("txtNarr");
    alt('U');
    EXPECT_FALSE(isEditing());
    EXPECT_EQ(data().rows("Select part,Narr From GST_BillM,GST_BillD"), QStringList{"Two\nlines|Two\nlines"});
    data().run("Update GST_BillM Set Narr='Narration 70'");
    data().run("Update GST_BillD Set part='Work 70'");
}

struct CellCase
{
    const char *name;
    QString pasted;
    const char *amount; ///< what an amount becomes; "!" the told message and an empty cell
    const char *rate;
};

void PrintTo(const CellCase &row, std::ostream *out)
{
    *out << row.name;
}

class BadNumber : public BadInput, public testing::WithParamInterface<CellCase>
{
public:
    /// Into the cell of the first line, by the clipboard; what stands there afterwards.
    void into(int column, const QString &text, const char *expected)
    {
        clickCell("vsB", firstLine, column);
        press(Qt::Key_A, Qt::ControlModifier);
        const bool refused = *expected == '!';
        if (refused)
            boxes.expect("Please Specify Valid Amount. Numeric Only.").icon(QMessageBox::Information);
        paste(text);
        press(Qt::Key_Tab);
        EXPECT_TRUE(boxes.wait());
        EXPECT_EQ(cell(firstLine, column), QLatin1String(refused ? "" : expected)) << "column " << column;
    }
};

TEST_P(BadNumber, BecomesANumberOrIsRefused)
{
    const CellCase &c = GetParam();
    open();
    keyHead("ASHOK");
    into(AmountColumn, c.pasted, c.amount);
    into(DiscountColumn, c.pasted, c.amount);
    into(CgstRateColumn, c.pasted, c.rate);
    boxes.expect("Do you want to Cancel Entry?", QMessageBox::Yes);
    find<QWidget>("txtNarr")->setFocus();
    press(Qt::Key_Escape);
    EXPECT_EQ(storedBills().size(), 1);
}

INSTANTIATE_TEST_SUITE_P(
    Cells, BadNumber,
    testing::Values(CellCase{"Grouped", "1,000", "!", "!"}, CellCase{"LettersBehind", "12abc", "!", "!"},
                    CellCase{"FifteenDigits", "123456789012345", "123456789012", "123456789012"},
                    CellCase{"Negative", "-5", "", ""}, CellCase{"Exponent", "1e5", "!", "!"},
                    CellCase{"ArabicDigit", "٣", "!", "!"}, CellCase{"DevanagariDigits", "१०००", "!", "!"},
                    CellCase{"Fullwidth", "１２", "!", "!"}, CellCase{"Percent", "18%", "18", "18"},
                    CellCase{"ManyDecimals", "12.34567", "12", "12.3457"}, CellCase{"TwoPoints", "1.2.3", "!", "!"},
                    CellCase{"SignAlone", "-", "!", "!"}, CellCase{"PercentAlone", "%", "", ""},
                    CellCase{"Blanks", "   ", "!", "!"}, CellCase{"LineBehind", "250\r\n", "250", "250"},
                    CellCase{"HalfRupee", "99.5", "100", "99.5"}, CellCase{"Infinity", "inf", "!", "!"},
                    CellCase{"Hexadecimal", "0x10", "!", "!"}, CellCase{"Rupees", "₹500", "!", "!"}),
    [](const auto &row) { return row.param.name; });

TEST_F(BadInput, LargestAmountsAreStoredAsTheyAreShown)
{
    enterBill("ASHOK", "Audit", "999999999999");
    press(Qt::Key_Tab);
    EXPECT_EQ(cell(firstLine, AmountColumn), "999999999999");
    alt('U');
    ASSERT_FALSE(isEditing());
    EXPECT_EQ(stored("ServAmt"), "999999999999");
    EXPECT_EQ(stored("CGST"), "90000000000");
    EXPECT_EQ(stored("TotalAmt"), "1179999999999");
    EXPECT_EQ(cell(2, TotalColumn), "1179999999999");
}

struct DateCase
{
    const char *name;
    QString typed;
    QString settled; ///< the date it becomes, or the message
};

void PrintTo(const DateCase &row, std::ostream *out)
{
    *out << row.name;
}

class BadDate : public BadInput, public testing::WithParamInterface<DateCase>
{
public:
    static bool isMessage(const QString &text) { return text.startsWith("Please"); }
    void check(const QString &settled)
    {
        if (isMessage(settled))
            boxes.expect(settled).icon(QMessageBox::Information);
        press(Qt::Key_Tab);
        EXPECT_TRUE(boxes.wait());
        EXPECT_EQ(focus(), QLatin1String(isMessage(settled) ? "txtbilldt" : "cboPOS"));
        if (!isMessage(settled)) {
            EXPECT_EQ(text("txtbilldt"), settled);
        }
    }
};

TEST_P(BadDate, IsCompletedRunsOverOrIsRefused)
{
    const DateCase &c = GetParam();
    open();
    alt('A');
    retype("txtbilldt", "");
    press(Qt::Key_Home);
    for (const QChar key : c.typed)
        pressLetter(key);
    check(c.settled);
    alt('C');
    EXPECT_EQ(storedBills().size(), 1);
}

const char *const outside = "Please Specify a Valid 'Bill Date' between 01/04/2024 and 31/03/2025.";
const char *const noDate = "Please Specify a Valid 'Bill Date'.";

INSTANTIATE_TEST_SUITE_P(
    Dates, BadDate,
    testing::Values(DateCase{"PastTheMonth", "31/02/2025", "03/03/2025"}, DateCase{"DayAndMonth", "1/6", "01/06/2024"},
                    DateCase{"DayAndMonthOfNextYear", "1/2", "01/02/2025"},
                    DateCase{"TwoDigitsOfTheYear", "1/6/24", "01/06/2024"},
                    DateCase{"WithDashes", "1-6-24", "01/06/2024"}, DateCase{"WithPoints", "01.06.2024", "01/06/2024"},
                    DateCase{"NoLeapYear", "29/02/2023", outside}, DateCase{"Zeros", "00/00/0000", outside},
                    DateCase{"Nines", "99/99/9999", outside}, DateCase{"DayZero", "00/05/2024", "30/04/2024"},
                    DateCase{"MonthThirteen", "01/13/2024", "01/01/2025"}, DateCase{"DayAlone", "15", noDate},
                    DateCase{"HalfAYear", "01/06/202", outside}, DateCase{"ShortNoSuchDay", "31/6", noDate},
                    DateCase{"ArabicDigits", "٠١٠٦٢٠٢٤", noDate}, DateCase{"Letters", "abc", "//"}),
    [](const auto &row) { return row.param.name; });

struct NumberCase
{
    const char *name;
    QString pasted;
    QString kept;
    const char *message; ///< "" when the number is taken
};

void PrintTo(const NumberCase &row, std::ostream *out)
{
    *out << row.name;
}

class BadBillNumber : public BadInput, public testing::WithParamInterface<NumberCase>
{
};

TEST_P(BadBillNumber, IsRefusedWithoutBeingChanged)
{
    const NumberCase &c = GetParam();
    open();
    alt('A');
    repaste("txtbillno", c.pasted);
    EXPECT_EQ(text("txtbillno"), c.kept);
    if (*c.message)
        boxes.expect(c.message).icon(QMessageBox::Information);
    press(Qt::Key_Tab);
    EXPECT_TRUE(boxes.wait());
    EXPECT_EQ(focus(), QLatin1String(*c.message ? "txtbillno" : "txtbilldt"));
    alt('C');
}

const char *const notNumeric = "Please Specify a Valid 'Bill No.' (Numeric Only)";
const char *const leadingZero = "Please Specify a Valid 'Bill No.' (Numeric Only not leading with Zero)";

INSTANTIATE_TEST_SUITE_P(Numbers, BadBillNumber,
                         testing::Values(NumberCase{"LetterBehind", "12a", "12a", leadingZero},
                                         NumberCase{"Blanks", " 7 ", " 7 ", leadingZero},
                                         NumberCase{"Zeros", "0009", "0009", leadingZero},
                                         NumberCase{"TwentyDigits", "12345678901234567890", "123456789", ""},
                                         NumberCase{"ArabicDigits", "٣٤", "٣٤", notNumeric},
                                         NumberCase{"Exponent", "1e3", "1e3", leadingZero},
                                         NumberCase{"Negative", "-4", "-4", leadingZero},
                                         NumberCase{"Statement", "1 or 1=1", "1 or 1=1", leadingZero},
                                         NumberCase{"Emoji", "😀", "😀", notNumeric}),
                         [](const auto &row) { return row.param.name; });

TEST_F(BadInput, BillNumberTakesNoDigitOfAnotherScriptFromTheKeys)
{
    open();
    alt('A');
    retype("txtbillno", "12");
    for (const char *key : {"٣", "५", "½", "😀"}) {
        boxes.expect("Enter Numeric Value.").icon(QMessageBox::Information);
        pressLetter(key);
        EXPECT_TRUE(boxes.wait()) << key;
        EXPECT_EQ(text("txtbillno"), "12") << key;
    }
    alt('C');
}

} // namespace
