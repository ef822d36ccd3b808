#include "Check.h"

#include "Snapshot.h"
#include "bills/DocumentList.h"
#include "masters/PartyDirectory.h"
#include "store/Dates.h"
#include "store/ErrorLog.h"
#include "store/SqlText.h"
#include <optional>

namespace ledgora::app {

namespace {

constexpr size_t billsAReading = 4000;

CheckNames readNames(Snapshot &data, const QString &hostCode)
{
    CheckNames names;
    Recordset companies = data.Open(QStringLiteral("Select FirmSrNo,Nm From GST_FirmMas"));
    while (companies.next())
        names.companies.insert(int(companies.integer(0)), companies.text(1));
    Recordset series = data.Open(QStringLiteral("Select SeriesSrNo,Series,SP From GST_Series"));
    while (series.next())
        names.series.insert(int(series.integer(0)), {series.text(1), series.text(2)});
    Cells parties = emptyPartyDirectory();
    data.read([&](Connection &db) { LOADCLLIST(db, hostCode, parties); });
    names.parties.reserve(parties.rows());
    for (int row = parties.fixedRows(); row < parties.rows(); ++row)
        names.parties.insert(parties.text(row, PartyCode), parties.text(row, PartyName));
    return names;
}

/// By their ids.
std::optional<std::vector<CheckedBill>> readBills(Snapshot &data, int firmId)
{
    Recordset rows =
        data.Open("Select BillSrNo,FirmId,FYr,BillSerId,BillNo,Code_No,BillDt,AppTaxType From GST_BillM"
                  + (firmId > 0 ? QString(" Where FirmId=" + number(firmId)) : QString()) + " Order by BillSrNo");
    if (rows.failed())
        return std::nullopt;
    std::vector<CheckedBill> bills;
    bills.reserve(size_t(rows.recordCount()));
    while (rows.next())
        bills.push_back({int(rows.integer(0)), int(rows.integer(1)), int(rows.integer(2)), int(rows.integer(3)),
                         int(rows.integer(4)), rows.text(5), dateFromStore(rows.text(6)), rows.text(7)});
    return bills;
}

/// The lines of bills above one id and up to another; no bound where there is no further bill, so that lines of bills
/// that are not there are met too.
std::optional<std::vector<CheckedLine>> readLines(Snapshot &data, const int *above, const int *upTo)
{
    QString range = QStringLiteral("(1");
    if (above)
        range += " And BillId>" + number(*above);
    if (upTo)
        range += " And BillId<=" + number(*upTo);
    range += u')';
    if (!above)
        range += QStringLiteral(" Or BillId Is Null");
    Recordset rows = data.Open("Select BillId,SrNo,ServAmt,DiscAmt,TaxServAmt,RtCGST,CGST,RtSGST,SGST,RtIGST,IGST,"
                               "TotalAmt From GST_BillD Where "
                               + range + " Order by BillId,SrNo");
    if (rows.failed())
        return std::nullopt;
    std::vector<CheckedLine> lines;
    lines.reserve(size_t(rows.recordCount()));
    while (rows.next())
        lines.push_back({int(rows.integer(0)), int(rows.integer(1)), rows.number(2), rows.number(3), rows.number(4),
                         rows.number(5), rows.number(6), rows.number(7), rows.number(8), rows.number(9),
                         rows.number(10), rows.number(11)});
    return lines;
}

/// Walks bills and lines, both by the bill's id, side by side. Lines of another company's bills are no lost ones.
void judgeTogether(const CheckNames &names, std::span<const CheckedBill> bills, std::span<const CheckedLine> lines,
                   bool allBills, Findings &findings)
{
    size_t line = 0;
    const auto linesOf = [&](int bill) {
        const size_t first = line;
        while (line < lines.size() && lines[line].bill == bill)
            ++line;
        return lines.subspan(first, line - first);
    };
    const auto passLost = [&](const CheckedBill *before) {
        while (line < lines.size() && (!before || lines[line].bill < before->id)) {
            const auto lost = linesOf(lines[line].bill);
            if (allBills)
                judgeLostLines(lost, findings);
        }
    };
    for (const CheckedBill &bill : bills) {
        passLost(&bill);
        judgeLines(names, bill, linesOf(bill.id), findings);
    }
    passLost(nullptr);
}

class Check
{
public:
    Check(Connection &db, QString hostCode, int firmId, const Progress &progress)
        : m_db(db)
        , m_hostCode(std::move(hostCode))
        , m_firmId(firmId)
        , m_progress(progress)
    {
    }

    CheckResult run()
    {
        Snapshot data(m_db);
        const CheckNames names = readNames(data, m_hostCode);
        if (m_firmId > 0 && !names.companies.contains(m_firmId)) {
            m_result.fault = QStringLiteral("There is no company number %1.").arg(m_firmId);
            return m_result;
        }
        auto bills = data.isOpen() ? readBills(data, m_firmId) : std::nullopt;
        if (!bills || !judgeAllLines(data, names, *bills)) {
            if (m_result.fault.isEmpty())
                m_result.fault = QStringLiteral("The data could not be read: ") + m_db.lastError();
            return m_result;
        }
        m_result.bills = qint64(bills->size());
        judgeParties(names, *bills, m_result.findings); // while the bills are in the order of their ids
        judgeNumbers(names, *bills, m_result.findings);
        return m_result;
    }

private:
    bool judgeAllLines(Snapshot &data, const CheckNames &names, std::span<const CheckedBill> bills)
    {
        size_t first = 0;
        do {
            if (!m_progress(qint64(first), qint64(bills.size()), QStringLiteral("Checking bills"))) {
                m_result.fault = QLatin1String(cancelledText);
                return false;
            }
            const size_t count = std::min(billsAReading, bills.size() - first);
            const auto part = bills.subspan(first, count);
            const bool isLast = first + count == bills.size();
            const auto lines =
                readLines(data, first > 0 ? &bills[first - 1].id : nullptr, isLast ? nullptr : &part.back().id);
            if (!lines)
                return false;
            judgeTogether(names, part, *lines, m_firmId == 0, m_result.findings);
            first += count;
        } while (first < bills.size());
        return true;
    }

    Connection &m_db;
    QString m_hostCode;
    int m_firmId;
    const Progress &m_progress;
    CheckResult m_result;
};

} // namespace

CheckResult checkData(Connection &db, const QString &hostCode, int firmId, const Progress &progress)
{
    const ErrorSite site("CARE", "CHECKDATA");
    return Check(db, hostCode, firmId, progress).run();
}

} // namespace ledgora::app
