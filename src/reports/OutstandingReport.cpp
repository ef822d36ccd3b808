#include "reports/PartyTable.h"
#include "reports/ReceiptLines.h"
#include "reports/ReportParties.h"
#include "reports/ReportRun.h"
#include "reports/Reports.h"
#include "store/ErrorLog.h"
#include "store/SqlText.h"
#include <QSet>

namespace ledgora {

namespace {

using enum ReportAlign;

const ReportColumn columns[] = {
    {"Party Name", Left, 28}, {"Amount", Right, 10}, {"CGST", Right, 10},
    {"SGST", Right, 10},      {"IGST", Right, 10},   {"Total", Right, 10},
};

using Due = std::array<double, 5>; ///< net, CGST, SGST, IGST, total

/// What of a receipt counts against the bills of the report. A discount reduces what is due as money does.
Due settledBy(const std::vector<ReceiptLine> &lines, const QSet<int> &bills, bool onlyTheirs)
{
    TaxedSum sum;
    double total = 0;
    for (const ReceiptLine &line : lines) {
        if (onlyTheirs && !bills.contains(line.billId))
            continue;
        sum += line.paid;
        sum += line.allowed;
        total += line.applied + line.appliedDiscount;
    }
    return {sum.net, sum.cgst, sum.sgst, sum.igst, total};
}

/// The tests that were asked for on the total. A party in credit never shows, whatever they say.
QString dueCondition(const ReportRequest &request)
{
    constexpr const char *comparisons[] = {"", ">", "<", ">=", "<=", "=", "<>"};
    QString tests;
    for (const AmountTest &test : request.amounts) {
        if (test.comparison == 0)
            continue;
        if (!tests.isEmpty())
            tests += request.bothAmounts ? " and " : " or ";
        tests += QStringLiteral("Tot") + QLatin1String(comparisons[test.comparison]) + number(test.value);
    }
    if (tests.isEmpty())
        tests = QStringLiteral("Tot<>0");
    if (const QString codes = codeList(request); !codes.isEmpty())
        tests = '(' + tests + ") and Code in (" + codes + ')';
    return "Tot>0 AND (" + tests + ')';
}

QString title(const ReportRequest &request)
{
    QString text = "Outstanding Details As on Date " + request.asOn;
    if (request.limitsBills())
        text += " (For Bills Issued Upto Date: " + request.billsUpTo + ')';
    return text;
}

QSet<int> addBills(Connection &db, const ReportRequest &request, PartyTable &table)
{
    const QString where = billsUpTo(request, request.limitsBills() ? request.billsUpTo : request.asOn);
    const std::vector<ReportDocument> bills = readBills(db, where);
    const auto sums = sumsOf<5>(db, billLines,
                                "SUM(TaxServAmt) AS TotTSA,SUM(CGST) AS TotCGST,SUM(SGST) AS TotSGST,"
                                "SUM(IGST) AS TotIGST,SUM(TotalAmt) AS TotBillAmt",
                                bills);
    QSet<int> ids;
    for (const ReportDocument &bill : bills) {
        table.add(bill.code, sums.value(bill.id));
        ids.insert(bill.id);
    }
    return ids;
}

void addReceipts(Connection &db, const ReportRequest &request, const QSet<int> &bills, PartyTable &table)
{
    const std::vector<ReportDocument> receipts = readReceipts(db, receiptsUpTo(request, request.asOn));
    const auto linesByReceipt = linesOfReceipts(db, receipts);
    for (const ReportDocument &receipt : receipts) {
        Due settled = settledBy(linesByReceipt.value(receipt.id), bills, request.limitsBills());
        if (settled == Due{})
            continue;
        for (double &sum : settled)
            sum = -sum;
        table.add(receipt.code, settled);
    }
}

} // namespace

void REPOUTSTANDING(Connection &db, const ReportRequest &request, ReportWriter &writer, const Progress &progress)
{
    const ErrorSite site(reportScreen, "REPOUTSTANDING");
    PartyCells parties(request);
    PartyTable table(db, "TempClOutStGST", {"AmtTS", "CGST", "SGST", "IGST", "Tot"}, parties);
    tellReading(progress);
    const QSet<int> bills = addBills(db, request, table);
    tellReading(progress);
    addReceipts(db, request, bills, table);
    writeOpening(writer, request, title(request));
    writeParties(writer, columns, table.summary(dueCondition(request)), parties, progress);
}

} // namespace ledgora
