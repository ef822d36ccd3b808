#pragma once

#include "store/Cells.h"
#include <QString>
#include <array>
#include <vector>

namespace ledgora {

/// The reports in the order in which they are offered.
enum class ReportKind { Bills, Receipts, Pending, Outstanding, Discount, Tds, Sac, Account };

/// What is printed with a party's name, each when the directory has it.
struct PartyDetails
{
    bool gstin = false, pan = false, address = false, phone = false, fax = false, mobile = false, email = false;
};

/// A test on the total of Outstanding: none (0), or >, <, >=, <=, =, <> (1 to 6) against `value` rupees.
struct AmountTest
{
    int comparison = 0;
    double value = 0;
};

/// Everything that decides a report, whoever asks for it: the selection screen, the command line, a test. Dates are
/// DD/MM/YYYY texts, whole and in order.
struct ReportRequest
{
    ReportKind kind = ReportKind::Bills;
    int firmId = 0;
    QString firmName;
    QString from, to;      ///< the period; not of Outstanding
    QString asOn;          ///< Outstanding: receipts up to this day
    QString billsUpTo;     ///< Outstanding: bills up to this day, "" for the same
    QString groupName;     ///< chosen group of parties, for the title; "" for none
    Cells parties;         ///< the party list, columns as in ReportParties.h
    QString partiesFault;  ///< "" or why the list is not whole, and no report of it can be
    std::vector<int> rows; ///< its rows that the report is about, in order
    PartyDetails details;
    bool properCase = true; ///< names and addresses in proper case, else upper case
    int sac = 0;            ///< SAC Wise: entry of `sacEntries`, 0 for all
    std::array<AmountTest, 2> amounts;
    bool bothAmounts = true;  ///< both tests must hold, else either
    bool billNumbers = false; ///< Client Account: a receipt's bills beside its number

    /// Whether bills end before receipts do, so that only payments on the bills of the report count.
    bool limitsBills() const { return !billsUpTo.isEmpty() && billsUpTo != asOn; }
};

/// What is offered as the choice of services by accounting code: all, those without, then code " - " service.
inline constexpr const char *sacEntries[] = {"(All)",
                                             "(Blank)",
                                             "998221 - Financial auditing services",
                                             "998222 - Accounting and bookkeeping services",
                                             "998223 - Payroll services",
                                             "998224 - Other similar services n.e.c",
                                             "998231 - Corporate tax consulting and preparation services",
                                             "998232 - Individual tax preparation and planning services",
                                             "998240 - Insolvency and receivership services"};

} // namespace ledgora
