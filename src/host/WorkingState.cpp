#include "host/WorkingState.h"

namespace ledgora {

QString gHostCode;
HostObject *gHostObj = nullptr;
Connection *gCnn = nullptr;
Reporter *gReporter = nullptr;
HostWindow *gMdi = nullptr;
QString gAppPath;
QString gTmplPath;
QString gTmpPath;
QString gLogPath;
qint16 gRegYr = 0;
QString gErrSite;
qint32 gFirmId = 0;
QString gFirmName;
QString gFirmStateCode;
bool gPassAsk = false;
QString gPassEntry;
qint16 gNameCase = 0;
qint16 gTmplCustom = 0;
qint16 gBillCopy = -1;
qint16 gRecpCopy = -1;

CompanyState CompanyState::current()
{
    return {gFirmId, gFirmName, gFirmStateCode, gNameCase, gTmplCustom, gBillCopy, gRecpCopy};
}

void CompanyState::apply() const
{
    gFirmId = firmId;
    gFirmName = firmName;
    gFirmStateCode = firmStateCode;
    gNameCase = nameCase;
    gTmplCustom = tmplCustom;
    gBillCopy = billCopy;
    gRecpCopy = recpCopy;
}

CompanyScope::CompanyScope(const CompanyState &company) : m_former(CompanyState::current())
{
    company.apply();
}

CompanyScope::~CompanyScope()
{
    m_former.apply();
}

} // namespace ledgora
