#include "controls/VTxt.h"

#include "support/Boxes.h"
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>
#include <QMimeData>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>
#include <gtest/gtest.h>

namespace ledgora {
namespace {

using test::Boxes;

class ValidatedText : public testing::Test
{
protected:
    ValidatedText()
    {
        auto *layout = new QVBoxLayout(&m_window);
        for (QWidget *widget : {static_cast<QWidget *>(&field), static_cast<QWidget *>(&next)})
            layout->addWidget(widget);
        m_window.show();
        m_window.activateWindow();
        field.setFocus();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&m_window));
    }
    ~ValidatedText() override { m_window.hide(); }

    void type(const QString &keys)
    {
        for (const QChar key : keys)
            QTest::keyClick(&field, key.toLatin1());
    }
    void leave()
    {
        next.setFocus();
        QCoreApplication::sendPostedEvents();
    }
    /// The focus of the window, also while a box that was just closed has not given the activation back.
    bool isFocused(const QWidget &widget) const { return m_window.focusWidget() == &widget; }
    std::string shown() const { return field.text().toStdString(); }

private:
    QWidget m_window;

public:
    VTxt field;
    QLineEdit next;
};

struct KeyCase
{
    int mode;
    const char *keys, *text;
    std::vector<const char *> messages;
};

TEST_F(ValidatedText, EachModeLetsItsKeysThrough)
{
    const KeyCase cases[] = {
        {0, "ab 1,'%z", "AB 1,'%Z", {}},
        {1, "+12-3", "+12-3", {}},
        {1, "1.a", "1", {"Enter Numeric value", "Enter Numeric value"}},
        {2, "ab c1", "AB C", {"Enter Alphabets only"}},
        {3, "a1 b", "A1B", {"Enter AlphaNumeric Characters Only"}},
        {4, "-1.234", "-1.23", {}},
        {4, "5x", "5", {"Enter Numeric value"}},
        {4, "5.25.", "5.25", {}},
        {5, "31-12/", "31-12", {"Invalid Data"}},
        {6, "a1", "1", {"Invalid Data"}},
    };
    for (const auto &c : cases) {
        field.clear();
        field.setValidateData(c.mode);
        Boxes boxes;
        for (const char *message : c.messages)
            boxes.expect(message);
        type(c.keys);
        EXPECT_EQ(shown(), c.text) << "mode " << c.mode;
    }
}

TEST_F(ValidatedText, LimitIsTestedBeforeTheKeyJoins)
{
    field.setValidateData(1);
    field.setMaxLength(6);
    type("12345678");
    EXPECT_EQ(shown(), "1234567");
    type("+"); // a sign knows no limit
    EXPECT_EQ(shown(), "1234567+");
    field.selectAll();
    type("9"); // what is selected gives way
    EXPECT_EQ(shown(), "9");
}

TEST_F(ValidatedText, IncludedAndExcludedCharactersOutrankModeAndLimit)
{
    field.setValidateData(1);
    field.setMaxLength(2);
    field.setInclude("/X");
    field.setExclude("7");
    const QSignalSpy heard(&field, &VTxt::keyPressed);
    Boxes boxes;
    boxes.expect("InValid Data");
    type("12/x/73");
    EXPECT_EQ(shown(), "12/X/");
    EXPECT_EQ(heard.size(), 2); // the digits alone
}

TEST_F(ValidatedText, AmountAcceptsAgainWhenADecimalIsDeleted)
{
    field.setValidateData(4);
    type("12.34");
    QTest::keyClick(&field, Qt::Key_Home);
    type("9");
    EXPECT_EQ(shown(), "12.34");
    QTest::keyClick(&field, Qt::Key_End);
    QTest::keyClick(&field, Qt::Key_Backspace);
    type("5");
    EXPECT_EQ(shown(), "12.35");
}

TEST_F(ValidatedText, PastedTextRunsThroughTheSameFilter)
{
    field.setValidateData(3);
    field.setMaxLength(10);
    QApplication::clipboard()->setText(" abcpe1234f-xyz\n");
    Boxes boxes;
    boxes.expect("Enter AlphaNumeric Characters Only");
    QTest::keySequence(&field, QKeySequence::Paste);
    EXPECT_EQ(shown(), "ABCPE1234FX");

    field.clear();
    field.setValidateData(1);
    field.setMaxLength(2);
    QApplication::clipboard()->setText("++++++"); // no limit to signs when typed
    QTest::keySequence(&field, QKeySequence::Paste);
    EXPECT_EQ(shown(), "+++");
}

TEST_F(ValidatedText, MenuDropAndInputMethodRunThroughTheSameFilter)
{
    field.setValidateData(2);
    QApplication::clipboard()->setText("menu");
    QTimer::singleShot(0, &field, [] {
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        ASSERT_NE(menu, nullptr);
        for (QAction *action : menu->actions())
            if (action->text().startsWith("&Paste"))
                action->trigger();
        menu->close();
    });
    QContextMenuEvent menuKey(QContextMenuEvent::Keyboard, QPoint(1, 1), field.mapToGlobal(QPoint(1, 1)));
    QApplication::sendEvent(&field, &menuKey);
    EXPECT_EQ(shown(), "MENU");

    QInputMethodEvent composed;
    composed.setCommitString("ime");
    QApplication::sendEvent(&field, &composed);
    EXPECT_EQ(shown(), "MENUIME");

    QMimeData dropped;
    dropped.setText("drop");
    QDragEnterEvent enters(QPoint(5, 5), Qt::CopyAction, &dropped, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&field, &enters);
    QDropEvent drop(QPointF(field.width() - 5, 5), Qt::CopyAction, &dropped, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&field, &drop);
    EXPECT_EQ(shown(), "MENUIMEDROP");
}

