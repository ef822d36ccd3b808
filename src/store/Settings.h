#pragma once

#include <QString>

namespace ledgora {

/// A value of `Confg.ini` in `gAppPath` (UTF-8, sections and key=value lines), at most 255 characters; the default
/// when the file, the section or the key is missing.
QString GETSETTININI(const QString &section, const QString &key, const QString &defaultValue);

/// Writes a value, creating file and section as needed; unknown lines and keys are kept. An empty section does
/// nothing. False when the file could not be written (logged).
bool SAVESETTININI(const QString &section, const QString &key, const QString &value);

/// Refreshes `gNameCase`, `gTmplCustom`, `gBillCopy`, `gRecpCopy` for the company `gFirmId` and makes its folder.
void READTMPLSETUP();

/// Writes the template choice of the panel: the company's file when it is or was customised, the common file when the
/// default is chosen. Copy indexes: 0 single, 1 double. Returns False when a file could not be written.
bool saveTemplateSetup(bool customized, bool wasCustomized, int billCopy, int receiptCopy);

/// Parts of a path joined with "/" by one rule: no doubled separators, empty parts left out.
QString joinPath(const QString &folder, const QString &name);

/// The file in `folder` whose name equals `name` without regard to case, as a full path; the plain join when none.
QString findFile(const QString &folder, const QString &name);

} // namespace ledgora
