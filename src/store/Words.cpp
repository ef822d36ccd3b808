#include "store/Words.h"

#include "store/ErrorLog.h"
#include <QStringList>
#include <array>
#include <cerrno>

namespace ledgora {

namespace {

constexpr std::array digitWords = {"", "One", "Two", "Three", "Four", "Five", "Six", "Seven", "Eight", "Nine"};
constexpr std::array teenWords = {"Ten",     "Eleven",  "Twelve",    "Thirteen", "Fourteen",
                                  "Fifteen", "Sixteen", "Seventeen", "Eighteen", "Nineteen"};
constexpr std::array tensWords = {"", "", "Twenty", "Thirty", "Forty", "Fifty", "Sixty", "Seventy", "Eighty", "Ninety"};
constexpr std::array placeWords = {"", "Thousand", "Lac", "Crore"};

/// Value of the digit at a place, 0 for anything else.
int digitAt(QStringView digits, qsizetype at)
{
    const bool isDigit = at < digits.size() && digits.at(at) >= u'0' && digits.at(at) <= u'9';
    return isDigit ? digits.at(at).unicode() - u'0' : 0;
}

/// Words joined by single blanks, empty ones left out.
QString joined(QStringList words)
{
    words.removeAll(QString());
    return words.join(u' ');
}

/// Cuts the next group from the end of the digits: three the first time, then two, or the one that remains.
QString takeGroup(QString &digits, std::size_t place)
{
    const QString group = digits.right(place == 0 ? 3 : 2);
    digits.chop(group.size());
    return group;
}

QString groupWords(const QString &group, std::size_t place)
{
    if (place == 0)
        return CONVERTHUNDREDS(group);
    return group.size() == 2 ? CONVERTTENS(group) : CONVERTDIGIT(group);
}

/// Words of the rupees, without the currency.
QString wholeWords(QString digits)
{
    const QString amount = digits;
    QString words;
    for (std::size_t place = 0; !digits.isEmpty(); ++place) {
        const QString group = groupWords(takeGroup(digits, place), place);
        if (group.isEmpty())
            continue;
        if (place >= placeWords.size())
            WriteErrLog(ERANGE, "No word for the place above the crores: " + amount, "Ledgora");
        else
            words = joined({group, placeWords.at(place), words});
    }
    return words;
}

} // namespace

QString CONVERTTOWORD(const QString &amount)
{
    const ErrorSite site("MODULE1", "CONVERTTOWORD");
    const QString text = amount.trimmed();
    const auto point = text.indexOf(u'.');
    const QString paise = point < 0 ? QString() : CONVERTTENS(text.mid(point + 1, 2).leftJustified(2, u'0'));
    const QString rupees = wholeWords((point < 0 ? text : text.left(point)).trimmed());

    const QString paiseWords = joined({paise, paise.isEmpty() ? "" : "Paisa"});
    if (rupees.isEmpty())
        return paise.isEmpty() ? QStringLiteral("Nil") : paiseWords;
    return joined({rupees, rupees == "One" ? "Rupee" : "", paise.isEmpty() ? "" : "And", paiseWords, "Only"});
}

QString CONVERTHUNDREDS(const QString &digits)
{
    const QString padded = digits.rightJustified(3, u'0').right(3);
    const QString hundreds = CONVERTDIGIT(padded.left(1));
    return joined({hundreds, hundreds.isEmpty() ? "" : "Hundred", CONVERTTENS(padded.right(2))});
}

QString CONVERTTENS(const QString &digits)
{
    const int tens = digitAt(digits, 0);
    const int ones = digitAt(digits, 1);
    if (tens == 1)
        return teenWords.at(ones);
    return joined({tensWords.at(tens), digitWords.at(ones)});
}

QString CONVERTDIGIT(const QString &digit)
{
    return digitWords.at(digitAt(digit, 0));
}

QString properCase(const QString &text)
{
    QString cased;
    cased.reserve(text.size());
    bool wordBegins = true;
    for (const char32_t c : text.toLower().toUcs4()) {
        cased += QChar::fromUcs4(wordBegins ? QChar::toUpper(c) : c);
        wordBegins = QChar::isSpace(c);
    }
    return cased;
}

QString inNameCase(bool proper, const QString &text)
{
    return proper ? properCase(text) : text.toUpper();
}

} // namespace ledgora
