#include "components/reporter/Viewer.h"

#include "components/reporter/PageView.h"
#include "components/reporter/Paint.h"
#include "components/reporter/PdfOutput.h"
#include "controls/WorkBar.h"
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QMessageBox>
#include <QPageLayout>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QStandardPaths>
#include <algorithm>

namespace ledgora::reporter {

// What leaves the viewer: prints and files.

namespace {

/// Where the last file was saved, as long as the program runs.
QString &lastFolder()
{
    static QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return folder;
}

/// The pages to print, each as often as it is wanted: a printer that makes copies by itself is asked for one.
std::vector<int> sheetsOf(const QPrinter &printer, int last)
{
    const int from = std::clamp(printer.fromPage() == 0 ? 1 : printer.fromPage(), 1, last);
    const int to = std::clamp(printer.toPage() == 0 ? last : printer.toPage(), from, last);
    const int copies = printer.supportsMultipleCopies() ? 1 : std::max(1, printer.copyCount());
    std::vector<int> sheets;
    for (int set = 0; set < (printer.collateCopies() ? copies : 1); ++set)
        for (int page = from; page <= to; ++page)
            sheets.insert(sheets.end(), printer.collateCopies() ? 1 : copies, page);
    return sheets;
}

/// Printers know A4 that lies on its side, but no paper of that size.
QPageLayout paperOf(const QSizeF &twips)
{
    constexpr qreal twipsPerPoint = 20;
    const bool lies = twips.width() > twips.height();
    const QPageSize upright((lies ? twips.transposed() : twips) / twipsPerPoint, QPageSize::Point, QString(),
                            QPageSize::FuzzyMatch);
    return {upright, lies ? QPageLayout::Landscape : QPageLayout::Portrait, QMarginsF()};
}

} // namespace

void Viewer::print()
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(fileNameFor(m_name)); // names the file that a print to a file proposes
    QPrintDialog dialog(&printer, this);
    dialog.setObjectName(QStringLiteral("dlgPrint"));
    dialog.setMinMax(1, pages().size());
    dialog.setOptions(QAbstractPrintDialog::PrintPageRange | QAbstractPrintDialog::PrintCurrentPage
                      | QAbstractPrintDialog::PrintCollateCopies | QAbstractPrintDialog::PrintToFile);
    if (dialog.exec() != QDialog::Accepted)
        return;
    if (printer.printRange() == QPrinter::CurrentPage)
        printer.setFromTo(m_view->currentPage() + 1, m_view->currentPage() + 1);
    const QString fault = withWorkBar(this, QStringLiteral("Printing"),
                                      [&](const Progress &progress) { return printPages(printer, pages(), progress); });
    if (!fault.isEmpty() && fault != QLatin1String(cancelledText))
        QMessageBox::warning(this, windowTitle(), QStringLiteral("The document could not be printed: ") + fault);
}

/// Asks for a file of that kind; "" when the user thinks better of it.
QString Viewer::chooseFile(const QString &objectName, const QString &title, const QString &suffix,
                           const QString &filter)
{
    QFileDialog dialog(this, title, lastFolder(), filter);
    dialog.setObjectName(objectName);
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(suffix);
    dialog.selectFile(fileNameFor(m_name) + QLatin1Char('.') + suffix);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return {};
    lastFolder() = QFileInfo(dialog.selectedFiles().constFirst()).absolutePath();
    return dialog.selectedFiles().constFirst();
}

void Viewer::tellSaved(const QString &path, const QString &fault)
{
    if (fault == QLatin1String(cancelledText))
        m_done->setText(QStringLiteral("Not saved"));
    else if (fault.isEmpty())
        m_done->setText(QStringLiteral("Saved ") + QFileInfo(path).fileName());
    else
        QMessageBox::warning(this, windowTitle(),
                             QStringLiteral("The file could not be saved: ") + QDir::toNativeSeparators(path)
                                 + QStringLiteral("\n") + fault);
}

void Viewer::savePdf()
{
    const QString path = chooseFile(QStringLiteral("dlgSavePdf"), QStringLiteral("Save as PDF"), QStringLiteral("pdf"),
                                    QStringLiteral("PDF files (*.pdf)"));
    if (path.isEmpty())
        return;
    tellSaved(path, withWorkBar(this, QStringLiteral("Saving"),
                                [&](const Progress &progress) { return writePdf(pages(), path, m_name, progress); }));
}

void Viewer::save(const SaveAs &kind)
{
    const QString name = QString(kind.name).remove(QLatin1Char('&'));
    const QString path = chooseFile(QStringLiteral("dlgSave") + kind.suffix.at(0).toUpper() + kind.suffix.mid(1),
                                    QStringLiteral("Save as ") + name, kind.suffix, kind.filter);
    if (path.isEmpty())
        return;
    tellSaved(path, withWorkBar(this, QStringLiteral("Saving"),
                                [&](const Progress &progress) { return kind.write(path, progress); }));
}

QString printPages(QPrinter &printer, const Pages &pages, const Progress &progress)
{
    if (pages.empty())
        return QStringLiteral("there are no pages to print");
    printer.setFullPage(true); // the margins are in the pages
    const std::vector<int> sheets = sheetsOf(printer, pages.size());
    printer.setPageLayout(paperOf(pages.paper(sheets.front() - 1)));
    QPainter painter;
    if (!painter.begin(&printer))
        return QStringLiteral("the printer does not take the document");
    for (std::size_t i = 0; i < sheets.size(); ++i) {
        if (!progress(static_cast<qint64>(i), static_cast<qint64>(sheets.size()), QStringLiteral("Printing pages"))) {
            printer.abort();
            return QString::fromLatin1(cancelledText);
        }
        if (i > 0) {
            printer.setPageLayout(paperOf(pages.paper(sheets[i] - 1)));
            if (!printer.newPage())
                return QStringLiteral("the printer does not take page ") + QString::number(sheets[i]);
        }
        painter.save();
        scaleToTwips(painter, printer.logicalDpiX(), printer.logicalDpiY());
        paintPage(painter, *pages[sheets[i] - 1]);
        painter.restore();
    }
    return painter.end() ? QString() : QStringLiteral("the printer broke off");
}

QString fileNameFor(const QString &name)
{
    QString file;
    for (const QChar c : name.left(100))
        file +=
            c.category() == QChar::Other_Control || QStringLiteral("/\\:*?\"<>|").contains(c) ? QLatin1Char('-') : c;
    file = file.trimmed();
    while (file.startsWith(QLatin1Char('.')))
        file.remove(0, 1); // a leading point would hide the file
    return file.isEmpty() ? QStringLiteral("Document") : file;
}

} // namespace ledgora::reporter
