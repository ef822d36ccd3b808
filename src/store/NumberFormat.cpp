#include "store/NumberFormat.h"

#include <QList>
#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace ledgora {

namespace {

constexpr int significantDigits = 15;

/// A number in decimal: 0.`digits` times 10 to the power `point`, no leading zero; no digits at all is zero.
struct Decimal
{
    bool negative = false;
    QByteArray digits;
    int point = 0;

    bool isZero() const { return digits.isEmpty(); }

    QByteArray wholePart() const { return point > 0 ? digits.left(point).leftJustified(point, '0') : QByteArray(); }

    QByteArray fraction() const { return QByteArray(std::max(0, -point), '0') + digits.mid(std::max(0, point)); }
};

/// The double to 15 significant digits; what is no number counts as 0.
Decimal toDecimal(double value)
{
    if (!std::isfinite(value) || value == 0)
        return {};
    std::array<char, 32> text{}; // d.dddddddddddddde+xxx
    const auto written = std::to_chars(text.data(), text.data() + text.size(), std::abs(value),
                                       std::chars_format::scientific, significantDigits - 1);
    const QByteArray scientific(text.data(), written.ptr - text.data());
    const auto mark = scientific.indexOf('e');
    Decimal decimal{value < 0, scientific.left(1) + scientific.mid(2, mark - 2), scientific.mid(mark + 1).toInt() + 1};
    while (decimal.digits.endsWith('0'))
        decimal.digits.chop(1);
    return decimal;
}

/// Half away from zero, to so many decimals.
Decimal rounded(Decimal number, int decimals)
{
    const int kept = number.point + decimals;
    if (kept >= number.digits.size())
        return number;
    if (kept < 0)
        return {};
    bool carry = number.digits.at(kept) >= '5';
    number.digits.truncate(kept);
    while (carry && !number.digits.isEmpty() && number.digits.back() == '9')
        number.digits.chop(1);
    if (carry && number.digits.isEmpty()) {
        number.digits = "1";
        ++number.point;
    } else if (carry) {
        ++number.digits.back();
    }
    while (number.digits.endsWith('0'))
        number.digits.chop(1);
    return number.digits.isEmpty() ? Decimal() : number;
}

/// One section of a pattern. Characters that are no part of the number stand before or behind it as they are.
struct Section
{
    QString prefix, suffix;
    int leastWhole = 0;
    int leastDecimals = 0;
    int decimals = 0;
    bool digits = false;
    bool grouped = false;
    bool point = false;
};

void addPlace(Section &section, bool obligatory)
{
    section.digits = true;
    if (!section.point) {
        section.leastWhole += obligatory ? 1 : 0;
        return;
    }
    ++section.decimals;
    if (obligatory)
        section.leastDecimals = section.decimals;
}

Section parseSection(QStringView pattern)
{
    Section section;
    for (const QChar c : pattern) {
        if (c == u'0' || c == u'#')
            addPlace(section, c == u'0');
        else if (c == u'.' && !section.point)
            section.point = section.digits = true;
        else if (c == u',' && section.digits)
            section.grouped = true;
        else
            (section.digits ? section.suffix : section.prefix) += c;
    }
    return section;
}

QByteArray inThousands(QByteArray digits)
{
    for (auto at = digits.size() - 3; at > 0; at -= 3)
        digits.insert(at, ',');
    return digits;
}

QString write(const Decimal &number, const Section &section)
{
    if (!section.digits)
        return section.prefix;
    QByteArray text = number.wholePart().rightJustified(section.leastWhole, '0');
    if (section.grouped)
        text = inThousands(text);
    if (section.point) {
        QByteArray decimals = number.fraction().leftJustified(section.decimals, '0');
        while (decimals.size() > section.leastDecimals && decimals.endsWith('0'))
            decimals.chop(1);
        text += '.' + decimals;
    }
    return section.prefix + QString::fromLatin1(text) + section.suffix;
}

bool isBlank(QChar c)
{
    return c == u' ' || c == u'\t';
}

bool isDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

/// The longest numeric beginning of a text, and where it ends.
struct NumericPrefix
{
    double value = 0;
    qsizetype end = 0;
    int digits = 0;
};

NumericPrefix numericPrefix(QStringView text)
{
    NumericPrefix prefix;
    qsizetype at = 0;
    while (at < text.size() && isBlank(text.at(at)))
        ++at;
    const bool minus = at < text.size() && text.at(at) == u'-';
    if (minus || (at < text.size() && text.at(at) == u'+'))
        ++at;
    std::array<char, significantDigits + 1> number{};
    char *last = number.data();
    for (bool point = false; at < text.size(); ++at) {
        const QChar c = text.at(at);
        if (isDigit(c) && prefix.digits < significantDigits)
            ++prefix.digits;
        else if (c == u'.' && !point)
            point = true;
        else
            break;
        *last++ = c.toLatin1();
    }
    prefix.end = at;
    if (prefix.digits > 0)
        std::from_chars(number.data(), last, prefix.value, std::chars_format::fixed);
    if (minus && prefix.value != 0)
        prefix.value = -prefix.value;
    return prefix;
}

/// Commas before the last three digits of the whole part, and before every further two.
void groupIndian(QString &text)
{
    const auto point = text.indexOf(u'.');
    int digits = 0;
    for (auto at = (point < 0 ? text.size() : point) - 1; at >= 0; --at) {
        if (!isDigit(text.at(at)))
            continue;
        ++digits;
        if (digits >= 4 && digits % 2 == 0)
            text.insert(at + 1, u',');
    }
}

} // namespace

