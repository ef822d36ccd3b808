#include "SampleBills.h"

#include "Dice.h"
#include "SampleMasters.h"
#include "bills/BillLines.h"
#include "store/Dates.h"
#include <algorithm>
#include <map>

namespace ledgora::app {

namespace {

enum Stream : quint64 { SlotStream = 11, BillStream };

struct Service
{
    const char *particulars, *sac, *period;
    int low, high; ///< amounts in rupees
};
constexpr Service services[] = {
    {"Statutory audit", "998221", "FY", 15'000, 250'000},
    {"Tax audit u/s 44AB", "998221", "AY", 10'000, 90'000},
    {"Stock audit for the bank", "998221", "FY", 8'000, 60'000},
    {"Book-keeping charges", "998222", "FY", 2'000, 40'000},
    {"Finalisation of accounts", "998222", "FY", 5'000, 50'000},
    {"Payroll processing", "998223", "FY", 1'500, 30'000},
    {"ROC annual filing (AOC-4, MGT-7)", "998224", "FY", 3'000, 15'000},
    {"Digital signature, two years", "998224", "", 900, 2'500},
    {"GST returns, twelve months", "998231", "FY", 6'000, 36'000},
    {"GST annual return (GSTR-9)", "998231", "FY", 5'000, 25'000},
    {"TDS returns, four quarters", "998231", "FY", 2'000, 12'000},
    {"Certificate u/s 15CB", "998231", "", 1'000, 7'500},
    {"Appeal before CIT (Appeals)", "998231", "AY", 10'000, 75'000},
    {"Income-tax return", "998232", "AY", 500, 15'000},
    {"Reply to notice u/s 143(2)", "998232", "AY", 3'000, 30'000},
    {"Opinion on the client's lease", "998232", "", 5'000, 40'000},
    {"Verification of creditors' claims", "998240", "", 20'000, 200'000},
    {"Reimbursement of filing fees", "", "", 200, 6'000},
};
constexpr const char *narrations[] = {"Payable within 15 days", "As agreed by letter", "Fees for the year",
                                      "Kindly quote the bill's number", "Out-of-pocket expenses are billed apart"};

/// The sample's services are taxed at 18 %, seldom at 12 or 5, hardly ever at nothing.
struct Rate
{
    const char *half, *whole;
};
constexpr Rate lowRates[] = {{"6", "12"}, {"2.5", "5"}, {"", ""}};

void put(Cells &lines, int row, int column, const QString &typed)
{
    lines.setText(row, column, typed);
    normaliseBillCell(lines, row, column);
}

int amountOf(Dice &dice, const Service &service)
{
    const int amount = dice.between(service.low, service.high);
    const int roundSum = service.low < 5'000 ? 50 : 500;
    const int step = dice.chance(80) ? roundSum : 1;
    return amount / step * step;
}

/// A discount as a clerk gives it: ten or five percent, rounded, or so much as makes the sum round.
QString discountOf(Dice &dice, int amount)
{
    if (!dice.chance(15))
        return {};
    const int discount = dice.chance(70) ? amount / (dice.chance(50) ? 10 : 20) / 10 * 10 : amount % 1'000;
    return discount > 0 ? QString::number(discount) : QString();
}

void putRates(Dice &dice, Cells &lines, int row)
{
    if (!dice.chance(4))
        return;
    const Rate &rate = dice.pick(lowRates);
    put(lines, row, CgstRateColumn, QLatin1String(rate.half));
    put(lines, row, SgstRateColumn, QLatin1String(rate.half));
    put(lines, row, IgstRateColumn, QLatin1String(rate.whole));
}

/// Tax made by hand: a rupee beside the computed one, as when a bill must agree with the client's own books.
void editTax(Dice &dice, Cells &lines, int row, TaxType type)
{
    if (type == TaxType::None || !dice.chance(3))
        return;
    put(lines, row, EditTaxColumn, QStringLiteral("Y"));
    const int change = dice.chance(50) ? 1 : -1;
    for (const int column : {CgstColumn, SgstColumn, IgstColumn}) {
        if (!isBillColumnHidden(column, type))
            put(lines, row, column, QString::number(int(lines.value(row, column)) + change));
    }
}

void putLine(Dice &dice, Cells &lines, int row, int year, TaxType type)
{
    const Service &service = dice.pick(services);
    put(lines, row, ParticularsColumn, QLatin1String(service.particulars));
    put(lines, row, SacColumn, QLatin1String(service.sac));
    put(lines, row, PeriodColumn, QLatin1String(service.period));
    const int period = year - dice.below(2);
    if (*service.period)
        put(lines, row, YearColumn, QString::number(period));
    const int amount = amountOf(dice, service);
    put(lines, row, AmountColumn, QString::number(amount));
    put(lines, row, DiscountColumn, discountOf(dice, amount));
    if (type != TaxType::None)
        putRates(dice, lines, row);
    GETTOTSBILL(lines, type);
    editTax(dice, lines, row, type);
}

/// Most bills have one to three lines, a few as many as there are.
int lineCount(Dice &dice)
{
    constexpr int most = billLastRow - billTotalRow;
    return dice.chance(92) ? dice.between(1, 3) : dice.between(4, most);
}

/// First and last day of a year's bills.
std::pair<QDate, QDate> daysOf(const SamplePlan &plan, int year)
{
    const QDate first = year == 2017 ? QDate(2017, 7, 1) : QDate(year, 4, 1);
    return {first, std::min(QDate(year + 1, 3, 31), plan.today)};
}

/// Most bills bear no series; each company uses some of the year's.
int seriesOf(Dice &dice, const SamplePlan &plan, int company, int year)
{
    const int place = dice.below(10);
    if (place < 6)
        return 0;
    return sampleSeriesId(plan, year, place < 9 ? 0 : 1 + company % 2);
}

/// A company's bills go to its own clients, seldom to one of another's.
int partyOf(Dice &dice, const SamplePlan &plan, int company)
{
    const int own = (plan.parties - company) / plan.companies + 1;
    if (plan.parties < company || dice.chance(5))
        return dice.below(plan.parties);
    return company - 1 + dice.below(own) * plan.companies;
}

} // namespace

bool forEachSlot(const SamplePlan &plan, const std::function<bool(const SampleSlot &)> &use)
{
    const int shares = plan.companies * plan.years();
    SampleSlot slot;
    for (int share = 0; share < shares; ++share) {
        slot.company = share / plan.years() + 1;
        slot.year = plan.from + share % plan.years();
        const int count = plan.bills / shares + (share < plan.bills % shares ? 1 : 0);
        const auto [first, last] = daysOf(plan, slot.year);
        const qint64 days = first.daysTo(last) + 1;
        std::map<int, int> numbers;
        for (int i = 0; i < count; ++i) {
            Dice dice(quint64(plan.seed), SlotStream, quint64(++slot.id));
            slot.seriesId = seriesOf(dice, plan, slot.company, slot.year);
            slot.number = ++numbers[slot.seriesId];
            const qint64 from = days * i / count;
            const qint64 to = std::max(from + 1, days * (i + 1) / count);
            slot.date = first.addDays(from + dice.below(int(to - from)));
            if (!use(slot))
                return false;
        }
    }
    return true;
}

BillDraft sampleBill(const SamplePlan &plan, const SampleSlot &slot)
{
    Dice dice(quint64(plan.seed), BillStream, quint64(slot.id));
    const SampleParty party = sampleParty(plan, partyOf(dice, plan, slot.company));
    BillDraft bill;
    bill.firmId = slot.company;
    bill.year = slot.year;
    bill.code = party.code;
    bill.seriesId = slot.seriesId;
    bill.number = QString::number(slot.number);
    bill.date = formatDate(slot.date, QStringLiteral("DD/MM/YYYY"));
    bill.state = party.state;
    const bool inside = party.state == sampleCompany(plan, slot.company).state;
    TaxType type = inside ? TaxType::Intra : TaxType::Inter;
    if (dice.chance(6))
        type = TaxType::None;
    bill.taxType = type;
    if (dice.chance(25))
        bill.narration = QLatin1String(dice.pick(narrations));
    const int count = lineCount(dice);
    ADDDEFROWSB(bill.lines);
    bill.lines.setRows(billFixedRows + count); // rows left empty add nothing to a bill
    for (int row = billFixedRows; row < bill.lines.rows(); ++row)
        putLine(dice, bill.lines, row, slot.year, type);
    GETTOTSBILL(bill.lines, type);
    return bill;
}

} // namespace ledgora::app
