#include "Check.h"

#include "Snapshot.h"
#include "bills/DocumentList.h"
#include "masters/PartyDirectory.h"
#include "store/Dates.h"
#include "store/ErrorLog.h"
#include "store/SqlText.h"
#include <algorithm>
#include <iterator>
#include <optional>

namespace ledgora::app {

namespace {

constexpr size_t documentsAReading = 4000;

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

using Documents = std::vector<CheckedDocument>;

/// Of all companies, by their ids: a receipt may settle a bill of any.
std::optional<Documents> readBills(Snapshot &data)
{
    Recordset rows = data.Open(QStringLiteral("Select BillSrNo,FirmId,FYr,BillSerId,BillNo,Code_No,BillDt,AppTaxType "
                                              "From GST_BillM Order by BillSrNo"));
    if (rows.failed())
        return std::nullopt;
    Documents bills;
    bills.reserve(size_t(rows.recordCount()));
    while (rows.next())
        bills.push_back({DocumentKind::Bill, int(rows.integer(0)), int(rows.integer(1)), int(rows.integer(2)),
                         int(rows.integer(3)), int(rows.integer(4)), rows.text(5), dateFromStore(rows.text(6)),
                         rows.text(7)});
    return bills;
}

/// By their ids.
std::optional<Documents> readReceipts(Snapshot &data, int firmId)
{
    Recordset rows =
        data.Open("Select RecpSrNo,FirmId,FYr,RecpSerId,RecpNo,Code_No,RecpDt,Cash,OthAmt From GST_RecpM"
                  + (firmId > 0 ? QString(" Where FirmId=" + number(firmId)) : QString()) + " Order by RecpSrNo");
    if (rows.failed())
        return std::nullopt;
    Documents receipts;
    receipts.reserve(size_t(rows.recordCount()));
    while (rows.next())
        receipts.push_back({DocumentKind::Receipt,
                            int(rows.integer(0)),
                            int(rows.integer(1)),
                            int(rows.integer(2)),
                            int(rows.integer(3)),
                            int(rows.integer(4)),
                            rows.text(5),
                            dateFromStore(rows.text(6)),
                            {},
                            rows.number(7) + rows.number(8)});
    return receipts;
}

/// A reading of lines: of the documents above one id and up to another; no bound where there is no further document,
/// so that lines of documents that are not there are met too.
struct Reading
{
    std::optional<int> above, upTo;

