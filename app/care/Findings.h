#pragma once

#include <QDate>
#include <QHash>
#include <QString>
#include <span>
#include <vector>

namespace ledgora::app {

/// What the check of an office's data can find. A save that was cut short leaves a bill with too few lines; a clerk may
/// save numbers and dates out of order; a client may have left the host's tables.
enum class FindingKind {
    Incomplete, ///< a bill without lines, or whose lines are not numbered 1 to n
    LineWithoutBill,
    Totals,        ///< net amount or total of a line does not add up
    TaxColumns,    ///< tax of a kind that the bill's type does not bear
    MissingNumber, ///< in a company's year and series
    DoubleNumber,
    DateOrder, ///< a date before that of the number before it
    DateOutsideYear,
    CodeCase,  ///< client codes that differ only in case: statements take them for one, lists for two
    PartyGone, ///< a client that left the directory
    CompanyGone,
};

/// One finding as a clerk reads it. Empty where it does not apply.
struct Finding
{
    FindingKind kind = FindingKind::Incomplete;
    QString company;  ///< its name
    QString document; ///< "Bill 12/2024-25"
    QDate date;       ///< of the document
    QString party;    ///< name, the code when the directory has none
    QString sentence; ///< without a full stop
};
using Findings = std::vector<Finding>;

/// The finding as one line: company: document of date, party: sentence.
QString findingText(const Finding &finding);

/// A stored bill and a stored line, as far as they are checked.
struct CheckedBill
{
    int id = 0;
    int company = 0;
    int year = 0;
    int series = 0;
    int number = 0;
    QString code;
    QDate date; ///< invalid when there is none
    QString taxType;
};
struct CheckedLine
{
    int bill = 0;
    int serial = 0;
    double amount = 0, discount = 0, net = 0;
    double cgstRate = 0, cgst = 0, sgstRate = 0, sgst = 0, igstRate = 0, igst = 0;
    double total = 0;
};

/// What ids and codes are called.
struct CheckNames
{
    struct Series
    {
        QString text, position;
    };
    QHash<int, QString> companies;
    QHash<int, Series> series;
    QHash<QString, QString> parties; ///< name by code, exactly spelt

    QString company(int id) const;
    QString document(int series, int number) const;
    QString party(const QString &code) const;
};

/// A bill's lines, in the order of their serials.
void judgeLines(const CheckNames &names, const CheckedBill &bill, std::span<const CheckedLine> lines,
                Findings &findings);

/// Lines of one bill that is not there.
void judgeLostLines(std::span<const CheckedLine> lines, Findings &findings);

/// Numbers and dates of all bills. Numbers run from 1 in each series of a company's year; where no number of the year
/// stands in two series, the office numbers through all series, as the entry screen proposes, and a gap counts only
/// when no series has the number. Sorts the bills by company, year, series, number, id.
void judgeNumbers(const CheckNames &names, std::vector<CheckedBill> &bills, Findings &findings);

/// Codes of clients and companies: one finding a company and client, and one a pair of spellings. Linear in the bills.
void judgeParties(const CheckNames &names, std::span<const CheckedBill> bills, Findings &findings);

} // namespace ledgora::app
