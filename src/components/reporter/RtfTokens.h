#pragma once

#include <QByteArrayView>
#include <QString>
#include <optional>

namespace ledgora::reporter {

/// One token of RTF text. The views point into the input.
struct RtfToken
{
    enum Kind {
        GroupBegin,
        GroupEnd,
        Word,   ///< `\word`, `\word12`: `text` is the word, `parameter` its number if it has one
        Symbol, ///< `\~`, `\{`: `text` is the one character
        Byte,   ///< `\'hh`: `parameter` is the byte in the document's code page
        Text,   ///< plain bytes without line ends
        Binary, ///< the bytes of `\binN`
        End
    };
    Kind kind = End;
    QByteArrayView text;
    std::optional<int> parameter;
};

/// Cuts RTF text into tokens. Knows the lexical rules only: any input gives a finite row of tokens that ends with
/// `End`, and `error` tells the first place where the text broke the rules.
class RtfTokens
{
public:
    explicit RtfTokens(QByteArrayView input) : m_input(input) {}

    RtfToken next();
    QByteArrayView rest() const { return m_input.sliced(m_at); } ///< what was not read yet
    const QString &error() const { return m_error; }

private:
    bool atEnd() const { return m_at >= m_input.size(); }
    RtfToken control();
    RtfToken word();
    RtfToken hexByte();
    RtfToken binary(int length);
    RtfToken text();
    std::optional<int> number();
    void fail(const QString &what);

    QByteArrayView m_input;
    qsizetype m_at = 0;
    QString m_error;
};

/// Value of a hexadecimal digit, or -1.
int hexValue(char digit);

} // namespace ledgora::reporter
