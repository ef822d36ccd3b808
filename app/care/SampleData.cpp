#include "SampleData.h"

#include "RowWriter.h"
#include "SampleBills.h"
#include "SampleMasters.h"
#include "SampleReceipts.h"
#include "bills/BillStore.h"
#include "receipts/ReceiptStore.h"
#include "store/Connection.h"
#include "store/Dates.h"
#include "store/ErrorLog.h"
#include "store/Schema.h"
#include <algorithm>
#include <map>

namespace ledgora::app {

namespace {

constexpr int firstYear = 2017; // the first one with GST
constexpr int mostCompanies = 100;
constexpr int mostParties = 1'000'000;
constexpr int mostBills = 10'000'000;

bool writeMasters(Connection &db, const SamplePlan &plan, SampleResult &result)
{
    RowWriter companies(db, QStringLiteral("GST_FirmMas"));
    RowWriter series(db, QStringLiteral("GST_Series"));
    for (int id = 1; id <= plan.companies; ++id)
        companies.add(sampleCompany(plan, id).row);
    for (int year = plan.from; year <= plan.to; ++year) {
        for (int place = 0; place < sampleSeriesAYear; ++place)
            series.add(sampleSeriesRow(plan, year, place));
    }
    result.companies = companies.rows();
    return companies.finish() && series.finish();
}

bool writeParties(Connection &db, const SamplePlan &plan, SampleResult &result)
{
    std::map<QString, RowWriter> writers; // by table
    const auto add = [&](const QString &table, const QString &row) {
        return writers.try_emplace(table, db, table).first->second.add(row);
    };
    for (int index = 0; index < plan.parties; ++index) {
        const SampleParty party = sampleParty(plan, index);
        if (!add(party.table, party.row)
            || (!party.gstinRow.isEmpty() && !add(QStringLiteral("GST_ClRegNo"), party.gstinRow)))
            return false;
    }
    result.parties = plan.parties;
    return std::ranges::all_of(writers, [](auto &writer) { return writer.second.finish(); });
}

/// Writes the receipts on one company's bills, bills after bills.
class ReceiptWriter
{
public:
    ReceiptWriter(Connection &db, const SamplePlan &plan)
        : m_plan(plan)
        , m_headers(db, QStringLiteral("GST_RecpM"))
        , m_lines(db, QStringLiteral("GST_RecpD"))
    {
    }

    /// Bills come company by company. False when a statement failed.
    bool add(const SampleSlot &slot, const BillDraft &bill)
    {
        const bool written = slot.company == m_company || write();
        m_company = slot.company;
        m_dues.push_back({slot.id, slot.date, bill.code, int(bill.lines.value(billTotalRow, NetColumn)),
                          int(bill.lines.value(billTotalRow, TotalColumn))});
        return written;
    }
    bool finish() { return write() && m_headers.finish() && m_lines.finish(); }
    qint64 receipts() const { return m_headers.rows(); }

private:
    bool write()
    {
        bool stored = true;
        for (const SampleReceipt &receipt : sampleReceipts(m_plan, m_company, int(receipts()) + 1, m_dues)) {
            const ReceiptDraft draft = receiptDraft(m_plan, receipt);
            if (receiptFault(draft)) // what the screen would refuse is a fault of the sample's own
                return false;
            stored = m_headers.add(receiptHeaderValues(draft, receipt.id)) && stored;
            for (int serial = 1; serial <= int(receipt.rows.size()); ++serial)
                stored =
                    m_lines.add(receiptLineValues(draft.rows.at(size_t(serial) - 1), receipt.id, serial)) && stored;
        }
        m_dues.clear();
        return stored;
    }

    const SamplePlan &m_plan;
    RowWriter m_headers, m_lines;
    std::vector<SampleDue> m_dues;
    int m_company = 0;
};

bool writeDocuments(Connection &db, const SamplePlan &plan, SampleResult &result)
{
    RowWriter headers(db, QStringLiteral("GST_BillM"));
    RowWriter lines(db, QStringLiteral("GST_BillD"));
    ReceiptWriter receipts(db, plan);
    const bool whole = forEachSlot(plan, [&](const SampleSlot &slot) {
        const BillDraft bill = sampleBill(plan, slot);
        bool stored = receipts.add(slot, bill) && headers.add(billHeaderValues(bill, slot.id));
        for (const QString &values : billLineValues(bill, slot.id))
            stored = lines.add(values) && stored;
        return stored;
    });
    result.bills = headers.rows();
    result.lines = lines.rows();
    const bool written = whole && headers.finish() && lines.finish() && receipts.finish();
    result.receipts = receipts.receipts();
    return written;
}

} // namespace

SamplePlan settledPlan(SamplePlan plan)
{
    if (!plan.today.isValid())
        plan.today = today();
    if (plan.to == 0)
        plan.to = financialYearOf(plan.today);
    return plan;
}

QString planFault(const SamplePlan &plan)
{
    const auto outside = [](int value, int low, int high) { return value < low || value > high; };
    if (plan.seed < 0)
        return QStringLiteral("--seed takes a number from 0 on");
    if (outside(plan.companies, 1, mostCompanies))
        return QStringLiteral("--companies takes a number from 1 to %1").arg(mostCompanies);
    if (outside(plan.parties, 1, mostParties))
        return QStringLiteral("--parties takes a number from 1 to %1").arg(mostParties);
    if (outside(plan.bills, 0, mostBills))
        return QStringLiteral("--bills takes a number from 0 to %1").arg(mostBills);
    if (outside(plan.receipts, 0, 100))
        return QStringLiteral("--receipts takes a number from 0 to 100");
    const int last = financialYearOf(plan.today);
    if (outside(plan.from, firstYear, last) || outside(plan.to, plan.from, last))
        return QStringLiteral("--from and --to take the starting years of financial years from %1 to %2")
            .arg(firstYear)
            .arg(last);
    return {};
}

SampleResult writeSample(Connection &db, const SamplePlan &plan)
{
    const ErrorSite site("SAMPLE", "WRITESAMPLE");
    SampleResult result;
    if (const QString table = filledTable(db); !table.isEmpty()) {
        result.fault =
            QStringLiteral("Sample data goes into an empty office only, and this one has rows in ") + table + u'.';
        return result;
    }
    const bool whole = db.Execute(QStringLiteral("Start Transaction")) && writeMasters(db, plan, result)
                       && writeParties(db, plan, result) && writeDocuments(db, plan, result)
                       && db.Execute(QStringLiteral("Commit"));
    if (!whole) {
        result.fault = QStringLiteral("The sample data could not be written: ") + db.lastError();
        db.Execute(QStringLiteral("Rollback"));
    } else {
        refreshStatistics(db);
    }
    return result;
}

} // namespace ledgora::app
