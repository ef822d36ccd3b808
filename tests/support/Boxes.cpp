#include "Boxes.h"
#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QProgressDialog>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <gtest/gtest.h>

namespace ledgora::test {

namespace {

constexpr int lookEveryMs = 5;

std::string describe(const QWidget &window)
{
    if (const auto *box = qobject_cast<const QMessageBox *>(&window))
        return "box \"" + box->text().toStdString() + '"';
    return std::string(window.metaObject()->className()) + " \"" + window.windowTitle().toStdString() + '"';
}

void closeWindow(QWidget &window)
{
    if (auto *dialog = qobject_cast<QDialog *>(&window))
        dialog->done(QDialog::Rejected);
    else
        window.close();
}

} // namespace

Boxes::Expected &Boxes::Expected::icon(QMessageBox::Icon icon)
{
    m_icon = icon;
    return *this;
}

Boxes::Expected &Boxes::Expected::defaultButton(QMessageBox::StandardButton button)
{
    m_default = button;
    return *this;
}

Boxes::Expected &Boxes::Expected::title(const QString &title)
{
    m_title = title;
    return *this;
}

Boxes::Boxes()
{
    QTimer::singleShot(lookEveryMs, &m_context, [this] { look(); });
}

Boxes::~Boxes()
{
    // Boxes posted by the last action still come, expected or not.
    QTest::qWait(2 * lookEveryMs);
    for (const Expected &expected : m_expected)
        ADD_FAILURE() << (expected.m_dialog ? "an expected dialog did not come"
                                            : "did not come: \"" + expected.m_text.toStdString() + '"');
}

Boxes::Expected &Boxes::expect(const QString &text, QMessageBox::StandardButton answer)
{
    Expected &expected = m_expected.emplace_back();
    expected.m_text = text;
    expected.m_answer = answer;
    return expected;
}

void Boxes::expectDialog(std::function<void(QWidget &)> use)
{
    m_expected.emplace_back().m_dialog = std::move(use);
}

bool Boxes::wait()
{
    return QTest::qWaitFor([this] { return m_expected.empty() && m_inHand.empty(); }, 1000);
}

void Boxes::look()
{
    // A timer of its own for each look: answering a box may run an event loop in which the next one opens.
    QTimer::singleShot(lookEveryMs, &m_context, [this] { look(); });
    QWidget *window = QApplication::activeModalWidget();
    // Under a window manager nobody answers a box before it has the keys.
    if (window && QGuiApplication::platformName() == "xcb" && !window->isActiveWindow())
        return;
    if (!window || std::ranges::find(m_inHand, window, &QPointer<QWidget>::data) != m_inHand.end())
        return;
    if (auto *box = qobject_cast<QMessageBox *>(window))
        answer(*box);
    else if (!qobject_cast<QProgressDialog *>(window) || (!m_expected.empty() && m_expected.front().m_dialog))
        useDialog(*window);
}

void Boxes::answer(QMessageBox &box)
{
    if (m_expected.empty())
        return refuse(box, QStringLiteral("nobody expected it"));
    const Expected expected = m_expected.front();
    if (expected.m_dialog)
        return refuse(box, QStringLiteral("a dialog was expected"));
    if (box.text() != expected.m_text)
        return refuse(box, QStringLiteral("expected was \"%1\"").arg(expected.m_text));
    m_expected.pop_front();

    const std::string what = describe(box);
    if (expected.m_icon) {
        EXPECT_EQ(box.icon(), *expected.m_icon) << what;
    }
    if (expected.m_default) {
        EXPECT_EQ(box.standardButton(box.defaultButton()), *expected.m_default) << what;
    }
    if (expected.m_title) {
        EXPECT_EQ(box.windowTitle(), *expected.m_title) << what;
    }
    QAbstractButton *button = box.button(expected.m_answer);
    if (!button)
        return refuse(box, QStringLiteral("it lacks the button of the answer"));
    button->click();
}

void Boxes::useDialog(QWidget &dialog)
{
    if (m_expected.empty() || !m_expected.front().m_dialog)
        return refuse(dialog, QStringLiteral("nobody expected it"));
    const Expected expected = m_expected.front();
    m_expected.pop_front();
    m_inHand.emplace_back(&dialog);
    expected.m_dialog(dialog);
    m_inHand.pop_back();
}

void Boxes::refuse(QWidget &window, const QString &text)
{
    ADD_FAILURE() << describe(window) << ": " << text.toStdString();
    closeWindow(window);
}

} // namespace ledgora::test
