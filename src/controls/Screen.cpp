#include "controls/Screen.h"

#include "controls/ChoiceBox.h"
#include "controls/CommandButton.h"
#include "controls/FieldColour.h"
#include "controls/Grid.h"
#include "controls/KeyGuard.h"
#include "controls/LineField.h"
#include "controls/VTxt.h"
#include "platform/HostObject.h"
#include "store/ErrorLog.h"
#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QDialog>
#include <QKeyEvent>
#include <QPointer>
#include <QScopedValueRollback>
#include <utility>

namespace ledgora {

namespace {

bool isEnter(const QKeyEvent *key)
{
    return key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
}

bool isTypedInto(const QWidget &widget)
{
    const auto *line = qobject_cast<const QLineEdit *>(&widget);
    return line ? !line->isReadOnly() : qobject_cast<const QComboBox *>(&widget) != nullptr;
}

} // namespace

/// Counts an event or handler of the screen while it runs; a screen that was dismissed meanwhile goes with the last.
class Screen::InHand
{
public:
    explicit InHand(Screen &screen) : m_screen(&screen) { ++screen.m_inHand; }
    InHand(const InHand &) = delete;
    InHand &operator=(const InHand &) = delete;
    ~InHand()
    {
        if (m_screen && --m_screen->m_inHand == 0 && m_screen->m_dismissed)
            m_screen->deleteLater();
    }

private:
    QPointer<Screen> m_screen;
};

Screen::Screen(QWidget *parent) : QWidget(parent)
{
    setAttribute(Qt::WA_DeleteOnClose);
    keepCommandsOutOfText(*this);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget *, QWidget *now) { focusMoved(now); });
}

/// A screen that goes moves the focus, of which it must hear no more.
Screen::~Screen()
{
    disconnect(qApp, nullptr, this, nullptr);
}

void Screen::present()
{
    if (gMdi)
        return gMdi->showScreen(*this);
    show();
    raise();
    activateWindow();
}

void Screen::dismiss()
{
    m_closed = true;
    if (m_inHand == 0) {
        delete this;
        return;
    }
    m_dismissed = true;
    for (QDialog *box : findChildren<QDialog *>())
        box->reject();
    hide();
}

Screen::Field &Screen::field(QWidget *widget)
{
    if (!m_fields.contains(widget))
        widget->installEventFilter(this);
    return m_fields[widget];
}

void Screen::enterMovesOn(std::initializer_list<QWidget *> widgets)
{
    for (QWidget *widget : widgets)
        field(widget).enterMovesOn = true;
}

void Screen::command(QAbstractButton *button, std::function<void()> handler)
{
    on(button, &QAbstractButton::clicked, [this, handler = std::move(handler)](bool) {
        mark(nullptr);
        if (settle())
            handler();
    });
}

void Screen::showAsDocument(QWidget &panel, bool browse)
{
    QPalette palette = panel.palette();
    for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, palette.color(QPalette::Active, role));
    panel.setPalette(palette);
    QPalette paper; // of what is only shown
    paper.setColor(QPalette::Base, Qt::transparent);
    for (QLineEdit *line : panel.findChildren<QLineEdit *>()) {
        if (qobject_cast<QComboBox *>(line->parentWidget()))
            continue; // a list that takes free text has a frame of its own
        const bool framed = !browse && !line->isReadOnly();
        const int frame = line->style()->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, line);
        line->setFrame(framed);
        line->setTextMargins(framed ? QMargins() : QMargins(frame, frame, frame, frame)); // nothing moves
        if (line->isReadOnly())
            line->setPalette(paper);
    }
    for (ChoiceBox *box : panel.findChildren<ChoiceBox *>())
        box->showAsText(browse);
}

void Screen::run(const std::function<void()> &handler)
{
    if (m_dismissed)
        return;
    const InHand inHand(*this);
    std::optional<CompanyScope> scope;
    if (m_company)
        scope.emplace(*m_company);
    try {
        handler();
    } catch (const std::bad_alloc &) {
        WriteErrLog(7, QStringLiteral("Out of memory"), objectName());
    }
}

bool Screen::settle()
{
    for (Grid *grid : findChildren<Grid *>())
        grid->commitEditor();
    if (showPosted())
        return false;
    for (VTxt *text : findChildren<VTxt *>()) {
        if (!text->settle())
            return false;
    }
    bool settled = true;
    run([&] { settled = applyFocusChanges(); });
    return settled;
}

void Screen::focusMoved(QWidget *now)
{
    if (!now || now == m_here || !isAncestorOf(now))
        return;
    if (!isVisible()) { // hidden by another screen, of which the keys only run away
        m_ranAway = true;
        return;
    }
    QWidget *before = m_here;
    if (std::exchange(m_ranAway, false) && before && before->isVisible() && before->isEnabled())
        return before->setFocus();
    if (before)
        m_focusChanges.push_back({before, true});
    m_focusChanges.push_back({now, false});
    settleOn(now);
    QMetaObject::invokeMethod(this, [this] { run([this] { applyFocusChanges(); }); }, Qt::QueuedConnection);
}

void Screen::settleOn(QWidget *field)
{
    if (m_here)
        showFocus(*m_here, false);
    m_here = field;
    if (isTypedInto(*field))
        showFocus(*field, true);
}

bool Screen::applyFocusChanges()
{
    if (m_applying)
        return true;
    const QScopedValueRollback applying(m_applying, true);
    while (!m_focusChanges.empty()) {
        const auto [field, left] = m_focusChanges.front();
        m_focusChanges.pop_front();
        if (!field)
            continue;
        if (!left) {
            enter(field);
        } else if (!leave(field)) {
            m_focusChanges.clear();
            field->setFocus();
            settleOn(field);
            enter(field); // as often as it refuses
            return false;
        }
    }
    return true;
}

