// Two companies worked on at once: the bill screen of one stays its own, whatever the home screen chose since.

#include "bills/frmBillGST.h"
#include "tests/masters/HomeScreen.h"

using namespace ledgora;
using namespace ledgora::test;

namespace {

/// The company whose state was in force when each message box came up.
class AtBoxes : public QObject
{
public:
    AtBoxes() { qApp->installEventFilter(this); }
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Show && qobject_cast<QMessageBox *>(watched))
            firms << gFirmId;
        return false;
    }
    QList<int> firms;
};

/// ALPHA of Delhi with the common templates and BETA of Goa with its own in double copy; each has a client in its
/// state and a bill 1 of 100, in June.
class TwoCompanies : public HomeScreen
{
protected:
    enum Company { Alpha = 1, Beta };

    void SetUp() override
    {
        HomeScreen::SetUp();
        addCompany(Alpha, "ALPHA");
        addCompany(Beta, "BETA", "GOA");
        addClient(1, "ASHOK TRADERS", "DELHI");
        addClient(2, "GOMES & CO", "GOA");
        addBill(1, 1, QDate(2024, 6, 1), 1, 100);
        addBill(2, 1, QDate(2024, 6, 2), 2, 100);
        data().run("Update GST_BillM Set FirmId=2,Narr='Of Beta' Where BillSrNo=2");
        write("Settings.txt", "B_COPY=0\r\nR_COPY=0\r\n");
        write("2/Settings.txt", "CUSTOMIZED=Y\r\nB_COPY=1\r\nR_COPY=1\r\n");
        write("GST_NoTax_Bill.doc", "common");
        write("2/GST_NoTax_Bill_2Copy.doc", "own");
        open();
        m_home = screen();
    }
    void TearDown() override
    {
        delete m_home;
        ScreenTest::TearDown();
    }

    /// Chooses a company on the home screen and opens its bills; they have the keys then.
    QPointer<QWidget> openBills(Company company)
    {
        show(m_home);
        find<Grid>("vsFirm")->setFocus();
        press(company == Alpha ? Qt::Key_Up : Qt::Key_Down);
        alt('B');
        EXPECT_EQ(gFirmId, int(company));
        for (const QPointer<QWidget> bills : billScreens()) {
            if (bills->isActiveWindow()) {
                show(bills);
                return bills;
            }
        }
        ADD_FAILURE() << "the bills have not the keys";
        return {};
    }
    static QList<QWidget *> billScreens()
    {
        QList<QWidget *> screens;
        for (QWidget *window : QApplication::topLevelWidgets()) {
            if (window->objectName() == "frmBillGST" && window->isVisible())
                screens << window;
        }
        return screens;
    }
    void keyBill(const QString &party)
    {
        alt('A');
        type(party);
        press(Qt::Key_Return, Qt::NoModifier, 6);
        type("Audit");
        press(Qt::Key_Tab, Qt::NoModifier, 4);
        type("1000");
    }
    static QStringList stored()
    {
        return data().rows("Select FirmId,BillNo,PlaceOfServ,AppTaxType From GST_BillM Order by BillSrNo");
    }
    void homeStandsAt(Company company) const
    {
        EXPECT_EQ(gFirmId, int(company));
        EXPECT_EQ(gFirmName, company == Alpha ? "ALPHA" : "BETA");
        EXPECT_EQ(gFirmStateCode, company == Alpha ? "07" : "30");
        EXPECT_EQ(gBillCopy, company == Alpha ? 0 : 1);
    }

    QPointer<QWidget> m_home;

private:
    void write(const QString &name, const QByteArray &text) const
    {
        const QString path = folder() + "/GST_Templates/" + name;
        ASSERT_TRUE(QDir().mkpath(QFileInfo(path).path()));
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }
};

TEST_F(TwoCompanies, BillsKeyedInTurnAreStoredEachUnderItsOwn)
{
    const auto alpha = openBills(Alpha);
    keyBill("ASHOK");
    const auto beta = openBills(Beta); // the amount of the other bill is still being typed
    keyBill("GOMES");
    show(alpha);
    type("5");
    homeStandsAt(Beta);
    alt('U');
    show(beta);
    alt('U');
    homeStandsAt(Beta);
    EXPECT_EQ(stored().mid(2), (QStringList{"1|2|DELHI|INTRA", "2|2|GOA|INTRA"}));
    EXPECT_EQ(data().rows("Select BillId,ServAmt From GST_BillD Where BillId>2"), (QStringList{"3|10005", "4|1000"}));
}

