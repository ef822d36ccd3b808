#include "components/reporter/Viewer.h"

#include "components/reporter/PageView.h"
#include "components/reporter/Paint.h"
#include "components/reporter/PdfOutput.h"
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMessageBox>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QShortcut>
#include <QStandardPaths>
#include <QVBoxLayout>
#include <algorithm>

namespace ledgora::reporter {

namespace {

/// Where the last file was saved, as long as the program runs.
QString &lastFolder()
{
    static QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return folder;
}

QLabel *makeLabel(QWidget *row, const QString &objectName)
{
    auto *label = new QLabel(row);
    label->setObjectName(objectName);
    label->setTextFormat(Qt::PlainText);
    row->layout()->addWidget(label);
    return label;
}

} // namespace

Viewer::Viewer(PageList pages, const QString &name, QWidget *parent) : QWidget(parent), m_name(name)
{
    setObjectName(QStringLiteral("ReportViewer"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(QStringLiteral("Preview - ") + name);
    setMinimumSize(640, 400);
    resize(960, 760);
    m_view = new PageView(this);
    m_view->setObjectName(QStringLiteral("pageView"));
    m_view->setAccessibleName(QStringLiteral("Pages"));
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(makeTools());
    column->addWidget(m_view, 1);
    connect(m_view, &PageView::viewChanged, this, &Viewer::tellView);
    m_view->setPages(std::move(pages));
    setFocusProxy(m_view);
    tellView();
}

const PageList &Viewer::pages() const
{
    return m_view->pages();
}

QWidget *Viewer::makeTools()
{
    auto *row = new QWidget(this);
    row->setObjectName(QStringLiteral("famTools"));
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(8, 4, 8, 4);
    layout->setSpacing(4);
    addTool(row, QStringLiteral("cmdPrint"), QStringLiteral("&Print"), {QKeySequence(Qt::CTRL | Qt::Key_P)},
            &Viewer::print);
    addTool(row, QStringLiteral("cmdSavePdf"), QStringLiteral("&Save as PDF"), {QKeySequence(Qt::CTRL | Qt::Key_S)},
            &Viewer::savePdf);
    layout->addSpacing(8);
    addTool(row, QStringLiteral("cmdZoomOut"), QStringLiteral("Zoom &Out"), {QKeySequence(Qt::CTRL | Qt::Key_Minus)},
            &Viewer::zoomOut);
    m_zoom = makeLabel(row, QStringLiteral("lblZoom"));
    m_zoom->setAlignment(Qt::AlignCenter);
    m_zoom->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("0000%")));
    addTool(row, QStringLiteral("cmdZoomIn"), QStringLiteral("Zoom &In"),
            {QKeySequence(Qt::CTRL | Qt::Key_Plus), QKeySequence(Qt::CTRL | Qt::Key_Equal)}, &Viewer::zoomIn);
    addTool(row, QStringLiteral("cmdFit"), QStringLiteral("&Fit Width"), {QKeySequence(Qt::CTRL | Qt::Key_0)},
            &Viewer::fit);
    m_done = makeLabel(row, QStringLiteral("lblDone"));
    layout->setStretchFactor(m_done, 1);
    m_done->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_done->setAlignment(Qt::AlignCenter);
    m_page = makeLabel(row, QStringLiteral("lblPage"));
    layout->addSpacing(8);
    addTool(row, QStringLiteral("cmdClose"), QStringLiteral("&Close"), {QKeySequence(Qt::Key_Escape)}, &Viewer::leave);
    return row;
}

/// The keys work in this window and nowhere else: several previews, and the host's own keys, live in one program.
void Viewer::addTool(QWidget *row, const QString &objectName, const QString &caption, const QList<QKeySequence> &keys,
                     void (Viewer::*action)())
{
    auto *button = new QPushButton(caption, row);
    button->setObjectName(objectName);
    button->setAutoDefault(false);
    button->setFocusPolicy(Qt::TabFocus);
    button->setToolTip(keys.front().toString(QKeySequence::NativeText));
    row->layout()->addWidget(button);
    m_keys.push_back({button->toolTip(), QString(caption).remove(u'&')});
    connect(button, &QPushButton::clicked, this, action);
    for (const QKeySequence &key : keys) {
        auto *shortcut = new QShortcut(key, this);
        shortcut->setContext(Qt::WidgetWithChildrenShortcut);
        connect(shortcut, &QShortcut::activated, this, action);
    }
}

void Viewer::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_F1)
        showKeys(*this, m_keys);
    else
        QWidget::keyPressEvent(event);
}

void Viewer::tellView()
{
    m_zoom->setText(QString::number(qRound(m_view->zoom() * 100)) + QLatin1Char('%'));
    m_page->setText(QStringLiteral("Page %1 of %2").arg(m_view->currentPage() + 1).arg(m_view->pages().size()));
}

void Viewer::zoomIn()
{
    m_view->zoomIn();
}

void Viewer::zoomOut()
{
    m_view->zoomOut();
}

void Viewer::fit()
{
    m_view->fitWidth();
}

void Viewer::leave()
{
    close();
}

void Viewer::print()
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(m_name);
    QPrintDialog dialog(&printer, this);
    dialog.setObjectName(QStringLiteral("dlgPrint"));
    dialog.setMinMax(1, static_cast<int>(pages().size()));
    dialog.setOption(QAbstractPrintDialog::PrintPageRange);
    if (dialog.exec() != QDialog::Accepted)
        return;
    const QString fault = printPages(printer, pages());
    if (!fault.isEmpty())
        QMessageBox::warning(this, windowTitle(), QStringLiteral("The document could not be printed: ") + fault);
}

void Viewer::savePdf()
{
    QFileDialog dialog(this, QStringLiteral("Save as PDF"), lastFolder(), QStringLiteral("PDF files (*.pdf)"));
    dialog.setObjectName(QStringLiteral("dlgSavePdf"));
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QStringLiteral("pdf"));
    dialog.selectFile(fileNameFor(m_name) + QStringLiteral(".pdf"));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return;
    const QString path = dialog.selectedFiles().constFirst();
    lastFolder() = QFileInfo(path).absolutePath();
    const QString fault = writePdf(pages(), path, m_name);
    if (fault.isEmpty())
        m_done->setText(QStringLiteral("Saved ") + QFileInfo(path).fileName());
    else
        QMessageBox::warning(this, windowTitle(),
                             QStringLiteral("The file could not be saved: ") + QDir::toNativeSeparators(path)
                                 + QStringLiteral("\n") + fault);
}

QString printPages(QPrinter &printer, const PageList &pages)
{
    printer.setFullPage(true); // the margins are in the pages
    const int last = static_cast<int>(pages.size());
    const int from = std::clamp(printer.fromPage() == 0 ? 1 : printer.fromPage(), 1, last);
    const int to = std::clamp(printer.toPage() == 0 ? last : printer.toPage(), from, last);
    const auto paper = [&](int page) {
        return QPageSize(pages[page - 1].size / 20, QPageSize::Point, QString(), QPageSize::FuzzyMatch);
    };
    printer.setPageSize(paper(from));
    QPainter painter;
    if (!painter.begin(&printer))
        return QStringLiteral("the printer does not take the document");
    for (int page = from; page <= to; ++page) {
        if (page > from) {
            printer.setPageSize(paper(page));
            if (!printer.newPage())
                return QStringLiteral("the printer does not take page ") + QString::number(page);
        }
        painter.save();
        scaleToTwips(painter, printer.logicalDpiX(), printer.logicalDpiY());
        paintPage(painter, pages[page - 1]);
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
