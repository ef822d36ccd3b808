#pragma once

#include "Backup.h"
#include <QDate>
#include <QStringList>

namespace ledgora::app {

class Office;

/// "daily-2024-06-15.ledgora", and "weekly-2024-06-10.ledgora" by the week's Monday.
QString dailyBackupName(QDate day);
QString weeklyBackupName(QDate day);

/// Which of the files in the folder of backups have had their day: all but the latest 7 daily and 8 weekly ones up to
/// the day, by their names, and all but the latest 3 from before a restore. Those of later days, of a clock that was
/// wrong, push none of them out; of these as many are kept. Files of other names are none of ours.
QStringList outdatedBackups(const QStringList &names, QDate day);

/// Removes those from the folder of backups, and the parts of backups that were killed. Under the lock of backups.
void removeOutdatedBackups(const QString &dataFolder, QDate day);

/// Makes the day's backup in DIR/backups unless it is there, keeps it as the week's when it is the first of the week,
/// and removes outdated ones once it is proved. An office without any data needs none; one that another program backs
/// up just now neither. "" or what went wrong.
QString makeDailyBackup(const OfficeData &office, QDate day);

/// After the start of the window: makes the day's backup in a program of its own beside it, at low priority, unless it
/// is there. Returns at once and needs neither the connection nor the window: a backup under way goes on when the
/// window is closed. A failure goes to the error log, and to `tell` in one line while the window lives.
void dailyBackup(const Office &office, QDate day, const std::function<void(const QString &text)> &tell,
                 const QString &program = {});

} // namespace ledgora::app
