#pragma once

#include <QDate>
#include <QHash>
#include <QString>
#include <functional>
#include <span>
#include <vector>

namespace ledgora::app {

/// What the check of an office's data can find. A save that was cut short leaves a document with too few lines; a clerk
/// may save numbers and dates out of order; a client may have left the host's tables; two users may receive money on
/// one bill at once.
enum class FindingKind {
    Incomplete, ///< a document without lines, or whose lines are not numbered 1 to n
    LineWithoutDocument,
    Totals,        ///< net amount or total of a line, or the money of a receipt, does not add up
    TaxColumns,    ///< tax of a kind that the bill's type does not bear
    MissingNumber, ///< in a company's year and series
    DoubleNumber,
    DateOrder, ///< a date before that of the number before it
    DateOutsideYear,
    CodeCase,  ///< client codes that differ only in case: statements take them for one, lists for two
    PartyGone, ///< a client that left the directory
    CompanyGone,
    BillGone,    ///< a receipt settles a bill that was deleted
    BillLater,   ///< a receipt is dated before its bill
    OverSettled, ///< more was received on a bill than it comes to
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

enum class DocumentKind { Bill, Receipt };

/// A stored bill or receipt, and stored lines, as far as they are checked.
struct CheckedDocument
{
    DocumentKind kind = DocumentKind::Bill;
    int id = 0;
    int company = 0;
    int year = 0;
    int series = 0;
    int number = 0;
    QString code;
    QDate date;       ///< invalid when there is none
    QString taxType;  ///< of a bill
    double money = 0; ///< of a receipt: in cash and by another mode
};
struct CheckedLine
{
    int document = 0;
    int serial = 0;
    double amount = 0, discount = 0, net = 0;
    double cgstRate = 0, cgst = 0, sgstRate = 0, sgst = 0, igstRate = 0, igst = 0;
    double total = 0;
};
struct CheckedReceiptLine
{
    int document = 0;
    int serial = 0;
    int bill = 0;
    double amount = 0, discount = 0, tds = 0;
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
    QString document(DocumentKind kind, int series, int number) const;
    QString party(const QString &code) const;
};

/// "1 bill", "2 bills".
QString counted(qsizetype count, const char *noun);
/// DD/MM/YYYY
QString dayText(QDate date);
Finding ofDocument(const CheckNames &names, const CheckedDocument &document, FindingKind kind, const QString &sentence);
/// One that is of no document.
Finding inGeneral(FindingKind kind, const QString &sentence);

/// A bill's lines, in the order of their serials.
void judgeLines(const CheckNames &names, const CheckedDocument &bill, std::span<const CheckedLine> lines,
                Findings &findings);

/// Finds a bill by its id; nothing when it is not there.
using BillById = std::function<const CheckedDocument *(int id)>;

/// A receipt's lines, in the order of their serials: the bills that they settle, and its money, which is their amounts
/// less TDS. A line without a bill is money all the same.
void judgeReceipt(const CheckNames &names, const CheckedDocument &receipt, std::span<const CheckedReceiptLine> lines,
                  const BillById &bills, Findings &findings);

/// Lines of one document that is not there.
void judgeLostLines(std::span<const CheckedLine> lines, Findings &findings);
void judgeLostLines(std::span<const CheckedReceiptLine> lines, Findings &findings);

/// Bills on which more was received than they come to; total, and amounts with discounts received, by the bill's id.
void judgeSettled(const CheckNames &names, std::span<const CheckedDocument> bills, const QHash<int, double> &totals,
                  const QHash<int, double> &settled, Findings &findings);

/// Numbers and dates of all documents of one kind. Numbers run from 1 in each series of a company's year; where no
/// number of the year stands in two series, the office numbers through all series, as the entry screen proposes, and a
/// gap counts only when no series has the number. Sorts the documents by company, year, series, number, id.
void judgeNumbers(const CheckNames &names, std::vector<CheckedDocument> &documents, Findings &findings);

/// Codes of clients and companies: one finding a company and client, and one a pair of spellings. Linear in the
/// documents.
void judgeParties(const CheckNames &names, std::span<const CheckedDocument> bills,
                  std::span<const CheckedDocument> receipts, Findings &findings);

} // namespace ledgora::app
