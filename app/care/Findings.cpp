#include "Findings.h"

#include "bills/TaxType.h"
#include "store/Dates.h"
#include "store/DocumentNumber.h"
#include "store/NumberFormat.h"
#include <QMap>
#include <QStringList>
#include <algorithm>
#include <cmath>
#include <tuple>

namespace ledgora::app {

namespace {

constexpr double paisa = 0.005; // less than this is no difference

bool differ(double one, double other)
{
    return std::abs(one - other) > paisa;
}

QString day(QDate date)
{
    return formatDate(date, QStringLiteral("DD/MM/YYYY"));
}

Finding ofBill(const CheckNames &names, const CheckedBill &bill, FindingKind kind, const QString &sentence)
{
    return {kind,      names.company(bill.company), names.document(bill.series, bill.number),
            bill.date, names.party(bill.code),      sentence};
}

QString serials(std::span<const CheckedLine> lines)
{
    QStringList texts;
    for (const CheckedLine &line : lines)
        texts << QString::number(line.serial);
    return texts.join(QStringLiteral(", "));
}

/// The fault of a line's sums, "" when they add up.
QString sumFault(const CheckedLine &line)
{
    if (differ(line.net, std::max(0.0, line.amount - line.discount)))
        return QStringLiteral("net amount %1 is not amount %2 less discount %3")
            .arg(plainNumber(line.net), plainNumber(line.amount), plainNumber(line.discount));
    const double tax = line.cgst + line.sgst + line.igst;
    if (differ(line.total, line.net + tax))
        return QStringLiteral("total %1 is not net amount %2 with tax %3")
            .arg(plainNumber(line.total), plainNumber(line.net), plainNumber(tax));
    return {};
}

QString taxFault(const QString &taxType, const CheckedLine &line)
{
    const bool within =
        differ(line.cgstRate, 0) || differ(line.cgst, 0) || differ(line.sgstRate, 0) || differ(line.sgst, 0);
    const bool between = differ(line.igstRate, 0) || differ(line.igst, 0);
    if (taxType == taxTypeWord(TaxType::Intra))
        return between ? QStringLiteral("bears IGST, though the bill is intra-state") : QString();
    if (taxType == taxTypeWord(TaxType::Inter))
        return within ? QStringLiteral("bears CGST or SGST, though the bill is inter-state") : QString();
    return within || between ? QStringLiteral("bears tax, though the bill has none") : QString();
}

bool isTaxType(const QString &word)
{
    return std::ranges::any_of(std::initializer_list{TaxType::Intra, TaxType::Inter, TaxType::None},
                               [&](TaxType type) { return taxTypeWord(type) == word; });
}

QString counted(qsizetype count, const char *noun)
{
    return QString::number(count) + u' ' + QLatin1String(noun) + (count == 1 ? QString() : QStringLiteral("s"));
}

using Bills = std::span<const CheckedBill>;

/// Whether the bill begins another group than the one before it.
template<class Key>
std::vector<Bills> grouped(Bills bills, Key key)
{
    std::vector<Bills> groups;
    for (size_t first = 0, next = 0; first < bills.size(); first = next) {
        while (next < bills.size() && key(bills[next]) == key(bills[first]))
            ++next;
        groups.push_back(bills.subspan(first, next - first));
    }
    return groups;
}

/// Gaps in a run of bills in the order of their numbers, beginning at 1. `series` in which a missing number is named.
void judgeGaps(const CheckNames &names, std::span<const CheckedBill *const> run, bool nameSeries, Findings &findings)
{
    int expected = 1;
    for (const CheckedBill *bill : run) {
        if (bill->number > expected) {
            const int series = nameSeries ? bill->series : 0;
            const QString first = names.document(series, expected);
            const bool one = bill->number == expected + 1;
            const QString sentence =
                (one ? QStringLiteral("is missing in ")
                     : QStringLiteral("and the numbers up to %1 are missing in ").arg(bill->number - 1))
                + financialYearText(bill->year);
            findings.push_back({FindingKind::MissingNumber, names.company(bill->company), first, {}, {}, sentence});
        }
        expected = std::max(expected, bill->number + 1);
    }
}

void judgeDoubles(const CheckNames &names, Bills series, Findings &findings)
{
    for (const Bills same : grouped(series, [](const CheckedBill &bill) { return bill.number; })) {
        if (same.size() > 1)
            findings.push_back(
                ofBill(names, same.front(), FindingKind::DoubleNumber,
                       QStringLiteral("has a number that %1 bear").arg(counted(qsizetype(same.size()), "bill"))));
    }
}

void judgeDates(const CheckNames &names, Bills series, Findings &findings)
{
    const CheckedBill *before = nullptr;
    for (const CheckedBill &bill : series) {
        if (!bill.date.isValid() || financialYearOf(bill.date) != bill.year)
            findings.push_back(ofBill(
                names, bill, FindingKind::DateOutsideYear,
                bill.date.isValid()
                    ? QString(QStringLiteral("is dated outside its financial year ") + financialYearText(bill.year))
                    : QStringLiteral("has no date")));
        if (before && before->number < bill.number && bill.date.isValid() && bill.date < before->date)
            findings.push_back(ofBill(names, bill, FindingKind::DateOrder,
                                      QStringLiteral("is dated before the lower number %1 of ").arg(before->number)
                                          + day(before->date)));
        before = &bill;
    }
}

/// True when a number of the year stands in more than one series: then each series is numbered for itself.
bool numbersEachSeries(const std::vector<const CheckedBill *> &byNumber)
{
    for (size_t i = 1; i < byNumber.size(); ++i) {
        if (byNumber[i]->number == byNumber[i - 1]->number && byNumber[i]->series != byNumber[i - 1]->series)
            return true;
    }
    return false;
}

void judgeYear(const CheckNames &names, Bills year, Findings &findings)
{
    std::vector<const CheckedBill *> run;
    for (const CheckedBill &bill : year)
        run.push_back(&bill);
    std::vector<const CheckedBill *> byNumber = run;
    std::ranges::stable_sort(byNumber, {}, [](const CheckedBill *bill) { return bill->number; });
    const bool apart = numbersEachSeries(byNumber);
    if (!apart)
        judgeGaps(names, byNumber, false, findings);
    size_t first = 0;
    for (const Bills series : grouped(year, [](const CheckedBill &bill) { return bill.series; })) {
        if (apart)
            judgeGaps(names, std::span(run).subspan(first, series.size()), true, findings);
        judgeDoubles(names, series, findings);
        judgeDates(names, series, findings);
        first += series.size();
    }
}

} // namespace

QString CheckNames::company(int id) const
{
    return companies.value(id, QStringLiteral("company %1").arg(id));
}

QString CheckNames::document(int seriesId, int number) const
{
    const Series found = series.value(seriesId);
    return QStringLiteral("Bill ") + joinSeries(found.text, found.position, QString::number(number));
}

QString CheckNames::party(const QString &code) const
{
    return parties.value(code, code);
}

QString findingText(const Finding &finding)
{
    QString text = finding.company.isEmpty() ? QString() : QString(finding.company + QStringLiteral(": "));
    if (!finding.document.isEmpty()) {
        text += finding.document;
        if (finding.date.isValid())
            text += QStringLiteral(" of ") + day(finding.date);
        if (!finding.party.isEmpty())
            text += QStringLiteral(", ") + finding.party;
        text += u' ';
    }
    return QString(text + finding.sentence).simplified() + u'.';
}

void judgeLines(const CheckNames &names, const CheckedBill &bill, std::span<const CheckedLine> lines,
                Findings &findings)
{
    const auto add = [&](FindingKind kind, const QString &sentence) {
        findings.push_back(ofBill(names, bill, kind, sentence));
    };
    if (lines.empty())
        add(FindingKind::Incomplete, QStringLiteral("has no lines"));
    int serial = 0;
    if (!std::ranges::all_of(lines, [&](const CheckedLine &line) { return line.serial == ++serial; }))
        add(FindingKind::Incomplete,
            QStringLiteral("has lines numbered ") + serials(lines)
                + QStringLiteral(" instead of 1 to %1: some are missing or double").arg(lines.size()));
    if (!isTaxType(bill.taxType))
        add(FindingKind::TaxColumns, QStringLiteral("has the unknown tax type \"") + bill.taxType + u'"');
    for (const CheckedLine &line : lines) {
        const QString head = QStringLiteral("line %1: ").arg(line.serial);
        if (const QString fault = sumFault(line); !fault.isEmpty())
            add(FindingKind::Totals, head + fault);
        if (const QString fault = taxFault(bill.taxType, line); !fault.isEmpty())
            add(FindingKind::TaxColumns, head + fault);
    }
}

void judgeLostLines(std::span<const CheckedLine> lines, Findings &findings)
{
    if (lines.empty())
        return;
    double total = 0;
    for (const CheckedLine &line : lines)
        total += line.total;
    findings.push_back({FindingKind::LineWithoutBill,
                        {},
                        {},
                        {},
                        {},
                        counted(qsizetype(lines.size()), "line")
                            + QStringLiteral(" of together Rs. %1 without a bill (its internal number was %2)")
                                  .arg(plainNumber(total))
                                  .arg(lines.front().bill)});
}

void judgeNumbers(const CheckNames &names, std::vector<CheckedBill> &bills, Findings &findings)
{
    std::ranges::sort(bills, {}, [](const CheckedBill &bill) {
        return std::tuple(bill.company, bill.year, bill.series, bill.number, bill.id);
    });
    for (const Bills year :
         grouped(Bills(bills), [](const CheckedBill &bill) { return std::pair(bill.company, bill.year); }))
        judgeYear(names, year, findings);
}

void judgeParties(const CheckNames &names, std::span<const CheckedBill> bills, Findings &findings)
{
    struct Use
    {
        const CheckedBill *first = nullptr;
        int bills = 0;
    };
    QMap<std::pair<int, QString>, Use> uses;
    QMap<int, int> lost; // bills by company
    for (const CheckedBill &bill : bills) {
        Use &use = uses[{bill.company, bill.code}];
        use.first = use.first ? use.first : &bill;
        ++use.bills;
        if (!names.companies.contains(bill.company))
            ++lost[bill.company];
    }
    QMap<QString, QStringList> spellings; // by the code in capitals
    const auto spell = [&](const QString &code) {
        QStringList &known = spellings[code.toUpper()];
        if (!known.contains(code))
            known << code;
    };
    for (auto code = names.parties.keyBegin(); code != names.parties.keyEnd(); ++code)
        spell(*code);
    for (auto use = uses.cbegin(); use != uses.cend(); ++use) {
        const QString &code = use.key().second;
        spell(code);
        // A code in other letters is found below.
        if (!names.parties.contains(code) && spellings.value(code.toUpper()).size() == 1)
            findings.push_back(ofBill(names, *use->first, FindingKind::PartyGone,
                                      QStringLiteral("is for a client that is no longer in the directory (")
                                          + counted(use->bills, "bill") + u')'));
    }
    for (const QStringList &codes : std::as_const(spellings)) {
        if (codes.size() > 1)
            findings.push_back({FindingKind::CodeCase,
                                {},
                                {},
                                {},
                                {},
                                QStringLiteral("The client codes \"") + codes.join(QStringLiteral("\" and \""))
                                    + QStringLiteral("\" differ only in case")});
    }
    for (auto use = lost.cbegin(); use != lost.cend(); ++use)
        findings.push_back({FindingKind::CompanyGone,
                            {},
                            {},
                            {},
                            {},
                            QStringLiteral("Company number %1 does not exist any more, but has ").arg(use.key())
                                + counted(*use, "bill")});
}

} // namespace ledgora::app
