#pragma once

#include "OfficeChoice.h"
#include "PaperCommands.h"
#include "ReportCommand.h"
#include "care/SamplePlan.h"
#include <QDate>
#include <QString>
#include <QStringList>
#include <optional>

namespace ledgora::app {

/// The words of a call of `ledgora`.
struct CommandLine
{
    enum class Command {
        Window,
        Demo,
        Balance,
        Sample,
        Check,
        Backup,
        Restore,
        Bills,
        Receipts,
        Template,
        Report,
        Help,
        Version,
        Wrong
    };
    Command command = Command::Window;
    QString dataFolder;    ///< --data, else the XDG data folder
    ServerChoice server;   ///< --connect, --password-file; else as saved in the data folder
    QString host;          ///< --host: "C", "G" or "T"; "" for the office's own
    QString open;          ///< --open: "gst" or ""
    QString out;           ///< demo --out, backup --out
    int firm = 0;          ///< balance --firm; check --firm, balance --all --firm, 0 for all companies
    bool all = false;      ///< balance --all
    QString party;         ///< balance --party
    SamplePlan sample;     ///< sample --seed and its further options, settled
    QString from;          ///< restore --from
    bool daily = false;    ///< backup --daily
    PaperOptions paper;    ///< bills, receipts
    TemplateOptions templ; ///< template
    ReportOptions report;  ///< report
    QDate today;           ///< --today; invalid for the real day
    QString text;          ///< what --help prints, or what is wrong
};

CommandLine readCommandLine(const QStringList &arguments);

/// DD/MM/YYYY or YYYY-MM-DD; nothing for anything else or a day that does not exist.
std::optional<QDate> dateArgument(const QString &text);

} // namespace ledgora::app
