#pragma once

#include <QMdiArea>

class QMenu;

namespace ledgora::app {

/// The middle of the main window: the screens, one in front, each with a frame that comes and goes with it. A screen
/// that does not fit can be scrolled, and follows the field that has the keys; the window never grows for it. While it
/// is empty it says how to begin.
class ScreenArea : public QMdiArea
{
    Q_OBJECT
public:
    explicit ScreenArea(QWidget *parent = nullptr);

    /// Shows a screen in front, and gives it the keys.
    void showScreen(QWidget &screen);
    /// Brings the screen to the front that was in front the longest time ago.
    void showNext();
    /// The screen in front, nothing when there is none.
    QWidget *front() const;
    /// Appends an entry for each open screen, which brings it to the front.
    void listScreens(QMenu &menu);

    /// Scrolls so that a field of a screen is seen.
    void bringIntoView(const QWidget *field);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void bringToFront(QMdiSubWindow &window);
};

} // namespace ledgora::app
