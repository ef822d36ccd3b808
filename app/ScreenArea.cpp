#include "ScreenArea.h"

#include <QMdiSubWindow>
#include <QMenu>
#include <QPainter>

namespace ledgora::app {

ScreenArea::ScreenArea(QWidget *parent) : QMdiArea(parent)
{
    setObjectName(QStringLiteral("screens"));
    setBackground(palette().window());
    setActivationOrder(ActivationHistoryOrder); // a closed preview gives way to its bill
    // Without bars the area, and the whole window with it, would become as large as its largest screen.
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
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
    setActiveSubWindow(child);
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
                                        [this, window] { setActiveSubWindow(window); });
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