    QString where(const QString &id) const
    {
        QString range = QStringLiteral(" Where (1");
        if (above)
            range += " And " + id + '>' + number(*above);
        if (upTo)
            range += " And " + id + "<=" + number(*upTo);
        range += u')';
        if (!above)
            range += " Or " + id + " Is Null";
        return range + " Order by " + id + ",SrNo";
    }
};

std::optional<std::vector<CheckedLine>> readBillLines(Snapshot &data, const Reading &reading)
{
    Recordset rows = data.Open("Select BillId,SrNo,ServAmt,DiscAmt,TaxServAmt,RtCGST,CGST,RtSGST,SGST,RtIGST,IGST,"
                               "TotalAmt From GST_BillD"
                               + reading.where(QStringLiteral("BillId")));
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

std::optional<std::vector<CheckedReceiptLine>> readReceiptLines(Snapshot &data, const Reading &reading)
{
    Recordset rows = data.Open("Select RecpId,SrNo,BillId,Amount,Discount,TDS From GST_RecpD"
                               + reading.where(QStringLiteral("RecpId")));
    if (rows.failed())
        return std::nullopt;
    std::vector<CheckedReceiptLine> lines;
    lines.reserve(size_t(rows.recordCount()));
    while (rows.next())
        lines.push_back({int(rows.integer(0)), int(rows.integer(1)), int(rows.integer(2)), rows.number(3),
                         rows.number(4), rows.number(5)});
    return lines;
}

/// Walks documents and lines, both by the document's id, side by side: `judge` has each document with its lines, `lost`
/// the lines of each document that is not among them.
template<class Line, class Judge, class Lost>
void walkTogether(std::span<const CheckedDocument> documents, std::span<const Line> lines, Judge judge, Lost lost)
{
    size_t line = 0;
    const auto linesOf = [&](int document) {
        const size_t first = line;
        while (line < lines.size() && lines[line].document == document)
            ++line;
        return lines.subspan(first, line - first);
    };
    for (const CheckedDocument &document : documents) {
        while (line < lines.size() && lines[line].document < document.id)
            lost(linesOf(lines[line].document));
        judge(document, linesOf(document.id));
    }
    while (line < lines.size())
        lost(linesOf(lines[line].document));
}

Documents ofCompany(const Documents &documents, int firmId)
{
    Documents own;
    std::ranges::copy_if(documents, std::back_inserter(own),
                         [&](const CheckedDocument &document) { return firmId == 0 || document.company == firmId; });
    return own;
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
        m_names = readNames(data, m_hostCode);
        if (m_firmId > 0 && !m_names.companies.contains(m_firmId)) {
            m_result.fault = QStringLiteral("There is no company number %1.").arg(m_firmId);
            return m_result;
        }
        const auto allBills = data.isOpen() ? readBills(data) : std::nullopt;
        auto receipts = allBills ? readReceipts(data, m_firmId) : std::nullopt;
        Documents bills = ofCompany(allBills.value_or(Documents()), m_firmId);
        m_result.bills = qint64(bills.size());
        m_result.receipts = receipts ? qint64(receipts->size()) : 0;
        if (!receipts || !judgeBills(data, bills) || !judgeReceipts(data, *receipts, *allBills)) {
            if (m_result.fault.isEmpty())
                m_result.fault = QStringLiteral("The data could not be read: ") + m_db.lastError();
            return m_result;
        }
        judgeSettled(m_names, bills, m_totals, m_settled, m_result.findings);
        judgeParties(m_names, bills, *receipts, m_result.findings); // while they are in the order of their ids
        judgeNumbers(m_names, bills, m_result.findings);
        judgeNumbers(m_names, *receipts, m_result.findings);
        return m_result;
    }

private:
    /// Lines of another company's documents are no lost ones.
    template<class Lines>
    void judgeLost(const Lines &lines)
    {
        if (m_firmId == 0)
            judgeLostLines(lines, m_result.findings);
    }

    bool judgeBills(Snapshot &data, std::span<const CheckedDocument> bills)
    {
        const auto judge = [&](const CheckedDocument &bill, std::span<const CheckedLine> lines) {
            judgeLines(m_names, bill, lines, m_result.findings);
            for (const CheckedLine &line : lines)
                m_totals[bill.id] += line.total;
        };
        return inReadings(bills, 0, QStringLiteral("Checking bills"), [&](auto part, const Reading &reading) {
            const auto lines = readBillLines(data, reading);
            if (lines)
                walkTogether(part, std::span(*lines), judge, [&](auto lost) { judgeLost(lost); });
            return lines.has_value();
        });
    }

    bool judgeReceipts(Snapshot &data, std::span<const CheckedDocument> receipts, const Documents &allBills)
    {
        const BillById bills = [&](int id) {
            const auto found = std::ranges::lower_bound(allBills, id, {}, &CheckedDocument::id);
            return found != allBills.end() && found->id == id ? &*found : nullptr;
        };
        const auto judge = [&](const CheckedDocument &receipt, std::span<const CheckedReceiptLine> lines) {
            judgeReceipt(m_names, receipt, lines, bills, m_result.findings);
        };
        return inReadings(
            receipts, m_result.bills, QStringLiteral("Checking receipts"), [&](auto part, const Reading &reading) {
                const auto lines = readReceiptLines(data, reading);
                if (!lines)
                    return false;
                for (const CheckedReceiptLine &line : *lines) // lost ones too: the entry screen counts them
                    m_settled[line.bill] += line.amount + line.discount;
                walkTogether(part, std::span(*lines), judge, [&](auto lost) { judgeLost(lost); });
                return true;
            });
    }

    /// Calls `judge` with parts of the documents and the reading of their lines. `before` documents are done
    /// already.
    template<class Judge>
    bool inReadings(std::span<const CheckedDocument> documents, qint64 before, const QString &what, Judge judge)
    {
        size_t first = 0;
        do {
            if (!m_progress(before + qint64(first), m_result.bills + m_result.receipts, what)) {
                m_result.fault = QLatin1String(cancelledText);
                return false;
            }
            const size_t count = std::min(documentsAReading, documents.size() - first);
            const auto part = documents.subspan(first, count);
            Reading reading;
            if (first > 0)
                reading.above = documents[first - 1].id;
            if (first + count < documents.size())
                reading.upTo = part.back().id;
            if (!judge(part, reading))
                return false;
            first += count;
        } while (first < documents.size());
        return true;
    }

    Connection &m_db;
    QString m_hostCode;
    int m_firmId;
    const Progress &m_progress;
    CheckNames m_names;
    QHash<int, double> m_totals, m_settled; ///< what bills come to and what was received, by id
    CheckResult m_result;
};

} // namespace

CheckResult checkData(Connection &db, const QString &hostCode, int firmId, const Progress &progress)
{
    const ErrorSite site("CARE", "CHECKDATA");
    return Check(db, hostCode, firmId, progress).run();
}

} // namespace ledgora::app
