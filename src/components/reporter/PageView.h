#pragma once

#include "components/reporter/PageList.h"
#include <QAbstractScrollArea>

namespace ledgora::reporter {

/// Shows the pages one below the other on a grey ground. Zoom 1 is the size on paper, as far as the screen tells its
/// dots per inch; only pages in sight are drawn.
class PageView : public QAbstractScrollArea
{
    Q_OBJECT

public:
    explicit PageView(QWidget *parent = nullptr);

    void setPages(PageList pages);
    const PageList &pages() const { return m_pages; }

    qreal zoom() const { return m_zoom; }
    void setZoom(qreal zoom); ///< keeps the middle of the view where it is; ends fitting
    void zoomIn();
    void zoomOut();
    void fitWidth(); ///< from now on the page is as wide as the view

    int currentPage() const; ///< the page in the middle of the view, from 0
    void showPage(int page);

Q_SIGNALS:
    void viewChanged();

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    qreal pixelsPerTwip() const;
    QRectF pageArea(int page) const; ///< in pixels of the whole column of pages
    QSizeF wholeSize() const;
    void applyZoom(qreal zoom, qreal anchor); ///< what lies `anchor` pixels below the view's top stays there
    void updateBars();

    PageList m_pages;
    std::vector<qreal> m_tops; ///< upper edge of each page in twips, gaps between pages not counted
    qreal m_widest = 0;
    qreal m_zoom = 1;
    bool m_fitting = true;
};

} // namespace ledgora::reporter
