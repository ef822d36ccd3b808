#include "controls/VTxt.h"

#include "controls/FieldColour.h"
#include "controls/OneLine.h"
#include "store/Dates.h"
#include "store/NumberFormat.h"
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QPointer>
#include <algorithm>
#include <memory>
#include <utility>

namespace ledgora {

namespace {

constexpr int countedCharacters = 50; // of the lists of characters always let through or refused
constexpr int enterKey = 13;

bool isDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

bool isCapital(QChar c)
{
    return c >= u'A' && c <= u'Z';
}

bool isSign(QChar c)
{
    return c == u'+' || c == u'-';
}

/// The keys of one mode besides the signs, and what is said of others.
struct ModeKeys
{
    bool (*accepts)(QChar);
    const char *message;
};

ModeKeys keysOf(int mode)
{
    switch (mode) {
    case TextRule::Number:
        return {isDigit, "Enter Numeric value"};
    case TextRule::Letters:
        return {[](QChar c) { return c == u' ' || isCapital(c); }, "Enter Alphabets only"};
    case TextRule::LettersAndDigits:
        return {[](QChar c) { return isCapital(c) || isDigit(c); }, "Enter AlphaNumeric Characters Only"};
    case TextRule::Amount:
        return {[](QChar c) { return c == u'.' || isDigit(c); }, "Enter Numeric value"};
    case TextRule::LongDate:
    case TextRule::ShortDate:
        return {[](QChar c) { return c == u'-' || isDigit(c); }, "Invalid Data"};
    default:
        return {[](QChar) { return true; }, ""};
    }
}

/// True when two decimals stand already, wherever the next key would go.
bool hasTwoDecimals(const QString &text)
{
    const auto point = text.indexOf(u'.');
    return point >= 0 && text.size() - point > 2;
}

QString dateFault(const QString &text, qsizetype length, const char *lengthFault, const char *separatorFault)
{
    if (!isDateText(text)) // a month above 12 is none
        return QStringLiteral("Not a valid date");
    if (text.size() != length)
        return QString::fromLatin1(lengthFault);
    return QStringView(u"/-.").contains(text.at(2)) ? QString() : QString::fromLatin1(separatorFault);
}

/// The window that a widget stands in, a host's frame within its main window too.
const QWidget *frameOf(const QWidget *widget)
{
    while (!widget->isWindow() && widget->windowType() != Qt::SubWindow)
        widget = widget->parentWidget();
    return widget;
}

/// Cancel and its like take the focus without a check of what was typed.
bool skipsChecks(const QWidget *target)
{
    const QVariant causes = target ? target->property("causesValidation") : QVariant();
    return causes.isValid() && !causes.toBool();
}

} // namespace

TextRule::Answer TextRule::answer(const QString &standing, QChar key) const
{
    if (include.left(countedCharacters).contains(key))
        return {Verdict::PassedMute, {}};
    if (exclude.left(countedCharacters).contains(key))
        return {Verdict::Refused, QStringLiteral("InValid Data")};
    if ((mode == Number || mode == Amount) && isSign(key))
        return {Verdict::PassedMute, {}};
    const ModeKeys keys = keysOf(mode);
    if (!keys.accepts(key))
        return {Verdict::Refused, QString::fromLatin1(keys.message)};
    const QString text = standing.trimmed();
    if ((mode == Amount && hasTwoDecimals(text)) || text.size() > maxLength)
        return {Verdict::Refused, {}};
    return {Verdict::Passed, {}};
}

QString TextRule::fault(const QString &text) const
{
    if (text.isEmpty())
        return {};
    const QString trimmed = text.trimmed();
    if (trimmed.size() < minLength)
        return "Data must be at least of " + QString::number(minLength) + " characters";
    if (mode == ShortDate)
        return dateFault(trimmed, 8, "Date Format dd-mm-yy", "Date Format must be dd-mm-yy");
    if (mode == LongDate)
        return dateFault(trimmed, 10, "Date Format must be dd-mm-yyyy", "Date Format must be dd-mm-yyyy");
    return {};
}

QString TextRule::finished(const QString &text) const
{
    return mode == Amount && !text.isEmpty() ? formatNumber(Val(text), "0.00") : text;
}

VTxt::VTxt(QWidget *parent) : QLineEdit(parent)
{
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget *, QWidget *now) { focusMoved(now); });
}

