// The bar of long work: when it comes, what its Cancel does, and that it never outlives the work.

#include "controls/WorkBar.h"
#include <QApplication>
#include <QDeadlineTimer>
#include <QPushButton>
#include <gtest/gtest.h>

using namespace ledgora;

namespace {

QProgressDialog *bar()
{
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (auto *found = qobject_cast<QProgressDialog *>(window))
            return found;
    }
    return nullptr;
}

TEST(WorkBar, QuickWorkShowsNoneAndTheAnswerHasNothingInFrontOfIt)
{
    const bool seen = withWorkBar(nullptr, "Saving", [](const Progress &progress) {
        const bool goesOn = progress(1, 2, "Saving pages");
        return !goesOn || bar()->isVisible();
    });
    EXPECT_FALSE(seen);
    EXPECT_EQ(bar(), nullptr);
}

TEST(WorkBar, LongWorkShowsWhatIsDoneAndEndsByCancel)
{
    const QDeadlineTimer patience(30'000);
    const bool cancelled = withWorkBar(nullptr, "Saving", [&patience](const Progress &progress) {
        bool goesOn = true;
        while (goesOn && !patience.hasExpired()) {
            goesOn = progress(1, 4, "Saving pages");
            if (goesOn && bar()->isVisible()) {
                EXPECT_EQ(bar()->labelText(), "Saving pages");
                EXPECT_EQ(bar()->value() * 4, bar()->maximum());
                bar()->findChild<QPushButton *>()->click();
            }
        }
        return !goesOn;
    });
    EXPECT_TRUE(cancelled);
    EXPECT_EQ(bar(), nullptr);
}

} // namespace
