#pragma once

#include "components/reporter/PageSearch.h"
#include <QAbstractScrollArea>

namespace ledgora::reporter {

/// Shows the pages one below the other on a grey ground. Zoom 1 is the size on paper, as far as the screen tells its
/// dots per inch; only pages in sight are drawn.
class PageView : public QAbstractScrollArea
{
    Q_OBJECT

public:
    explicit PageView(QWidget *parent = nullptr);

    void setPages(Pages pages);
    const Pages &pages() const { return m_pages; }

    qreal zoom() const { return m_zoom; }
    void setZoom(qreal zoom); ///< keeps the middle of the view where it is; ends fitting
    void zoomIn();
    void zoomOut();
    void fitWidth(); ///< from now on the page is as wide as the view
    void fitPage();  ///< from now on a whole page is in view

    int currentPage() const; ///< the page in the middle of the view, from 0
    void showPage(int page);

    /// Marks places where words were found.
    void setHits(std::vector<Hit> hits);
    const std::vector<Hit> &hits() const { return m_hits; }
    int currentHit() const { return m_currentHit; } ///< -1 when none is
    /// Brings one of them into view and marks it above the others.
    void showHit(int hit);

Q_SIGNALS:
    void viewChanged();

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    enum class Fit { None, Width, Page };

    qreal pixelsPerTwip() const;
    QRectF pageArea(int page) const; ///< in pixels of the whole column of pages
    int pageBelow(qreal y) const;    ///< the last whose area begins above that place
    QSizeF wholeSize() const;
    void applyZoom(qreal zoom, qreal anchor); ///< what lies `anchor` pixels below the view's top stays there
    void updateBars();
    void fit();
    void paintHits(QPainter &painter, int page) const;

    Pages m_pages{PageList()};
    std::vector<qreal> m_tops; ///< upper edge of each page in twips, gaps between pages not counted
    qreal m_widest = 0;
    qreal m_zoom = 1;
    Fit m_fit = Fit::Width;
    std::vector<Hit> m_hits;
    int m_currentHit = -1;
};

} // namespace ledgora::reporter
