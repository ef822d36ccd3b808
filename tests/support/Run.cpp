#include "Run.h"

#include "store/Dates.h"
#include <QApplication>
#include <QLocale>
#include <QStyleFactory>
#include <QTemporaryDir>
#include <clocale>
#include <cstdio>
#include <gtest/gtest.h>

namespace {

/// What the windowless platform can not do is no news; all else that Qt says is shown.
void showMessage(QtMsgType, const QMessageLogContext &, const QString &text)
{
    if (!text.startsWith(QLatin1String("This plugin does not support")))
        std::fprintf(stderr, "%s\n", qPrintable(text));
}

/// Every test begins on the same day; one that sets another spoils nothing for the next.
class FixedDay : public testing::EmptyTestEventListener
{
public:
    void OnTestSuiteStart(const testing::TestSuite &) override { begin(); }
    void OnTestStart(const testing::TestInfo &) override { begin(); }

private:
    static void begin() { ledgora::setToday(QDate(2024, 6, 15)); }
};

} // namespace

int ledgora::test::runTests(int argc, char **argv, const char *platform)
{
    qputenv("QT_QPA_PLATFORM", platform);
    qputenv("TZ", "Asia/Kolkata");
    // File dialogs begin in the folder where the user's last one ended, and keep theirs: that is none of a test's.
    const QTemporaryDir settings;
    qputenv("XDG_CONFIG_HOME", settings.path().toLocal8Bit());
    qInstallMessageHandler(showMessage);
    QLocale::setDefault(QLocale::c());
    QApplication application(argc, argv);
    std::setlocale(LC_ALL, "C.UTF-8"); // NOLINT(concurrency-mt-unsafe): before any thread
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    QApplication::setEffectEnabled(Qt::UI_AnimateMenu, false);
    QApplication::setEffectEnabled(Qt::UI_AnimateCombo, false);
    testing::InitGoogleTest(&argc, argv);
    testing::UnitTest::GetInstance()->listeners().Append(new FixedDay); // owned by the list
    return RUN_ALL_TESTS();
}
