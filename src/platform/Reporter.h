#pragma once

#include "platform/Progress.h"
#include "platform/ReportWriter.h"

namespace ledgora {

/// A PDF file that could not be made, and why, in English.
struct PdfFault
{
    QString path;
    QString reason;
};

/// Document engine and viewer behind the ProgID "PrjOrvaneReporter.ClsMain". One object serves all screens; it keeps
/// the last report until the next one is begun. No operation throws; a failure is logged, and `LastError` tells it.
///
/// A report is one filled template (newreportnew, SetText), or is put together from many documents: initReport,
/// LoadPageSetup; then for each document OpenMasterFile, NewSetText, SaveMasterFile, AppendFile; and before each
/// further one initReport(false) and, for a page of its own, SetFontSizeBeforeAppendFile with a form feed. ShowReport
/// and SaveToPDF take whichever was begun last: a filled template, a report of many documents, or a text report
/// (ReportWriter).
class Reporter : public ReportWriter
{
public:
    static constexpr auto progId = "PrjOrvaneReporter.ClsMain";

    /// Loads the template as the current report, a single preview.
    virtual void newreportnew(const QString &templatePath) = 0;
    /// Replaces all occurrences of the placeholder in the current report. A value is searched by the later
    /// replacements; a placeholder that the report does not contain is no failure. ESC E and ESC F in a text switch
    /// bold on and off.
    virtual void SetText(const QString &placeholder, const PlaceholderValue &value) = 0;
    /// Shows the current report in the viewer, from which the user prints or saves. The flag is kept for hosts that
    /// pass it and changes nothing.
    virtual void ShowReport(bool flag) = 0;
    /// Writes the current report as PDF. The integer is kept for callers that pass it and changes nothing.
    virtual void SaveToPDF(const QString &path, int option) = 0;
    /// Writes the current report, a filled template or many documents, as an RTF file; a text report has none.
    virtual void SaveToRTF(const QString &path) = 0;

    /// Begins a report of many documents when `fresh`, an empty one; otherwise prepares for a further document of the
    /// one there is. The second flag is kept for callers that pass it and changes nothing.
    virtual void initReport(bool fresh, bool flag = false) = 0;
    /// Takes the page set-up of the report (paper, margins) from the file; documents appended later follow it.
    virtual void LoadPageSetup(const QString &templatePath) = 0;
    /// Writes the text at that size in points ahead of the next appended file. A form feed in it begins a page.
    virtual void SetFontSizeBeforeAppendFile(const QString &text, int fontSize) = 0;
    /// Opens the file as the master document, to be filled.
    virtual void OpenMasterFile(const QString &templatePath) = 0;
    /// Whether the last OpenMasterFile succeeded: the file was there and could be read whole.
    virtual bool LastMasFileOpenOK() const = 0;
    /// Like SetText, on the master document.
    virtual void NewSetText(const QString &placeholder, const PlaceholderValue &value) = 0;
    /// Writes the master document as an RTF file.
    virtual void SaveMasterFile(const QString &path) = 0;
    /// Appends an RTF file to the report.
    virtual void AppendFile(const QString &path) = 0;
    /// Discards the report, and the master document with it; of a run of PDF files those that are not yet made.
    virtual void AbortReport() = 0;

    /// Begins a run of PDF files, one for each document, several times faster than SaveToPDF for each; then for each
    /// document OpenMasterFile, NewSetText and AddMasterToPdf; EndPdfRun ends it. It leaves the current report alone.
    virtual void BeginPdfRun() = 0;
    /// Lays the filled master document out for a PDF file of that path. Files are made in batches and may be there only
    /// after EndPdfRun; each appears as a whole, in place of a former one. Their folder must be there.
    virtual void AddMasterToPdf(const QString &path) = 0;
    /// Makes the files that are still due; answers all of the run that could not be made. A run that stops early ends
    /// so too, when what it has made is to stay.
    virtual std::vector<PdfFault> EndPdfRun() = 0;

    /// Told of the pages while ShowReport and SaveToPDF lay out and write; returning False shows nothing and leaves no
    /// file, and LastError is `cancelledText`. It holds until another is set.
    virtual void SetProgress(Progress progress) = 0;

    /// What went wrong in the operation before, in English, or "": a run over many documents stops and tells it.
    virtual QString LastError() const = 0;
};

} // namespace ledgora
