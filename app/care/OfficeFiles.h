#pragma once

#include <QString>
#include <QStringList>
#include <functional>

namespace ledgora::app {

/// Where an office of that host has its templates, below its folder.
QString templateFolder(const QString &hostCode);

/// The files of an office's folder that belong to its data: settings, branches for the bank look-up, the templates of
/// any host. Paths below the folder, with "/"; in order.
QStringList officeFiles(const QString &dataFolder);

/// Whether a path from a backup names one of them and nothing outside.
bool isOfficeFile(const QString &path);

/// Writes a file of a backup into DIR/restore.new (mode 0600, folders 0700), down to the disk. "" or what went wrong.
QString keepForRestore(const QString &dataFolder, const QString &path, const QByteArray &content);
/// Makes that folder anew, empty. "" or what went wrong.
QString beginKeeping(const QString &dataFolder);
/// Puts what was kept in place of the office's own; can be run again after it was cut short. Files that the backup did
/// not have stay. "" or what went wrong.
QString takeKept(const QString &dataFolder);
/// Whether a restore has left anything there.
bool hasKept(const QString &dataFolder);
/// Throws away what was kept and not taken.
void dropKept(const QString &dataFolder);

} // namespace ledgora::app
