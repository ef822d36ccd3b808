#include "host/ClsOth.h"

#include <QLayout>
#include <QWidget>
#include <cmath>

namespace ledgora {

namespace {

int scaled(int length, float ratio)
{
    return length <= 0 || length >= QWIDGETSIZE_MAX ? length : int(std::lround(double(length) * double(ratio)));
}

void scaleFont(QWidget &widget, float ratio)
{
    QFont font = widget.font();
    if (font.pointSizeF() > 0)
        font.setPointSizeF(std::round(font.pointSizeF() * ratio * 10) / 10);
    widget.setFont(font);
}

} // namespace

ClsOth::ClsOth(float ratioX, float ratioY, float ratioFontSize) : m_ratX(ratioX), m_ratY(ratioY), m_ratFS(ratioFontSize)
{
}

void ClsOth::Resize_For_Resolution(QWidget &screen)
{
    const bool unchanged = m_ratX == 1 && m_ratY == 1 && m_ratFS == 1;
    if (unchanged || m_ratX <= 0 || m_ratY <= 0 || m_ratFS <= 0)
        return;
    scaleFont(screen, m_ratFS);
    for (QWidget *widget : screen.findChildren<QWidget *>()) {
        // Fonts are inherited; only one that a widget was given itself still has the old size.
        if (widget->testAttribute(Qt::WA_SetFont))
            scaleFont(*widget, m_ratFS);
        widget->setMinimumSize(scaled(widget->minimumWidth(), m_ratX), scaled(widget->minimumHeight(), m_ratY));
        widget->setMaximumSize(scaled(widget->maximumWidth(), m_ratX), scaled(widget->maximumHeight(), m_ratY));
    }
    for (QLayout *layout : screen.findChildren<QLayout *>()) {
        const QMargins margins = layout->contentsMargins();
        layout->setContentsMargins(scaled(margins.left(), m_ratX), scaled(margins.top(), m_ratY),
                                   scaled(margins.right(), m_ratX), scaled(margins.bottom(), m_ratY));
        layout->setSpacing(scaled(layout->spacing(), m_ratX));
    }
    screen.resize(scaled(screen.width(), m_ratX), scaled(screen.height(), m_ratY));
}

} // namespace ledgora
