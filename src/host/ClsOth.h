#pragma once

#include "platform/HostObject.h"

namespace ledgora {

/// The base object of a host that has none of its own: it gives the screens what they ask of a host.
class ClsOth : public HostObject
{
public:
    ClsOth(float ratioX, float ratioY, float ratioFontSize);

    float vScreenRatX() const override { return m_ratX; }
    float vScreenRatY() const override { return m_ratY; }
    float vScreenRatFS() const override { return m_ratFS; }

    /// Rescales a screen that was laid out for the reference display: fonts by the font ratio; fixed and minimum
    /// sizes and the spacing of layouts by the ratios of the axes. Nothing happens when all three are 1 or any is not
    /// above 0.
    void Resize_For_Resolution(QWidget &screen) override;

private:
    float m_ratX;
    float m_ratY;
    float m_ratFS;
};

} // namespace ledgora
