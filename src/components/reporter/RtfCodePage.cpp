#include "components/reporter/RtfInterpreter.h"

#include <QStringDecoder>
#include <algorithm>
#include <array>

namespace ledgora::reporter {

namespace {

/// 0x80 to 0x9F of code page 1252; the five places it leaves open stand for themselves.
constexpr std::array<char16_t, 32> upper1252 = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                                0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

QString decode1252(const QByteArray &bytes)
{
    QString text;
    text.reserve(bytes.size());
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        text += QChar(byte >= 0x80 && byte < 0xA0 ? upper1252[byte - 0x80] : char16_t(byte));
    }
    return text;
}

} // namespace

int byteOf1252(QChar character)
{
    const char16_t code = character.unicode();
    if (code < 0x80 || (code >= 0xA0 && code <= 0xFF))
        return code;
    const auto *found = std::find(upper1252.begin(), upper1252.end(), code);
    return found == upper1252.end() ? -1 : static_cast<int>(0x80 + (found - upper1252.begin()));
}

QString decodeCodePage(const QByteArray &bytes, int codePage)
{
    if (codePage == 1252)
        return decode1252(bytes);
    if (codePage == 65001)
        return QString::fromUtf8(bytes);
    const QByteArray name = "windows-" + QByteArray::number(codePage);
    QStringDecoder decoder(name.constData());
    if (!decoder.isValid())
        return decode1252(bytes);
    const QString text = decoder.decode(bytes);
    return text;
}

} // namespace ledgora::reporter
