#pragma once

#include "platform/Progress.h"
#include "reports/ReceiptLines.h"

namespace ledgora {

/// A bill or receipt of the period in a client's account. Of a receipt the money received and the tax deducted at
/// source make up `sum`; its discount is told beside it, and comes to the party's credit at the account's end.
struct AccountEntry
{
    int id = 0;
    bool isReceipt = false;
    QDate date;
    qint64 number = 0;
    int seriesId = 0;
    TaxedSum sum;
    double discount = 0, tds = 0; ///< of a receipt, as stored
    QString billIds;              ///< bills that a receipt settles, joined with ","
};

/// All that a client's account is made of.
struct Account
{
    double debit = 0, credit = 0;      ///< of the documents before the period; a discount is credit
    TaxedSum brought;                  ///< net of them
    TaxedSum discount;                 ///< on the receipts of the period
    std::vector<AccountEntry> entries; ///< by date, then number, then bills ahead of receipts, then id
};

/// The accounts of all parties of a request, read together in a few queries. Codes are blind to case, as the database
/// is.
class AccountBook
{
public:
    AccountBook(Connection &db, const ReportRequest &request, const Progress &progress);
    Account of(const QString &code) const;

private:
    void addBill(const ReportDocument &bill, const TaxedSum &sum, QDate from);
    void addReceipt(const ReportDocument &receipt, const std::vector<ReceiptLine> &lines, QDate from);

    QHash<QString, Account> m_accounts;
};

/// Whether two codes are one to the database.
QString codeKey(const QString &code);

/// Entries in the order of an account.
void sortEntries(std::vector<AccountEntry> &entries);

/// The same order by way of the working table `TempClAcGST`, which lives for one party: what other programs of the
/// office may watch.
std::vector<AccountEntry> throughWorkingTable(Connection &db, const std::vector<AccountEntry> &entries);

} // namespace ledgora
