#include "reports/AccountBook.h"
#include "reports/ReportFrame.h"
#include "reports/ReportParties.h"
#include "reports/ReportRun.h"
#include "reports/Reports.h"
#include "store/Dates.h"
#include "store/ErrorLog.h"
#include <QSet>
#include <algorithm>

namespace ledgora {

namespace {

using enum ReportAlign;

const ReportColumn columns[] = {
    {"Date", Centre, 12},      {"B/R", Centre, 8},
    {"No.", Left, 26},         {"Amount", Right, 12, 24, "Dr."},
    {"", Right, 12, 0, "Cr."}, {"Net Value of Service", Right, 12},
    {"CGST", Right, 12},       {"SGST", Right, 12},
    {"IGST", Right, 12},       {"Discount on Receipt", Right, 12},
    {"TDS", Right, 12},
};

enum AccountAmount { Dr, Cr, Net, Cgst, Sgst, Igst, Discount, Tds, AccountAmountCount };
using Amounts = std::array<double, AccountAmountCount>;

/// Making and dropping the working table takes some milliseconds a party. A run of very many parties does without: the
/// entries and their order are the same.
constexpr size_t mostWorkingTables = 100;

/// The block of one party: its rows, and the totals that run through them.
class Statement
{
public:
    explicit Statement(ReportTable &table) : m_table(table) {}

    void opening(const Account &account);
    void entry(const QString &date, const char *kind, const QString &text, const Amounts &amounts);
    void totals();
    void closing();

private:
    ReportTable &m_table;
    Amounts m_running{};
};

ReportCells cellsOf(const QString &date, const char *kind, const QString &text, const Amounts &amounts)
{
    ReportCells cells{date, QString(QLatin1String(kind)), text};
    for (const double amount : amounts)
        cells.emplace_back(signedAmount(amount, ""));
    return cells;
}

/// A balance stands on the side where it lies.
Amounts balanceOf(double balance, double net, double cgst, double sgst, double igst)
{
    return {std::max(balance, 0.0), std::max(-balance, 0.0), net, cgst, sgst, igst};
}

void Statement::opening(const Account &account)
{
    if (account.debit == account.credit && account.brought.isZero())
        return;
    const auto &[net, cgst, sgst, igst] = account.brought;
    m_running = balanceOf(withoutResidue(account.debit - account.credit), net, cgst, sgst, igst);
    m_table.writeRow(cellsOf({}, "", QStringLiteral("Opening Balance"), m_running));
}

void Statement::entry(const QString &date, const char *kind, const QString &text, const Amounts &amounts)
{
    for (size_t i = 0; i < amounts.size(); ++i)
        m_running[i] += amounts[i];
    m_table.writeRow(cellsOf(date, kind, text, amounts));
}

void Statement::totals()
{
    m_table.writeRuled(cellsOf({}, "", QStringLiteral("Total"),
                               {m_running[Dr], m_running[Cr], 0, 0, 0, 0, m_running[Discount], m_running[Tds]}));
}

void Statement::closing()
{
    const double balance = withoutResidue(m_running[Dr] - m_running[Cr]);
    if (balance != 0)
        m_table.writeUnruled(
            cellsOf({}, "", QStringLiteral("Closing Balance"),
                    balanceOf(balance, m_running[Net], m_running[Cgst], m_running[Sgst], m_running[Igst])));
}

Amounts amountsOf(const AccountEntry &entry)
{
    const TaxedSum &sum = entry.sum;
    if (entry.isReceipt)
        return {0, sum.total(), -sum.net, -sum.cgst, -sum.sgst, -sum.igst, entry.discount, entry.tds};
    return {sum.total(), 0, sum.net, sum.cgst, sum.sgst, sum.igst, entry.discount, entry.tds};
}

/// Makes the blocks; knows what they share.
class Accounts
{
public:
    Accounts(Connection &db, const ReportRequest &request, ReportWriter &writer, const Progress &progress);
    void write(int row);

private:
    void writeHead(int row, ReportTable &table);
    QString numberOf(const AccountEntry &entry, const QString &code) const;
    QString settledNumbers(const AccountEntry &entry, const QString &code) const;

