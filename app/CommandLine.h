#pragma once

#include <QDate>
#include <QString>
#include <QStringList>
#include <optional>

namespace ledgora::app {

/// The words of a call of `ledgora`.
struct CommandLine
{
    enum class Command { Window, Demo, Balance, Help, Version, Wrong };
    Command command = Command::Window;
    QString dataFolder;                 ///< --data, else the XDG data folder
    QString host = QStringLiteral("C"); ///< --host: "C", "G" or "T"
    QString open;                       ///< --open: "gst" or ""
    QString out;                        ///< demo --out
    int firm = 0;                       ///< balance --firm
    QString party;                      ///< balance --party
    QDate today;                        ///< --today; invalid for the real day
    QString text;                       ///< what --help prints, or what is wrong
};

CommandLine readCommandLine(const QStringList &arguments);

/// DD/MM/YYYY or YYYY-MM-DD; nothing for anything else or a day that does not exist.
std::optional<QDate> dateArgument(const QString &text);

} // namespace ledgora::app
