#pragma once

#include "Backup.h"

namespace ledgora::app {

/// "" when the file is a whole backup that this program can restore for the host, else why not. Needs no database.
QString backupFault(const QString &file, const QString &hostCode, const Progress &progress);

struct RestoreResult
{
    QString fault;  ///< "" or why the office has its former data still
    QString former; ///< the backup file of the former data, "" when there was none
};

/// Puts the data of a backup in place of the office's: loads it aside, compares it, writes the former data into a
/// backup file in DIR/backups, then swaps all tables in one statement; a kill at any moment leaves the former data or
/// the new, never a mixture, files included (`finishRestore` at the next start). Nobody else may have the office open.
RestoreResult restoreBackup(const OfficeData &office, const QString &file, const Progress &progress);

/// When opening an office: completes a restore whose tables were swapped and that was ended then. "" or what is wrong.
QString finishRestore(Connection &db, const QString &dataFolder);

} // namespace ledgora::app
