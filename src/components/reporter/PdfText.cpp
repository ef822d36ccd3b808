#include "components/reporter/PdfText.h"

#include "components/reporter/PdfFile.h"
#include <QPainter>
#include <QStringEncoder>
#include <cstdlib>
#include <memory>

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

void bracketPage(const PdfFile &file, int number, const std::vector<QString> &texts)
{
    qpdf_data handle = file.handle();
    const qpdf_oh page = qpdf_get_page_n(handle, static_cast<std::size_t>(number));
    unsigned char *data = nullptr;
    std::size_t size = 0;
    if (qpdf_oh_get_page_content_data(handle, page, &data, &size) != QPDF_SUCCESS)
        return;
    const std::unique_ptr<unsigned char, decltype(&std::free)> owner(data, &std::free);
    const QByteArray content = withBrackets(
        QByteArray::fromRawData(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size)), texts);
    const qpdf_oh stream = qpdf_oh_new_stream(handle);
    constexpr qsizetype lengthAhead = 4;                              // which the format does not know
    const QByteArray packed = qCompress(content).sliced(lengthAhead); // thousands of pages lie in memory until the end
    qpdf_oh_replace_stream_data(handle, stream, reinterpret_cast<const unsigned char *>(packed.constData()),
                                static_cast<std::size_t>(packed.size()), qpdf_oh_new_name(handle, "/FlateDecode"),
                                qpdf_oh_new_null(handle));
    qpdf_oh_replace_key(handle, page, "/Contents", stream);
    qpdf_oh_release_all(handle);
}

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

QByteArray withCharacters(const QByteArray &pdf, const MarkedTexts &marked)
{
    PdfFile file(pdf);
    for (const int page : marked.pages)
        if (page < file.pages())
            bracketPage(file, page, marked.texts);
    const QByteArray whole = file.whole();
    return whole.isEmpty() ? pdf : whole;
}

} // namespace ledgora::reporter