TEST_F(TwoCompanies, SwitchingWindowsJudgesNoHalfTypedAmount)
{
    const auto alpha = openBills(Alpha);
    keyBill("ASHOK");
    type("x");
    openBills(Beta);
    show(alpha);
    press(Qt::Key_Backspace);
    press(Qt::Key_Tab);
    EXPECT_EQ(find<Grid>("vsB")->cells().text(3, 5), "1000");
    alt('C');
}

TEST_F(TwoCompanies, PartyListLeftOpenGivesTheTaxTypeOfItsOwnCompany)
{
    const auto alpha = openBills(Alpha);
    alt('A');
    type("GOMES");
    ASSERT_TRUE(isShown("vsListC"));
    openBills(Beta);
    show(alpha);
    press(Qt::Key_Return);
    EXPECT_EQ(text("txtpartynm"), "GOMES & CO");
    EXPECT_EQ(choice("cboTaxType"), "Inter-State (IGST)") << "Goa is another state for a company of Delhi";
    homeStandsAt(Beta);
    alt('C');
}

TEST_F(TwoCompanies, QuestionsAreAskedInTheirOwnCompany)
{
    const auto alpha = openBills(Alpha);
    keyBill("ASHOK");
    openBills(Beta);
    show(alpha);
    const AtBoxes at;
    boxes.expect("Do you want to Cancel Entry?", QMessageBox::No);
    press(Qt::Key_Escape, Qt::NoModifier, 2); // the first gives the changed cell back
    retype("txtbillno", "1");
    boxes.expect("Please specify Valid 'Amount' !");
    alt('U');
    type("1000");
    boxes.expect("Duplicate Bill No."); // of Alpha's bills, not Beta's
    alt('U');
    boxes.expect("Do you want to Cancel Entry?", QMessageBox::Yes);
    alpha->close();
    EXPECT_EQ(at.firms, QList<int>(4, Alpha));
    homeStandsAt(Beta);
    EXPECT_EQ(stored().size(), 2);
}

TEST_F(TwoCompanies, DeleteTakesTheBillOfItsOwnCompanyAndReloadsItsOwnList)
{
    const auto alpha = openBills(Alpha);
    openBills(Beta);
    show(alpha);
    boxes.expect("Do you want to Delete the Selected Bill No. 1?", QMessageBox::Yes);
    alt('D');
    EXPECT_EQ(stored(), QStringList{"2|1|DELHI|NO"});
    EXPECT_EQ(data().rows("Select BillId From GST_BillD"), QStringList{"2"});
    EXPECT_FALSE(find<Grid>("vsListB")->cells().hasData());
    find<QWidget>("cbofyr")->setFocus();
    press(Qt::Key_Up);
    press(Qt::Key_Down);
    EXPECT_FALSE(find<Grid>("vsListB")->cells().hasData()) << "the year chosen again";
    homeStandsAt(Beta);
}

TEST_F(TwoCompanies, PreviewTakesTheTemplateOfItsOwnCompany)
{
    const auto alpha = openBills(Alpha);
    const auto beta = openBills(Beta);
    show(alpha);
    alt('P');
    EXPECT_EQ(NotingReporter::asked().mid(0, 2), (QStringList{"newreportnew GST_NoTax_Bill.doc", "#FIRM_NAME#=Alpha"}));
    NotingReporter::asked().clear();
    show(m_home);
    find<Grid>("vsFirm")->setFocus();
    press(Qt::Key_Up);
    alt('T'); // the home screen moves to the first company's templates
    EXPECT_EQ(gFirmId, int(Alpha));
    show(beta);
    alt('P');
    EXPECT_EQ(NotingReporter::asked().mid(0, 2),
              (QStringList{"newreportnew GST_NoTax_Bill_2Copy.doc", "#FIRM_NAME#=Beta"}));
    EXPECT_EQ(gFirmId, int(Alpha));
}

TEST_F(TwoCompanies, EarlierNarrationsGoIntoTheBillOfTheScreenTheyWereAskedOn)
{
    const auto alpha = openBills(Alpha);
    keyBill("ASHOK");
    click("txtNarr");
    openBills(Beta);
    show(alpha);
    click("txtNarr");
    press(Qt::Key_F12);
    ASSERT_TRUE(isShown("vsListN"));
    press(Qt::Key_End);
    press(Qt::Key_Return);
    alt('U');
    EXPECT_EQ(data().rows("Select FirmId,Narr From GST_BillM Where BillSrNo=3"), QStringList{"1|Of Beta"});
    homeStandsAt(Beta);
}

