#include "documents/TemplateCheck.h"

#include "documents/BillDocument.h"
#include "documents/ReceiptDocument.h"
#include <QFileInfo>
#include <QHash>
#include <QMap>
#include <QRegularExpression>
#include <QSet>
#include <algorithm>
#include <numeric>
#include <span>

namespace ledgora {

namespace {

constexpr int templateRows = 10;
constexpr TemplateKind allKinds[] = {TemplateKind::Intra, TemplateKind::Inter, TemplateKind::NoTax,
                                     TemplateKind::Receipt};

struct KindWords
{
    const char *word, *fileName, *noun, *rule;
};
constexpr KindWords kindWords[] = {{"intra", "gst_intra_bill", "a tax invoice", "rule 46"},
                                   {"inter", "gst_inter_bill", "a tax invoice", "rule 46"},
                                   {"notax", "gst_notax_bill", "a bill of supply", "rule 49"},
                                   {"receipt", "gst_receipt", "a receipt", ""}};

const KindWords &wordsOf(TemplateKind kind)
{
    return kindWords[size_t(kind)];
}

QStringList namesOf(const std::vector<Placeholder> &placeholders)
{
    QStringList names;
    for (const Placeholder &placeholder : placeholders)
        names << placeholder.name;
    return names;
}

/// A field as all rows share it: "#AMT_n#" for "#AMT_7#".
QString withoutRow(const QString &field)
{
    static const QRegularExpression row(QStringLiteral("_\\d+#$"));
    return QString(field).replace(row, QStringLiteral("_n#"));
}

/// How many letters must change to make one text of the other.
int distance(const QString &one, const QString &other)
{
    QList<int> row(other.size() + 1);
    std::iota(row.begin(), row.end(), 0);
    for (qsizetype i = 0; i < one.size(); ++i) {
        int diagonal = row[0];
        row[0] = int(i) + 1;
        for (qsizetype j = 1; j < row.size(); ++j) {
            const int above = row[j];
            const int changed = diagonal + (one.at(i) == other.at(j - 1) ? 0 : 1);
            row[j] = std::min({above + 1, row[j - 1] + 1, changed});
            diagonal = above;
        }
    }
    return row.back();
}

/// The field that a misspelt one comes nearest to; "" when none is near.
QString nearestField(const QString &written, const QStringList &fields)
{
    const QString bare = QString(written).remove(u'#').trimmed().toUpper().replace(u' ', u'_');
    int best = std::max(2, int(bare.size()) / 4) + 1;
    QString nearest;
    for (const QString &field : fields) {
        const int far = distance(bare, QString(field).remove(u'#'));
        if (far < best) {
            best = far;
            nearest = field;
        }
    }
    return nearest;
}

/// The fields of a template, and the text that is left without them.
struct Fields
{
    QMap<QString, int> counts; ///< how often each known one stands in it
    QString rest;
};

Fields fieldsIn(const QString &text)
{
    Fields found{{}, text};
    QStringList known;
    for (const TemplateKind kind : allKinds)
        known += templateFields(kind);
    known.removeDuplicates();
    for (const QString &field : known) {
        const auto count = int(found.rest.count(field));
        if (count > 0)
            found.counts.insert(field, count);
        found.rest.replace(field, QStringLiteral("\n"));
    }
    return found;
}

void findUnknown(QStringList &findings, TemplateKind kind, const QString &rest)
{
    // A name between two signs, or one that lacks its sign on one side.
    static const QRegularExpression written(QStringLiteral("#[A-Za-z][A-Za-z0-9_ .-]{0,39}#"
                                                           "|#[A-Za-z][A-Za-z0-9_]{2,}"
                                                           "|\\b[A-Z][A-Z0-9]*(?:_[A-Z0-9]+)+#"));
    const QStringList fields = templateFields(kind);
    for (auto match = written.globalMatch(rest); match.hasNext();) {
        const QString name = match.next().captured();
        const bool whole = name.startsWith(u'#') && name.endsWith(u'#');
        const QString nearest = nearestField(name, fields);
        if (!whole && nearest.isEmpty())
            continue; // "#" as it stands in any text
        QString finding = u'"' + name + (whole ? "\" is no field" : "\" is no field: it lacks a \"#\"");
        appendPart(finding, "; did you mean ", nearest.isEmpty() ? nearest : QString(u'"' + nearest + "\"?"));
        findings << finding;
    }
}

void findUnfilled(QStringList &findings, TemplateKind kind, const Fields &fields)
{
    const QStringList filled = templateFields(kind);
    const QSet<QString> known(filled.cbegin(), filled.cend());
    QSet<QString> told;
    for (const QString &field : fields.counts.keys()) {
        const QString shared = withoutRow(field);
        if (known.contains(field) || told.contains(shared))
            continue;
        told.insert(shared);
        findings << u'"' + shared + "\" is not filled in this kind of document; its name would be printed";
    }
}

void findMissingRows(QStringList &findings, const Fields &fields)
{
    QMap<QString, QSet<QString>> rows;
    for (const QString &field : fields.counts.keys()) {
        if (const QString shared = withoutRow(field); shared != field)
            rows[shared].insert(field);
    }
    for (auto field = rows.cbegin(); field != rows.cend(); ++field) {
        QStringList missing;
        for (int row = 1; row <= templateRows; ++row) {
            const QString number = QString::number(row);
            if (!field->contains(QString(field.key()).replace("_n#", u'_' + number + u'#')))
                missing << number;
        }
        if (!missing.isEmpty())
            findings << u'"' + field.key() + "\" is missing in row " + missing.join(", ");
    }
}

void findMissingCopies(QStringList &findings, int copies, const Fields &fields)
{
    for (auto field = fields.counts.cbegin(); field != fields.counts.cend(); ++field) {
        if (*field < copies)
            findings << u'"' + field.key() + "\" does not stand in every copy";
    }
}

/// What a document must show: any of the fields will do.
struct Required
{
    const char *what;
    std::initializer_list<const char *> fields;
};
const Required ofAll[] = {
    {"the supplier's name", {"#FIRM_NAME#"}},         {"the supplier's address", {"#FIRM_ADDRESS#"}},
    {"the supplier's GSTIN", {"#FIRM_GSTIN#"}},       {"the recipient's name", {"#PARTY_NAME#"}},
    {"the recipient's address", {"#PARTY_ADDRESS#"}}, {"the recipient's GSTIN", {"#PARTY_GSTIN#"}},
    {"the name of who signs", {"#AUTHSIGN_NAME#"}}};
const Required ofBills[] = {{"its number", {"#BILL_NO#"}},
                            {"its date", {"#BILL_DT#"}},
                            {"what was supplied", {"#PARTICULARS_n#", "#PARTICULARS_SAC_n#"}},
                            {"the SAC of what was supplied", {"#SAC_n#", "#PARTICULARS_SAC_n#"}},
                            {"the value less discount", {"#NAMT_n#", "#GTNAMT#"}},
                            {"its total", {"#TOTFIGS#", "#GTTAMT#", "#TOTWORDS#"}}};
const Required ofIntra[] = {{"the rate of CGST", {"#CRT_n#"}},
                            {"the rate of SGST", {"#SRT_n#"}},
                            {"the amount of CGST", {"#CAMT_n#", "#GTCAMT#"}},
                            {"the amount of SGST", {"#SAMT_n#", "#GTSAMT#"}}};
const Required ofInter[] = {{"the rate of IGST", {"#IRT_n#"}},
                            {"the amount of IGST", {"#IAMT_n#", "#GTIAMT#"}},
                            {"the place of supply", {"#PLACE_OF_SUPPLY#"}}};
const Required ofReceipts[] = {{"its number", {"#RCPT_NO#"}},
                               {"its date", {"#RCPT_DT#"}},
                               {"what it was received for", {"#BILL_REFERENCES#"}},
                               {"the amount", {"#AMOUNT#", "#AMOUNT_WORDS#"}},
                               {"the tax inside of the amount", {"#TOTAMT_ADJ_DETAILS#"}}};

std::vector<std::span<const Required>> requiredOf(TemplateKind kind)
{
    if (kind == TemplateKind::Receipt)
        return {ofAll, ofReceipts};
    std::vector<std::span<const Required>> required{ofAll, ofBills};
    if (kind == TemplateKind::Intra)
        required.emplace_back(ofIntra);
    if (kind == TemplateKind::Inter)
        required.emplace_back(ofInter);
    return required;
}

void findOmissions(QStringList &findings, TemplateKind kind, const Fields &fields, const QString &text)
{
    QSet<QString> there;
    for (const QString &field : fields.counts.keys())
        there.insert(withoutRow(field));
    const KindWords &words = wordsOf(kind);
    const auto must = [&](const QString &what) -> QString {
        const QString rule = *words.rule ? QString(" (" + QString::fromLatin1(words.rule) + ')') : QString();
        return QString::fromLatin1(words.noun) + " must show " + what + rule;
    };
    for (const auto &group : requiredOf(kind)) {
        for (const Required &required : group) {
            const auto holds = [&](const char *field) { return there.contains(QString::fromLatin1(field)); };
            if (std::ranges::none_of(required.fields, holds))
                findings << u'"' + QString::fromLatin1(*required.fields.begin())
                                + "\" is missing: " + must(QString::fromLatin1(required.what));
        }
    }
    const bool mayBeCharged = kind == TemplateKind::Intra || kind == TemplateKind::Inter;
    if (mayBeCharged && !text.contains("reverse charge", Qt::CaseInsensitive))
        findings << "The words \"reverse charge\" are missing: " + must("whether tax is payable on reverse charge");
}

QStringList filledFields(TemplateKind kind)
{
    if (kind == TemplateKind::Receipt)
        return namesOf(receiptPlaceholders({}));
    BillDocument full; // with all rows filled only the fields of its own kind of tax appear
    full.taxType = TaxType(int(kind));
    full.lines.resize(templateRows);
    return namesOf(billPlaceholders(full).value_or(std::vector<Placeholder>()));
}

} // namespace

std::optional<TemplateUse> templateUseOf(const QString &fileName)
{
    QString stem = QFileInfo(fileName).completeBaseName().toLower();
    const bool two = stem.endsWith("_2copy");
    if (two)
        stem.chop(6);
    for (const TemplateKind kind : allKinds) {
        if (stem == wordsOf(kind).fileName)
            return TemplateUse{kind, two ? 2 : 1};
    }
    return std::nullopt;
}

std::optional<TemplateKind> templateKindOf(const QString &word)
{
    for (const TemplateKind kind : allKinds) {
        if (word.compare(QLatin1String(wordsOf(kind).word), Qt::CaseInsensitive) == 0)
            return kind;
    }
    return std::nullopt;
}

QStringList templateFields(TemplateKind kind)
{
    static const QHash<TemplateKind, QStringList> fields = [] {
        QHash<TemplateKind, QStringList> all;
        for (const TemplateKind one : allKinds)
            all.insert(one, filledFields(one));
        return all;
    }();
    return fields.value(kind);
}

QStringList templateFindings(const TemplateUse &use, const QString &text)
{
    QStringList findings;
    const Fields fields = fieldsIn(text.section(u'\f', 0, 0));
    for (const Fields &part : {fields, fieldsIn(text.section(u'\f', 1))}) {
        findUnknown(findings, use.kind, part.rest);
        findUnfilled(findings, use.kind, part);
    }
    findMissingRows(findings, fields);
    findMissingCopies(findings, use.copies, fields);
    findOmissions(findings, use.kind, fields, text);
    return findings;
}

} // namespace ledgora
