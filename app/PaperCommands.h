#pragma once

#include "documents/DocumentChoice.h"
#include "documents/DocumentRun.h"
#include "documents/TemplateCheck.h"
#include <QString>

class QCommandLineParser;

namespace ledgora::app {

struct CommandLine;

/// The words of `ledgora bills` and `ledgora receipts`.
struct PaperOptions
{
    DocumentKind kind = DocumentKind::Bill;
    DocumentChoice choice;
    QString out; ///< --out: a folder, or with --one a file
    DocumentFormat format = DocumentFormat::Pdf;
    bool one = false;   ///< --one: all in one file
    bool quiet = false; ///< --quiet: no progress, no closing line
};

/// The words of `ledgora template check FILE`.
struct TemplateOptions
{
    QString file;
    TemplateUse use;
};

void addPaperOptions(QCommandLineParser &parser);
void addTemplateOptions(QCommandLineParser &parser);

/// Take what the words say; answer "" or what is wrong with them.
QString readPaperOptions(const QCommandLineParser &parser, DocumentKind kind, PaperOptions &options);
QString readTemplateOptions(const QCommandLineParser &parser, TemplateOptions &options);

/// Write the documents, or check the template; answer the exit status.
int runPaperCommand(const CommandLine &line);
int runTemplateCheck(const TemplateOptions &options);

} // namespace ledgora::app
