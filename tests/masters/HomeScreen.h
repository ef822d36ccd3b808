#pragma once

#include "controls/ChoiceBox.h"
#include "host/WorkingState.h"
#include "store/Settings.h"
#include "tests/support/Screens.h"
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

namespace ledgora::test {

/// The home screen as a host opens it, and its password dialog under a user's keys.
class HomeScreen : public ScreenTest
{
protected:
    void open()
    {
        gst().OpenBilling();
        for (QWidget *window : QApplication::topLevelWidgets()) {
            if (window->objectName() == "frmMainGST" && window->isVisible())
                show(window);
        }
    }
    /// A command whose access key another has too: the key goes from one to the other, Enter gives the command.
    void command(const char *button, char letter)
    {
        for (int times = 0; times < 2 && focus() != button; ++times)
            alt(letter);
        EXPECT_EQ(focus(), button);
        press(Qt::Key_Return);
    }
    /// The frame that stands in front; the test fails when it is not one alone.
    QString frame() const
    {
        QStringList shown;
        for (const char *name : {"famFirmMain", "famFirmEdit", "famOthClMain", "famOthClEdit", "famSeriesMain",
                                 "famsett", "famUpdClGSTIN", "famTmplSetup"}) {
            if (isShown(name))
                shown << name;
        }
        return shown.join('+');
    }
    static int openScreens(const char *name)
    {
        const auto windows = QApplication::topLevelWidgets();
        return int(std::count_if(windows.begin(), windows.end(), [name](const QWidget *w) {
            return w->objectName() == QLatin1String(name) && w->isVisible();
        }));
    }
    static bool isBillScreenOpen() { return openScreens("frmBillGST") > 0; }

    /// The password dialog comes next, asks `caption`, and gets this password with Enter, or Esc for "".
    void expectPassword(const QString &caption, const QString &password)
    {
        boxes.expectDialog([caption, password](QWidget &dialog) {
            EXPECT_EQ(dialog.windowTitle(), caption);
            auto *field = dialog.findChild<QLineEdit *>("tpassword");
            ASSERT_NE(field, nullptr);
            EXPECT_EQ(field->echoMode(), QLineEdit::Password);
            if (password.isEmpty())
                return QTest::keyClick(&dialog, Qt::Key_Escape);
            QTest::keyClicks(field, password);
            QTest::keyClick(field, Qt::Key_Return);
        });
    }
    void choose(const char *list, const QString &entry)
    {
        find<ChoiceBox>(list)->setFocus();
        find<ChoiceBox>(list)->setCurrentIndex(-1);
        for (int i = 0; i < 50 && choice(list) != entry; ++i)
            press(Qt::Key_Down);
        EXPECT_EQ(choice(list), entry);
    }
    void chooseCommonTemplates() const { saveTemplateSetup(false, false, 0, 0); }
    static QStringList companies()
    {
        return data().rows("Select FirmSrNo,Nm,StateNm,Pass From GST_FirmMas Order by FirmSrNo");
    }
};

} // namespace ledgora::test