TEST_F(ValidatedText, TextSetByCodeIsLeftAlone)
{
    field.setValidateData(1);
    field.setMaxLength(3);
    const QSignalSpy changed(&field, &QLineEdit::textChanged);
    field.setText("small letters");
    EXPECT_EQ(shown(), "small letters");
    EXPECT_EQ(changed.size(), 1);
}

struct CheckCase
{
    int mode, minLength;
    const char *text, *message; ///< "" when it passes
};

TEST_F(ValidatedText, CheckNamesTheFirstFault)
{
    const CheckCase cases[] = {
        {0, 10, "", ""},
        {0, 10, "  ABC  ", "Data must be at least of 10 characters"},
        {0, 3, "ABC", ""},
        {5, 0, "", ""},
        {5, 0, "31-12-2017", ""},
        {5, 0, "31/12/2017", ""},
        {5, 0, "31-13-2017", "Not a valid date"},
        {5, 0, "12-31-2017", "Not a valid date"},
        {5, 0, "29-02-2017", "Not a valid date"},
        {5, 0, "1-6-2017", "Date Format must be dd-mm-yyyy"},
        {5, 0, "31-12-17", "Date Format must be dd-mm-yyyy"},
        {5, 0, "1-12-20170", "Not a valid date"},
        {5, 0, "1-006-2017", "Not a valid date"},
        {6, 0, "31-12-17", ""},
        {6, 0, "31-13-17", "Not a valid date"},
        {6, 0, "31-12-2017", "Date Format dd-mm-yy"},
        {6, 0, "1-6-2017", "Date Format must be dd-mm-yy"},
    };
    for (const auto &c : cases) {
        field.setValidateData(c.mode);
        field.setMinLength(c.minLength);
        field.setText(c.text);
        Boxes boxes;
        if (*c.message)
            boxes.expect(c.message);
        EXPECT_EQ(field.Check_M(), !*c.message) << c.text;
    }
}

TEST_F(ValidatedText, LeavingFormatsAnAmountAndKeepsARefusedField)
{
    field.setValidateData(4);
    type("5");
    leave();
    EXPECT_EQ(shown(), "5.00");

    field.setFocus();
    EXPECT_EQ(field.selectedText().toStdString(), "5.00");
    field.setMinLength(6);
    Boxes boxes;
    boxes.expect("Data must be at least of 6 characters");
    next.setFocus();
    ASSERT_TRUE(boxes.wait());
    EXPECT_TRUE(isFocused(field));
    EXPECT_EQ(shown(), "5.00");
}

TEST_F(ValidatedText, TabAndEnterMoveOnOnlyPastTheCheck)
{
    field.setMinLength(3);
    type("ab");
    const QSignalSpy heard(&field, &VTxt::keyPressed);
    {
        Boxes boxes;
        for (const auto key : {Qt::Key_Tab, Qt::Key_Return}) {
            boxes.expect("Data must be at least of 3 characters");
            QTest::keyClick(&field, key);
            EXPECT_TRUE(isFocused(field));
        }
    }
    type("c");
    QTest::keyClick(&field, Qt::Key_Return);
    EXPECT_TRUE(isFocused(next));
    ASSERT_EQ(heard.size(), 3);
    EXPECT_EQ(heard.at(0).at(0).toInt(), 13);
    EXPECT_EQ(heard.at(1).at(0).toInt(), 'C');
    EXPECT_EQ(heard.at(2).at(0).toInt(), 13);
}

TEST_F(ValidatedText, CommandThatCausesNoValidationTakesTheFocusUnasked)
{
    field.setMinLength(3);
    type("ab");
    next.setProperty("causesValidation", false);
    Boxes boxes;
    next.setFocus();
    EXPECT_TRUE(field.settle());
    EXPECT_TRUE(isFocused(next));
}

TEST_F(ValidatedText, SettleFinishesAQueuedLeavingOnce)
{
    field.setValidateData(4);
    type("7");
    next.setFocus();
    EXPECT_EQ(shown(), "7");
    EXPECT_TRUE(field.settle());
    EXPECT_EQ(shown(), "7.00");
    field.setText("8"); // the queued call finds nothing left to do
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(shown(), "8");
}

TEST_F(ValidatedText, FieldInFocusHasALegibleColourOfItsOwn)
{
    const QPalette former = QApplication::palette();
    for (const QColor &base : {QColor(Qt::white), QColor(30, 30, 30)}) {
        leave();
        QPalette palette = former;
        palette.setColor(QPalette::Base, base);
        palette.setColor(QPalette::Text, base.lightness() < 128 ? Qt::white : Qt::black);
        QApplication::setPalette(palette);
        QCoreApplication::processEvents();
        field.setFocus();
        const QPalette coloured = field.palette();
        EXPECT_EQ(coloured.color(QPalette::Text), base.lightness() < 128 ? QColor(Qt::white) : QColor(Qt::black));
        EXPECT_NE(coloured.color(QPalette::Base), base);
        EXPECT_GT(qAbs(coloured.color(QPalette::Base).lightness() - coloured.color(QPalette::Text).lightness()), 120);
        leave();
        EXPECT_EQ(field.palette().color(QPalette::Base), base);
    }
    QApplication::setPalette(former);
}

} // namespace
} // namespace ledgora
