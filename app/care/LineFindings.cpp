#include "Findings.h"
#include "bills/TaxType.h"
#include "store/NumberFormat.h"
#include <QStringList>
#include <algorithm>
#include <cmath>

namespace ledgora::app {

namespace {

constexpr double paisa = 0.005; // less than this is no difference

bool differ(double one, double other)
{
    return std::abs(one - other) > paisa;
}

template<class Line>
QString serials(std::span<const Line> lines)
{
    QStringList texts;
    for (const Line &line : lines)
        texts << QString::number(line.serial);
    return texts.join(QStringLiteral(", "));
}

template<class Line>
void judgeSerials(const CheckNames &names, const CheckedDocument &document, std::span<const Line> lines,
                  Findings &findings)
{
    const auto add = [&](const QString &sentence) {
        findings.push_back(ofDocument(names, document, FindingKind::Incomplete, sentence));
    };
    if (lines.empty())
        add(QStringLiteral("has no lines"));
    int serial = 0;
    if (!std::ranges::all_of(lines, [&](const Line &line) { return line.serial == ++serial; }))
        add(QStringLiteral("has lines numbered ") + serials(lines)
            + QStringLiteral(" instead of 1 to %1: some are missing or double").arg(lines.size()));
}

QString lostText(size_t lines, double total, const char *noun, int document)
{
    return counted(qsizetype(lines), "line")
           + QStringLiteral(" of together Rs. %1 without a %2 (its internal number was %3)")
                 .arg(plainNumber(total), QLatin1String(noun))
                 .arg(document);
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

/// What a line says of its bill: nothing when the bill is there and not younger than the receipt.
QString settlementFault(const CheckNames &names, const CheckedDocument &receipt, const CheckedDocument *bill,
                        const CheckedReceiptLine &line)
{
    if (!bill)
        return QStringLiteral("line %1: settles a bill that does not exist any more (its internal number was %2)")
            .arg(line.serial)
            .arg(line.bill);
    if (!bill->date.isValid() || !receipt.date.isValid() || bill->date <= receipt.date)
        return {};
    return QStringLiteral("line %1: settles %2 of %3, a later day")
        .arg(QString::number(line.serial), names.document(bill->kind, bill->series, bill->number), dayText(bill->date));
}

} // namespace

void judgeLines(const CheckNames &names, const CheckedDocument &bill, std::span<const CheckedLine> lines,
                Findings &findings)
{
    const auto add = [&](FindingKind kind, const QString &sentence) {
        findings.push_back(ofDocument(names, bill, kind, sentence));
    };
    judgeSerials(names, bill, lines, findings);
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
    findings.push_back(
        inGeneral(FindingKind::LineWithoutDocument, lostText(lines.size(), total, "bill", lines.front().document)));
}

void judgeReceipt(const CheckNames &names, const CheckedDocument &receipt, std::span<const CheckedReceiptLine> lines,
                  const BillById &bills, Findings &findings)
{
    judgeSerials(names, receipt, lines, findings);
    double amount = 0;
    double tds = 0;
    for (const CheckedReceiptLine &line : lines) {
        amount += line.amount;
        tds += line.tds;
        const CheckedDocument *bill = line.bill != 0 ? bills(line.bill) : nullptr;
        const QString fault = line.bill != 0 ? settlementFault(names, receipt, bill, line) : QString();
        if (!fault.isEmpty())
            findings.push_back(
                ofDocument(names, receipt, bill ? FindingKind::BillLater : FindingKind::BillGone, fault));
    }
    if (!lines.empty() && differ(receipt.money, amount - tds))
        findings.push_back(ofDocument(names, receipt, FindingKind::Totals,
                                      QStringLiteral("received %1, which is not its amounts %2 less TDS %3")
                                          .arg(plainNumber(receipt.money), plainNumber(amount), plainNumber(tds))));
}

void judgeLostLines(std::span<const CheckedReceiptLine> lines, Findings &findings)
{
    if (lines.empty())
        return;
    double total = 0;
    for (const CheckedReceiptLine &line : lines)
        total += line.amount;
    findings.push_back(
        inGeneral(FindingKind::LineWithoutDocument, lostText(lines.size(), total, "receipt", lines.front().document)));
}

void judgeSettled(const CheckNames &names, std::span<const CheckedDocument> bills, const QHash<int, double> &totals,
                  const QHash<int, double> &settled, Findings &findings)
{
    for (const CheckedDocument &bill : bills) {
        const double total = totals.value(bill.id);
        const double paid = settled.value(bill.id);
        if (paid > total && differ(paid, total))
            findings.push_back(ofDocument(names, bill, FindingKind::OverSettled,
                                          QStringLiteral("comes to %1, but %2 was received on it, discounts included")
                                              .arg(plainNumber(total), plainNumber(paid))));
    }
}

} // namespace ledgora::app