    Connection &m_db;
    const ReportRequest &m_request;
    ReportWriter &m_writer;
    const AccountBook m_book;
    const DocumentNumbers m_numbers;
    QHash<int, ReportDocument> m_bills; ///< that receipts settle, where their numbers are asked for
};

QList<int> settledBills(const std::vector<AccountEntry> &entries)
{
    QList<int> ids;
    for (const AccountEntry &entry : entries) {
        for (const QStringView id : QStringView(entry.billIds).split(u',', Qt::SkipEmptyParts))
            ids << id.toInt();
    }
    return ids;
}

Accounts::Accounts(Connection &db, const ReportRequest &request, ReportWriter &writer, const Progress &progress)
    : m_db(db)
    , m_request(request)
    , m_writer(writer)
    , m_book(db, request, progress)
    , m_numbers(db)
{
    if (!request.billNumbers)
        return;
    QSet<int> ids;
    for (const int row : request.rows) {
        const QList<int> settled = settledBills(m_book.of(request.parties.text(row, ListedCode)).entries);
        ids.unite({settled.begin(), settled.end()});
    }
    m_bills = readBillsById(db, ids.values());
}

/// The numbers of the party's own bills that a receipt settles, by number.
QString Accounts::settledNumbers(const AccountEntry &entry, const QString &code) const
{
    std::vector<ReportDocument> bills;
    const QList<int> ids = settledBills({entry});
    for (const int id : QSet<int>(ids.begin(), ids.end())) {
        const auto bill = m_bills.constFind(id);
        if (bill != m_bills.cend() && codeKey(bill->code) == codeKey(code))
            bills.push_back(*bill);
    }
    std::ranges::sort(bills, {}, [](const ReportDocument &bill) { return std::pair(bill.number, bill.id); });
    QStringList numbers;
    for (const ReportDocument &bill : bills)
        numbers << m_numbers.of(bill);
    return numbers.join(u'/');
}

QString Accounts::numberOf(const AccountEntry &entry, const QString &code) const
{
    const QString number = m_numbers.of(entry.seriesId, entry.number);
    const QString settled = m_request.billNumbers ? settledNumbers(entry, code) : QString();
    return settled.isEmpty() ? number : QString(number + " (" + settled + ')');
}

void Accounts::writeHead(int row, ReportTable &table)
{
    m_writer.PrintText(QLatin1String(normalPitch));
    writeFreeLine(m_writer, partyCell(m_request, row, true).text);
    m_writer.PrintText(QLatin1String(condensedPitch));
    table.writeHeading(ReportTable::Heading::Bold);
}

void Accounts::write(int row)
{
    const QString code = m_request.parties.text(row, ListedCode);
    Account account = m_book.of(code);
    if (account.entries.empty() && withoutResidue(account.debit - account.credit) == 0)
        return;
    if (m_request.rows.size() <= mostWorkingTables)
        account.entries = throughWorkingTable(m_db, account.entries);
    ReportTable table(m_writer, columns);
    writeHead(row, table);
    Statement statement(table);
    statement.opening(account);
    for (const AccountEntry &entry : account.entries)
        statement.entry(FormatDateSafe(entry.date, QStringLiteral("DD-MMM-YY")), entry.isReceipt ? "R" : "B",
                        numberOf(entry, code), amountsOf(entry));
    const TaxedSum &discount = account.discount;
    if (!discount.isZero())
        statement.entry({}, "", QStringLiteral("Total Discount"),
                        {0, discount.total(), -discount.net, -discount.cgst, -discount.sgst, -discount.igst});
    statement.totals();
    statement.closing();
}

} // namespace

void GETACCOUNT(Connection &db, const ReportRequest &request, ReportWriter &writer, const Progress &progress)
{
    const ErrorSite site(reportScreen, "GETACCOUNT");
    writeFreeLine(writer, bold(request.firmName));
    writeFreeLine(writer, withGroup(periodTitle("Client Accounts", request), request));
    Accounts accounts(db, request, writer, progress);
    RowProgress rows(progress, request.rows.size());
    for (const int row : request.rows) {
        rows.next();
        accounts.write(row);
    }
}

} // namespace ledgora
