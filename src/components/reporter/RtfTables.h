#pragma once

#include "components/reporter/Document.h"
#include <QByteArray>
#include <QHash>
#include <QStringList>

namespace ledgora::reporter {

/// The fonts and colours of RTF text that is being written: each gets its number when it is first asked for, and the
/// tables are written, ahead of the text, when it is done.
class RtfTables
{
public:
    int font(const QString &name);
    int colour(const Colour &colour); ///< 0 is the automatic one
    QByteArray text() const;

private:
    QStringList m_fonts;
    QHash<QString, int> m_fontNumbers;
    std::vector<QRgb> m_colours;
    QHash<QRgb, int> m_colourNumbers;
};

/// Text as RTF: markup escaped, characters beyond ASCII as `\u` with the nearest byte of code page 1252, or "?", behind
/// it for readers that know no more.
QByteArray rtfText(const QString &text);

/// "\word12".
QByteArray rtfWord(const QByteArray &word, int value);

} // namespace ledgora::reporter
