#pragma once

#include "platform/HostObject.h"
#include <functional>

namespace ledgora {

/// The base object of a host that has none of its own: it gives the screens what they ask of a host. Other host objects
/// may hold one for their own `Resize_For_Resolution`.
class ClsOth : public HostObject
{
public:
    ClsOth(float ratioX, float ratioY, float ratioFontSize);

    float vScreenRatX() const override { return m_ratX; }
    float vScreenRatY() const override { return m_ratY; }
    float vScreenRatFS() const override { return m_ratFS; }

    /// Rescales a screen that was laid out for the reference display, once, while it loads. Fonts are multiplied by the
    /// font ratio and rounded to one decimal; fixed, minimum and maximum sizes, margins, spacings and spacers by the
    /// ratios of the axes, and so is the geometry of what no layout places. Menus, lines, pictures and progress bars
    /// stay as they are. Nothing happens when all three ratios are 1 or any is not above 0.
    void Resize_For_Resolution(QWidget &screen) override;

private:
    float m_ratX;
    float m_ratY;
    float m_ratFS;
};

/// The font size to ask for, in points, so that no more than `wanted` is shown: lowered by tenths while `shown(size)`,
/// what a display makes of a size, is above what was asked; 0 when no size of the font fits.
double fittingFontSize(double wanted, const std::function<double(double size)> &shown);

} // namespace ledgora
