// Opening a working period as each host, and the rescaling of screens.

#include "host/ClsOth.h"
#include "host/WorkingState.h"
#include "platform/HostObject.h"
#include "platform/Registry.h"
#include "support/Screens.h"
#include <QGridLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

namespace ledgora::test {
namespace {

/// What the stand-in hosts of the running test answer.
struct Answers
{
    bool isWhole = true;
    Connection *connection = nullptr;
    qint16 year = 2024;
} answers;

template<class Base>
class Answering : public Base
{
public:
    float vScreenRatX() const override { return 1; }
    float vScreenRatY() const override { return 1; }
    float vScreenRatFS() const override { return 1; }
    void Resize_For_Resolution(QWidget &) override {}
    QString vTmpPath() const override { return QStringLiteral("/run/host"); }
    qint16 GetRegYr() const override { return answers.year; }
};
class OldHostG : public Answering<VeltrixHost>
{
public:
    QString docpath() const override { return QStringLiteral("/data/g/"); }
    Connection *dbobj() override { return answers.connection; }
};
class HostG : public OldHostG
{
public:
    bool CheckDllsVersion(bool) override { return answers.isWhole; }
};
class HostT : public Answering<DataHost>
{
public:
    QString AppPath() const override { return QStringLiteral("/data/t"); }
    Connection *CnnObj() override { return answers.connection; }
};

class CallBilling : public ScreenTest
{
protected:
    void SetUp() override
    {
        ScreenTest::SetUp();
        failuresAreExpected();
        answers = {true, &data().db(), 2024};
        Registry::instance().add<VeltrixHost>("VeltrixBase.ClsMain", [] { return std::make_unique<HostG>(); });
        Registry::instance().add<DataHost>("Nestrel.ClsData", [] { return std::make_unique<HostT>(); });
    }
    void TearDown() override
    {
        Registry::instance().remove("VeltrixBase.ClsMain");
        Registry::instance().remove("Nestrel.ClsData");
        ScreenTest::TearDown();
    }
    bool call(const QString &host, qint16 version) { return gst().CallBilling("ZoRbItWaLkErX", host, version); }
};

TEST_F(CallBilling, TakesFoldersYearAndLogFromTheHost)
{
    gst().AppPath("/data/c");
    gst().GetRegYr(2022);
    const struct
    {
        const char *host;
        qint16 version, year;
        QString paths; ///< data, templates, log
    } cases[] = {
        {"C", 2, 2022, "/data/c /data/c/GST_Templates /data/c/BrindleLogger.log"},
        {"G", 3, 2024, "/data/g/ /data/g/GST_Templates /data/g/VeltrixLog.log"},
        {"T", 2, 2023, "/data/t /data/t/MiscSoftData/GST_Templates /data/t/NestrelLogger.log"},
    };
    for (const auto &c : cases) {
        EXPECT_TRUE(call(c.host, c.version)) << c.host;
        EXPECT_EQ(gHostCode, c.host);
        EXPECT_EQ(gRegYr, c.year);
        EXPECT_EQ(QStringList({gAppPath, gTmplPath, gLogPath}).join(' '), c.paths);
        EXPECT_EQ(gCnn, &data().db());
        EXPECT_EQ(gTmpPath, *c.host == 'C' ? folder() : QString("/run/host"));
        ASSERT_TRUE(gHostObj && gReporter);
    }
}

TEST_F(CallBilling, RefusesInSilenceAndLeavesNoPeriodOpen)
{
    const struct
    {
        const char *rule, *word, *host;
        qint16 version;
    } cases[] = {{"word is exact", "zorbitwalkerx", "C", 2}, {"version of C", "ZoRbItWaLkErX", "C", 3},
                 {"version of G", "ZoRbItWaLkErX", "G", 2},  {"version of T", "ZoRbItWaLkErX", "T", 3},
                 {"code is exact", "ZoRbItWaLkErX", "g", 2}, {"older host", "ZoRbItWaLkErX", "F", 2},
                 {"no host", "ZoRbItWaLkErX", "", 2}};
    for (const auto &c : cases) {
        ASSERT_TRUE(call("C", 2));
        EXPECT_FALSE(gst().CallBilling(c.word, c.host, c.version)) << c.rule;
        EXPECT_EQ(gHostCode, "") << c.rule;
        gst().OpenBilling();
    }
    const std::pair<const char *, std::function<void()>> lacks[] = {
        {"connection", [] { answers.connection = nullptr; }},
        {"report engine",
         [] {
             answers.connection = &data().db();
             Registry::instance().remove(Reporter::progId);
         }},
        {"base object", [] { Registry::instance().remove("VeltrixBase.ClsMain"); }},
    };
    for (const auto &[what, remove] : lacks) {
        remove();
        EXPECT_FALSE(call("G", 3)) << what;
        EXPECT_EQ(gHostCode, "") << what;
    }
}

TEST_F(CallBilling, PartsThatDoNotFitAreToldAndEndNothing)
{
    answers.isWhole = false;
    boxes.expect("File [VeltrixBase.dll] is not compatible. Please update the latest software properly.")
        .icon(QMessageBox::Critical);
    EXPECT_TRUE(call("G", 3));
    EXPECT_TRUE(boxes.allCame());
    Registry::instance().add<VeltrixHost>("VeltrixBase.ClsMain", [] { return std::make_unique<OldHostG>(); });
    EXPECT_TRUE(call("G", 3)) << "an older host can not tell";
}

TEST(FittingFontSize, GoesDownByTenthsUntilNoMoreIsShown)
{
    const auto steps = [](double step) { return [step](double size) { return std::ceil(size / step) * step; }; };
    EXPECT_DOUBLE_EQ(fittingFontSize(10.3, [](double size) { return size; }), 10.3);
    EXPECT_DOUBLE_EQ(fittingFontSize(10.3, steps(0.5)), 10);
    EXPECT_EQ(fittingFontSize(10.3, [](double) { return 11; }), 0) << "a font of one size";
}

TEST(ResizeForResolution, ScalesFontsLimitsAndWhatNoLayoutPlaces)
{
    const auto build = [](QWidget &screen) {
        screen.resize(400, 300);
        QFont font = screen.font();
        font.setPointSizeF(10);
        screen.setFont(font);
        auto *layout = new QGridLayout(&screen);
        layout->setContentsMargins(8, 8, 8, 8);
        layout->setHorizontalSpacing(4);
        layout->setVerticalSpacing(6);
        auto *bold = new QLabel("bold", &screen);
        bold->setObjectName("bold");
        font.setBold(true);
        font.setPointSizeF(13);
        bold->setFont(font);
        layout->addWidget(bold, 0, 0);
        layout->addWidget(new QLabel("plain", &screen), 0, 1);
        auto *button = new QPushButton("button", &screen);
        button->setMinimumWidth(100);
        layout->addWidget(button, 1, 0);
        layout->addItem(new QSpacerItem(10, 20, QSizePolicy::Fixed, QSizePolicy::Fixed), 1, 1);
        auto *popup = new QLabel("popup", &screen);
        popup->setObjectName("popup");
        popup->setGeometry(10, 20, 30, 40);
        layout->addWidget(new QProgressBar(&screen), 2, 0);
    };
    QWidget screen;
    build(screen);
    ClsOth(1.5F, 2, 1.25F).Resize_For_Resolution(screen);
    EXPECT_EQ(screen.size(), QSize(600, 600));
    // No more than asked for, to one decimal, and less only as far as the display's pixels demand.
    const std::tuple<const char *, QWidget *, double> fonts[] = {
        {"the screen", &screen, 12.5},
        {"one of its own", screen.findChild<QLabel *>("bold"), 16.3},
        {"one of its parent", screen.findChild<QLabel *>("popup"), 12.5},
        {"a button's caption", screen.findChild<QPushButton *>(), 12.25},
        {"a bar stays", screen.findChild<QProgressBar *>(), 10}};
    for (const auto &[what, widget, wanted] : fonts) {
        EXPECT_LE(widget->fontInfo().pointSizeF(), wanted) << what;
        EXPECT_GT(widget->font().pointSizeF(), wanted - 0.8) << what;
    }
    EXPECT_TRUE(screen.findChild<QLabel *>("bold")->font().bold());
    EXPECT_EQ(screen.findChild<QPushButton *>()->minimumWidth(), 150);
    EXPECT_EQ(screen.findChild<QLabel *>("popup")->geometry(), QRect(15, 40, 45, 80));
    auto *layout = static_cast<QGridLayout *>(screen.layout());
    EXPECT_EQ(layout->contentsMargins(), QMargins(12, 16, 12, 16));
    EXPECT_EQ(layout->horizontalSpacing(), 6);
    EXPECT_EQ(layout->verticalSpacing(), 12);
    EXPECT_EQ(layout->itemAtPosition(1, 1)->sizeHint(), QSize(15, 40));

    for (const auto &[x, y, f] : {std::tuple(1.F, 1.F, 1.F), {0.F, 2.F, 2.F}, {2.F, 2.F, -1.F}}) {
        QWidget same;
        build(same);
        ClsOth(x, y, f).Resize_For_Resolution(same);
        EXPECT_EQ(same.size(), QSize(400, 300));
        EXPECT_EQ(same.font().pointSizeF(), 10);
    }
}

} // namespace
} // namespace ledgora::test
