#pragma once

#include <QDate>
#include <QDateTime>
#include <QString>

namespace ledgora {

/// The present date: the only source of it, so that a program can be told another day (`setToday`).
QDate today();
void setToday(QDate date); ///< an invalid date means the real one again

/// DD/MM/YYYY (any one-character separators, cut by position alone) as "YYYY-MM-DD 00:00:00"; "" stays "".
QString CONVERTTOSAVE(const QString &date);

/// Completes a typed date ("1/6", "1.6.18") and writes it by `pattern`, whose 3rd and 6th characters are the
/// separators. `year` holds the last year of the working financial year and is filled and lowered as the completion
/// goes: April to December belong to the year before. Returns "" for no date.
QString CONVERTDATE(const QString &typed, const QString &pattern, QString &year);
/// The same without a year of the caller's, as DD/MM/YYYY.
QString CONVERTDATE(const QString &typed);

/// True for a typed day-first date: two or three parts of digits between "/", "-" or ".". A year of less than three
/// digits counts from 1930 to 2029, a missing one is the present year; no day runs over.
bool isDateText(const QString &typed);

/// A date or time by a pattern: d dd M MM MMM MMMM yy yyyy h hh n nn s ss AM/PM, letters in either case; "MM" is the
/// month and "nn" the minute. Month names English whatever the machine speaks, in proper case.
QString formatDate(const QDateTime &value, const QString &pattern);
QString formatDate(QDate value, const QString &pattern);

/// As `formatDate`, with month names in English.
QString FormatDateSafe(QDate value, const QString &pattern);

/// DD/MM/YYYY as a date: year from the last four characters, month from positions 4 and 5, day from the first two.
/// A day or month past its end runs over into the next (31/02 is 3 March). Invalid when a part is no number.
QDate DateFromText(const QString &text);

/// The date of a stored text "YYYY-MM-DD ...", invalid when there is none.
QDate dateFromStore(const QString &stored);

/// Financial year (April to March) in which the day lies, by its starting year.
int financialYearOf(QDate day);
/// "2017-18" for 2017.
QString financialYearText(int startingYear);

} // namespace ledgora
