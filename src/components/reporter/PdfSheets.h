#pragma once

#include "components/reporter/PageList.h"
#include "components/reporter/PdfText.h"
#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>

namespace ledgora::reporter {

/// Pages painted one behind the other into one PDF file in memory, with real text. Fonts are embedded once for all of
/// them, as far as their signs are used.
class PdfSheets
{
public:
    explicit PdfSheets(const QString &title);

    /// False when the page can not be drawn; then nothing comes of the file.
    bool add(const Page &page);
    int count() const { return m_count; }
    /// Ends the file; empty when it has no pages or one of them failed.
    QByteArray finish();

private:
    void draw(const Page &page);

    QBuffer m_buffer;
    QPdfWriter m_writer;
    QPainter m_painter; ///< behind what it paints on, so that it goes first
    MarkedTexts m_marked;
    int m_count = 0;
    bool m_failed = false;
};

} // namespace ledgora::reporter
