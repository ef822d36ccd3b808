#pragma once

#include "Backup.h"

namespace ledgora::app {

/// What a backup file is.
struct BackupLook
{
    QString fault;       ///< "" when it is a whole backup that this program can restore, else why not
    QString hostCode;    ///< of the office that it was made of
    qint64 unpacked = 0; ///< bytes that it holds
};

/// Reads a backup file from its beginning to its end. Needs no database.
BackupLook lookAtBackup(const QString &file, const Progress &progress);

struct RestoreResult
{
    QString fault;  ///< "" or why the office has its former data still
    QString former; ///< the backup file of the former data, "" when there was none
};

/// Puts the data of a backup in place of the office's: loads it aside, compares it, writes the former data into a
/// backup file in DIR/backups, then swaps all tables in one statement; a kill at any moment leaves the former data or
/// the new, never a mixture, files included (`finishRestore` at the next start). Nobody else may have the office open.
RestoreResult restoreBackup(const OfficeData &office, const QString &file, const Progress &progress);

/// When opening an office: completes a restore whose tables were swapped and that was ended then, and clears what a
/// restore or backup left that was ended before. "" or what is wrong.
QString finishRestore(Connection &db, const QString &dataFolder);

} // namespace ledgora::app
