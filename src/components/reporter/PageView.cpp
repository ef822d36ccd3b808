#include "components/reporter/PageView.h"

#include "components/reporter/Paint.h"
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

namespace ledgora::reporter {

namespace {

constexpr qreal gap = 16; ///< pixels around and between pages
constexpr qreal smallestZoom = 0.25;
constexpr qreal largestZoom = 5;
constexpr qreal largestFit = 1.75; ///< wider views give the room to the ground, not to huge letters
constexpr qreal zoomStep = 1.2;

} // namespace

PageView::PageView(QWidget *parent) : QAbstractScrollArea(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setFrameShape(QFrame::NoFrame);
    verticalScrollBar()->setSingleStep(40);
    horizontalScrollBar()->setSingleStep(40);
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, &PageView::viewChanged);
}

void PageView::setPages(Pages pages)
{
    m_pages = std::move(pages);
    m_tops.clear();
    m_widest = 0;
    qreal top = 0;
    for (int page = 0; page < m_pages.size(); ++page) {
        m_tops.push_back(top);
        top += m_pages.paper(page).height();
        m_widest = std::max(m_widest, m_pages.paper(page).width());
    }
    m_hits.clear();
    m_currentHit = -1;
    fit();
    showPage(0);
    viewport()->update();
}

qreal PageView::pixelsPerTwip() const
{
    return m_zoom * logicalDpiX() / 1440;
}

QRectF PageView::pageArea(int page) const
{
    const qreal scale = pixelsPerTwip();
    const QSizeF size = m_pages.paper(page) * scale;
    const qreal left = (std::max<qreal>(viewport()->width(), wholeSize().width()) - size.width()) / 2;
    return {QPointF(std::floor(left), std::floor(m_tops[page] * scale + gap * (page + 1))), size};
}

QSizeF PageView::wholeSize() const
{
    if (m_pages.empty())
        return {};
    const qreal twips = m_tops.back() + m_pages.paper(m_pages.size() - 1).height();
    return {m_widest * pixelsPerTwip() + 2 * gap,
            twips * pixelsPerTwip() + gap * static_cast<qreal>(m_pages.size() + 1)};
}

void PageView::updateBars()
{
    const QSizeF whole = wholeSize();
    verticalScrollBar()->setPageStep(viewport()->height());
    verticalScrollBar()->setRange(0, std::max(0, static_cast<int>(std::ceil(whole.height())) - viewport()->height()));
    horizontalScrollBar()->setPageStep(viewport()->width());
    horizontalScrollBar()->setRange(0, std::max(0, static_cast<int>(whole.width()) - viewport()->width()));
}

void PageView::applyZoom(qreal zoom, qreal anchor)
{
    const qreal before = std::max(1.0, wholeSize().height());
    const qreal fixed = verticalScrollBar()->value() + anchor;
    m_zoom = std::clamp(zoom, smallestZoom, largestZoom);
    updateBars();
    verticalScrollBar()->setValue(static_cast<int>(std::lround(fixed * wholeSize().height() / before - anchor)));
    horizontalScrollBar()->setValue(horizontalScrollBar()->maximum() / 2);
    viewport()->update();
    Q_EMIT viewChanged();
}

void PageView::setZoom(qreal zoom)
{
    m_fit = Fit::None;
    applyZoom(zoom, viewport()->height() / 2.0);
}

void PageView::zoomIn()
{
    setZoom(m_zoom * zoomStep);
}

void PageView::zoomOut()
{
    setZoom(m_zoom / zoomStep);
}

void PageView::fitWidth()
{
    m_fit = Fit::Width;
    fit();
}

void PageView::fitPage()
{
    m_fit = Fit::Page;
    fit();
}

void PageView::fit()
{
    if (m_fit == Fit::None || m_widest <= 0) {
        updateBars();
        return;
    }
    const qreal width = (viewport()->width() - 2 * gap) * 1440 / (m_widest * logicalDpiX());
    if (m_fit == Fit::Width) {
        applyZoom(std::min(largestFit, width), 0);
        return;
    }
    const int page = currentPage();
    const qreal room = (viewport()->height() - 2 * gap) * 1440;
    applyZoom(std::min(width, room / (m_pages.paper(page).height() * logicalDpiX())), 0);
    showPage(page);
}

