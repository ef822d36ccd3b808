#include "reports/ReportChoice.h"

#include "bills/EntryRules.h"
#include "store/Dates.h"
#include "store/NumberFormat.h"

namespace ledgora {

namespace {

constexpr auto incomplete = "Please Specify a Vaid Date.";

std::optional<ChoiceFault> fault(const QString &message, const char *field)
{
    return ChoiceFault{message, QLatin1String(field)};
}

std::optional<ChoiceFault> outstandingFault(const ReportChoice &choice)
{
    if (!isWholeDate(choice.asOn))
        return fault(QLatin1String(incomplete), "txtdt_2");
    if (!choice.limitsBills)
        return {};
    if (!isWholeDate(choice.billsUpTo))
        return fault(QLatin1String(incomplete), "txtdt_3");
    if (DateFromText(choice.billsUpTo) > DateFromText(choice.asOn))
        return fault("Please Specify a Valid Date on or before 'As on Date: " + choice.asOn + "'.", "txtdt_3");
    return {};
}

/// The whole year counts, also the quarter before the first one's July.
bool liesInYear(const QString &date, int year)
{
    const QDate day = DateFromText(date);
    return day >= QDate(year, 4, 1) && day <= QDate(year + 1, 3, 31);
}

std::optional<ChoiceFault> periodFault(const ReportChoice &choice)
{
    const std::pair<const char *, QString> dates[] = {{"txtdt_0", choice.from}, {"txtdt_1", choice.to}};
    for (const auto &[field, date] : dates) {
        if (!isWholeDate(date))
            return fault(QLatin1String(incomplete), field);
    }
    const int year = int(Val(choice.year.left(4)));
    for (const auto &[field, date] : dates) {
        if (!choice.year.isEmpty() && !liesInYear(date, year))
            return fault(
                QStringLiteral("Please Specify a Valid Date between 01/04/%1 and 31/03/%2.").arg(year).arg(year + 1),
                field);
    }
    if (DateFromText(choice.from) > DateFromText(choice.to))
        return fault(QStringLiteral("Starting Date cannot be Greater than Ending Date."), "txtdt_0");
    return {};
}

} // namespace

std::optional<ChoiceFault> choiceFault(const ReportChoice &choice)
{
    if (choice.report.isEmpty())
        return fault(QStringLiteral("Please select a Reporty Type !"), "cmdProceedM");
    return choice.isOutstanding() ? outstandingFault(choice) : periodFault(choice);
}

QString wholeDate(const QString &text)
{
    const QString date = isWholeDate(text) ? CONVERTDATE(text) : QString();
    return isWholeDate(date) ? date : QString();
}

QStringList reportYears(int lastYear)
{
    return QStringList(QStringLiteral("(Select)")) + financialYears(lastYear);
}

int openingReportYear(int entries, int lastYear, const QDate &day)
{
    constexpr int fewEntries = 3;
    if (QDate(lastYear, 3, 31) >= day && entries >= fewEntries)
        return entries - 2;
    return entries - 1;
}

ReportPeriod periodOfYear(const QString &year)
{
    const int first = int(Val(year.left(4)));
    constexpr int firstYear = 2017;
    return {(first == firstYear ? QStringLiteral("01/07/") : QStringLiteral("01/04/")) + QString::number(first),
            QStringLiteral("31/03/") + QString::number(first + 1)};
}

} // namespace ledgora
