#include "Findings.h"

#include "store/Dates.h"
#include "store/DocumentNumber.h"
#include <QMap>
#include <QStringList>
#include <algorithm>
#include <tuple>

namespace ledgora::app {

namespace {

using Documents = std::span<const CheckedDocument>;

const char *documentNoun(DocumentKind kind)
{
    return kind == DocumentKind::Bill ? "bill" : "receipt";
}

/// Whether the document begins another group than the one before it.
template<class Key>
std::vector<Documents> grouped(Documents documents, Key key)
{
    std::vector<Documents> groups;
    for (size_t first = 0, next = 0; first < documents.size(); first = next) {
        while (next < documents.size() && key(documents[next]) == key(documents[first]))
            ++next;
        groups.push_back(documents.subspan(first, next - first));
    }
    return groups;
}

/// Gaps in a run of documents in the order of their numbers, beginning at 1. `series` in which a missing number is
/// named.
void judgeGaps(const CheckNames &names, std::span<const CheckedDocument *const> run, bool nameSeries,
               Findings &findings)
{
    int expected = 1;
    for (const CheckedDocument *document : run) {
        if (document->number > expected) {
            const int series = nameSeries ? document->series : 0;
            const QString first = names.document(document->kind, series, expected);
            const bool one = document->number == expected + 1;
            const QString sentence =
                (one ? QStringLiteral("is missing in ")
                     : QStringLiteral("and the numbers up to %1 are missing in ").arg(document->number - 1))
                + financialYearText(document->year);
            findings.push_back({FindingKind::MissingNumber, names.company(document->company), first, {}, {}, sentence});
        }
        expected = std::max(expected, document->number + 1);
    }
}

void judgeDoubles(const CheckNames &names, Documents series, Findings &findings)
{
    for (const Documents same : grouped(series, [](const CheckedDocument &document) { return document.number; })) {
        if (same.size() > 1)
            findings.push_back(ofDocument(names, same.front(), FindingKind::DoubleNumber,
                                          QStringLiteral("has a number that %1 bear")
                                              .arg(counted(qsizetype(same.size()), documentNoun(same.front().kind)))));
    }
}

void judgeDates(const CheckNames &names, Documents series, Findings &findings)
{
    const CheckedDocument *before = nullptr;
    for (const CheckedDocument &document : series) {
        if (!document.date.isValid() || financialYearOf(document.date) != document.year)
            findings.push_back(ofDocument(
                names, document, FindingKind::DateOutsideYear,
                document.date.isValid()
                    ? QString(QStringLiteral("is dated outside its financial year ") + financialYearText(document.year))
                    : QStringLiteral("has no date")));
        if (before && before->number < document.number && document.date.isValid() && document.date < before->date)
            findings.push_back(ofDocument(names, document, FindingKind::DateOrder,
                                          QStringLiteral("is dated before the lower number %1 of ").arg(before->number)
                                              + dayText(before->date)));
        before = &document;
    }
}

/// True when a number of the year stands in more than one series: then each series is numbered for itself.
bool numbersEachSeries(const std::vector<const CheckedDocument *> &byNumber)
{
    for (size_t i = 1; i < byNumber.size(); ++i) {
        if (byNumber[i]->number == byNumber[i - 1]->number && byNumber[i]->series != byNumber[i - 1]->series)
            return true;
    }
    return false;
}

void judgeYear(const CheckNames &names, Documents year, Findings &findings)
{
    std::vector<const CheckedDocument *> run;
    for (const CheckedDocument &document : year)
        run.push_back(&document);
    std::vector<const CheckedDocument *> byNumber = run;
    std::ranges::stable_sort(byNumber, {}, [](const CheckedDocument *document) { return document->number; });
    const bool apart = numbersEachSeries(byNumber);
    if (!apart)
        judgeGaps(names, byNumber, false, findings);
    size_t first = 0;
    for (const Documents series : grouped(year, [](const CheckedDocument &document) { return document.series; })) {
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

QString CheckNames::document(DocumentKind kind, int seriesId, int number) const
{
    const Series found = series.value(seriesId);
    return (kind == DocumentKind::Bill ? QStringLiteral("Bill ") : QStringLiteral("Receipt "))
           + joinSeries(found.text, found.position, QString::number(number));
}

QString CheckNames::party(const QString &code) const
{
    return parties.value(code, code);
}

QString dayText(QDate date)
{
    return formatDate(date, QStringLiteral("DD/MM/YYYY"));
}

QString counted(qsizetype count, const char *noun)
{
    return QString::number(count) + u' ' + QLatin1String(noun) + (count == 1 ? QString() : QStringLiteral("s"));
}

Finding inGeneral(FindingKind kind, const QString &sentence)
{
    return {kind, {}, {}, {}, {}, sentence};
}

Finding ofDocument(const CheckNames &names, const CheckedDocument &document, FindingKind kind, const QString &sentence)
{
    return {
        kind,          names.company(document.company), names.document(document.kind, document.series, document.number),
        document.date, names.party(document.code),      sentence};
}

QString findingText(const Finding &finding)
{
    QString text = finding.company.isEmpty() ? QString() : QString(finding.company + QStringLiteral(": "));
    if (!finding.document.isEmpty()) {
        text += finding.document;
        if (finding.date.isValid())
            text += QStringLiteral(" of ") + dayText(finding.date);
        if (!finding.party.isEmpty())
            text += QStringLiteral(", ") + finding.party;
        text += u' ';
    }
    return QString(text + finding.sentence).simplified() + u'.';
}

void judgeNumbers(const CheckNames &names, std::vector<CheckedDocument> &documents, Findings &findings)
{
    std::ranges::sort(documents, {}, [](const CheckedDocument &document) {
        return std::tuple(document.company, document.year, document.series, document.number, document.id);
    });
    for (const Documents year : grouped(Documents(documents), [](const CheckedDocument &document) {
             return std::pair(document.company, document.year);
         }))
        judgeYear(names, year, findings);
}

namespace {

/// The documents of a client in a company, or of a company.
struct Use
{
    const CheckedDocument *first = nullptr;
    int bills = 0, receipts = 0;

    void add(const CheckedDocument &document)
    {
        first = first ? first : &document;
        ++(document.kind == DocumentKind::Bill ? bills : receipts);
    }
    QString text() const
    {
        QStringList texts;
        if (bills > 0)
            texts << counted(bills, "bill");
        if (receipts > 0)
            texts << counted(receipts, "receipt");
        return texts.join(QStringLiteral(" and "));
    }
};

/// Every code that clients go by, exactly spelt, under its capitals.
class Spellings
{
public:
    void add(const QString &code)
    {
        QStringList &known = m_byCapitals[code.toUpper()];
        if (!known.contains(code))
            known << code;
    }
    bool isOnlyOne(const QString &code) const { return m_byCapitals.value(code.toUpper()).size() == 1; }
    void judge(Findings &findings) const
    {
        for (const QStringList &codes : m_byCapitals) {
            if (codes.size() > 1)
                findings.push_back(inGeneral(FindingKind::CodeCase, QStringLiteral("The client codes \"")
                                                                        + codes.join(QStringLiteral("\" and \""))
                                                                        + QStringLiteral("\" differ only in case")));
        }
    }

private:
    QMap<QString, QStringList> m_byCapitals;
};

} // namespace

void judgeParties(const CheckNames &names, Documents bills, Documents receipts, Findings &findings)
{
    QMap<std::pair<int, QString>, Use> uses;
    QMap<int, Use> lost; // by company
    for (const Documents documents : {bills, receipts}) {
        for (const CheckedDocument &document : documents) {
            uses[{document.company, document.code}].add(document);
            if (!names.companies.contains(document.company))
                lost[document.company].add(document);
        }
    }
    Spellings spellings;
    for (auto code = names.parties.keyBegin(); code != names.parties.keyEnd(); ++code)
        spellings.add(*code);
    for (auto use = uses.cbegin(); use != uses.cend(); ++use) {
        const QString &code = use.key().second;
        spellings.add(code);
        if (!names.parties.contains(code) && spellings.isOnlyOne(code)) // one in other letters is found below
            findings.push_back(ofDocument(names, *use->first, FindingKind::PartyGone,
                                          QStringLiteral("is for a client that is no longer in the directory (")
                                              + use->text() + u')'));
    }
    spellings.judge(findings);
    for (auto use = lost.cbegin(); use != lost.cend(); ++use)
        findings.push_back(inGeneral(
            FindingKind::CompanyGone,
            QStringLiteral("Company number %1 does not exist any more, but has ").arg(use.key()) + use->text()));
}

} // namespace ledgora::app
