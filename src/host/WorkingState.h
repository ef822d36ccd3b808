#pragma once

#include <QString>

namespace ledgora {

class Connection;
class HostObject;
class HostWindow;
class Reporter;

// The working state: one set per running library, read directly by every screen and routine. `CallBilling` of the
// entry object fills it; hosts and support people know these names.

extern QString gHostCode;      ///< "G", "T" or "C" while a working period is open, else ""
extern HostObject *gHostObj;   ///< the host's base object
extern Connection *gCnn;       ///< the one connection; the host owns it
extern Reporter *gReporter;    ///< report and document engine, shared by all screens
extern HostWindow *gMdi;       ///< the host's main window, or nothing
extern QString gAppPath;       ///< folder of the host's data, no trailing separator
extern QString gTmplPath;      ///< GST template folder, no trailing separator
extern QString gTmpPath;       ///< the host's temporary folder
extern QString gLogPath;       ///< full path of the error log
extern qint16 gRegYr;          ///< the host's current year: the last financial year offered starts in it
extern QString gErrSite;       ///< place of the last failure: object name, TAB, procedure name
extern qint32 gFirmId;         ///< `FirmSrNo` of the chosen company
extern QString gFirmName;      ///< its name
extern QString gFirmStateCode; ///< its two-character state code
extern bool gPassAsk;          ///< which question the password dialog asks: True, that of the existing company
extern QString gPassEntry;     ///< what the password dialog returned; "" after Cancel
extern qint16 gNameCase;       ///< 0 names in proper case, else upper case
extern qint16 gTmplCustom;     ///< 1 when the company uses templates of its own
extern qint16 gBillCopy;       ///< 0 single, 1 double copy, -1 not chosen yet
extern qint16 gRecpCopy;       ///< likewise for receipts

/// The part of the working state that belongs to one company.
struct CompanyState
{
    qint32 firmId = 0;
    QString firmName;
    QString firmStateCode;
    qint16 nameCase = 0;
    qint16 tmplCustom = 0;
    qint16 billCopy = -1;
    qint16 recpCopy = -1;

    static CompanyState current();
    void apply() const;
};

/// While it lives the working state is that of one company; then the former one is back. Screens run every handler
/// inside such a scope, so that a bill of one company is never saved under another to which the home screen moved.
class CompanyScope
{
public:
    explicit CompanyScope(const CompanyState &company);
    CompanyScope(const CompanyScope &) = delete;
    CompanyScope &operator=(const CompanyScope &) = delete;
    ~CompanyScope();

private:
    CompanyState m_former;
};

} // namespace ledgora
