#pragma once

#include "components/reporter/Document.h"
#include <QFont>
#include <QImage>
#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <QStringList>
#include <initializer_list>
#include <memory>
#include <vector>

namespace ledgora::reporter {

// The page list: what a laid out document, or a text report, is made of. It knows no device; preview, printer and PDF
// all draw the same pages. Unit twips, origin at the upper left corner of the paper, y downwards.

/// A stretch of one line in one font. It is text and not glyphs, so that it stays searchable wherever it is drawn.
struct TextPiece
{
    QPointF baseline; ///< left end of the baseline
    qreal width = 0;
    QString text;
    QFont font; ///< its pixel size is the size in twips
    QRgb colour = 0xff000000;
};

struct Rule
{
    QPointF from;
    QPointF to;
    qreal width = 0;
    LineStyle style = LineStyle::Single;
    QRgb colour = 0xff000000;
};

struct FilledArea
{
    QRectF area;
    QRgb colour = 0xffffffff;
};

/// A picture, or the part of one that is shown, drawn over the area.
struct DrawnPicture
{
    QRectF area;
    QRectF part; ///< of the image, in its dots; may reach beyond its edges
    QImage image;
};

/// What is drawn at one place: areas first, then pictures, rules and texts.
struct Drawing
{
    std::vector<FilledArea> areas;
    std::vector<DrawnPicture> pictures;
    std::vector<Rule> rules;
    std::vector<TextPiece> texts;

    /// Adds what `other` draws, moved by `offset`.
    void add(const Drawing &other, QPointF offset);
};

struct Page
{
    QSizeF size;
    Drawing drawing;
};

using PageList = std::vector<Page>;

/// Where pages come from that are only made when they are asked for.
class PageSource
{
public:
    PageSource() = default;
    PageSource(const PageSource &) = delete;
    PageSource &operator=(const PageSource &) = delete;
    virtual ~PageSource() = default;

    virtual int count() const = 0;
    virtual QSizeF paper(int page) const = 0;
    virtual std::shared_ptr<const Page> page(int page) const = 0;
    /// False only when not all of the words stand on the page, in any order and whatever their case: a search need not
    /// make it then.
    virtual bool mayHold(int page, const QStringList &words) const = 0;
};

/// What viewer, printer and PDF take: pages that are all there, or a source that makes them one by one, so that a
/// report of thousands needs room for few. Copies share their pages. Numbers count from 0.
class Pages
{
public:
    Pages(PageList pages); // NOLINT(google-explicit-constructor): a page list is pages
    Pages(std::initializer_list<Page> pages) : Pages(PageList(pages)) {}
    explicit Pages(std::shared_ptr<const PageSource> source) : m_source(std::move(source)) {}

    int size() const { return m_source->count(); }
    bool empty() const { return size() == 0; }
    QSizeF paper(int page) const { return m_source->paper(page); }
    std::shared_ptr<const Page> operator[](int page) const { return m_source->page(page); }
    Page front() const { return *m_source->page(0); }
    bool mayHold(int page, const QStringList &words) const { return m_source->mayHold(page, words); }

private:
    std::shared_ptr<const PageSource> m_source;
};

/// The words of a page in reading order of the layout, one line for each stretch of text.
QString textOf(const Page &page);

} // namespace ledgora::reporter
