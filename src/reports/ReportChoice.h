#pragma once

#include <QDate>
#include <QString>
#include <QStringList>
#include <optional>

namespace ledgora {

// What is chosen on the first panel of the selection screen, and its checks, apart from any window. Texts are those of
// the fields.

struct ReportChoice
{
    QString report;          ///< "0" to "7", "" for none
    QString year;            ///< entry of the list of years, "" when none is chosen
    QString from, to;        ///< the period
    QString asOn, billsUpTo; ///< of Outstanding
    bool limitsBills = false;

    bool isOutstanding() const { return report == QLatin1String("3"); }
    bool isServices() const { return report == QLatin1String("6"); }
    bool isAccount() const { return report == QLatin1String("7"); }
};

struct ChoiceFault
{
    QString message;
    QString field; ///< object name of the field to go to
};

/// The first fault of the choice, in the order of the checks.
std::optional<ChoiceFault> choiceFault(const ReportChoice &choice);

/// A date field's text as DD/MM/YYYY; "" when it is no whole date.
QString wholeDate(const QString &text);

/// The list of years: "(Select)", then the years to the one that starts in `lastYear`.
QStringList reportYears(int lastYear);
/// The entry chosen at first: the year in which `day` lies, if `lastYear` is right; never one that has not begun.
int openingReportYear(int entries, int lastYear, const QDate &day);

/// First and last day of a year's entry; the first year begins in July.
struct ReportPeriod
{
    QString from, to;
};
ReportPeriod periodOfYear(const QString &year);

} // namespace ledgora
