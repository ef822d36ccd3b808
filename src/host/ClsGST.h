#pragma once

#include "host/LiveObjects.h"
#include <QObject>
#include <QPointer>
#include <QString>
#include <memory>

namespace ledgora {

class Connection;
class HostObject;
class HostWindow;
class Reporter;
class Screen;

/// Entry object of the GST side. A host sets the properties, calls `CallBilling` once to open the working period and
/// `OpenBilling` to show the home screen; `GetAmt` answers a balance without any screen. The period ends when the
/// object goes, at any time, and closes the screens that are still open, entries included; the connection stays the
/// host's and must outlive the object.
class ClsGST
{
public:
    ClsGST();
    ClsGST(const ClsGST &) = delete;
    ClsGST &operator=(const ClsGST &) = delete;
    ~ClsGST();

    void ScreenRatX(float ratio) { m_ratX = ratio; }
    void ScreenRatY(float ratio) { m_ratY = ratio; }
    void ScreenRatFS(float ratio) { m_ratFS = ratio; }
    void GetRegYr(qint16 year);
    void AppPath(const QString &folder);
    void TmpPath(const QString &folder);
    void CnnObj(Connection *connection);
    void ObjMdi(HostWindow *window);

    /// Opens the working period of host "G" (interface version 3), "T" or "C" (2). The base objects of "G" and "T" are
    /// made through the `Registry` and tell folders, connection and year; for "C" the properties must have been set.
    /// False without a reason for a wrong access word, version, host code, or when base object, connection or report
    /// engine are missing; then no period is open and `OpenBilling` does nothing.
    bool CallBilling(const QString &accessWord, const QString &hostCode, qint16 version);

    /// Shows the home screen, there is one, and returns at once.
    void OpenBilling();

    /// What a client owes a company: bills less receipts (discount counts as received) of all years, in rupees.
    double GetAmt(qint32 firmId, const QString &codeNo);

private:
    void takeHost(const QString &hostCode);

    LiveObject m_live;
    float m_ratX = 1;
    float m_ratY = 1;
    float m_ratFS = 1;
    std::unique_ptr<HostObject> m_hostObject;
    std::unique_ptr<Reporter> m_reporter;
    QPointer<Screen> m_home;
};

} // namespace ledgora
