// Series and settings on the home screen, under a user's keys.

#include "HomeScreen.h"
#include <QRadioButton>

using namespace ledgora;
using namespace ledgora::test;

namespace {

class SeriesMaster : public HomeScreen
{
protected:
    static QStringList series() { return data().rows("Select * From GST_Series Order by SeriesSrNo"); }
    bool isChecked(const char *option) const { return find<QRadioButton>(option)->isChecked(); }
    QString row(int number) const
    {
        QStringList cells;
        for (int column = 1; column < 5; ++column)
            cells << find<Grid>("vsSeries")->cells().text(number, column);
        return cells.join('|');
    }
};

TEST_F(SeriesMaster, SeriesAreKeyedInAndChanged)
{
    open();
    alt('S');
    EXPECT_EQ(frame(), "famSeriesMain");
    EXPECT_EQ(row(0), "Bill / Receipt|F.Y.|Series|Suffix / Prefix");
    for (const char command : {'M', 'D'}) {
        boxes.expect("Please Select a Series.").icon(QMessageBox::Information);
        alt(command);
    }
    alt('A');
    EXPECT_EQ(focus(), "optSeriesB");
    boxes.expect("Please Specify Series Specification.").icon(QMessageBox::Information);
    alt('U');
    EXPECT_EQ(focus(), "txtSeriesStr");
    type("d'a/");
    boxes.expect("Please Specify Financial Year.");
    alt('U');
    EXPECT_EQ(focus(), "cboSeriesFY");
    EXPECT_EQ(find<ChoiceBox>("cboSeriesFY")->itemText(0), "2017-18");
    choose("cboSeriesFY", "2024-25");
    alt('U');
    EXPECT_EQ(series(), QStringList{"1|B|2024|D'A/|P"});
    EXPECT_EQ(focus(), "cmdSeriesAdd");

    alt('A');
    press(Qt::Key_Right); // to "Receipt"
    press(Qt::Key_Return);
    choose("cboSeriesFY", "2023-24");
    press(Qt::Key_Return);
    type("/R");
    press(Qt::Key_Return);
    press(Qt::Key_Right); // to "Suffix"
    alt('U');
    EXPECT_EQ(series().value(1), "2|R|2023|/R|S");
    EXPECT_EQ(row(1), "Receipt|2023-24|/R|Suffix") << "by text";
    find<Grid>("vsSeries")->setFocus();
    press(Qt::Key_Down);
    EXPECT_EQ(text("txtSeriesStr"), "D'A/");
    EXPECT_TRUE(isChecked("optSeriesB") && isChecked("optSeriesPrefix"));
    press(Qt::Key_Up);
    EXPECT_TRUE(isChecked("optSeriesR") && isChecked("optSeriesSuffix"));
    alt('M');
    EXPECT_EQ(focus(), "cboSeriesFY");
    EXPECT_FALSE(find<QWidget>("optSeriesB")->isEnabled());
    choose("cboSeriesFY", "2024-25"); // unused, so that its year may change
    retype("txtSeriesStr", "R##-A");
    alt('U');
    EXPECT_EQ(series().value(1), "2|R|2024|R##-A|S");
    EXPECT_EQ(focus(), "cmdSeriesModify");
    alt('D');
    EXPECT_EQ(series(), QStringList{"1|B|2024|D'A/|P"});
    EXPECT_EQ(text("txtSeriesStr"), "D'A/") << "the row now current is shown";
}

TEST_F(SeriesMaster, UsedSeriesKeepsItsYearAndStays)
{
    data().run("Insert Into GST_Series Values (1,'B',2024,'A/','P'),(2,'R',2024,'B/','P'),(9,'R',2024,'C/','P')");
    data().run("Insert Into GST_BillM (BillSrNo,FirmId,BillSerId) Values (1,77,1),(2,77,9)"); // 9: of receipts
    data().run("Insert Into GST_RecpM (RecpSrNo,FirmId,RecpSerId) Values (1,78,2)");
    open();
    alt('S');
    for (int used = 1; used <= 2; ++used) {
        boxes.expect("This Series has been Used. You can't Delete the Series.").icon(QMessageBox::Information);
        alt('D');
        alt('M');
        choose("cboSeriesFY", "2023-24");
        boxes.expect("This Series has been Used. You can't Modify the 'F.Y.' in the Series.");
        alt('U');
        choose("cboSeriesFY", "2024-25");
        retype("txtSeriesStr", "NEW" + QString::number(used));
        alt('U'); // sorted behind the others
        find<Grid>("vsSeries")->setRow(1);
    }
    alt('D'); // what bears number 9 is a bill
    EXPECT_EQ(series(), (QStringList{"1|B|2024|NEW1|P", "2|R|2024|NEW2|P"}));
}

TEST_F(SeriesMaster, EscapeCancelsFirstAndLeavesThen)
{
    data().run("Insert Into GST_Series Values (1,'R',2024,'A/','S')");
    open();
    alt('S');
    alt('M');
    retype("txtSeriesStr", "CHANGED");
    press(Qt::Key_Return);
    EXPECT_EQ(focus(), "optSeriesSuffix");
    press(Qt::Key_Escape);
    EXPECT_EQ(frame(), "famSeriesMain");
    EXPECT_EQ(text("txtSeriesStr"), "A/");
    EXPECT_EQ(focus(), "cmdSeriesModify");
    alt('A');
    EXPECT_TRUE(find<QWidget>("optSeriesR")->isEnabled()) << "after a modification too";
    press(Qt::Key_Return, Qt::NoModifier, 3);
    EXPECT_EQ(focus(), "optSeriesPrefix") << "the chosen option, not the one last in use";
    press(Qt::Key_Escape);
    EXPECT_EQ(focus(), "cmdSeriesAdd");
    press(Qt::Key_Escape);
    EXPECT_EQ(frame(), "famFirmMain");
    EXPECT_EQ(focus(), "cmdSeriesMas");
}

TEST_F(HomeScreen, SettingsAreKeptForAllCompanies)
{
    const auto stored = [] {
        QStringList values;
        for (const char *key : {"NameAdd_BR", "AddrOpt", "AddrOffNm"})
            values << GETSETTININI("Settings", key, "-");
        return values.join('|');
    };
    SAVESETTININI("Settings", "NameAdd_BR", "1");
    SAVESETTININI("Settings", "AddrOpt", "nonsense");
    gHostCode = "G"; // the host that knows the offices of individuals
    open();
    alt('I');
    EXPECT_EQ(choice("cbosett_0") + choice("cbosett_1") + choice("cbosett_2"), "Upper CaseResidentialYes");
    press(Qt::Key_Return);
    press(Qt::Key_End);
    EXPECT_EQ(choice("cbosett_1"), "Communication Address");
    press(Qt::Key_Escape);
    EXPECT_EQ(focus(), "cmdSettings");
    EXPECT_EQ(stored(), "1|nonsense|-");
    alt('I');
    choose("cbosett_0", "Proper Case");
    choose("cbosett_1", "Office (If Blank, Residential Address)");
    choose("cbosett_2", "No");
    alt('S');
    EXPECT_EQ(frame(), "famFirmMain");
    EXPECT_EQ(stored(), "0|3|1");

    delete screen();
    gHostCode = "C";
    open();
    alt('I');
    EXPECT_FALSE(isShown("cbosett_1") || isShown("lblsett_2"));
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_EQ(focus(), "cmdSettSave");
    press(Qt::Key_Return);
    EXPECT_EQ(stored(), "1|3|1");
}

} // namespace
