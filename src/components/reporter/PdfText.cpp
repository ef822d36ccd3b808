#include "components/reporter/PdfText.h"

#include <QPainter>
#include <QStringEncoder>
#include <exception>
#include <optional>
#include <qpdf/Buffer.hh>
#include <qpdf/JSON.hh> // the next one uses it without saying so
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFObjectHandle.hh>
#include <qpdf/QPDFPageDocumentHelper.hh>
#include <qpdf/QPDFWriter.hh>

namespace ledgora::reporter {

namespace {

constexpr int markPlace = -1000000; ///< far beyond the largest page
constexpr int endMark = markPlace + 1;

void dot(QPainter &painter, int x, int y)
{
    painter.fillRect(QRectF(x, y, 1, 1), Qt::black);
}

/// "/Span <</ActualText <FEFF...>>> BDC"
std::string bracket(const QString &text)
{
    QStringEncoder encoder(QStringConverter::Utf16BE, QStringConverter::Flag::WriteBom);
    const QByteArray bytes = encoder.encode(QString::fromUtf8(text.toUtf8())); // no halves of characters
    return "\n/Span <</ActualText <" + bytes.toHex().toStdString() + ">>> BDC\n";
}

/// Holds operands back until their operator comes, and puts brackets where marks are drawn.
class MarkFilter final : public QPDFObjectHandle::TokenFilter
{
public:
    explicit MarkFilter(const std::vector<QString> &texts) : m_texts(texts) {}

    void handleToken(QPDFTokenizer::Token const &token) override
    {
        m_held.push_back(token);
        if (token.getType() != QPDFTokenizer::tt_word)
            return;
        if (m_dropFill && token.getValue() == "f") {
            m_dropFill = false;
            m_held.clear();
        } else if (const auto text = marked(token)) {
            write(*text);
            m_dropFill = true;
            m_held.clear();
        } else {
            release();
        }
    }

    void handleEOF() override { release(); }

private:
    void release()
    {
        for (const QPDFTokenizer::Token &held : m_held)
            writeToken(held);
        m_held.clear();
    }

    std::optional<std::string> marked(const QPDFTokenizer::Token &operatorToken) const
    {
        if (operatorToken.getValue() != "re")
            return {};
        std::vector<int> numbers;
        for (const QPDFTokenizer::Token &held : m_held)
            if (held.getType() == QPDFTokenizer::tt_integer)
                numbers.push_back(QByteArray::fromStdString(held.getValue()).toInt());
        if (numbers.size() != 4 || numbers[0] != markPlace)
            return {};
        if (numbers[1] == endMark)
            return "\nEMC\n";
        const auto number = static_cast<std::size_t>(numbers[1] - endMark - 1);
        if (number >= m_texts.size())
            return {};
        return bracket(m_texts[number]);
    }

    const std::vector<QString> &m_texts;
    std::vector<QPDFTokenizer::Token> m_held;
    bool m_dropFill = false;
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
    dot(painter, markPlace, endMark + 1 + number);
}

void endCharacters(QPainter &painter)
{
    dot(painter, markPlace, endMark);
}

QByteArray withCharacters(const QByteArray &pdf, const std::vector<QString> &texts)
{
    try {
        QPDF file;
        file.setSuppressWarnings(true);
        file.processMemoryFile("document", pdf.constData(), static_cast<std::size_t>(pdf.size()));
        for (QPDFPageObjectHelper page : QPDFPageDocumentHelper(file).getAllPages())
            page.addContentTokenFilter(std::make_shared<MarkFilter>(texts));
        QPDFWriter writer(file);
        writer.setOutputMemory();
        writer.write();
        const std::shared_ptr<Buffer> whole = writer.getBufferSharedPointer();
        return {reinterpret_cast<const char *>(whole->getBuffer()), static_cast<qsizetype>(whole->getSize())};
    } catch (const std::exception &) {
        return pdf;
    }
}

} // namespace ledgora::reporter
