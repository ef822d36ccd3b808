#include "components/reporter/Viewer.h"

#include "components/reporter/FindBar.h"
#include "components/reporter/PageStrip.h"
#include "components/reporter/PageView.h"
#include <QCloseEvent>
#include <QDialog>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>
#include <algorithm>

namespace ledgora::reporter {

namespace {

QLabel *makeLabel(QWidget *row, const QString &objectName)
{
    auto *label = new QLabel(row);
    label->setObjectName(objectName);
    label->setTextFormat(Qt::PlainText);
    row->layout()->addWidget(label);
    return label;
}

} // namespace

Viewer::Viewer(Pages pages, const QString &name, std::vector<SaveAs> kinds, QWidget *parent)
    : QWidget(parent)
    , m_name(name)
    , m_kinds(std::move(kinds))
{
    setObjectName(QStringLiteral("ReportViewer"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(QStringLiteral("Preview - ") + name);
    setMinimumSize(900, 400);
    resize(1100, 760);
    m_view = new PageView(this);
    m_view->setObjectName(QStringLiteral("pageView"));
    m_view->setAccessibleName(QStringLiteral("Pages"));
    m_view->setPages(std::move(pages));
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(makeTools());
    m_notice = makeLabel(this, QStringLiteral("lblNotice"));
    m_notice->setWordWrap(true);
    m_notice->setMargin(8);
    QFont loud = m_notice->font();
    loud.setBold(true);
    m_notice->setFont(loud);
    m_notice->hide();
    m_find = new FindBar(this);
    column->addWidget(m_find);
    column->addWidget(makePages(), 1);
    connect(m_find, &FindBar::wordsChanged, this, &Viewer::find);
    connect(m_find, &FindBar::nextWanted, this, [this](bool backwards) { goToHit(backwards ? -1 : 1); });
    connect(m_view, &PageView::viewChanged, this, &Viewer::tellView);
    setFocusProxy(m_view);
    tellView();
}

/// One page needs no overview; the room is the page's.
QWidget *Viewer::makePages()
{
    auto *area = new QWidget(this);
    auto *row = new QHBoxLayout(area);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    m_strip = new PageStrip(pages(), area);
    m_strip->setObjectName(QStringLiteral("pageStrip"));
    m_strip->setAccessibleName(QStringLiteral("Overview of the pages"));
    m_strip->setVisible(pages().size() > 1);
    row->addWidget(m_strip);
    row->addWidget(m_view, 1);
    connect(m_strip, &PageStrip::pageChosen, this, &Viewer::choosePage);
    return area;
}

void Viewer::setNotice(const QString &text)
{
    m_notice->setText(text);
    m_notice->setVisible(!text.isEmpty());
}

const Pages &Viewer::pages() const
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
    for (const SaveAs &kind : m_kinds)
        addTool(row, QStringLiteral("cmdSave") + kind.suffix.at(0).toUpper() + kind.suffix.mid(1),
                QStringLiteral("Save as ") + kind.name, {kind.key}, [this, &kind] { save(kind); });
    addTool(row, QStringLiteral("cmdFind"), QStringLiteral("Fi&nd"), {QKeySequence(Qt::CTRL | Qt::Key_F)},
            &Viewer::openFind);
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
    addTool(row, QStringLiteral("cmdFitPage"), QStringLiteral("Fit P&age"), {QKeySequence(Qt::CTRL | Qt::Key_9)},
            &Viewer::fitPage);
    m_done = makeLabel(row, QStringLiteral("lblDone"));
    layout->setStretchFactor(m_done, 1);
    m_done->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_done->setAlignment(Qt::AlignCenter);
    m_page = makeLabel(row, QStringLiteral("lblPage"));
    layout->addSpacing(8);
    addTool(row, QStringLiteral("cmdClose"), QStringLiteral("&Close"), {QKeySequence(Qt::Key_Escape)}, &Viewer::leave);
    addKey(QKeySequence(Qt::Key_F3), [this] { findNext(); });
    addKey(QKeySequence(Qt::SHIFT | Qt::Key_F3), [this] { findPrevious(); });
    addKey(QKeySequence(Qt::CTRL | Qt::Key_PageUp), [this] { pageBefore(); });
    addKey(QKeySequence(Qt::CTRL | Qt::Key_PageDown), [this] { pageBehind(); });
    const auto tell = [this](const char *key, const char *effect) {
        m_keys.push_back({QString::fromLatin1(key), QString::fromLatin1(effect)});
    };
    tell("F3", "Next place found");
    tell("Shift+F3", "Place found before");
    tell("Ctrl+PgUp, Ctrl+PgDown", "Page before, next page");
    tell("Home, End", "First page, last page");
    tell("Ctrl+Wheel", "Zoom");
    return row;
}

void Viewer::addKey(const QKeySequence &key, const std::function<void()> &action)
{
    auto *shortcut = new QShortcut(key, this);
    shortcut->setContext(Qt::WidgetWithChildrenShortcut);
    connect(shortcut, &QShortcut::activated, this, action);
}

/// The keys work in this window and nowhere else: several previews, and the host's own keys, live in one program.
void Viewer::addTool(QWidget *row, const QString &objectName, const QString &caption, const QList<QKeySequence> &keys,
                     const std::function<void()> &action)
{
    auto *button = new QPushButton(caption, row);
    button->setObjectName(objectName);
    button->setAutoDefault(false);
    button->setFocusPolicy(Qt::TabFocus);
    button->setToolTip(keys.front().toString(QKeySequence::NativeText));
    row->layout()->addWidget(button);
    m_keys.push_back({button->toolTip(), QString(caption).remove(u'&')});
    connect(button, &QPushButton::clicked, this, action);
    for (const QKeySequence &key : keys)
        addKey(key, action);
}

void Viewer::addTool(QWidget *row, const QString &objectName, const QString &caption, const QList<QKeySequence> &keys,
                     void (Viewer::*action)())
{
    addTool(row, objectName, caption, keys, [this, action] { (this->*action)(); });
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
    m_page->setText(QStringLiteral("Page %1 of %2").arg(m_view->currentPage() + 1).arg(pages().size()));
    if (!m_choosing)
        m_strip->follow(m_view->currentPage());
}

void Viewer::choosePage(int page)
{
    m_choosing = true;
    m_view->showPage(page);
    m_choosing = false;
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

void Viewer::fitPage()
{
    m_view->fitPage();
}

void Viewer::pageBefore()
{
    m_view->showPage(m_view->currentPage() - 1);
}

void Viewer::pageBehind()
{
    m_view->showPage(m_view->currentPage() + 1);
}

void Viewer::openFind()
{
    m_find->open();
}

/// While words are typed the first place from the page in view on is shown.
void Viewer::find()
{
    m_view->setHits(findText(pages(), m_find->words()));
    const auto &hits = m_view->hits();
    const auto here = std::find_if(hits.begin(), hits.end(),
                                   [page = m_view->currentPage()](const Hit &hit) { return hit.page >= page; });
    m_view->showHit(here == hits.end() ? 0 : static_cast<int>(here - hits.begin()));
    m_find->tell(m_view->currentHit() + 1, static_cast<int>(hits.size()));
}

void Viewer::findNext()
{
    goToHit(1);
}

void Viewer::findPrevious()
{
    goToHit(-1);
}

void Viewer::goToHit(int step)
{
    if (!m_find->isVisible()) {
        openFind();
        find();
        return;
    }
    const int count = static_cast<int>(m_view->hits().size());
    if (count > 0)
        m_view->showHit((m_view->currentHit() + step + count) % count);
    m_find->tell(m_view->currentHit() + 1, count);
}

/// Printing and saving go on in the viewer when their dialogs have closed: until then it stays.
void Viewer::closeEvent(QCloseEvent *event)
{
    event->setAccepted(findChildren<QDialog *>().isEmpty());
}

/// Esc backs out of the search first.
void Viewer::leave()
{
    if (!m_find->isVisible()) {
        close();
        return;
    }
    m_find->hide();
    m_view->setHits({});
    m_view->setFocus();
}

} // namespace ledgora::reporter
