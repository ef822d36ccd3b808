#pragma once

#include "platform/Progress.h"
#include "platform/ReportWriter.h"
#include "reports/ReportRequest.h"

namespace ledgora {

class Connection;

// The reports, each as rows: what they read, sum and write. A failed statement is logged under the routine's name and
// the report comes with its heading, its total and whatever was reached. Queries do not grow with the documents: sums
// of all documents come grouped. Documents of parties that are not asked for, also of those that left the directory,
// are not in a report. Work that the user ends throws ReportCancelled (ReportRun.h), its temporary tables dropped;
// `makeReport` catches it.

/// What came of making a report.
struct ReportResult
{
    QString fault; ///< "" when it stands complete, else why not, in a user's words; `cancelledText` after a Cancel
    bool isPartly = false; ///< with a fault: it stands as far as it was reached, and says itself that it is incomplete
};

/// Makes the asked report from its begin (`SetCol130`, `NewReport`) to its last row. One during which a statement
/// failed is not complete: it is good for the screen, never for a file that passes as a report. Reports that use
/// temporary tables of fixed names wait for another user's run to end.
ReportResult makeReport(Connection &db, const ReportRequest &request, ReportWriter &writer, const Progress &progress);

/// Bill Details: bills of the period, their value and tax.
void REPBILLS(Connection &db, const ReportRequest &request, ReportWriter &writer, const Progress &progress);
/// Receipt Details: receipts of the period, the tax inside each, the bills they settle.
void REPRECEIPTS(Connection &db, const ReportRequest &request, ReportWriter &writer, const Progress &progress);
/// Pending Bill Details: bills of the period that are not fully settled, whenever the receipts came. TDS is part of a
/// receipt's amount.
void REPPENDINGBILLS(Connection &db, const ReportRequest &request, ReportWriter &writer, const Progress &progress);
/// Outstanding: what each party owes at a day; parties that owe nothing, or are in credit, never show.
void REPOUTSTANDING(Connection &db, const ReportRequest &request, ReportWriter &writer, const Progress &progress);
/// Discount Details: of the bills of the period, what was let off on them and by their receipts, party by party.
void REPDISCOUNT(Connection &db, const ReportRequest &request, ReportWriter &writer, const Progress &progress);
/// TDS Details: of the receipts of the period, party by party.
void REPTDS(Connection &db, const ReportRequest &request, ReportWriter &writer, const Progress &progress);
/// SAC Wise Bill Details: a section for each service accounting code of which the period has bills.
void REPSAC(Connection &db, const ReportRequest &request, ReportWriter &writer, const Progress &progress);
/// Client Accounts: for each party its bills (debit) and receipts (credit) of the period between its opening and its
/// closing balance. A party without entries and without an opening balance has no account.
void GETACCOUNT(Connection &db, const ReportRequest &request, ReportWriter &writer, const Progress &progress);

} // namespace ledgora
