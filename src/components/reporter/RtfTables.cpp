#include "components/reporter/RtfTables.h"

#include "components/reporter/RtfInterpreter.h"

namespace ledgora::reporter {

namespace {

QByteArray unicode(QChar c)
{
    const int byte = byteOf1252(c);
    const QByteArray fallback =
        byte < 0x80 ? QByteArray("?") : QByteArray("\\'") + QByteArray::number(byte, 16).rightJustified(2, '0');
    return rtfWord("\\u", static_cast<qint16>(c.unicode())) + fallback;
}

QByteArray escaped(QChar c)
{
    switch (c.unicode()) {
    case u'\\':
    case u'{':
    case u'}':
        return QByteArray("\\") + static_cast<char>(c.unicode());
    case u'\t':
        return "\\tab ";
    case lineBreak.unicode():
        return "\\line ";
    case QChar::Nbsp:
        return "\\~";
    case QChar::SoftHyphen:
        return "\\-";
    case 0x2011:
        return "\\_";
    default:
        return c.unicode() < 0x80 ? QByteArray(1, static_cast<char>(c.unicode())) : unicode(c);
    }
}

} // namespace

QByteArray rtfWord(const QByteArray &word, int value)
{
    return word + QByteArray::number(value);
}

QByteArray rtfText(const QString &text)
{
    QByteArray rtf;
    rtf.reserve(text.size() + 16);
    for (const QChar c : text)
        rtf += escaped(c);
    return rtf;
}

int RtfTables::font(const QString &name)
{
    const auto found = m_fontNumbers.constFind(name);
    if (found != m_fontNumbers.cend())
        return *found;
    m_fonts += name;
    m_fontNumbers.insert(name, static_cast<int>(m_fonts.size()) - 1);
    return static_cast<int>(m_fonts.size()) - 1;
}

int RtfTables::colour(const Colour &colour)
{
    if (!colour)
        return 0;
    const auto found = m_colourNumbers.constFind(*colour);
    if (found != m_colourNumbers.cend())
        return *found;
    m_colours.push_back(*colour);
    m_colourNumbers.insert(*colour, static_cast<int>(m_colours.size()));
    return static_cast<int>(m_colours.size());
}

QByteArray RtfTables::text() const
{
    QByteArray rtf = "{\\fonttbl";
    for (int i = 0; i < m_fonts.size(); ++i) {
        QString name = m_fonts[i];
        name.remove(u';').remove(u'{').remove(u'}').remove(u'\\'); // would end the entry, or be markup
        rtf += "{" + rtfWord("\\f", i) + "\\fnil " + rtfText(name) + ";}";
    }
    rtf += "}\n{\\colortbl;";
    for (const QRgb colour : m_colours)
        rtf += rtfWord("\\red", qRed(colour)) + rtfWord("\\green", qGreen(colour)) + rtfWord("\\blue", qBlue(colour))
               + ";";
    return rtf + "}\n";
}

} // namespace ledgora::reporter