TEST_F(TwoCompanies, OneBillScreenACompany)
{
    const auto alpha = openBills(Alpha);
    const auto beta = openBills(Beta);
    ASSERT_NE(alpha, beta);
    EXPECT_EQ(openBills(Alpha), alpha);
    EXPECT_EQ(billScreens().size(), 2);
    delete m_home; // closed and opened again
    open();
    m_home = screen();
    EXPECT_EQ(openBills(Beta), beta);
    EXPECT_EQ(openBills(Alpha), alpha);
    EXPECT_EQ(billScreens().size(), 2);
    alpha->close();
    EXPECT_EQ(openBills(Alpha)->windowTitle(), "GST Billing - ALPHA");
    EXPECT_EQ(billScreens().size(), 2);
}

TEST_F(TwoCompanies, HomeScreenIsThereOnce)
{
    alt('A');
    EXPECT_EQ(frame(), "famFirmEdit");
    for (const bool behindAnother : {false, true}) {
        m_home->setHidden(behindAnother);
        gst().OpenBilling();
        const auto windows = QApplication::topLevelWidgets();
        EXPECT_EQ(std::count_if(windows.begin(), windows.end(),
                                [](const QWidget *w) { return w->objectName() == "frmMainGST"; }),
                  1);
        EXPECT_EQ(frame(), "famFirmEdit") << "with what was being typed";
    }
}

TEST_F(TwoCompanies, ScreensGoWithTheirDeletedCompany)
{
    const auto bills = openBills(Beta);
    keyBill("GOMES");
    QList<QPointer<QWidget>> screens{bills};
    for (const char *command : {"cmdRecps", "cmdReports"}) {
        show(m_home);
        find<QWidget>(command)->setFocus();
        press(Qt::Key_Return);
        screens << QApplication::activeWindow();
        EXPECT_EQ(screens.back()->windowTitle().section(" - ", 1), "BETA");
    }
    show(m_home);
    boxes.expect("All the bills and receipts of the selected 'Company' will be deleted. Do you really want to "
                 "Delete the selected 'Company' ?",
                 QMessageBox::Yes);
    alt('D');
    for (const QPointer<QWidget> &screen : screens)
        EXPECT_TRUE(screen.isNull()) << "else a document could be saved under a company that is no more";
    addCompany(Beta, "GAMMA", "DELHI"); // ids are allotted anew
    delete m_home;
    open();
    m_home = screen();
    EXPECT_EQ(openBills(Beta)->windowTitle(), "GST Billing - GAMMA");
    EXPECT_EQ(gFirmStateCode, "07");
}

TEST_F(TwoCompanies, ScreenAskedForAgainIsUpToDateUnlessAnEntryIsOpenInIt)
{
    const auto beta = openBills(Beta);
    data().run("Update GST_FirmMas Set StateNm='DELHI',Nm='BETA OF DELHI' Where FirmSrNo=2");
    data().run("Insert Into GST_Series Values (1,'B',2024,'X/','P')");
    addClient(3, "NAIR STORES", "DELHI");
    const auto reopen = [this] {
        delete m_home; // its list has the company as it is now
        open();
        m_home = screen();
        return openBills(Beta);
    };
    show(beta);
    alt('A');
    EXPECT_EQ(reopen(), beta);
    EXPECT_EQ(beta->windowTitle(), "GST Billing - BETA") << "an entry goes on as it was begun";
    alt('C');
    EXPECT_EQ(beta->windowTitle(), "GST Billing - BETA OF DELHI") << "from its end on it is another";
    EXPECT_EQ(text("txtbillno"), "1") << "the bill that was shown";
    EXPECT_EQ(find<QComboBox>("cbosr")->count(), 2);
    keyBill("NAIR");
    EXPECT_EQ(choice("cboTaxType"), "Intra-State (CGST/SGST)");
    alt('C');
}

TEST_F(TwoCompanies, ScreenTakesOverWhatWasAlteredInItsCompany)
{
    const auto beta = openBills(Beta);
    show(m_home);
    alt('A');
    choose("cboFirmState", "DELHI (07)");
    alt('S');
    EXPECT_EQ(frame(), "famFirmMain");
    show(beta); // not asked for again: it only came to the front
    keyBill("ASHOK");
    EXPECT_EQ(choice("cboTaxType"), "Intra-State (CGST/SGST)");
    alt('C');
}

TEST_F(TwoCompanies, ReleasedByItsHostWithEntryAndDialogOpenItTakesAllScreensAlong)
{
    data().run("Update GST_FirmMas Set Pass='secret' Where FirmSrNo=2");
    delete m_home;
    open();
    m_home = screen();
    const auto alpha = openBills(Alpha);
    keyBill("ASHOK");
    show(m_home);
    find<Grid>("vsFirm")->setFocus();
    press(Qt::Key_Down);
    boxes.expectDialog([this](QWidget &) { release(); });
    alt('B');
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(alpha.isNull());
    EXPECT_TRUE(m_home.isNull());
    EXPECT_EQ(stored().size(), 2);
}

} // namespace
