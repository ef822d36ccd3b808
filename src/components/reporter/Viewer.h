#pragma once

#include "components/reporter/PageList.h"
#include "controls/KeysWindow.h"
#include <QWidget>

class QLabel;
class QPrinter;

namespace ledgora::reporter {

class PageView;

/// The preview window `ReportViewer`: the pages below one row of tools. Prints (Ctrl+P), saves as PDF (Ctrl+S), zooms
/// (Ctrl and +, -, 0 or the wheel), shows its keys (F1), closes (Esc) and then deletes itself. It keeps its own pages:
/// a later report changes nothing in it.
class Viewer : public QWidget
{
    Q_OBJECT

public:
    /// `name` is what the document is called: in the title, in the PDF file and, made fit for a file, as the file name
    /// that saving proposes.
    Viewer(PageList pages, const QString &name, QWidget *parent = nullptr);

    const PageList &pages() const;

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    QWidget *makeTools();
    void addTool(QWidget *row, const QString &objectName, const QString &caption, const QList<QKeySequence> &keys,
                 void (Viewer::*action)());
    void print();
    void savePdf();
    void zoomIn();
    void zoomOut();
    void fit();
    void leave();
    void tellView();

    QString m_name;
    std::vector<KeyRow> m_keys; ///< of its tools, for F1
    PageView *m_view = nullptr;
    QLabel *m_zoom = nullptr;
    QLabel *m_page = nullptr;
    QLabel *m_done = nullptr;
};

/// Prints the pages (of the printer's range, when it has one); answers "" or what went wrong.
QString printPages(QPrinter &printer, const PageList &pages);

/// A name as a file name: what file systems refuse becomes "-" ("MA/17" gives "MA-17"), at most 100 characters.
QString fileNameFor(const QString &name);

} // namespace ledgora::reporter
