#pragma once

#include <QString>
#include <ostream>
#include <vector>

namespace ledgora::test {

/// A text that a one-line field gets from the clipboard, and what it holds of it: control characters and line breaks
/// read as blanks, everything else stays.
struct HostileText
{
    const char *name;
    QString pasted;
    QString kept;
};

inline void PrintTo(const HostileText &text, std::ostream *out)
{
    *out << text.name;
}

inline std::vector<HostileText> hostileTexts()
{
    const QString statement = "O'Brien''s'; Delete From GST_BillM; -- \"%1\" `x` /*";
    const QString slashes = R"(C:\new\table\' {\rtf1\par #SN_1# %s\\)";
    const QString devanagari = QStringLiteral(
        "श्री क्‍षत्रिय र्‍य ज्‌ञ"); // joiners shape the letters
    const QString emoji = QStringLiteral("A😀B👨‍👩‍👧");
    const QString controls = QStringLiteral("A\tB\nC\rD") + QChar(0) + u'E' + QChar(0x1B) + u'F' + QChar(0x2028) + u'G'
                             + QChar(0x7F) + u'H' + QChar(0x85) + u'I';
    return {{"Statement", statement, statement},
            {"Backslashes", slashes, slashes},
            {"Devanagari", devanagari, devanagari},
            {"Emoji", emoji, emoji},
            {"ControlCharacters", controls, "A B C D E F G H I"},
            {"TenThousandLetters", QString(10'000, QChar(0x0915)), QString(10'000, QChar(0x0915))},
            {"TenThousandHalves", QStringLiteral("😀").repeated(5'000), QStringLiteral("😀").repeated(5'000)}};
}

} // namespace ledgora::test
