#include "components/reporter/PdfText.h"

#include <QPainter>
#include <QStringEncoder>
#include <cstdlib>
#include <memory>
#include <qpdf/qpdf-c.h>

namespace ledgora::reporter {

namespace {

constexpr int markPlace = -1000000; ///< far beyond the largest page
constexpr int endMark = markPlace + 1;

// A mark as the PDF writer puts it down: a filled rectangle, "x y 1 1 re" and "f" on a line of its own.
const QByteArray markBegin = QByteArray::number(markPlace) + ' ';
const QByteArray markEnd = " 1 1 re\nf\n";

void dot(QPainter &painter, int y)
{
    painter.fillRect(QRectF(markPlace, y, 1, 1), Qt::black);
}

/// What stands in the place of the mark with that y; empty for one that we have not made.
QByteArray bracket(int y, const std::vector<QString> &texts)
{
    if (y == endMark)
        return "EMC\n";
    const auto number = static_cast<std::size_t>(y - endMark - 1);
    if (y <= endMark || number >= texts.size())
        return {};
    QStringEncoder encoder(QStringConverter::Utf16BE, QStringConverter::Flag::WriteBom);
    const QByteArray characters = encoder.encode(QString::fromUtf8(texts[number].toUtf8())); // no halves of characters
    return "/Span <</ActualText <" + characters.toHex() + ">>> BDC\n";
}

QByteArray withBrackets(const QByteArray &content, const std::vector<QString> &texts)
{
    QByteArray changed;
    qsizetype done = 0;
    for (qsizetype at = content.indexOf(markBegin); at >= 0; at = content.indexOf(markBegin, at + 1)) {
        const qsizetype y = at + markBegin.size();
        const qsizetype end = content.indexOf(markEnd, y);
        bool isNumber = false;
        const int place = end < 0 ? 0 : content.mid(y, end - y).toInt(&isNumber);
        const QByteArray instead = isNumber ? bracket(place, texts) : QByteArray();
        if (instead.isEmpty())
            continue;
        changed += content.mid(done, at - done) + instead;
        done = end + markEnd.size();
    }
    return changed + content.mid(done);
}

/// A PDF file that is taken apart; after any fault all further steps do nothing, and there is no result.
class PdfFile
{
public:
    explicit PdfFile(const QByteArray &pdf) : m_file(qpdf_init())
    {
        qpdf_silence_errors(m_file);
        qpdf_set_suppress_warnings(m_file, QPDF_TRUE);
        qpdf_read_memory(m_file, "document", pdf.constData(), static_cast<unsigned long long>(pdf.size()), nullptr);
    }
    PdfFile(const PdfFile &) = delete;
    PdfFile &operator=(const PdfFile &) = delete;
    ~PdfFile() { qpdf_cleanup(&m_file); }

    bool failed() const { return qpdf_has_error(m_file) != QPDF_FALSE; }
    int pages() const { return failed() ? 0 : qpdf_get_num_pages(m_file); }

    void bracketPage(int number, const std::vector<QString> &texts)
    {
        const qpdf_oh page = qpdf_get_page_n(m_file, static_cast<std::size_t>(number));
        unsigned char *data = nullptr;
        std::size_t size = 0;
        if (qpdf_oh_get_page_content_data(m_file, page, &data, &size) != QPDF_SUCCESS)
            return;
        const std::unique_ptr<unsigned char, decltype(&std::free)> owner(data, &std::free);
        const QByteArray content = withBrackets(
            QByteArray::fromRawData(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size)), texts);
        const qpdf_oh stream = qpdf_oh_new_stream(m_file);
        qpdf_oh_replace_stream_data(m_file, stream, reinterpret_cast<const unsigned char *>(content.constData()),
                                    static_cast<std::size_t>(content.size()), qpdf_oh_new_null(m_file),
                                    qpdf_oh_new_null(m_file));
        qpdf_oh_replace_key(m_file, page, "/Contents", stream);
    }

    QByteArray whole()
    {
        if (failed() || qpdf_init_write_memory(m_file) != QPDF_SUCCESS || qpdf_write(m_file) != QPDF_SUCCESS)
            return {};
        return {reinterpret_cast<const char *>(qpdf_get_buffer(m_file)),
                static_cast<qsizetype>(qpdf_get_buffer_length(m_file))};
    }

private:
    qpdf_data m_file;
};

} // namespace

bool needsCharacters(const QString &text)
{
    for (const uint c : text.toUcs4()) {
        switch (QChar::script(c)) {
        case QChar::Script_Common:
        case QChar::Script_Inherited:
        case QChar::Script_Latin:
        case QChar::Script_Greek:
        case QChar::Script_Cyrillic:
            if (QChar::requiresSurrogates(c))
                return true;
            break;
        default:
            return true;
        }
    }
    return false;
}

void beginCharacters(QPainter &painter, int number)
{
    dot(painter, endMark + 1 + number);
}

void endCharacters(QPainter &painter)
{
    dot(painter, endMark);
}

QByteArray withCharacters(const QByteArray &pdf, const std::vector<QString> &texts)
{
    PdfFile file(pdf);
    for (int page = 0; page < file.pages(); ++page)
        file.bracketPage(page, texts);
    const QByteArray whole = file.whole();
    return whole.isEmpty() ? pdf : whole;
}

} // namespace ledgora::reporter
