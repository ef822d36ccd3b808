#pragma once

class QWidget;

namespace ledgora {

/// The base object of a host, which every screen asks while it loads and lays itself out. Ratios are those of the
/// user's display to the reference display; 1 is no change.
class HostObject
{
public:
    HostObject() = default;
    HostObject(const HostObject &) = delete;
    HostObject &operator=(const HostObject &) = delete;
    virtual ~HostObject() = default;

    virtual float vScreenRatX() const = 0;
    virtual float vScreenRatY() const = 0;
    virtual float vScreenRatFS() const = 0;
    virtual void Resize_For_Resolution(QWidget &screen) = 0;
};

/// The main window of a host that has one: takes screens as its children and is told when the home screen closes.
class HostWindow
{
public:
    HostWindow() = default;
    HostWindow(const HostWindow &) = delete;
    HostWindow &operator=(const HostWindow &) = delete;
    virtual ~HostWindow() = default;

    /// Makes the screen a child of the window and shows it, without waiting. The screen keeps its ownership rules
    /// (it deletes itself on closing).
    virtual void showScreen(QWidget &screen) = 0;
    /// The home screen has closed: the host's own menu is due again.
    virtual void ReloadMenu() = 0;
};

} // namespace ledgora
