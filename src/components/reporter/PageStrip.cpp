#include "components/reporter/PageStrip.h"

#include "components/reporter/Paint.h"
#include <QAbstractListModel>
#include <QCache>
#include <QPainter>

namespace ledgora::reporter {

namespace {

constexpr QSize pictureSize(104, 148);
constexpr QSize placeSize(128, 176);
constexpr int picturesKept = 200;

QPixmap pictureOf(const Page &page, qreal dots)
{
    const QSizeF size = page.size.scaled(pictureSize, Qt::KeepAspectRatio);
    QPixmap picture(QSizeF(size * dots).toSize().expandedTo(QSize(1, 1)));
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter.scale(picture.width() / page.size.width(), picture.height() / page.size.height());
    paintPage(painter, page);
    painter.resetTransform();
    painter.setPen(Qt::gray);
    painter.drawRect(QRectF(picture.rect()).adjusted(0.5, 0.5, -0.5, -0.5));
    painter.end();
    picture.setDevicePixelRatio(dots);
    return picture;
}

class Pictures : public QAbstractListModel
{
public:
    Pictures(Pages pages, PageStrip *strip) : QAbstractListModel(strip), m_pages(std::move(pages)), m_strip(strip) {}

    int rowCount(const QModelIndex &parent) const override { return parent.isValid() ? 0 : m_pages.size(); }

    QVariant data(const QModelIndex &index, int role) const override
    {
        const int page = index.row();
        switch (role) {
        case Qt::DisplayRole:
            return QString::number(page + 1);
        case Qt::AccessibleTextRole:
            return QString(QStringLiteral("Page ") + QString::number(page + 1));
        case Qt::SizeHintRole:
            return placeSize;
        case Qt::DecorationRole:
            if (!m_drawn.contains(page))
                m_drawn.insert(page, new QPixmap(pictureOf(*m_pages[page], m_strip->devicePixelRatioF())));
            return *m_drawn.object(page);
        default:
            return {};
        }
    }

private:
    Pages m_pages;
    PageStrip *m_strip;
    mutable QCache<int, QPixmap> m_drawn{picturesKept};
};

} // namespace

PageStrip::PageStrip(const Pages &pages, QWidget *parent) : QListView(parent)
{
    setFrameShape(QFrame::NoFrame);
    setViewMode(QListView::IconMode);
    setFlow(QListView::TopToBottom);
    setWrapping(false);
    setMovement(QListView::Static);
    setUniformItemSizes(true);
    setIconSize(pictureSize);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFixedWidth(placeSize.width() + 24);
    setModel(new Pictures(pages, this));
}

void PageStrip::follow(int page)
{
    if (currentIndex().row() == page)
        return;
    m_following = true;
    setCurrentIndex(model()->index(page, 0));
    m_following = false;
}

void PageStrip::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    QListView::currentChanged(current, previous);
    if (!m_following && current.isValid())
        Q_EMIT pageChosen(current.row());
}

} // namespace ledgora::reporter
