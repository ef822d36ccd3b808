#include "components/reporter/PageSearch.h"

#include <QFontMetricsF>
#include <algorithm>
#include <cmath>

namespace ledgora::reporter {

namespace {

/// A piece of text and where it begins in the text of the page.
struct Place
{
    qsizetype start = 0;
    const TextPiece *piece = nullptr;
};

/// Pieces that touch on one line are one word: their formats differ, or the layout cut them.
bool touches(const TextPiece &before, const TextPiece &piece)
{
    const qreal gap = piece.baseline.x() - before.baseline.x() - before.width;
    return std::abs(piece.baseline.y() - before.baseline.y()) < piece.font.pixelSize() / 2.0
           && std::abs(gap) < piece.font.pixelSize() * 0.1;
}

class PageText
{
public:
    explicit PageText(const Page &page)
    {
        const TextPiece *before = nullptr;
        for (const TextPiece &piece : page.drawing.texts) {
            if (before && !touches(*before, piece) && !m_text.endsWith(QLatin1Char(' ')))
                m_text += QLatin1Char(' ');
            m_places.push_back({m_text.size(), &piece});
            m_text += QString(piece.text).replace(QChar::Nbsp, QLatin1Char(' '));
            before = &piece;
        }
    }

    const QString &text() const { return m_text; }

    std::vector<QRectF> areas(qsizetype from, qsizetype to) const
    {
        std::vector<QRectF> areas;
        for (const Place &place : m_places) {
            const qsizetype begin = std::max<qsizetype>(0, from - place.start);
            const qsizetype end = std::min(place.piece->text.size(), to - place.start);
            if (begin < end)
                areas.push_back(areaOf(*place.piece, begin, end));
        }
        return areas;
    }

private:
    static QRectF areaOf(const TextPiece &piece, qsizetype from, qsizetype to)
    {
        const QFontMetricsF metrics(piece.font);
        const qreal natural = metrics.horizontalAdvance(piece.text);
        const qreal scale = piece.width > 0 && natural > 0 ? piece.width / natural : 1;
        const auto x = [&](qsizetype at) {
            return piece.baseline.x() + metrics.horizontalAdvance(piece.text.left(at)) * scale;
        };
        return {QPointF(x(from), piece.baseline.y() - metrics.ascent()),
                QPointF(x(to), piece.baseline.y() + metrics.descent())};
    }

    QString m_text;
    std::vector<Place> m_places;
};

} // namespace

std::vector<Hit> findText(const Pages &pages, const QString &words)
{
    std::vector<Hit> hits;
    const QString wanted = words.simplified();
    if (wanted.isEmpty())
        return hits;
    const QStringList each = wanted.split(QLatin1Char(' '));
    for (int page = 0; page < pages.size(); ++page) {
        if (!pages.mayHold(page, each))
            continue;
        const auto drawn = pages[page];
        const PageText text(*drawn);
        qsizetype at = text.text().indexOf(wanted, 0, Qt::CaseInsensitive);
        for (; at >= 0; at = text.text().indexOf(wanted, at + wanted.size(), Qt::CaseInsensitive)) {
            hits.push_back({page, text.areas(at, at + wanted.size())});
            if (hits.size() >= mostHits)
                return hits;
        }
    }
    return hits;
}

} // namespace ledgora::reporter
