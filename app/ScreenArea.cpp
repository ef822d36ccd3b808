#include "ScreenArea.h"

#include <QApplication>
#include <QFocusEvent>
#include <QMdiSubWindow>
#include <QMenu>
#include <QPainter>
#include <QPointer>
#include <QScrollBar>
#include <algorithm>

namespace ledgora::app {

ScreenArea::ScreenArea(QWidget *parent) : QMdiArea(parent)
{
    setObjectName(QStringLiteral("screens"));
    setBackground(palette().window());
    setActivationOrder(ActivationHistoryOrder); // a closed preview gives way to its bill
    // Without bars the area, and the whole window with it, would become as large as its largest screen.
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget *, QWidget *now) { bringIntoView(now); });
}

void ScreenArea::showScreen(QWidget &screen)
{
    QMdiSubWindow *child = nullptr;
    for (QMdiSubWindow *window : subWindowList()) {
        if (window->widget() == &screen)
            child = window;
    }
    if (!child) {
        child = addSubWindow(&screen);
        child->setAttribute(Qt::WA_DeleteOnClose);
        connect(&screen, &QObject::destroyed, child, &QWidget::close); // a screen closes itself; its frame goes with it
    }
    screen.show();
    child->showMaximized();
    bringToFront(*child);
}

void ScreenArea::showNext()
{
    if (const auto windows = subWindowList(ActivationHistoryOrder); !windows.isEmpty())
        bringToFront(*windows.front());
}

/// The keys go straight to the field that had them: a frame that is activated by Tab passes them on to the next field.
void ScreenArea::bringToFront(QMdiSubWindow &window)
{
    const QPointer<QWidget> field = window.widget() ? window.widget()->focusWidget() : nullptr;
    QFocusEvent here(QEvent::FocusIn, Qt::ActiveWindowFocusReason);
    QCoreApplication::sendEvent(&window, &here);
    if (field && field->isVisible() && field->isEnabled())
        field->setFocus(Qt::ActiveWindowFocusReason);
    setActiveSubWindow(&window);
}

void ScreenArea::bringIntoView(const QWidget *field)
{
    if (!field || !viewport()->isAncestorOf(field) || field->visibleRegion().boundingRect() == field->rect())
        return;
    const QRect place(field->mapTo(viewport(), QPoint()), field->size());
    if (place.width() > viewport()->width() || place.height() > viewport()->height())
        return; // a list, which moves its own rows
    const auto scroll = [](QScrollBar &bar, int first, int last, int room) {
        if (first < 0 || last > room)
            bar.setValue(bar.value() + (first < 0 ? first : std::min(first, last - room)));
    };
    scroll(*horizontalScrollBar(), place.left(), place.right() + 1, viewport()->width());
    scroll(*verticalScrollBar(), place.top(), place.bottom() + 1, viewport()->height());
}

QWidget *ScreenArea::front() const
{
    const QMdiSubWindow *window = currentSubWindow();
    return window ? window->widget() : nullptr;
}

void ScreenArea::listScreens(QMenu &menu)
{
    int number = 0;
    for (QMdiSubWindow *window : subWindowList(CreationOrder)) {
        QString title = window->windowTitle();
        title.replace(u'&', QStringLiteral("&&"));
        ++number;
        QAction *entry = menu.addAction((number < 10 ? QStringLiteral("&%1  ").arg(number) : QString()) + title, this,
                                        [this, window] { bringToFront(*window); });
        entry->setCheckable(true);
        entry->setChecked(window == currentSubWindow());
    }
}

void ScreenArea::paintEvent(QPaintEvent *event)
{
    QMdiArea::paintEvent(event);
    if (!subWindowList().isEmpty())
        return;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(viewport()->rect(), Qt::AlignCenter,
                     QStringLiteral("Ctrl+G opens GST billing, Ctrl+L the clients of the office."));
}

} // namespace ledgora::app
