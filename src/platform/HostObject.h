#pragma once

#include <QString>

class QWidget;

namespace ledgora {

class Connection;

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

/// The base object of host "G", made through the `Registry` under its ProgID. No member throws.
class VeltrixHost : public HostObject
{
public:
    static constexpr auto progId = "VeltrixBase.ClsMain";

    /// Whether the host's own parts fit together; False is told to the user and ends nothing. Older hosts lack it.
    virtual bool CheckDllsVersion(bool) { return true; }
    virtual QString docpath() const = 0;  ///< folder of the host's data
    virtual QString vTmpPath() const = 0; ///< its temporary folder
    virtual Connection *dbobj() = 0;      ///< the host keeps it; nothing when it is not connected
    virtual qint16 GetRegYr() const = 0;  ///< the host's current year
};

/// The base object of the hosts that keep their data in one folder, each under a ProgID of its own. No member throws.
class DataHost : public HostObject
{
public:
    static constexpr auto progIdOfT = "Nestrel.ClsData";

    virtual QString AppPath() const = 0;  ///< folder of the host's data
    virtual QString vTmpPath() const = 0; ///< its temporary folder
    virtual Connection *CnnObj() = 0;     ///< the host keeps it; nothing when it is not connected
    virtual qint16 GetRegYr() const = 0;  ///< the host's current year; that of host "T" is one ahead
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
