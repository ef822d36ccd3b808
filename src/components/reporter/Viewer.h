#pragma once

#include "components/reporter/PageList.h"
#include "controls/KeysWindow.h"
#include "platform/Progress.h"
#include <QKeySequence>
#include <QWidget>
#include <functional>

class QLabel;
class QPrinter;

namespace ledgora::reporter {

class FindBar;
class PageStrip;
class PageView;

/// The preview window `ReportViewer`: the pages below one row of tools, small ones at the left when there are several.
/// Prints (Ctrl+P), saves as PDF (Ctrl+S), finds words (Ctrl+F, F3), zooms (Ctrl and +, -, 0, 9 or the wheel), shows
/// its keys (F1), closes (Esc) and then deletes itself. It keeps its own pages: a later report changes nothing in it.
class Viewer : public QWidget
{
    Q_OBJECT

public:
    /// A kind of file, beside PDF, as which what is shown can be saved.
    struct SaveAs
    {
        QString name;   ///< "RTF", in the button's caption with the "&" of its access key
        QString suffix; ///< "rtf"
        QString filter; ///< for the dialog
        QKeySequence key;
        /// Writes the file; answers "" or what went wrong.
        std::function<QString(const QString &path, const Progress &progress)> write;
    };

    /// `name` is what the document is called: in the title, in the PDF file and, made fit for a file, as the file name
    /// that saving proposes.
    Viewer(Pages pages, const QString &name, std::vector<SaveAs> kinds = {}, QWidget *parent = nullptr);

    const Pages &pages() const;
    /// What must be known of the document, in a line above the pages; "" for nothing.
    void setNotice(const QString &text);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    QWidget *makeTools();
    QWidget *makePages();
    void addTool(QWidget *row, const QString &objectName, const QString &caption, const QList<QKeySequence> &keys,
                 const std::function<void()> &action);
    void addTool(QWidget *row, const QString &objectName, const QString &caption, const QList<QKeySequence> &keys,
                 void (Viewer::*action)());
    void addKey(const QKeySequence &key, const std::function<void()> &action);
    void print();
    void savePdf();
    void save(const SaveAs &kind);
    QString chooseFile(const QString &objectName, const QString &title, const QString &suffix, const QString &filter);
    void tellSaved(const QString &path, const QString &fault);
    void zoomIn();
    void zoomOut();
    void fit();
    void fitPage();
    void pageBefore();
    void pageBehind();
    void openFind();
    void find();
    void findNext();
    void findPrevious();
    void goToHit(int step);
    void choosePage(int page);
    void leave();
    void tellView();

    QString m_name;
    std::vector<SaveAs> m_kinds;
    std::vector<KeyRow> m_keys; ///< of its tools, for F1
    PageView *m_view = nullptr;
    PageStrip *m_strip = nullptr;
    bool m_choosing = false; ///< the overview leads, and need not follow
    FindBar *m_find = nullptr;
    QLabel *m_zoom = nullptr;
    QLabel *m_page = nullptr;
    QLabel *m_done = nullptr;
    QLabel *m_notice = nullptr;
};

/// Prints the pages (of the printer's range, when it has one) as often as the printer is told; answers "" or what went
/// wrong.
QString printPages(QPrinter &printer, const Pages &pages, const Progress &progress = unwatched());

/// A name as a file name: what file systems refuse becomes "-" ("MA/17" gives "MA-17"), at most 100 characters.
QString fileNameFor(const QString &name);

} // namespace ledgora::reporter