int PageView::pageBelow(qreal y) const
{
    int first = 0;
    int behind = m_pages.size();
    while (behind - first > 1) {
        const int middle = (first + behind) / 2;
        (pageArea(middle).top() - gap / 2 <= y ? first : behind) = middle;
    }
    return first;
}

int PageView::currentPage() const
{
    return pageBelow(verticalScrollBar()->value() + viewport()->height() / 2.0);
}

void PageView::showPage(int page)
{
    if (page >= 0 && page < m_pages.size())
        verticalScrollBar()->setValue(static_cast<int>(pageArea(page).top() - gap));
}

void PageView::setHits(std::vector<Hit> hits)
{
    m_hits = std::move(hits);
    m_currentHit = -1;
    viewport()->update();
}

void PageView::showHit(int hit)
{
    if (hit < 0 || hit >= static_cast<int>(m_hits.size()) || m_hits[hit].areas.empty())
        return;
    m_currentHit = hit;
    const QRectF page = pageArea(m_hits[hit].page);
    const QRectF &area = m_hits[hit].areas.front();
    const QPointF middle = page.topLeft() + area.center() * pixelsPerTwip();
    const auto show = [](QScrollBar *bar, qreal at, int room) {
        if (at < bar->value() + room * 0.1 || at > bar->value() + room * 0.9)
            bar->setValue(static_cast<int>(at - room * 0.4));
    };
    show(verticalScrollBar(), middle.y(), viewport()->height());
    show(horizontalScrollBar(), middle.x(), viewport()->width());
    viewport()->update();
}

/// Like a marker pen: the letters shine through.
void PageView::paintHits(QPainter &painter, int page) const
{
    painter.setCompositionMode(QPainter::CompositionMode_Multiply);
    const auto first = std::lower_bound(m_hits.begin(), m_hits.end(), page,
                                        [](const Hit &hit, int wanted) { return hit.page < wanted; });
    for (auto hit = first; hit != m_hits.end() && hit->page == page; ++hit)
        for (const QRectF &area : hit->areas)
            painter.fillRect(area, hit - m_hits.begin() == m_currentHit ? QColor(255, 165, 60) : QColor(255, 236, 120));
}

void PageView::paintEvent(QPaintEvent *)
{
    QPainter painter(viewport());
    const bool dark = palette().color(QPalette::Window).lightness() < 128;
    painter.fillRect(viewport()->rect(), dark ? palette().color(QPalette::Window).darker(140)
                                              : palette().color(QPalette::Window).darker(118));
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    const QPointF scrolled(horizontalScrollBar()->value(), verticalScrollBar()->value());
    for (int i = pageBelow(scrolled.y()); i < m_pages.size(); ++i) {
        const QRectF area = pageArea(i).translated(-scrolled);
        if (area.top() > viewport()->height())
            break;
        painter.fillRect(area, Qt::white); // paper is white whatever the desktop's colours are
        painter.save();
        painter.setClipRect(area);
        painter.translate(area.topLeft());
        painter.scale(pixelsPerTwip(), pixelsPerTwip());
        paintPage(painter, *m_pages[i]);
        paintHits(painter, i);
        painter.restore();
    }
}

void PageView::resizeEvent(QResizeEvent *)
{
    fit();
}

void PageView::wheelEvent(QWheelEvent *event)
{
    if (!event->modifiers().testFlag(Qt::ControlModifier)) {
        QAbstractScrollArea::wheelEvent(event);
        return;
    }
    if (event->angleDelta().y() > 0)
        zoomIn();
    else if (event->angleDelta().y() < 0)
        zoomOut();
    event->accept();
}

void PageView::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Home:
        verticalScrollBar()->setValue(0);
        break;
    case Qt::Key_End:
        verticalScrollBar()->setValue(verticalScrollBar()->maximum());
        break;
    case Qt::Key_Space:
        verticalScrollBar()->triggerAction(event->modifiers().testFlag(Qt::ShiftModifier)
                                               ? QAbstractSlider::SliderPageStepSub
                                               : QAbstractSlider::SliderPageStepAdd);
        break;
    default:
        QAbstractScrollArea::keyPressEvent(event);
    }
}

} // namespace ledgora::reporter
