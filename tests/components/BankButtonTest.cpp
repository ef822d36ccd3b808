// The bank look-up from the company's edit frame.

#include "masters/frmMainGST.h"
#include "platform/BankLookup.h"
#include "platform/Registry.h"
#include "support/Screens.h"

namespace ledgora::test {
namespace {

/// A look-up that notes what it was told and answers what the test wants.
class NotingLookup : public BankLookup
{
public:
    static inline BankChoice answer;
    static inline Connection *connectionLeft = nullptr;
    static inline QStringList told;

    void InitMe(const QString &appPath, Connection *&connection, const QString &logName, float ratX, float ratY,
                float ratFS) override
    {
        told = QStringList{appPath, logName, QString::number(ratX), QString::number(ratY), QString::number(ratFS)};
        if (connectionLeft)
            connection = connectionLeft;
    }
    void GetMICRIFSC(BankChoice &choice, const QString &bank, const QString &city, const QString &branch) override
    {
        told << choice[ChosenBank] << bank << city << branch;
        choice = answer;
    }
};

class BankButton : public ScreenTest
{
protected:
    void SetUp() override
    {
        ScreenTest::SetUp();
        NotingLookup::answer = {};
        NotingLookup::connectionLeft = nullptr;
        NotingLookup::told.clear();
        Registry::instance().add<BankLookup>(BankLookup::progId, [] { return std::make_unique<NotingLookup>(); });
        show(new frmMainGST);
        alt('C');
    }
    std::string bankFields() const
    {
        return QStringList{text("txtFirmBankNm"), text("txtFirmBankBr"), text("txtFirmBankIFSC")}
            .join('|')
            .toStdString();
    }
    void typeBank(const char *code)
    {
        retype("txtFirmBankNm", " OLD BANK ");
        retype("txtFirmCity", "MUMBAI ");
        retype("txtFirmBankIFSC", code);
    }
};

TEST_F(BankButton, GivesTheComponentWhatIsKnownAndTakesItsChoice)
{
    NotingLookup::answer = {"CITY BANK", "FORT", "CITY0000001", "400"};
    typeBank("");
    click("cmdIFSC");
    EXPECT_EQ(NotingLookup::told,
              (QStringList{folder(), "BrindleLogger.log", "1", "1", "1", "?", "OLD BANK", "MUMBAI", ""}));
    EXPECT_EQ(bankFields(), "CITY BANK|FORT|CITY0000001");
    EXPECT_EQ(focus(), "txtFirmBankIFSC");
}

/// The code that is to be replaced need not be right first.
TEST_F(BankButton, WorksFromAFieldWithAWrongCodeByMouseAndByKey)
{
    NotingLookup::answer = {"CITY BANK", "FORT", "CITY0000001", ""};
    typeBank("WRONG");
    click("cmdIFSC");
    EXPECT_EQ(bankFields(), "CITY BANK|FORT|CITY0000001");
    retype("txtFirmBankIFSC", "WRONG");
    press(Qt::Key_F12);
    EXPECT_EQ(bankFields(), "CITY BANK|FORT|CITY0000001");
}

TEST_F(BankButton, BackingOutChangesNothing)
{
    typeBank("SBIN0001234");
    click("cmdIFSC");
    EXPECT_EQ(NotingLookup::told.size(), 9);
    EXPECT_EQ(bankFields(), " OLD BANK ||SBIN0001234");
}

TEST_F(BankButton, SaysWhenThereIsNothingToLookIn)
{
    NotingLookup::answer = {"?", "", "", ""};
    typeBank("SBIN0001234");
    boxes.expect("Missing Latest Update File ! Please update the software again.");
    click("cmdIFSC");
    EXPECT_EQ(bankFields(), " OLD BANK ||SBIN0001234");
}

TEST_F(BankButton, SaysSoWithoutTheComponentAndLogsIt)
{
    failuresAreExpected();
    Registry::instance().remove(BankLookup::progId);
    boxes.expect("Missing Latest Update File ! Please update the software again.");
    click("cmdIFSC");
    EXPECT_TRUE(errorLog().contains("\tfrmMainGST\tCMDIFSC_CLICK\n")) << errorLog().toStdString();
}

TEST_F(BankButton, TakesTheConnectionThatTheComponentLeaves)
{
    NotingLookup::connectionLeft = &data().other();
    click("cmdIFSC");
    EXPECT_EQ(gCnn, &data().other());
}

TEST_F(BankButton, StandsOutsideTheTabOrderOfTheFields)
{
    click("txtFirmBankIFSC");
    press(Qt::Key_Tab);
    EXPECT_EQ(focus(), "txtFirmPayComments");
}

} // namespace
} // namespace ledgora::test
