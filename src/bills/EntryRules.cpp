#include "bills/EntryRules.h"

#include "store/Dates.h"
#include "store/NumberFormat.h"
#include <algorithm>

namespace ledgora {

namespace {

constexpr int firstYear = 2017;

QDate firstDay(int year)
{
    return {year, year == firstYear ? 7 : 4, 1};
}

QString unmasked(const QString &text)
{
    QString plain = text;
    plain.remove(u'_').remove(u' ');
    while (plain.endsWith(u'/'))
        plain.chop(1);
    return plain;
}

} // namespace

QString documentNumberFault(const QString &text, const QString &noun)
{
    if (text.isEmpty())
        return QStringLiteral("Please Specify '%1 No.'").arg(noun);
    // A receipt's number stands without quotes here.
    const QString field = noun == QLatin1String("Bill") ? QStringLiteral("'Bill No.'") : QString(noun + " No.");
    if (Val(text) == 0)
        return QStringLiteral("Please Specify a Valid %1 (Numeric Only)").arg(field);
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text.at(i) < (i == 0 ? u'1' : u'0') || text.at(i) > u'9')
            return QStringLiteral("Please Specify a Valid %1 (Numeric Only not leading with Zero)").arg(field);
    }
    return {};
}

bool isWholeDate(const QString &text)
{
    constexpr auto dateDigits = 8;
    return std::ranges::count_if(text, [](QChar c) { return c >= u'0' && c <= u'9'; }) >= dateDigits;
}

QString completedDate(const QString &text, int year)
{
    if (isWholeDate(text))
        return text;
    QString lastYear = QString::number(year + 1);
    const QString completed = CONVERTDATE(unmasked(text), QStringLiteral("DD/MM/YYYY"), lastYear);
    return completed.isEmpty() ? text : completed;
}

QString documentDateFault(const QString &text, int year, const QString &noun)
{
    if (!isWholeDate(text))
        return QStringLiteral("Please Specify a Valid '%1 Date'.").arg(noun);
    const QDate day = DateFromText(text);
    if (day.isValid() && day >= firstDay(year) && day <= QDate(year + 1, 3, 31))
        return {};
    return QStringLiteral("Please Specify a Valid '%1 Date' between 01/%2/%3 and 31/03/%4.")
        .arg(noun, year == firstYear ? QStringLiteral("07") : QStringLiteral("04"))
        .arg(year)
        .arg(year + 1);
}

QString settledDate(const QString &text)
{
    const QDate day = DateFromText(text);
    return day.isValid() ? formatDate(day, QStringLiteral("DD/MM/YYYY")) : text;
}

QStringList financialYears(int lastYear)
{
    QStringList years;
    for (int year = firstYear; year <= lastYear; ++year)
        years << financialYearText(year);
    return years;
}

int openingYearIndex(int lastYear, QDate day)
{
    const int last = lastYear - firstYear;
    if (QDate(lastYear, 3, 31) >= day)
        return std::max(last - 1, std::min(last, 0));
    return last;
}

QString proposedDate(int year, QDate day)
{
    const bool inYear = day >= QDate(year, 4, 1) && day <= QDate(year + 1, 3, 31);
    return inYear ? formatDate(day, QStringLiteral("DD/MM/YYYY")) : QString();
}

QString outOfOrderQuestion(const QString &noun, bool lower, const QString &foundNumber, const QString &foundDate,
                           const QString &number, const QString &date)
{
    return QStringLiteral(
               "Invalid Entry. %1 No. %2 (Which is %3 than %4) Dated %5 (Which is %6 than %7) already exists. "
               "Do you want to Save anyway?")
        .arg(noun, foundNumber, lower ? QStringLiteral("lesser") : QStringLiteral("greater"), number, foundDate,
             lower ? QStringLiteral("greater") : QStringLiteral("lesser"), date);
}

} // namespace ledgora
