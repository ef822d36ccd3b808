#include "components/reporter/PdfSheets.h"

#include "components/reporter/Paint.h"
#include <QMarginsF>
#include <QPageSize>

namespace ledgora::reporter {

namespace {

constexpr int twipsPerInch = 1440;
constexpr qreal twipsPerPoint = 20;

QPageSize paperOf(const Page &page)
{
    return QPageSize(page.size / twipsPerPoint, QPageSize::Point, QString(), QPageSize::FuzzyMatch);
}

} // namespace

PdfSheets::PdfSheets(const QString &title) : m_writer((m_buffer.open(QIODevice::WriteOnly), &m_buffer))
{
    m_writer.setResolution(twipsPerInch); // one unit of the device is one twip
    m_writer.setTitle(title);
    m_writer.setCreator(QStringLiteral("Ledgora"));
    m_writer.setPageMargins(QMarginsF());
}

bool PdfSheets::add(const Page &page)
{
    if (m_failed)
        return false;
    m_writer.setPageSize(paperOf(page));
    m_failed = m_count == 0 ? !m_painter.begin(&m_writer) : !m_writer.newPage();
    if (m_failed)
        return false;
    draw(page);
    ++m_count;
    return true;
}

/// Draws the page and notes the texts that had to be marked.
void PdfSheets::draw(const Page &page)
{
    paintGround(m_painter, page);
    for (const TextPiece &piece : page.drawing.texts) {
        const bool mark = needsCharacters(piece.text);
        if (mark) {
            beginCharacters(m_painter, static_cast<int>(m_marked.texts.size()));
            m_marked.texts.push_back(piece.text);
            if (m_marked.pages.empty() || m_marked.pages.back() != m_count)
                m_marked.pages.push_back(m_count);
        }
        paintText(m_painter, piece);
        if (mark)
            endCharacters(m_painter);
    }
}

QByteArray PdfSheets::finish()
{
    if (m_failed || m_count == 0 || !m_painter.end())
        return {};
    return m_marked.texts.empty() ? m_buffer.data() : withCharacters(m_buffer.data(), m_marked);
}

} // namespace ledgora::reporter
