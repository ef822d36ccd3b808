#pragma once

#include "controls/KeysWindow.h"
#include "host/LiveObjects.h"
#include "host/WorkingState.h"
#include <QMessageBox>
#include <QPointer>
#include <QStringList>
#include <QWidget>
#include <deque>
#include <functional>
#include <optional>

class QAbstractButton;

namespace ledgora {

/// What all screens share: Enter as Tab where a field asks for it, Esc, the checks on leaving a field before any
/// command runs, the company that the screen was opened for, and the boundary at which a handler's failure ends.
///
/// Handlers are connected through `on` and `command`, never directly: so each runs with the working state of the
/// screen's own company. A move of the focus only queues what a field's leaving and entering causes; a box raised in
/// the middle of it would fight it for the focus. A field is left when another one of the screen has the keys: boxes,
/// menus, drop-down lists, other screens and windows leave it as it is.
class Screen : public QWidget
{
    Q_OBJECT
public:
    explicit Screen(QWidget *parent = nullptr);
    ~Screen() override;

    /// Finishes what is being typed: commits a cell editor, runs the check and the lost-focus rule of the field just
    /// left. False when the field refuses; then its message was shown and it has the focus again.
    bool settle();

    /// Shows the screen in the host's window, or as a window of its own where the host has none, and gives it the keys.
    void present();
    /// It was closed, and is there only until the present event is over.
    bool isClosed() const { return m_closed; }
    /// Ends the screen unasked, boxes above it included: at once, or, when it is called out of one of its own handlers,
    /// as soon as that returns.
    void dismiss();

    /// A plain box with one OK button. `field`, when given, is entered afterwards as if by Tab: what stands in it is
    /// typed over. Without one the cursor is where it was.
    void inform(const QString &text, QWidget *field = nullptr);
    void alarm(const QString &text);
    /// A plain box that comes when the present event is over; a command given meanwhile shows it at once and does not
    /// run, since what it tells of has changed what the command would work on. `point` runs just before it
    /// is shown and puts the cursor where it belongs to.
    void post(const QString &text, std::function<void()> point = {});
    /// A question with Yes and No.
    bool ask(const QString &text, QMessageBox::StandardButton defaultButton = QMessageBox::Yes,
             QMessageBox::Icon icon = QMessageBox::Question);
    /// The same with other buttons. Closing the box is Cancel where there is one, else No.
    QMessageBox::StandardButton choose(const QString &text, QMessageBox::StandardButtons buttons,
                                       QMessageBox::StandardButton defaultButton,
                                       QMessageBox::Icon icon = QMessageBox::Question);

protected:
    /// What happens around a field, besides its own keys.
    struct Field
    {
        std::function<void()> gotFocus;
        std::function<bool()> validate; ///< False keeps the focus; shows its own message
        std::function<void()> lostFocus;
        std::function<bool(QKeyEvent *)> keyDown; ///< True when it took the key
        bool enterMovesOn = false;
    };
    Field &field(QWidget *widget);
    void enterMovesOn(std::initializer_list<QWidget *> widgets);

    /// Runs `handler` for a signal, inside the screen's company and boundary.
    template<class Sender, class Signal, class Handler>
    void on(Sender *sender, Signal signal, Handler handler)
    {
        connect(sender, signal, this, [this, handler](auto &&...arguments) {
            run([&] { handler(std::forward<decltype(arguments)>(arguments)...); });
        });
    }

    /// Runs `handler` for a click of the button, after `settle`.
    void command(QAbstractButton *button, std::function<void()> handler);

    /// A panel that is off while its records are browsed reads as a document: full ink, no boxes.
    static void showAsDocument(QWidget &panel, bool browse);

    /// A key of the screen that no caption shows, for its window of keys (F1). It is listed while `where` can be used;
    /// no widget for one that always holds.
    struct ScreenKey
    {
        const QWidget *where;
        const char *key;
        const char *effect;
    };
    void tellKeys(std::initializer_list<ScreenKey> keys);

    /// Every handler of this screen runs with this company from now on.
    void bindToCompany(const CompanyState &company) { m_company = company; }
    CompanyState boundCompany() const { return m_company.value_or(CompanyState()); }

    void run(const std::function<void()> &handler);

    /// Whether the command that takes the focus just now does without the checks of what is left: Cancel and Back do.
    static bool leavesUnchecked();

    /// Esc, when nothing above the screen took it.
    virtual void escapePressed() = 0;

    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    struct FocusChange
    {
        QPointer<QWidget> field;
        bool left;
    };
    void focusMoved(QWidget *now);
    void settleOn(QWidget *field);
    bool applyFocusChanges();
    void enter(QWidget *widget);
    void mark(QWidget *field);
    bool showPosted();
    bool leave(QWidget *widget);
    void showOwnKeys();

    class InHand;

    LiveObject m_live;
    bool m_closed = false;
    bool m_dismissed = false;
    int m_inHand = 0; ///< events and handlers of the screen that are running
    QHash<QObject *, Field> m_fields;
    QPointer<QWidget> m_here; ///< what has the keys, or will have them when they come back to the screen
    bool m_ranAway = false;   ///< the keys left it when the screen was hidden
    QPointer<QWidget> m_refused;
    std::deque<FocusChange> m_focusChanges;
    bool m_applying = false;
    struct Posted
    {
        QString text;
        std::function<void()> point;
    };
    std::deque<Posted> m_posted;
    std::optional<CompanyState> m_company;
    std::vector<ScreenKey> m_keys;
};

} // namespace ledgora
