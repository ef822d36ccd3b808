#include "SampleReceipts.h"

#include "Dice.h"
#include "SampleMasters.h"
#include "store/Dates.h"
#include <algorithm>
#include <map>
#include <tuple>

namespace ledgora::app {

namespace {

enum Stream : quint64 { PaymentStream = 21, JoinStream, SeriesStream, MoneyStream };

struct Bank
{
    const char *name, *branch;
};
constexpr Bank banks[] = {{"STATE BANK OF INDIA", "MAIN BRANCH"}, {"PUNJAB NATIONAL BANK", "CIVIL LINES"},
                          {"BANK OF BARODA", "STATION ROAD"},     {"CANARA BANK", "M G ROAD"},
                          {"UNION BANK OF INDIA", "FORT"},        {"PEOPLE'S CO-OP. BANK", "SADAR BAZAR"}};
constexpr const char *narrations[] = {"On account", "Final payment", "As per client's letter",
                                      "TDS certificate awaited", "Balance to follow"};

/// A client's payment on one bill, before receipts are made of payments.
struct Payment
{
    QString code;
    QDate date;
    SampleSettlement row;
};

QDate lastDay(const SamplePlan &plan)
{
    return std::min(plan.today, QDate(plan.to + 1, 3, 31));
}

QDate firstPayment(Dice &dice, QDate billed)
{
    const bool overdue = dice.chance(8);
    return billed.addDays(overdue ? dice.between(370, 900) : dice.between(0, 75));
}

/// Clients other than persons deduct a tenth of the fee.
bool deductsTds(Dice &dice, const SampleDue &due)
{
    return !due.code.startsWith(QLatin1String("BILL~OTHCL-")) && dice.chance(60);
}

/// What the office lets off with the last payment: a small round sum, what makes the rest round, seldom all of it.
int discountOf(Dice &dice, int rest)
{
    if (!dice.chance(12))
        return 0;
    const int kind = dice.below(10);
    if (kind == 0)
        return rest;
    return std::min(rest, kind < 6 ? rest % 100 : rest / 500 * 10);
}

/// A bill's payments, in parts of round sums; the last one takes the rest, if it comes.
void payBill(const SamplePlan &plan, const SampleDue &due, std::vector<Payment> &payments)
{
    Dice dice(quint64(plan.seed), PaymentStream, quint64(due.bill));
    if (due.total <= 0 || !dice.chance(plan.receipts))
        return;
    const int parts = dice.chance(75) ? 1 : dice.between(2, 4);
    const int paidParts = parts > 1 && dice.chance(25) ? parts - 1 : parts;
    const bool tds = deductsTds(dice, due);
    QDate date = firstPayment(dice, due.date);
    int rest = due.total;
    for (int part = 1; part <= paidParts && date <= lastDay(plan); ++part) {
        SampleSettlement row{.bill = due.bill, .amount = part < parts ? due.total / parts / 100 * 100 : rest};
        if (part == parts) {
            row.discount = discountOf(dice, rest);
            row.amount -= row.discount;
        }
        if (tds)
            row.tds = int(qint64(row.amount) * due.taxable / due.total / 10);
        rest -= row.amount + row.discount;
        if (row.amount + row.discount > 0)
            payments.push_back({due.code, date, row});
        date = date.addDays(dice.between(15, 120));
    }
}

/// Whether a payment goes into the receipt of the same client's payment before it.
bool joins(const SamplePlan &plan, const SampleReceipt &receipt, const Payment &payment)
{
    constexpr int mostRows = 10;
    constexpr int mostDays = 20;
    Dice dice(quint64(plan.seed), JoinStream, quint64(payment.row.bill));
    return receipt.code == payment.code && receipt.rows.size() < mostRows
           && receipt.date.daysTo(payment.date) <= mostDays && dice.chance(60);
}

/// Payments as receipts, not numbered yet. A joint receipt bears the day of its last payment.
std::vector<SampleReceipt> joined(const SamplePlan &plan, std::vector<Payment> &payments)
{
    std::ranges::sort(payments, {},
                      [](const Payment &payment) { return std::tuple(payment.code, payment.date, payment.row.bill); });
    std::vector<SampleReceipt> receipts;
    for (const Payment &payment : payments) {
        if (receipts.empty() || !joins(plan, receipts.back(), payment))
            receipts.push_back({.code = payment.code, .date = {}, .rows = {}});
        receipts.back().date = payment.date;
        receipts.back().rows.push_back(payment.row);
    }
    return receipts;
}

struct Money
{
    int cash = 0, other = 0;
    PayMode mode = PayMode::None;
};

PayMode otherMode(Dice &dice, int money)
{
    constexpr int leastByRtgs = 200'000;
    using enum PayMode;
    constexpr PayMode usual[] = {Cheque, Cheque, Cheque, Neft, Neft, Neft, Imps, DemandDraft, PayOrder, Other};
    return money >= leastByRtgs && dice.chance(60) ? Rtgs : dice.pick(usual);
}

Money moneyOf(Dice &dice, const SampleReceipt &receipt)
{
    constexpr int mostCash = 20'000;
    int money = 0;
    for (const SampleSettlement &row : receipt.rows)
        money += row.amount - row.tds;
    if (money == 0 || (money <= mostCash && dice.chance(30)))
        return {.cash = money};
    const int cash = dice.chance(5) ? std::min(mostCash, money / 2) / 500 * 500 : 0;
    return {cash, money - cash, otherMode(dice, money)};
}

/// Bank, branch, number and date of a paper, or the description of a transfer.
void fillInstrument(Dice &dice, QDate date, ReceiptDraft &draft)
{
    if (draft.mode == PayMode::None)
        return;
    if (draft.mode == PayMode::Other) {
        draft.description = QStringLiteral("UPI");
        return;
    }
    const QString paper = QStringLiteral("%1").arg(dice.between(1, 999'999), 6, 10, QLatin1Char('0'));
    if (hasDescription(draft.mode)) {
        draft.description = dice.chance(70) ? QString("UTR " + paper) : QString();
        return;
    }
    const Bank &bank = dice.pick(banks);
    draft.bankName = QLatin1String(bank.name);
    draft.bankBranch = QLatin1String(bank.branch);
    draft.paperNumber = paper;
    if (dice.chance(90))
        draft.paperDate = formatDate(date.addDays(-dice.below(5)), QStringLiteral("DD/MM/YYYY"));
}

} // namespace

std::vector<SampleReceipt> sampleReceipts(const SamplePlan &plan, int company, int firstId,
                                          const std::vector<SampleDue> &dues)
{
    std::vector<Payment> payments;
    for (const SampleDue &due : dues)
        payBill(plan, due, payments);
    std::vector<SampleReceipt> receipts = joined(plan, payments);
    std::ranges::sort(receipts, {},
                      [](const SampleReceipt &receipt) { return std::tuple(receipt.date, receipt.rows.front().bill); });
    std::map<std::pair<int, int>, int> numbers; // by year and series
    for (SampleReceipt &receipt : receipts) {
        Dice dice(quint64(plan.seed), SeriesStream, quint64(receipt.rows.front().bill));
        receipt.id = firstId++;
        receipt.company = company;
        receipt.year = financialYearOf(receipt.date);
        receipt.seriesId = dice.chance(30) ? sampleSeriesId(plan, receipt.year, sampleSeriesAYear - 1) : 0;
        receipt.number = ++numbers[{receipt.year, receipt.seriesId}];
    }
    return receipts;
}

ReceiptDraft receiptDraft(const SamplePlan &plan, const SampleReceipt &receipt)
{
    Dice dice(quint64(plan.seed), MoneyStream, quint64(receipt.id));
    const Money money = moneyOf(dice, receipt);
    ReceiptDraft draft;
    draft.firmId = receipt.company;
    draft.year = receipt.year;
    draft.code = receipt.code;
    draft.seriesId = receipt.seriesId;
    draft.number = QString::number(receipt.number);
    draft.date = formatDate(receipt.date, QStringLiteral("DD/MM/YYYY"));
    draft.cash = money.cash;
    draft.mode = money.mode;
    draft.otherAmount = money.other;
    fillInstrument(dice, receipt.date, draft);
    draft.narration = dice.chance(15) ? QString(QLatin1String(dice.pick(narrations))) : QString();
    for (size_t row = 0; row < receipt.rows.size(); ++row) {
        const SampleSettlement &settled = receipt.rows.at(row);
        draft.rows.at(row) = {settled.bill, double(settled.amount), double(settled.discount), double(settled.tds)};
    }
    return draft;
}

} // namespace ledgora::app
