#include "documents/DocumentRun.h"

#include "documents/MasterFile.h"
#include "documents/ReadyDocuments.h"
#include "documents/RunFolder.h"
#include "store/FailureWatch.h"
#include "store/Settings.h"
#include <QDir>
#include <QHash>
#include <QSet>
#include <functional>

namespace ledgora {

namespace {

constexpr qsizetype madeAtOnce = 200; ///< documents whose rows are read and held together
constexpr int pdfOption = 12;
constexpr int separatorFontSize = 2;
constexpr auto pageEnd = "\f\r\n";
constexpr qsizetype longestFileName = 200; ///< in bytes, what is put behind it not counted; file systems take 255

/// Makes the documents one after another; `use` answers "" or why one could not be made. False ends the run.
class Walk
{
public:
    Walk(Connection &db, DocumentKind kind, const QList<int> &ids, const Progress &progress)
        : m_watch(db)
        , m_source(db, kind)
        , m_ids(ids)
        , m_progress(progress)
    {
    }

    void each(RunResult &result, bool goesOn, const std::function<QString(const ReadyDocument &)> &use)
    {
        for (qsizetype from = 0; from < m_ids.size(); from += madeAtOnce) {
            const std::vector<ReadyDocument> documents = m_source.make(m_ids.mid(from, madeAtOnce));
            if (result.fault = m_watch.fault(); !result.fault.isEmpty())
                return; // lines or names may be missing in any of them
            for (const ReadyDocument &document : documents) {
                const QString fault = document.fault.isEmpty() ? use(document) : document.fault;
                if (fault.isEmpty())
                    ++result.documents;
                else
                    result.failures << document.name + ": " + fault;
                if (!fault.isEmpty() && !goesOn)
                    return;
                if (!m_progress(++m_done, m_ids.size(), document.name)) {
                    result.fault = QString::fromLatin1(cancelledText);
                    return;
                }
            }
        }
    }

private:
    FailureWatch m_watch;
    ReadyDocuments m_source;
    const QList<int> &m_ids;
    const Progress &m_progress;
    qint64 m_done = 0;
};

/// Names of files that no two documents of a run share, on file systems that are blind to case either.
class FileNames
{
public:
    explicit FileNames(const DocumentFiles &files) : m_files(files) {}

    QString of(const ReadyDocument &document)
    {
        QString stem = document.fileName;
        if (m_files.partyInName)
            appendPart(stem, "-", safeInFileName(document.partyName));
        while (stem.toUtf8().size() > longestFileName)
            stem.chop(stem.back().isLowSurrogate() ? 2 : 1);
        QString name = stem;
        for (int copy = 2; m_taken.contains(name.toLower()); ++copy)
            name = stem + '-' + QString::number(copy);
        m_taken.insert(name.toLower());
        return joinPath(m_files.folder, name + (m_files.format == DocumentFormat::Pdf ? ".pdf" : ".rtf"));
    }

private:
    const DocumentFiles &m_files;
    QSet<QString> m_taken;
};

void fillMaster(Reporter &reporter, const ReadyDocument &document)
{
    for (const Placeholder &placeholder : document.placeholders)
        reporter.NewSetText(placeholder.name, placeholder.value);
}

QString writeRtfFile(Reporter &reporter, const ReadyDocument &document, const QString &path)
{
    if (const QString fault = CHECKANDOPENMASTERFILE(reporter, document.templatePath); !fault.isEmpty())
        return fault;
    fillMaster(reporter, document);
    reporter.SaveMasterFile(path);
    return reporter.LastError();
}

QString addToPdfRun(Reporter &reporter, const ReadyDocument &document, const QString &path)
{
    if (const QString fault = CHECKANDOPENMASTERFILE(reporter, document.templatePath); !fault.isEmpty())
        return fault;
    fillMaster(reporter, document);
    reporter.AddMasterToPdf(path); // what fails is told at the end: files are made many at once
    return {};
}

/// Makes the files that are still due, and takes out what could not be made. `names` are the documents by their files.
void endPdfRun(Reporter &reporter, RunResult &result, const QHash<QString, QString> &names)
{
    for (const PdfFault &fault : reporter.EndPdfRun()) {
        if (result.files.removeOne(fault.path))
            --result.documents;
        result.failures << names.value(fault.path) + ": " + fault.reason;
    }
}

/// One more document of the report; `path` is a file of the run for it.
QString appendDocument(Reporter &reporter, const ReadyDocument &document, bool isFirst, const QString &path)
{
    if (isFirst) {
        reporter.WinModeReport(true);
        reporter.initReport(true, false);
        reporter.LoadPageSetup(document.templatePath);
    } else {
        reporter.initReport(false);
        reporter.SetFontSizeBeforeAppendFile(QString::fromLatin1(pageEnd), separatorFontSize);
    }
    if (const QString fault = writeRtfFile(reporter, document, path); !fault.isEmpty())
        return fault;
    reporter.AppendFile(path);
    return reporter.LastError();
}

QString folderFault(const QString &folder)
{
    return "Failed to Save to Directory [" + folder + "].";
}

} // namespace

RunResult writeEachDocument(Connection &db, Reporter &reporter, DocumentKind kind, const QList<int> &ids,
                            const DocumentFiles &files, const Progress &progress)
{
    RunResult result;
    if (!QDir().mkpath(files.folder)) {
        result.fault = folderFault(files.folder);
        return result;
    }
    const bool pdf = files.format == DocumentFormat::Pdf;
    const auto write = pdf ? addToPdfRun : writeRtfFile;
    FileNames fileNames(files);
    QHash<QString, QString> names;
    if (pdf)
        reporter.BeginPdfRun();
    Walk(db, kind, ids, progress)
        .each(result, files.onFailure == DocumentFiles::OnFailure::GoOn, [&](const ReadyDocument &document) {
            const QString path = fileNames.of(document);
            const QString fault = write(reporter, document, path);
            if (fault.isEmpty())
                result.files << path;
            names.insert(path, document.name);
            return fault;
        });
    if (pdf)
        endPdfRun(reporter, result, names);
    return result;
}

RunResult combineDocuments(Connection &db, Reporter &reporter, DocumentKind kind, const QList<int> &ids,
                           const Progress &progress)
{
    RunResult result;
    const RunFolder folder(kind == DocumentKind::Bill ? 'B' : 'R');
    if (!folder.isThere()) {
        result.fault = folderFault(folder.path());
        return result;
    }
    const QString stem = kind == DocumentKind::Bill ? "Bill" : "Recp";
    Walk(db, kind, ids, progress).each(result, false, [&](const ReadyDocument &document) {
        const QString file = stem + QString::number(result.documents + 1) + ".rtf";
        return appendDocument(reporter, document, result.documents == 0, joinPath(folder.path(), file));
    });
    if (!result.whole())
        reporter.AbortReport();
    return result;
}

RunResult writeOneDocument(Connection &db, Reporter &reporter, DocumentKind kind, const QList<int> &ids,
                           const QString &file, DocumentFormat format, const Progress &progress)
{
    RunResult result = combineDocuments(db, reporter, kind, ids, progress);
    if (!result.whole() || result.documents == 0)
        return result;
    reporter.SetProgress(progress);
    if (format == DocumentFormat::Pdf)
        reporter.SaveToPDF(file, pdfOption);
    else
        reporter.SaveToRTF(file);
    result.fault = reporter.LastError();
    reporter.SetProgress(unwatched());
    if (result.fault.isEmpty())
        result.files << file;
    reporter.AbortReport();
    return result;
}

} // namespace ledgora