bool VTxt::Check_M()
{
    const QString fault = m_rule.fault(text());
    if (fault.isEmpty())
        return true;
    say(fault);
    return false;
}

bool VTxt::settle()
{
    return !m_leaving || finishLeaving();
}

bool VTxt::event(QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return QLineEdit::event(event);
    const auto key = static_cast<QKeyEvent *>(event)->key();
    const bool tab = key == Qt::Key_Tab || key == Qt::Key_Backtab;
    if (!tab || Check_M())
        return QLineEdit::event(event);
    event->accept();
    return true;
}

void VTxt::keyPressEvent(QKeyEvent *event)
{
    const bool types = isTypedCharacter(event->text()) && !(event->modifiers() & Qt::ControlModifier);
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        pressEnter();
    else if (!isReadOnly() && event->matches(QKeySequence::Paste))
        enterText(QApplication::clipboard()->text());
    else if (!isReadOnly() && types)
        typeCharacter(event);
    else
        QLineEdit::keyPressEvent(event);
}

void VTxt::pressEnter()
{
    const QPointer<VTxt> alive(this);
    Q_EMIT keyPressed(enterKey);
    if (alive && Check_M() && alive)
        focusNextPrevChild(true);
}

QString VTxt::withoutSelection(qsizetype *cursor) const
{
    QString standing = text();
    if (hasSelectedText())
        standing.remove(selectionStart(), selectionLength());
    if (cursor)
        *cursor = hasSelectedText() ? selectionStart() : cursorPosition();
    return standing;
}

void VTxt::typeCharacter(QKeyEvent *event)
{
    const QString typed = event->text();
    const QString capital = typed.size() == 1 ? QString(typed.at(0).toUpper()) : typed;
    const TextRule::Answer answer = m_rule.answer(withoutSelection(nullptr), capital.at(0));
    if (answer.verdict == TextRule::Verdict::Refused) {
        event->accept();
        say(answer.message);
        return;
    }
    const QPointer<VTxt> alive(this);
    if (answer.verdict == TextRule::Verdict::Passed)
        Q_EMIT keyPressed(capital.at(0).unicode());
    if (!alive)
        return;
    QKeyEvent accepted(event->type(), event->key(), event->modifiers(), capital, event->isAutoRepeat());
    QLineEdit::keyPressEvent(&accepted);
    event->setAccepted(accepted.isAccepted());
}

/// What of a text may go in at the cursor, each character judged as if typed; the first message of a refused one.
QString VTxt::filtered(const QString &text, QString *message) const
{
    qsizetype cursor = 0;
    QString standing = withoutSelection(&cursor);
    QString accepted;
    for (qsizetype at = 0; at < text.size();) {
        const qsizetype width = text.at(at).isHighSurrogate() ? 2 : 1; // a text of one line has whole characters
        const QString capital = width == 1 ? QString(text.at(at).toUpper()) : text.mid(at, width);
        at += width;
        const TextRule::Answer answer = m_rule.answer(standing, capital.at(0));
        if (standing.trimmed().size() > m_rule.maxLength)
            break;
        if (answer.verdict == TextRule::Verdict::Refused) {
            if (message->isEmpty())
                *message = answer.message;
            continue;
        }
        standing.insert(cursor + accepted.size(), capital);
        accepted += capital;
    }
    return accepted;
}

void VTxt::enterText(const QString &text)
{
    QString message;
    const QString accepted = filtered(oneLine(text).trimmed(), &message);
    if (!accepted.isEmpty())
        insert(accepted);
    say(message);
}

