#include "reports/AccountBook.h"

#include "reports/ReportRun.h"
#include "store/Dates.h"
#include "store/SqlText.h"
#include <QStringList>
#include <algorithm>
#include <cmath>
#include <tuple>
#include <utility>

namespace ledgora {

namespace {

QString columnsOf(const AccountEntry &entry)
{
    const QString bar = QStringLiteral(",");
    return (entry.isReceipt ? "('R'," : "('B',") + quoted(formatDate(entry.date, "yyyy-MM-dd") + " 00:00:00") + bar
           + number(entry.number) + bar + number(entry.seriesId) + bar + number(entry.sum.net) + bar
           + number(entry.sum.cgst) + bar + number(entry.sum.sgst) + bar + number(entry.sum.igst) + bar
           + number(entry.discount) + bar + number(entry.tds) + bar + quoted(entry.billIds) + ')';
}

std::vector<AccountEntry> entriesOf(Recordset rows)
{
    std::vector<AccountEntry> entries;
    while (rows.next())
        entries.push_back({.isReceipt = rows.text(0) == QLatin1String("R"),
                           .date = dateFromStore(rows.text(1)),
                           .number = rows.integer(2),
                           .seriesId = int(rows.integer(3)),
                           .sum = {rows.number(4), rows.number(5), rows.number(6), rows.number(7)},
                           .discount = rows.number(8),
                           .tds = rows.number(9),
                           .billIds = rows.text(10)});
    return entries;
}

bool isSameRow(const AccountEntry &one, const AccountEntry &other)
{
    constexpr double residue = 0.001; // of a sum that went through text
    return one.isReceipt == other.isReceipt && one.date == other.date && one.number == other.number
           && one.seriesId == other.seriesId && one.billIds == other.billIds
           && std::abs(one.sum.total() - other.sum.total()) < residue;
}

/// The table has no room for the id, which decides where all else ties: a row gets it from the entry that it was made
/// of. Both are in one order but for ties, so that the entry is near.
void takeIds(std::vector<AccountEntry> &rows, std::vector<AccountEntry> entries)
{
    auto first = entries.begin();
    for (AccountEntry &row : rows) {
        while (first != entries.end() && first->id == 0)
            ++first;
        const auto entry = std::find_if(
            first, entries.end(), [&row](const AccountEntry &made) { return made.id != 0 && isSameRow(made, row); });
        if (entry != entries.end())
            row.id = std::exchange(entry->id, 0);
    }
}

} // namespace

AccountBook::AccountBook(Connection &db, const ReportRequest &request, const Progress &progress)
{
    tellReading(progress);
    const QDate from = DateFromText(request.from);
    const std::vector<ReportDocument> bills = readBills(db, billsUpTo(request, request.to));
    const auto sums =
        sumsOf<4>(db, billLines,
                  "SUM(TaxServAmt) AS TotTSA,SUM(CGST) AS TotCGST,SUM(SGST) AS TotSGST,SUM(IGST) AS TotIGST", bills);
    for (const ReportDocument &bill : bills) {
        const auto [net, cgst, sgst, igst] = sums.value(bill.id);
        addBill(bill, {net, cgst, sgst, igst}, from);
    }
    tellReading(progress);
    const std::vector<ReportDocument> receipts = readReceipts(db, receiptsUpTo(request, request.to));
    const auto lines = linesOfReceipts(db, receipts);
    for (const ReportDocument &receipt : receipts)
        addReceipt(receipt, lines.value(receipt.id), from);
    for (Account &account : m_accounts)
        sortEntries(account.entries);
}

Account AccountBook::of(const QString &code) const
{
    return m_accounts.value(codeKey(code));
}

void AccountBook::addBill(const ReportDocument &bill, const TaxedSum &sum, QDate from)
{
    Account &account = m_accounts[codeKey(bill.code)];
    if (bill.date < from) {
        account.debit += sum.total();
        account.brought += sum;
        return;
    }
    account.entries.push_back({.id = bill.id,
                               .date = bill.date,
                               .number = bill.number,
                               .seriesId = bill.seriesId,
                               .sum = sum,
                               .billIds = {}});
}

void AccountBook::addReceipt(const ReportDocument &receipt, const std::vector<ReceiptLine> &lines, QDate from)
{
    Account &account = m_accounts[codeKey(receipt.code)];
    AccountEntry entry{.id = receipt.id,
                       .isReceipt = true,
                       .date = receipt.date,
                       .number = receipt.number,
                       .seriesId = receipt.seriesId,
                       .sum = {},
                       .billIds = {}};
    TaxedSum allowed;
    QStringList bills;
    for (const ReceiptLine &line : lines) {
        entry.sum += line.paid;
        allowed += line.allowed;
        entry.discount += line.discount;
        entry.tds += line.tds;
        bills << number(line.billId);
    }
    if (receipt.date < from) {
        account.credit += entry.sum.total() + allowed.total();
        account.brought -= entry.sum;
        account.brought -= allowed;
        return;
    }
    entry.billIds = bills.join(u',');
    account.entries.push_back(std::move(entry));
    account.discount += allowed;
}

QString codeKey(const QString &code)
{
    qsizetype length = code.size();
    while (length > 0 && code.at(length - 1) == u' ') // blanks at the end do not count either
        --length;
    return code.left(length).toUpper();
}

void sortEntries(std::vector<AccountEntry> &entries)
{
    std::ranges::stable_sort(entries, {}, [](const AccountEntry &entry) {
        return std::tuple(entry.date, entry.number, entry.isReceipt, entry.id);
    });
}

std::vector<AccountEntry> throughWorkingTable(Connection &db, const std::vector<AccountEntry> &entries)
{
    const auto execute = [&db](const QString &sql) {
        db.Execute(sql);
        db.Execute(QStringLiteral("Flush Tables"));
    };
    execute(QStringLiteral("Create Table If Not Exists TempClAcGST (Typ Char(1), Dt Date, No Int(11), SerId Int(11), "
                           "AmtTS Double, CGST Double, SGST Double, IGST Double, Disc Double, TDS Double, "
                           "RBillIds varchar(255))"));
    execute(QStringLiteral("Delete from TempClAcGST"));
    QStringList rows;
    for (const AccountEntry &entry : entries)
        rows << columnsOf(entry);
    if (!rows.isEmpty())
        execute("Insert into TempClAcGST Values " + rows.join(u','));
    std::vector<AccountEntry> sorted =
        entriesOf(db.Open(QStringLiteral("Select * from TempClAcGST Order By Dt,No,Typ")));
    execute(QStringLiteral("Drop Table If Exists TempClAcGST"));
    takeIds(sorted, entries);
    sortEntries(sorted);
    return sorted;
}

} // namespace ledgora
