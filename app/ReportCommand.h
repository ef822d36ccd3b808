#pragma once

#include "reports/ReportRequest.h"
#include <QString>
#include <QStringList>

class QCommandLineParser;

namespace ledgora::app {

struct CommandLine;

/// The words of `ledgora report KIND`.
struct ReportOptions
{
    ReportRequest asked; ///< all but company name and parties, which the office knows
    QStringList parties; ///< --party: codes; none for all
    QString group;       ///< --group: its name or code
    QString out;         ///< --out: .pdf, .txt or .csv
};

void addReportOptions(QCommandLineParser &parser);
/// Takes what the words say; answers "" or what is wrong with them.
QString readReportOptions(const QCommandLineParser &parser, ReportOptions &options);

/// ">1000", ">= 1000", "=0"; "!=" and "<>" are one. False when it is no such test.
bool readAmountTest(const QString &text, AmountTest &test);

/// Writes the report; answers the exit status.
int runReportCommand(const CommandLine &line);

} // namespace ledgora::app
