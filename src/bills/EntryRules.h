#pragma once

#include <QDate>
#include <QString>
#include <QStringList>

namespace ledgora {

// What the entry of bills and receipts has in common, apart from any screen. `noun` is the document's word in the
// messages: "Bill" or "Receipt".

/// What stands at the head of either document while it is entered.
struct DocumentDraft
{
    int id = 0; ///< 0 for a new one
    int firmId = 0;
    int year = 0;     ///< starting year of the financial year
    QString code;     ///< of the party
    int seriesId = 0; ///< 0 for none
    QString number;
    QString date; ///< DD/MM/YYYY
    QString narration;
};

inline constexpr int documentNumberDigits = 9; ///< a bill or receipt number takes no more characters

/// "" for a number of digits that does not begin with 0, else the message.
QString documentNumberFault(const QString &text, const QString &noun);

/// Whether a date field's text has all its eight digits.
bool isWholeDate(const QString &text);

/// The date field's text with a short date ("1/6") completed in the financial year that starts in `year`; texts of
/// eight digits and more stay. `text` may hold the blanks of the field's mask.
QString completedDate(const QString &text, int year);

/// "" for a day of the financial year that starts in `year` (the first GST year starts on 1 July 2017), else the
/// message. A day past its month's end counts as the day it runs over to.
QString documentDateFault(const QString &text, int year, const QString &noun);

/// The text as the day that is meant: 31/02/2025 becomes 03/03/2025.
QString settledDate(const QString &text);

/// Financial years on offer, "2017-18" first, the last one starting in `lastYear`.
QStringList financialYears(int lastYear);
/// Which of them is chosen when a screen opens: the one in which `day` lies, as far as the list reaches; -1 for none.
int openingYearIndex(int lastYear, QDate day);

/// The date proposed for a new document: `day` as DD/MM/YYYY when it lies in the financial year, else "".
QString proposedDate(int year, QDate day);

/// The question asked when a lower number has a later date (`lower`) or a higher one an earlier date.
QString outOfOrderQuestion(const QString &noun, bool lower, const QString &foundNumber, const QString &foundDate,
                           const QString &number, const QString &date);

} // namespace ledgora
