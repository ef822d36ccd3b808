#include "store/Dates.h"

#include "store/NumberFormat.h"
#include <QList>
#include <algorithm>
#include <array>
#include <optional>

namespace ledgora {

namespace {

QDate toldToday;

constexpr std::array monthNames = {"January", "February", "March",     "April",   "May",      "June",
                                   "July",    "August",   "September", "October", "November", "December"};

/// Value of a text of ASCII digits alone, else nothing.
std::optional<int> digitsValue(QStringView text)
{
    const bool digits = std::all_of(text.begin(), text.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
    if (text.isEmpty() || text.size() > 4 || !digits)
        return std::nullopt;
    return text.toInt();
}

bool isSeparator(QChar c)
{
    return c == u'/' || c == u'-' || c == u'.';
}

/// What stands in a typed date. The year keeps its digits, as they may have to be completed.
struct TypedDate
{
    int day = 0;
    int month = 0;
    QString year;
};

/// Without the blanks of an input mask, and without separators at the end that the mask put there.
QString withoutMask(const QString &typed)
{
    QString text;
    for (const QChar c : typed)
        if (c != u'_' && !c.isSpace())
            text += c;
    while (!text.isEmpty() && isSeparator(text.back()))
        text.chop(1);
    return text;
}

QStringList parts(const QString &text)
{
    QStringList list(1);
    for (const QChar c : text) {
        if (isSeparator(c))
            list.append(QString());
        else
            list.last() += c;
    }
    return list;
}

/// A typed date whose day is one of its month. 29 February passes unless the year is whole and no leap year.
std::optional<TypedDate> parseTyped(const QString &typed)
{
    const QStringList list = parts(withoutMask(typed));
    if (list.size() < 2 || list.size() > 3)
        return std::nullopt;
    const auto day = digitsValue(list.at(0));
    const auto month = digitsValue(list.at(1));
    const QString year = list.value(2);
    if (!day || !month || (list.size() == 3 && !digitsValue(year)))
        return std::nullopt;
    const bool whole = year.size() == 4;
    constexpr int anyLeapYear = 2000;
    if (!QDate::isValid(whole ? year.toInt() : anyLeapYear, *month, *day) || (whole && year.toInt() < 100))
        return std::nullopt;
    return TypedDate{*day, *month, year};
}

/// Completes the year of a typed date from the last year of the financial year, which April to December lower.
int completedYear(const TypedDate &typed, QString &year)
{
    if (typed.year.size() == 4)
        return typed.year.toInt();
    if (year.isEmpty())
        year = QString::number(today().year());
    if (typed.month >= 4)
        year = QString::number(int(Val(year)) - 1);
    const int completed = QString(year.left(4 - typed.year.size()) + typed.year).toInt();
    constexpr int lastYearOfCentury = 2029;
    return completed > lastYearOfCentury ? completed - 100 : completed;
}

QString padded(int value, qsizetype width)
{
    return QString::number(value).rightJustified(width, u'0');
}

QString monthText(int month, qsizetype width)
{
    if (width < 3)
        return padded(month, width);
    const QString name = QString::fromLatin1(monthNames.at(month - 1));
    return width == 3 ? name.left(3) : name;
}

QString hourText(int hour, qsizetype width, bool twelve)
{
    return padded(twelve ? (hour + 11) % 12 + 1 : hour, width);
}

/// The text of one run of equal pattern letters (`letter` in lower case), nothing when it is no pattern letter.
std::optional<QString> fieldText(const QDateTime &value, QChar letter, qsizetype width, bool twelve)
{
    switch (letter.unicode()) {
    case u'd':
        return padded(value.date().day(), width);
    case u'm':
        return monthText(value.date().month(), width);
    case u'y':
        return padded(value.date().year(), 4).right(width > 2 ? 4 : 2);
    case u'h':
        return hourText(value.time().hour(), width, twelve);
    case u'n':
        return padded(value.time().minute(), width);
    case u's':
        return padded(value.time().second(), width);
    default:
        return std::nullopt;
    }
}

} // namespace

QDate today()
{
    return toldToday.isValid() ? toldToday : QDate::currentDate();
}

void setToday(QDate date)
{
    toldToday = date;
}

QString CONVERTTOSAVE(const QString &date)
{
    if (date.isEmpty())
        return {};
    return date.right(4) + '-' + date.mid(3, 2) + '-' + date.left(2) + " 00:00:00";
}

QString CONVERTDATE(const QString &typed, const QString &pattern, QString &year)
{
    const auto parsed = parseTyped(typed);
    if (!parsed)
        return {};
    const QDate date(completedYear(*parsed, year), parsed->month, parsed->day);
    QString text = formatDate(date, pattern);
    for (const int separator : {2, 5})
        if (separator < text.size() && separator < pattern.size())
            text[separator] = pattern.at(separator);
    return isDateText(text) ? text : QString();
}

QString CONVERTDATE(const QString &typed)
{
    QString year;
    return CONVERTDATE(typed, "DD/MM/YYYY", year);
}

bool isDateText(const QString &typed)
{
    const auto parsed = parseTyped(typed);
    if (!parsed)
        return false;
    constexpr int windowEnd = 29;
    const int shown = parsed->year.isEmpty() ? today().year() : parsed->year.toInt();
    const int year = shown >= 100 ? shown : shown + (shown > windowEnd ? 1900 : 2000);
    return QDate::isValid(year, parsed->month, parsed->day);
}

QString formatDate(const QDateTime &value, const QString &pattern)
{
    if (!value.isValid())
        return {};
    const QString letters = pattern.toLower();
    const bool twelve = letters.contains("am/pm");
    QString text;
    for (qsizetype at = 0; at < pattern.size();) {
        if (QStringView(letters).mid(at).startsWith(u"am/pm")) {
            text += value.time().hour() < 12 ? "AM" : "PM";
            at += 5;
            continue;
        }
        qsizetype width = 1;
        while (at + width < letters.size() && letters.at(at + width) == letters.at(at))
            ++width;
        text += fieldText(value, letters.at(at), width, twelve).value_or(pattern.mid(at, width));
        at += width;
    }
    return text;
}

QString formatDate(QDate value, const QString &pattern)
{
    // Noon UTC: in some time zones a day does not begin at midnight.
    return value.isValid() ? formatDate(QDateTime(value, QTime(12, 0), Qt::UTC), pattern) : QString();
}

QString FormatDateSafe(QDate value, const QString &pattern)
{
    return formatDate(value, pattern);
}

QDate DateFromText(const QString &text)
{
    const auto day = digitsValue(QStringView(text).left(2));
    const auto month = digitsValue(QStringView(text).mid(3, 2));
    const auto year = digitsValue(QStringView(text).right(4));
    if (text.size() < 10 || !day || !month || !year || *year < 100)
        return {};
    return QDate(*year, 1, 1).addMonths(*month - 1).addDays(*day - 1);
}

QDate dateFromStore(const QString &stored)
{
    return QDate::fromString(stored.left(10), Qt::ISODate);
}

int financialYearOf(QDate day)
{
    return day.month() >= 4 ? day.year() : day.year() - 1;
}

QString financialYearText(int startingYear)
{
    return QString::number(startingYear) + '-' + padded((startingYear + 1) % 100, 2);
}

} // namespace ledgora
