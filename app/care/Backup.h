#pragma once

#include "BackupFile.h"
#include "platform/Progress.h"

namespace ledgora::app {

/// Where an office's data is.
struct OfficeData
{
    Connection &db;
    QString hostCode;
    QString folder;
};

/// Writes all tables as of one moment and the files of the office's folder into a backup file, restores it into a
/// database beside the office's, compares every table, and only then puts the file in place of one of that name. Others
/// may work meanwhile. "" or why there is no backup; then a former file of that name is as it was.
QString makeBackup(const OfficeData &office, const QString &file, const Progress &progress);

} // namespace ledgora::app
