#include "controls/FieldColour.h"

#include <QPalette>
#include <QVariant>
#include <QWidget>

namespace ledgora {

namespace {

constexpr auto focusedProperty = "fieldFocused";
constexpr auto refusedProperty = "fieldRefused";
constexpr auto plainProperty = "fieldPlainPalette";

/// A light peach and a light red, and their dark brothers where the desktop is dark.
QColor colourOf(bool refused, bool dark)
{
    if (refused)
        return dark ? QColor(0x70, 0x24, 0x24) : QColor(0xFF, 0xC6, 0xC6);
    return dark ? QColor(0x5A, 0x3C, 0x18) : QColor(0xFF, 0xE0, 0xC0);
}

void colour(QWidget &field)
{
    const bool refused = field.property(refusedProperty).toBool();
    const bool plain = !refused && !field.property(focusedProperty).toBool();
    const QVariant kept = field.property(plainProperty);
    if (plain && !kept.isValid())
        return;
    if (plain) {
        field.setPalette(kept.value<QPalette>());
        field.setProperty(plainProperty, {});
        return;
    }
    if (!kept.isValid())
        field.setProperty(plainProperty, field.testAttribute(Qt::WA_SetPalette) ? field.palette() : QPalette());
    auto coloured = field.property(plainProperty).value<QPalette>();
    const QColor shown = colourOf(refused, field.parentWidget()->palette().color(QPalette::Base).lightness() < 128);
    coloured.setColor(QPalette::Base, shown);
    coloured.setColor(QPalette::Button, shown); // a drop-down list is painted as one
    field.setPalette(coloured);
}

} // namespace

void showFocus(QWidget &field, bool focused)
{
    field.setProperty(focusedProperty, focused);
    colour(field);
}

void showRefused(QWidget &field, bool refused)
{
    field.setProperty(refusedProperty, refused);
    colour(field);
}

} // namespace ledgora