/// Runs the rule for a field's getting the keys. A box may stand between them and the field still.
void Screen::enter(QWidget *widget)
{
    const auto rules = m_fields.constFind(widget);
    if (rules == m_fields.cend() || !rules->gotFocus || widget != m_here)
        return;
    const auto entered = rules->gotFocus; // which may add fields
    entered();
}

bool Screen::leavesUnchecked()
{
    const auto *button = qobject_cast<CommandButton *>(QApplication::focusWidget());
    return button && !button->causesValidation();
}

bool Screen::leave(QWidget *widget)
{
    const Field rules = m_fields.value(widget);
    if (widget == m_here)
        return true;
    // A frame that went away took its fields along unchecked: only a command that skips checks hides them.
    if (widget->isVisible() && !leavesUnchecked() && rules.validate && !rules.validate())
        return false;
    if (rules.lostFocus)
        rules.lostFocus();
    return true;
}

bool Screen::event(QEvent *event)
{
    const InHand inHand(*this);
    return QWidget::event(event);
}

bool Screen::eventFilter(QObject *watched, QEvent *event)
{
    const auto rules = m_fields.constFind(watched);
    if (rules == m_fields.cend())
        return QWidget::eventFilter(watched, event);
    if (event->type() == QEvent::KeyPress) {
        auto *key = static_cast<QKeyEvent *>(event);
        bool taken = false;
        if (const auto keyDown = rules->keyDown)
            run([&] { taken = keyDown(key); });
        if (taken)
            return true;
        if (isEnter(key) && m_fields.value(watched).enterMovesOn)
            return focusNextPrevChild(true);
    }
    return QWidget::eventFilter(watched, event);
}

void Screen::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        run([this] { escapePressed(); });
    else if (event->key() == Qt::Key_F1 && event->modifiers() == Qt::NoModifier)
        showOwnKeys();
    else
        QWidget::keyPressEvent(event);
}

/// Keys that were still here would go to the next control of the whole window, and the screen behind forget its own.
void Screen::closeEvent(QCloseEvent *event)
{
    QWidget::closeEvent(event);
    m_closed = event->isAccepted();
    if (QWidget *here = focusWidget(); here && m_closed)
        here->clearFocus();
}

void Screen::tellKeys(std::initializer_list<ScreenKey> keys)
{
    m_keys.insert(m_keys.end(), keys);
}

void Screen::showOwnKeys()
{
    std::vector<KeyRow> rows = accessKeys(*this);
    for (const ScreenKey &key : m_keys) {
        if (!key.where || (key.where->isVisible() && key.where->isEnabled()))
            rows.push_back({QLatin1String(key.key), QLatin1String(key.effect)});
    }
    rows.push_back({QStringLiteral("Tab, Shift+Tab"), QStringLiteral("To the next field, to the one before")});
    showKeys(*this, rows);
}

void Screen::inform(const QString &text, QWidget *field)
{
    QMessageBox box(QMessageBox::Information, windowTitle(), text, QMessageBox::Ok, this);
    box.setTextFormat(Qt::PlainText);
    box.exec();
    if (!field)
        return;
    mark(field);
    field->setFocus();
    // A refused date is typed over from its first digit; behind the last one its mask takes no key.
    if (auto *date = qobject_cast<DateField *>(field))
        date->home(false);
    else if (auto *line = qobject_cast<QLineEdit *>(field))
        line->selectAll();
}

/// A refused field bears its colour until it is changed, or a command judges anew.
void Screen::mark(QWidget *field)
{
    if (m_refused)
        showRefused(*m_refused, false);
    m_refused = field && isTypedInto(*field) ? field : nullptr;
    if (!m_refused)
        return;
    showRefused(*m_refused, true);
    const auto changed = [this] { mark(nullptr); };
    if (auto *line = qobject_cast<QLineEdit *>(field))
        connect(line, &QLineEdit::textEdited, this, changed, Qt::SingleShotConnection);
    else if (auto *box = qobject_cast<QComboBox *>(field))
        connect(box, &QComboBox::currentTextChanged, this, changed, Qt::SingleShotConnection);
}

void Screen::alarm(const QString &text)
{
    QMessageBox box(QMessageBox::Critical, windowTitle(), text, QMessageBox::Ok, this);
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

void Screen::post(const QString &text, std::function<void()> point)
{
    m_posted.push_back({text, std::move(point)});
    QMetaObject::invokeMethod(this, &Screen::showPosted, Qt::QueuedConnection);
}

bool Screen::showPosted()
{
    const bool any = !m_posted.empty();
    while (!m_posted.empty()) {
        const Posted posted = m_posted.front();
        m_posted.pop_front();
        if (posted.point)
            run(posted.point);
        inform(posted.text);
    }
    return any;
}

bool Screen::ask(const QString &text, QMessageBox::StandardButton defaultButton, QMessageBox::Icon icon)
{
    return choose(text, QMessageBox::Yes | QMessageBox::No, defaultButton, icon) == QMessageBox::Yes;
}

QMessageBox::StandardButton Screen::choose(const QString &text, QMessageBox::StandardButtons buttons,
                                           QMessageBox::StandardButton defaultButton, QMessageBox::Icon icon)
{
    QMessageBox box(icon, windowTitle(), text, buttons, this);
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(defaultButton);
    box.setEscapeButton(buttons.testFlag(QMessageBox::Cancel) ? QMessageBox::Cancel : QMessageBox::No);
    return static_cast<QMessageBox::StandardButton>(box.exec());
}

} // namespace ledgora