QString formatNumber(double value, const QString &pattern)
{
    const QList<QStringView> patterns = QStringView(pattern).split(u';');
    const auto section = [&](qsizetype index) {
        return parseSection(index < patterns.size() ? patterns.at(index) : QStringView());
    };
    const bool ownNegative = patterns.size() > 1 && !patterns.at(1).isEmpty();
    const bool ownZero = patterns.size() > 2 && !patterns.at(2).isEmpty();
    const Decimal exact = toDecimal(value);
    const Section chosen = section(exact.negative && ownNegative ? 1 : 0);
    const Decimal number = rounded(exact, chosen.decimals);
    if (number.isZero())
        return write(number, section(ownZero ? 2 : 0));
    const QString text = write(number, chosen);
    return number.negative && !ownNegative ? u'-' + text : text;
}

double wholeRupees(double value)
{
    const Decimal number = rounded(toDecimal(value), 0);
    const QByteArray digits = number.wholePart();
    double whole = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), whole);
    return number.negative ? -whole : whole;
}

double roundHalfEven(double value)
{
    if (!std::isfinite(value))
        return value;
    return value - std::remainder(value, 1.0); // exact, whatever the rounding mode in force
}

QString plainNumber(double value)
{
    constexpr double exactWhole = 1e15;
    if (std::abs(value) < exactWhole && value == std::trunc(value))
        return QString::number(qint64(value)); // nearly every amount, and -0 is 0
    const Decimal number = toDecimal(value);
    if (number.isZero())
        return QStringLiteral("0");
    const QByteArray whole = number.wholePart();
    const QByteArray fraction = number.fraction();
    QByteArray text = number.negative ? "-" : "";
    text += whole.isEmpty() ? "0" : whole;
    if (!fraction.isEmpty())
        text += '.' + fraction;
    return QString::fromLatin1(text);
}

double Val(const QString &text)
{
    // Nearly every text that is asked is a whole number of a few digits, and long lists are sorted by them.
    constexpr qsizetype exactDigits = 15;
    const bool whole = text.size() <= exactDigits
                       && std::all_of(text.begin(), text.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
    if (!whole)
        return numericPrefix(text).value;
    qint64 value = 0;
    for (const QChar digit : text)
        value = value * 10 + (digit.unicode() - u'0');
    return double(value);
}

bool isNumeric(const QString &text)
{
    const NumericPrefix prefix = numericPrefix(text);
    const QStringView rest = QStringView(text).mid(prefix.end);
    return prefix.digits > 0 && std::all_of(rest.begin(), rest.end(), isBlank);
}

QString FORMETGEN(const QString &value, const QString &format)
{
    const double number = Val(value);
    if (!format.contains("#,"))
        return formatNumber(number, format);
    QString ungrouped = format;
    ungrouped.remove(u',');
    QString text = formatNumber(number, ungrouped);
    groupIndian(text);
    return text;
}

QString groupedRupees(double amount)
{
    constexpr double exactWhole = 1e15;
    const bool isWhole = std::abs(amount) < exactWhole && amount == std::trunc(amount);
    const double rupees = isWhole ? amount : wholeRupees(amount);
    if (std::abs(rupees) >= exactWhole)
        return FORMETGEN(plainNumber(amount), QStringLiteral("#,##0"));
    QString text = QString::number(qint64(rupees));
    groupIndian(text);
    return text;
}

} // namespace ledgora