void VTxt::inputMethodEvent(QInputMethodEvent *event)
{
    if (event->commitString().isEmpty()) {
        QLineEdit::inputMethodEvent(event);
        return;
    }
    QString message;
    QInputMethodEvent accepted(event->preeditString(), event->attributes());
    accepted.setCommitString(filtered(oneLine(event->commitString()), &message), event->replacementStart(),
                             event->replacementLength());
    QLineEdit::inputMethodEvent(&accepted);
    event->setAccepted(accepted.isAccepted());
    if (!message.isEmpty())
        QMetaObject::invokeMethod(this, [this, message] { say(message); }, Qt::QueuedConnection);
}

void VTxt::focusInEvent(QFocusEvent *event)
{
    QLineEdit::focusInEvent(event);
    m_selectOnPress = !m_entered && event->reason() == Qt::MouseFocusReason;
}

/// A field is left when another one of its window has the keys: boxes, menus and other windows leave it as it is.
void VTxt::focusMoved(const QWidget *now)
{
    if (now == this) {
        m_leaving = false;
        if (std::exchange(m_entered, true))
            return;
        selectAll();
        showFocus(*this, true);
    } else if (m_entered && now && frameOf(now) == frameOf(this) && !qobject_cast<const QMenuBar *>(now)) {
        m_entered = false;
        m_leaving = true; // a box raised here would fight for the focus
        QMetaObject::invokeMethod(this, [this] { settle(); }, Qt::QueuedConnection);
    }
}

bool VTxt::finishLeaving()
{
    m_leaving = false;
    const bool judged = isVisible() && isEnabled() && !skipsChecks(window()->focusWidget());
    const QString fault = judged ? m_rule.fault(text()) : QString();
    if (!fault.isEmpty()) {
        setFocus();
        say(fault);
        return false;
    }
    if (const QString finished = m_rule.finished(text()); finished != text())
        setText(finished);
    showFocus(*this, false);
    return true;
}

void VTxt::mousePressEvent(QMouseEvent *event)
{
    QLineEdit::mousePressEvent(event);
    if (m_selectOnPress)
        selectAll();
    m_selectOnPress = false;
}

void VTxt::mouseReleaseEvent(QMouseEvent *event)
{
    const bool pastes =
        event->button() == Qt::MiddleButton && !isReadOnly() && QApplication::clipboard()->supportsSelection();
    if (!pastes) {
        QLineEdit::mouseReleaseEvent(event);
        return;
    }
    setCursorPosition(cursorPositionAt(event->position().toPoint()));
    enterText(QApplication::clipboard()->text(QClipboard::Selection));
}

void VTxt::contextMenuEvent(QContextMenuEvent *event)
{
    const std::unique_ptr<QMenu> menu(createStandardContextMenu());
    const QList<QAction *> actions = menu->actions();
    const QString pasteText = QLineEdit::tr("&Paste"); // its action has no other name
    const auto paste = std::find_if(actions.begin(), actions.end(),
                                    [&](const QAction *action) { return action->text().startsWith(pasteText); });
    if (paste != actions.end()) {
        (*paste)->disconnect(this);
        connect(*paste, &QAction::triggered, this, [this] { enterText(QApplication::clipboard()->text()); });
    }
    menu->exec(event->globalPos());
}

void VTxt::dropEvent(QDropEvent *event)
{
    if (isReadOnly() || !event->mimeData()->hasText())
        return;
    if (event->source() != this) {
        setCursorPosition(cursorPositionAt(event->position().toPoint()));
        enterText(event->mimeData()->text());
    }
    event->setDropAction(Qt::CopyAction); // what was moved within the field would be taken away where it stood
    event->accept();
}

void VTxt::say(const QString &message)
{
    if (message.isEmpty())
        return;
    // On the heap: the screen with this field may go while the box stands open, and takes its children along.
    const QPointer<QMessageBox> box(
        new QMessageBox(QMessageBox::NoIcon, window()->windowTitle(), message, QMessageBox::Ok, this));
    box->setTextFormat(Qt::PlainText);
    box->exec();
    delete box;
}

} // namespace ledgora
